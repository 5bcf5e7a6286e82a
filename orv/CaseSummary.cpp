// SPDX-License-Identifier: Apache-2.0
//
// CaseSummary: the queries of the contract, mesh by mesh.

#include "orv/CaseSummary.h"

#include "data_access/OrvFileProvider.h"
#include "data_access/OrvLocationModel.h"

namespace velto::orv {

namespace {

ZoneSummary zoneOf(OrvProvider& provider, OrvZoneCategory category, int id) {
  ZoneSummary zone;
  zone.id = id;
  zone.category = category;
  provider.getZoneStringInfo(id, zoneName, zone.name);
  provider.getZoneStringInfo(id, zoneTypeName, zone.typeName);
  provider.getZoneSizeInfo(id, zoneFirstId, zone.first);
  provider.getZoneSizeInfo(id, zoneLastId, zone.last);
  provider.getZoneSizeInfo(id, zoneElementCount, zone.count);
  if (category == zoneCategoryFace) {
    provider.getFaceZoneInfo(id, faceZoneType, zone.type);
    provider.getFaceZoneInfo(id, faceZoneFaceType, zone.shape);
    provider.getFaceZoneInfo(id, faceZoneShadow, zone.shadow);
    provider.getFaceCellZone0Ids(id, zone.side0);
    provider.getFaceCellZone1Ids(id, zone.side1);
  } else if (category == zoneCategoryCell) {
    provider.getCellZoneInfo(id, cellZoneCellType, zone.shape);
  }
  return zone;
}

void addVariables(OrvProvider& provider, MeshSummary& mesh) {
  std::vector<short> phases;
  provider.getPhaseIds(phases);
  for (const short phase : phases) {
    std::string phaseName;
    provider.getPhaseName(phase, phaseName);
    provider.beginPhase(phase);
    for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
      std::vector<std::string> names;
      provider.getVariableNames(category, names);
      for (const std::string& name : names) {
        VariableSummary variable{phaseName, category, name, 0, {}};
        variable.valuesPerEntity = provider.beginVariable(category, name, variable.zones);
        provider.endVariable();
        mesh.variables.push_back(std::move(variable));
      }
    }
    provider.endPhase();
  }
}

MeshSummary meshAt(OrvProvider& provider, const Selection& at) {
  MeshSummary summary;
  summary.at = at;
  select(provider, at);
  provider.getMeshSize(meshDimension, summary.dimension);
  provider.getMeshSize(meshNodeCount, summary.nodes);
  provider.getMeshSize(meshFaceCount, summary.faces);
  provider.getMeshSize(meshCellCount, summary.cells);
  provider.getMeshUnits(summary.units);
  for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
    std::vector<int> ids;
    provider.getZoneIds(category, ids);
    for (const int id : ids) {
      summary.zones.push_back(zoneOf(provider, category, id));
    }
  }
  addVariables(provider, summary);
  return summary;
}

}  // namespace

CaseSummary summarise(const std::string& file, OrvFileProvider& provider) {
  CaseSummary summary;
  summary.file = file;
  summary.solverType = provider.getSolverType();
  provider.getFileVersion(dataClassCase, summary.major, summary.minor, summary.patch);
  if (const OrvLocationModel* model = provider.getLocationModel()) {
    std::vector<int> parts;
    model->getParts(parts);
    summary.hasLocationModel = !parts.empty();
  }
  std::vector<int> meshes;
  provider.getMeshIds(meshes, dataClassCase);
  for (const int mesh : meshes) {
    std::vector<int> targets;
    std::vector<int> partitions;
    provider.getTargets(targets, mesh, dataClassCase);
    provider.getPartitionIds(partitions, mesh, dataClassCase);
    if (partitions.empty()) {
      partitions.push_back(-1);
    }
    for (const int target : targets) {
      for (const int partition : partitions) {
        summary.meshes.push_back(meshAt(provider, {mesh, target, partition}));
      }
    }
  }
  std::vector<short> phases;
  provider.getPhaseIds(phases);
  for (const short phase : phases) {
    std::string name;
    provider.getPhaseName(phase, name);
    summary.phases.push_back(name);
  }
  std::vector<std::string> keys;
  provider.getSettingsKeys(dataClassCase, keys);
  for (const std::string& key : keys) {
    std::string value;
    provider.getSettingsValue(dataClassCase, key, value, OrvBase::_defaultSettingsPath);
    summary.settings.emplace_back(key, value);
  }
  return summary;
}

}  // namespace velto::orv
