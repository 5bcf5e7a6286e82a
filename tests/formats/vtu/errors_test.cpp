// SPDX-License-Identifier: Apache-2.0
//
// Meshes that cannot be written, and the zone and element that are named for it.

#include <functional>
#include <gtest/gtest.h>
#include <limits>

#include "tests/formats/vtu/vtu_cases.h"

namespace velto::testing {
namespace {

using memory::Case;
using memory::Slice;
using Ids = std::vector<std::uint64_t>;

constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();

struct Row {
  std::string name;
  std::function<void(Case&)> damage;
  std::string expected;
};

template <class Value>
Slice<Value> slice(const std::vector<Value>& values) {
  return Slice<Value>(values);
}

void expectErrors(const std::function<cases::CasePtr()>& make, const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const cases::CasePtr made = make();
    row.damage(*made);
    const Written written(*made);
    ASSERT_FALSE(written.errors().empty());
    EXPECT_EQ(written.errors(),
              Texts({"Error:\n\tend of writing: case.vtu: " + row.expected,
                     "Error:\n\tend of writing: nothing was written because of the error before"}));
    EXPECT_EQ(written.names(), Texts());
  }
}

TEST(ErrorsOfVtu, NameWhatIsWrongWithZonesAndNodes) {
  expectErrors(
      cases::twoBodies,
      {
          {"no mesh", [](Case& made) { made.tables.meshes.clear(); },
           "no mesh of the case has cells"},
          {"no cells", [](Case& made) { made.mesh().zoneIds.erase(zoneCategoryCell); },
           "no mesh of the case has cells"},
          {"no nodes", [](Case& made) { made.mesh().zoneIds.erase(zoneCategoryNode); },
           "mesh 1: has no nodes"},
          {"no coordinates", [](Case& made) { made.arrays().nodeCoordinates = {}; },
           "mesh 1: zone 1, node 1: has no coordinates"},
          {"few coordinates",
           [](Case& made) { made.arrays().nodeCoordinates[1] = slice(std::vector<double>(35)); },
           "mesh 1: zone 1, node 12: has no coordinates"},
          {"many nodes", [](Case& made) { made.zone(1).sizes[zoneLastId] = kMost; },
           "mesh 1: zone 1, node 13: has no coordinates"},
          {"a dimension of 1", [](Case& made) { made.zone(1).sizes[zoneDimension] = 1; },
           "mesh 1: zone 1: its dimension is 1; nodes have 2 or 3 coordinates"},
          {"cells from 0", [](Case& made) { made.zone(5).sizes[zoneFirstId] = 0; },
           "mesh 1: zone 5: begins with cell 0; the first is 1"},
          {"a gap between zones",
           [](Case& made) {
             made.zone(6).sizes[zoneFirstId] = 3;
             made.zone(6).sizes[zoneLastId] = 3;
           },
           "mesh 1: zone 6: begins with cell 3; after the zones before it, 2 is expected"},
          {"zones that overlap", [](Case& made) { made.zone(6).sizes[zoneFirstId] = 1; },
           "mesh 1: zone 6: begins with cell 1; after the zones before it, 2 is expected"},
          {"faces that begin late", [](Case& made) { made.zone(2).sizes[zoneLastId] = 2; },
           "mesh 1: zone 3: begins with face 2; after the zones before it, 3 is expected"},
      });
}

TEST(ErrorsOfVtu, NameWhatIsWrongWithFaces) {
  expectErrors(
      cases::twoBodies,
      {
          {"no face knows its cells",
           [](Case& made) {
             made.arrays().faceCell0 = {};
             made.arrays().faceCell1 = {};
           },
           "mesh 1: zone 5, cell 1: has no nodes, and no face knows it"},
          {"many cells", [](Case& made) { made.zone(6).sizes[zoneLastId] = kMost - 7; },
           "mesh 1: zone 6: has 18446744073709551607 cells without nodes; all faces have 12 cells "
           "beside them"},
          {"a cell more", [](Case& made) { made.zone(6).sizes[zoneLastId] = 3; },
           "mesh 1: zone 6, cell 3: has no nodes, and no face knows it"},
          {"a cell that is none",
           [](Case& made) {
             made.arrays().faceCell0[3] = slice(Ids{1, 1, 1, 9, 1});
           },
           "mesh 1: zone 3, face 5: cell 9 is none of the cells 1 to 2"},
          {"few cells on a side",
           [](Case& made) {
             made.arrays().faceCell0[3] = slice(Ids{1, 1, 1});
           },
           "mesh 1: zone 3, face 5: has no cell, and no 0 for none, on side 0"},
          {"no nodes of faces", [](Case& made) { made.arrays().faceNodes.remove(3); },
           "mesh 1: zone 3: its faces have no nodes"},
          {"no numbers of nodes", [](Case& made) { made.arrays().faceNodes[3].uniform = {}; },
           "mesh 1: zone 3, face 2: has no number of nodes"},
          {"no nodes", [](Case& made) { made.arrays().faceNodes[3].uniform = short{0}; },
           "mesh 1: zone 3, face 2: has 0 nodes"},
          {"fewer than no nodes",
           [](Case& made) { made.arrays().faceNodes[3].uniform = short{-4}; },
           "mesh 1: zone 3, face 2: has -4 nodes"},
          {"lines in space",
           [](Case& made) {
             made.arrays().faceNodes[3].uniform = {};
             made.arrays().faceNodes[3].counts = slice(std::vector<short>{4, 4, 2, 4, 4});
           },
           "mesh 1: zone 3, face 4: has 2 nodes"},
          {"a list that ends early",
           [](Case& made) { made.arrays().faceNodes[3].uniform = short{5}; },
           "mesh 1: zone 3, face 6: the list of nodes ends within it"},
          {"a node that is none",
           [](Case& made) {
             made.arrays().faceNodes[2].ids = slice(Ids{2, 5, 13, 8});
           },
           "mesh 1: zone 2, face 1: node 13 is none of the nodes 1 to 12"},
          {"a node 0",
           [](Case& made) {
             made.arrays().faceNodes[2].ids = slice(Ids{2, 5, 0, 8});
           },
           "mesh 1: zone 2, face 1: node 0 is none of the nodes 1 to 12"},
      });
}

TEST(ErrorsOfVtu, NameWhatIsWrongWithCellsThatHaveNodes) {
  expectErrors(
      allShapesByNodes,
      {
          {"a node that is none",
           [](Case& made) {
             Ids ids(made.arrays().cellNodes[4].ids.begin(), made.arrays().cellNodes[4].ids.end());
             ids[8] = kMost;
             made.arrays().cellNodes[4].ids = slice(ids);
           },
           "mesh 1: zone 4, cell 2: node 18446744073709551615 is none of the nodes 1 to 18"},
          {"a list that ends early",
           [](Case& made) { made.arrays().cellNodes[4].ids = slice(Ids(22, 1)); },
           "mesh 1: zone 4, cell 4: the list of nodes ends within it"},
          {"few numbers of nodes",
           [](Case& made) {
             made.arrays().cellNodes[4].counts = slice(std::vector<short>{8, 5});
           },
           "mesh 1: zone 4, cell 3: has no number of nodes"},
          {"another shape",
           [](Case& made) {
             made.arrays().cellTypes[4].types = slice(std::vector<int>{4, 5, 4, 2});
           },
           "mesh 1: zone 4, cell 3: a hexahedron with 6 nodes"},
          {"few types",
           [](Case& made) { made.arrays().cellTypes[4].types = slice(std::vector<int>{4}); },
           "mesh 1: zone 4, cell 2: has no type"},
          {"a polyhedron without faces",
           [](Case& made) {
             made.arrays().cellTypes[4].types = slice(std::vector<int>{4, 5, 7, 2});
           },
           "mesh 1: zone 4, cell 3: a polyhedron whose faces are not known"},
          {"an unknown shape",
           [](Case& made) {
             made.arrays().cellTypes[4].types = slice(std::vector<int>{99, 5, 6, 2});
             made.arrays().cellNodes[4].counts = slice(std::vector<short>{7, 6, 6, 4});
           },
           "mesh 1: zone 4, cell 1: a polyhedron whose faces are not known"},
          {"few partitions",
           [](Case& made) {
             made.arrays().cellPartitions[4].partitions = slice(std::vector<int>{1, 1});
           },
           "mesh 1: zone 4, cell 3: has no partition"},
      });
}

TEST(ErrorsOfVtu, NameWhatIsWrongInAPlane) {
  expectErrors(
      cases::quad2d,
      {
          {"an open cell",
           [](Case& made) {
             made.arrays().faceNodes[3].ids = slice(Ids{1, 2, 5, 4, 4, 2, 2, 3, 3, 6, 6, 5});
           },
           "mesh 1: zone 4, cell 1: its lines do not make one closed loop"},
          {"a face with three nodes",
           [](Case& made) { made.arrays().faceNodes[3].uniform = short{3}; },
           "mesh 1: zone 3, face 2: has 3 nodes"},
          {"a polygon with two nodes",
           [](Case& made) {
             made.arrays().cellTypes = {};
             made.zone(4).cellInfo[cellZoneCellType] = {};
             made.arrays().cellNodes[4].uniform = short{2};
             made.arrays().cellNodes[4].ids = slice(Ids{1, 2, 3, 4});
           },
           "mesh 1: zone 4, cell 1: a polygon with 2 nodes"},
      });
}

TEST(ErrorsOfVtu, NameThePartition) {
  expectErrors(cases::withPartitions,
               {{"few coordinates",
                 [](Case& made) {
                   made.arrays({1, targetPartitionedPost, 1}).nodeCoordinates[1] =
                       slice(std::vector<double>(6));
                 },
                 "mesh 1, partition 1: zone 1, node 3: has no coordinates"}});
}

/// The case itself is written, the results are not: what is there is the mesh alone.
TEST(ErrorsOfVtu, LeaveTheMeshWhereTheResultsAreWrong) {
  const cases::CasePtr made = cases::withResults();
  made->arrays().variable({1, zoneCategoryNode, "velocity"}).zones[1] =
      slice(std::vector<double>(23));
  const Written written(*made);
  EXPECT_EQ(written.errors(),
            Texts({"Error:\n\tend of writing: case.vtu: mesh 1: zone 1, node 8: has no value of "
                   "the variable velocity",
                   "Error:\n\tend of writing: nothing was written because of the error before"}));
  EXPECT_EQ(written.lines(), Written(*cases::oneHex()).lines());
}

TEST(ErrorsOfVtu, NameAVariableOnWhichPiecesDisagree) {
  const cases::CasePtr made = cases::withPartitions();
  addPhase(*made, 1, "water");
  for (const int partition : {0, 1}) {
    memory::VariableData& data =
        made->arrays({1, targetPartitionedPost, partition}).variable({1, zoneCategoryCell, "heat"});
    data.valuesPerEntity = partition == 0 ? 1 : 2;
    data.zones[3] = slice(std::vector<double>(2));
  }
  EXPECT_EQ(Written(*made).errors(),
            Texts({"Error:\n\tend of writing: case.vtu: mesh 1, partition 1: the variable heat has "
                   "2 values an element, elsewhere 1",
                   "Error:\n\tend of writing: nothing was written because of the error before"}));
}

}  // namespace
}  // namespace velto::testing
