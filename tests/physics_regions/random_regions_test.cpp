// SPDX-License-Identifier: Apache-2.0
//
// Random regions: of any settings, models and meshes, the resolver does what the plain resolver
// does.
//
// A longer run takes other seeds: VELTO_RANDOM_CASES="FIRST COUNT" in the environment.

#include "tests/physics_regions/random_regions.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include "testing/random_seeds.h"
#include "tests/physics_regions/PlainResolver.h"
#include "tests/physics_regions/regions_reached.h"
#include "tests/physics_regions/regions_watch.h"

namespace velto::testing {
namespace {

constexpr std::uint64_t kUsualCases = 2000;

TEST(RandomRegions, AreThoseOfThePlainResolver) {
  const Seeds seeds = seedsToTry(kUsualCases);
  for (std::uint64_t seed = seeds.first; seed - seeds.first < seeds.count; ++seed) {
    const RandomRegions drawn = randomRegions(seed);
    const std::string expected = textOf(watched<PlainResolver>(drawn));
    const std::string found = textOf(watched<PhysicsRegionResolver>(drawn));
    if (expected != found) {
      FAIL() << "seed " << seed << "\n"
             << textOf(drawn) << "--- expected\n"
             << expected << "--- found\n"
             << found;
    }
  }
}

/// A generator that no longer reaches something would let its rule go untested.
TEST(RandomRegions, BringAboutEveryMessageAndWhateverElseAResolverTellsApart) {
  Things missing = thingsToReach();
  for (std::uint64_t seed = 1; seed <= kUsualCases && !missing.empty(); ++seed) {
    const RandomRegions drawn = randomRegions(seed);
    for (const std::string& thing : thingsReached(drawn, watched<PlainResolver>(drawn))) {
      missing.erase(thing);
    }
  }
  EXPECT_EQ(Texts(missing.begin(), missing.end()), Texts());
}

/// So that what comes after a success or a failure is seen, and not mostly failures.
TEST(RandomRegions, MostlyResolve) {
  int count = 0;
  int goodCount = 0;
  for (std::uint64_t seed = 1; seed <= 200; ++seed) {
    for (const WatchedResolving& resolving :
         watched<PlainResolver>(randomRegions(seed)).resolvings) {
      ++count;
      goodCount += resolving.good ? 1 : 0;
    }
  }
  EXPECT_GT(goodCount, count * 6 / 10);
  EXPECT_LT(goodCount, count * 9 / 10);
}

}  // namespace
}  // namespace velto::testing
