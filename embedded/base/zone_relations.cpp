// SPDX-License-Identifier: Apache-2.0
//
// Zone relations from cell ids. Neighbouring faces mostly lie in one cell zone, so the range of the
// last hit is tried first, on a block of them, and the sorted ranges are searched only on a miss.

#include "embedded/base/zone_relations.h"

#include <algorithm>
#include <set>
#include <utility>

#include "embedded/base/id_ranges.h"

namespace velto::base {

namespace {

std::vector<CellZoneRanges::Range> rangesOf(const MeshTables& mesh) {
  std::vector<CellZoneRanges::Range> ranges;
  for (const int zone : mesh.idsOf(zoneCategoryCell)) {
    ranges.push_back({mesh.zoneSize(zone, zoneFirstId), mesh.zoneSize(zone, zoneLastId), zone});
  }
  return ranges;
}

}  // namespace

CellZoneRanges::CellZoneRanges(const MeshTables& mesh) : CellZoneRanges(rangesOf(mesh)) {}

CellZoneRanges::CellZoneRanges(std::vector<Range> ranges) : ranges_(std::move(ranges)) {
  std::sort(ranges_.begin(), ranges_.end(),
            [](const Range& a, const Range& b) { return a.first < b.first; });
}

const CellZoneRanges::Range* CellZoneRanges::find(std::uint64_t cell) const {
  const auto after =
      std::upper_bound(ranges_.begin(), ranges_.end(), cell,
                       [](std::uint64_t id, const Range& range) { return id < range.first; });
  if (cell == 0 || after == ranges_.begin() || std::prev(after)->last < cell) {
    return nullptr;
  }
  return &*std::prev(after);
}

namespace {

constexpr std::size_t kCellsAtOnce = 1024;

template <class Id>
void relateCells(MeshTables& mesh, const CellZoneRanges& ranges, int faceZone, int side,
                 const Id* cells, std::size_t n) {
  std::set<int> zones;
  CellZoneRanges::Range last{1, 0, 0};
  for (std::size_t begin = 0; begin < n; begin += kCellsAtOnce) {
    const std::size_t end = std::min(n, begin + kCellsAtOnce);
    if (areWithin(last.first, last.last, cells + begin, end - begin)) {
      continue;
    }
    for (std::size_t i = begin; i < end; ++i) {
      if (cells[i] >= last.first && cells[i] <= last.last) {
        continue;
      }
      if (const CellZoneRanges::Range* found = ranges.find(cells[i])) {
        last = *found;
        zones.insert(last.zone);
      }
    }
  }
  mesh.zones[faceZone]
      .sideCellZones.at(static_cast<std::size_t>(side))
      .assign(zones.begin(), zones.end());
}

}  // namespace

void relateZones(MeshTables& mesh, const CellZoneRanges& ranges, int faceZone, int side,
                 const std::uint64_t* cells, std::size_t n) {
  relateCells(mesh, ranges, faceZone, side, cells, n);
}

void relateZones(MeshTables& mesh, const CellZoneRanges& ranges, int faceZone, int side,
                 const std::uint32_t* cells, std::size_t n) {
  relateCells(mesh, ranges, faceZone, side, cells, n);
}

void deriveBoundingFaceZones(MeshTables& mesh) {
  for (const int zone : mesh.idsOf(zoneCategoryCell)) {
    mesh.zones[zone].boundingFaceZones.clear();
  }
  for (const int faceZone : mesh.idsOf(zoneCategoryFace)) {
    const auto sides = mesh.zones[faceZone].sideCellZones;
    for (const std::vector<int>& side : sides) {
      for (const int cellZone : side) {
        std::vector<int>& bounding = mesh.zones[cellZone].boundingFaceZones;
        if (bounding.empty() || bounding.back() != faceZone) {
          bounding.push_back(faceZone);
        }
      }
    }
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
