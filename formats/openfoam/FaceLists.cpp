// SPDX-License-Identifier: Apache-2.0
//
// FaceLists: offsets are summed up once, and kept where zones begin and end.

#include "formats/openfoam/FaceLists.h"

#include <algorithm>
#include <cstddef>

namespace velto::openfoam {

using memory::Slice;

FaceLists::FaceLists(std::vector<short> counts, memory::IdList ids,
                     std::vector<std::uint64_t> places, bool allPlaces)
    : counts_(std::make_shared<const std::vector<short>>(std::move(counts))),
      ids_(std::make_shared<const memory::IdList>(std::move(ids))) {
  std::sort(places.begin(), places.end());
  std::uint64_t offset = 0;
  std::uint64_t face = 0;
  for (const std::uint64_t place : places) {
    for (; face < std::min(place, faceCount()); ++face) {
      offset += static_cast<std::uint64_t>((*counts_)[face]);
    }
    offsets_[place] = offset;
  }
  if (allPlaces) {
    allOffsets_.reserve(faceCount());
    offset = 0;
    for (const short count : *counts_) {
      allOffsets_.push_back(offset);
      offset += static_cast<std::uint64_t>(count);
    }
  }
}

namespace {

/// Says a common count of all faces once instead of once a face.
void settleCounts(memory::CountedData& nodes, Slice<short> counts) {
  const bool uniform =
      counts.size() > 0 && std::all_of(counts.begin(), counts.end(),
                                       [&](short count) { return count == *counts.begin(); });
  if (uniform) {
    nodes.uniform = *counts.begin();
  } else {
    nodes.counts = std::move(counts);
  }
}

}  // namespace

FaceLists::Zone FaceLists::range(std::uint64_t first, std::uint64_t count) const {
  Zone zone;
  zone.count = count;
  const std::uint64_t begin = offsets_.at(first);
  const std::uint64_t end = std::max(begin, offsets_.at(first + count));
  zone.nodes.ids = Slice<std::uint64_t>(ids_, begin, end - begin);
  settleCounts(zone.nodes, Slice<short>(counts_, first, count));
  return zone;
}

FaceLists::Zone FaceLists::gather(const std::vector<std::uint64_t>& faces,
                                  std::uint64_t count) const {
  Zone zone;
  zone.count = count;
  std::vector<short> counts;
  counts.reserve(faces.size());
  std::size_t total = 0;
  for (const std::uint64_t face : faces) {
    counts.push_back(face < faceCount() ? (*counts_)[face] : short{0});
    total += static_cast<std::size_t>(counts.back());
  }
  memory::IdList ids;
  ids.reserve(total);
  ids_->visit([&](const auto* held, std::size_t) {
    for (std::size_t i = 0; i < faces.size(); ++i) {
      if (counts[i] > 0) {
        ids.append(held + allOffsets_[faces[i]], static_cast<std::size_t>(counts[i]));
      }
    }
  });
  zone.nodes.ids = Slice<std::uint64_t>(std::move(ids));
  settleCounts(zone.nodes, Slice<short>(std::move(counts)));
  return zone;
}

}  // namespace velto::openfoam
