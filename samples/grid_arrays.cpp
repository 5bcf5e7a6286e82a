// SPDX-License-Identifier: Apache-2.0
//
// The arrays of a GridMesh. A face or cell is its lowest node plus the same few offsets everywhere,
// so each array is one pass over a block with additions only.

#include <algorithm>
#include <utility>

#include "embedded/base/shapes.h"
#include "samples/FormulaArrays.h"
#include "samples/GridMesh.h"

namespace velto::samples {

namespace {

using base::Family;
using base::VariableKey;

/// The nodes of a face or cell, as distances from its lowest node.
struct Corners {
  std::array<std::uint64_t, 8> offsets{};
  unsigned count = 0;

  void add(std::uint64_t offset) { offsets.at(count++) = offset; }
};

/// By the right-hand rule the loop looks along the positive axis; in the plane that is to the right
/// of a line.
Corners cornersOfFace(const Grid& grid, Axis axis, bool looksDown) {
  const Index strides = grid.nodeStrides();
  Corners corners;
  if (grid.dimension == 2) {
    const std::uint64_t along = strides.at(axis == axisX ? axisY : axisX);
    const bool isAscending = (axis == axisX) != looksDown;
    corners.add(isAscending ? 0 : along);
    corners.add(isAscending ? along : 0);
    return corners;
  }
  std::uint64_t u = strides.at((axis + 1) % 3);
  std::uint64_t v = strides.at((axis + 2) % 3);
  if (looksDown) {
    std::swap(u, v);
  }
  for (const std::uint64_t offset : {std::uint64_t{0}, u, u + v, v}) {
    corners.add(offset);
  }
  return corners;
}

/// The lower quadrilateral in loop order, then the upper one above it.
Corners cornersOfCell(const Grid& grid) {
  const Index strides = grid.nodeStrides();
  const std::uint64_t x = strides[axisX];
  const std::uint64_t y = strides[axisY];
  Corners corners;
  for (const std::uint64_t layer : {std::uint64_t{0}, strides[axisZ]}) {
    for (const std::uint64_t offset : {std::uint64_t{0}, x, x + y, y}) {
      if (layer == 0 || grid.dimension == 3) {
        corners.add(layer + offset);
      }
    }
  }
  return corners;
}

template <unsigned Count>
std::uint64_t* fillCornersOf(const Block& block, const Index& strides, const Corners& corners,
                             std::uint64_t* ids) {
  const std::array<std::uint64_t, 8> offsets = corners.offsets;
  forEachId(block, strides, [&ids, offsets](std::uint64_t node) {
    for (unsigned i = 0; i < Count; ++i) {
      ids[i] = node + offsets[i];
    }
    ids += Count;
  });
  return ids;
}

/// Writes the nodes of every element of a block; returns where the next one goes.
std::uint64_t* fillCorners(const Block& block, const Index& strides, const Corners& corners,
                           std::uint64_t* ids) {
  switch (corners.count) {
    case 2:
      return fillCornersOf<2>(block, strides, corners, ids);
    case 4:
      return fillCornersOf<4>(block, strides, corners, ids);
    default:
      return fillCornersOf<8>(block, strides, corners, ids);
  }
}

/// Calls `each` with the coordinates of every point of a block, those along `half` axes being
/// moved by half a cell.
template <class Each>
void forEachPoint(const Grid& grid, const Block& block, const std::array<bool, 3>& half,
                  Each each) {
  const auto at = [&grid, &half](std::size_t axis, std::uint64_t line) {
    const double position = static_cast<double>(line) + (half.at(axis) ? 0.5 : 0.0);
    return grid.origin.at(axis) + position * grid.spacing.at(axis);
  };
  std::vector<double> heights;
  for (std::uint64_t k = block[axisZ].first; k < block[axisZ].last; ++k) {
    heights.push_back(at(axisZ, k));
  }
  for (std::uint64_t i = block[axisX].first; i < block[axisX].last; ++i) {
    const double x = at(axisX, i);
    for (std::uint64_t j = block[axisY].first; j < block[axisY].last; ++j) {
      const double y = at(axisY, j);
      for (const double z : heights) {
        each(x, y, z);
      }
    }
  }
}

double* fillField(const Grid& grid, const Block& block, const std::array<bool, 3>& half,
                  const LinearField& field, double* values) {
  forEachPoint(grid, block, half, [&values, &field](double x, double y, double z) {
    for (const LinearField::Component& component : field.components) {
      const auto& gradient = component.gradient;
      *values++ = component.constant + x * gradient[0] + y * gradient[1] + z * gradient[2];
    }
  });
  return values;
}

class GridArrays : public FormulaArrays {
 public:
  explicit GridArrays(GridMesh mesh) : mesh_(std::move(mesh)) {}

  std::vector<int> zones(Family family) override;
  bool uniformCount(Family family, int zone, short& count) override;
  std::size_t countCount(Family, int) override { return 0; }
  std::size_t valueCount(Family family, int zone) override;
  std::size_t readIds(Family family, int zone, std::uint64_t* ids, std::size_t n) override;
  std::size_t readCoordinates(int zone, double* values, std::size_t n) override;
  bool uniformCellType(int zone, int& type) override;
  int partitionInfo(int) override { return mesh_.partition ? mesh_.partition->second : 0; }
  std::size_t readCellPartitions(int zone, int* partitions, std::size_t n) override;

  std::vector<std::string> variableNames(short phase, OrvZoneCategory category) override;
  std::size_t variableZones(const VariableKey& key, std::vector<int>& zones) override;
  std::size_t variableValueCount(const VariableKey& key, int zone) override;
  std::size_t readVariable(const VariableKey& key, int zone, double* values,
                           std::size_t n) override;

 private:
  const GridFaceZone* faceZone(int zone) const;
  const GridCellZone* cellZone(int zone) const;
  const LinearField* field(const VariableKey& key) const;
  std::uint64_t elementCount(int zone) const;

  void fillFaceNodes(const GridFaceZone& zone, std::uint64_t* ids) const;
  void fillFaceCells(const GridFaceZone& zone, bool side1, std::uint64_t* ids) const;
  void fillShadows(const GridFaceZone& zone, std::uint64_t* ids) const;

  const GridMesh mesh_;
};

// --- What is there ------------------------------------------------------------------------------

std::vector<int> GridArrays::zones(Family family) {
  std::vector<int> zones;
  const bool isOfCells = family == Family::cellTypes ||
                         (family == Family::cellNodes && mesh_.content.cellNodes) ||
                         (family == Family::cellPartitions && mesh_.partition);
  for (std::size_t i = 0; isOfCells && i < mesh_.cellZones.size(); ++i) {
    zones.push_back(mesh_.cellZoneId(i));
  }
  for (std::size_t i = 0; i < mesh_.faceZones.size(); ++i) {
    const GridFaceZone& zone = mesh_.faceZones[i];
    const bool knowsCells = mesh_.content.facesKnowCells;
    if (family == Family::faceNodes || (family == Family::faceCell0 && knowsCells) ||
        (family == Family::faceCell1 && knowsCells && zone.isTwoSided()) ||
        (family == Family::faceShadows && zone.shadow)) {
      zones.push_back(mesh_.faceZoneId(i));
    }
  }
  if (family == Family::nodeCoordinates) {
    zones.push_back(GridMesh::kNodeZone);
  }
  return zones;
}

const GridFaceZone* GridArrays::faceZone(int zone) const {
  const auto position = static_cast<std::size_t>(zone - mesh_.faceZoneId(0));
  return position < mesh_.faceZones.size() ? &mesh_.faceZones[position] : nullptr;
}

const GridCellZone* GridArrays::cellZone(int zone) const {
  const auto position = static_cast<std::size_t>(zone - mesh_.cellZoneId(0));
  return position < mesh_.cellZones.size() ? &mesh_.cellZones[position] : nullptr;
}

std::uint64_t GridArrays::elementCount(int zone) const {
  if (const GridFaceZone* faces = faceZone(zone)) {
    return faces->size();
  }
  if (const GridCellZone* cells = cellZone(zone)) {
    return sizeOf(mesh_.grid.cellsOf(cells->layers));
  }
  return zone == GridMesh::kNodeZone ? mesh_.grid.nodeCount() : 0;
}

bool GridArrays::uniformCount(Family family, int zone, short& count) {
  if (!isListed(family, zone)) {
    return false;
  }
  const unsigned perFace = mesh_.grid.dimension == 2 ? 2 : 4;
  count = static_cast<short>(family == Family::cellNodes ? 2 * perFace : perFace);
  return true;
}

std::size_t GridArrays::valueCount(Family family, int zone) {
  if (!isListed(family, zone) || family == Family::cellTypes) {
    return 0;
  }
  if (family == Family::nodeCoordinates) {
    return elementCount(zone) * mesh_.grid.dimension;
  }
  short count = 1;
  if (family == Family::faceNodes || family == Family::cellNodes) {
    uniformCount(family, zone, count);
  }
  return elementCount(zone) * static_cast<std::size_t>(count);
}

bool GridArrays::uniformCellType(int zone, int& type) {
  if (cellZone(zone) == nullptr) {
    return false;
  }
  type = mesh_.grid.dimension == 2 ? base::cellShapeQuadrilateral : base::cellShapeHexahedron;
  return true;
}

// --- Arrays -------------------------------------------------------------------------------------

std::size_t GridArrays::readIds(Family family, int zone, std::uint64_t* ids, std::size_t n) {
  return deliver(valueCount(family, zone), ids, n, [&](std::uint64_t* values) {
    if (const GridCellZone* cells = cellZone(zone)) {
      fillCorners(mesh_.grid.cellsOf(cells->layers), mesh_.grid.nodeStrides(),
                  cornersOfCell(mesh_.grid), values);
      return;
    }
    const GridFaceZone* faces = faceZone(zone);
    if (faces == nullptr) {
      return;
    }
    if (family == Family::faceNodes) {
      fillFaceNodes(*faces, values);
    } else if (family == Family::faceShadows) {
      fillShadows(*faces, values);
    } else {
      fillFaceCells(*faces, family == Family::faceCell1, values);
    }
  });
}

void GridArrays::fillFaceNodes(const GridFaceZone& zone, std::uint64_t* ids) const {
  for (const FaceBlock& block : zone.blocks) {
    ids = fillCorners(block.at, mesh_.grid.nodeStrides(),
                      cornersOfFace(mesh_.grid, block.axis, block.sides == Sides::upperOnly), ids);
  }
}

void GridArrays::fillFaceCells(const GridFaceZone& zone, bool side1, std::uint64_t* ids) const {
  const Index strides = mesh_.grid.cellStrides();
  for (const FaceBlock& block : zone.blocks) {
    // The cell above a face has the face's place, the one below stands one stride before it.
    const bool isUpper = side1 || block.sides == Sides::upperOnly;
    const std::uint64_t back = isUpper ? 0 : strides.at(block.axis);
    forEachId(block.at, strides, [&ids, back](std::uint64_t cell) { *ids++ = cell - back; });
  }
}

void GridArrays::fillShadows(const GridFaceZone& zone, std::uint64_t* ids) const {
  std::uint64_t partner = 1;
  for (std::size_t i = 0; i < *zone.shadow; ++i) {
    partner += mesh_.faceZones[i].size();
  }
  const std::uint64_t size = zone.size();
  for (std::uint64_t face = 0; face < size; ++face) {
    ids[face] = partner + face;
  }
}

std::size_t GridArrays::readCoordinates(int zone, double* values, std::size_t n) {
  const Grid& grid = mesh_.grid;
  return deliver(valueCount(Family::nodeCoordinates, zone), values, n, [&grid](double* out) {
    const bool isPlane = grid.dimension == 2;
    forEachPoint(grid, grid.allNodes(), {}, [&out, isPlane](double x, double y, double z) {
      out[0] = x;
      out[1] = y;
      if (!isPlane) {
        out[2] = z;
      }
      out += isPlane ? 2 : 3;
    });
  });
}

std::size_t GridArrays::readCellPartitions(int zone, int* partitions, std::size_t n) {
  const std::size_t size = std::min(n, valueCount(Family::cellPartitions, zone));
  if (size > 0) {
    std::fill_n(partitions, size, mesh_.partition->first);
  }
  return size;
}

// --- Field data ---------------------------------------------------------------------------------

std::vector<std::string> GridArrays::variableNames(short phase, OrvZoneCategory category) {
  std::vector<std::string> names;
  for (const LinearField& one : mesh_.fields) {
    if (one.key.phase == phase && one.key.category == category) {
      names.push_back(one.key.name);
    }
  }
  return names;
}

const LinearField* GridArrays::field(const VariableKey& key) const {
  const auto found = std::find_if(mesh_.fields.begin(), mesh_.fields.end(),
                                  [&key](const LinearField& one) { return one.key == key; });
  return found == mesh_.fields.end() ? nullptr : &*found;
}

/// Field data stand on the nodes, on the cells, and on the boundary faces.
std::size_t GridArrays::variableZones(const VariableKey& key, std::vector<int>& zones) {
  zones.clear();
  const LinearField* values = field(key);
  if (values == nullptr) {
    return 0;
  }
  if (key.category == zoneCategoryNode) {
    zones = {GridMesh::kNodeZone};
  } else if (key.category == zoneCategoryCell) {
    zones = this->zones(Family::cellTypes);
  } else {
    for (std::size_t i = 0; i < mesh_.faceZones.size(); ++i) {
      if (!mesh_.faceZones[i].isTwoSided()) {
        zones.push_back(mesh_.faceZoneId(i));
      }
    }
  }
  return values->components.size();
}

std::size_t GridArrays::variableValueCount(const VariableKey& key, int zone) {
  std::vector<int> listed;
  const std::size_t valuesPerEntity = variableZones(key, listed);
  const bool isListedHere = std::find(listed.begin(), listed.end(), zone) != listed.end();
  return isListedHere ? valuesPerEntity * elementCount(zone) : 0;
}

std::size_t GridArrays::readVariable(const VariableKey& key, int zone, double* values,
                                     std::size_t n) {
  const std::size_t size = variableValueCount(key, zone);
  if (size == 0) {
    return 0;
  }
  return deliver(size, values, n, [&](double* out) {
    const Grid& grid = mesh_.grid;
    const bool isSolid = grid.dimension == 3;
    if (const GridFaceZone* faces = faceZone(zone)) {
      for (const FaceBlock& block : faces->blocks) {
        std::array<bool, 3> half = {true, true, isSolid};
        half.at(block.axis) = false;
        out = fillField(grid, block.at, half, *field(key), out);
      }
    } else if (const GridCellZone* cells = cellZone(zone)) {
      fillField(grid, grid.cellsOf(cells->layers), {true, true, isSolid}, *field(key), out);
    } else {
      fillField(grid, grid.allNodes(), {}, *field(key), out);
    }
  });
}

}  // namespace

std::shared_ptr<base::MeshArrays> arraysOf(const GridMesh& mesh) {
  return std::make_shared<GridArrays>(mesh);
}

}  // namespace velto::samples
