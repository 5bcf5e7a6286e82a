// SPDX-License-Identifier: Apache-2.0
//
// MeshView: flat lists from zones, and some geometry.

#include "tests/samples/MeshView.h"

namespace velto::testing {

Point operator+(const Point& a, const Point& b) { return {a[0] + b[0], a[1] + b[1], a[2] + b[2]}; }
Point operator-(const Point& a, const Point& b) { return a + (-1.0) * b; }
Point operator*(double factor, const Point& a) {
  return {factor * a[0], factor * a[1], factor * a[2]};
}
double dot(const Point& a, const Point& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
Point cross(const Point& a, const Point& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

namespace {

/// The lists of all elements of a counted family, in the order of the listed zones.
std::vector<Ids> listsOf(const base::MeshTables& tables,
                         const memory::ZoneList<memory::CountedData>& family) {
  std::vector<Ids> lists;
  for (const int zone : family.zones()) {
    const memory::CountedData& held = *family.find(zone);
    const std::uint64_t* next = held.ids.data();
    const std::uint64_t count = tables.zoneSize(zone, zoneElementCount);
    for (std::uint64_t i = 0; i < count; ++i) {
      const short length = held.uniform ? *held.uniform : held.counts.data()[i];
      lists.emplace_back(next, next + length);
      next += length;
    }
  }
  return lists;
}

}  // namespace

MeshView::MeshView(const base::MeshTables& tables, const memory::MeshData& data)
    : faces(listsOf(tables, data.faceNodes)),
      facesOfCell(tables.size(meshCellCount)),
      listedFaces(listsOf(tables, data.cellFaces)),
      cellNodes(listsOf(tables, data.cellNodes)) {
  const std::uint64_t dimension = tables.size(meshDimension);
  for (const int zone : data.nodeCoordinates.zones()) {
    const auto& values = *data.nodeCoordinates.find(zone);
    for (std::size_t i = 0; i < values.size(); i += dimension) {
      const double* at = values.data() + i;
      points.push_back({at[0], at[1], dimension == 3 ? at[2] : 0.0});
    }
  }
  const bool storesCells = !data.faceCell0.zones().empty();
  for (const int zone : data.faceNodes.zones()) {
    const auto* side0 = data.faceCell0.find(zone);
    const auto* side1 = data.faceCell1.find(zone);
    const std::uint64_t count = tables.zoneSize(zone, zoneElementCount);
    for (std::uint64_t i = 0; storesCells && i < count; ++i) {
      cell0.push_back(side0->data()[i]);
      cell1.push_back(side1 == nullptr ? 0 : side1->data()[i]);
      facesOfCell.at(cell0.back() - 1).push_back(cell0.size());
      if (side1 != nullptr) {
        facesOfCell.at(cell1.back() - 1).push_back(cell0.size());
      }
    }
  }
}

Point MeshView::centreOf(const Ids& nodes) const {
  Point sum{};
  for (const std::uint64_t node : nodes) {
    sum = sum + points.at(node - 1);
  }
  return (1.0 / static_cast<double>(nodes.size())) * sum;
}

Point MeshView::centreOfCell(std::size_t cell) const {
  Point sum{};
  for (const std::uint64_t face : facesOfCell.at(cell)) {
    sum = sum + centreOf(faces.at(face - 1));
  }
  return (1.0 / static_cast<double>(facesOfCell.at(cell).size())) * sum;
}

Point MeshView::normalOf(std::size_t face) const {
  const Ids& nodes = faces.at(face);
  const Point& first = points.at(nodes[0] - 1);
  if (nodes.size() == 2) {
    return 2.0 * cross(points.at(nodes[1] - 1) - first, {0, 0, 1});
  }
  Point normal{};
  for (std::size_t i = 2; i < nodes.size(); ++i) {
    normal = normal + cross(points.at(nodes[i - 1] - 1) - first, points.at(nodes[i] - 1) - first);
  }
  return normal;
}

}  // namespace velto::testing
