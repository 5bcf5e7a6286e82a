// SPDX-License-Identifier: Apache-2.0
//
// Whether many ids lie in a range.

#ifndef VELTO_EMBEDDED_BASE_ID_RANGES_H
#define VELTO_EMBEDDED_BASE_ID_RANGES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace velto::base {

/// Whether all of `n` ids are from `first` to `last`, in a loop without branches. Id is an unsigned
/// type. No id is in a range whose end is below its beginning.
template <class Id>
bool areWithin(std::uint64_t first, std::uint64_t last, const Id* ids, std::size_t n) {
  constexpr std::uint64_t kMost = std::numeric_limits<Id>::max();
  if (first > last || first > kMost) {
    return n == 0;
  }
  const auto begin = static_cast<Id>(first);
  const auto length = static_cast<Id>(std::min(last, kMost) - first);
  Id outside = 0;
  for (std::size_t i = 0; i < n; ++i) {
    outside |= static_cast<Id>(ids[i] - begin) > length ? 1 : 0;
  }
  return outside == 0;
}

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_ID_RANGES_H
