// SPDX-License-Identifier: Apache-2.0
//
// The words that the views of a CheckReport share.

#include "orv/CheckReport.h"

#include <fmt/format.h>

#include "catalogue/catalogue.h"
#include "orv/words.h"

namespace velto::orv {

std::string idOf(const CheckFinding& finding) {
  const bool isError = finding.severity == CheckSeverity::error;
  const catalogue::Entry* entry = catalogue::entryOf(
      isError ? catalogue::Level::error : catalogue::Level::warning, finding.message);
  return entry == nullptr ? "unlisted" : entry->id;
}

const char* severityWord(CheckSeverity severity) {
  return severity == CheckSeverity::error ? "error" : "warning";
}

const char* verdictWord(Verdict verdict) {
  if (verdict == Verdict::notChecked) {
    return "not checked";
  }
  return verdict == Verdict::sound ? "sound" : "not sound";
}

const char* omissionWord(CheckOmission reason) {
  switch (reason) {
    case CheckOmission::meshFilter:
      return "mesh";
    case CheckOmission::targetFilter:
      return "target";
    case CheckOmission::partitionFilter:
      return "partition";
    case CheckOmission::level:
      return "level";
    case CheckOmission::noLocationModel:
      return "noLocationModel";
    case CheckOmission::notApplicable:
      break;
  }
  return "notApplicable";
}

std::string omissionText(CheckOmission reason) {
  switch (reason) {
    case CheckOmission::notApplicable:
      return "not applicable to this target";
    case CheckOmission::noLocationModel:
      return "left out by --no-location-model";
    default:
      return fmt::format("left out by --{}", omissionWord(reason));
  }
}

std::string placeText(const CheckPlace& place) {
  if (place == CheckPlace()) {
    return "";
  }
  std::string text = fmt::format("mesh {}", place.mesh);
  if (place.target != -1) {
    text += fmt::format(", {}", targetWord(place.target));
  }
  if (place.partition != -1) {
    text += fmt::format(", partition {}", place.partition);
  }
  return text;
}

bool isCutShort(const CheckReport& report) {
  return !report.isComplete || report.verdict == Verdict::notChecked;
}

std::string endText(const CheckReport& report) {
  if (report.ran.empty()) {
    return "the file could not be read";
  }
  if (report.isComplete) {
    return "nothing was checked";
  }
  const StepsRun& last = report.ran.back();
  const std::string place = placeText(last.place);
  return fmt::format("the check ended in {}{}{}; what follows it was not checked",
                     last.steps.back(), place.empty() ? "" : " of ", place);
}

}  // namespace velto::orv
