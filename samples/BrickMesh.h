// SPDX-License-Identifier: Apache-2.0
//
// BrickMesh: a wall of bricks in running bond, a mesh of true polyhedra.

#ifndef VELTO_SAMPLES_BRICK_MESH_H
#define VELTO_SAMPLES_BRICK_MESH_H

#include <cstdint>
#include <memory>

#include "embedded/base/CaseTables.h"
#include "embedded/base/MeshArrays.h"

namespace velto::samples {

/// Rows of bricks along x, laid on each other in y, in layers along z. Every other row is moved by
/// half a brick and has a half brick at each end:
///
///      +---+-------+-------+---+   row 1: half, whole, whole, half
///      +---+---+---+---+---+---+
///      |       |       |       |   row 0: three whole bricks
///      +---+---+---+---+---+---+
///
/// Nodes stand at every half brick, also where no brick ends. So a whole brick has two faces below
/// and two above, one at each end, and a front and a back of six nodes: eight faces. A half brick
/// is a hexahedron.
///
/// Nodes and cells count up from 1, along x first and along z last; so do the faces of each zone.
struct BrickMesh {
  std::uint64_t bricks = 1;  ///< Whole bricks in an even row; an odd row has one cell more.
  std::uint64_t rows = 1;
  std::uint64_t layers = 1;

  /// The face zones; their ids count up from 2, behind node zone 1. Inside are the faces between
  /// two cells: those across x first, then across y, then across z.
  enum Zone : int { inside, xMin, xMax, yMin, yMax, zMin, zMax, zoneCount };
  static constexpr int kNodeZone = 1;
  static constexpr int kFirstFaceZone = 2;
  static constexpr int kCellZone = kFirstFaceZone + zoneCount;

  std::uint64_t halves() const { return 2 * bricks; }  ///< Half bricks along a row.
  std::uint64_t oddRows() const { return rows / 2; }

  std::uint64_t nodesPerRow() const { return halves() + 1; }
  std::uint64_t nodesPerLayer() const { return nodesPerRow() * (rows + 1); }
  std::uint64_t nodeCount() const { return nodesPerLayer() * (layers + 1); }

  std::uint64_t cellsOf(std::uint64_t row) const { return bricks + row % 2; }
  std::uint64_t cellsBefore(std::uint64_t row) const { return row * bricks + row / 2; }
  std::uint64_t cellsPerLayer() const { return cellsBefore(rows); }
  std::uint64_t cellCount() const { return cellsPerLayer() * layers; }

  /// Inner faces across each axis, and faces of a zone.
  std::uint64_t innerPerLayerX() const { return rows * (bricks - 1) + oddRows(); }
  std::uint64_t innerX() const { return innerPerLayerX() * layers; }
  std::uint64_t innerY() const { return halves() * (rows - 1) * layers; }
  std::uint64_t innerZ() const { return cellsPerLayer() * (layers - 1); }
  std::uint64_t facesOf(int zone) const;

  /// The number of nodes that all faces of a zone have, or 0: fronts of half bricks have less.
  short nodesOfEachFace(int zone) const;

  /// Nodes of all fronts of one layer; six each, four of a half brick.
  std::uint64_t frontNodesPerLayer() const { return 6 * cellsPerLayer() - 4 * oddRows(); }
};

/// A wall with about `cells` cells, as near to a cube as that allows: every direction is rounded to
/// whole bricks, rows and layers.
BrickMesh makeBricks(std::uint64_t cells);

/// Tables of the wall as a post target, and its arrays. Cells list their faces; faces know their
/// cells, and no zone is said to bound another.
base::MeshTables tablesOf(const BrickMesh& mesh);
std::shared_ptr<base::MeshArrays> arraysOf(const BrickMesh& mesh);

}  // namespace velto::samples

#endif  // VELTO_SAMPLES_BRICK_MESH_H
