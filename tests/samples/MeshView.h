// SPDX-License-Identifier: Apache-2.0
//
// MeshView: a mesh in memory, zone by zone taken apart into faces and cells.

#ifndef VELTO_TESTS_SAMPLES_MESH_VIEW_H
#define VELTO_TESTS_SAMPLES_MESH_VIEW_H

#include <array>
#include <cstdint>
#include <vector>

#include "embedded/memory/Case.h"

namespace velto::testing {

using Ids = std::vector<std::uint64_t>;
using Point = std::array<double, 3>;

Point operator+(const Point& a, const Point& b);
Point operator-(const Point& a, const Point& b);
Point operator*(double factor, const Point& a);
double dot(const Point& a, const Point& b);
Point cross(const Point& a, const Point& b);

/// Everything by id minus 1. A mesh in the plane lies in z = 0 and is one metre thick: faces are
/// lines.
struct MeshView {
  MeshView(const base::MeshTables& tables, const memory::MeshData& data);

  /// Twice the area vector of a face by the right-hand rule over its nodes.
  Point normalOf(std::size_t face) const;
  Point centreOf(const Ids& nodes) const;
  Point centreOfCell(std::size_t cell) const;  ///< The mean of the centres of its faces.

  bool knowsCells() const { return !cell0.empty(); }

  std::vector<Point> points;
  std::vector<Ids> faces;
  Ids cell0;                     ///< By face; empty if no face zone stores them.
  Ids cell1;                     ///< By face, 0 where there is none.
  std::vector<Ids> facesOfCell;  ///< As the side cells say.
  std::vector<Ids> listedFaces;  ///< As the cells say; empty if they do not.
  std::vector<Ids> cellNodes;    ///< As the cells say; empty if they do not.
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_SAMPLES_MESH_VIEW_H
