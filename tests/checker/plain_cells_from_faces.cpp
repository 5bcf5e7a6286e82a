// SPDX-License-Identifier: Apache-2.0
//
// PlainChecker: what the faces tell of the cells beside them, and the shadows of faces.

#include <algorithm>
#include <map>
#include <string>

#include "tests/checker/PlainChecker.h"

namespace velto::testing {

/// What is known of each cell of a mesh, by its id less 1.
struct PlainChecker::CellTally {
  std::vector<int> types;
  std::vector<short> faces;
  bool hasSubdividedFaces = false;
};

namespace {

constexpr int kModeFaceNode = 2;
constexpr int kModeCellNode = 3;

constexpr int kPolyhedron = 7;

/// The facets of a cell by its type. Polyhedra have no such number.
const std::map<int, int>& facetsOfTypes() {
  static const std::map<int, int> kFacets = {{1, 3}, {2, 4}, {3, 4}, {4, 6},
                                             {5, 5}, {6, 5}, {8, 1}, {9, 4}};
  return kFacets;
}

/// Does something for each id from `first` to `last`, which may be the highest number there is.
template <class Action>
void forEachId(std::uint64_t first, std::uint64_t last, const Action& action) {
  if (first > last) {
    return;
  }
  for (std::uint64_t id = first; id != last; ++id) {
    action(id);
  }
  action(last);
}

}  // namespace

void PlainChecker::checkCellsFromFaces() {
  displayStep("checkCellsFromFaces", "init");
  if (mode_ != kModeCellNode) {
    checkCellsFromFacesFacenode();
  }
  if (mode_ != kModeFaceNode) {
    checkCellsFromFacesCellnode();
  }
}

// --- How many faces reach each cell -------------------------------------------------------------

void PlainChecker::checkCellsFromFacesFacenode() {
  const std::string step = "checkCellsFromFaces_facenode";
  displayStep(step, "init");
  const std::uint64_t dimension = meshSize(meshDimension);
  const std::uint64_t cells = meshSize(meshCellCount);
  std::vector<int> faceZones = zonesOf(zoneCategoryFace);
  zonesOf(zoneCategoryCell);
  CellTally tally;
  tally.types.assign(cells, -1);
  displayStep(step, "cell types");
  std::vector<int> typedZones;
  provider_->beginCellTypes(typedZones);
  if (typedZones.empty()) {  // Kept: the family stays open.
    addWarning("cell_face mesh with no cell-type are unsupported");
    return;
  }
  takeCellTypes(typedZones, tally);
  provider_->endCellTypes();
  displayStep(step, "c0c1");
  std::vector<int> treeZones;
  std::vector<int> children;
  provider_->beginFaceTree(treeZones, children);
  provider_->endFaceTree();
  tally.faces.assign(cells, 0);
  provider_->beginFaceCell0(faceZones);
  tallySide(0, faceZones, treeZones, tally);
  provider_->endFaceCell0();
  provider_->beginFaceCell1(faceZones);
  tallySide(1, faceZones, treeZones, tally);
  provider_->endFaceCell1();
  displayStep(step, "face count check");
  checkFaceCounts(dimension, tally);
}

void PlainChecker::takeCellTypes(const std::vector<int>& zones, CellTally& tally) {
  for (const int zone : zones) {
    const std::uint64_t first = zoneSize(zone, zoneFirstId);
    const std::uint64_t last = zoneSize(zone, zoneLastId);
    int type = 0;
    if (provider_->getUniformCellType(zone, type)) {
      for (std::uint64_t cell = 1; cell <= tally.types.size(); ++cell) {
        if (first <= cell && cell <= last) {
          tally.types[cell - 1] = type;
        }
      }
      continue;
    }
    forEachId(first, last, [&](std::uint64_t cell) {
      const int found = provider_->getCellType(cell);
      if (cell >= 1 && cell <= tally.types.size()) {
        tally.types[cell - 1] = found;
      }
    });
  }
}

void PlainChecker::tallySide(int side, const std::vector<int>& zones,
                             const std::vector<int>& treeZones, CellTally& tally) {
  for (const int zone : zones) {
    const std::uint64_t first = zoneSize(zone, zoneFirstId);
    const std::uint64_t last = zoneSize(zone, zoneLastId);
    if (side == 0) {
      int child = 0;
      provider_->getFaceZoneInfo(zone, faceZoneChild, child);
      if (child != 0 || standsIn(treeZones, zone)) {
        tally.hasSubdividedFaces = true;
      }
    }
    forEachId(first, last, [&](std::uint64_t face) {
      const std::uint64_t cell = cellBeside(side, face);
      if (cell == 0 || cell > tally.faces.size()) {
        failForCell(side, cell, face);
        return;
      }
      short& faces = tally.faces[cell - 1];
      faces = static_cast<short>(faces + 1);  // Kept: goes round at 16 bits.
    });
  }
}

void PlainChecker::checkFaceCounts(std::uint64_t dimension, const CellTally& tally) {
  int missingFacets = 0;
  int excessFacets = 0;
  int unsupportedCells = 0;
  for (std::size_t i = 0; i < tally.types.size(); ++i) {
    const int type = tally.types[i];
    const int n = tally.faces[i];
    if (type == kPolyhedron) {
      const int minimum = dimension == 2 ? 3 : 4;
      if ((dimension == 2 || dimension == 3) && n < minimum) {
        ++missingFacets;
        if (verbosity_ >= 4) {
          out_ << "Cell face count mismatch  " << n << "vs minimum of " << minimum << "\n";
        }
      }
      continue;
    }
    const auto expected = facetsOfTypes().find(type);
    if (expected == facetsOfTypes().end()) {
      ++unsupportedCells;
      continue;
    }
    const bool isExcess = n > expected->second && !tally.hasSubdividedFaces;
    missingFacets += n < expected->second ? 1 : 0;
    excessFacets += isExcess ? 1 : 0;
    if ((n < expected->second || isExcess) && verbosity_ >= 4) {
      out_ << "Cell face count mismatch " << n << " vs " << expected->second << "\n";
    }
  }
  if (unsupportedCells != 0) {
    addWarning("Cells of unsupported type encountered");
  }
  if (missingFacets != 0) {
    addError("Cells with missing facets: " + std::to_string(missingFacets));
  }
  if (excessFacets != 0) {
    addError("Cells with too many facets attached: " + std::to_string(excessFacets));
  }
}

// --- The nodes of a face among those of its cells -----------------------------------------------

void PlainChecker::checkCellsFromFacesCellnode() {
  const std::string step = "checkCellsFromFaces_cellnode";
  displayStep(step, "init");
  std::vector<int> faceZones = zonesOf(zoneCategoryFace);
  readFaceNodes();
  readCellNodes();
  displayStep(step, "c0");
  provider_->beginFaceCell0(faceZones);
  checkSide(0, faceZones);
  provider_->endFaceCell0();
  displayStep(step, "c1");
  provider_->beginFaceCell1(faceZones);
  checkSide(1, faceZones);
  provider_->endFaceCell1();
}

void PlainChecker::checkSide(int side, const std::vector<int>& zones) {
  for (const int zone : zones) {
    const std::uint64_t first = zoneSize(zone, zoneFirstId);
    const std::uint64_t last = zoneSize(zone, zoneLastId);
    bool hasBad = false;
    forEachId(first, last, [&](std::uint64_t face) {
      const std::uint64_t cell = cellBeside(side, face);
      if (cell == 0 || cell > cells_.counts.size()) {
        failForCell(side, cell, face);
      } else if (!hasNodesOfFace(cell, face)) {
        hasBad = true;
      }
    });
    if (hasBad) {
      addError("Node connectivity error in face-cell c" + std::to_string(side) + " pair");
    }
  }
}

/// True as well if the tables know nothing of the cell, which is in them, or of the face.
bool PlainChecker::hasNodesOfFace(std::uint64_t cell, std::uint64_t face) {
  const int cellCount = cells_.counts[cell - 1];
  const int faceCount = face >= 1 && face <= faces_.counts.size() ? faces_.counts[face - 1] : 0;
  if (cellCount == 0 || faceCount < 1) {
    return true;
  }
  const std::vector<std::uint64_t> nodesOfCell = nodesAt(cells_, cell - 1);
  for (const std::uint64_t node : nodesAt(faces_, face - 1)) {
    if (std::find(nodesOfCell.begin(), nodesOfCell.end(), node) == nodesOfCell.end()) {
      out_ << "face " << faceCount << " vs cell type " << cellCount << "\n";
      return false;
    }
  }
  return true;
}

std::uint64_t PlainChecker::cellBeside(int side, std::uint64_t face) {
  return side == 0 ? provider_->getFaceCell0(face) : provider_->getFaceCell1(face);
}

void PlainChecker::failForCell(int side, std::uint64_t cell, std::uint64_t face) {
  addError("Cell " + std::to_string(side) + " (" + std::to_string(cell) + ") for face " +
           std::to_string(face) + " is invalid");
}

// --- Shadow faces -------------------------------------------------------------------------------

void PlainChecker::checkFacesShadowZones() {
  displayStep("checkFacesShadowZones", "shadow faces");
  std::vector<int> zones = zonesOf(zoneCategoryFace);
  provider_->beginFaceShadows(zones);
  std::uint32_t bad = 0;
  for (const int zone : zones) {
    const std::uint64_t first = zoneSize(zone, zoneFirstId);
    const std::uint64_t last = zoneSize(zone, zoneLastId);
    int shadow = 0;
    provider_->getFaceZoneInfo(zone, faceZoneShadow, shadow);
    if (shadow <= 0) {
      continue;
    }
    const std::uint64_t firstOfShadow = zoneSize(shadow, zoneFirstId);
    const std::uint64_t lastOfShadow = zoneSize(shadow, zoneLastId);
    forEachId(first, last, [&](std::uint64_t face) {
      const std::uint64_t partner = provider_->getFaceShadow(face);
      if (partner < firstOfShadow || partner > lastOfShadow) {
        ++bad;
      }
    });
  }
  if (bad != 0) {
    addError("Face shadow facet ids are out of target shadow range");
  }
  provider_->endFaceShadows();
}

}  // namespace velto::testing
