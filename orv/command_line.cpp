// SPDX-License-Identifier: Apache-2.0
//
// The subcommands, their options and their help. Completion and the manual page are made of them.

#include "orv/command_line.h"

#include <algorithm>
#include <cstdint>
#include <fmt/format.h>
#include <map>
#include <vector>

#include "orv/near_name.h"
#include "orv/shown_name.h"
#include "orv/version.h"

namespace velto::orv {

namespace {

const std::string kFooter = commonFooter();

const std::map<std::string, ReportFormat> kReportFormats = {{"text", ReportFormat::text},
                                                            {"json", ReportFormat::json},
                                                            {"junit", ReportFormat::junit},
                                                            {"sarif", ReportFormat::sarif}};

constexpr std::uint64_t kMostCells = 1000000000000;

void addCheck(CLI::App& app, CheckOptions& options) {
  CLI::App* check = app.add_subcommand("check", "Say whether case files are sound");
  check->add_option("FILE", options.files, "Case files or folders")->required();
  check
      ->add_option(
          "-l,--level", options.level,
          "0 the file as a whole, 1 zones and what refers to them, 2 what each face and cell lists")
      ->check(CLI::Range(0, 2))
      ->capture_default_str();
  check
      ->add_option(
          "-v,--verbosity", options.verbosity,
          "0 nothing, 1 messages, at most ten of a kind, 2 all of them and details, 3 steps, 4 single cells")
      ->check(CLI::Range(0, 4))
      ->capture_default_str();
  check->add_option("-m,--mesh", options.mesh, "Check only the mesh with this id")
      ->check(CLI::PositiveNumber);
  check
      ->add_option("-p,--partition", options.partition,
                   "Check only this partition of partitioned post targets")
      ->check(CLI::NonNegativeNumber);
  check->add_option("-t,--target", options.target, "Check only this target: restart, post or ppost")
      ->check(CLI::IsMember({"restart", "post", "ppost"}));
  check->add_flag("--no-location-model", options.noLocationModel,
                  "Leave out the location model and the physics objects that refer to it");
  check->add_flag("--strict", options.strict, "Let warnings count as errors");
  check->add_flag("-q,--quiet", options.quiet, "Print nothing; the exit status tells the verdict");
  CLI::Option* format =
      check
          ->add_option_function<std::string>(
              "--format",
              [&options](const std::string& word) { options.format = kReportFormats.at(word); },
              "text for people; one document for programs: json, junit or sarif")
          ->check(CLI::IsMember({"text", "json", "junit", "sarif"}))
          ->default_str("text");
  check
      ->add_flag_callback(
          "--json", [&options] { options.format = ReportFormat::json; },
          "The same as --format json")
      ->excludes(format);
  check->footer(
      "Level 1 judges the file as a whole, the sizes of its meshes, their zones, the location model and\n"
      "the physics objects that refer to it. Level 2 reads the mesh as well: whether each id is one of the\n"
      "mesh, whether as many faces reach each cell as its type has, whether faces and cells share their\n"
      "nodes, where shadow faces lie. A mesh without a location model gets one made of its zones, as\n"
      "`orv model` shows it. What the OpenFOAM reader finds wrong with single entries comes as warnings.\n"
      "An OpenFOAM mesh holds no physics, which is a warning too, so that --strict goes with\n"
      "--no-location-model there. `orv explain` tells what a message means and what to do.\n\n"
      "Examples:\n"
      "  orv check constant/polyMesh           an OpenFOAM mesh\n"
      "  orv check case/ --level 2             a case folder, with its connectivity\n"
      "  orv check case/ --level 2 -v 3        names each id that is wrong\n"
      "  orv check case/ -v 2                  shows sizes and zones as they are judged\n"
      "  orv check a/ b/ --quiet && run        go on only if both are sound\n"
      "  orv check case/ --json > report.json  for other programs\n"
      "  orv check *.orv --format junit        for a build server\n\n" +
      std::string(kFooter));
}

void addInfo(CLI::App& app, InfoOptions& options) {
  CLI::App* info = app.add_subcommand("info", "Show what case files hold");
  info->add_option("FILE", options.files, "Case files or folders")->required();
  info->add_flag("--json", options.json, "Print one JSON document instead of text");
  info->footer(
      "Examples:\n"
      "  orv info constant/polyMesh\n"
      "  orv info case/ --json | jq '.files[0].meshes[0].sizes'\n\n" +
      std::string(kFooter));
}

void addModel(CLI::App& app, ModelOptions& options) {
  CLI::App* model = app.add_subcommand("model", "Show location models, or build them from zones");
  model->add_option("FILE", options.files, "Case files or folders")->required();
  model
      ->add_option("-m,--mesh", options.mesh,
                   "Show zones of the mesh with this id (default: the first restart mesh)")
      ->check(CLI::PositiveNumber);
  model->add_flag("--build", options.build, "Build a model even where the file has one");
  CLI::Option* json =
      model->add_flag("--json", options.json, "Print one JSON document instead of text");
  model->add_flag("--dot", options.dot, "Print a graph for Graphviz instead of text")
      ->excludes(json);
  model->footer(
      "A location model names bodies, and faces between and around them, and tells the zones that\n"
      "they consist of. Where a file has none, the one is shown that its zones give. +5 is side 0 of\n"
      "face zone 5, -5 is side 1; a name in round brackets is relative, of a face use without a name.\n\n"
      "Examples:\n"
      "  orv model case.orv\n"
      "  orv model constant/polyMesh              the model that its zones give\n"
      "  orv model case.orv --build               the same, whatever the file has\n"
      "  orv model case.orv --dot | dot -Tsvg > model.svg\n"
      "  orv model case.orv --json | jq '.files[0].parts[0].bodies'\n\n" +
      std::string(kFooter));
}

void addRegions(CLI::App& app, RegionsOptions& options) {
  CLI::App* regions = app.add_subcommand("regions", "Tell where the physics regions of a case lie");
  regions->add_option("FILE", options.file, "A case file or folder")->required();
  regions->add_option("NAME", options.name, "Explain the region of this name alone");
  regions
      ->add_option("-m,--mesh", options.mesh,
                   "Look in the mesh with this id (default: the first restart mesh)")
      ->check(CLI::PositiveNumber);
  regions->add_flag("--build", options.build, "Build a location model even where the file has one");
  regions->add_flag("--json", options.json, "Print one JSON document instead of text");
  regions->footer(
      "Physics regions are the domains, subdomains, boundaries and interfaces of the settings. Their\n"
      "locations name objects of the location model: bodies, face uses, or composites of these. Where a\n"
      "file has no model, they are looked up in the one that its zones give, and the output says so.\n"
      "(?) marks a name that comes to nothing, +5 is side 0 of face zone 5, -5 is side 1, and bulk zones\n"
      "are face zones inside a body.\n\n"
      "Examples:\n"
      "  orv regions case.orv\n"
      "  orv regions case.orv inflow       why the region lies where it does, name by name\n"
      "  orv regions case.orv --json | jq '.files[0].regions[] | select(.kind == \"boundary\")'\n\n" +
      std::string(kFooter));
}

/// "--no-<name>", which leaves out what is copied without it.
void addOmission(CLI::App* command, const std::string& name, bool& value, const std::string& what) {
  command
      ->add_flag_callback(
          "--no-" + name, [&value] { value = false; }, what)
      ->group("What is left out");
}

void addCopy(CLI::App& app, CopyOptions& options) {
  CLI::App* copy = app.add_subcommand("copy", "Carry a case into another file or format");
  copy->add_option("SOURCE", options.source, "A case file or folder")->required();
  copy->add_option("DESTINATION", options.destination, "The file or folder to write")->required();
  copy->add_option("--to", options.format,
                   "The format to write (default: as the name of DESTINATION tells)");
  copy->add_option("--solver-format", options.solverFormat,
                   "The solver type to write, which settings stand below (default: as in SOURCE)");
  copy->add_option("-c,--compression", options.compression, "0 none, 1 fast, 9 small")
      ->check(CLI::Range(0U, 9U))
      ->capture_default_str();
  copy->add_flag("--text", options.text, "Write text where the format has a form in text");
  copy->add_option("-m,--mesh", options.mesh,
                   "Copy the mesh with this id; needed if there are several")
      ->check(CLI::PositiveNumber);
  copy->add_option("-t,--target", options.target, "Copy only this target: restart, post or ppost")
      ->check(CLI::IsMember({"restart", "post", "ppost"}));
  copy->add_option("-p,--partition", options.partition, "Copy only this partition")
      ->check(CLI::NonNegativeNumber);
  copy->add_option("--results", options.sourceResults,
                   "Copy the results in this file (default: those beside SOURCE)");
  copy->add_option("--results-to", options.destinationResults,
                   "Write results to this file (default: beside DESTINATION)");
  copy->add_flag_callback(
      "--settings", [&options] { options.settings = true; }, "Copy the settings (the default)");
  addOmission(copy, "results", options.results, "Results");
  addOmission(copy, "settings", options.settings, "Settings");
  addOmission(copy, "location-model", options.locationModel,
              "The location model; one is built if there is none");
  addOmission(copy, "mesh-size", options.meshSize, "Sizes of the mesh");
  addOmission(copy, "units", options.units, "Units of the mesh");
  addOmission(copy, "zones", options.zones, "Tables of zones; no zone is copied without");
  addOmission(copy, "nodes", options.nodes, "Coordinates of nodes");
  addOmission(copy, "cells", options.cells, "Cells at all");
  addOmission(copy, "cell-nodes", options.cellNodes, "Nodes of cells");
  addOmission(copy, "cell-types", options.cellTypes, "Types of cells");
  addOmission(copy, "cell-partitions", options.cellPartitions, "Partitions of cells");
  addOmission(copy, "faces", options.faces, "Faces at all");
  addOmission(copy, "face-nodes", options.faceNodes, "Nodes of faces");
  addOmission(copy, "face-cells", options.faceCells, "Cells on both sides of faces");
  copy->add_flag("-n,--dry-run", options.dryRun,
                 "Write nothing; say what would be copied, and what would be lost");
  copy->add_flag("--verify", options.verify, "Read the copy back and compare it array by array");
  copy->add_flag("-f,--force", options.force, "Replace what is there");
  copy->add_flag("--keep-going", options.keepGoing,
                 "Copy what can be read of a damaged case; exit status 1 then");
  copy->add_flag("-v,--verbose", options.verbose, "Print each step");
  copy->add_flag("--json", options.json, "Print one JSON document instead of text")
      ->excludes("--verbose");
  copy->footer(
      "A copy carries one mesh, with all its targets and partitions, into mesh 1 of DESTINATION. The file\n"
      "is written beside its final name and takes that name when it is whole. Results go beside a case\n"
      "file, into DESTINATION with an \"r\" behind it. The name tells the format: x.orv is the case store,\n"
      "x.vtu a VTK grid, a folder with a slash behind it an OpenFOAM case.\n\n"
      "Examples:\n"
      "  orv copy constant/polyMesh duct.orv        an OpenFOAM mesh into the case store\n"
      "  orv copy duct.orv small.orv -c 9 --verify  packed, and compared with its source\n"
      "  orv copy duct.orv duct.vtu                 for ParaView\n"
      "  orv copy duct.orv case/ --text             an OpenFOAM mesh in text, in case/constant/polyMesh\n"
      "  orv copy duct.orv other.orv --dry-run      what a copy carries, and what is lost\n\n" +
      std::string(kFooter));
}

void addExplain(CLI::App& app, ExplainOptions& options) {
  CLI::App* explain = app.add_subcommand("explain", "Say what messages mean, and what to do");
  explain->add_option(
      "TEXT", options.texts,
      "Messages as they were printed or recorded, or ids of --list; - for standard input");
  explain->add_flag("--list", options.list, "List all messages of the tools with their ids");
  explain->add_flag("--json", options.json, "Print one JSON document instead of text");
  explain->footer(
      "A message may be pasted as it stands: with its step or without, behind \"Error:\" or \"Warning:\",\n"
      "its words on several lines, with the name of a log in front. <...> stands for a value. What comes on\n"
      "standard input is a log: its messages are explained once each, with how many lines have them, and\n"
      "its other lines are counted. Without TEXT a log is read if standard input is no terminal.\n\n"
      "Examples:\n"
      "  orv explain 'Error: checkFaceZones: Overlapping Face ranges'\n"
      "  orv explain --list                        all messages, with their ids\n"
      "  orv check case/ 2>&1 | orv explain        whatever a check finds\n"
      "  orv explain < solver.log\n"
      "  orv explain --list --json | jq -r '.entries[].remedy'\n\n"
      "Exit status 1 also tells that a text is no message of the tools, or that a log holds none.\n" +
      std::string(kFooter));
}

void addFormats(CLI::App& app, FormatsOptions& options) {
  CLI::App* formats =
      app.add_subcommand("formats", "List the formats that can be read and written");
  formats->add_flag("--json", options.json, "Print one JSON document instead of text");
  formats->footer("Example:\n  orv formats\n\n" + std::string(kFooter));
}

void addSample(CLI::App& app, SampleOptions& options) {
  CLI::App* sample = app.add_subcommand("sample", "Write a sample case, sound or damaged");
  sample->add_option("NAME FILE", options.words, "Which sample, and the case file to write")
      ->expected(1, 2);
  sample->add_option("-d,--defect", options.defect,
                     "Write a sample with this defect; only FILE is given then");
  sample->add_option("-n,--cells", options.cells, "About how many cells (default: as in --list)")
      ->check(CLI::Range(std::uint64_t{1}, kMostCells));
  sample->add_option("-c,--compression", options.compression, "0 none, 1 fast, 9 small")
      ->check(CLI::Range(0U, 9U))
      ->capture_default_str();
  sample->add_flag("-f,--force", options.force, "Overwrite files that are there");
  CLI::Option* list = sample->add_flag("--list", options.list, "List the samples and defects");
  sample->add_flag("--json", options.json, "List them as one JSON document")->needs(list);
  sample->footer(
      "Every sample is sound: `orv check` has nothing to say of it. Every defect gives the\n"
      "message beside which --list shows it, at the level of check that is told there. Results go beside the\n"
      "case file, into FILE with an \"r\" behind it.\n\n"
      "Examples:\n"
      "  orv sample --list                           what there is\n"
      "  orv sample box box.orv                      a box of 8000 hexahedra\n"
      "  orv sample polyhedra big.orv -n 10000000    ten million polyhedra\n"
      "  orv sample --defect overlap bad.orv         a case with overlapping face zones\n\n" +
      std::string(kFooter));
}

void addCompletion(CLI::App& app, CompletionOptions& options) {
  CLI::App* completion =
      app.add_subcommand("completion", "Print what makes a shell complete command lines of orv");
  completion->add_option("SHELL", options.shell, "Whose: bash, zsh or fish")
      ->required()
      ->check(CLI::IsMember({"bash", "zsh", "fish"}));
  completion->footer(
      "An installed orv brings these scripts along, where the shells look for them.\n\n"
      "Examples:\n"
      "  source <(orv completion bash)             in ~/.bashrc\n"
      "  source <(orv completion zsh)              in ~/.zshrc, behind compinit\n"
      "  orv completion fish | source              in ~/.config/fish/config.fish\n\n" +
      std::string(kFooter));
}

/// For those who build orv.
void addManual(CLI::App& app) {
  app.add_subcommand("manual", "Print the manual page, for man")->group("");
}

/// Stands in front of an argument in square brackets, which the parser would take apart as a list.
constexpr char kWholeMark = '\x01';

bool isTakenApart(const std::string& text) {
  return text.size() > 1 && (text.front() == '[' || text.front() == kWholeMark) &&
         text.back() == ']';
}

/// The arguments, last first as the parser wants them, with their marks.
std::vector<std::string> markedArguments(int argc, char** argv) {
  std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
  for (std::string& text : arguments) {
    text.insert(0, isTakenApart(text) ? 1 : 0, kWholeMark);
  }
  std::reverse(arguments.begin(), arguments.end());
  return arguments;
}

void dropMark(std::string& text) { text.erase(0, isTakenApart(text) ? 1 : 0); }

/// From all texts that may be anything.
void dropMarks(CommandLine& line) {
  for (auto* texts : {&line.check.files, &line.info.files, &line.model.files, &line.explain.texts,
                      &line.sample.words}) {
    std::for_each(texts->begin(), texts->end(), dropMark);
  }
  for (auto* text :
       {&line.regions.file, &line.regions.name, &line.copy.source, &line.copy.destination,
        &line.copy.format, &line.copy.solverFormat, &line.copy.sourceResults,
        &line.copy.destinationResults, &line.sample.defect}) {
    dropMark(*text);
  }
}

/// What is said of a command line that cannot be carried out.
std::string failureText(const CLI::App* app, const CLI::Error& error) {
  std::string text = std::string("orv: ") + error.what();
  for (const CLI::App* command : app->get_subcommands()) {
    text += fmt::format("; `orv {} --help` shows examples", command->get_name());
  }
  return text + "\n";
}

/// Throws if the first argument should be a command and is none.
void judgeCommand(const CLI::App& app, const std::string& command) {
  std::vector<std::string> names;
  for (const CLI::App* one : app.get_subcommands([](const CLI::App*) { return true; })) {
    names.push_back(one->get_name());
  }
  if (std::find(names.begin(), names.end(), command) == names.end()) {
    throw CLI::ParseError("no command is named " + shownText(command) + "; " +
                              guessWords(command, names) + "`orv --help` lists all",
                          exitNotDone);
  }
}

}  // namespace

std::string commonFooter() {
  std::string statuses;
  for (const ExitMeaning& row : kExitMeanings) {
    statuses += fmt::format("{}{} {}", statuses.empty() ? "" : ", ", row.status, row.meaning);
  }
  return fmt::format("{}\nExit status: {}.", kStreams, statuses);
}

void addCommands(CLI::App& app, CommandLine& line) {
  app.set_version_flag("--version", versionText);
  app.failure_message(failureText);
  app.require_subcommand(1);
  app.footer(
      "Examples:\n"
      "  orv check constant/polyMesh\n"
      "  orv info case/\n"
      "  orv check --help\n\n" +
      std::string(kFooter));
  addCheck(app, line.check);
  addInfo(app, line.info);
  addModel(app, line.model);
  addRegions(app, line.regions);
  addCopy(app, line.copy);
  addExplain(app, line.explain);
  addFormats(app, line.formats);
  addSample(app, line.sample);
  addCompletion(app, line.completion);
  addManual(app);
}

void parse(CLI::App& app, CommandLine& line, int argc, char** argv) {
  if (argc < 2) {
    throw CLI::ParseError("expected a command\n\n" + app.help(), exitNotDone);
  }
  const std::string first = argv[1];
  if (first.empty() || first.front() != '-') {
    judgeCommand(app, first);
  }
  app.parse(markedArguments(argc, argv));
  dropMarks(line);
}

}  // namespace velto::orv
