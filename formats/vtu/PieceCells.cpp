// SPDX-License-Identifier: Apache-2.0
//
// PieceCells: which cells have nodes of their own, which need faces, and the arrays of both.

#include "formats/vtu/PieceCells.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <utility>

#include "embedded/base/shapes.h"

namespace velto::vtu {

namespace {

/// The shape of a cell of space that is known by its number of nodes only.
int shapeWithNodes(std::size_t count) {
  switch (count) {
    case 4:
      return base::cellShapeTetrahedron;
    case 5:
      return base::cellShapePyramid;
    case 6:
      return base::cellShapeWedge;
    case 8:
      return base::cellShapeHexahedron;
    default:
      return base::cellShapePolyhedron;
  }
}

bool hasFixedNodes(int shape) {
  VtkCellType type{};
  std::size_t count = 0;
  return typeOfShape(shape, type, count);
}

void put(ArrayEncoder& encoder, std::uint64_t value) {
  encoder.put(static_cast<std::int64_t>(value));
}

}  // namespace

PieceCells::PieceCells(const PieceMesh& mesh) : mesh_(mesh) {
  bool facesAreNeeded = false;
  for (const ZoneSpan& span : mesh.cellZones()) {
    zones_.push_back(zoneFor(span));
    facesAreNeeded = facesAreNeeded || needsFaces(zones_.back());
  }
  if (facesAreNeeded) {
    faces_ = CellFaces(mesh);
  }
  forEachCell([this](const Cell& cell) {
    types_.push_back(cell.type);
    connectivitySize_ += cell.nodes.size();
    if (nodeCountOf(cell.type) == 0) {
      pointCounts_.push_back(static_cast<std::uint32_t>(cell.nodes.size()));
    }
    if (cell.type == vtkPolyhedron) {
      faceEntries_.push_back(1 + cell.faces.size() + cell.faces.nodes().size());
      facesSize_ += faceEntries_.back();
    }
  });
}

PieceCells::Zone PieceCells::zoneFor(const ZoneSpan& span) const {
  Zone zone{&span, false, {}, base::cellShapeMixed, nullptr};
  const auto record = mesh_.tables().zones.find(span.zone);
  if (record != mesh_.tables().zones.end()) {
    zone.shape = record->second.cellInfo[cellZoneCellType].value_or(base::cellShapeMixed);
  }
  const memory::CellTypeData* types = mesh_.data().cellTypes.find(span.zone);
  if (types != nullptr && types->uniform) {
    zone.shape = *types->uniform;
  } else if (types != nullptr && types->types.size() > 0) {
    if (types->types.size() < span.count) {
      mesh_.fail(span, "cell", types->types.size(), "has no type");
    }
    zone.shapes = types->types.data();
  }
  if (const memory::CountedData* lists = mesh_.data().cellNodes.find(span.zone)) {
    zone.hasNodes = true;
    zone.lists = mesh_.nodeLists(span, *lists, "cell", 1, std::numeric_limits<std::size_t>::max());
  }
  return zone;
}

bool PieceCells::needsFaces(const Zone& zone) const {
  if (!zone.hasNodes || mesh_.isPlane()) {
    return !zone.hasNodes;
  }
  if (zone.shapes == nullptr) {
    return !hasFixedNodes(zone.shape);
  }
  return !std::all_of(zone.shapes, zone.shapes + zone.span->count, hasFixedNodes);
}

// --- One cell ------------------------------------------------------------------------------------

/// The base triangle of a wedge may look either way in a case; in the file it looks outwards.
void PieceCells::turnOutwards(std::vector<std::uint64_t>& wedge) const {
  using Point = std::array<double, 3>;
  const auto between = [this](std::uint64_t from, std::uint64_t to) {
    const Point a = mesh_.point(from);
    const Point b = mesh_.point(to);
    return Point{b[0] - a[0], b[1] - a[1], b[2] - a[2]};
  };
  const Point u = between(wedge[0], wedge[1]);
  const Point v = between(wedge[0], wedge[2]);
  double up = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const Point edge = between(wedge[i], wedge[i + 3]);
    up += (u[1] * v[2] - u[2] * v[1]) * edge[0] + (u[2] * v[0] - u[0] * v[2]) * edge[1] +
          (u[0] * v[1] - u[1] * v[0]) * edge[2];
  }
  if (up > 0) {
    std::swap(wedge[1], wedge[2]);
    std::swap(wedge[4], wedge[5]);
  }
}

void PieceCells::makeFromNodes(const Zone& zone, std::uint64_t i, std::size_t start,
                               Cell& cell) const {
  const std::size_t count = zone.lists.countOf(i);
  cell.nodes.assign(zone.lists.ids + start, zone.lists.ids + start + count);
  int shape = zone.shapeOf(i);
  if (!hasFixedNodes(shape)) {
    if (mesh_.isPlane()) {
      if (count < 3) {
        mesh_.fail(*zone.span, "cell", i, "a polygon with " + std::to_string(count) + " nodes");
      }
      cell.type = polygonOf(count);
      return;
    }
    faces_.loopsOf(zone.span->first + i, cell.faces);
    if (cell.faces.size() > 0) {
      cell.type = cellOf(cell.faces, cell.nodes);
      return;
    }
    shape = shape == base::cellShapePolyhedron ? shape : shapeWithNodes(count);
  }
  std::size_t expected = 0;
  if (!typeOfShape(shape, cell.type, expected)) {
    mesh_.fail(*zone.span, "cell", i, "a polyhedron whose faces are not known");
  }
  if (count != expected) {
    mesh_.fail(*zone.span, "cell", i,
               "a " + base::cellShapeName(shape) + " with " + std::to_string(count) + " nodes");
  }
  if (cell.type == vtkWedge) {
    turnOutwards(cell.nodes);
  }
}

void PieceCells::makeFromFaces(const Zone& zone, std::uint64_t i, Cell& cell) const {
  faces_.loopsOf(zone.span->first + i, cell.faces);
  if (cell.faces.size() == 0) {
    mesh_.fail(*zone.span, "cell", i, "has no nodes, and no face knows it");
  }
  if (!mesh_.isPlane()) {
    cell.type = cellOf(cell.faces, cell.nodes);
    return;
  }
  if (!cell.joiner.join(cell.faces, cell.nodes)) {
    mesh_.fail(*zone.span, "cell", i, "its lines do not make one closed loop");
  }
  cell.type = polygonOf(cell.nodes.size());
}

template <class Visit>
void PieceCells::forEachCell(const Visit& visit) const {
  Cell cell;
  for (const Zone& zone : zones_) {
    std::size_t start = 0;
    for (std::uint64_t i = 0; i < zone.span->count; ++i) {
      if (zone.hasNodes) {
        makeFromNodes(zone, i, start, cell);
        start += zone.lists.countOf(i);
      } else {
        makeFromFaces(zone, i, cell);
      }
      visit(cell);
    }
  }
}

// --- Arrays --------------------------------------------------------------------------------------

void PieceCells::writeConnectivity(ArrayEncoder& encoder) const {
  forEachCell([&encoder](const Cell& cell) {
    for (const std::uint64_t node : cell.nodes) {
      put(encoder, node - 1);
    }
  });
}

void PieceCells::writeOffsets(ArrayEncoder& encoder) const {
  auto next = pointCounts_.begin();
  std::uint64_t end = 0;
  for (const VtkCellType type : types_) {
    const std::size_t fixed = nodeCountOf(type);
    end += fixed == 0 ? *next++ : fixed;
    put(encoder, end);
  }
}

void PieceCells::writeTypes(ArrayEncoder& encoder) const {
  encoder.put(types_.data(), types_.size() * sizeof(VtkCellType));
}

void PieceCells::writeFaces(ArrayEncoder& encoder) const {
  FaceLoops faces;
  for (std::uint64_t cell = 0; cell < types_.size(); ++cell) {
    if (types_[cell] != vtkPolyhedron) {
      continue;
    }
    faces_.loopsOf(cell, faces);
    put(encoder, faces.size());
    for (std::size_t face = 0; face < faces.size(); ++face) {
      const base::IdView loop = faces.loop(face);
      put(encoder, loop.size);
      for (std::size_t i = 0; i < loop.size; ++i) {
        put(encoder, loop.data[i] - 1);
      }
    }
  }
}

void PieceCells::writeFaceOffsets(ArrayEncoder& encoder) const {
  auto next = faceEntries_.begin();
  std::int64_t end = 0;
  for (const VtkCellType type : types_) {
    if (type == vtkPolyhedron) {
      end += static_cast<std::int64_t>(*next++);
    }
    encoder.put(type == vtkPolyhedron ? end : std::int64_t{-1});
  }
}

}  // namespace velto::vtu
