// SPDX-License-Identifier: Apache-2.0
//
// ListCheck: lengths of lists, and a walk over their ids that branches nowhere.

#include "checker/ListCheck.h"

#include <algorithm>
#include <iostream>

#include "data_access/sizes.h"

namespace velto {

namespace {

constexpr unsigned kTopBit = 63;
constexpr std::size_t kStreams = 4;

bool isOutside(std::uint64_t id, std::uint64_t bound) { return id - 1 >= bound; }

/// 1 if an id is outside. Of an id that is 0 the first difference is negative, of one above the
/// bound the second, or, if it is so large that the second is not, the first. Compilers make
/// vectors of that; they have no comparison of unsigned 64-bit numbers to make them of the plain
/// question. REQUIRES: the bound is below 2^63.
std::uint64_t outside(std::uint64_t id, std::uint64_t bound) {
  return ((id - 1) | (bound - id)) >> kTopBit;
}

}  // namespace

std::uint64_t countOutside(const std::uint64_t* ids, std::size_t n, std::uint64_t bound) {
  if (bound >> kTopBit != 0) {
    return static_cast<std::uint64_t>(
        std::count_if(ids, ids + n, [bound](std::uint64_t id) { return isOutside(id, bound); }));
  }
  // Several places at a time: a single pass waits for memory at the end of each page.
  const std::size_t part = n / kStreams;
  std::uint64_t count = 0;
  for (std::size_t i = 0; i < part; ++i) {
    for (std::size_t stream = 0; stream < kStreams; ++stream) {
      count += outside(ids[stream * part + i], bound);
    }
  }
  for (std::size_t i = kStreams * part; i < n; ++i) {
    count += outside(ids[i], bound);
  }
  return count;
}

std::int64_t ListCheck::lengthOf(int zone) {
  const std::uint64_t elementCount = zoneSizeOf(source_, zone, zoneElementCount);
  if (elementCount == 0) {
    return 0;
  }
  short uniform = 0;
  if ((source_.*family_.getUniformCount)(zone, uniform)) {
    return uniformListLength(uniform, elementCount);
  }
  ZoneBuffer<short> counts(memory_, elementCount);
  (source_.*family_.readCounts)(zone, counts.data(), counts.size());
  return summedListLength(counts.data(), counts.size());
}

std::uint64_t ListCheck::countBadIds(int zone, std::int64_t length) {
  ZoneBuffer<std::uint64_t> ids(memory_, static_cast<std::size_t>(length));
  (source_.*family_.readIds)(zone, ids.data(), ids.size());
  const std::uint64_t bad = countOutside(ids.data(), ids.size(), bound_);
  if (bad != 0 && showsEach_) {
    showBadIds(zone, ids.data(), ids.size());
  }
  return bad;
}

void ListCheck::showBadIds(int zone, const std::uint64_t* ids, std::size_t n) const {
  for (std::size_t j = 0; j < n; ++j) {
    if (isOutside(ids[j], bound_)) {
      // Kept: no blank between the zone's id and "bad".
      std::cerr << "zone " << zone << "bad " << word_ << " #" << j << " = " << ids[j] << std::endl;
    }
  }
}

}  // namespace velto
