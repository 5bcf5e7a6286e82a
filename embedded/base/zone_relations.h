// SPDX-License-Identifier: Apache-2.0
//
// Which cell zones lie on which side of a face zone, found from the cells beside its faces.

#ifndef VELTO_EMBEDDED_BASE_ZONE_RELATIONS_H
#define VELTO_EMBEDDED_BASE_ZONE_RELATIONS_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "embedded/base/CaseTables.h"

namespace velto::base {

/// The id ranges of the cell zones of a mesh, in ascending order; made once and searched often.
class CellZoneRanges {
 public:
  struct Range {
    std::uint64_t first;
    std::uint64_t last;
    int zone;
  };

  CellZoneRanges() = default;
  explicit CellZoneRanges(const MeshTables& mesh);
  explicit CellZoneRanges(std::vector<Range> ranges);

  /// The range that holds a cell, or null.
  const Range* find(std::uint64_t cell) const;

 private:
  std::vector<Range> ranges_;
};

/// Enters into the tables in which cell zones the cells on `side` (0 or 1) of a face zone lie. Ids
/// of 0 and ids that no cell zone holds are passed over.
void relateZones(MeshTables& mesh, const CellZoneRanges& ranges, int faceZone, int side,
                 const std::uint64_t* cells, std::size_t n);
void relateZones(MeshTables& mesh, const CellZoneRanges& ranges, int faceZone, int side,
                 const std::uint32_t* cells, std::size_t n);

/// Turns that relation round: lists for each cell zone the face zones that have it on a side, in
/// the order of the face zones.
void deriveBoundingFaceZones(MeshTables& mesh);

/// Sets the element count of each zone that has a first and a last id but no count.
void deriveElementCounts(MeshTables& mesh);

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_ZONE_RELATIONS_H
