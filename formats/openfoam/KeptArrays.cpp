// SPDX-License-Identifier: Apache-2.0
//
// KeptIds: narrowed block by block in a loop without branches, which takes the range along.

#include "formats/openfoam/KeptArrays.h"

#include <algorithm>

namespace velto::openfoam {

namespace {

constexpr std::size_t kBlock = 4096;

/// The range of some ids; of none the least is above the greatest.
template <class Id>
struct Range {
  Id least = std::numeric_limits<Id>::max();
  Id greatest = 0;

  void take(Id id) {
    least = std::min(least, id);
    greatest = std::max(greatest, id);
  }
};

}  // namespace

KeptIds::KeptIds(const std::uint64_t* ids, std::size_t n) : size_(n) {
  if (n != 0 && !keepNarrow(ids)) {
    keepWide(ids);
  }
}

bool KeptIds::keepNarrow(const std::uint64_t* ids) {
  // NOLINTNEXTLINE(modernize-make-unique): that would fill it with zeros.
  narrow_.reset(new std::uint32_t[size_]);
  Range<std::uint32_t> range;
  for (std::size_t begin = 0; begin < size_; begin += kBlock) {
    const std::size_t n = std::min(kBlock, size_ - begin);
    const std::uint64_t* const from = ids + begin;
    std::uint32_t* const to = narrow_.get() + begin;
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < n; ++i) {
      const auto id = static_cast<std::uint32_t>(from[i]);
      bits |= from[i];
      to[i] = id;
      range.take(id);
    }
    if (bits > std::numeric_limits<std::uint32_t>::max()) {
      narrow_.reset();
      return false;
    }
  }
  least_ = range.least;
  greatest_ = range.greatest;
  return true;
}

void KeptIds::keepWide(const std::uint64_t* ids) {
  // NOLINTNEXTLINE(modernize-make-unique): that would fill it with zeros.
  wide_.reset(new std::uint64_t[size_]);
  std::copy_n(ids, size_, wide_.get());
  Range<std::uint64_t> range;
  for (std::size_t i = 0; i < size_; ++i) {
    range.take(ids[i]);
  }
  least_ = range.least;
  greatest_ = range.greatest;
}

}  // namespace velto::openfoam
