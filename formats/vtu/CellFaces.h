// SPDX-License-Identifier: Apache-2.0
//
// CellFaces: the faces of every cell, found from the cells on the two sides of every face.

#ifndef VELTO_FORMATS_VTU_CELL_FACES_H
#define VELTO_FORMATS_VTU_CELL_FACES_H

#include <cstdint>
#include <vector>

#include "formats/vtu/PieceMesh.h"
#include "formats/vtu/cell_order.h"

namespace velto::vtu {

/// A table of the faces of each cell, filled by counting. A face's normal points from the cell on
/// side 0 into the cell on side 1.
class CellFaces {
 public:
  /// An empty table.
  CellFaces() = default;

  /// REQUIRES: `mesh` outlives the table.
  explicit CellFaces(const PieceMesh& mesh);

  /// The faces of a cell of this index, outwards; none if the faces of this mesh do not know cells.
  void loopsOf(std::uint64_t cell, FaceLoops& loops) const;

 private:
  /// A face zone whose faces know cells.
  struct Zone {
    std::uint64_t first;  // its faces count on from those of the zone before it in the table
    const ZoneSpan* span;
    NodeLists lists;
    std::vector<std::uint64_t> starts;  // where the nodes of each face begin, if not uniform
    const std::uint64_t* sides[2];      // null for a side that is not known
  };

  void addZone(const ZoneSpan& span);
  template <class Visit>
  void forEachSide(const Visit& visit) const;
  base::IdView nodesOf(std::uint64_t face) const;

  const PieceMesh* mesh_ = nullptr;
  std::vector<Zone> zones_;
  std::vector<std::uint64_t> starts_;   // by cell, and one more
  std::vector<std::uint64_t> entries_;  // twice the face, and one more on side 1
};

}  // namespace velto::vtu

#endif  // VELTO_FORMATS_VTU_CELL_FACES_H
