// SPDX-License-Identifier: Apache-2.0
//
// The arrays of a BrickMesh: walks over layers, rows and bricks that write nodes, cells and faces
// in the order of their ids.

#include <algorithm>
#include <array>

#include "embedded/base/shapes.h"
#include "samples/BrickMesh.h"
#include "samples/FormulaArrays.h"

namespace velto::samples {

namespace {

using base::Family;
using Ids = std::uint64_t*;

constexpr double kHalfBrick = 0.125;  // edges of a half brick, in metres
constexpr double kHeight = 0.125;
constexpr double kDepth = 0.25;

class BrickArrays : public FormulaArrays {
 public:
  explicit BrickArrays(const BrickMesh& mesh) : mesh_(mesh) {}

  std::vector<int> zones(Family family) override;
  bool uniformCount(Family family, int zone, short& count) override;
  std::size_t readCounts(Family family, int zone, short* counts, std::size_t n) override;
  std::size_t countCount(Family family, int zone) override;
  std::size_t valueCount(Family family, int zone) override;
  std::size_t readIds(Family family, int zone, std::uint64_t* ids, std::size_t n) override;
  std::size_t readCoordinates(int zone, double* values, std::size_t n) override;
  bool uniformCellType(int zone, int& type) override;

 private:
  /// One brick of a layer: its row, its place there, and the half bricks it covers.
  struct Brick {
    std::uint64_t row;
    std::uint64_t place;
    std::uint64_t firstHalf;
    std::uint64_t halves;
  };

  /// Where the faces begin that a cell can have.
  struct FirstFaces {
    std::uint64_t innerX, innerY, innerZ;
    std::array<std::uint64_t, BrickMesh::zoneCount> zone;
  };

  template <class Each>
  void forEachBrick(Each each) const;
  template <class Each>
  void forEachInnerX(Each each) const;

  std::uint64_t zoneSize(int zone) const;
  FirstFaces firstFaces() const;

  std::uint64_t nodeAt(std::uint64_t half, std::uint64_t line, std::uint64_t layer) const {
    return 1 + layer * mesh_.nodesPerLayer() + line * mesh_.nodesPerRow() + half;
  }
  /// The cell that covers a half brick.
  std::uint64_t cellAt(std::uint64_t half, std::uint64_t row, std::uint64_t layer) const {
    return 1 + layer * mesh_.cellsPerLayer() + mesh_.cellsBefore(row) + (half + row % 2) / 2;
  }

  Ids fillAcrossX(Ids ids, std::uint64_t node, bool looksDown) const;
  Ids fillAcrossY(Ids ids, std::uint64_t line, std::uint64_t layer, bool looksDown) const;
  Ids fillFronts(Ids ids, std::uint64_t layer, bool looksDown) const;
  void fillFaceNodes(int zone, Ids ids) const;
  void fillInnerCells(bool upper, Ids ids) const;
  void fillEndCells(int zone, Ids ids) const;
  void fillCellFaces(Ids ids) const;

  const BrickMesh mesh_;
};

/// Bricks of one layer, in the order of their cells.
template <class Each>
void BrickArrays::forEachBrick(Each each) const {
  for (std::uint64_t row = 0; row < mesh_.rows; ++row) {
    const std::uint64_t shift = row % 2;
    const std::uint64_t last = mesh_.cellsOf(row) - 1;
    for (std::uint64_t place = 0; place <= last; ++place) {
      const bool isHalf = shift == 1 && (place == 0 || place == last);
      each(Brick{row, place, place == 0 ? 0 : 2 * place - shift, isHalf ? 1U : 2U});
    }
  }
}

/// Inner faces across x: the lower of the two bricks, which ends where the face stands.
template <class Each>
void BrickArrays::forEachInnerX(Each each) const {
  for (std::uint64_t layer = 0; layer < mesh_.layers; ++layer) {
    forEachBrick([&](const Brick& brick) {
      if (brick.place + 1 < mesh_.cellsOf(brick.row)) {
        each(brick.firstHalf + brick.halves, brick.row, layer);
      }
    });
  }
}

// --- What is there ------------------------------------------------------------------------------

std::vector<int> BrickArrays::zones(Family family) {
  std::vector<int> zones;
  const bool isOfFaces = family == Family::faceNodes || family == Family::faceCell0;
  for (int zone = 0; zone < BrickMesh::zoneCount; ++zone) {
    const bool isInside = zone == BrickMesh::inside && family == Family::faceCell1;
    if (mesh_.facesOf(zone) > 0 && (isOfFaces || isInside)) {
      zones.push_back(BrickMesh::kFirstFaceZone + zone);
    }
  }
  if (family == Family::nodeCoordinates) {
    zones.push_back(BrickMesh::kNodeZone);
  } else if (family == Family::cellTypes || family == Family::cellFaces) {
    zones.push_back(BrickMesh::kCellZone);
  }
  return zones;
}

std::uint64_t BrickArrays::zoneSize(int zone) const {
  if (zone == BrickMesh::kCellZone) {
    return mesh_.cellCount();
  }
  return mesh_.facesOf(zone - BrickMesh::kFirstFaceZone);
}

bool BrickArrays::uniformCount(Family family, int zone, short& count) {
  const int face = zone - BrickMesh::kFirstFaceZone;
  short common = 0;
  if (family == Family::cellFaces && zone == BrickMesh::kCellZone) {
    common = mesh_.oddRows() > 0 ? 0 : 8;
  } else if (family == Family::faceNodes && face >= 0 && face < BrickMesh::zoneCount) {
    common = mesh_.nodesOfEachFace(face);
  }
  if (common != 0) {
    count = common;
  }
  return common != 0;
}

std::size_t BrickArrays::countCount(Family family, int zone) {
  short count = 0;
  const bool isCounted = isListed(family, zone) &&
                         (family == Family::faceNodes || family == Family::cellFaces) &&
                         !uniformCount(family, zone, count);
  return isCounted ? zoneSize(zone) : 0;
}

std::size_t BrickArrays::valueCount(Family family, int zone) {
  if (!isListed(family, zone)) {
    return 0;
  }
  switch (family) {
    case Family::nodeCoordinates:
      return 3 * mesh_.nodeCount();
    case Family::cellFaces:
      return 8 * mesh_.cellCount() - 4 * mesh_.oddRows() * mesh_.layers;
    case Family::faceCell0:
    case Family::faceCell1:
      return zoneSize(zone);
    case Family::faceNodes:
      break;
    default:
      return 0;
  }
  const int face = zone - BrickMesh::kFirstFaceZone;
  if (face == BrickMesh::inside) {
    return 4 * (mesh_.innerX() + mesh_.innerY()) + (mesh_.layers - 1) * mesh_.frontNodesPerLayer();
  }
  return face >= BrickMesh::zMin ? mesh_.frontNodesPerLayer() : 4 * mesh_.facesOf(face);
}

bool BrickArrays::uniformCellType(int zone, int& type) {
  if (zone != BrickMesh::kCellZone) {
    return false;
  }
  type = base::cellShapePolyhedron;
  return true;
}

std::size_t BrickArrays::readCounts(Family family, int zone, short* counts, std::size_t n) {
  const std::size_t size = countCount(family, zone);
  if (size == 0) {
    return FormulaArrays::readCounts(family, zone, counts, n);
  }
  return deliver(size, counts, n, [&](short* out) {
    const bool isOfCells = family == Family::cellFaces;
    const bool isInside = zone == BrickMesh::kFirstFaceZone + BrickMesh::inside;
    std::uint64_t fronts = 1;
    if (isOfCells) {
      fronts = mesh_.layers;
    } else if (isInside) {
      out = std::fill_n(out, mesh_.innerX() + mesh_.innerY(), short{4});
      fronts = mesh_.layers - 1;
    }
    const short whole = isOfCells ? 8 : 6;
    const short half = isOfCells ? 6 : 4;
    for (std::uint64_t layer = 0; layer < fronts; ++layer) {
      forEachBrick([&](const Brick& brick) { *out++ = brick.halves == 2 ? whole : half; });
    }
  });
}

std::size_t BrickArrays::readCoordinates(int zone, double* values, std::size_t n) {
  return deliver(valueCount(Family::nodeCoordinates, zone), values, n, [this](double* out) {
    for (std::uint64_t layer = 0; layer <= mesh_.layers; ++layer) {
      for (std::uint64_t line = 0; line <= mesh_.rows; ++line) {
        for (std::uint64_t half = 0; half < mesh_.nodesPerRow(); ++half) {
          *out++ = static_cast<double>(half) * kHalfBrick;
          *out++ = static_cast<double>(line) * kHeight;
          *out++ = static_cast<double>(layer) * kDepth;
        }
      }
    }
  });
}

std::size_t BrickArrays::readIds(Family family, int zone, std::uint64_t* ids, std::size_t n) {
  return deliver(valueCount(family, zone), ids, n, [&](Ids out) {
    const int face = zone - BrickMesh::kFirstFaceZone;
    if (family == Family::cellFaces) {
      fillCellFaces(out);
    } else if (family == Family::faceNodes) {
      fillFaceNodes(face, out);
    } else if (face == BrickMesh::inside) {
      fillInnerCells(family == Family::faceCell1, out);
    } else {
      fillEndCells(face, out);
    }
  });
}

// --- Nodes of faces -----------------------------------------------------------------------------

/// A face across x, at the node of its lower end.
Ids BrickArrays::fillAcrossX(Ids ids, std::uint64_t node, bool looksDown) const {
  const std::uint64_t y = mesh_.nodesPerRow();
  const std::uint64_t z = mesh_.nodesPerLayer();
  ids[0] = node;
  ids[1] = node + (looksDown ? z : y);
  ids[2] = node + y + z;
  ids[3] = node + (looksDown ? y : z);
  return ids + 4;
}

/// All faces across y on one line of one layer.
Ids BrickArrays::fillAcrossY(Ids ids, std::uint64_t line, std::uint64_t layer,
                             bool looksDown) const {
  const std::uint64_t z = mesh_.nodesPerLayer();
  const std::uint64_t first = nodeAt(0, line, layer);
  for (std::uint64_t node = first; node < first + mesh_.halves(); ++node) {
    ids[0] = node;
    ids[1] = node + (looksDown ? 1 : z);
    ids[2] = node + z + 1;
    ids[3] = node + (looksDown ? z : 1);
    ids += 4;
  }
  return ids;
}

/// The fronts of all bricks, on one layer of nodes: along the lower line and back along the upper,
/// or the other way round.
Ids BrickArrays::fillFronts(Ids ids, std::uint64_t layer, bool looksDown) const {
  forEachBrick([&](const Brick& brick) {
    const std::uint64_t lower = nodeAt(brick.firstHalf, brick.row, layer);
    const std::uint64_t upper = lower + mesh_.nodesPerRow();
    const std::uint64_t out = looksDown ? upper : lower;
    const std::uint64_t back = looksDown ? lower : upper;
    for (std::uint64_t half = 0; half <= brick.halves; ++half) {
      ids[half] = out + half;
      ids[2 * brick.halves + 1 - half] = back + half;
    }
    ids += 2 * brick.halves + 2;
  });
  return ids;
}

void BrickArrays::fillFaceNodes(int zone, Ids ids) const {
  const bool looksDown =
      zone == BrickMesh::xMin || zone == BrickMesh::yMin || zone == BrickMesh::zMin;
  if (zone == BrickMesh::inside) {
    forEachInnerX([&](std::uint64_t half, std::uint64_t row, std::uint64_t layer) {
      ids = fillAcrossX(ids, nodeAt(half, row, layer), false);
    });
    for (std::uint64_t layer = 0; layer < mesh_.layers; ++layer) {
      for (std::uint64_t line = 1; line < mesh_.rows; ++line) {
        ids = fillAcrossY(ids, line, layer, false);
      }
    }
    for (std::uint64_t layer = 1; layer < mesh_.layers; ++layer) {
      ids = fillFronts(ids, layer, false);
    }
    return;
  }
  if (zone >= BrickMesh::zMin) {
    fillFronts(ids, looksDown ? 0 : mesh_.layers, looksDown);
    return;
  }
  for (std::uint64_t layer = 0; layer < mesh_.layers; ++layer) {
    if (zone == BrickMesh::yMin || zone == BrickMesh::yMax) {
      ids = fillAcrossY(ids, looksDown ? 0 : mesh_.rows, layer, looksDown);
      continue;
    }
    for (std::uint64_t row = 0; row < mesh_.rows; ++row) {
      ids = fillAcrossX(ids, nodeAt(looksDown ? 0 : mesh_.halves(), row, layer), looksDown);
    }
  }
}

// --- Cells beside faces -------------------------------------------------------------------------

void BrickArrays::fillInnerCells(bool upper, Ids ids) const {
  const std::uint64_t up = upper ? 1 : 0;
  forEachInnerX([&](std::uint64_t half, std::uint64_t row, std::uint64_t layer) {
    *ids++ = cellAt(half - 1 + up, row, layer);
  });
  for (std::uint64_t layer = 0; layer < mesh_.layers; ++layer) {
    for (std::uint64_t line = 1; line < mesh_.rows; ++line) {
      for (std::uint64_t half = 0; half < mesh_.halves(); ++half) {
        *ids++ = cellAt(half, line - 1 + up, layer);
      }
    }
  }
  const std::uint64_t first = 1 + up * mesh_.cellsPerLayer();
  for (std::uint64_t cell = first; cell < first + mesh_.innerZ(); ++cell) {
    *ids++ = cell;
  }
}

void BrickArrays::fillEndCells(int zone, Ids ids) const {
  if (zone >= BrickMesh::zMin) {
    const std::uint64_t first =
        zone == BrickMesh::zMin ? 1 : 1 + mesh_.cellCount() - mesh_.cellsPerLayer();
    for (std::uint64_t cell = first; cell < first + mesh_.cellsPerLayer(); ++cell) {
      *ids++ = cell;
    }
    return;
  }
  for (std::uint64_t layer = 0; layer < mesh_.layers; ++layer) {
    if (zone == BrickMesh::yMin || zone == BrickMesh::yMax) {
      for (std::uint64_t half = 0; half < mesh_.halves(); ++half) {
        *ids++ = cellAt(half, zone == BrickMesh::yMin ? 0 : mesh_.rows - 1, layer);
      }
      continue;
    }
    for (std::uint64_t row = 0; row < mesh_.rows; ++row) {
      *ids++ = cellAt(zone == BrickMesh::xMin ? 0 : mesh_.halves() - 1, row, layer);
    }
  }
}

// --- Faces of cells -----------------------------------------------------------------------------

BrickArrays::FirstFaces BrickArrays::firstFaces() const {
  FirstFaces first{};
  std::uint64_t next = 1;
  for (int zone = 0; zone < BrickMesh::zoneCount; ++zone) {
    first.zone.at(static_cast<std::size_t>(zone)) = next;
    next += mesh_.facesOf(zone);
  }
  first.innerX = 1;
  first.innerY = first.innerX + mesh_.innerX();
  first.innerZ = first.innerY + mesh_.innerY();
  return first;
}

/// The ends along x, then the halves below and above, then back and front.
void BrickArrays::fillCellFaces(Ids ids) const {
  const FirstFaces first = firstFaces();
  const std::uint64_t innerLines = mesh_.rows - 1;
  for (std::uint64_t layer = 0; layer < mesh_.layers; ++layer) {
    const auto across = [&](std::uint64_t line) {
      if (line == 0 || line == mesh_.rows) {
        return first.zone[line == 0 ? BrickMesh::yMin : BrickMesh::yMax] + layer * mesh_.halves();
      }
      return first.innerY + (layer * innerLines + line - 1) * mesh_.halves();
    };
    std::uint64_t innerX = first.innerX + layer * mesh_.innerPerLayerX();
    std::uint64_t cell = 0;
    const std::uint64_t back = layer == 0 ? first.zone[BrickMesh::zMin]
                                          : first.innerZ + (layer - 1) * mesh_.cellsPerLayer();
    const std::uint64_t front = layer + 1 == mesh_.layers
                                    ? first.zone[BrickMesh::zMax]
                                    : first.innerZ + layer * mesh_.cellsPerLayer();
    forEachBrick([&](const Brick& brick) {
      const std::uint64_t end = layer * mesh_.rows + brick.row;
      *ids++ = brick.place == 0 ? first.zone[BrickMesh::xMin] + end : innerX - 1;
      const bool isLast = brick.place + 1 == mesh_.cellsOf(brick.row);
      *ids++ = isLast ? first.zone[BrickMesh::xMax] + end : innerX++;
      for (const std::uint64_t line : {brick.row, brick.row + 1}) {
        for (std::uint64_t half = 0; half < brick.halves; ++half) {
          *ids++ = across(line) + brick.firstHalf + half;
        }
      }
      *ids++ = back + cell;
      *ids++ = front + cell;
      ++cell;
    });
  }
}

}  // namespace

std::shared_ptr<base::MeshArrays> arraysOf(const BrickMesh& mesh) {
  return std::make_shared<BrickArrays>(mesh);
}

}  // namespace velto::samples
