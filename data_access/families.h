// SPDX-License-Identifier: Apache-2.0
//
// The families of bulk reads as data, so that what tools do with every family is written once.

#ifndef VELTO_DATA_ACCESS_FAMILIES_H
#define VELTO_DATA_ACCESS_FAMILIES_H

#include <vector>

#include "data_access/OrvProvider.h"

namespace velto {

/// What opens a family, filling the list of the zones that carry it, and what closes it.
struct ReadFamily {
  void (OrvProvider::*begin)(std::vector<int>& zoneIds);
  void (OrvProvider::*end)();
};

inline constexpr ReadFamily kCellNodes = {&OrvProvider::beginCellNodes, &OrvProvider::endCellNodes};
inline constexpr ReadFamily kCellFaces = {&OrvProvider::beginCellFaces, &OrvProvider::endCellFaces};

/// The zones that carry a family, in the provider's order. Opens the family and closes it at once;
/// REQUIRES: no family is open.
inline std::vector<int> listZones(OrvProvider& provider, const ReadFamily& family) {
  std::vector<int> zoneIds;
  (provider.*family.begin)(zoneIds);
  (provider.*family.end)();
  return zoneIds;
}

/// The parent zones of the face tree, which is opened and closed at once as well.
inline std::vector<int> listTreeParents(OrvProvider& provider) {
  std::vector<int> parents;
  std::vector<int> children;
  provider.beginFaceTree(parents, children);
  provider.endFaceTree();
  return parents;
}

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_FAMILIES_H
