// SPDX-License-Identifier: Apache-2.0
//
// What orv copy prints: tables for people, one document for programs.

#include "orv/copy_report.h"

#include <filesystem>
#include <fmt/format.h>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>

#include "orv/TextTable.h"
#include "orv/json_report.h"
#include "orv/shown_name.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

/// Of a file, or of all files in a folder.
std::uint64_t bytesOf(const std::string& path) {
  namespace fs = std::filesystem;
  std::error_code ignored;
  if (!fs::is_directory(path, ignored)) {
    const std::uintmax_t size = fs::file_size(path, ignored);
    return ignored ? 0 : size;
  }
  std::uint64_t bytes = 0;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path, ignored)) {
    bytes += entry.is_regular_file(ignored) ? entry.file_size(ignored) : 0;
  }
  return bytes;
}

/// The cells of each place that is written: one for all partitions, or one for each.
std::vector<std::uint64_t> cellsOfPlaces(const CopyFiles& files, const CopyPlan& plan) {
  std::map<int, std::uint64_t> ofPartitions;
  std::uint64_t all = 0;
  for (const PlannedMesh& mesh : plan.meshes) {
    ofPartitions[mesh.inCopy.partition] += mesh.cells;
    all += mesh.cells;
  }
  const bool isSplit = files.written.size() >= ofPartitions.size() && ofPartitions.size() > 1 &&
                       files.written[1] != files.destinationResults;
  std::vector<std::uint64_t> cells;
  cells.reserve(ofPartitions.size());
  for (const auto& [partition, count] : ofPartitions) {
    cells.push_back(isSplit ? count : all);
  }
  return cells;
}

const char* modelWord(CopyPlan::Model model) {
  switch (model) {
    case CopyPlan::Model::carried:
      return "that of the source";
    case CopyPlan::Model::built:
      return "one that is built from the zones";
    default:
      return "none";
  }
}

void printLines(std::ostream& out, const std::string& title,
                const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    out << title << line << "\n";
  }
}

void printPlan(const CopyFiles& files, const CopyPlan& plan) {
  using Align = TextTable::Align;
  std::cout << fmt::format("{} -> {} ({})\n\n", shownText(files.source),
                           shownText(files.destination), files.format->name);
  TextTable table({{"mesh", Align::right},
                   {"target"},
                   {"partition"},
                   {"zones", Align::right},
                   {"nodes", Align::right},
                   {"faces", Align::right},
                   {"cells", Align::right},
                   {"data", Align::right}});
  for (const PlannedMesh& mesh : plan.meshes) {
    const Selection& at = mesh.inSource;
    table.addRow({std::to_string(at.mesh), targetWord(at.target),
                  at.partition == -1 ? "" : std::to_string(at.partition),
                  std::to_string(mesh.zones), std::to_string(mesh.nodes),
                  std::to_string(mesh.faces), std::to_string(mesh.cells), sizeText(mesh.bytes)});
  }
  std::cout << table.text("") << "\n";
  TextTable rest({{"besides"}, {""}});
  rest.addRow({"solver type", shownText(plan.solverFormat)});
  rest.addRow({"location model", modelWord(plan.model)});
  rest.addRow({"settings", std::to_string(plan.settings)});
  rest.addRow(
      {"results", plan.results.variables == 0
                      ? "none"
                      : fmt::format("{}, {}, {}", counted(plan.results.phases, "phase", "phases"),
                                    counted(plan.results.variables, "variable", "variables"),
                                    sizeText(plan.results.bytes))});
  std::cout << rest.text("");
  if (!plan.leftBehind.empty()) {
    std::cout << "\nno copy carries\n";
    printLines(std::cout, "  ", plan.leftBehind);
  }
  if (!plan.noPlace.empty()) {
    std::cout << fmt::format("\nno place in {} for\n", files.format->name);
    printLines(std::cout, "  ", plan.noPlace);
  }
  std::cout << std::flush;
}

nlohmann::ordered_json meshJson(const PlannedMesh& mesh) {
  return {{"mesh", mesh.inSource.mesh},
          {"target", targetWord(mesh.inSource.target)},
          {"partition", mesh.inSource.partition},
          {"zones", mesh.zones},
          {"nodes", mesh.nodes},
          {"faces", mesh.faces},
          {"cells", mesh.cells},
          {"bytes", mesh.bytes}};
}

const char* modelKey(CopyPlan::Model model) {
  switch (model) {
    case CopyPlan::Model::carried:
      return "carried";
    case CopyPlan::Model::built:
      return "built";
    default:
      return "none";
  }
}

}  // namespace

void printCopyText(const CopyFiles& files, const CopyPlan& plan, const CopyOptions& options,
                   const CopyOutcome& outcome) {
  if (options.dryRun) {
    printPlan(files, plan);
    return;
  }
  if (!outcome.isWritten) {
    return;
  }
  printLines(std::cerr, "orv: not carried by a copy: ", plan.leftBehind);
  printLines(std::cerr, fmt::format("orv: no place in {} for: ", files.format->name), plan.noPlace);
  std::cerr << std::flush;
  const std::vector<std::uint64_t> cells = cellsOfPlaces(files, plan);
  for (std::size_t i = 0; i < files.written.size(); ++i) {
    const std::string& file = files.written[i];
    const bool isResults = file == files.destinationResults;
    std::cout << fmt::format("{}: {}, {}{}\n", shownText(file),
                             isResults ? "results" : counted(cells.at(i), "cell", "cells"),
                             sizeText(bytesOf(file)),
                             outcome.isVerified ? ", same as its source" : "");
  }
  std::cout << std::flush;
}

void printCopyJson(const CopyFiles& files, const CopyPlan& plan, const CopyOptions& options,
                   const CopyOutcome& outcome) {
  nlohmann::ordered_json meshes = nlohmann::ordered_json::array();
  for (const PlannedMesh& mesh : plan.meshes) {
    meshes.push_back(meshJson(mesh));
  }
  nlohmann::ordered_json written = nlohmann::ordered_json::array();
  if (outcome.isWritten) {
    for (const std::string& file : files.written) {
      written.push_back({{"file", file}, {"bytes", bytesOf(file)}});
    }
  }
  printReport({{"source", files.source},
               {"sourceResults", files.sourceResults},
               {"destination", files.destination},
               {"format", files.format->name},
               {"solverType", plan.solverFormat},
               {"meshes", meshes},
               {"locationModel", modelKey(plan.model)},
               {"settings", plan.settings},
               {"results",
                {{"phases", plan.results.phases},
                 {"variables", plan.results.variables},
                 {"bytes", plan.results.bytes}}},
               {"notCarried", plan.leftBehind},
               {"noPlaceFor", plan.noPlace},
               {"dryRun", options.dryRun},
               {"written", written},
               {"verified", outcome.isVerified}});
}

}  // namespace velto::orv
