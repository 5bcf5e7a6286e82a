// SPDX-License-Identifier: Apache-2.0
//
// Selection: one mesh, target and partition of a case; and what is asked of a zone of it again and
// again.

#ifndef VELTO_ORV_SELECTION_H
#define VELTO_ORV_SELECTION_H

#include <cstddef>
#include <cstdint>
#include <fmt/format.h>
#include <string>
#include <tuple>

#include "data_access/OrvBase.h"

#include "orv/words.h"

namespace velto::orv {

struct Selection {
  int mesh = 1;
  int target = targetRestart;
  int partition = -1;

  friend bool operator==(const Selection& a, const Selection& b) {
    return a.mesh == b.mesh && a.target == b.target && a.partition == b.partition;
  }
  friend bool operator<(const Selection& a, const Selection& b) {
    return std::tie(a.mesh, a.target, a.partition) < std::tie(b.mesh, b.target, b.partition);
  }
};

/// "mesh 1, partitioned post 3".
inline std::string wordsOf(const Selection& selection) {
  return fmt::format("mesh {}, {}{}", selection.mesh, targetWord(selection.target),
                     selection.partition == -1 ? "" : fmt::format(" {}", selection.partition));
}

/// Has all queries of a provider or consumer speak of a selection from now on.
inline void select(OrvBase& side, const Selection& selection) {
  side.setMeshId(selection.mesh);
  side.setTarget(static_cast<OrvTargetCategory>(selection.target));
  side.setPartitionId(selection.partition);
}

/// The zoneElementCount of a zone, 0 if there is none.
inline std::size_t elementCount(const OrvBase& side, int zone) {
  std::uint64_t count = 0;
  side.getZoneSizeInfo(zone, zoneElementCount, count);
  return static_cast<std::size_t>(count);
}

}  // namespace velto::orv

#endif  // VELTO_ORV_SELECTION_H
