// SPDX-License-Identifier: Apache-2.0
//
// Whole zones: which of them bound which, and how the cells of each are described.
//
//   checkMeshConnectivity             the face zones around each cell zone, and the cell zones on
//                                     the two sides of each face zone; stops at the first bad entry
//   checkCellZoneConnectivityTypes    the kind of each cell zone, and from these the form of the
//                                     mesh; goes through all zones
//
// A restart target carries the whole relation between zones, every other target none of it.

#include <iostream>
#include <list>
#include <string>
#include <vector>

#include "velto/OrvChecker.h"

#include "data_access/OrvFileProvider.h"
#include "data_access/families.h"

#include "checker/IdList.h"
#include "checker/connectivity_kinds.h"
#include "checker/facets.h"

namespace velto {

namespace {

/// "<name> [<id>]"
std::string labelOf(const OrvBase& source, int zone) {
  std::string name;
  source.getZoneStringInfo(zone, zoneName, name);
  return name + " [" + std::to_string(zone) + "]";
}

template <class Zones>
void showZones(const OrvBase& source, const Zones& zones) {
  for (const int zone : zones) {
    std::cout << "  " << labelOf(source, zone) << "\n";
  }
  std::cout << std::flush;
}

}  // namespace

// --- Which zones bound which --------------------------------------------------------------------

bool OrvChecker::checkMeshConnectivity() {
  displayStep("checkMeshConnectivity", "init");
  OrvFileProvider* source = openProvider();
  const bool restart = source->getTarget() == targetRestart;
  const IdList cellZones = zonesOf(*source, zoneCategoryCell);
  const IdList faceZones = zonesOf(*source, zoneCategoryFace);
  displayStep("checkMeshConnectivity", "getCellFaceZoneIds");
  for (const int zone : cellZones) {
    if (!checkBoundingFaceZones(zone, faceZones, restart)) {
      return false;
    }
  }
  for (const int side : {0, 1}) {
    displayStep("checkMeshConnectivity", side == 0 ? "getFaceCellZone0Ids" : "getFaceCellZone1Ids");
    for (const int zone : faceZones) {
      if (!checkSideCellZones(zone, side, cellZones, restart)) {
        return false;
      }
    }
  }
  return true;
}

bool OrvChecker::checkBoundingFaceZones(int zone, const IdList& faceZones, bool restart) {
  OrvFileProvider* source = openProvider();
  std::list<int> bounding;
  source->getCellFaceZoneIds(zone, bounding);
  // Kept: only a restart target stops here at an error of the library.
  if (!checkORVErrors() && restart) {
    return false;
  }
  if (bounding.empty()) {
    if (restart) {
      addError(1, "No face zones bound cell zone [" + std::to_string(zone) + "]");
    }
    return !restart;
  }
  if (!restart) {
    addError(1, "Cell zone [" + std::to_string(zone) + "] is bounded by Face zones in " +
                    describeLocation() + ".");
    return false;
  }
  for (const int entry : bounding) {
    if (!faceZones.contains(entry)) {
      addError(1, "Cell zone [" + std::to_string(zone) + "] is bounded by a Face zone [" +
                      std::to_string(entry) + "] that doesn't exist.");
      return false;
    }
  }
  if (verbosity > 1) {
    std::cout << "Cell Zone: " << labelOf(*source, zone) << " is bounded by: \n";
    // Kept: all face zones of the mesh are shown, not those that bound this zone.
    showZones(*source, faceZones);
  }
  return true;
}

bool OrvChecker::checkSideCellZones(int zone, int side, const IdList& cellZones, bool restart) {
  OrvFileProvider* source = openProvider();
  std::list<int> bounded;
  if (side == 0) {
    source->getFaceCellZone0Ids(zone, bounded);
  } else {
    source->getFaceCellZone1Ids(zone, bounded);
  }
  if (!checkORVErrors()) {
    return false;
  }
  if (bounded.empty()) {
    return true;
  }
  if (!restart) {
    addError(1, "Face zone [" + std::to_string(zone) + "] found to bound cell zones in a " +
                    describeLocation() + ".");
    return false;
  }
  for (const int entry : bounded) {
    if (!cellZones.contains(entry)) {
      addError(1, "Face zone [" + std::to_string(zone) + "] bounds Cell zone [" +
                      std::to_string(entry) + "] that doesn't exist.");
      return false;
    }
  }
  if (verbosity > 1) {
    std::cout << "Face Zone: " << labelOf(*source, zone) << " bounds: \n";
    showZones(*source, bounded);
  }
  return true;
}

// --- How cells are described --------------------------------------------------------------------

bool OrvChecker::checkCellZoneConnectivityTypes() {
  displayStep("checkCellZoneConnectivityTypes", "init");
  OrvFileProvider* source = openProvider();
  std::vector<int> cellZones;
  source->getZoneIds(zoneCategoryCell, cellZones);
  const IdList nodeZones(listZones(*source, kCellNodes));
  const IdList faceZones(listZones(*source, kCellFaces));
  const bool restart = source->getTarget() == targetRestart;
  // Kept: resized and not cleared, so that a walk begins from the kinds of the one before.
  cellZoneConnectivityTypes.resize(cellZones.size());
  displayStep("checkCellZoneConnectivityTypes", "categorize");
  bool anyFaceNode = false;
  bool anyCellNode = false;
  bool anyOther = false;
  for (std::size_t i = 0; i < cellZones.size(); ++i) {
    const int zone = cellZones[i];
    int& kind = cellZoneConnectivityTypes[i];
    if (nodeZones.contains(zone)) {
      kind = connectivityCellNode;
    } else if (restart) {
      kind = connectivityFaceNode;
    }
    if (faceZones.contains(zone)) {
      kind = addCellFaces(zone, kind);
    }
    kind = judgeConnectivity(zone, kind, restart);
    anyFaceNode = anyFaceNode || kind == connectivityFaceNode;
    anyCellNode = anyCellNode || kind == connectivityCellNode;
    anyOther = anyOther || (kind != connectivityFaceNode && kind != connectivityCellNode);
  }
  if (anyOther) {
    cellsFromFacesMode = modeGeneral;
  } else if (anyCellNode) {
    cellsFromFacesMode = anyFaceNode ? modeMixed : modeCellNode;
  } else if (anyFaceNode) {
    cellsFromFacesMode = modeFaceNode;
  }
  // Kept: a mesh without cell zones leaves the form of the one before.
  return true;
}

int OrvChecker::addCellFaces(int zone, int kind) {
  if (kind != connectivityNone) {
    return connectivityInconsistent;
  }
  int cellType = -1;
  openProvider()->getCellZoneInfo(zone, cellZoneCellType, cellType);
  if (cellType != kPolyhedral) {
    addWarning(1, "Polyhedral cell zone (" + std::to_string(zone) + ") doesn't have correct type.");
  }
  return connectivityCellFace;
}

int OrvChecker::judgeConnectivity(int zone, int kind, bool restart) {
  // Kept: in a restart target no zone gets as far as that kind; the guard stays, and so does the
  // "ORV Post" of its text, whatever the target.
  if (restart && kind == connectivityCellFace) {
    addError(1, "Cell zone [" + std::to_string(zone) +
                    "] with ORV Post Polyhedral connectivity in " + describeLocation() + ".");
    return connectivityInconsistent;
  }
  if (!restart && kind != connectivityCellNode && kind != connectivityCellFace) {
    // Kept: two blanks behind "with".
    addError(1, "Cell zone [" + std::to_string(zone) + "] with  unexpected connectivity in " +
                    describeLocation() + ".");
    return connectivityInconsistent;
  }
  return kind;
}

int OrvChecker::kindOfCellZone(std::size_t position) const {
  // Kept harmless: a list that grew since the zones were classified has zones of no kind.
  return position < cellZoneConnectivityTypes.size() ? cellZoneConnectivityTypes[position]
                                                     : connectivityNone;
}

}  // namespace velto
