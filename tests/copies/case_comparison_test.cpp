// SPDX-License-Identifier: Apache-2.0
//
// CaseComparison: each difference between a case and its copy is a line, and equal cases have none.

#include <functional>
#include <gtest/gtest.h>
#include <limits>

#include "embedded/memory/MemoryProvider.h"
#include "orv/CaseComparison.h"
#include "testing/cases.h"
#include "tests/copies/copy_whole.h"

namespace velto::testing {
namespace {

using memory::Case;

struct Row {
  std::string name;
  std::function<cases::CasePtr()> make;
  std::function<void(Case&)> change;
  Texts expected;
};

/// Changes one value of a slice, which copies of a case share.
template <class Value>
void change(memory::Slice<Value>& slice, std::size_t position, Value value) {
  std::vector<Value> values(slice.begin(), slice.end());
  values.at(position) = value;
  slice = memory::Slice<Value>(std::move(values));
}

class Comparison : public ::testing::TestWithParam<Row> {};

TEST_P(Comparison, NamesTheDifference) {
  memory::MemoryProvider source(GetParam().make());
  const cases::CasePtr changed = GetParam().make();
  GetParam().change(*changed);
  memory::MemoryProvider copy(changed);
  ASSERT_TRUE(source.startReading("", dataClassCase));
  ASSERT_TRUE(copy.startReading("", dataClassCase));
  orv::CaseComparison comparison(source, copy);
  const orv::Selection mesh = selectionsOf(source).front();
  comparison.compareMesh(mesh, mesh);
  comparison.compareResults(mesh, mesh);
  comparison.compareModel(1);
  comparison.compareSettings();
  EXPECT_EQ(comparison.differences(), GetParam().expected);
  EXPECT_EQ(comparison.differenceCount(), GetParam().expected.size());
}

const std::vector<Row> kRows = {
    {"NothingOfEqualCases", cases::twoHexes, [](Case&) {}, {}},
    {"SizesOfTheMesh",
     cases::twoHexes,
     [](Case& copy) { copy.mesh().sizes[meshCellCount] = 3; },
     {"mesh 1, restart: cells: 2 and 3"}},
    {"Units",
     cases::twoHexes,
     [](Case& copy) { copy.mesh().units = "ft"; },
     {"mesh 1, restart: units: 'm' and 'ft'"}},
    {"ListsOfZones",
     cases::twoHexes,
     [](Case& copy) { copy.mesh().zoneIds[zoneCategoryNode] = {}; },
     {"mesh 1, restart: node zones: 1 and -"}},
    {"RangesOfZones",
     cases::twoHexes,
     [](Case& copy) { copy.zone(2).sizes[zoneLastId] = 9; },
     {"mesh 1, restart: face zone 2: last id: 1 and 9"}},
    {"NamesOfZones",
     cases::twoHexes,
     [](Case& copy) { copy.zone(4).texts[zoneName] = "FLUID"; },
     {"mesh 1, restart: cell zone 4: name: 'fluid' and 'FLUID'"}},
    {"ShapesOfCellZones",
     cases::twoHexes,
     [](Case& copy) { copy.zone(4).cellInfo[cellZoneCellType] = 5; },
     {"mesh 1, restart: cell zone 4: shape: 4 and 5"}},
    {"TypesOfFaceZones",
     cases::twoHexes,
     [](Case& copy) { copy.zone(3).faceInfo[faceZoneType] = 100; },
     {"mesh 1, restart: face zone 3: type: 3 and 100"}},
    {"Coordinates",
     cases::oneHex,
     [](Case& copy) {
       change(copy.arrays().nodeCoordinates[1], 5, -0.0);
       change(copy.arrays().nodeCoordinates[1], 7, 0.5);
     },
     {"mesh 1, restart: node zone 1 'points': 2 of 24 coordinates differ, the first at 6: 0 and "
      "-0"}},
    {"NodesOfFaces",
     cases::twoHexes,
     [](Case& copy) { change(copy.arrays().faceNodes[2].ids, 1, std::uint64_t{12}); },
     {"mesh 1, restart: face zone 2 'inside': 1 of 4 node ids differ, the first at 2: 5 and 12"}},
    {"CellsOnASide",
     cases::twoHexes,
     [](Case& copy) { change(copy.arrays().faceCell1[2], 0, std::uint64_t{1}); },
     {"mesh 1, restart: face zone 2 'inside': 1 of 1 cells on side 1 differ, the first at 1: 2 "
      "and 1"}},
    {"FamiliesThatListOtherZones",
     cases::twoHexes,
     [](Case& copy) { copy.arrays().faceCell1 = {}; },
     {"mesh 1, restart: zones with cells on side 1: 2 and -"}},
    {"NodesOfCells",
     cases::postHex,
     [](Case& copy) {
       change(copy.arrays(cases::kPostMesh).cellNodes[3].ids, 0, std::uint64_t{8});
     },
     {"mesh 1, post: cell zone 3 'fluid': 1 of 8 node ids differ, the first at 1: 1 and 8"}},
    {"TypesOfCells",
     cases::twoHexes,
     [](Case& copy) { copy.arrays().cellTypes[4].uniform = 5; },
     {"mesh 1, restart: cell zone 4 'fluid': 2 of 2 cell types differ, the first at 1: 4 and 5"}},
    {"PartitionsOfCells",
     cases::withPartitions,
     [](Case& copy) {
       change(copy.arrays({1, targetPartitionedPost, 0}).cellPartitions[3].partitions, 0, 7);
     },
     {"mesh 1, partitioned post 0: cell zone 3 'fluid': 1 of 1 cell partitions differ, the first "
      "at 1: 0 and 7"}},
    {"Phases",
     cases::withResults,
     [](Case& copy) { copy.tables.phases[1].name = "steam"; },
     {"mesh 1, restart: phases: 'water,air' and 'water,steam'"}},
    {"Settings",
     cases::withPhysics,
     [](Case& copy) {
       copy.tables.solverType = "";  // its settings stand below no solver type
       copy.setSetting("domains/water/location", "nowhere");
     },
     {"settings: domains/water/location: 'channel' and 'nowhere'"}},
};

INSTANTIATE_TEST_SUITE_P(, Comparison, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

TEST(ComparedCases, TakesAValueThatIsNoNumberForEqualToItself) {
  const auto makeCase = [] {
    cases::CasePtr made = cases::oneHex();
    change(made->arrays().nodeCoordinates[1], 0, std::numeric_limits<double>::quiet_NaN());
    return made;
  };
  memory::MemoryProvider source(makeCase());
  memory::MemoryProvider copy(makeCase());
  ASSERT_TRUE(source.startReading("", dataClassCase));
  ASSERT_TRUE(copy.startReading("", dataClassCase));
  EXPECT_EQ(differences(source, copy), Texts());
}

TEST(ComparedCases, CountsDifferencesThatItDoesNotKeep) {
  const cases::CasePtr plain = cases::withPhysics();
  plain->tables.solverType = "";
  memory::MemoryProvider source(plain);
  const cases::CasePtr changed = cases::withPhysics();
  for (int i = 0; i < 200; ++i) {
    changed->setSetting("more/" + std::to_string(i), "x");
  }
  memory::MemoryProvider more(changed);
  ASSERT_TRUE(source.startReading("", dataClassCase));
  ASSERT_TRUE(more.startReading("", dataClassCase));
  orv::CaseComparison comparison(more, source);
  comparison.compareSettings();
  EXPECT_EQ(comparison.differenceCount(), 200U);
  EXPECT_EQ(comparison.differences().size(), orv::CaseComparison::kMostKept);
}

}  // namespace
}  // namespace velto::testing
