// SPDX-License-Identifier: Apache-2.0
//
// A check as JUnit XML, for build servers: a suite for each file, a test for each step at a place.

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>
#include <iostream>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "orv/CheckReport.h"
#include "orv/shown_name.h"

namespace velto::orv {

namespace {

/// A text as the value of an attribute, or between tags: on one line, and valid XML.
std::string xmlText(const std::string& text) {
  std::string escaped;
  for (const char c : shownText(text)) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

struct TestCase {
  CheckPlace place;
  std::string step;
  std::string skipped;  ///< Why it did not run; empty if it did.
  std::vector<const CheckFinding*> failures;
  std::vector<const CheckFinding*> remarks;
  std::string end;  ///< Why the check went no further; empty if it did.
};

/// The tests of one file in the order in which they ran, then those that did not.
class Suite {
 public:
  Suite(const CheckReport& report, bool strict);

  std::size_t failures() const {
    return count([](const TestCase& test) { return !test.failures.empty() && test.end.empty(); });
  }
  std::size_t errors() const {
    return count([](const TestCase& test) { return !test.end.empty(); });
  }
  std::size_t skipped() const {
    return count([](const TestCase& test) { return !test.skipped.empty(); });
  }
  const std::vector<TestCase>& cases() const { return cases_; }

 private:
  TestCase& at(const CheckPlace& place, const std::string& step);
  void addEnd(const CheckReport& report);
  void addLeftOut(const CheckReport& report);

  template <class Is>
  std::size_t count(Is is) const {
    return static_cast<std::size_t>(std::count_if(cases_.begin(), cases_.end(), is));
  }

  std::vector<TestCase> cases_;
  std::map<std::pair<std::string, std::string>, std::size_t> positions_;
};

Suite::Suite(const CheckReport& report, bool strict) {
  for (const StepsRun& run : report.ran) {
    for (const std::string& step : run.steps) {
      at(run.place, step);
    }
  }
  for (const CheckFinding& finding : report.findings) {
    TestCase& test = at(finding.place, finding.step);
    const bool fails = strict || finding.severity == CheckSeverity::error;
    (fails ? test.failures : test.remarks).push_back(&finding);
  }
  if (isCutShort(report)) {
    addEnd(report);
  }
  addLeftOut(report);
}

void Suite::addEnd(const CheckReport& report) {
  if (report.ran.empty() || report.isComplete) {
    at(CheckPlace(), "").end = endText(report);
    return;
  }
  const StepsRun& last = report.ran.back();
  at(last.place, last.steps.back()).end = endText(report);
}

TestCase& Suite::at(const CheckPlace& place, const std::string& step) {
  const auto [found, isNew] = positions_.try_emplace({placeText(place), step}, cases_.size());
  if (isNew) {
    cases_.push_back({place, step, "", {}, {}, ""});
  }
  return cases_[found->second];
}

void Suite::addLeftOut(const CheckReport& report) {
  for (const StepsLeftOut& leftOut : report.leftOut) {
    const std::string reason = omissionText(leftOut.reason);
    if (leftOut.steps.empty()) {
      at(leftOut.place, "").skipped = reason;
    }
    for (const std::string& step : leftOut.steps) {
      at(leftOut.place, step).skipped = reason;
    }
  }
}

/// The findings of a step, one a line, as the body of an element.
std::string linesOf(const std::vector<const CheckFinding*>& findings) {
  std::string lines;
  for (const CheckFinding* finding : findings) {
    lines += fmt::format("{}: {} ({})\n", severityWord(finding->severity),
                         xmlText(finding->message), idOf(*finding));
  }
  return lines;
}

std::string nameOf(const TestCase& test) {
  if (!test.step.empty()) {
    return xmlText(test.step);
  }
  return test.place == CheckPlace() ? "open" : "all steps";
}

/// "failure", or where the check went no further "error": a test has one of them at most.
void printFailures(const TestCase& test) {
  std::string type;
  std::string message = test.end;
  if (!test.failures.empty()) {
    type = idOf(*test.failures.front());
    message = test.end.empty() ? test.failures.front()->message : test.end;
  }
  const char* element = test.end.empty() ? "failure" : "error";
  std::cout << fmt::format("      <{} type=\"{}\" message=\"{}\">\n{}</{}>\n", element, type,
                           xmlText(message), linesOf(test.failures), element);
}

void printCase(const std::string& file, const TestCase& test) {
  const std::string place = placeText(test.place);
  const bool isFailed = !test.failures.empty() || !test.end.empty();
  const bool isEmpty = !isFailed && test.skipped.empty() && test.remarks.empty();
  std::cout << fmt::format("    <testcase classname=\"{}{}{}\" name=\"{}\"{}>\n", xmlText(file),
                           place.empty() ? "" : ": ", place, nameOf(test), isEmpty ? "/" : "");
  if (isEmpty) {
    return;
  }
  if (!test.skipped.empty()) {
    std::cout << fmt::format("      <skipped message=\"{}\"/>\n", test.skipped);
  }
  if (isFailed) {
    printFailures(test);
  }
  if (!test.remarks.empty()) {
    std::cout << fmt::format("      <system-err>\n{}</system-err>\n", linesOf(test.remarks));
  }
  std::cout << "    </testcase>\n";
}

void printSuite(const CheckReport& report, const Suite& suite, const CheckOptions& options) {
  std::cout << fmt::format(
      "  <testsuite name=\"{}\" tests=\"{}\" failures=\"{}\" errors=\"{}\" skipped=\"{}\">\n"
      "    <properties>\n"
      "      <property name=\"orv\" value=\"{}\"/>\n"
      "      <property name=\"level\" value=\"{}\"/>\n"
      "      <property name=\"verdict\" value=\"{}\"/>\n"
      "    </properties>\n",
      xmlText(report.file), suite.cases().size(), suite.failures(), suite.errors(), suite.skipped(),
      ORV_VERSION, options.level, verdictWord(report.verdict));
  for (const TestCase& test : suite.cases()) {
    printCase(report.file, test);
  }
  std::cout << "  </testsuite>\n";
}

}  // namespace

void printCheckJunit(const std::vector<CheckReport>& reports, const CheckOptions& options) {
  std::vector<Suite> suites;
  std::size_t tests = 0;
  std::size_t failures = 0;
  std::size_t errors = 0;
  std::size_t skipped = 0;
  for (const CheckReport& report : reports) {
    const Suite& suite = suites.emplace_back(report, options.strict);
    tests += suite.cases().size();
    failures += suite.failures();
    errors += suite.errors();
    skipped += suite.skipped();
  }
  std::cout << fmt::format(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<testsuites name=\"orv check\" tests=\"{}\" failures=\"{}\" errors=\"{}\" skipped=\"{}\">\n",
      tests, failures, errors, skipped);
  for (std::size_t i = 0; i < reports.size(); ++i) {
    printSuite(reports[i], suites[i], options);
  }
  std::cout << "</testsuites>" << std::endl;
}

}  // namespace velto::orv
