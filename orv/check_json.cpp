// SPDX-License-Identifier: Apache-2.0
//
// A check as JSON, of the form of docs/check.schema.json.

#include <nlohmann/json.hpp>

#include "orv/CheckReport.h"
#include "orv/check_places.h"
#include "orv/json_report.h"

namespace velto::orv {

namespace {

using Json = nlohmann::ordered_json;

Json findingsJson(const CheckReport& report, CheckSeverity severity) {
  Json list = Json::array();
  for (const CheckFinding& finding : report.findings) {
    if (finding.severity == severity) {
      Json one = {{"id", idOf(finding)}, {"step", finding.step}, {"message", finding.message}};
      one.update(placeJson(finding.place));
      list.push_back(std::move(one));
    }
  }
  return list;
}

Json ranJson(const CheckReport& report) {
  Json list = Json::array();
  for (const StepsRun& run : report.ran) {
    Json one = placeJson(run.place);
    one["steps"] = run.steps;
    list.push_back(std::move(one));
  }
  return list;
}

Json leftOutJson(const CheckReport& report) {
  Json list = Json::array();
  for (const StepsLeftOut& leftOut : report.leftOut) {
    Json one = {{"reason", omissionWord(leftOut.reason)}};
    one.update(placeJson(leftOut.place));
    if (!leftOut.steps.empty()) {
      one["steps"] = leftOut.steps;
    }
    list.push_back(std::move(one));
  }
  return list;
}

}  // namespace

void printCheckJson(const std::vector<CheckReport>& reports, const CheckOptions& options) {
  Json files = Json::array();
  for (const CheckReport& report : reports) {
    files.push_back({{"file", report.file},
                     {"verdict", verdictWord(report.verdict)},
                     {"complete", report.isComplete},
                     {"errors", findingsJson(report, CheckSeverity::error)},
                     {"warnings", findingsJson(report, CheckSeverity::warning)},
                     {"ran", ranJson(report)},
                     {"leftOut", leftOutJson(report)}});
  }
  printReport({{"level", options.level},
               {"strict", options.strict},
               {"filters", filtersJson(options)},
               {"files", std::move(files)}});
}

}  // namespace velto::orv
