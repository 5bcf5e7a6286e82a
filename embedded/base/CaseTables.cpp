// SPDX-License-Identifier: Apache-2.0
//
// CaseTables: lookups in the tables of a case.

#include "embedded/base/CaseTables.h"

#include <algorithm>

namespace velto::base {

const std::vector<int>& MeshTables::idsOf(OrvZoneCategory category) const {
  static const std::vector<int> kNone;
  const auto found = zoneIds.find(category);
  return found == zoneIds.end() ? kNone : found->second;
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
auto findIn(const List& list, Match match) -> decltype(list.data()) {
  const auto found = std::find_if(list.begin(), list.end(), match);
  return found == list.end() ? nullptr : &*found;
}

}  // namespace

const Phase* CaseTables::findPhase(short id) const {
  return findIn(phases, [id](const Phase& phase) { return phase.id == id; });
}

const Variable* CaseTables::findVariable(int id) const {
  return findIn(variables, [id](const Variable& variable) { return variable.id == id; });
}

const Variable* CaseTables::findVariable(const std::string& name) const {
  return findIn(variables, [&name](const Variable& variable) { return variable.name == name; });
}

const std::string* findAttribute(const Attributes& attributes, const std::string& name) {
  const auto* found =
      findIn(attributes, [&name](const auto& entry) { return entry.first == name; });
  return found == nullptr ? nullptr : &found->second;
}

void setAttribute(Attributes& attributes, const std::string& name, const std::string& value) {
  const auto found = std::find_if(attributes.begin(), attributes.end(),
                                  [&name](const auto& entry) { return entry.first == name; });
  if (found == attributes.end()) {
    attributes.emplace_back(name, value);
  } else {
    found->second = value;
  }
}

}  // namespace velto::base
