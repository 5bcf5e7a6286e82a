// SPDX-License-Identifier: Apache-2.0
//
// PieceMesh: zones in the order of their elements, and lists that are as long as they have to be.

#include "formats/vtu/PieceMesh.h"

#include <algorithm>

#include "embedded/base/CaseError.h"

namespace velto::vtu {

namespace {

std::string placeOf(const std::string& file, const base::MeshKey& key) {
  const std::string mesh = file + ": mesh " + std::to_string(key.mesh);
  return key.partition < 0 ? mesh : mesh + ", partition " + std::to_string(key.partition);
}

bool isEmpty(const base::MeshTables& tables, int zone) {
  const std::uint64_t last = tables.zoneSize(zone, zoneLastId);
  return last == 0 || last < tables.zoneSize(zone, zoneFirstId);
}

}  // namespace

bool hasCells(const base::MeshTables& tables) {
  const std::vector<int>& zones = tables.idsOf(zoneCategoryCell);
  return std::any_of(zones.begin(), zones.end(),
                     [&tables](int zone) { return !isEmpty(tables, zone); });
}

const ZoneSpan& zoneOf(const std::vector<ZoneSpan>& zones, std::uint64_t index) {
  const auto behind = std::upper_bound(
      zones.begin(), zones.end(), index,
      [](std::uint64_t wanted, const ZoneSpan& zone) { return wanted < zone.first; });
  return *(behind - 1);
}

PieceMesh::PieceMesh(const std::string& file, const base::MeshKey& key,
                     const base::MeshTables& tables, const memory::MeshData& data)
    : place_(placeOf(file, key)), key_(key), tables_(tables), data_(data) {
  nodeZones_ = spansOf(zoneCategoryNode, "node");
  faceZones_ = spansOf(zoneCategoryFace, "face");
  cellZones_ = spansOf(zoneCategoryCell, "cell");
  checkCoordinates();
}

void PieceMesh::fail(const std::string& what) const { throw base::CaseError(place_ + ": " + what); }

void PieceMesh::fail(const ZoneSpan& zone, const std::string& what) const {
  fail("zone " + std::to_string(zone.zone) + ": " + what);
}

void PieceMesh::fail(const ZoneSpan& zone, const char* element, std::uint64_t index,
                     const std::string& what) const {
  fail("zone " + std::to_string(zone.zone) + ", " + element + " " +
       std::to_string(zone.first + index + 1) + ": " + what);
}

std::vector<ZoneSpan> PieceMesh::spansOf(OrvZoneCategory category, const char* element) const {
  std::vector<ZoneSpan> spans;
  for (const int zone : tables_.idsOf(category)) {
    if (isEmpty(tables_, zone)) {
      continue;
    }
    const std::uint64_t first = tables_.zoneSize(zone, zoneFirstId);
    if (first == 0) {
      fail({zone, 0, 0}, "begins with " + std::string(element) + " 0; the first is 1");
    }
    spans.push_back({zone, first - 1, tables_.zoneSize(zone, zoneLastId) - first + 1});
  }
  std::sort(spans.begin(), spans.end(),
            [](const ZoneSpan& a, const ZoneSpan& b) { return a.first < b.first; });
  std::uint64_t next = 0;
  for (const ZoneSpan& span : spans) {
    if (span.first != next) {
      fail(span, "begins with " + std::string(element) + " " + std::to_string(span.first + 1) +
                     "; after the zones before it, " + std::to_string(next + 1) + " is expected");
    }
    next += span.count;
  }
  return spans;
}

// --- Nodes ---------------------------------------------------------------------------------------

std::size_t PieceMesh::dimension(const ZoneSpan& zone) const {
  const std::uint64_t dimension = tables_.zoneSize(zone.zone, zoneDimension);
  return dimension == 0 ? 3 : static_cast<std::size_t>(dimension);
}

void PieceMesh::checkCoordinates() const {
  if (nodeZones_.empty()) {
    fail("has no nodes");
  }
  for (const ZoneSpan& zone : nodeZones_) {
    const std::size_t each = dimension(zone);
    if (each != 2 && each != 3) {
      fail(zone, "its dimension is " + std::to_string(each) + "; nodes have 2 or 3 coordinates");
    }
    const auto* values = data_.nodeCoordinates.find(zone.zone);
    const std::size_t there = values == nullptr ? 0 : values->size() / each;
    if (there < zone.count) {
      fail(zone, "node", there, "has no coordinates");
    }
  }
}

const double* PieceMesh::coordinates(const ZoneSpan& zone) const {
  return data_.nodeCoordinates.find(zone.zone)->data();
}

std::array<double, 3> PieceMesh::point(std::uint64_t nodeId) const {
  const ZoneSpan& zone = zoneOf(nodeZones_, nodeId - 1);
  const std::size_t each = dimension(zone);
  const double* values = coordinates(zone) + (nodeId - 1 - zone.first) * each;
  return {values[0], values[1], each == 3 ? values[2] : 0};
}

// --- Lists of nodes ------------------------------------------------------------------------------

NodeLists PieceMesh::nodeLists(const ZoneSpan& zone, const memory::CountedData& lists,
                               const char* element, std::size_t least, std::size_t most) const {
  NodeLists found;
  found.ids = lists.ids.data();
  if (!lists.uniform) {
    found.counts = lists.counts.data();
    if (lists.counts.size() < zone.count) {
      fail(zone, element, lists.counts.size(), "has no number of nodes");
    }
  }
  const std::uint64_t nodes = nodeCount();
  std::size_t next = 0;
  for (std::uint64_t i = 0; i < zone.count; ++i) {
    const short count = found.counts == nullptr ? *lists.uniform : found.counts[i];
    if (count < 0 || static_cast<std::size_t>(count) < least ||
        static_cast<std::size_t>(count) > most) {
      fail(zone, element, i, "has " + std::to_string(count) + " nodes");
    }
    const std::size_t end = next + static_cast<std::size_t>(count);
    if (lists.ids.size() < end) {
      fail(zone, element, i, "the list of nodes ends within it");
    }
    for (; next < end; ++next) {
      if (found.ids[next] == 0 || found.ids[next] > nodes) {
        fail(zone, element, i,
             "node " + std::to_string(found.ids[next]) + " is none of the nodes 1 to " +
                 std::to_string(nodes));
      }
    }
  }
  found.uniform = found.counts == nullptr ? static_cast<std::size_t>(*lists.uniform) : 0;
  return found;
}

}  // namespace velto::vtu
