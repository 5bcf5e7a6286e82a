// SPDX-License-Identifier: Apache-2.0
//
// A check as SARIF 2.1.0, for code hosts and viewers: the rules are the entries of the catalogue.
// https://docs.oasis-open.org/sarif/sarif/v2.1.0/sarif-v2.1.0.html

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fmt/format.h>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>
#include <vector>

#include "catalogue/catalogue.h"
#include "orv/CheckReport.h"
#include "orv/JsonWriter.h"
#include "orv/check_places.h"

namespace velto::orv {

namespace {

using Json = nlohmann::ordered_json;

/// A file name as a reference of RFC 3986; an absolute one with its scheme.
std::string uriOf(const std::string& file) {
  constexpr std::string_view kPlain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~/";
  std::string uri = file.compare(0, 1, "/") == 0 ? "file://" : "";
  for (const char c : file) {
    if (kPlain.find(c) != std::string_view::npos) {
      uri += c;
    } else {
      uri += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
  }
  return uri;
}

/// A file and a line in it that a message of a reader begins with, "ORV - <file>: line <n>".
struct SourceLine {
  std::string file;
  unsigned long line = 0;
};

std::optional<SourceLine> sourceLineOf(const std::string& message) {
  constexpr std::string_view kBegin = "ORV - ";
  constexpr std::string_view kLine = ": line ";
  const std::size_t at = message.find(kLine);
  if (message.compare(0, kBegin.size(), kBegin) != 0 || at == std::string::npos) {
    return std::nullopt;
  }
  SourceLine source;
  source.file = message.substr(kBegin.size(), at - kBegin.size());
  std::size_t digit = at + kLine.size();
  constexpr std::size_t kMostDigits = 9;
  for (std::size_t end = digit + kMostDigits;
       digit < std::min(end, message.size()) && message[digit] >= '0' && message[digit] <= '9';
       ++digit) {
    source.line = source.line * 10 + static_cast<unsigned long>(message[digit] - '0');
  }
  std::error_code ignored;
  const bool isThere = std::filesystem::is_regular_file(source.file, ignored);
  return isThere && source.line > 0 ? std::make_optional(source) : std::nullopt;
}

Json locationOf(const CheckReport& report, const CheckFinding& finding) {
  Json physical = {{"artifactLocation", {{"uri", uriOf(report.file)}}}};
  if (const std::optional<SourceLine> source = sourceLineOf(finding.message)) {
    physical = {{"artifactLocation", {{"uri", uriOf(source->file)}}},
                {"region", {{"startLine", source->line}}}};
  }
  Json location = {{"physicalLocation", std::move(physical)}};
  const std::string place = placeText(finding.place);
  if (!place.empty()) {
    location["logicalLocations"] =
        Json::array({Json{{"fullyQualifiedName", place}, {"kind", "object"}}});
  }
  return location;
}

/// The rules that were broken, in the order in which the first findings break them.
class Rules {
 public:
  explicit Rules(const std::vector<CheckReport>& reports);

  std::size_t indexOf(const std::string& id) const { return positions_.at(id); }
  const Json& json() const { return rules_; }

 private:
  void add(const std::string& id, CheckSeverity severity);

  Json rules_ = Json::array();
  std::unordered_map<std::string, std::size_t> positions_;
};

Rules::Rules(const std::vector<CheckReport>& reports) {
  for (const CheckReport& report : reports) {
    for (const CheckFinding& finding : report.findings) {
      add(idOf(finding), finding.severity);
    }
  }
}

void Rules::add(const std::string& id, CheckSeverity severity) {
  if (!positions_.try_emplace(id, rules_.size()).second) {
    return;
  }
  Json rule = {{"id", id}};
  if (const catalogue::Entry* entry = catalogue::entryOfId(id)) {
    rule["shortDescription"] = {{"text", entry->text}};
    rule["fullDescription"] = {{"text", entry->means}};
    rule["help"] = {{"text", "Cause: " + entry->cause + "\nRemedy: " + entry->remedy}};
  }
  rule["defaultConfiguration"] = {{"level", severityWord(severity)}};
  rules_.push_back(std::move(rule));
}

Json resultOf(const CheckReport& report, const CheckFinding& finding, const Rules& rules) {
  const std::string id = idOf(finding);
  Json properties = {{"step", finding.step}};
  properties.update(placeJson(finding.place));
  return {{"ruleId", id},
          {"ruleIndex", rules.indexOf(id)},
          {"level", severityWord(finding.severity)},
          {"message", {{"text", finding.message}}},
          {"locations", Json::array({locationOf(report, finding)})},
          {"properties", std::move(properties)}};
}

Json notification(const CheckReport& report, const char* level, const std::string& text) {
  Json location = {{"physicalLocation", {{"artifactLocation", {{"uri", uriOf(report.file)}}}}}};
  return {{"level", level},
          {"message", {{"text", text}}},
          {"locations", Json::array({std::move(location)})}};
}

std::string leftOutText(const StepsLeftOut& leftOut) {
  const std::string place = placeText(leftOut.place);
  const std::string steps = fmt::format("{}", fmt::join(leftOut.steps, ", "));
  return fmt::format("{}{}: {}", steps.empty() ? "all steps" : steps,
                     place.empty() ? "" : " of " + place, omissionText(leftOut.reason));
}

/// One run of the program: whether it came to the end of all files, and what it left out.
Json invocationOf(const std::vector<CheckReport>& reports, const CheckOptions& options) {
  Json notifications = Json::array();
  bool isWhole = true;
  for (const CheckReport& report : reports) {
    isWhole = isWhole && !isCutShort(report);
    if (isCutShort(report)) {
      notifications.push_back(notification(report, "error", endText(report)));
    }
    for (const StepsLeftOut& leftOut : report.leftOut) {
      notifications.push_back(notification(report, "note", leftOutText(leftOut)));
    }
  }
  return {
      {"executionSuccessful", isWhole},
      {"toolExecutionNotifications", std::move(notifications)},
      {"properties",
       {{"level", options.level}, {"strict", options.strict}, {"filters", filtersJson(options)}}}};
}

Json ranOf(const std::vector<CheckReport>& reports) {
  Json ran = Json::array();
  for (const CheckReport& report : reports) {
    for (const StepsRun& run : report.ran) {
      Json one = {{"file", report.file}};
      one.update(placeJson(run.place));
      one["steps"] = run.steps;
      ran.push_back(std::move(one));
    }
  }
  return ran;
}

}  // namespace

void printCheckSarif(const std::vector<CheckReport>& reports, const CheckOptions& options) {
  const Rules rules(reports);
  JsonWriter writer(std::cout);
  writer.write("$schema", "https://json.schemastore.org/sarif-2.1.0.json");
  writer.write("version", "2.1.0");
  writer.beginArray("runs");
  writer.beginObject();
  writer.write(
      "tool",
      {{"driver", {{"name", "orv"}, {"semanticVersion", ORV_VERSION}, {"rules", rules.json()}}}});
  writer.write("invocations", Json::array({invocationOf(reports, options)}));
  writer.beginArray("results");
  for (const CheckReport& report : reports) {
    for (const CheckFinding& finding : report.findings) {
      writer.write(resultOf(report, finding, rules));
    }
  }
  writer.endArray();
  writer.write("properties", {{"ran", ranOf(reports)}});
  writer.endObject();
  writer.endArray();
}

}  // namespace velto::orv
