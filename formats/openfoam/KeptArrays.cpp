// SPDX-License-Identifier: Apache-2.0
//
// KeptIds: taken over block by block, so that a block is still in the cache for its range.

#include "formats/openfoam/KeptArrays.h"

#include <algorithm>

namespace velto::openfoam {

KeptIds::KeptIds(const std::uint64_t* ids, std::size_t n) {
  constexpr std::size_t kBlock = 1024;
  ids_.reserve(n);
  for (std::size_t begin = 0; begin < n; begin += kBlock) {
    const std::size_t end = std::min(n, begin + kBlock);
    ids_.append(ids + begin, end - begin);
    // As they are kept: 32 bits are compared several at a time.
    with([&](const auto* kept) {
      auto least = kept[begin];
      auto greatest = kept[begin];
      for (std::size_t i = begin + 1; i < end; ++i) {
        least = std::min(least, kept[i]);
        greatest = std::max(greatest, kept[i]);
      }
      least_ = std::min<std::uint64_t>(least_, least);
      greatest_ = std::max<std::uint64_t>(greatest_, greatest);
    });
  }
}

}  // namespace velto::openfoam
