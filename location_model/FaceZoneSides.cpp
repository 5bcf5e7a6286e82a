// SPDX-License-Identifier: Apache-2.0
//
// FaceZoneSides: one pass over the face zones.

#include "location_model/FaceZoneSides.h"

#include <list>

#include "data_access/OrvProvider.h"

namespace velto {

namespace {

/// The different leaf cell zones of a list; others are dropped.
std::set<int> leavesOf(const std::list<int>& cellZones,
                       const std::unordered_set<int>& leafCellZones) {
  std::set<int> leaves;
  for (const int zone : cellZones) {
    if (leafCellZones.count(zone) != 0) {
      leaves.insert(zone);
    }
  }
  return leaves;
}

}  // namespace

FaceZoneSides::FaceZoneSides(OrvProvider& provider, const std::vector<int>& faceZones,
                             const std::set<int>& absorbed,
                             const std::unordered_set<int>& leafCellZones) {
  for (const int faceZone : faceZones) {
    if (absorbed.count(faceZone) != 0) {
      continue;
    }
    std::list<int> listed0;
    provider.getFaceCellZone0Ids(faceZone, listed0);
    std::list<int> listed1;
    provider.getFaceCellZone1Ids(faceZone, listed1);
    const std::set<int> side0 = leavesOf(listed0, leafCellZones);
    const std::set<int> side1 = leavesOf(listed1, leafCellZones);
    if (side0.size() > 1 || side1.size() > 1) {
      tooMany_ = {faceZone, side0.size() > 1, side1.size() > 1};
      return;
    }
    const bool isOneZone = side0 == side1;
    for (const int cellZone : side0) {
      byCellZone_[cellZone].push_back({faceZone, true, isOneZone});
    }
    for (const int cellZone : side1) {
      if (!isOneZone) {
        byCellZone_[cellZone].push_back({faceZone, false, true});
      }
    }
  }
}

const std::vector<SidesOfZone>& FaceZoneSides::around(int cellZone) const {
  static const std::vector<SidesOfZone> kNone;
  const auto found = byCellZone_.find(cellZone);
  return found == byCellZone_.end() ? kNone : found->second;
}

}  // namespace velto
