// SPDX-License-Identifier: Apache-2.0
//
// Which cell zones lie beside a face zone, told from many cells at once.

#include "embedded/base/zone_relations.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace velto::base {
namespace {

const CellZoneRanges kThreeZones({{1, 100, 7}, {101, 200, 5}, {201, 300, 6}});

/// The cell zones beside a face zone with these cells.
template <class Id>
std::vector<int> zonesBeside(const std::vector<Id>& cells) {
  MeshTables mesh;
  relateZones(mesh, kThreeZones, 1, 0, cells.data(), cells.size());
  return mesh.zones[1].sideCellZones[0];
}

template <class Id>
class ZoneRelations : public testing::Test {};

using Widths = testing::Types<std::uint32_t, std::uint64_t>;
TYPED_TEST_SUITE(ZoneRelations, Widths);

TYPED_TEST(ZoneRelations, NamesTheZonesOfTheCellsByNumber) {
  EXPECT_EQ(zonesBeside<TypeParam>({150, 20, 151}), (std::vector<int>{5, 7}));
}

TYPED_TEST(ZoneRelations, PassesOverNoCellAndCellsOfNoZone) {
  EXPECT_EQ(zonesBeside<TypeParam>({0, 301, std::numeric_limits<TypeParam>::max()}),
            std::vector<int>());
}

TYPED_TEST(ZoneRelations, MissesNoCellAmongMany) {
  for (const std::size_t place : {0, 1023, 1024, 1025, 4999}) {
    std::vector<TypeParam> cells(5000, 42);
    cells[place] = 299;
    EXPECT_EQ(zonesBeside(cells), (std::vector<int>{6, 7})) << place;
  }
}

TEST(ZoneRelationsOfWideRanges, ReachBeyondThirtyTwoBits) {
  const CellZoneRanges ranges(std::vector<CellZoneRanges::Range>{{1, UINT64_MAX / 2, 3}});
  const std::vector<std::uint32_t> cells(3000, UINT32_MAX);
  MeshTables mesh;
  relateZones(mesh, ranges, 1, 1, cells.data(), cells.size());
  EXPECT_EQ(mesh.zones[1].sideCellZones[1], std::vector<int>{3});
}

}  // namespace
}  // namespace velto::base
