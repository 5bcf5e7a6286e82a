// SPDX-License-Identifier: Apache-2.0
//
// What every sample has: version, solver type, and settings that follow from its zones.

#include "samples/sample_parts.h"

namespace velto::samples {

using base::CaseTables;
using base::MeshKey;
using base::MeshTables;
using base::ZoneRecord;

Sample emptySample() {
  Sample sample;
  sample.tables.solverType = "VELTO_GENERIC";
  sample.tables.applicationName = "orv sample";
  sample.tables.version = base::ownVersion();
  return sample;
}

void addMesh(Sample& sample, const MeshKey& key, const GridMesh& mesh) {
  sample.tables.meshes[key] = tablesOf(mesh);
  sample.arrays[key] = arraysOf(mesh);
}

Sample restartSample(const GridMesh& mesh) {
  Sample sample = emptySample();
  addMesh(sample, {}, mesh);
  describePhysics(sample.tables, sample.tables.meshes.at({}));
  return sample;
}

void describePhysics(CaseTables& tables, const MeshTables& mesh) {
  base::Settings& settings = tables.defaultSettings();
  for (const int zone : mesh.idsOf(zoneCategoryCell)) {
    const std::string name = *mesh.zones.at(zone).texts[zoneName];
    settings.set("domains/" + name + "/location", name);
  }
  for (const int zone : mesh.idsOf(zoneCategoryFace)) {
    const ZoneRecord& record = mesh.zones.at(zone);
    if (record.sideCellZones[0].size() == 1 && record.sideCellZones[1].empty()) {
      const std::string name = *record.texts[zoneName];
      const ZoneRecord& cells = mesh.zones.at(record.sideCellZones[0].front());
      settings.set("boundaries/" + name + "/location", name);
      settings.set("boundaries/" + name + "/domain", *cells.texts[zoneName]);
    }
  }
}

std::uint64_t cellCount(const CaseTables& tables) {
  std::uint64_t count = 0;
  for (const auto& mesh : tables.meshes) {
    count += mesh.second.size(meshCellCount);
  }
  return count;
}

}  // namespace velto::samples
