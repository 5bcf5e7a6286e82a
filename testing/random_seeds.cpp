// SPDX-License-Identifier: Apache-2.0
//
// Seeds of random tests, from the environment if that has some.

#include "testing/random_seeds.h"

#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>

namespace velto::testing {

Seeds seedsToTry(std::uint64_t usualCount) {
  Seeds seeds;
  seeds.count = usualCount;
  if (const char* const words = std::getenv("VELTO_RANDOM_CASES")) {
    std::istringstream text(words);
    if (!(text >> seeds.first >> seeds.count)) {
      throw std::invalid_argument(std::string("VELTO_RANDOM_CASES: two numbers expected, found ") +
                                  words);
    }
  }
  return seeds;
}

}  // namespace velto::testing
