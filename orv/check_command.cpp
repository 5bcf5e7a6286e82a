// SPDX-License-Identifier: Apache-2.0
//
// orv check: runs the checker on each file and says the verdict.

#include <algorithm>
#include <exception>
#include <fmt/format.h>
#include <iostream>
#include <string>
#include <vector>

#include "velto/OrvChecker.h"

#include "orv/CheckRecorder.h"
#include "orv/CheckReport.h"
#include "orv/LineLimit.h"
#include "orv/ProgressBar.h"
#include "orv/commands.h"
#include "orv/hints.h"
#include "orv/open_case.h"
#include "orv/shown_name.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

/// An error without a step was recorded before any check ran: the file could not be opened. No
/// error and yet no success is a file of a newer version.
Verdict verdictOf(bool succeeded, const CheckReport& report, bool strict) {
  const auto isError = [](const CheckFinding& f) { return f.severity == CheckSeverity::error; };
  const auto first = std::find_if(report.findings.begin(), report.findings.end(), isError);
  if (first == report.findings.end() ? !succeeded : first->step.empty()) {
    return Verdict::notChecked;
  }
  return report.errors == 0 && !(strict && report.warnings > 0) ? Verdict::sound : Verdict::errors;
}

/// Whether the checker found no provider for the file.
bool isUnknown(const CheckReport& report) {
  return !report.findings.empty() && report.findings.front().step.empty() &&
         report.findings.front().message == "Not a ORV file (cannot setup provider)";
}

/// Whether people read along.
bool isText(const CheckOptions& options) {
  return !options.quiet && options.format == ReportFormat::text;
}

/// How many lines of a kind are shown of what a checker writes by itself.
std::uint64_t mostLines(int verbosity) {
  constexpr std::uint64_t kUsual = 10;
  return verbosity == 1 ? kUsual : LineLimit::kNone;
}

void tellLeftOut(const std::string& file, const LineLimit& limit) {
  for (const LineLimit::LeftOut& lines : limit.leftOut()) {
    tell(file, fmt::format("{} more like \"{}\"; -v 2 shows all", lines.count, lines.like));
  }
}

void configure(OrvChecker& checker, const CheckOptions& options) {
  checker.setCheckLevel(options.level);
  checker.setVerbosity(isText(options) ? options.verbosity : 0);
  checker.setMeshId(options.mesh);
  checker.setPartitionId(options.partition);
  checker.setTarget(options.target);
  checker.setNoLM(options.noLocationModel);
}

/// The filters of the command line, as they stood there.
std::string filterText(const CheckOptions& options) {
  std::vector<std::string> filters;
  if (options.mesh != 0) {
    filters.push_back(fmt::format("--mesh {}", options.mesh));
  }
  if (!options.target.empty()) {
    filters.push_back("--target " + options.target);
  }
  if (options.partition != -1) {
    filters.push_back(fmt::format("--partition {}", options.partition));
  }
  return fmt::format("{}", fmt::join(filters, " "));
}

/// Whether the filters passed over all that the file holds.
bool isNothingSelected(const CheckReport& report) {
  const auto isWalked = [](const StepsLeftOut& leftOut) { return !leftOut.steps.empty(); };
  return report.isComplete && report.ran.size() == 1 && !report.leftOut.empty() &&
         std::none_of(report.leftOut.begin(), report.leftOut.end(), isWalked);
}

/// Whether more was checked than the partition that was asked for: restart and post targets are not
/// filtered by it.
bool isAnyPartitionTaken(const CheckReport& report, int partition) {
  return std::any_of(report.ran.begin(), report.ran.end(), [partition](const StepsRun& run) {
    return !(run.place == CheckPlace()) && run.place.partition != partition;
  });
}

/// Records an error that the checker does not know of, and says it.
void addError(CheckReport& report, const std::string& text, const CheckOptions& options) {
  report.verdict = Verdict::notChecked;
  CheckRecorder(report).onFinding(CheckPlace(), CheckSeverity::error, "", text);
  if (isText(options)) {
    tell(report.file, shownText(text));
  }
}

/// Runs the checker, and writes down what keeps it from its end.
void runChecker(OrvChecker& checker, CheckReport& report, const CheckOptions& options) {
  CheckRecorder recorder(report);
  checker.setListener(&recorder);
  try {
    const bool succeeded = checker.checkCase(report.file);
    report.verdict = verdictOf(succeeded, report, options.strict);
  } catch (const std::exception& error) {
    addError(report, std::string("the check ended early: ") + error.what(), options);
  }
  if (isNothingSelected(report)) {
    addError(report, "nothing in the file fits " + filterText(options), options);
  }
}

CheckReport checkFile(const std::string& file, const CheckOptions& options) {
  CheckReport report;
  report.file = file;
  if (isOdd(file)) {
    addError(report, "is neither a file nor a folder", options);
    return report;
  }
  const int verbosity = isText(options) ? options.verbosity : 0;
  const LineLimit errLimit(std::cerr, mostLines(verbosity));
  // Some lines are written there whatever the verbosity, where a document, or a verdict that nobody
  // wants to read, must stand alone.
  const LineLimit outLimit(std::cout, verbosity == 0 ? 0 : mostLines(verbosity));
  OrvChecker checker;
  configure(checker, options);
  runChecker(checker, report, options);
  if (isText(options) && isUnknown(report)) {
    hintAtFormats(file);
  }
  if (verbosity > 0 && options.partition != -1 && isAnyPartitionTaken(report, options.partition)) {
    hintAtPartitions(file);
  }
  if (verbosity == 1) {
    tellLeftOut(file, outLimit);
    tellLeftOut(file, errLimit);
    hintAt(report);
  }
  if (verbosity > 0 && !report.isComplete && !report.ran.empty()) {
    tell(file, endText(report));
  }
  return report;
}

std::string verdictLine(const CheckReport& report) {
  return fmt::format("{}: {} ({}, {})", shownText(report.file), verdictWord(report.verdict),
                     counted(report.errors, "error", "errors"),
                     counted(report.warnings, "warning", "warnings"));
}

std::string totalLine(const std::vector<CheckReport>& results) {
  const auto having = [&](Verdict verdict) {
    return std::count_if(results.begin(), results.end(),
                         [verdict](const CheckReport& r) { return r.verdict == verdict; });
  };
  return fmt::format("{} files: {} sound, {} not sound, {} not checked", results.size(),
                     having(Verdict::sound), having(Verdict::errors), having(Verdict::notChecked));
}

int statusOf(const std::vector<CheckReport>& results) {
  int status = exitSound;
  for (const CheckReport& result : results) {
    const int own = result.verdict == Verdict::sound    ? exitSound
                    : result.verdict == Verdict::errors ? exitErrors
                                                        : exitNotDone;
    status = std::max(status, own);
  }
  return status;
}

}  // namespace

int runCheck(const CheckOptions& options) {
  std::vector<CheckReport> reports;
  ProgressBar progress(isText(options));
  for (const std::string& file : options.files) {
    if (isText(options) && options.files.size() > 1) {
      std::cerr << shownText(file) << ":" << std::endl;
    }
    reports.push_back(checkFile(file, options));
    if (isText(options)) {
      std::cout << verdictLine(reports.back()) << std::endl;
    }
  }
  switch (options.format) {
    case ReportFormat::text:
      if (isText(options) && reports.size() > 1) {
        std::cout << totalLine(reports) << std::endl;
      }
      break;
    case ReportFormat::json:
      printCheckJson(reports, options);
      break;
    case ReportFormat::junit:
      printCheckJunit(reports, options);
      break;
    case ReportFormat::sarif:
      printCheckSarif(reports, options);
      break;
  }
  return statusOf(reports);
}

}  // namespace velto::orv
