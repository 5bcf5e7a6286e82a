// SPDX-License-Identifier: Apache-2.0
//
// FaceZoneSides: which leaf cell zones lie on the two sides of each leaf face zone.

#ifndef VELTO_LOCATION_MODEL_FACE_ZONE_SIDES_H
#define VELTO_LOCATION_MODEL_FACE_ZONE_SIDES_H

#include <optional>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "data_access/fwd.h"

namespace velto {

/// A face zone as one cell zone sees it: whether that lies on its side 0, on its side 1, or both.
struct SidesOfZone {
  int faceZone = 0;
  bool isSide0 = false;
  bool isSide1 = false;
};

/// Asks each face zone once for the cell zones beside it, and keeps the answers by cell zone: to
/// look through all face zones for each body would cost the product of the two numbers.
///
/// A face zone with more than one leaf cell zone on a side ends the reading: no face is made of any
/// zone behind it.
class FaceZoneSides {
 public:
  struct TooMany {
    int faceZone = 0;
    bool onSide0 = false;
    bool onSide1 = false;
  };

  /// Reads `faceZones` in their order, but for those that a body has `absorbed`.
  FaceZoneSides(OrvProvider& provider, const std::vector<int>& faceZones,
                const std::set<int>& absorbed, const std::unordered_set<int>& leafCellZones);

  /// The face zones beside a cell zone, in the order in which they were read.
  const std::vector<SidesOfZone>& around(int cellZone) const;

  /// The face zone at which the reading ended, if it did.
  const std::optional<TooMany>& tooMany() const { return tooMany_; }

 private:
  std::unordered_map<int, std::vector<SidesOfZone>> byCellZone_;
  std::optional<TooMany> tooMany_;
};

}  // namespace velto

#endif  // VELTO_LOCATION_MODEL_FACE_ZONE_SIDES_H
