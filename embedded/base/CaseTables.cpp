// SPDX-License-Identifier: Apache-2.0
//
// CaseTables: lookups in the tables of a case.

#include "embedded/base/CaseTables.h"

#include <algorithm>

#include "data_access/OrvBase.h"
#include "data_access/OrvVersion.h"

namespace velto::base {

FileVersion ownVersion() {
  return {static_cast<int>(OrvVersion::getMajor()), static_cast<int>(OrvVersion::getMinor()),
          static_cast<int>(OrvVersion::getPatch())};
}

OrvMeshSizeType countOf(OrvZoneCategory category) {
  switch (category) {
    case zoneCategoryNode:
      return meshNodeCount;
    case zoneCategoryFace:
      return meshFaceCount;
    default:
      return meshCellCount;
  }
}

const std::vector<int>& MeshTables::idsOf(OrvZoneCategory category) const {
  static const std::vector<int> kNone;
  const auto found = zoneIds.find(category);
  return found == zoneIds.end() ? kNone : found->second;
}

std::vector<int> MeshTables::sortedZones() const {
  std::vector<int> ids;
  for (const auto& zone : zones) {
    ids.push_back(zone.first);
  }
  std::sort(ids.begin(), ids.end());
  return ids;
}

ZoneRecord& MeshTables::addZone(OrvZoneCategory category, int zoneId, const std::string& name,
                                std::uint64_t count) {
  const OrvMeshSizeType total = countOf(category);
  const std::uint64_t before = size(total);
  zoneIds[category].push_back(zoneId);
  ZoneRecord& record = zones[zoneId];
  record.sizes[zoneFirstId] = before + 1;
  record.sizes[zoneLastId] = before + count;
  record.sizes[zoneElementCount] = count;
  record.sizes[zoneDimension] = size(meshDimension);
  record.texts[zoneName] = name;
  sizes[total] = before + count;
  return record;
}

std::uint64_t MeshTables::size(OrvMeshSizeType key) const {
  return sizes.at(static_cast<std::size_t>(key)).value_or(0);
}

std::uint64_t MeshTables::zoneSize(int zoneId, OrvZoneSizeType key) const {
  const auto found = zones.find(zoneId);
  return found == zones.end() ? 0
                              : found->second.sizes.at(static_cast<std::size_t>(key)).value_or(0);
}

namespace {

template <class List, class Match>
auto findIn(List& list, Match match) -> decltype(list.data()) {
  const auto found = std::find_if(list.begin(), list.end(), match);
  return found == list.end() ? nullptr : &*found;
}

}  // namespace

Settings& CaseTables::defaultSettings() {
  return settings[{dataClassCase, OrvBase::_defaultSettingsPath}];
}

Phase* CaseTables::findPhase(short id) {
  return findIn(phases, [id](const Phase& phase) { return phase.id == id; });
}

const Phase* CaseTables::findPhase(short id) const {
  return findIn(phases, [id](const Phase& phase) { return phase.id == id; });
}

Variable* CaseTables::findVariable(int id) {
  return findIn(variables, [id](const Variable& variable) { return variable.id == id; });
}

const Variable* CaseTables::findVariable(int id) const {
  return findIn(variables, [id](const Variable& variable) { return variable.id == id; });
}

const Variable* CaseTables::findVariable(const std::string& name) const {
  return findIn(variables, [&name](const Variable& variable) { return variable.name == name; });
}

int CaseTables::addVariable(const std::string& name) {
  if (const Variable* known = findVariable(name)) {
    return known->id;
  }
  Variable variable;
  variable.id = static_cast<int>(variables.size() + 1);
  variable.name = name;
  variables.push_back(variable);
  return variable.id;
}

const std::string* findAttribute(const Attributes& attributes, const std::string& name) {
  const auto* found =
      findIn(attributes, [&name](const auto& entry) { return entry.first == name; });
  return found == nullptr ? nullptr : &found->second;
}

void setAttribute(Attributes& attributes, const std::string& name, const std::string& value) {
  auto* found = findIn(attributes, [&name](const auto& entry) { return entry.first == name; });
  if (found == nullptr) {
    attributes.emplace_back(name, value);
  } else {
    found->second = value;
  }
}

}  // namespace velto::base
