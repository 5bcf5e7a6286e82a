// SPDX-License-Identifier: Apache-2.0
//
// Case: the lists of each family, and settings.

#include "embedded/memory/Case.h"

#include "data_access/OrvBase.h"

namespace velto::memory {

using base::Family;

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

void Case::setSetting(const std::string& key, const std::string& value) {
  tables.settings[{dataClassCase, OrvBase::_defaultSettingsPath}].set(key, value);
}

}  // namespace velto::memory
