// SPDX-License-Identifier: Apache-2.0
//
// Cells put together from faces: in whichever order the faces come and wherever their loops begin,
// and what is no cell with a name.

#include "formats/vtu/cell_order.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>

namespace velto::vtu {
namespace {

using Ids = std::vector<std::uint64_t>;

FaceLoops loopsOf(const std::vector<Ids>& faces) {
  FaceLoops loops;
  for (const Ids& face : faces) {
    loops.add({face.data(), face.size()}, false);
  }
  return loops;
}

/// The faces that VTK gives a cell whose nodes have these ids, outwards.
std::vector<Ids> vtkFaces(VtkCellType type, const Ids& nodes) {
  std::vector<Ids> corners;
  if (type == vtkTetra) {
    corners = {{0, 1, 3}, {1, 2, 3}, {2, 0, 3}, {0, 2, 1}};
  } else if (type == vtkPyramid) {
    corners = {{0, 3, 2, 1}, {0, 1, 4}, {1, 2, 4}, {2, 3, 4}, {3, 0, 4}};
  } else if (type == vtkWedge) {
    corners = {{0, 1, 2}, {3, 5, 4}, {0, 3, 4, 1}, {1, 4, 5, 2}, {2, 5, 3, 0}};
  } else {
    corners = {{0, 4, 7, 3}, {1, 2, 6, 5}, {0, 1, 5, 4}, {3, 7, 6, 2}, {0, 3, 2, 1}, {4, 5, 6, 7}};
  }
  for (Ids& face : corners) {
    for (std::uint64_t& corner : face) {
      corner = nodes.at(corner);
    }
  }
  return corners;
}

/// Faces with their loops turned to begin at the smallest node, in order.
std::vector<Ids> normal(std::vector<Ids> faces) {
  for (Ids& face : faces) {
    std::rotate(face.begin(), std::min_element(face.begin(), face.end()), face.end());
  }
  std::sort(faces.begin(), faces.end());
  return faces;
}

TEST(CellOrder, HasTheFacesOfTheCellInAnyOrder) {
  for (const VtkCellType type : {vtkTetra, vtkPyramid, vtkWedge, vtkHexahedron}) {
    Ids ids(nodeCountOf(type));
    std::iota(ids.begin(), ids.end(), 11);
    std::vector<Ids> faces = vtkFaces(type, ids);
    const std::vector<Ids> expected = normal(faces);
    std::sort(faces.begin(), faces.end());
    std::size_t turn = 0;
    do {
      Ids& face = faces[turn++ % faces.size()];
      std::rotate(face.begin(), face.begin() + 1, face.end());
      Ids nodes;
      ASSERT_EQ(cellOf(loopsOf(faces), nodes), type);
      ASSERT_EQ(normal(vtkFaces(type, nodes)), expected);
      std::sort(nodes.begin(), nodes.end());
      ASSERT_EQ(nodes, ids);
    } while (std::next_permutation(faces.begin(), faces.end()));
  }
}

TEST(CellOrder, TurnsALoopForTheOtherSide) {
  const Ids face = {4, 5, 6};
  FaceLoops loops;
  loops.add({face.data(), face.size()}, true);
  EXPECT_EQ(loops.nodes(), Ids({6, 5, 4}));
}

struct Row {
  std::string name;
  std::vector<Ids> faces;
  Ids nodes;
};

/// The unit cube and what is done to it.
TEST(CellOrder, IsAPolyhedronWhereTheFacesDoNotClose) {
  const std::vector<Row> rows = {
      {"a face looks inwards",
       {{1, 5, 8, 4}, {2, 3, 7, 6}, {1, 2, 6, 5}, {4, 8, 7, 3}, {1, 2, 3, 4}, {5, 6, 7, 8}},
       {1, 2, 3, 4, 5, 6, 7, 8}},
      {"a face is crossed",
       {{1, 5, 8, 4}, {2, 3, 7, 6}, {1, 2, 6, 5}, {4, 8, 7, 3}, {1, 4, 3, 2}, {5, 6, 8, 7}},
       {1, 2, 3, 4, 5, 6, 7, 8}},
      {"a face comes twice",
       {{1, 5, 8, 4}, {2, 3, 7, 6}, {1, 2, 6, 5}, {4, 8, 7, 3}, {1, 4, 3, 2}, {1, 4, 3, 2}},
       {1, 2, 3, 4, 5, 6, 7, 8}},
      {"a face has a node of its own",
       {{1, 5, 8, 4}, {2, 3, 7, 6}, {1, 2, 6, 5}, {4, 8, 7, 3}, {1, 4, 3, 2}, {5, 6, 7, 9}},
       {1, 2, 3, 4, 5, 6, 7, 8, 9}},
      {"an edge has a node more",
       {{1, 5, 8, 4}, {2, 3, 7, 6}, {1, 2, 6, 5}, {4, 8, 7, 3}, {1, 4, 3, 9, 2}, {5, 6, 7, 8}},
       {1, 2, 3, 4, 5, 6, 7, 8, 9}},
      {"a face is missing",
       {{1, 5, 8, 4}, {2, 3, 7, 6}, {1, 2, 6, 5}, {4, 8, 7, 3}, {1, 4, 3, 2}},
       {1, 2, 3, 4, 5, 6, 7, 8}},
      {"all nodes are one",
       {{1, 1, 1, 1}, {1, 1, 1, 1}, {1, 1, 1, 1}, {1, 1, 1, 1}, {1, 1, 1, 1}, {1, 1, 1, 1}},
       {1}},
      {"four triangles apart",
       {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12}},
       {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}},
      {"one face", {{3, 1, 2}}, {1, 2, 3}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    Ids nodes;
    EXPECT_EQ(cellOf(loopsOf(row.faces), nodes), vtkPolyhedron);
    EXPECT_EQ(nodes, row.nodes);
  }
}

TEST(LineJoiner, JoinsLinesToALoop) {
  LineJoiner joiner;
  Ids nodes;
  EXPECT_TRUE(joiner.join(loopsOf({{5, 4}, {1, 2}, {4, 1}, {2, 5}}), nodes));
  EXPECT_EQ(nodes, Ids({5, 4, 1, 2}));
  EXPECT_TRUE(joiner.join(loopsOf({{5, 4}, {2, 1}, {4, 1}, {5, 2}}), nodes));
  EXPECT_EQ(nodes, Ids({5, 4, 1, 2}));
}

TEST(LineJoiner, RefusesWhatIsNoLoop) {
  const std::vector<Row> rows = {
      {"no line", {}, {}},
      {"two lines", {{1, 2}, {2, 1}}, {}},
      {"a gap", {{1, 2}, {2, 3}, {3, 4}}, {}},
      {"two loops", {{1, 2}, {2, 3}, {3, 1}, {4, 5}, {5, 6}, {6, 4}}, {}},
      {"a node on both halves", {{1, 2}, {2, 3}, {3, 1}, {1, 5}, {5, 6}, {6, 1}}, {}},
      {"a line without length", {{1, 1}, {1, 2}, {2, 1}}, {}},
      {"the same line four times", {{1, 2}, {1, 2}, {1, 2}, {1, 2}}, {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    LineJoiner joiner;
    Ids nodes;
    EXPECT_FALSE(joiner.join(loopsOf(row.faces), nodes));
  }
}

}  // namespace
}  // namespace velto::vtu
