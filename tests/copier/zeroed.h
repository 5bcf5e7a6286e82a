// SPDX-License-Identifier: Apache-2.0
//
// Buffers of the plain copier, and the lengths of connectivity lists.

#ifndef VELTO_TESTS_COPIER_ZEROED_H
#define VELTO_TESTS_COPIER_ZEROED_H

#include <cstdint>
#include <memory>

namespace velto::testing {

/// `length` zeros; null for none. Throws what the allocator throws.
template <class Value>
std::unique_ptr<Value[]> zeroed(std::uint64_t length) {
  return length == 0 ? nullptr : std::make_unique<Value[]>(length);
}

/// In 64 bits, wrapping.
inline std::int64_t uniformLength(short uniform, std::uint64_t count) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(uniform) * count);
}

/// In 32 bits, wrapping.
inline std::int64_t sumOf(const short* counts, std::uint64_t count) {
  std::uint32_t sum = 0;
  for (std::uint64_t i = 0; i < count; ++i) {
    sum += static_cast<std::uint32_t>(counts[i]);
  }
  return static_cast<std::int32_t>(sum);
}

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIER_ZEROED_H
