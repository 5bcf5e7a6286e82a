// SPDX-License-Identifier: Apache-2.0
//
// Which cell zones lie beside a face zone, told from many cells at once.

#include "embedded/base/zone_relations.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

namespace velto::base {
namespace {

const CellZoneRanges kThreeZones({{1, 100, 7}, {101, 200, 5}, {201, 300, 6}});

template <class Id>
std::vector<int> zonesBesideIds(const std::vector<Id>& cells) {
  MeshTables mesh;
  relateZones(mesh, kThreeZones, 1, 0, cells.data(), cells.size());
  return mesh.zones[1].sideCellZones[0];
}

/// The cell zones beside a face zone with these cells, whose ids fit into 32 bits.
std::vector<int> zonesBeside(const std::vector<std::uint64_t>& cells) {
  const std::vector<std::uint32_t> narrow(cells.begin(), cells.end());
  EXPECT_EQ(zonesBesideIds(cells), zonesBesideIds(narrow));
  return zonesBesideIds(cells);
}

TEST(ZoneRelations, NameTheZonesOfTheCellsByNumber) {
  EXPECT_EQ(zonesBeside({150, 20, 151}), (std::vector<int>{5, 7}));
}

TEST(ZoneRelations, PassOverNoCellAndCellsOfNoZone) {
  EXPECT_EQ(zonesBeside({0, 301, UINT32_MAX}), std::vector<int>());
  EXPECT_EQ(zonesBesideIds<std::uint64_t>({UINT64_MAX}), std::vector<int>());
}

TEST(ZoneRelations, MissNoCellAmongMany) {
  for (const std::size_t place : {0U, 1023U, 1024U, 1025U, 4999U}) {
    std::vector<std::uint64_t> cells(5000, 42);
    cells[place] = 299;
    EXPECT_EQ(zonesBeside(cells), (std::vector<int>{6, 7})) << place;
  }
}

TEST(ZoneRelations, ReachBeyondThirtyTwoBits) {
  const CellZoneRanges ranges(std::vector<CellZoneRanges::Range>{{1, UINT64_MAX / 2, 3}});
  const std::vector<std::uint32_t> cells(3000, UINT32_MAX);
  MeshTables mesh;
  relateZones(mesh, ranges, 1, 1, cells.data(), cells.size());
  EXPECT_EQ(mesh.zones[1].sideCellZones[1], std::vector<int>{3});
}

}  // namespace
}  // namespace velto::base
