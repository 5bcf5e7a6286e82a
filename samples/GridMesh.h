// SPDX-License-Identifier: Apache-2.0
//
// GridMesh: a box-like sample mesh as a short description, and the tables and arrays it stands for.

#ifndef VELTO_SAMPLES_GRID_MESH_H
#define VELTO_SAMPLES_GRID_MESH_H

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "embedded/base/CaseTables.h"
#include "embedded/base/MeshArrays.h"
#include "samples/Grid.h"

namespace velto::samples {

/// Which of the two cells beside a face it belongs to. The one that it belongs to, or the lower of
/// both, is on side 0, so that faces of upperOnly look down the axis and all others up.
enum class Sides { both, lowerOnly, upperOnly };

/// Faces across one axis. Along that axis `at` counts lines of nodes, along the others cells.
struct FaceBlock {
  Axis axis = axisX;
  Block at;
  Sides sides = Sides::both;
};

/// A face zone: its blocks, one after the other. All of them have the same sides. A shadow zone,
/// given by its position, has blocks of the same form elsewhere.
struct GridFaceZone {
  std::string name;
  int type = faceZoneTypeInterior;
  std::vector<FaceBlock> blocks;
  std::optional<std::size_t> shadow;

  std::uint64_t size() const;
  bool isTwoSided() const { return blocks.front().sides == Sides::both; }
};

/// A cell zone: some layers in x.
struct GridCellZone {
  std::string name;
  Range layers;
};

/// Field data that are linear in space: each component is constant + (x, y, z) * gradient.
struct LinearField {
  struct Component {
    double constant = 0;
    std::array<double, 3> gradient = {0, 0, 0};
  };

  base::VariableKey key;
  std::vector<Component> components;
};

/// How much of a mesh is told beyond its zones.
struct GridContent {
  bool cellNodes = false;      ///< Each cell lists its nodes.
  bool facesKnowCells = true;  ///< Each face says which cells it lies between.
  bool zoneRelations = true;   ///< The tables say which zones bound which.
};

/// The description. Node zone 1 holds all nodes; face zones count up from 2, cell zones follow.
struct GridMesh {
  Grid grid;
  GridContent content;
  std::vector<GridFaceZone> faceZones;
  std::vector<GridCellZone> cellZones;  ///< In ascending order of their layers, without gaps.
  std::vector<LinearField> fields;

  /// Of a partition: its number and how many there are.
  std::optional<std::pair<int, int>> partition;

  static constexpr int kNodeZone = 1;
  int faceZoneId(std::size_t position) const { return 2 + static_cast<int>(position); }
  int cellZoneId(std::size_t position) const { return faceZoneId(faceZones.size() + position); }

  /// Adds a face zone of the blocks that have faces; nothing if none of them has. Returns its id,
  /// or 0. Ids of cell zones hold once all face zones are there.
  int addFaces(const std::string& name, int type, const std::vector<FaceBlock>& blocks);

  /// Makes the two face zones that were added last each other's shadow.
  void linkLastTwo();
};

/// The faces between two cells of the same layers. Those on line `cut`, if it is given, are left
/// out.
std::vector<FaceBlock> interiorOf(const Grid& grid, const Range& layers,
                                  std::optional<std::uint64_t> cut = std::nullopt);

/// The faces on one line of nodes in x.
FaceBlock planeAt(const Grid& grid, std::uint64_t line, Sides sides);

/// The faces of some layers on the lower or upper end of the box along an axis.
FaceBlock endOf(const Grid& grid, const Range& layers, Axis axis, bool upper);

/// All faces of some layers on the ends of the box along y, and along z where there is one.
std::vector<FaceBlock> hullOf(const Grid& grid, const Range& layers);

/// Tables of the mesh.
base::MeshTables tablesOf(const GridMesh& mesh);

/// Its arrays, made by formula.
std::shared_ptr<base::MeshArrays> arraysOf(const GridMesh& mesh);

}  // namespace velto::samples

#endif  // VELTO_SAMPLES_GRID_MESH_H
