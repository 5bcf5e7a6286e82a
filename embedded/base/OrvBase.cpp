// SPDX-License-Identifier: Apache-2.0
//
// OrvBase: the queries and setters that both sides of a case share, answered from the tables.

#include "data_access/OrvBase.h"

#include <algorithm>
#include <cstddef>

#include "embedded/base/OrvBaseState.h"

namespace velto {

const std::string OrvBase::_defaultSettingsPath = "settings";

OrvBase::OrvBase() : state_(std::make_unique<State>()) {}
OrvBase::~OrvBase() = default;

namespace {

using base::CaseCore;
using base::coreOf;
using base::MeshTables;
using base::observe;
using base::ZoneRecord;

/// Copies the entry of `key`, if there is one.
template <class Table, class Key, class Value>
void copyEntry(const Table& table, Key key, Value& value) {
  const auto index = static_cast<std::size_t>(key);
  if (index < table.size() && table[index]) {
    value = static_cast<Value>(*table[index]);
  }
}

template <class Table, class Key, class Value>
void storeEntry(Table& table, Key key, const Value& value) {
  const auto index = static_cast<std::size_t>(key);
  if (index < table.size()) {
    table[index] = value;
  }
}

MeshTables& selectedTables(const OrvBase& object) {
  CaseCore& core = coreOf(object);
  return core.tables.meshes[core.selection];
}

ZoneRecord& zoneToSet(const OrvBase& object, int zoneId) {
  return selectedTables(object).zones[zoneId];
}

}  // namespace

void OrvBase::setBaseOption(bool) {}

std::uint64_t OrvBase::getZoneCount(OrvZoneCategory category) {
  const MeshTables* mesh = coreOf(*this).mesh();
  return mesh == nullptr ? 0 : mesh->idsOf(category).size();
}

void OrvBase::getZoneIds(OrvZoneCategory category, std::vector<int>& ids) {
  const MeshTables* mesh = coreOf(*this).mesh();
  if (mesh == nullptr) {
    ids.clear();
  } else {
    ids = mesh->idsOf(category);
  }
}

void OrvBase::setSolverType(std::string solverType) {
  coreOf(*this).tables.solverType = std::move(solverType);
}

void OrvBase::setMeshId(int id) {
  observe(*this, "setMeshId", id);
  coreOf(*this).selection.mesh = id;
}

int OrvBase::getMeshId() const {
  observe(*this, "getMeshId");
  return coreOf(*this).selection.mesh;
}

void OrvBase::setTarget(OrvTargetCategory category) {
  observe(*this, "setTarget", category);
  coreOf(*this).selection.target = category;
}

OrvTargetCategory OrvBase::getTarget() const {
  observe(*this, "getTarget");
  return coreOf(*this).selection.target;
}

void OrvBase::setPartitionId(int id) {
  observe(*this, "setPartitionId", id);
  coreOf(*this).selection.partition = id;
}

int OrvBase::getPartitionId() const {
  observe(*this, "getPartitionId");
  return coreOf(*this).selection.partition;
}

std::string OrvBase::getSolverType() const {
  observe(*this, "getSolverType");
  return coreOf(*this).tables.solverType;
}

void OrvBase::setApplicationName(const std::string& name) {
  observe(*this, "setApplicationName", name);
  coreOf(*this).tables.applicationName = name;
}

const OrvLocationModel* OrvBase::getLocationModel() const {
  observe(*this, "getLocationModel");
  return coreOf(*this).tables.locationModel.get();
}

void OrvBase::getMeshSize(OrvMeshSizeType key, std::uint64_t& value) const {
  observe(*this, "getMeshSize", key);
  if (const MeshTables* mesh = coreOf(*this).mesh()) {
    copyEntry(mesh->sizes, key, value);
  }
}

void OrvBase::setMeshSize(OrvMeshSizeType key, std::uint64_t value) {
  observe(*this, "setMeshSize", key, value);
  storeEntry(selectedTables(*this).sizes, key, value);
}

void OrvBase::getMeshUnits(std::string& units) const {
  observe(*this, "getMeshUnits");
  const MeshTables* mesh = coreOf(*this).mesh();
  if (mesh != nullptr && mesh->units) {
    units = *mesh->units;
  }
}

void OrvBase::setMeshUnits(const std::string& units) {
  observe(*this, "setMeshUnits", units);
  selectedTables(*this).units = units;
}

void OrvBase::setZoneIds(OrvZoneCategory category, const std::vector<int>& ids) {
  observe(*this, "setZoneIds", category, ids);
  MeshTables& mesh = selectedTables(*this);
  mesh.zoneIds[category] = ids;
  for (const int id : ids) {
    mesh.zones[id];
  }
}

void OrvBase::getZoneSizeInfo(int zoneId, OrvZoneSizeType key, std::uint64_t& value) const {
  observe(*this, "getZoneSizeInfo", zoneId, key);
  if (const ZoneRecord* zone = coreOf(*this).zone(zoneId)) {
    copyEntry(zone->sizes, key, value);
  }
}

void OrvBase::setZoneSizeInfo(int zoneId, OrvZoneSizeType key, std::uint64_t value) {
  observe(*this, "setZoneSizeInfo", zoneId, key, value);
  storeEntry(zoneToSet(*this, zoneId).sizes, key, value);
}

void OrvBase::getZoneStringInfo(int zoneId, OrvZoneStringInfoType key, std::string& value) const {
  observe(*this, "getZoneStringInfo", zoneId, key);
  if (const ZoneRecord* zone = coreOf(*this).zone(zoneId)) {
    copyEntry(zone->texts, key, value);
  }
}

void OrvBase::setZoneStringInfo(int zoneId, OrvZoneStringInfoType key, const std::string& value) {
  observe(*this, "setZoneStringInfo", zoneId, key, value);
  storeEntry(zoneToSet(*this, zoneId).texts, key, value);
}

void OrvBase::getFaceZoneInfo(int zoneId, OrvFaceZoneInfoType key, int& value) const {
  observe(*this, "getFaceZoneInfo", zoneId, key);
  if (const ZoneRecord* zone = coreOf(*this).zone(zoneId)) {
    copyEntry(zone->faceInfo, key, value);
  }
}

void OrvBase::setFaceZoneInfo(int zoneId, OrvFaceZoneInfoType key, int value) const {
  observe(*this, "setFaceZoneInfo", zoneId, key, value);
  storeEntry(zoneToSet(*this, zoneId).faceInfo, key, value);
}

void OrvBase::getCellZoneInfo(int zoneId, OrvCellZoneInfoType key, int& value) const {
  observe(*this, "getCellZoneInfo", zoneId, key);
  if (const ZoneRecord* zone = coreOf(*this).zone(zoneId)) {
    copyEntry(zone->cellInfo, key, value);
  }
}

void OrvBase::setCellZoneInfo(int zoneId, OrvCellZoneInfoType key, int value) {
  observe(*this, "setCellZoneInfo", zoneId, key, value);
  storeEntry(zoneToSet(*this, zoneId).cellInfo, key, value);
}

bool OrvBase::getFaceZoneProp(int zoneId, OrvFaceZonePropType key) const {
  observe(*this, "getFaceZoneProp", zoneId, key);
  const ZoneRecord* zone = coreOf(*this).zone(zoneId);
  return zone != nullptr && std::count(zone->properties.begin(), zone->properties.end(), key) > 0;
}

void OrvBase::getFaceZoneType(int zoneId, OrvFaceZoneType& type) const {
  observe(*this, "getFaceZoneType", zoneId);
  if (const ZoneRecord* zone = coreOf(*this).zone(zoneId)) {
    copyEntry(zone->faceInfo, faceZoneType, type);
  }
}

namespace {

void copyRelation(const std::vector<int>* relation, std::list<int>& ids) {
  if (relation != nullptr) {
    ids.assign(relation->begin(), relation->end());
  }
}

}  // namespace

void OrvBase::getCellFaceZoneIds(int cellZoneId, std::list<int>& faceZoneIds) {
  observe(*this, "getCellFaceZoneIds", cellZoneId);
  const ZoneRecord* zone = coreOf(*this).zone(cellZoneId);
  copyRelation(zone == nullptr ? nullptr : &zone->boundingFaceZones, faceZoneIds);
}

void OrvBase::getFaceCellZone0Ids(int faceZoneId, std::list<int>& cellZoneIds) {
  observe(*this, "getFaceCellZone0Ids", faceZoneId);
  const ZoneRecord* zone = coreOf(*this).zone(faceZoneId);
  copyRelation(zone == nullptr ? nullptr : &zone->sideCellZones[0], cellZoneIds);
}

void OrvBase::getFaceCellZone1Ids(int faceZoneId, std::list<int>& cellZoneIds) {
  observe(*this, "getFaceCellZone1Ids", faceZoneId);
  const ZoneRecord* zone = coreOf(*this).zone(faceZoneId);
  copyRelation(zone == nullptr ? nullptr : &zone->sideCellZones[1], cellZoneIds);
}

void OrvBase::getPhaseIds(std::vector<short>& ids) const {
  observe(*this, "getPhaseIds");
  ids.clear();
  for (const base::Phase& phase : coreOf(*this).tables.phases) {
    ids.push_back(phase.id);
  }
}

bool OrvBase::getPhaseName(short id, std::string& name) const {
  observe(*this, "getPhaseName", id);
  const base::Phase* phase = coreOf(*this).tables.findPhase(id);
  if (phase == nullptr || !phase->name) {
    return false;
  }
  name = *phase->name;
  return true;
}

bool OrvBase::hasWarning() const {
  observe(*this, "hasWarning");
  return coreOf(*this).messages.hasWarning();
}

bool OrvBase::hasError() const {
  observe(*this, "hasError");
  return coreOf(*this).messages.hasError();
}

std::vector<std::string> OrvBase::getWarnings(bool flag0, bool flag1) const {
  observe(*this, "getWarnings", flag0, flag1);
  return coreOf(*this).messages.warnings(flag0 && flag1);
}

std::vector<std::string> OrvBase::getErrors(bool flag0, bool flag1) const {
  observe(*this, "getErrors", flag0, flag1);
  return coreOf(*this).messages.errors(flag0 && flag1);
}

}  // namespace velto
