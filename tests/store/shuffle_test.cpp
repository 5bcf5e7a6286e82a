// SPDX-License-Identifier: Apache-2.0
//
// The byte shuffle: where each byte goes, for every size of element and any number of them.

#include "embedded/store/shuffle.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace velto::store {
namespace {

using Bytes = std::vector<std::byte>;

std::string shuffled(const std::string& text, std::size_t elementSize) {
  std::string result(text.size(), '?');
  shuffle(reinterpret_cast<const std::byte*>(text.data()),
          reinterpret_cast<std::byte*>(result.data()), text.size(), elementSize);
  return result;
}

Bytes someBytes(std::size_t size) {
  Bytes bytes(size);
  for (std::size_t i = 0; i < size; ++i) {
    bytes[i] = static_cast<std::byte>(i * 7 + i / 256);
  }
  return bytes;
}

TEST(Shuffle, PutsBytesOfEqualSignificanceTogether) {
  EXPECT_EQ(shuffled("aAbBcC", 2), "abcABC");
  EXPECT_EQ(shuffled("a123b456c789", 4), "abc147258369");
  EXPECT_EQ(shuffled("abcdefghABCDEFGH", 8), "aAbBcCdDeEfFgGhH");
  EXPECT_EQ(shuffled("abcdef", 1), "abcdef");
}

TEST(Shuffle, LeavesBytesBehindTheLastElementWhereTheyAre) {
  EXPECT_EQ(shuffled("aAbB+", 2), "abAB+");
  EXPECT_EQ(shuffled("a123b456+++", 4), "ab142536+++");
  EXPECT_EQ(shuffled("abcdefg", 8), "abcdefg");
}

TEST(Shuffle, DoesNothingWithNothing) {
  for (const std::size_t elementSize : {1U, 2U, 4U, 8U}) {
    shuffle(nullptr, nullptr, 0, elementSize);
    unshuffle(nullptr, nullptr, 0, elementSize);
  }
}

TEST(Shuffle, PutsEveryByteOfLongArraysInItsPlace) {
  for (const std::size_t elementSize : {2U, 4U, 8U}) {
    for (const std::size_t n : {127U, 128U, 129U, 255U, 256U, 1001U}) {
      SCOPED_TRACE(std::to_string(n) + " elements of " + std::to_string(elementSize));
      const Bytes raw = someBytes(n * elementSize);
      Bytes expected(raw.size());
      for (std::size_t i = 0; i < raw.size(); ++i) {
        expected[i % elementSize * n + i / elementSize] = raw[i];
      }
      Bytes moved(raw.size());
      shuffle(raw.data(), moved.data(), raw.size(), elementSize);
      EXPECT_EQ(moved, expected);
      Bytes back(raw.size());
      unshuffle(moved.data(), back.data(), raw.size(), elementSize);
      EXPECT_EQ(back, raw);
    }
  }
}

TEST(Shuffle, RefusesElementsOfAnotherSize) {
  std::byte byte = {};
  EXPECT_THROW(shuffle(&byte, &byte, 1, 3), std::invalid_argument);
  EXPECT_THROW(unshuffle(&byte, &byte, 1, 0), std::invalid_argument);
}

}  // namespace
}  // namespace velto::store
