// SPDX-License-Identifier: Apache-2.0
//
// VTK's cell types, and cells put together from their faces in VTK's order of nodes.

#ifndef VELTO_FORMATS_VTU_CELL_ORDER_H
#define VELTO_FORMATS_VTU_CELL_ORDER_H

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "embedded/base/MeshArrays.h"

namespace velto::vtu {

/// Types of cells as VTK numbers them.
enum VtkCellType : std::uint8_t {
  vtkTriangle = 5,
  vtkPolygon = 7,
  vtkQuad = 9,
  vtkTetra = 10,
  vtkHexahedron = 12,
  vtkWedge = 13,
  vtkPyramid = 14,
  vtkPolyhedron = 42,
};

/// The type for a CellShape that has a fixed number of nodes, and that number; false for the
/// others.
bool typeOfShape(int shape, VtkCellType& type, std::size_t& nodeCount);

/// The number of nodes of such a type; 0 for polygons and polyhedra.
std::size_t nodeCountOf(VtkCellType type);

/// The type of a polygon with that many nodes.
VtkCellType polygonOf(std::size_t nodeCount);

/// The faces of one cell, each a loop of nodes whose normal points out of the cell.
class FaceLoops {
 public:
  void clear();
  void add(base::IdView loop, bool turned);

  std::size_t size() const { return ends_.size(); }
  base::IdView loop(std::size_t i) const;

  /// The nodes of all loops, one loop after the other.
  const std::vector<std::uint64_t>& nodes() const { return nodes_; }

 private:
  std::vector<std::uint64_t> nodes_;
  std::vector<std::size_t> ends_;
};

/// A tetrahedron, pyramid, wedge or hexahedron if the faces close into one, with its nodes in VTK's
/// order; a polyhedron, with the distinct nodes of its faces, if they do not.
///
/// VTK's order: the triangle 0, 1, 2 of a wedge faces outwards, the base 0, 1, 2 (, 3) of the
/// others inwards; so the volumes come out positive.
VtkCellType cellOf(const FaceLoops& faces, std::vector<std::uint64_t>& nodes);

/// Joins lines to polygons, with room that serves one cell after the other.
class LineJoiner {
 public:
  /// The nodes of the polygon that lines make, in the direction of the first line; false if they
  /// are not one closed loop.
  bool join(const FaceLoops& lines, std::vector<std::uint64_t>& nodes);

 private:
  using End = std::pair<std::uint64_t, std::size_t>;  // a node, and a line that ends there

  std::vector<End> ends_;
};

}  // namespace velto::vtu

#endif  // VELTO_FORMATS_VTU_CELL_ORDER_H
