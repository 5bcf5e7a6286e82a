// SPDX-License-Identifier: Apache-2.0
//
// The table behind zstdLevel.

#include "embedded/store/chunks.h"

#include <algorithm>
#include <array>

namespace velto::store {

int zstdLevel(layout::Array array, unsigned compression) {
  constexpr std::array<int, 10> kLevels = {0, 1, 2, 3, 5, 7, 9, 12, 15, 19};
  const int level = kLevels.at(std::min<std::size_t>(compression, kLevels.size() - 1));
  return layout::typeOf(array) == NumberType::float64 && compression < 4 ? 0 : level;
}

}  // namespace velto::store
