// SPDX-License-Identifier: Apache-2.0
//
// GridMesh: blocks of faces, and the tables of a description.

#include "samples/GridMesh.h"

#include <algorithm>

#include "embedded/base/shapes.h"
#include "embedded/base/zone_relations.h"

namespace velto::samples {

using base::MeshTables;
using base::ZoneRecord;

std::uint64_t GridFaceZone::size() const {
  std::uint64_t size = 0;
  for (const FaceBlock& block : blocks) {
    size += sizeOf(block.at);
  }
  return size;
}

int GridMesh::addFaces(const std::string& name, int type, const std::vector<FaceBlock>& blocks) {
  GridFaceZone zone;
  zone.name = name;
  zone.type = type;
  std::copy_if(blocks.begin(), blocks.end(), std::back_inserter(zone.blocks),
               [](const FaceBlock& block) { return sizeOf(block.at) > 0; });
  if (zone.blocks.empty()) {
    return 0;
  }
  faceZones.push_back(std::move(zone));
  return faceZoneId(faceZones.size() - 1);
}

void GridMesh::linkLastTwo() {
  const std::size_t last = faceZones.size() - 1;
  faceZones[last].shadow = last - 1;
  faceZones[last - 1].shadow = last;
}

// --- Blocks -------------------------------------------------------------------------------------

std::vector<FaceBlock> interiorOf(const Grid& grid, const Range& layers,
                                  std::optional<std::uint64_t> cut) {
  const Block cells = grid.cellsOf(layers);
  std::vector<FaceBlock> blocks(cut ? 2 : 1, {axisX, cells, Sides::both});
  blocks.front().at[axisX] = {layers.first + 1, cut.value_or(layers.last)};
  if (cut) {
    blocks.back().at[axisX] = {*cut + 1, layers.last};
  }
  for (std::size_t axis = axisY; axis < grid.dimension; ++axis) {
    blocks.push_back({static_cast<Axis>(axis), cells, Sides::both});
    blocks.back().at.at(axis) = {1, grid.cells.at(axis)};
  }
  return blocks;
}

FaceBlock planeAt(const Grid& grid, std::uint64_t line, Sides sides) {
  return {axisX, grid.cellsOf({line, line + 1}), sides};
}

FaceBlock endOf(const Grid& grid, const Range& layers, Axis axis, bool upper) {
  FaceBlock block = {axis, grid.cellsOf(layers), upper ? Sides::lowerOnly : Sides::upperOnly};
  const std::uint64_t line = upper ? grid.cells.at(axis) : 0;
  block.at.at(axis) = {line, line + 1};
  return block;
}

std::vector<FaceBlock> hullOf(const Grid& grid, const Range& layers) {
  std::vector<FaceBlock> blocks;
  for (std::size_t axis = axisY; axis < grid.dimension; ++axis) {
    for (const bool upper : {false, true}) {
      blocks.push_back(endOf(grid, layers, static_cast<Axis>(axis), upper));
    }
  }
  return blocks;
}

// --- Tables -------------------------------------------------------------------------------------

namespace {

/// The layers of the cells on one side of a zone's faces.
std::vector<Range> layersBeside(const GridFaceZone& zone, std::size_t side) {
  std::vector<Range> layers;
  for (const FaceBlock& block : zone.blocks) {
    Range beside = block.at[axisX];
    const bool isLower =
        block.sides == Sides::lowerOnly || (block.sides == Sides::both && side == 0);
    if (block.axis == axisX && isLower) {
      beside = {beside.first - 1, beside.last - 1};
    }
    layers.push_back(beside);
  }
  return layers;
}

void relateZone(const GridMesh& mesh, const GridFaceZone& zone, ZoneRecord& record) {
  for (std::size_t side = 0; side < (zone.isTwoSided() ? 2 : 1); ++side) {
    const std::vector<Range> beside = layersBeside(zone, side);
    for (std::size_t cells = 0; cells < mesh.cellZones.size(); ++cells) {
      const Range& layers = mesh.cellZones[cells].layers;
      const bool touches = std::any_of(beside.begin(), beside.end(), [&layers](const Range& range) {
        return range.first < layers.last && layers.first < range.last;
      });
      if (touches) {
        record.sideCellZones.at(side).push_back(mesh.cellZoneId(cells));
      }
    }
  }
}

}  // namespace

MeshTables tablesOf(const GridMesh& mesh) {
  MeshTables tables;
  const bool isPlane = mesh.grid.dimension == 2;
  tables.sizes[meshDimension] = mesh.grid.dimension;
  tables.units = "m";
  tables.addZone(zoneCategoryNode, GridMesh::kNodeZone, "nodes", mesh.grid.nodeCount());
  for (std::size_t i = 0; i < mesh.faceZones.size(); ++i) {
    const GridFaceZone& zone = mesh.faceZones[i];
    ZoneRecord& record =
        tables.addZone(zoneCategoryFace, mesh.faceZoneId(i), zone.name, zone.size());
    record.texts[zoneTypeName] = base::faceZoneTypeName(zone.type);
    record.faceInfo[faceZoneType] = zone.type;
    record.faceInfo[faceZoneFaceType] =
        isPlane ? base::faceShapeLine : base::faceShapeQuadrilateral;
    if (zone.shadow) {
      record.faceInfo[faceZoneShadow] = mesh.faceZoneId(*zone.shadow);
    }
    if (mesh.content.zoneRelations) {
      relateZone(mesh, zone, record);
    }
  }
  for (std::size_t i = 0; i < mesh.cellZones.size(); ++i) {
    const GridCellZone& zone = mesh.cellZones[i];
    tables
        .addZone(zoneCategoryCell, mesh.cellZoneId(i), zone.name,
                 sizeOf(mesh.grid.cellsOf(zone.layers)))
        .cellInfo[cellZoneCellType] =
        isPlane ? base::cellShapeQuadrilateral : base::cellShapeHexahedron;
  }
  base::deriveBoundingFaceZones(tables);
  return tables;
}

}  // namespace velto::samples
