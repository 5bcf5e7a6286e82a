// SPDX-License-Identifier: Apache-2.0
//
// Named cases, put together.

#include "tests/store/rich_cases.h"

#include "embedded/base/OrvLocationModelState.h"

namespace velto::testing {

namespace {

using base::MeshKey;

/// Adds a mesh of another case.
void addMesh(memory::Case& target, const memory::Case& source, const MeshKey& from,
             const MeshKey& to) {
  target.mesh(to) = source.tables.meshes.at(from);
  target.arrays(to) = source.data.at(from);
}

/// Two bodies with a face between them, and a composite of all.
std::shared_ptr<const OrvLocationModel> locationModel() {
  OrvLocationModel model;
  int part = 0;
  int face = 0;
  int use = 0;
  std::array<int, 2> bodies{};
  model.createPart(3, "part", part);
  model.createBody(part, "fluid", bodies[0]);
  model.createBody(part, "solid", bodies[1]);
  model.setBodyZones(bodies[0], 1, {3});
  model.createFace(part, "between", face);
  model.createFaceUse(bodies[0], face, 0, use);
  model.setFaceUseName(use, "wetted");
  model.setFaceUseZoneSides(use, 1, {2});
  OrvLocationModel::State::of(model).addComposite(part, {"all", {bodies[0]}, {face}, {use}});
  return OrvLocationModel::State::copy(model);
}

void addRest(memory::Case& target) {
  target.setSetting("VELTO_GENERIC/domains/air/location", "fluid");
  target.setSetting("Time", "now");
  target.tables.locationModel = locationModel();
}

}  // namespace

cases::CasePtr richCase() {
  cases::CasePtr rich = cases::withResults();
  const cases::CasePtr partitions = cases::withPartitions();
  addMesh(*rich, *cases::postPolyhedron(), cases::kPostMesh, cases::kPostMesh);
  const MeshKey partition = partitions->data.begin()->first;
  addMesh(*rich, *partitions, partition, partition);
  addMesh(*rich, *cases::periodicPair(), {}, {2, targetRestart, -1});
  rich->arrays().treeParentZones = {2};
  rich->arrays().treeChildZones = {2};
  addRest(*rich);
  return rich;
}

cases::CasePtr longCase() {
  cases::CasePtr made = cases::rowOfBodies(60);
  const cases::CasePtr results = cases::withResults();
  const int nodes = made->mesh().idsOf(zoneCategoryNode).front();
  std::vector<double> values;
  for (std::uint64_t i = 0; i < 3 * made->mesh().zoneSize(nodes, zoneElementCount); ++i) {
    values.push_back(273.15 + static_cast<double>(i));
  }
  memory::VariableData& velocity = made->arrays().variable({1, zoneCategoryNode, "velocity"});
  velocity.valuesPerEntity = 3;
  velocity.zones[nodes] = memory::Slice<double>(values);
  made->tables.phases = results->tables.phases;
  made->tables.variables = results->tables.variables;
  addRest(*made);
  return made;
}

}  // namespace velto::testing
