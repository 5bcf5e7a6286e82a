// SPDX-License-Identifier: Apache-2.0
//
// Random from bytes: what they are used up for, and what comes behind them.

#include "testing/Random.h"

#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

namespace velto::testing {
namespace {

TEST(RandomFromBytes, TakesOneByteForASmallChoice) {
  const std::array<std::uint8_t, 3> bytes = {7, 12, 250};
  Random random(bytes.data(), bytes.size());
  EXPECT_EQ(random.below(10), 7U);
  EXPECT_EQ(random.below(10), 2U);
  EXPECT_EQ(random.between(-1, 1), -1 + 250 % 3);
}

TEST(RandomFromBytes, TakesEightForAnyOtherDraw) {
  const std::array<std::uint8_t, 10> bytes = {0, 0, 0, 0, 0, 0, 1, 2, 3, 1};
  Random random(bytes.data(), bytes.size());
  EXPECT_EQ(random.next(), 258U);
  EXPECT_EQ(random.below(1000), 3 * 256 + 1U);
}

/// So that one change of a fuzzer does not change all the rest.
TEST(RandomFromBytes, AnotherByteMakesOneOtherDraw) {
  std::array<std::uint8_t, 40> bytes = {};
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes[i] = static_cast<std::uint8_t>(i);
  }
  const auto drawn = [&] {
    Random random(bytes.data(), bytes.size());
    std::vector<std::size_t> draws(60);  // more than there are bytes
    for (std::size_t& draw : draws) {
      draw = random.below(100);
    }
    return draws;
  };
  std::vector<std::size_t> expected = drawn();
  bytes[17] = 99;
  expected[17] = 99;
  EXPECT_EQ(drawn(), expected);
}

TEST(RandomFromBytes, IsRandomAndTheSameBehindTheLast) {
  Random one(nullptr, 0);
  Random other(nullptr, 0);
  const std::uint64_t first = one.next();
  EXPECT_EQ(other.next(), first);
  EXPECT_NE(one.next(), first);
}

}  // namespace
}  // namespace velto::testing
