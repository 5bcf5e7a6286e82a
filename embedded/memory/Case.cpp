// SPDX-License-Identifier: Apache-2.0
//
// Case: the lists of each family, and settings.

#include "embedded/memory/Case.h"

#include <algorithm>

namespace velto::memory {

using base::Family;
using base::VariableKey;

ZoneList<CountedData>& MeshData::counted(Family family) {
  if (family == Family::cellNodes) {
    return cellNodes;
  }
  return family == Family::cellFaces ? cellFaces : faceNodes;
}

const ZoneList<CountedData>& MeshData::counted(Family family) const {
  return const_cast<MeshData*>(this)->counted(family);
}

ZoneList<Slice<std::uint64_t>>& MeshData::faceIds(Family family) {
  if (family == Family::faceCell1) {
    return faceCell1;
  }
  return family == Family::faceShadows ? faceShadows : faceCell0;
}

const ZoneList<Slice<std::uint64_t>>& MeshData::faceIds(Family family) const {
  return const_cast<MeshData*>(this)->faceIds(family);
}

const VariableData* MeshData::findVariable(const VariableKey& key) const {
  const auto list = variables.find({key.phase, key.category});
  if (list == variables.end()) {
    return nullptr;
  }
  const auto found = std::find_if(list->second.begin(), list->second.end(),
                                  [&key](const auto& entry) { return entry.first == key.name; });
  return found == list->second.end() ? nullptr : &found->second;
}

VariableData& MeshData::variable(const VariableKey& key) {
  if (const VariableData* known = findVariable(key)) {
    return const_cast<VariableData&>(*known);
  }
  return variables[{key.phase, key.category}].emplace_back(key.name, VariableData{}).second;
}

void Case::setSetting(const std::string& key, const std::string& value) {
  tables.defaultSettings().set(key, value);
}

}  // namespace velto::memory
