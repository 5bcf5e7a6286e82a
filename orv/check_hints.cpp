// SPDX-License-Identifier: Apache-2.0
//
// Where to look further after a check: by the kinds of messages that came up.

#include <algorithm>
#include <initializer_list>
#include <string>

#include "orv/CheckReport.h"
#include "orv/hints.h"

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

}  // namespace

void hintAt(const CheckReport& report) {
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
  if (anyError(isOfIds)) {
    hintAtIds(report.file);
  }
  if (anyError(isOfFaceCounts)) {
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
