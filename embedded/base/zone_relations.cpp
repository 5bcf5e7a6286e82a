// SPDX-License-Identifier: Apache-2.0
//
// Zone relations from cell ids. Neighbouring faces mostly lie in one cell zone, so the range of the
// last hit is tried first and the sorted ranges are searched only on a miss.

#include "embedded/base/zone_relations.h"

#include <algorithm>
#include <set>
#include <vector>

namespace velto::base {

namespace {

struct Range {
  std::uint64_t first;
  std::uint64_t last;
  int zone;
};

std::vector<Range> cellRanges(const MeshTables& mesh) {
  std::vector<Range> ranges;
  for (const int zone : mesh.idsOf(zoneCategoryCell)) {
    ranges.push_back({mesh.zoneSize(zone, zoneFirstId), mesh.zoneSize(zone, zoneLastId), zone});
  }
  std::sort(ranges.begin(), ranges.end(),
            [](const Range& a, const Range& b) { return a.first < b.first; });
  return ranges;
}

void addOnce(std::vector<int>& list, int id) {
  if (std::find(list.begin(), list.end(), id) == list.end()) {
    list.push_back(id);
  }
}

}  // namespace

void relateZones(MeshTables& mesh, int faceZone, int side, const std::uint64_t* cells,
                 std::size_t n) {
  const std::vector<Range> ranges = cellRanges(mesh);
  std::set<int> zones;
  std::uint64_t first = 1;
  std::uint64_t last = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const std::uint64_t cell = cells[i];
    if (cell >= first && cell <= last) {
      continue;
    }
    const auto after =
        std::upper_bound(ranges.begin(), ranges.end(), cell,
                         [](std::uint64_t id, const Range& range) { return id < range.first; });
    if (cell == 0 || after == ranges.begin() || std::prev(after)->last < cell) {
      continue;
    }
    first = std::prev(after)->first;
    last = std::prev(after)->last;
    zones.insert(std::prev(after)->zone);
  }
  auto& sideZones = mesh.zones[faceZone].sideCellZones.at(static_cast<std::size_t>(side));
  for (const int zone : zones) {
    addOnce(sideZones, zone);
    addOnce(mesh.zones[zone].boundingFaceZones, faceZone);
  }
}

void deriveElementCounts(MeshTables& mesh) {
  for (auto& entry : mesh.zones) {
    auto& sizes = entry.second.sizes;
    if (sizes[zoneFirstId] && sizes[zoneLastId] && !sizes[zoneElementCount]) {
      sizes[zoneElementCount] = *sizes[zoneLastId] - *sizes[zoneFirstId] + 1;
    }
  }
}

}  // namespace velto::base
