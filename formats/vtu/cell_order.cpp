// SPDX-License-Identifier: Apache-2.0
//
// A cell is guessed from its base and what stands above it, then every face of the guess is looked
// for among the faces of the cell.

#include "formats/vtu/cell_order.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "embedded/base/shapes.h"

namespace velto::vtu {

using base::IdView;
using Nodes = std::vector<std::uint64_t>;

namespace {

struct Facet {
  std::size_t size;
  std::array<std::size_t, 4> corners;
};

/// The faces of a cell type as loops of its corners, outwards; the first is the base. Corners above
/// the base stand behind it, one for each of its corners or a single one.
struct Solid {
  int shape;
  VtkCellType type;
  std::size_t nodeCount;
  std::size_t facetCount;
  std::array<Facet, 6> facets;

  const Facet& base() const { return facets[0]; }
  bool hasApex() const { return nodeCount == base().size + 1; }
};

constexpr std::array<Solid, 4> kSolids = {{
    {base::cellShapeTetrahedron,
     vtkTetra,
     4,
     4,
     {{{3, {0, 2, 1}}, {3, {0, 1, 3}}, {3, {1, 2, 3}}, {3, {2, 0, 3}}}}},
    {base::cellShapePyramid,
     vtkPyramid,
     5,
     5,
     {{{4, {0, 3, 2, 1}}, {3, {0, 1, 4}}, {3, {1, 2, 4}}, {3, {2, 3, 4}}, {3, {3, 0, 4}}}}},
    {base::cellShapeWedge,
     vtkWedge,
     6,
     5,
     {{{3, {0, 1, 2}}, {3, {3, 5, 4}}, {4, {0, 3, 4, 1}}, {4, {1, 4, 5, 2}}, {4, {2, 5, 3, 0}}}}},
    {base::cellShapeHexahedron,
     vtkHexahedron,
     8,
     6,
     {{{4, {0, 3, 2, 1}},
       {4, {4, 5, 6, 7}},
       {4, {0, 1, 5, 4}},
       {4, {1, 2, 6, 5}},
       {4, {2, 3, 7, 6}},
       {4, {3, 0, 4, 7}}}}},
}};

bool holds(IdView loop, std::uint64_t node) {
  return std::find(loop.data, loop.data + loop.size, node) != loop.data + loop.size;
}

/// The node that an edge joins to a node of the base and that is not in the base, or 0.
std::uint64_t nodeAbove(const FaceLoops& faces, std::size_t base, std::uint64_t node) {
  const IdView bottom = faces.loop(base);
  for (std::size_t face = 0; face < faces.size(); ++face) {
    const IdView loop = faces.loop(face);
    const std::uint64_t* found = std::find(loop.data, loop.data + loop.size, node);
    if (face == base || found == loop.data + loop.size) {
      continue;
    }
    const auto at = static_cast<std::size_t>(found - loop.data);
    for (const std::size_t step : {std::size_t{1}, loop.size - 1}) {
      const std::uint64_t neighbour = loop.data[(at + step) % loop.size];
      if (!holds(bottom, neighbour)) {
        return neighbour;
      }
    }
  }
  return 0;
}

/// Whether a loop of the faces is this facet of a cell with these nodes, from whichever node on.
bool isFace(const FaceLoops& faces, const Facet& facet, const Nodes& nodes) {
  for (std::size_t face = 0; face < faces.size(); ++face) {
    const IdView loop = faces.loop(face);
    const std::uint64_t* found =
        std::find(loop.data, loop.data + loop.size, nodes[facet.corners[0]]);
    if (loop.size != facet.size || found == loop.data + loop.size) {
      continue;
    }
    const auto at = static_cast<std::size_t>(found - loop.data);
    std::size_t same = 0;
    while (same < facet.size && loop.data[(at + same) % facet.size] == nodes[facet.corners[same]]) {
      ++same;
    }
    if (same == facet.size) {
      return true;
    }
  }
  return false;
}

bool areDistinct(const Nodes& nodes) {
  for (std::size_t i = 1; i < nodes.size(); ++i) {
    if (std::find(nodes.begin(), nodes.begin() + static_cast<std::ptrdiff_t>(i), nodes[i]) !=
        nodes.begin() + static_cast<std::ptrdiff_t>(i)) {
      return false;
    }
  }
  return true;
}

/// Gives the nodes of a solid; false if the faces do not close into it.
bool fitSolid(const FaceLoops& faces, const Solid& solid, Nodes& nodes) {
  std::size_t base = 0;
  while (faces.loop(base).size != solid.base().size) {  // the counts of the faces say that one has
    ++base;
  }
  const IdView bottom = faces.loop(base);
  nodes.assign(solid.nodeCount, 0);
  for (std::size_t i = 0; i < bottom.size; ++i) {
    const std::size_t corner = solid.base().corners[i];
    nodes[corner] = bottom.data[i];
    nodes[solid.hasApex() ? bottom.size : corner + bottom.size] =
        nodeAbove(faces, base, bottom.data[i]);
  }
  return areDistinct(nodes) &&
         std::all_of(solid.facets.begin(),
                     solid.facets.begin() + static_cast<std::ptrdiff_t>(solid.facetCount),
                     [&](const Facet& facet) { return isFace(faces, facet, nodes); });
}

const Solid* solidOf(int shape) {
  const auto* found = std::find_if(kSolids.begin(), kSolids.end(),
                                   [shape](const Solid& solid) { return solid.shape == shape; });
  return found == kSolids.end() ? nullptr : found;
}

int shapeOf(const FaceLoops& faces) {
  std::array<unsigned, 3> counts{};  // triangles, quadrilaterals, others
  for (std::size_t face = 0; face < faces.size(); ++face) {
    const std::size_t size = faces.loop(face).size;
    ++counts[size == 3 || size == 4 ? size - 3 : 2];
  }
  return base::cellShapeOf(counts[0], counts[1], counts[2]);
}

}  // namespace

bool typeOfShape(int shape, VtkCellType& type, std::size_t& nodeCount) {
  if (const Solid* solid = solidOf(shape)) {
    type = solid->type;
  } else if (shape == base::cellShapeTriangle) {
    type = vtkTriangle;
  } else if (shape == base::cellShapeQuadrilateral) {
    type = vtkQuad;
  } else {
    return false;
  }
  nodeCount = nodeCountOf(type);
  return true;
}

std::size_t nodeCountOf(VtkCellType type) {
  switch (type) {
    case vtkTriangle:
      return 3;
    case vtkQuad:
    case vtkTetra:
      return 4;
    case vtkPyramid:
      return 5;
    case vtkWedge:
      return 6;
    case vtkHexahedron:
      return 8;
    default:
      return 0;
  }
}

VtkCellType polygonOf(std::size_t nodeCount) {
  if (nodeCount == 3) {
    return vtkTriangle;
  }
  return nodeCount == 4 ? vtkQuad : vtkPolygon;
}

// --- Faces ---------------------------------------------------------------------------------------

void FaceLoops::clear() {
  nodes_.clear();
  ends_.clear();
}

void FaceLoops::add(IdView loop, bool turned) {
  nodes_.insert(nodes_.end(), loop.data, loop.data + loop.size);
  if (turned) {
    std::reverse(nodes_.end() - static_cast<std::ptrdiff_t>(loop.size), nodes_.end());
  }
  ends_.push_back(nodes_.size());
}

IdView FaceLoops::loop(std::size_t i) const {
  const std::size_t begin = i == 0 ? 0 : ends_[i - 1];
  return {nodes_.data() + begin, ends_[i] - begin};
}

// --- Cells ---------------------------------------------------------------------------------------

VtkCellType cellOf(const FaceLoops& faces, Nodes& nodes) {
  const Solid* solid = solidOf(shapeOf(faces));
  if (solid != nullptr && fitSolid(faces, *solid, nodes)) {
    return solid->type;
  }
  nodes = faces.nodes();
  std::sort(nodes.begin(), nodes.end());
  nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
  return vtkPolyhedron;
}

bool LineJoiner::join(const FaceLoops& lines, Nodes& nodes) {
  ends_.clear();
  for (std::size_t line = 0; line < lines.size(); ++line) {
    ends_.emplace_back(lines.loop(line).data[0], line);
    ends_.emplace_back(lines.loop(line).data[1], line);
  }
  std::sort(ends_.begin(), ends_.end());
  nodes.clear();
  std::size_t line = 0;
  std::uint64_t node = lines.size() < 3 ? 0 : lines.loop(0).data[0];
  const std::uint64_t first = node;
  while (nodes.size() < lines.size()) {
    nodes.push_back(node);
    const IdView ids = lines.loop(line);
    node = ids.data[0] == node ? ids.data[1] : ids.data[0];
    const auto here =
        std::equal_range(ends_.begin(), ends_.end(), End{node, 0},
                         [](const End& a, const End& b) { return a.first < b.first; });
    if (std::distance(here.first, here.second) != 2) {
      return false;
    }
    line = here.first->second == line ? std::next(here.first)->second : here.first->second;
    if (node == first) {
      break;
    }
  }
  return node == first && nodes.size() == lines.size() && nodes.size() >= 3;
}

}  // namespace velto::vtu
