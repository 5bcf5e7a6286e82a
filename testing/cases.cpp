// SPDX-License-Identifier: Apache-2.0
//
// The named cases. Nodes of the unit cube and of the box of two, seen from the front:
//
//        8-----7            10----11----12
//       /|    /|            /|    /|    /|
//      4-----3 |           4-----5-----6 |        z up is the second layer of numbers,
//      | 5---|-6           | 7---|-8---|-9        y to the back, x to the right
//      |/    |/            |/    |/    |/
//      1-----2             1-----2-----3

#include "testing/cases.h"

#include "embedded/base/shapes.h"
#include "embedded/memory/CaseBuilder.h"
#include "testing/Row.h"

namespace velto::testing::cases {

namespace {

using base::boundaryPeriodic;
using base::boundaryPeriodicShadow;
using base::boundaryWall;
using base::cellShapeHexahedron;
using base::cellShapePolyhedron;
using base::cellShapeQuadrilateral;
using base::MeshKey;
using memory::CaseBuilder;
using memory::FaceLine;
using memory::Slice;

const Points& cubePoints() {
  static const Points kPoints = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                 {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
  return kPoints;
}

/// The faces of the unit cube: left, right, front, back, bottom, top.
std::vector<FaceLine> cubeFaces() {
  return {{{1, 5, 8, 4}, 1}, {{2, 3, 7, 6}, 1}, {{1, 2, 6, 5}, 1},
          {{4, 8, 7, 3}, 1}, {{1, 4, 3, 2}, 1}, {{5, 6, 7, 8}, 1}};
}

/// Leaves of a case only its post targets, whose faces know no cells beside them.
CasePtr asPost(CasePtr built) {
  built->tables.meshes.erase(MeshKey{});
  built->data.erase(MeshKey{});
  for (auto& mesh : built->data) {
    mesh.second.faceCell0 = {};
    mesh.second.faceCell1 = {};
  }
  return built;
}

}  // namespace

CasePtr oneHex() {
  return CaseBuilder()
      .units("m")
      .nodes(1, "points", cubePoints())
      .faces(2, "walls", boundaryWall, cubeFaces())
      .cells(3, "fluid", cellShapeHexahedron, 1)
      .build();
}

CasePtr twoHexes() {
  const Row row(2);
  return CaseBuilder()
      .units("m")
      .nodes(1, "points", row.points())
      .faces(2, "inside", faceZoneTypeInterior, {row.after(1)})
      .faces(3, "walls", boundaryWall, row.walls(1, 2))
      .cells(4, "fluid", cellShapeHexahedron, 2)
      .build();
}

CasePtr twoBodies() {
  const Row row(2);
  return CaseBuilder()
      .units("m")
      .nodes(1, "points", row.points())
      .faces(2, "between", faceZoneType14, {row.after(1)})
      .faces(3, "fluid walls", boundaryWall, row.walls(1, 1))
      .faces(4, "solid walls", boundaryWall, row.walls(2, 2))
      .cells(5, "fluid", cellShapeHexahedron, 1)
      .cells(6, "solid", cellShapeHexahedron, 1)
      .build();
}

CasePtr screenInFlow() {
  const Row row(3);
  return CaseBuilder()
      .units("m")
      .nodes(1, "points", row.points())
      .faces(2, "inside", faceZoneTypeInterior, {row.after(1)})
      .faces(3, "screen", faceZoneTypeInterior, {row.after(2)})
      .faces(4, "walls", boundaryWall, row.walls(1, 3))
      .cells(5, "fluid", cellShapeHexahedron, 3)
      .build();
}

CasePtr rowOfBodies(int count) {
  const auto bodies = static_cast<std::uint64_t>(count);
  const Row row(bodies);
  CaseBuilder builder;
  builder.units("m").nodes(1, "points", row.points());
  int zone = 1;
  for (std::uint64_t cell = 1; cell < bodies; ++cell) {
    builder.faces(++zone, "between " + std::to_string(cell), faceZoneType14, {row.after(cell)});
  }
  for (std::uint64_t cell = 1; cell <= bodies; ++cell) {
    const std::string body = " of " + std::to_string(cell);
    builder.faces(++zone, "bottom" + body, boundaryPeriodic, {row.bottom(cell)});
    builder.faces(++zone, "top" + body, boundaryPeriodicShadow, {row.top(cell)});
    builder.shadows(zone - 1, zone);
    builder.faces(++zone, "sides" + body, boundaryWall, row.sides(cell));
  }
  for (std::uint64_t cell = 1; cell <= bodies; ++cell) {
    builder.cells(++zone, "body " + std::to_string(cell), cellShapeHexahedron, 1);
  }
  return builder.build();
}

CasePtr quad2d() {
  return CaseBuilder(2)
      .units("m")
      .nodes(1, "points", {{0, 0}, {1, 0}, {2, 0}, {0, 1}, {1, 1}, {2, 1}})
      .faces(2, "inside", faceZoneTypeInterior, {{{2, 5}, 1, 2}})
      .faces(3, "rim", boundaryWall,
             {{{1, 2}, 1}, {{5, 4}, 1}, {{4, 1}, 1}, {{2, 3}, 2}, {{3, 6}, 2}, {{6, 5}, 2}})
      .cells(4, "sheet", cellShapeQuadrilateral, 2)
      .build();
}

CasePtr periodicPair() {
  const std::vector<FaceLine> faces = cubeFaces();
  return CaseBuilder()
      .units("m")
      .nodes(1, "points", cubePoints())
      .faces(2, "left", boundaryPeriodic, {faces[0]})
      .faces(3, "right", boundaryPeriodicShadow, {faces[1]})
      .faces(4, "walls", boundaryWall, {faces.begin() + 2, faces.end()})
      .cells(5, "fluid", cellShapeHexahedron, 1)
      .shadows(2, 3)
      .build();
}

CasePtr postHex() {
  return asPost(CaseBuilder()
                    .mesh(kPostMesh)
                    .units("m")
                    .nodes(1, "points", cubePoints())
                    .faces(2, "walls", boundaryWall, cubeFaces())
                    .cells(3, "fluid", cellShapeHexahedron, 1)
                    .cellNodes(3, {{1, 2, 3, 4, 5, 6, 7, 8}})
                    .build());
}

CasePtr postPolyhedron() {
  return asPost(CaseBuilder()
                    .mesh(kPostMesh)
                    .units("m")
                    .nodes(1, "points", cubePoints())
                    .faces(2, "walls", boundaryWall, cubeFaces())
                    .cells(3, "fluid", cellShapePolyhedron, 1)
                    .cellFaces(3, {{1, 2, 3, 4, 5, 6}})
                    .build());
}

CasePtr withResults() {
  CasePtr built =
      CaseBuilder()
          .units("m")
          .nodes(1, "points", cubePoints())
          .faces(2, "walls", boundaryWall, cubeFaces())
          .cells(3, "fluid", cellShapeHexahedron, 1)
          .phase(1, "water")
          .phase(2, "air")
          .variable(1, zoneCategoryNode, "temperature", 1, 1,
                    {280, 281, 282, 283, 284, 285, 286, 287})
          .variable(1, zoneCategoryNode, "velocity", 1, 3,
                    {1, 0, 0, 2, 0, 0, 3, 0, 0, 4, 0, 0, 5, 0, 0, 6, 0, 0, 7, 0, 0, 8, 0, 0})
          .variable(1, zoneCategoryCell, "pressure", 3, 1, {101325})
          .variable(2, zoneCategoryCell, "fraction", 3, 1, {0.25})
          .build();
  built->tables.phases[0].description = "liquid";
  built->tables.phases[0].attributes = {{"density", "998.2"}, {"kind", "fluid"}};
  built->tables.variables[0].description = "static temperature";
  built->tables.variables[0].attributes = {{"units", "K"}};
  return built;
}

CasePtr rowOfPartitions(int count) {
  CaseBuilder builder;
  for (int partition = 0; partition < count; ++partition) {
    Points points = cubePoints();
    for (std::vector<double>& point : points) {
      point[0] += partition;
    }
    builder.mesh({1, targetPartitionedPost, partition})
        .units("m")
        .nodes(1, "points", points)
        .faces(2, "walls", boundaryWall, cubeFaces())
        .cells(3, "fluid", cellShapeHexahedron, 1)
        .cellNodes(3, {{1, 2, 3, 4, 5, 6, 7, 8}});
  }
  CasePtr built = asPost(builder.build());
  for (auto& mesh : built->data) {
    memory::CellPartitionData& partitions = mesh.second.cellPartitions[3];
    partitions.info = count;
    partitions.partitions = Slice<int>(std::vector<int>{mesh.first.partition});
  }
  return built;
}

CasePtr withPartitions() { return rowOfPartitions(2); }

const std::vector<NamedCase>& all() {
  static const std::vector<NamedCase> kAll = {{"OneHex", oneHex},
                                              {"TwoHexes", twoHexes},
                                              {"TwoBodies", twoBodies},
                                              {"ScreenInFlow", screenInFlow},
                                              {"RowOfBodies", [] { return rowOfBodies(3); }},
                                              {"Quad2d", quad2d},
                                              {"PeriodicPair", periodicPair},
                                              {"PostHex", postHex},
                                              {"PostPolyhedron", postPolyhedron},
                                              {"WithResults", withResults},
                                              {"WithPartitions", withPartitions},
                                              {"WithPhysics", withPhysics}};
  return kAll;
}

}  // namespace velto::testing::cases
