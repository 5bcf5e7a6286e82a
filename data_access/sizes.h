// SPDX-License-Identifier: Apache-2.0
//
// Sizes of a mesh and of its zones as values, 0 where the case says nothing.

#ifndef VELTO_DATA_ACCESS_SIZES_H
#define VELTO_DATA_ACCESS_SIZES_H

#include <cstdint>

#include "data_access/OrvBase.h"

namespace velto {

/// One size of the selected mesh.
inline std::uint64_t meshSizeOf(const OrvBase& source, OrvMeshSizeType key) {
  std::uint64_t size = 0;
  source.getMeshSize(key, size);
  return size;
}

/// An id, the count or the dimension of a zone of the selected mesh.
inline std::uint64_t zoneSizeOf(const OrvBase& source, int zone, OrvZoneSizeType key) {
  std::uint64_t size = 0;
  source.getZoneSizeInfo(zone, key, size);
  return size;
}

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_SIZES_H
