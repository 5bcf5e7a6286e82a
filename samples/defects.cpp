// SPDX-License-Identifier: Apache-2.0
//
// The list of defects, and the way from a sample to a damaged case.

#include "samples/defects.h"

#include <algorithm>
#include <stdexcept>

#include "embedded/memory/MemoryProvider.h"
#include "embedded/memory/load_case.h"
#include "samples/defect_lists.h"
#include "samples/samples.h"

namespace velto::samples {

const std::vector<Defect>& defects() {
  static const std::vector<Defect> kDefects = [] {
    std::vector<Defect> all;
    for (const auto* list :
         {&defectsOfFiles(), &defectsOfRelations(), &defectsOfZones(), &defectsOfFaceZones(),
          &defectsOfConnectivity(), &defectsOfModels(), &defectsOfPhysics()}) {
      all.insert(all.end(), list->begin(), list->end());
    }
    return all;
  }();
  return kDefects;
}

const Defect* findDefect(const std::string& name) {
  const auto found = std::find_if(defects().begin(), defects().end(),
                                  [&name](const Defect& defect) { return defect.name == name; });
  return found == defects().end() ? nullptr : &*found;
}

std::shared_ptr<memory::Case> makeDefect(const Defect& defect, std::uint64_t cells) {
  const Sample sample = findSample(defect.sample)->make(cells);
  auto damaged = memory::loadCase(sample.tables, sample.arrays);
  defect.damage(*damaged);
  return damaged;
}

Sample makeDamagedSample(const Defect& defect, std::uint64_t cells) {
  const auto damaged = makeDefect(defect, cells);
  return {damaged->tables, memory::arraysOf(damaged)};
}

base::MeshTables& onlyMesh(memory::Case& damaged) { return damaged.tables.meshes.begin()->second; }

memory::MeshData& onlyArrays(memory::Case& damaged) { return damaged.data.begin()->second; }

void dropZones(memory::Case& damaged, OrvZoneCategory category) {
  base::MeshTables& mesh = onlyMesh(damaged);
  memory::MeshData& arrays = onlyArrays(damaged);
  for (const int zone : mesh.idsOf(category)) {
    mesh.zones.erase(zone);
    arrays.nodeCoordinates.remove(zone);
    arrays.faceNodes.remove(zone);
    arrays.cellNodes.remove(zone);
    arrays.cellTypes.remove(zone);
  }
  mesh.zoneIds[category].clear();
}

int zoneNamed(const base::MeshTables& mesh, const std::string& name) {
  for (const auto& zone : mesh.zones) {
    if (zone.second.texts[zoneName] == name) {
      return zone.first;
    }
  }
  throw std::logic_error("no zone is named " + name);
}

base::ZoneRecord& recordOf(memory::Case& damaged, const std::string& name) {
  base::MeshTables& mesh = onlyMesh(damaged);
  return mesh.zones.at(zoneNamed(mesh, name));
}

}  // namespace velto::samples
