// SPDX-License-Identifier: Apache-2.0
//
// PlainChecker: which zones bound which, and how the cells of each zone are described.

#include <list>
#include <string>

#include "tests/checker/PlainChecker.h"

namespace velto::testing {

namespace {

// Kinds of cell zones, and forms of a mesh that follow from them.
constexpr int kInconsistent = 1;
constexpr int kFaceNode = 2;
constexpr int kCellNode = 3;
constexpr int kCellFace = 4;
constexpr int kModeGeneral = 1;
constexpr int kModeFaceNode = 2;
constexpr int kModeCellNode = 3;
constexpr int kModeMixed = 4;

constexpr int kPolyhedron = 7;

std::string inBrackets(int zone) { return "[" + std::to_string(zone) + "]"; }

}  // namespace

bool PlainChecker::checkMeshConnectivity() {
  displayStep("checkMeshConnectivity", "init");
  const bool restart = provider_->getTarget() == targetRestart;
  const std::vector<int> cellZones = zonesOf(zoneCategoryCell);
  const std::vector<int> faceZones = zonesOf(zoneCategoryFace);
  displayStep("checkMeshConnectivity", "getCellFaceZoneIds");
  for (const int zone : cellZones) {
    if (!checkCellZoneBounds(zone, faceZones, restart)) {
      return false;
    }
  }
  displayStep("checkMeshConnectivity", "getFaceCellZone0Ids");
  for (const int zone : faceZones) {
    if (!checkFaceZoneSide(zone, 0, cellZones, restart)) {
      return false;
    }
  }
  displayStep("checkMeshConnectivity", "getFaceCellZone1Ids");
  for (const int zone : faceZones) {
    if (!checkFaceZoneSide(zone, 1, cellZones, restart)) {
      return false;
    }
  }
  return true;
}

bool PlainChecker::checkCellZoneBounds(int zone, const std::vector<int>& faceZones, bool restart) {
  std::list<int> bounds;
  provider_->getCellFaceZoneIds(zone, bounds);
  if (!checkORVErrors() && restart) {
    return false;
  }
  if (bounds.empty()) {
    if (restart) {
      addError("No face zones bound cell zone " + inBrackets(zone));
    }
    return !restart;
  }
  if (!restart) {
    addError("Cell zone " + inBrackets(zone) + " is bounded by Face zones in " + location() + ".");
    return false;
  }
  for (const int bound : bounds) {
    if (!standsIn(faceZones, bound)) {
      addError("Cell zone " + inBrackets(zone) + " is bounded by a Face zone " + inBrackets(bound) +
               " that doesn't exist.");
      return false;
    }
  }
  if (verbosity_ >= 2) {
    out_ << "Cell Zone: " << zoneText(zone, zoneName) << " " << inBrackets(zone)
         << " is bounded by: \n";
    for (const int each : faceZones) {  // Kept: all of the mesh, not those that bound the zone.
      out_ << "  " << zoneText(each, zoneName) << " " << inBrackets(each) << "\n";
    }
  }
  return true;
}

bool PlainChecker::checkFaceZoneSide(int zone, int side, const std::vector<int>& cellZones,
                                     bool restart) {
  std::list<int> beside;
  if (side == 0) {
    provider_->getFaceCellZone0Ids(zone, beside);
  } else {
    provider_->getFaceCellZone1Ids(zone, beside);
  }
  if (!checkORVErrors()) {
    return false;
  }
  if (beside.empty()) {
    return true;
  }
  if (!restart) {
    addError("Face zone " + inBrackets(zone) + " found to bound cell zones in a " + location() +
             ".");
    return false;
  }
  for (const int cellZone : beside) {
    if (!standsIn(cellZones, cellZone)) {
      addError("Face zone " + inBrackets(zone) + " bounds Cell zone " + inBrackets(cellZone) +
               " that doesn't exist.");
      return false;
    }
  }
  if (verbosity_ >= 2) {
    out_ << "Face Zone: " << zoneText(zone, zoneName) << " " << inBrackets(zone) << " bounds: \n";
    for (const int cellZone : beside) {
      out_ << "  " << zoneText(cellZone, zoneName) << " " << inBrackets(cellZone) << "\n";
    }
  }
  return true;
}

void PlainChecker::checkCellZoneConnectivityTypes() {
  displayStep("checkCellZoneConnectivityTypes", "init");
  const std::vector<int> cellZones = zonesOf(zoneCategoryCell);
  std::vector<int> withNodes;
  provider_->beginCellNodes(withNodes);
  provider_->endCellNodes();
  std::vector<int> withFaces;
  provider_->beginCellFaces(withFaces);
  provider_->endCellFaces();
  const bool restart = provider_->getTarget() == targetRestart;
  kinds_.resize(cellZones.size());  // Kept: what an earlier walk left stays.
  displayStep("checkCellZoneConnectivityTypes", "categorize");

  std::set<int> met;
  for (std::size_t i = 0; i < cellZones.size(); ++i) {
    const int zone = cellZones[i];
    kinds_[i] =
        judge(zone, kinds_[i], standsIn(withNodes, zone), standsIn(withFaces, zone), restart);
    met.insert(kinds_[i]);
  }
  if (met.empty()) {
    return;
  }
  if (met == std::set<int>{kFaceNode}) {
    mode_ = kModeFaceNode;
  } else if (met == std::set<int>{kCellNode}) {
    mode_ = kModeCellNode;
  } else if (met == std::set<int>{kFaceNode, kCellNode}) {
    mode_ = kModeMixed;
  } else {
    mode_ = kModeGeneral;
  }
}

/// The kind of a zone, from the one that it had. In a restart target none comes out as one of cell
/// faces: the first step made it another kind.
int PlainChecker::judge(int zone, int kind, bool hasNodes, bool hasFaces, bool restart) {
  if (hasNodes) {
    kind = kCellNode;
  } else if (restart) {
    kind = kFaceNode;
  }
  if (hasFaces && kind != 0) {
    kind = kInconsistent;
  } else if (hasFaces) {
    kind = kCellFace;
    int type = -1;
    provider_->getCellZoneInfo(zone, cellZoneCellType, type);
    if (type != kPolyhedron) {
      addWarning("Polyhedral cell zone (" + std::to_string(zone) + ") doesn't have correct type.");
    }
  }
  if (!restart && kind != kCellNode && kind != kCellFace) {
    addError("Cell zone " + inBrackets(zone) + " with  unexpected connectivity in " + location() +
             ".");
    kind = kInconsistent;
  }
  return kind;
}

}  // namespace velto::testing
