// SPDX-License-Identifier: Apache-2.0
//
// Samples of one body of fluid: boxes and squares in every form a mesh can have.

#include "embedded/base/shapes.h"
#include "samples/sample_parts.h"

namespace velto::samples {

namespace {

constexpr std::uint64_t kPartitions = 4;

/// The ends of the box with their names and types.
struct End {
  const char* name;
  int type;
  Axis axis;
  bool upper;
};

const std::vector<End>& ends() {
  static const std::vector<End> kEnds = {{"inlet", base::boundaryPatch, axisX, false},
                                         {"outlet", base::boundaryPatch, axisX, true},
                                         {"bottom", base::boundaryWall, axisY, false},
                                         {"top", base::boundaryWall, axisY, true},
                                         {"front", base::boundarySymmetry, axisZ, false},
                                         {"back", base::boundarySymmetry, axisZ, true}};
  return kEnds;
}

Range allLayers(const Grid& grid) { return {0, grid.cells[axisX]}; }

void addEnds(GridMesh& mesh) {
  for (const End& end : ends()) {
    if (end.axis < mesh.grid.dimension) {
      mesh.addFaces(end.name, end.type,
                    {endOf(mesh.grid, allLayers(mesh.grid), end.axis, end.upper)});
    }
  }
}

/// What a viewer needs: cells with their nodes, and faces on the boundary alone.
constexpr GridContent kPostContent = {true, false, false};

}  // namespace

GridMesh boxMesh(unsigned dimension, std::uint64_t cells) {
  GridMesh mesh;
  mesh.grid = makeGrid(dimension, cells, 1);
  mesh.addFaces("interior", faceZoneTypeInterior, interiorOf(mesh.grid, allLayers(mesh.grid)));
  addEnds(mesh);
  mesh.cellZones = {{"fluid", allLayers(mesh.grid)}};
  return mesh;
}

Sample makeBox(std::uint64_t cells) { return restartSample(boxMesh(3, cells)); }

Sample makePlane(std::uint64_t cells) { return restartSample(boxMesh(2, cells)); }

Sample makeBoxCells(std::uint64_t cells) {
  GridMesh mesh = boxMesh(3, cells);
  mesh.content.cellNodes = true;
  return restartSample(mesh);
}

Sample makePost(std::uint64_t cells) {
  GridMesh mesh;
  mesh.content = kPostContent;
  mesh.grid = makeGrid(3, cells, 1);
  addEnds(mesh);
  mesh.cellZones = {{"fluid", allLayers(mesh.grid)}};
  Sample sample = emptySample();
  addMesh(sample, {1, targetPost, -1}, mesh);
  return sample;
}

Sample makePeriodic(std::uint64_t cells) {
  GridMesh mesh;
  mesh.grid = makeGrid(3, cells, 1);
  const Range layers = allLayers(mesh.grid);
  mesh.addFaces("interior", faceZoneTypeInterior, interiorOf(mesh.grid, layers));
  mesh.addFaces("left", base::boundaryPeriodic, {endOf(mesh.grid, layers, axisX, false)});
  mesh.addFaces("right", base::boundaryPeriodicShadow, {endOf(mesh.grid, layers, axisX, true)});
  mesh.linkLastTwo();
  mesh.addFaces("walls", base::boundaryWall, hullOf(mesh.grid, layers));
  mesh.cellZones = {{"fluid", layers}};
  return restartSample(mesh);
}

Sample makePartitions(std::uint64_t cells) {
  const Grid whole = makeGrid(3, cells, kPartitions);
  Sample sample = emptySample();
  for (std::uint64_t part = 0; part < kPartitions; ++part) {
    const std::uint64_t layers = whole.cells[axisX];
    const auto number = static_cast<int>(part);
    GridMesh mesh;
    mesh.content = kPostContent;
    mesh.grid = whole.slab({layers * part / kPartitions, layers * (part + 1) / kPartitions});
    mesh.partition = {number, static_cast<int>(kPartitions)};
    for (const bool upper : {false, true}) {
      const bool isCut = part != (upper ? kPartitions - 1 : 0);
      const std::string neighbour = std::to_string(upper ? number + 1 : number - 1);
      const std::string name = isCut ? "to partition " + neighbour : ends().at(upper ? 1 : 0).name;
      mesh.addFaces(name, isCut ? base::boundaryProcessor : base::boundaryPatch,
                    {endOf(mesh.grid, allLayers(mesh.grid), axisX, upper)});
    }
    mesh.addFaces("walls", base::boundaryWall, hullOf(mesh.grid, allLayers(mesh.grid)));
    mesh.cellZones = {{"fluid", allLayers(mesh.grid)}};
    addMesh(sample, {1, targetPartitionedPost, number}, mesh);
  }
  return sample;
}

// --- Results ------------------------------------------------------------------------------------

namespace {

constexpr short kWater = 1;
constexpr short kAir = 2;

/// A channel flow: pressure falls towards the outlet, velocity grows with height, air collects at
/// the top.
std::vector<LinearField> channelFlow() {
  const LinearField::Component along = {0.0, {0.0, 1.5, 0.0}};
  const LinearField::Component still = {};
  std::vector<LinearField> fields;
  const auto add = [&fields](short phase, OrvZoneCategory category, const char* name,
                             const std::vector<LinearField::Component>& components) {
    fields.push_back({{phase, category, name}, components});
  };
  add(kWater, zoneCategoryNode, "temperature", {{290.0, {10.0, 0.0, 2.5}}});
  add(kWater, zoneCategoryNode, "velocity", {along, still, still});
  add(kWater, zoneCategoryFace, "wall shear stress", {{0.25, {-0.125, 0.0, 0.0}}});
  add(kWater, zoneCategoryCell, "pressure", {{101325.0, {-50.0, 0.0, 0.0}}});
  add(kWater, zoneCategoryCell, "fraction", {{1.0, {0.0, -0.5, 0.0}}});
  add(kAir, zoneCategoryNode, "velocity", {along, still, {0.0, {0.25, 0.0, 0.0}}});
  add(kAir, zoneCategoryCell, "fraction", {{0.0, {0.0, 0.5, 0.0}}});
  return fields;
}

void describeVariable(base::CaseTables& tables, const char* name, const char* description,
                      const char* units) {
  base::Variable* variable = tables.findVariable(tables.addVariable(name));
  variable->description = description;
  variable->attributes = {{"units", units}};
}

}  // namespace

Sample makeResults(std::uint64_t cells) {
  GridMesh mesh = boxMesh(3, cells);
  mesh.fields = channelFlow();
  Sample sample = restartSample(mesh);
  base::CaseTables& tables = sample.tables;
  tables.phases = {
      {kWater, "water", "liquid water", {{"kind", "liquid"}, {"density", "998.2"}}},
      {kAir, "air", "air, as bubbles in the water", {{"kind", "gas"}, {"density", "1.204"}}}};
  describeVariable(tables, "temperature", "static temperature", "K");
  describeVariable(tables, "velocity", "velocity of the phase", "m/s");
  describeVariable(tables, "wall shear stress", "stress of the flow on the boundary", "Pa");
  describeVariable(tables, "pressure", "static pressure", "Pa");
  describeVariable(tables, "fraction", "share of the volume that the phase takes", "1");
  return sample;
}

}  // namespace velto::samples
