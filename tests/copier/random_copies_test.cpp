// SPDX-License-Identifier: Apache-2.0
//
// Random copies: whatever is done with a copier, it does what the plain copier does.
//
// A longer run takes other seeds: VELTO_RANDOM_CASES="FIRST COUNT" in the environment.

#include "tests/copier/random_copies.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include "velto/OrvCopier.h"

#include "testing/random_seeds.h"
#include "tests/copier/PlainCopier.h"
#include "tests/copier/copies_reached.h"
#include "tests/copier/copy_watch.h"

namespace velto::testing {
namespace {

constexpr std::uint64_t kUsualCases = 2000;

std::string joined(const Transcript& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + "\n";
  }
  return text;
}

/// The first line that is not the same.
std::string differenceOf(const Transcript& expected, const Transcript& found) {
  std::size_t line = 0;
  while (line < expected.size() && line < found.size() && expected[line] == found[line]) {
    ++line;
  }
  return "line " + std::to_string(line + 1) + ": expected " +
         (line < expected.size() ? expected[line] : "nothing") + "\n  found " +
         (line < found.size() ? found[line] : "nothing") + "\n";
}

TEST(RandomCopies, AreThoseOfThePlainCopier) {
  const Seeds seeds = seedsToTry(kUsualCases);
  for (std::uint64_t seed = seeds.first; seed - seeds.first < seeds.count; ++seed) {
    const RandomCopies drawn = randomCopies(seed);
    const Transcript expected = watchedCopies<PlainCopier>(drawn);
    const Transcript found = watchedCopies<OrvCopier>(drawn);
    if (expected != found) {
      FAIL() << "seed " << seed << "\n"
             << textOf(drawn) << differenceOf(expected, found) << "--- expected\n"
             << joined(expected) << "--- found\n"
             << joined(found);
    }
  }
}

/// A generator that no longer reaches something would let its rule go untested.
TEST(RandomCopies, BringAboutEveryMessageAndWhateverElseACopierTellsApart) {
  Things missing = thingsToReach();
  for (std::uint64_t seed = 1; seed <= kUsualCases && !missing.empty(); ++seed) {
    const RandomCopies drawn = randomCopies(seed);
    dropReached(drawn, watchedCopies<PlainCopier>(drawn), missing);
  }
  EXPECT_EQ(namesOf(missing), std::vector<std::string>());
}

/// So that what comes late in a copy is seen, and not mostly exceptions.
TEST(RandomCopies, MostlyGoThrough) {
  int goodCount = 0;
  int thrownCount = 0;
  for (std::uint64_t seed = 1; seed <= 200; ++seed) {
    for (const std::string& line : watchedCopies<PlainCopier>(randomCopies(seed))) {
      goodCount += line == "= true" ? 1 : 0;
      thrownCount += line.rfind("throws ", 0) == 0 ? 1 : 0;
    }
  }
  EXPECT_GT(goodCount, 200);
  EXPECT_GT(thrownCount, 20);
  EXPECT_LT(thrownCount, 120);
}

}  // namespace
}  // namespace velto::testing
