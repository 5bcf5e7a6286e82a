// SPDX-License-Identifier: Apache-2.0
//
// Which seeds a random test goes through.

#ifndef VELTO_TESTING_RANDOM_SEEDS_H
#define VELTO_TESTING_RANDOM_SEEDS_H

#include <cstdint>

namespace velto::testing {

struct Seeds {
  std::uint64_t first = 1;
  std::uint64_t count = 0;
};

/// Those from 1 on that a test usually takes, or others for a longer run:
/// VELTO_RANDOM_CASES="FIRST COUNT" in the environment. Throws std::invalid_argument if that is
/// something else.
Seeds seedsToTry(std::uint64_t usualCount);

}  // namespace velto::testing

#endif  // VELTO_TESTING_RANDOM_SEEDS_H
