// SPDX-License-Identifier: Apache-2.0
//
// CellFaces: one pass over the faces counts those of each cell, a second one enters them.

#include "formats/vtu/CellFaces.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace velto::vtu {

template <class Visit>
void CellFaces::forEachSide(const Visit& visit) const {
  for (const Zone& zone : zones_) {
    for (std::uint64_t i = 0; i < zone.span->count; ++i) {
      for (const std::uint64_t side : {0, 1}) {
        const std::uint64_t cell = zone.sides[side] == nullptr ? 0 : zone.sides[side][i];
        if (cell != 0) {
          visit(zone, i, side, cell);
        }
      }
    }
  }
}

CellFaces::CellFaces(const PieceMesh& mesh) : mesh_(&mesh) {
  for (const ZoneSpan& span : mesh.faceZones()) {
    addZone(span);
  }
  const std::uint64_t cells = mesh.cellCount();
  std::uint64_t known = 0;
  forEachSide([&](const Zone& zone, std::uint64_t face, std::uint64_t, std::uint64_t cell) {
    ++known;
    if (cell > cells) {
      mesh.fail(
          *zone.span, "face", face,
          "cell " + std::to_string(cell) + " is none of the cells 1 to " + std::to_string(cells));
    }
  });
  if (known == 0) {
    return;
  }
  // Cells that no list speaks of would be taken on trust here.
  for (const ZoneSpan& zone : mesh.cellZones()) {
    if (mesh.data().cellNodes.find(zone.zone) == nullptr && zone.count > known) {
      mesh.fail(zone, "has " + std::to_string(zone.count) +
                          " cells without nodes; all faces have " + std::to_string(known) +
                          " cells beside them");
    }
  }
  starts_.resize(cells + 1);
  forEachSide(
      [&](const Zone&, std::uint64_t, std::uint64_t, std::uint64_t cell) { ++starts_[cell]; });
  for (std::uint64_t cell = 1; cell <= cells; ++cell) {
    starts_[cell] += starts_[cell - 1];
  }
  entries_.resize(known);
  forEachSide([&](const Zone& zone, std::uint64_t face, std::uint64_t side, std::uint64_t cell) {
    entries_[starts_[cell - 1]++] = 2 * (zone.first + face) + side;
  });
  // Each start has moved on to the next one; they go back by one place.
  std::rotate(starts_.begin(), starts_.end() - 1, starts_.end());
  starts_.front() = 0;
}

void CellFaces::addZone(const ZoneSpan& span) {
  const memory::MeshData& data = mesh_->data();
  Zone zone{};
  zone.span = &span;
  zone.first = zones_.empty() ? 0 : zones_.back().first + zones_.back().span->count;
  bool isKnown = false;
  for (const int side : {0, 1}) {
    const auto* cells = (side == 0 ? data.faceCell0 : data.faceCell1).find(span.zone);
    if (cells == nullptr) {
      continue;
    }
    if (cells->size() < span.count) {
      mesh_->fail(span, "face", cells->size(),
                  "has no cell, and no 0 for none, on side " + std::to_string(side));
    }
    zone.sides[side] = cells->data();
    isKnown = true;
  }
  if (!isKnown) {
    return;
  }
  const memory::CountedData* lists = data.faceNodes.find(span.zone);
  if (lists == nullptr) {
    mesh_->fail(span, "its faces have no nodes");
  }
  const bool isPlane = mesh_->isPlane();
  zone.lists = mesh_->nodeLists(span, *lists, "face", isPlane ? 2 : 3,
                                isPlane ? 2 : std::numeric_limits<std::size_t>::max());
  if (zone.lists.counts != nullptr) {
    zone.starts.resize(span.count);
    std::uint64_t start = 0;
    for (std::uint64_t i = 0; i < span.count; ++i) {
      zone.starts[i] = start;
      start += zone.lists.countOf(i);
    }
  }
  zones_.push_back(std::move(zone));
}

base::IdView CellFaces::nodesOf(std::uint64_t face) const {
  const auto behind =
      std::upper_bound(zones_.begin(), zones_.end(), face,
                       [](std::uint64_t wanted, const Zone& zone) { return wanted < zone.first; });
  const Zone& zone = *(behind - 1);
  const std::uint64_t i = face - zone.first;
  const std::uint64_t start = zone.starts.empty() ? i * zone.lists.uniform : zone.starts[i];
  return {zone.lists.ids + start, zone.lists.countOf(i)};
}

void CellFaces::loopsOf(std::uint64_t cell, FaceLoops& loops) const {
  loops.clear();
  if (starts_.empty()) {
    return;
  }
  for (std::uint64_t at = starts_[cell]; at < starts_[cell + 1]; ++at) {
    loops.add(nodesOf(entries_[at] / 2), entries_[at] % 2 == 1);
  }
}

}  // namespace velto::vtu
