// SPDX-License-Identifier: Apache-2.0
//
// PieceCells: the cells of one piece as VTK describes them.

#ifndef VELTO_FORMATS_VTU_PIECE_CELLS_H
#define VELTO_FORMATS_VTU_PIECE_CELLS_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "formats/vtu/ArrayEncoder.h"
#include "formats/vtu/CellFaces.h"
#include "formats/vtu/PieceMesh.h"
#include "formats/vtu/cell_order.h"

namespace velto::vtu {

/// Goes over the cells once to learn their types and sizes, and once more for each long array. A
/// cell is told by its nodes where its zone lists them, else put together from its faces.
class PieceCells {
 public:
  /// Throws a CaseError that names the zone and the cell if a cell cannot be described.
  ///
  /// REQUIRES: `mesh` outlives the cells.
  explicit PieceCells(const PieceMesh& mesh);

  bool hasPolyhedra() const { return !faceEntries_.empty(); }

  /// Numbers in the arrays; one a cell in the others.
  std::uint64_t connectivitySize() const { return connectivitySize_; }
  std::uint64_t facesSize() const { return facesSize_; }

  void writeConnectivity(ArrayEncoder& encoder) const;
  void writeOffsets(ArrayEncoder& encoder) const;
  void writeTypes(ArrayEncoder& encoder) const;
  void writeFaces(ArrayEncoder& encoder) const;
  void writeFaceOffsets(ArrayEncoder& encoder) const;

 private:
  struct Zone {
    const ZoneSpan* span;
    bool hasNodes;
    NodeLists lists;
    int shape;          // of all cells
    const int* shapes;  // of each cell, or null
    int shapeOf(std::uint64_t i) const { return shapes == nullptr ? shape : shapes[i]; }
  };

  /// A cell, and what it takes to make it; serves one cell after the other.
  struct Cell {
    VtkCellType type = vtkPolyhedron;
    std::vector<std::uint64_t> nodes;
    FaceLoops faces;
    LineJoiner joiner;
  };

  Zone zoneFor(const ZoneSpan& span) const;
  bool needsFaces(const Zone& zone) const;
  void makeFromNodes(const Zone& zone, std::uint64_t i, std::size_t start, Cell& cell) const;
  void makeFromFaces(const Zone& zone, std::uint64_t i, Cell& cell) const;
  void turnOutwards(std::vector<std::uint64_t>& wedge) const;
  template <class Visit>
  void forEachCell(const Visit& visit) const;

  const PieceMesh& mesh_;
  std::vector<Zone> zones_;
  CellFaces faces_;
  std::vector<VtkCellType> types_;
  std::vector<std::uint32_t> pointCounts_;  // of polygons and polyhedra, in their order
  std::vector<std::uint64_t> faceEntries_;  // numbers in the list of faces, of polyhedra
  std::uint64_t connectivitySize_ = 0;
  std::uint64_t facesSize_ = 0;
};

}  // namespace velto::vtu

#endif  // VELTO_FORMATS_VTU_PIECE_CELLS_H
