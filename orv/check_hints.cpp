// SPDX-License-Identifier: Apache-2.0
//
// Where to look further after a check: by the kinds of messages that came up.

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>
#include <initializer_list>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "orv/CheckReport.h"
#include "orv/hints.h"
#include "orv/shown_name.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

bool isStepOneOf(const CheckFinding& finding, std::initializer_list<const char*> steps) {
  return std::any_of(steps.begin(), steps.end(),
                     [&finding](const char* step) { return finding.step == step; });
}

bool beginsWith(const std::string& text, const std::string& prefix) {
  return text.compare(0, prefix.size(), prefix) == 0;
}

/// Whether a message is about single zones, which it does not name.
bool isOfZones(const CheckFinding& finding) {
  return isStepOneOf(finding, {"checkNodeZones", "checkFaceZones", "checkCellZones"});
}

/// Whether a message is about single ids, which it does not name.
bool isOfIds(const CheckFinding& finding) {
  return finding.message == "Face node ids out of node id range" ||
         finding.message == "Cell node ids out of node id range" ||
         finding.message == "Cell face ids out of face id range";
}

/// Whether a message counts cells that do not have the faces of their type.
bool isOfFaceCounts(const CheckFinding& finding) {
  return beginsWith(finding.message, "Cells with missing facets: ") ||
         beginsWith(finding.message, "Cells with too many facets attached: ");
}

bool isFailedBuild(const CheckFinding& finding) {
  return finding.message == "Failed to build location model.";
}

/// Whether a message is about names of the location model.
bool isOfModel(const CheckFinding& finding) {
  return finding.step == "checkPhysicsToMeshMapUsingTopologyModel";
}

/// Whether a message is about where physics objects lie.
bool isOfPhysics(const CheckFinding& finding) {
  return isStepOneOf(finding, {"checkDomain", "checkSubdomain", "checkBoundary", "checkInterface"});
}

/// Whether the data-access library gave a reason: values that it could not read count as zeros.
bool isUnread(const CheckFinding& finding) { return beginsWith(finding.message, "ORV - "); }

/// Messages do not tell where in a case they arose.
void tellPlaces(const CheckReport& report) {
  const bool isOnePlace = report.ran.size() < 3;  // beside the file as a whole
  if (isOnePlace) {
    return;
  }
  constexpr std::size_t kMost = 10;
  std::map<std::string, std::size_t> errors;
  std::vector<std::string> places;
  for (const CheckFinding& finding : report.findings) {
    const std::string place = placeText(finding.place);
    if (finding.severity == CheckSeverity::error && !place.empty() && ++errors[place] == 1) {
      places.push_back(place);
    }
  }
  for (std::size_t i = 0; i < std::min(places.size(), kMost); ++i) {
    std::cerr << fmt::format("orv: {}: {} in {}\n", shownText(report.file),
                             counted(errors.at(places[i]), "error", "errors"), places[i]);
  }
  if (places.size() > kMost) {
    std::cerr << fmt::format("orv: {}: errors in {} more places; --json names all\n",
                             shownText(report.file), places.size() - kMost);
  }
  std::cerr << std::flush;
}

}  // namespace

void hintAt(const CheckReport& report) {
  tellPlaces(report);
  const auto any = [&report](bool (*is)(const CheckFinding&)) {
    return std::any_of(report.findings.begin(), report.findings.end(), is);
  };
  const auto anyError = [&report](bool (*is)(const CheckFinding&)) {
    return std::any_of(report.findings.begin(), report.findings.end(),
                       [is](const CheckFinding& finding) {
                         return finding.severity == CheckSeverity::error && is(finding);
                       });
  };
  if (any(isOfZones)) {
    hintAtZones(report.file);
  }
  if (anyError(isOfIds) && !anyError(isUnread)) {
    hintAtIds(report.file);
  }
  if (anyError(isOfFaceCounts) && !anyError(isUnread)) {
    hintAtFaceCounts(report.file);
  }
  if (anyError(isFailedBuild)) {
    hintAtRelations(report.file);
  } else if (anyError(isOfModel)) {
    hintAtModel(report.file);
  } else if (anyError(isOfPhysics)) {
    hintAtRegions(report.file);
  }
}

}  // namespace velto::orv
