// SPDX-License-Identifier: Apache-2.0
//
// CheckReport: all that a check of one file found, ran and left out; and its views.

#ifndef VELTO_ORV_CHECK_REPORT_H
#define VELTO_ORV_CHECK_REPORT_H

#include <cstddef>
#include <string>
#include <vector>

#include "velto/CheckListener.h"

#include "orv/commands.h"

namespace velto::orv {

enum class Verdict { sound, errors, notChecked };

struct CheckFinding {
  CheckPlace place;
  CheckSeverity severity = CheckSeverity::error;
  std::string step;  ///< Empty before the first check.
  std::string message;
};

/// The steps that ran at a place, each once, in the order in which they began.
struct StepsRun {
  CheckPlace place;
  std::vector<std::string> steps;
};

/// Steps that were left out at a place for one reason; none stands for all.
struct StepsLeftOut {
  CheckPlace place;
  CheckOmission reason = CheckOmission::level;
  std::vector<std::string> steps;
};

struct CheckReport {
  std::string file;
  Verdict verdict = Verdict::notChecked;
  bool isComplete = false;  ///< Whether the check came to the end of the file.
  std::size_t errors = 0;
  std::size_t warnings = 0;
  std::vector<CheckFinding> findings;  ///< Errors and warnings, oldest first.
  std::vector<StepsRun> ran;           ///< In the order of the walk; a place comes once.
  std::vector<StepsLeftOut> leftOut;
};

/// The id of the message in the catalogue.
std::string idOf(const CheckFinding& finding);

const char* severityWord(CheckSeverity severity);
const char* verdictWord(Verdict verdict);

/// For programs: "level", "noLocationModel".
const char* omissionWord(CheckOmission reason);

/// For people: "left out by --level".
std::string omissionText(CheckOmission reason);

/// "mesh 1, restart, partition 3", and "" for the file as a whole.
std::string placeText(const CheckPlace& place);

/// Whether less was checked than was asked for.
bool isCutShort(const CheckReport& report);

/// Why, for a report that is: "the check ended in checkMeshSize of mesh 1, restart; what follows it
/// was not checked".
std::string endText(const CheckReport& report);

/// On standard output, for all files of a command.
void printCheckJson(const std::vector<CheckReport>& reports, const CheckOptions& options);
void printCheckJunit(const std::vector<CheckReport>& reports, const CheckOptions& options);
void printCheckSarif(const std::vector<CheckReport>& reports, const CheckOptions& options);

/// On standard error: which places have errors, if there are several; where to look further, at
/// most once for each kind of message.
void hintAt(const CheckReport& report);

}  // namespace velto::orv

#endif  // VELTO_ORV_CHECK_REPORT_H
