// SPDX-License-Identifier: Apache-2.0
//
// What tools do with every location model: whether there is one, and signed face zone ids.

#ifndef VELTO_DATA_ACCESS_LOCATION_MODELS_H
#define VELTO_DATA_ACCESS_LOCATION_MODELS_H

#include <vector>

#include "data_access/OrvLocationModel.h"

namespace velto {

/// Whether there is a model: one without parts counts as none, and so does null.
inline bool hasParts(const OrvLocationModel* model) {
  std::vector<int> parts;
  if (model != nullptr) {
    model->getParts(parts);
  }
  return !parts.empty();
}

/// Side 1 of a face zone, whose side 0 is the id of the zone. The least id has no opposite and is
/// given as it is: computed without sign, so that it does no harm.
inline int side1Of(int faceZone) { return static_cast<int>(0U - static_cast<unsigned>(faceZone)); }

/// The face zone of a zone side.
inline int zoneOfSide(int zoneSide) { return zoneSide < 0 ? side1Of(zoneSide) : zoneSide; }

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_LOCATION_MODELS_H
