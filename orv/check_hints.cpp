// SPDX-License-Identifier: Apache-2.0
//
// Where to look further after a check: by the kinds of messages that came up.

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "orv/CheckReport.h"
#include "orv/hints.h"
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
  std::vector<std::pair<CheckPlace, std::size_t>> places;  // the walk comes to each once
  for (const CheckFinding& finding : report.findings) {
    if (finding.severity == CheckSeverity::error && !(finding.place == CheckPlace())) {
      if (places.empty() || !(places.back().first == finding.place)) {
        places.emplace_back(finding.place, 0);
      }
      ++places.back().second;
    }
  }
  for (std::size_t i = 0; i < std::min(places.size(), kMost); ++i) {
    const auto& [place, errors] = places[i];
    tell(report.file,
         fmt::format("{} in {}", counted(errors, "error", "errors"), placeText(place)));
  }
  if (places.size() > kMost) {
    tell(report.file,
         fmt::format("errors in {} more places; --json names all", places.size() - kMost));
  }
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
