// SPDX-License-Identifier: Apache-2.0
//
// Cells by the faces that name them, in the two ways that suit the form of a mesh:
//
//   checkCellsFromFaces_facenode    as many faces name a cell as its type has facets
//   checkCellsFromFaces_cellnode    the nodes of a face are nodes of the cells that it names
//
//   cellsFromFacesMode              facenode    cellnode
//     modeFaceNode                  runs
//     modeCellNode                              runs
//     all others                    runs        runs after it
//
// The first holds 6 bytes a cell and asks for each face by itself, the second holds the nodes of
// all faces and cells.

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <string>
#include <vector>

#include "velto/OrvChecker.h"

#include "data_access/OrvFileProvider.h"
#include "data_access/families.h"
#include "data_access/sizes.h"

#include "checker/IdList.h"
#include "checker/IdRange.h"
#include "checker/connectivity_kinds.h"
#include "checker/facets.h"

namespace velto {

/// A side of the faces, as data and in words.
struct OrvChecker::FaceSide {
  const SideReadFamily& family;
  std::string number;

  static FaceSide zero() { return {kFaceCell0, "0"}; }
  static FaceSide one() { return {kFaceCell1, "1"}; }
};

bool OrvChecker::checkCellsFromFaces() {
  displayStep("checkCellsFromFaces", "init");
  if (cellsFromFacesMode != modeCellNode) {
    checkCellsFromFaces_facenode();
  }
  if (cellsFromFacesMode != modeFaceNode) {
    checkCellsFromFaces_cellnode();
  }
  return true;
}

void OrvChecker::addInvalidCell(const FaceSide& side, std::uint64_t cell, std::uint64_t face) {
  addError(1, "Cell " + side.number + " (" + std::to_string(cell) + ") for face " +
                  std::to_string(face) + " is invalid");
}

// --- As many faces as facets --------------------------------------------------------------------

bool OrvChecker::checkCellsFromFaces_facenode() {
  displayStep("checkCellsFromFaces_facenode", "init");
  OrvFileProvider* source = openProvider();
  const std::uint64_t dimension = meshSizeOf(*source, meshDimension);
  const std::uint64_t cells = meshSizeOf(*source, meshCellCount);
  std::vector<int> faceZones;
  source->getZoneIds(zoneCategoryFace, faceZones);
  // Kept: asked for and not used.
  std::vector<int> cellZones;
  source->getZoneIds(zoneCategoryCell, cellZones);
  std::vector<int> typeOfCell(cells, -1);

  displayStep("checkCellsFromFaces_facenode", "cell types");
  std::vector<int> typedZones;
  source->beginCellTypes(typedZones);
  if (typedZones.empty()) {
    // Kept: the family stays open.
    addWarning(1, "cell_face mesh with no cell-type are unsupported");
    return false;
  }
  readTypesOfCells(typedZones, typeOfCell);
  source->endCellTypes();

  displayStep("checkCellsFromFaces_facenode", "c0c1");
  const IdList treeZones(listTreeParents(*source));
  std::vector<std::int16_t> facesOfCell(cells, 0);
  bool subdividedFaces = false;
  source->beginFaceCell0(faceZones);
  for (const int zone : faceZones) {
    const IdRange faces = rangeOf(*source, zone);
    int child = 0;
    source->getFaceZoneInfo(zone, faceZoneChild, child);
    // Kept: one such zone excuses the whole mesh.
    subdividedFaces = subdividedFaces || child != 0 || treeZones.contains(zone);
    countFacesOfCells(FaceSide::zero(), faces, facesOfCell);
  }
  source->endFaceCell0();
  source->beginFaceCell1(faceZones);
  for (const int zone : faceZones) {
    countFacesOfCells(FaceSide::one(), rangeOf(*source, zone), facesOfCell);
  }
  source->endFaceCell1();

  displayStep("checkCellsFromFaces_facenode", "face count check");
  judgeFaceCounts(typeOfCell, facesOfCell, FacetRules(dimension), subdividedFaces);
  return true;
}

/// Kept harmless: ids beyond the cells of the mesh are asked for as well, and have no entry.
void OrvChecker::readTypesOfCells(const std::vector<int>& zones, std::vector<int>& typeOfCell) {
  OrvFileProvider* source = openProvider();
  for (const int zone : zones) {
    const IdRange cells = rangeOf(*source, zone);
    int uniform = 0;
    if (source->getUniformCellType(zone, uniform)) {
      const std::uint64_t first = std::max<std::uint64_t>(cells.first, 1);
      const std::uint64_t last = std::min<std::uint64_t>(cells.last, typeOfCell.size());
      if (first <= last) {
        std::fill_n(typeOfCell.begin() + static_cast<std::ptrdiff_t>(first - 1), last - first + 1,
                    uniform);
      }
      continue;
    }
    for (const std::uint64_t cell : cells) {
      const int type = source->getCellType(cell);
      if (cell - 1 < typeOfCell.size()) {
        typeOfCell[cell - 1] = type;
      }
    }
  }
}

void OrvChecker::countFacesOfCells(const FaceSide& side, const IdRange& faces,
                                   std::vector<std::int16_t>& facesOfCell) {
  // In variables of its own: behind a reference they would be looked up again after each call.
  OrvFileProvider* const source = openProvider();
  const auto getCell = side.family.getCell;
  std::int16_t* const counts = facesOfCell.data();
  const std::size_t cells = facesOfCell.size();
  for (const std::uint64_t face : faces) {
    const std::uint64_t cell = (source->*getCell)(face);
    if (cell - 1 < cells) {
      std::int16_t& count = counts[cell - 1];
      // Kept: of 16 bits, so that 32768 faces are a negative number of them.
      count = static_cast<std::int16_t>(static_cast<std::uint16_t>(count) + 1);
    } else {
      addInvalidCell(side, cell, face);
    }
  }
}

namespace {

/// Kept: counters of 32 bits that have a sign.
std::string asSigned(std::uint32_t counter) {
  return std::to_string(static_cast<std::int32_t>(counter));
}

}  // namespace

void OrvChecker::judgeFaceCounts(const std::vector<int>& typeOfCell,
                                 const std::vector<std::int16_t>& facesOfCell,
                                 const FacetRules& rules, bool subdividedFaces) {
  const bool showsEach = verbosity > 3;
  std::uint32_t missingFacets = 0;
  std::uint32_t excessFacets = 0;
  std::uint32_t unsupportedCells = 0;
  for (std::size_t i = 0; i < typeOfCell.size(); ++i) {
    const FacetRule rule = rules.of(typeOfCell[i]);
    const int faces = facesOfCell[i];
    switch (rule.kind) {
      case FacetRule::unsupported:
        ++unsupportedCells;
        break;
      case FacetRule::exactly:
        if (faces == rule.facets || (faces > rule.facets && subdividedFaces)) {
          break;
        }
        ++(faces < rule.facets ? missingFacets : excessFacets);
        if (showsEach) {
          std::cout << "Cell face count mismatch " << faces << " vs " << rule.facets << std::endl;
        }
        break;
      case FacetRule::atLeast:
        if (faces < rule.facets) {
          ++missingFacets;
          if (showsEach) {
            // Kept: two blanks before the number and none behind it.
            std::cout << "Cell face count mismatch  " << faces << "vs minimum of " << rule.facets
                      << std::endl;
          }
        }
        break;
      case FacetRule::anyNumber:
        break;
    }
  }
  if (unsupportedCells != 0) {
    addWarning(1, "Cells of unsupported type encountered");
  }
  if (missingFacets != 0) {
    addError(1, "Cells with missing facets: " + asSigned(missingFacets));
  }
  if (excessFacets != 0) {
    addError(1, "Cells with too many facets attached: " + asSigned(excessFacets));
  }
}

// --- Nodes of faces among the nodes of cells ----------------------------------------------------

bool OrvChecker::checkCellsFromFaces_cellnode() {
  displayStep("checkCellsFromFaces_cellnode", "init");
  std::vector<int> zones;
  openProvider()->getZoneIds(zoneCategoryFace, zones);
  readFaceNodes();
  readCellNodes();
  compareNodes(FaceSide::zero(), zones);
  compareNodes(FaceSide::one(), zones);
  return true;
}

void OrvChecker::compareNodes(const FaceSide& side, std::vector<int>& zones) {
  displayStep("checkCellsFromFaces_cellnode", "c" + side.number);
  OrvFileProvider* const source = openProvider();
  const auto getCell = side.family.getCell;
  (source->*side.family.begin)(zones);
  for (const int zone : zones) {
    bool isBad = false;
    for (const std::uint64_t face : rangeOf(*source, zone)) {
      const std::uint64_t cell = (source->*getCell)(face);
      if (cell - 1 >= cellNodeCounts.size()) {
        addInvalidCell(side, cell, face);
      } else if (!ownsFace(cell, face)) {
        isBad = true;
      }
    }
    if (isBad) {
      addError(1, "Node connectivity error in face-cell c" + side.number + " pair");
    }
  }
  (source->*side.family.end)();
}

/// REQUIRES: the tables have an entry for the cell.
bool OrvChecker::ownsFace(std::uint64_t cell, std::uint64_t face) {
  // Kept harmless: of a face beyond those of the mesh nothing is known.
  if (face - 1 >= faceNodeCounts.size()) {
    return true;
  }
  return checkCellFaceOwnership(cellNodeCounts[cell - 1], cellNodePointers[cell - 1],
                                faceNodeCounts[face - 1], faceNodePointers[face - 1]);
}

bool OrvChecker::checkCellFaceOwnership(int cellNodeCount, std::uint64_t* cellNodes,
                                        int faceNodeCount, std::uint64_t* faceNodes) {
  if (cellNodeCount == 0 || faceNodeCount < 1) {
    return true;
  }
  const auto isNodeOfCell = [=](std::uint64_t node) {
    const std::uint64_t* const end = cellNodes + cellNodeCount;
    return std::find<const std::uint64_t*>(cellNodes, end, node) != end;
  };
  if (cellNodeCount > 0 && std::all_of(faceNodes, faceNodes + faceNodeCount, isNodeOfCell)) {
    return true;
  }
  // Kept: the second number is the cell's number of nodes, not its type.
  std::cout << "face " << faceNodeCount << " vs cell type " << cellNodeCount << std::endl;
  return false;
}

}  // namespace velto
