// SPDX-License-Identifier: Apache-2.0
//
// A polyMesh of one hexahedron, one wedge and one pyramid.

#ifndef VELTO_TESTS_FORMATS_OPENFOAM_SHAPES_MESH_H
#define VELTO_TESTS_FORMATS_OPENFOAM_SHAPES_MESH_H

#include <cstdint>
#include <vector>

#include "testing/PolyMeshWriter.h"

namespace velto::testing {

/// A wedge on a hexahedron's side, and a pyramid on top of the hexahedron.
inline BoxMesh shapesMesh() {
  BoxMesh mesh;
  mesh.points = {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0,   1,   1, 0,
                 1, 1, 1, 1, 0, 1, 1, 2, 0, 0, 2, 1, 0, 0.5, 0.5, 2};
  const std::vector<std::vector<std::int64_t>> faces = {
      {1, 2, 6, 5}, {4, 5, 6, 7},                              // hexahedron to wedge, pyramid
      {0, 3, 2, 1}, {0, 1, 5, 4}, {3, 7, 6, 2}, {0, 4, 7, 3},  // hexahedron
      {1, 8, 5},    {2, 6, 9},    {1, 2, 9, 8}, {8, 9, 6, 5},  // wedge
      {4, 5, 10},   {5, 6, 10},   {6, 7, 10},   {7, 4, 10}};   // pyramid
  mesh.owner = {0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2};
  mesh.neighbour = {1, 2};
  mesh.cellCount = 3;
  mesh.faceOffsets = {0};
  for (const auto& face : faces) {
    mesh.faceNodes.insert(mesh.faceNodes.end(), face.begin(), face.end());
    mesh.faceOffsets.push_back(static_cast<std::int64_t>(mesh.faceNodes.size()));
  }
  mesh.patches = {{"walls", "wall", 12, 2, {}}};
  return mesh;
}

}  // namespace velto::testing

#endif  // VELTO_TESTS_FORMATS_OPENFOAM_SHAPES_MESH_H
