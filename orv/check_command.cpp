// SPDX-License-Identifier: Apache-2.0
//
// orv check: runs the checker on each file and says the verdict.

#include <algorithm>
#include <exception>
#include <fmt/format.h>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "velto/OrvChecker.h"

#include "orv/LineLimit.h"
#include "orv/ProgressBar.h"
#include "orv/commands.h"
#include "orv/hints.h"
#include "orv/json_report.h"
#include "orv/open_case.h"
#include "orv/shown_name.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

enum class Verdict { sound, errors, notChecked };

struct FileResult {
  std::string file;
  Verdict verdict = Verdict::notChecked;
  std::vector<std::string> errors;
  std::vector<std::string> warnings;
};

/// An error without a step was recorded before any check ran: the file could not be opened. No
/// error and yet no success is a file of a newer version.
Verdict verdictOf(bool succeeded, const std::vector<std::string>& errors, bool strictlyWarned) {
  if (errors.empty() && !succeeded) {
    return Verdict::notChecked;
  }
  if (!errors.empty() && errors.front().compare(0, 3, " : ") == 0) {
    return Verdict::notChecked;
  }
  return errors.empty() && !strictlyWarned ? Verdict::sound : Verdict::errors;
}

/// Whether the checker found no provider for the file.
bool isUnknown(const std::vector<std::string>& errors) {
  return !errors.empty() && errors.front() == " : Not a ORV file (cannot setup provider)";
}

/// A recorded message, "<step> : <text>".
struct Message {
  std::string step;
  std::string text;
};

Message messageOf(const std::string& recorded) {
  const std::size_t separator = recorded.find(" : ");
  if (separator == std::string::npos) {
    return {"", recorded};
  }
  return {recorded.substr(0, separator), recorded.substr(separator + 3)};
}

/// Whether a message is about single zones, which it does not name.
bool isOfZones(const std::string& recorded) {
  const std::string step = messageOf(recorded).step;
  return step == "checkNodeZones" || step == "checkFaceZones" || step == "checkCellZones";
}

/// Whether a message is about single ids, which it does not name.
bool isOfIds(const std::string& recorded) {
  const std::string text = messageOf(recorded).text;
  return text == "Face node ids out of node id range" ||
         text == "Cell node ids out of node id range" ||
         text == "Cell face ids out of face id range";
}

/// Whether a message counts cells that do not have the faces of their type.
bool isOfFaceCounts(const std::string& recorded) {
  const std::string text = messageOf(recorded).text;
  return text.find("Cells with missing facets: ") == 0 ||
         text.find("Cells with too many facets attached: ") == 0;
}

bool isFailedBuild(const std::string& recorded) {
  return messageOf(recorded).text == "Failed to build location model.";
}

/// Whether a message is about names of the location model.
bool isOfModel(const std::string& recorded) {
  return messageOf(recorded).step == "checkPhysicsToMeshMapUsingTopologyModel";
}

/// Whether a message is about where physics objects lie.
bool isOfPhysics(const std::string& recorded) {
  const std::vector<std::string> steps = {"checkDomain", "checkSubdomain", "checkBoundary",
                                          "checkInterface"};
  return std::find(steps.begin(), steps.end(), messageOf(recorded).step) != steps.end();
}

/// Says where to look further, at most once for each kind of message.
void hint(const FileResult& result) {
  const auto hasError = [&result](bool (*is)(const std::string&)) {
    return std::any_of(result.errors.begin(), result.errors.end(), is);
  };
  if (hasError(isOfZones) ||
      std::any_of(result.warnings.begin(), result.warnings.end(), isOfZones)) {
    hintAtZones(result.file);
  }
  if (hasError(isOfIds)) {
    hintAtIds(result.file);
  }
  if (hasError(isOfFaceCounts)) {
    hintAtFaceCounts(result.file);
  }
  if (hasError(isFailedBuild)) {
    hintAtRelations(result.file);
  } else if (hasError(isOfModel)) {
    hintAtModel(result.file);
  } else if (hasError(isOfPhysics)) {
    hintAtRegions(result.file);
  }
}

/// How many lines of a kind are shown of what a checker writes by itself.
std::uint64_t mostLines(int verbosity) {
  constexpr std::uint64_t kUsual = 10;
  return verbosity == 1 ? kUsual : LineLimit::kNone;
}

void tellLeftOut(const std::string& file, const LineLimit& limit) {
  for (const LineLimit::LeftOut& lines : limit.leftOut()) {
    std::cerr << "orv: " << shownText(file) << ": " << lines.count << " more like \"" << lines.like
              << "\"; -v 2 shows all" << std::endl;
  }
}

FileResult checkFile(const std::string& file, const CheckOptions& options) {
  FileResult result;
  result.file = file;
  if (isOdd(file)) {
    result.errors.emplace_back(" : is neither a file nor a folder");
    if (!options.quiet && !options.json) {
      refuseOdd(file);
    }
    return result;
  }
  OrvChecker checker;
  checker.setCheckLevel(options.level);
  const int verbosity = options.quiet || options.json ? 0 : options.verbosity;
  const LineLimit errLimit(std::cerr, mostLines(verbosity));
  // Some lines are written there whatever the verbosity, where a JSON document, or a verdict that
  // nobody wants to read, must stand alone.
  const LineLimit outLimit(std::cout, verbosity == 0 ? 0 : mostLines(verbosity));
  checker.setVerbosity(verbosity);
  checker.setMeshId(options.mesh);
  checker.setPartitionId(options.partition);
  checker.setTarget(options.target);
  checker.setNoLM(options.noLocationModel);
  try {
    const bool succeeded = checker.checkCase(file);
    result.verdict =
        verdictOf(succeeded, checker.getErrors(), options.strict && !checker.getWarnings().empty());
    result.errors = checker.getErrors();
    if (!options.quiet && !options.json && isUnknown(result.errors)) {
      hintAtFormats(file);
    }
  } catch (const std::exception& error) {
    result.errors = checker.getErrors();
    result.errors.push_back(std::string(" : the check ended early: ") + error.what());
    if (!options.quiet && !options.json) {
      std::cerr << "orv: " << shownText(file)
                << ": the check ended early: " << shownText(error.what()) << std::endl;
    }
  }
  result.warnings = checker.getWarnings();
  if (verbosity == 1) {
    tellLeftOut(file, outLimit);
    tellLeftOut(file, errLimit);
    hint(result);
  }
  return result;
}

std::string verdictLine(const FileResult& result) {
  const std::string file = shownText(result.file);
  const std::string counts = counted(result.errors.size(), "error", "errors") + ", " +
                             counted(result.warnings.size(), "warning", "warnings");
  switch (result.verdict) {
    case Verdict::sound:
      return fmt::format("{}: sound ({})", file, counts);
    case Verdict::errors:
      return fmt::format("{}: not sound ({})", file, counts);
    case Verdict::notChecked:
      break;
  }
  return fmt::format("{}: not checked ({})", file, counts);
}

std::string totalLine(const std::vector<FileResult>& results) {
  const auto having = [&](Verdict verdict) {
    return std::count_if(results.begin(), results.end(),
                         [verdict](const FileResult& r) { return r.verdict == verdict; });
  };
  return fmt::format("{} files: {} sound, {} not sound, {} not checked", results.size(),
                     having(Verdict::sound), having(Verdict::errors), having(Verdict::notChecked));
}

nlohmann::ordered_json messagesJson(const std::vector<std::string>& recorded) {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const std::string& one : recorded) {
    const Message message = messageOf(one);
    list.push_back({{"step", message.step}, {"message", message.text}});
  }
  return list;
}

const char* verdictWord(Verdict verdict) {
  if (verdict == Verdict::notChecked) {
    return "not checked";
  }
  return verdict == Verdict::sound ? "sound" : "not sound";
}

void printJson(const std::vector<FileResult>& results, const CheckOptions& options) {
  nlohmann::ordered_json files = nlohmann::ordered_json::array();
  for (const FileResult& result : results) {
    files.push_back({{"file", result.file},
                     {"verdict", verdictWord(result.verdict)},
                     {"errors", messagesJson(result.errors)},
                     {"warnings", messagesJson(result.warnings)}});
  }
  printReport({{"level", options.level}, {"strict", options.strict}, {"files", files}});
}

int statusOf(const std::vector<FileResult>& results) {
  int status = exitSound;
  for (const FileResult& result : results) {
    const int own = result.verdict == Verdict::sound    ? exitSound
                    : result.verdict == Verdict::errors ? exitErrors
                                                        : exitNotDone;
    status = std::max(status, own);
  }
  return status;
}

}  // namespace

int runCheck(const CheckOptions& options) {
  const bool isText = !options.quiet && !options.json;
  std::vector<FileResult> results;
  ProgressBar progress(isText);
  for (const std::string& file : options.files) {
    if (isText && options.files.size() > 1) {
      std::cerr << shownText(file) << ":" << std::endl;
    }
    results.push_back(checkFile(file, options));
    if (isText) {
      std::cout << verdictLine(results.back()) << std::endl;
    }
  }
  if (options.json) {
    printJson(results, options);
  } else if (isText && results.size() > 1) {
    std::cout << totalLine(results) << std::endl;
  }
  return statusOf(results);
}

}  // namespace velto::orv
