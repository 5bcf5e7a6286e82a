// SPDX-License-Identifier: Apache-2.0
//
// orv explain: what messages of the tools mean, by their text or from a log.

#include <fmt/format.h>
#include <iostream>
#include <string>
#include <unistd.h>

#include "orv/Explanation.h"
#include "orv/commands.h"
#include "orv/explain_views.h"
#include "orv/json_report.h"
#include "orv/shown_name.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

/// As much of a text as a line of a terminal takes.
std::string shortText(const std::string& text) {
  constexpr std::size_t kMost = 200;
  if (text.empty()) {
    return "\"\"";
  }
  return shownText(text.substr(0, kMost)) + (text.size() > kMost ? "..." : "");
}

/// Says on standard error what is not explained.
void tellUnknown(const Explanation& explanation) {
  for (const ExplainedText& one : explanation.texts()) {
    if (!one.matches.empty()) {
      continue;
    }
    std::cerr << "orv: " << shortText(one.text) << ": no message of the tools; "
              << (one.near.empty() ? "`orv explain --list` lists all" : "did you mean:")
              << std::endl;
    for (const catalogue::Entry* entry : one.near) {
      std::cerr << fmt::format("  {}: {}", entry->id, entry->text) << std::endl;
    }
  }
  if (explanation.unknownLines() != 0) {
    std::cerr << fmt::format("orv: {} of {} no message of the tools", explanation.unknownLines(),
                             counted(explanation.logLines(), "line is", "lines are"))
              << std::endl;
  } else if (explanation.hasLog() && explanation.logLines() == 0) {
    std::cerr << "orv: standard input: there is no line in it" << std::endl;
  }
}

ExitStatus refuse(const std::string& reason) {
  std::cerr << "orv: " << reason << std::endl;
  return exitNotDone;
}

}  // namespace

int runExplain(const ExplainOptions& options) {
  if (options.list) {
    if (!options.texts.empty()) {
      return refuse("--list lists all messages and explains none; give a text or --list");
    }
    if (options.json) {
      printReport(listJson());
    } else {
      std::cout << listText();
    }
    return exitSound;
  }
  Explanation explanation;
  if (options.texts.empty()) {
    if (::isatty(STDIN_FILENO) != 0) {
      return refuse("expected a message; `orv explain --help` shows examples");
    }
    explanation.addLog(std::cin);
  }
  for (const std::string& text : options.texts) {
    if (text == "-") {
      explanation.addLog(std::cin);
    } else {
      explanation.addText(text);
    }
  }
  if (options.json) {
    printReport(explanationJson(explanation));
  } else {
    std::cout << explanationText(explanation) << std::flush;
    tellUnknown(explanation);
  }
  return explanation.isComplete() ? exitSound : exitErrors;
}

}  // namespace velto::orv
