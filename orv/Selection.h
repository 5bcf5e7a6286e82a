// SPDX-License-Identifier: Apache-2.0
//
// Selection: one mesh, target and partition of a case.

#ifndef VELTO_ORV_SELECTION_H
#define VELTO_ORV_SELECTION_H

#include "data_access/OrvBase.h"

namespace velto::orv {

struct Selection {
  int mesh = 1;
  int target = targetRestart;
  int partition = -1;
};

/// Has all queries of a provider or consumer speak of a selection from now on.
inline void select(OrvBase& side, const Selection& selection) {
  side.setMeshId(selection.mesh);
  side.setTarget(static_cast<OrvTargetCategory>(selection.target));
  side.setPartitionId(selection.partition);
}

}  // namespace velto::orv

#endif  // VELTO_ORV_SELECTION_H
