// SPDX-License-Identifier: Apache-2.0
//
// make-models: writes small cases with location models that no sample has, for the tests of orv.

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "embedded/memory/CaseBuilder.h"
#include "embedded/memory/LocationModelWriter.h"
#include "embedded/memory/MemoryProvider.h"
#include "embedded/store/save_case.h"

namespace velto {
namespace {

using base::boundaryWall;
using base::cellShapeHexahedron;
using memory::CaseBuilder;
using memory::FaceLine;
using memory::LocationModelWriter;

void save(const std::shared_ptr<memory::Case>& made, const std::string& file) {
  store::saveCase(made->tables, memory::arraysOf(made), file, 0);
}

/// Cells without a shape to speak of, each a zone; zone 2 lies between the first two.
CaseBuilder cells(const std::string& name1, const std::string& name2, const std::string& between) {
  return CaseBuilder()
      .nodes(1, "nodes", {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}})
      .faces(2, between, faceZoneTypeInterior, {{{1, 2, 3, 4}, 1, 2}})
      .faces(3, "walls", boundaryWall, {{{1, 2, 3, 4}, 1}})
      .cells(4, name1, cellShapeHexahedron, 1)
      .cells(5, name2, cellShapeHexahedron, 1);
}

std::shared_ptr<memory::Case> oddNames() {
  auto made = cells("line\nbreak", "", "<b>&amp;\\N").build();
  LocationModelWriter model;
  model.part("a \"quoted\" part");
  const int first = model.body("\x1b[31mred", {4});
  const int second = model.body("one, two", {5});
  const int face = model.face("-");
  model.use(first, face, 0, {2}, "\xc3\xa9t\xc3\xa9 \xff \xe2\x80\xae");
  model.use(second, face, 1, {-2}, "");
  model.composite({"(both)", {first, second}, {face}, {}});
  made->tables.locationModel = model.take();
  return made;
}

/// Composites that name what is not there, one object of each kind without zones in mesh 1, faces
/// that nobody uses, and two parts.
std::shared_ptr<memory::Case> broken() {
  auto made = cells("left", "right", "between").build();
  LocationModelWriter model;
  model.part("first");
  const int left = model.body("left", {4, 77, 3});
  const int elsewhere = model.body("elsewhere", {4}, 2);
  const int empty = model.body("empty", {});
  const int walls = model.face("walls");
  const int use = model.use(left, walls, 1, {-2, 3, 88, 4}, "twice");
  const int back = model.face("back");
  model.use(elsewhere, back, 0, {}, "twice");
  model.face("unused");
  model.part("second");
  const int other = model.body("other", {5});
  model.composite({"missing", {901}, {902}, {903}});
  model.composite({"of both parts", {left, empty, other}, {walls}, {use}});
  model.composite({"nothing", {}, {}, {}});
  made->tables.locationModel = model.take();
  return made;
}

/// 1,000 bodies in a row, each with 9 walls.
std::shared_ptr<memory::Case> many() {
  constexpr int kCells = 1000;
  constexpr int kWalls = 9;
  CaseBuilder builder;
  builder.nodes(1, "nodes", {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}});
  int zone = 1;
  for (std::uint64_t cell = 1; cell <= kCells; ++cell) {
    for (int wall = 0; wall < kWalls; ++wall) {
      ++zone;
      builder.faces(zone, "wall " + std::to_string(zone), boundaryWall,
                    {FaceLine{{1, 2, 3, 4}, cell}});
    }
    if (cell < kCells) {
      ++zone;
      builder.faces(zone, "between " + std::to_string(zone), faceZoneTypeInterior,
                    {FaceLine{{1, 2, 3, 4}, cell, cell + 1}});
    }
  }
  for (int cell = 1; cell <= kCells; ++cell) {
    ++zone;
    builder.cells(zone, "cell " + std::to_string(cell), cellShapeHexahedron, 1);
  }
  return builder.build();
}

/// Nine bodies in a row, with one face zone between all of them and one around all of them.
std::shared_ptr<memory::Case> sharedZones() {
  constexpr int kCells = 9;
  std::vector<FaceLine> between;
  std::vector<FaceLine> walls;
  for (std::uint64_t cell = 1; cell <= kCells; ++cell) {
    walls.push_back({{1, 2, 3, 4}, cell});
    if (cell < kCells) {
      between.push_back({{1, 2, 3, 4}, cell, cell + 1});
    }
  }
  CaseBuilder builder;
  builder.nodes(1, "nodes", {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}})
      .faces(2, "between", faceZoneTypeInterior, between)
      .faces(3, "walls", boundaryWall, walls);
  for (int cell = 1; cell <= kCells; ++cell) {
    builder.cells(3 + cell, "cell " + std::to_string(cell), cellShapeHexahedron, 1);
  }
  return builder.build();
}

/// The file's model has no parts.
std::shared_ptr<memory::Case> withoutParts() {
  auto made = cells("left", "right", "between").build();
  made->tables.locationModel = std::make_shared<const OrvLocationModel>();
  return made;
}

/// Mesh 1 is a post mesh, mesh 2 a restart mesh of other zones.
std::shared_ptr<memory::Case> twoMeshes() {
  const auto cube = [](CaseBuilder& builder, const std::string& name) {
    builder.nodes(1, "nodes", {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}})
        .faces(2, "walls", boundaryWall, {{{1, 2, 3, 4}, 1}})
        .cells(3, name, cellShapeHexahedron, 1);
  };
  auto builder = CaseBuilder();
  builder.mesh({1, targetPost, -1});
  cube(builder, "shown");
  builder.mesh({2, targetRestart, -1});
  cube(builder, "solved");
  auto made = builder.build();
  made->tables.meshes.erase(base::MeshKey());
  made->data.erase(base::MeshKey());
  return made;
}

std::shared_ptr<memory::Case> withoutMeshes() {
  auto made = std::make_shared<memory::Case>();
  made->tables.solverType = "VELTO_GENERIC";
  made->tables.version = base::ownVersion();
  return made;
}

void writeAll(const std::string& folder) {
  save(oddNames(), folder + "/odd-names.orv");
  save(broken(), folder + "/broken.orv");
  save(many(), folder + "/many.orv");
  save(sharedZones(), folder + "/shared-zones.orv");
  save(withoutParts(), folder + "/without-parts.orv");
  save(cells("same", "same", "between").build(), folder + "/same-names.orv");
  save(twoMeshes(), folder + "/two-meshes.orv");
  save(withoutMeshes(), folder + "/without-meshes.orv");
}

}  // namespace
}  // namespace velto

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make-models FOLDER\n";
    return 2;
  }
  try {
    velto::writeAll(argv[1]);
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
  return 0;
}
