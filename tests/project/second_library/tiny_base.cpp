// SPDX-License-Identifier: Apache-2.0
//
// OrvBase over the tiny library's tables.

#include "tests/project/second_library/TinyState.h"

namespace velto {

namespace {

/// Copies the entry of `key`; leaves `value` alone where there is none.
template <class Table, class Key, class Value>
bool copyEntry(const Table& table, const Key& key, Value& value) {
  const auto found = table.find(key);
  if (found == table.end()) {
    return false;
  }
  value = static_cast<Value>(found->second);
  return true;
}

/// Replaces `list` by the entry of `key`, or by nothing.
template <class Table, class List>
void copyList(const Table& table, int key, List& list) {
  list.clear();
  copyEntry(table, key, list);
}

}  // namespace

const std::string OrvBase::_defaultSettingsPath = "tiny";

OrvBase::OrvBase() : state_(std::make_unique<State>()) {}
OrvBase::~OrvBase() = default;

// --- Virtual operations -------------------------------------------------------------------------

void OrvBase::setBaseOption(bool /*option*/) {}

std::uint64_t OrvBase::getZoneCount(OrvZoneCategory category) {
  return state_->zoneIds[category].size();
}

void OrvBase::getZoneIds(OrvZoneCategory category, std::vector<int>& ids) {
  copyList(state_->zoneIds, category, ids);
}

void OrvBase::setSolverType(std::string solverType) { state_->solverType = std::move(solverType); }

// --- Selection ----------------------------------------------------------------------------------

void OrvBase::setMeshId(int id) { state_->mesh = id; }
int OrvBase::getMeshId() const { return state_->mesh; }
void OrvBase::setTarget(OrvTargetCategory category) { state_->target = category; }
OrvTargetCategory OrvBase::getTarget() const { return state_->target; }
void OrvBase::setPartitionId(int id) { state_->partition = id; }
int OrvBase::getPartitionId() const { return state_->partition; }

// --- The case and the mesh ----------------------------------------------------------------------

std::string OrvBase::getSolverType() const { return state_->solverType; }
void OrvBase::setApplicationName(const std::string& name) { state_->applicationName = name; }
const OrvLocationModel* OrvBase::getLocationModel() const { return state_->locationModel.get(); }
void OrvBase::getMeshSize(OrvMeshSizeType key, std::uint64_t& value) const {
  copyEntry(state_->meshSizes, key, value);
}
void OrvBase::setMeshSize(OrvMeshSizeType key, std::uint64_t value) {
  state_->meshSizes[key] = value;
}
void OrvBase::getMeshUnits(std::string& units) const { units = state_->units; }
void OrvBase::setMeshUnits(const std::string& units) { state_->units = units; }

// --- Zones --------------------------------------------------------------------------------------

void OrvBase::setZoneIds(OrvZoneCategory category, const std::vector<int>& ids) {
  state_->zoneIds[category] = ids;
}
void OrvBase::getZoneSizeInfo(int zoneId, OrvZoneSizeType key, std::uint64_t& value) const {
  copyEntry(state_->zoneSizes, std::pair(zoneId, int{key}), value);
}
void OrvBase::setZoneSizeInfo(int zoneId, OrvZoneSizeType key, std::uint64_t value) {
  state_->zoneSizes[{zoneId, key}] = value;
}
void OrvBase::getZoneStringInfo(int zoneId, OrvZoneStringInfoType key, std::string& value) const {
  copyEntry(state_->zoneTexts, std::pair(zoneId, int{key}), value);
}
void OrvBase::setZoneStringInfo(int zoneId, OrvZoneStringInfoType key, const std::string& value) {
  state_->zoneTexts[{zoneId, key}] = value;
}
void OrvBase::getFaceZoneInfo(int zoneId, OrvFaceZoneInfoType key, int& value) const {
  copyEntry(state_->faceZoneInfos, std::pair(zoneId, int{key}), value);
}
void OrvBase::setFaceZoneInfo(int zoneId, OrvFaceZoneInfoType key, int value) const {
  state_->faceZoneInfos[{zoneId, key}] = value;
}
void OrvBase::getCellZoneInfo(int zoneId, OrvCellZoneInfoType key, int& value) const {
  copyEntry(state_->cellZoneInfos, std::pair(zoneId, int{key}), value);
}
void OrvBase::setCellZoneInfo(int zoneId, OrvCellZoneInfoType key, int value) {
  state_->cellZoneInfos[{zoneId, key}] = value;
}
bool OrvBase::getFaceZoneProp(int /*zoneId*/, OrvFaceZonePropType /*key*/) const { return false; }
void OrvBase::getFaceZoneType(int zoneId, OrvFaceZoneType& type) const {
  copyEntry(state_->faceZoneInfos, std::pair(zoneId, int{faceZoneType}), type);
}
void OrvBase::getCellFaceZoneIds(int cellZoneId, std::list<int>& faceZoneIds) {
  copyList(state_->boundingFaceZones, cellZoneId, faceZoneIds);
}
void OrvBase::getFaceCellZone0Ids(int faceZoneId, std::list<int>& cellZoneIds) {
  copyList(state_->cellZones0, faceZoneId, cellZoneIds);
}
void OrvBase::getFaceCellZone1Ids(int /*faceZoneId*/, std::list<int>& cellZoneIds) {
  cellZoneIds.clear();
}

// --- Phases and messages ------------------------------------------------------------------------

void OrvBase::getPhaseIds(std::vector<short>& ids) const { ids.clear(); }
bool OrvBase::getPhaseName(short /*id*/, std::string& /*name*/) const { return false; }
bool OrvBase::hasWarning() const { return false; }
bool OrvBase::hasError() const { return !state_->errors.empty(); }
std::vector<std::string> OrvBase::getWarnings(bool /*flag0*/, bool /*flag1*/) const { return {}; }
std::vector<std::string> OrvBase::getErrors(bool flag0, bool flag1) const {
  std::vector<std::string> errors = state_->errors;
  if (flag0 && flag1) {
    state_->errors.clear();
  }
  return errors;
}

}  // namespace velto
