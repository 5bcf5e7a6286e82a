// SPDX-License-Identifier: Apache-2.0
//
// CellFaceCollector: the faces of each cell by counting sort.

#include "embedded/base/CellFaceCollector.h"

#include <algorithm>
#include <limits>
#include <set>
#include <string>

#include "embedded/base/CaseError.h"
#include "embedded/base/shapes.h"

namespace velto::base {

CellFaceCollector::CellFaceCollector(const MeshTables& mesh,
                                     const std::vector<int>& zonesWithNodes) {
  const auto cellsOfMesh = mesh.size(meshCellCount);
  const std::set<int> withNodes(zonesWithNodes.begin(), zonesWithNodes.end());
  for (const int id : mesh.idsOf(zoneCategoryCell)) {
    const auto record = mesh.zones.find(id);
    const std::uint64_t first = mesh.zoneSize(id, zoneFirstId);
    const std::uint64_t last = mesh.zoneSize(id, zoneLastId);
    if (record != mesh.zones.end() &&
        record->second.cellInfo[cellZoneCellType] == cellShapePolyhedron && first >= 1 &&
        first <= last && last <= cellsOfMesh && withNodes.count(id) == 0) {
      zones_.push_back({id, first, last, 0});
    }
  }
  std::sort(zones_.begin(), zones_.end(),
            [](const Zone& a, const Zone& b) { return a.first < b.first; });
  for (Zone& zone : zones_) {
    zone.offset = cellCount_;
    cellCount_ += static_cast<std::size_t>(zone.last - zone.first + 1);
  }
}

void CellFaceCollector::add(std::uint64_t firstFace, const std::uint64_t* cells, std::size_t n) {
  if (!isEmpty() && n != 0) {
    runs_.push_back({firstFace, {cells, cells + n}});
  }
}

const CellFaceCollector::Zone* CellFaceCollector::zoneOf(std::uint64_t cell) const {
  const auto behind =
      std::upper_bound(zones_.begin(), zones_.end(), cell,
                       [](std::uint64_t id, const Zone& zone) { return id < zone.first; });
  if (behind == zones_.begin()) {
    return nullptr;
  }
  const Zone& zone = *std::prev(behind);
  return cell <= zone.last ? &zone : nullptr;
}

template <class Each>
void CellFaceCollector::forEachFace(const Each& each) const {
  for (const Run& run : runs_) {
    for (std::size_t i = 0; i < run.cells.size(); ++i) {
      if (const Zone* zone = zoneOf(run.cells[i])) {
        each(zone->offset + static_cast<std::size_t>(run.cells[i] - zone->first),
             run.firstFace + i);
      }
    }
  }
}

void CellFaceCollector::write(MeshArraySink& sink) {
  if (runs_.empty()) {
    return;
  }
  // No more cells can have faces than there are entries, which bounds what a wrong table asks for.
  std::size_t entries = 0;
  for (const Run& run : runs_) {
    entries += run.cells.size();
  }
  if (cellCount_ > entries) {
    runs_.clear();
    return;
  }
  std::vector<std::uint64_t> begins(cellCount_ + 1, 0);
  forEachFace([&begins](std::size_t cell, std::uint64_t) { ++begins[cell + 1]; });
  for (std::size_t cell = 0; cell < cellCount_; ++cell) {
    begins[cell + 1] += begins[cell];
  }
  std::vector<std::uint64_t> faces(begins.back());
  std::vector<std::uint64_t> next(begins.begin(), begins.end() - 1);
  forEachFace([&](std::size_t cell, std::uint64_t face) { faces[next[cell]++] = face; });
  runs_.clear();
  for (std::size_t cell = 0; cell < cellCount_; ++cell) {
    std::sort(faces.begin() + static_cast<std::ptrdiff_t>(begins[cell]),
              faces.begin() + static_cast<std::ptrdiff_t>(begins[cell + 1]));
  }
  std::vector<int> ids;
  for (const Zone& zone : zones_) {
    ids.push_back(zone.id);
  }
  sink.begin(Family::cellFaces, ids);
  for (const Zone& zone : zones_) {
    writeZone(sink, zone, begins, faces);
  }
}

void CellFaceCollector::writeZone(MeshArraySink& sink, const Zone& zone,
                                  const std::vector<std::uint64_t>& begins,
                                  const std::vector<std::uint64_t>& faces) const {
  const std::size_t cells = static_cast<std::size_t>(zone.last - zone.first + 1);
  std::vector<short> counts(cells);
  for (std::size_t i = 0; i < cells; ++i) {
    const std::uint64_t count = begins[zone.offset + i + 1] - begins[zone.offset + i];
    if (count > static_cast<std::uint64_t>(std::numeric_limits<short>::max())) {
      throw CaseError("cell " + std::to_string(zone.first + i) + " has " + std::to_string(count) +
                      " faces, more than a case can hold");
    }
    counts[i] = static_cast<short>(count);
  }
  sink.writeCounts(Family::cellFaces, zone.id, counts.data(), cells);
  const std::uint64_t begin = begins[zone.offset];
  sink.writeIds(Family::cellFaces, zone.id, faces.data() + begin,
                static_cast<std::size_t>(begins[zone.offset + cells] - begin));
}

}  // namespace velto::base
