// SPDX-License-Identifier: Apache-2.0
//
// Which cell zones lie on which side of a face zone, found from the cells beside its faces.

#ifndef VELTO_EMBEDDED_BASE_ZONE_RELATIONS_H
#define VELTO_EMBEDDED_BASE_ZONE_RELATIONS_H

#include <cstddef>
#include <cstdint>

#include "embedded/base/CaseTables.h"

namespace velto::base {

/// Enters into the tables that the cells on `side` (0 or 1) of a face zone lie in the cell zones
/// that hold `cells`, in the face zone's list and in the lists of those cell zones. Ids of 0 and
/// ids that no cell zone holds are passed over. The ranges of the cell zones must stand in `mesh`.
void relateZones(MeshTables& mesh, int faceZone, int side, const std::uint64_t* cells,
                 std::size_t n);

/// Sets the element count of each zone that has a first and a last id but no count.
void deriveElementCounts(MeshTables& mesh);

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_ZONE_RELATIONS_H
