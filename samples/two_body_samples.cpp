// SPDX-License-Identifier: Apache-2.0
//
// Samples of two bodies, which meet in one face zone or in a pair of them.

#include "embedded/base/shapes.h"
#include "samples/sample_parts.h"

namespace velto::samples {

namespace {

constexpr std::uint64_t kLeastLayers = 3;  // two of the fluid, before and behind the screen

}  // namespace

TwoBodies twoBodiesMesh(std::uint64_t cells) {
  TwoBodies bodies;
  GridMesh& mesh = bodies.mesh;
  mesh.grid = makeGrid(3, cells, kLeastLayers);
  bodies.cut = mesh.grid.cells[axisX] * 2 / 3;
  const Range fluid = {0, bodies.cut};
  const Range solid = {bodies.cut, mesh.grid.cells[axisX]};
  const std::uint64_t screen = bodies.cut / 2;
  bodies.fluidInterior =
      mesh.addFaces("fluid interior", faceZoneTypeInterior, interiorOf(mesh.grid, fluid, screen));
  bodies.screen =
      mesh.addFaces("screen", faceZoneTypeInterior, {planeAt(mesh.grid, screen, Sides::both)});
  bodies.solidInterior =
      mesh.addFaces("solid interior", faceZoneTypeInterior, interiorOf(mesh.grid, solid));
  bodies.inlet =
      mesh.addFaces("inlet", base::boundaryPatch, {endOf(mesh.grid, fluid, axisX, false)});
  bodies.fluidWalls = mesh.addFaces("fluid walls", base::boundaryWall, hullOf(mesh.grid, fluid));
  bodies.outlet =
      mesh.addFaces("outlet", base::boundaryPatch, {endOf(mesh.grid, solid, axisX, true)});
  bodies.solidWalls = mesh.addFaces("solid walls", base::boundaryWall, hullOf(mesh.grid, solid));
  mesh.cellZones = {{"fluid", fluid}, {"solid", solid}};
  return bodies;
}

Sample makeTwoBodies(std::uint64_t cells) {
  TwoBodies bodies = twoBodiesMesh(cells);
  bodies.mesh.addFaces("between", faceZoneType14,
                       {planeAt(bodies.mesh.grid, bodies.cut, Sides::both)});
  return restartSample(bodies.mesh);
}

Sample makeShadow(std::uint64_t cells) {
  TwoBodies bodies = twoBodiesMesh(cells);
  bodies.mesh.addFaces("fluid side", faceZoneType3,
                       {planeAt(bodies.mesh.grid, bodies.cut, Sides::lowerOnly)});
  bodies.mesh.addFaces("solid side", faceZoneType8,
                       {planeAt(bodies.mesh.grid, bodies.cut, Sides::upperOnly)});
  bodies.mesh.linkLastTwo();
  return restartSample(bodies.mesh);
}

}  // namespace velto::samples
