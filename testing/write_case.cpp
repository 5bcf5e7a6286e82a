// SPDX-License-Identifier: Apache-2.0
//
// writeCase: tables by the setters, then nodes, cells and faces, then the results.

#include "testing/write_case.h"

#include <vector>

namespace velto::testing {

namespace {

using base::MeshKey;
using base::MeshTables;
using base::ZoneRecord;
using memory::CountedData;
using memory::MeshData;
using memory::ZoneList;

void select(OrvFileConsumer& consumer, const MeshKey& key) {
  consumer.setMeshId(key.mesh);
  consumer.setTarget(key.target);
  consumer.setPartitionId(key.partition);
}

// --- Tables -------------------------------------------------------------------------------------

void writeMeshTables(const MeshTables& mesh, OrvFileConsumer& consumer) {
  for (std::size_t key = 0; key < mesh.sizes.size(); ++key) {
    if (mesh.sizes[key]) {
      consumer.setMeshSize(static_cast<OrvMeshSizeType>(key), *mesh.sizes[key]);
    }
  }
  if (mesh.units) {
    consumer.setMeshUnits(*mesh.units);
  }
  consumer.writeMeshAttributes();
}

void writeZone(int id, const ZoneRecord& zone, OrvFileConsumer& consumer) {
  for (const OrvZoneSizeType key : {zoneFirstId, zoneLastId, zoneDimension}) {
    if (zone.sizes[key]) {
      consumer.setZoneSizeInfo(id, key, *zone.sizes[key]);
    }
  }
  for (std::size_t key = 0; key < zone.texts.size(); ++key) {
    if (zone.texts[key]) {
      consumer.setZoneStringInfo(id, static_cast<OrvZoneStringInfoType>(key), *zone.texts[key]);
    }
  }
  for (std::size_t key = 0; key < zone.faceInfo.size(); ++key) {
    if (zone.faceInfo[key]) {
      consumer.setFaceZoneInfo(id, static_cast<OrvFaceZoneInfoType>(key), *zone.faceInfo[key]);
    }
  }
  for (std::size_t key = 0; key < zone.cellInfo.size(); ++key) {
    if (zone.cellInfo[key]) {
      consumer.setCellZoneInfo(id, static_cast<OrvCellZoneInfoType>(key), *zone.cellInfo[key]);
    }
  }
}

void writeZones(const MeshTables& mesh, OrvFileConsumer& consumer) {
  for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
    consumer.setZoneIds(category, mesh.idsOf(category));
    for (const int id : mesh.idsOf(category)) {
      writeZone(id, mesh.zones.at(id), consumer);
    }
  }
}

// --- Arrays -------------------------------------------------------------------------------------

using Ids = std::vector<std::uint64_t>;

/// In 64 bits, as the contract has them.
Ids idsOf(const memory::Slice<std::uint64_t>& ids) { return {ids.begin(), ids.end()}; }

void writeNodes(const MeshData& data, OrvFileConsumer& consumer) {
  const std::vector<int>& zones = data.nodeCoordinates.zones();
  consumer.beginNodes(zones);
  for (const int zone : data.elementIds.zones()) {
    const Ids ids = idsOf(*data.elementIds.find(zone));
    consumer.writeElemIds(zone, ids.data(), ids.size());
  }
  consumer.beginNodeCoordinates(zones);
  for (const int zone : zones) {
    const auto& values = *data.nodeCoordinates.find(zone);
    consumer.writeNodeCoordinates(zone, values.data(), values.size());
  }
  consumer.endNodeCoordinates();
  consumer.endNodes();
}

void writeCellTypes(const MeshData& data, OrvFileConsumer& consumer) {
  std::vector<int> uniform;
  for (const int zone : data.cellTypes.zones()) {
    uniform.push_back(data.cellTypes.find(zone)->uniform.value_or(0));
  }
  consumer.beginCellTypes(data.cellTypes.zones(), uniform);
  for (const int zone : data.cellTypes.zones()) {
    const auto& types = data.cellTypes.find(zone)->types;
    if (!data.cellTypes.find(zone)->uniform) {
      consumer.writeCellTypes(zone, types.data(), types.size());
    }
  }
  consumer.endCellTypes();
}

void writeCellNodes(const ZoneList<CountedData>& list, OrvFileConsumer& consumer) {
  consumer.beginCellNodes(list.zones());
  consumer.beginCellNodeCounts();
  for (const int zone : list.zones()) {
    const CountedData& data = *list.find(zone);
    if (data.uniform) {
      consumer.writeUniformCellNodeCount(zone, *data.uniform);
    } else {
      consumer.writeCellNodeCounts(zone, data.counts.data(), data.counts.size());
    }
  }
  consumer.endCellNodeCounts();
  consumer.beginCellNodeIds();
  for (const int zone : list.zones()) {
    const Ids ids = idsOf(list.find(zone)->ids);
    consumer.writeCellNodeIds(zone, ids.data(), ids.size());
  }
  consumer.endCellNodeIds();
  consumer.endCellNodes();
}

void writeCells(const MeshTables& mesh, const MeshData& data, OrvFileConsumer& consumer) {
  consumer.beginCells(mesh.idsOf(zoneCategoryCell));
  writeCellNodes(data.cellNodes, consumer);
  writeCellTypes(data, consumer);
  const std::vector<int>& zones = data.cellPartitions.zones();
  if (!zones.empty()) {
    consumer.beginCellPartitions(zones, data.cellPartitions.find(zones.front())->info);
    for (const int zone : zones) {
      const auto& partitions = data.cellPartitions.find(zone)->partitions;
      consumer.writeCellPartitions(zone, partitions.data(), partitions.size());
    }
    consumer.endCellPartitions();
  }
  consumer.endCells();
}

void writeFaceNodes(const ZoneList<CountedData>& list, OrvFileConsumer& consumer) {
  consumer.beginFaceNodes(list.zones());
  consumer.beginFaceNodeCounts();
  for (const int zone : list.zones()) {
    const CountedData& data = *list.find(zone);
    if (data.uniform) {
      consumer.writeUniformFaceNodeCount(zone, *data.uniform);
    } else {
      consumer.writeFaceNodeCounts(zone, data.counts.data(), data.counts.size());
    }
  }
  consumer.endFaceNodeCounts();
  consumer.beginFaceNodeIds();
  for (const int zone : list.zones()) {
    const Ids ids = idsOf(list.find(zone)->ids);
    consumer.writeFaceNodeIds(zone, ids.data(), ids.size());
  }
  consumer.endFaceNodeIds();
  consumer.endFaceNodes();
}

void writeFaces(const MeshTables& mesh, const MeshData& data, OrvFileConsumer& consumer) {
  consumer.beginFaces(mesh.idsOf(zoneCategoryFace));
  writeFaceNodes(data.faceNodes, consumer);
  consumer.beginFaceCell0(data.faceCell0.zones());
  for (const int zone : data.faceCell0.zones()) {
    const Ids cells = idsOf(*data.faceCell0.find(zone));
    consumer.writeFaceCell0(zone, cells.data(), cells.size());
  }
  consumer.endFaceCell0();
  consumer.beginFaceCell1(data.faceCell1.zones());
  for (const int zone : data.faceCell1.zones()) {
    const Ids cells = idsOf(*data.faceCell1.find(zone));
    consumer.writeFaceCell1(zone, cells.data(), cells.size());
  }
  consumer.endFaceCell1();
  consumer.endFaces();
}

// --- Results ------------------------------------------------------------------------------------

void writePhases(const std::vector<base::Phase>& phases, OrvFileConsumer& consumer) {
  std::vector<std::string> names;
  names.reserve(phases.size());
  for (const base::Phase& phase : phases) {
    names.push_back(phase.name.value_or(""));
  }
  std::vector<short> ids;
  consumer.addPhases(names, ids);
  for (std::size_t i = 0; i < phases.size() && i < ids.size(); ++i) {
    if (phases[i].description) {
      consumer.setPhaseDescription(ids[i], *phases[i].description);
    }
    for (const auto& attribute : phases[i].attributes) {
      consumer.setPhaseAttribute(ids[i], attribute.first, attribute.second);
    }
  }
}

int declareVariable(const base::CaseTables& tables, const std::string& name,
                    OrvFileConsumer& consumer) {
  int id = 0;
  consumer.addVariable(name, id);
  if (const base::Variable* variable = tables.findVariable(name)) {
    if (variable->description) {
      consumer.setVariableDescription(id, *variable->description);
    }
    for (const auto& attribute : variable->attributes) {
      consumer.setVariableAttribute(id, attribute.first, attribute.second);
    }
  }
  return id;
}

void writeVariables(const base::CaseTables& tables, OrvZoneCategory category,
                    const MeshData::VariableList& variables, OrvFileConsumer& consumer) {
  std::vector<std::string> names;
  std::vector<int> ids;
  for (const auto& variable : variables) {
    names.push_back(variable.first);
    ids.push_back(declareVariable(tables, variable.first, consumer));
  }
  consumer.declareVariables(category, names, ids);
  for (const auto& variable : variables) {
    const memory::VariableData& data = variable.second;
    consumer.beginVariableZones(category);
    consumer.beginVariable(category, variable.first, data.zones.zones(), data.valuesPerEntity);
    for (const int zone : data.zones.zones()) {
      consumer.writeVariable(zone, data.zones.find(zone)->data(), data.zones.find(zone)->size());
    }
    consumer.endVariable();
    consumer.endVariableZones();
  }
}

void writeResults(const memory::Case& source, OrvFileConsumer& consumer) {
  consumer.startWriting(dataClassResults);
  writePhases(source.tables.phases, consumer);
  for (const auto& mesh : source.data) {
    select(consumer, mesh.first);
    for (const auto& list : mesh.second.variables) {
      consumer.beginPhase(list.first.first);
      writeVariables(source.tables, list.first.second, list.second, consumer);
      consumer.endPhase();
    }
  }
  consumer.endWriting(dataClassResults);
}

}  // namespace

void writeCase(const memory::Case& source, OrvFileConsumer& consumer) {
  consumer.startWriting(dataClassCase);
  consumer.setSolverType(source.tables.solverType);
  for (const auto& mesh : source.tables.meshes) {
    const MeshTables& tables = mesh.second;
    const auto found = source.data.find(mesh.first);
    const MeshData data = found == source.data.end() ? MeshData() : found->second;
    select(consumer, mesh.first);
    writeMeshTables(tables, consumer);
    writeZones(tables, consumer);
    writeNodes(data, consumer);
    writeCells(tables, data, consumer);
    writeFaces(tables, data, consumer);
  }
  consumer.setLocationModel(source.tables.locationModel.get());
  for (const auto& store : source.tables.settings) {
    consumer.writeSettings(store.second.entries(), store.first.first, store.first.second);
  }
  consumer.endWriting(dataClassCase);
  if (!source.tables.phases.empty()) {
    writeResults(source, consumer);
  }
}

}  // namespace velto::testing
