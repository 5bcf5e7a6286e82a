// SPDX-License-Identifier: Apache-2.0
//
// A check as JSON, of the form of docs/check.schema.json.

#include <iostream>
#include <nlohmann/json.hpp>

#include "orv/CheckReport.h"
#include "orv/JsonWriter.h"
#include "orv/check_places.h"

namespace velto::orv {

namespace {

using Json = nlohmann::ordered_json;

void writeFindings(JsonWriter& writer, const CheckReport& report, CheckSeverity severity) {
  writer.beginArray(severity == CheckSeverity::error ? "errors" : "warnings");
  for (const CheckFinding& finding : report.findings) {
    if (finding.severity == severity) {
      Json one = {{"id", idOf(finding)}, {"step", finding.step}, {"message", finding.message}};
      one.update(placeJson(finding.place));
      writer.write(one);
    }
  }
  writer.endArray();
}

void writeRan(JsonWriter& writer, const CheckReport& report) {
  writer.beginArray("ran");
  for (const StepsRun& run : report.ran) {
    Json one = placeJson(run.place);
    one["steps"] = run.steps;
    writer.write(one);
  }
  writer.endArray();
}

void writeLeftOut(JsonWriter& writer, const CheckReport& report) {
  writer.beginArray("leftOut");
  for (const StepsLeftOut& leftOut : report.leftOut) {
    Json one = {{"reason", omissionWord(leftOut.reason)}};
    one.update(placeJson(leftOut.place));
    if (!leftOut.steps.empty()) {
      one["steps"] = leftOut.steps;
    }
    writer.write(one);
  }
  writer.endArray();
}

void writeFile(JsonWriter& writer, const CheckReport& report) {
  writer.beginObject();
  writer.write("file", report.file);
  writer.write("verdict", verdictWord(report.verdict));
  writer.write("complete", report.isComplete);
  writeFindings(writer, report, CheckSeverity::error);
  writeFindings(writer, report, CheckSeverity::warning);
  writeRan(writer, report);
  writeLeftOut(writer, report);
  writer.endObject();
}

}  // namespace

void printCheckJson(const std::vector<CheckReport>& reports, const CheckOptions& options) {
  JsonWriter writer(std::cout);
  writer.write("orv", ORV_VERSION);
  writer.write("level", options.level);
  writer.write("strict", options.strict);
  writer.write("filters", filtersJson(options));
  writer.beginArray("files");
  for (const CheckReport& report : reports) {
    writeFile(writer, report);
  }
  writer.endArray();
}

}  // namespace velto::orv
