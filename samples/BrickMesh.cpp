// SPDX-License-Identifier: Apache-2.0
//
// BrickMesh: its dimensions, its tables, and the sample that it makes.

#include "samples/BrickMesh.h"

#include <array>

#include "embedded/base/shapes.h"
#include "samples/Grid.h"
#include "samples/sample_parts.h"

namespace velto::samples {

std::uint64_t BrickMesh::facesOf(int zone) const {
  switch (zone) {
    case inside:
      return innerX() + innerY() + innerZ();
    case xMin:
    case xMax:
      return rows * layers;
    case yMin:
    case yMax:
      return halves() * layers;
    default:
      return cellsPerLayer();
  }
}

short BrickMesh::nodesOfEachFace(int zone) const {
  const short fronts = oddRows() > 0 ? 0 : 6;
  if (zone >= zMin) {
    return fronts;
  }
  if (zone != inside || innerZ() == 0) {
    return 4;
  }
  return innerX() + innerY() == 0 ? fronts : short{0};
}

BrickMesh makeBricks(std::uint64_t cells) {
  BrickMesh mesh;
  // Rows and bricks as of a cube; the layers make up for the half bricks.
  const Index edges = nearCube(static_cast<double>(cells), 3, 1);
  mesh.rows = edges[axisX];
  mesh.bricks = edges[axisY];
  const auto perLayer = static_cast<double>(mesh.cellsPerLayer());
  mesh.layers = nearCube(static_cast<double>(cells) / perLayer, 1, 1)[axisX];
  return mesh;
}

base::MeshTables tablesOf(const BrickMesh& mesh) {
  struct Side {
    const char* name;
    int type;
  };
  static const std::array<Side, BrickMesh::zoneCount> kSides = {{{"joints", faceZoneTypeInterior},
                                                                 {"left end", base::boundaryWall},
                                                                 {"right end", base::boundaryWall},
                                                                 {"foot", base::boundaryWall},
                                                                 {"crown", base::boundaryWall},
                                                                 {"back", base::boundaryPatch},
                                                                 {"front", base::boundaryPatch}}};

  base::MeshTables tables;
  tables.sizes[meshDimension] = 3;
  tables.units = "m";
  tables.addZone(zoneCategoryNode, BrickMesh::kNodeZone, "nodes", mesh.nodeCount());
  for (int zone = 0; zone < BrickMesh::zoneCount; ++zone) {
    const std::uint64_t faces = mesh.facesOf(zone);
    if (faces == 0) {
      continue;
    }
    const Side& side = kSides.at(static_cast<std::size_t>(zone));
    base::ZoneRecord& record =
        tables.addZone(zoneCategoryFace, BrickMesh::kFirstFaceZone + zone, side.name, faces);
    const short nodes = mesh.nodesOfEachFace(zone);
    record.texts[zoneTypeName] = base::faceZoneTypeName(side.type);
    record.faceInfo[faceZoneType] = side.type;
    record.faceInfo[faceZoneFaceType] =
        nodes == 0 ? base::faceShapeMixed : base::faceShapeOf(static_cast<std::uint64_t>(nodes));
  }
  tables.addZone(zoneCategoryCell, BrickMesh::kCellZone, "bricks", mesh.cellCount())
      .cellInfo[cellZoneCellType] = base::cellShapePolyhedron;
  return tables;
}

Sample makePolyhedra(std::uint64_t cells) {
  const BrickMesh mesh = makeBricks(cells);
  const base::MeshKey key = {1, targetPost, -1};
  Sample sample = emptySample();
  sample.tables.meshes[key] = tablesOf(mesh);
  sample.arrays[key] = arraysOf(mesh);
  return sample;
}

}  // namespace velto::samples
