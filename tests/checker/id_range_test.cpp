// SPDX-License-Identifier: Apache-2.0
//
// IdRange: which ids a walk over a zone meets, up to the largest that there can be.

#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include "checker/IdRange.h"

namespace velto::testing {
namespace {

using Ids = std::vector<std::uint64_t>;

constexpr std::uint64_t kLargest = std::numeric_limits<std::uint64_t>::max();

struct RangeRow {
  const char* name;
  IdRange range;
  Ids walked;
  Ids outside;
};

std::ostream& operator<<(std::ostream& out, const RangeRow& row) { return out << row.name; }

const std::vector<RangeRow>& rangeRows() {
  static const std::vector<RangeRow> kRows = {
      {"SeveralIds", {3, 6}, {3, 4, 5, 6}, {0, 2, 7, kLargest}},
      {"OneId", {5, 5}, {5}, {4, 6}},
      {"NoneIfTheFirstIsAboveTheLast", {6, 5}, {}, {0, 4, 5, 6, 7, kLargest}},
      {"NoneFromTheLargestIdToZero", {kLargest, 0}, {}, {0, 1, kLargest - 1, kLargest}},
      {"ZeroAlone", {0, 0}, {0}, {1, kLargest}},
      {"FromZero", {0, 2}, {0, 1, 2}, {3, kLargest}},
      {"ToTheLargestId", {kLargest - 1, kLargest}, {kLargest - 1, kLargest}, {0, kLargest - 2}},
      {"TheLargestIdAlone", {kLargest, kLargest}, {kLargest}, {0, kLargest - 1}},
  };
  return kRows;
}

class IdRangeRows : public ::testing::TestWithParam<RangeRow> {};

TEST_P(IdRangeRows, Walk) {
  Ids walked;
  for (const std::uint64_t id : GetParam().range) {
    walked.push_back(id);
    ASSERT_LE(walked.size(), GetParam().walked.size());
  }
  EXPECT_EQ(walked, GetParam().walked);
}

TEST_P(IdRangeRows, Contain) {
  for (const std::uint64_t id : GetParam().walked) {
    EXPECT_TRUE(GetParam().range.contains(id)) << id;
  }
  for (const std::uint64_t id : GetParam().outside) {
    EXPECT_FALSE(GetParam().range.contains(id)) << id;
  }
}

INSTANTIATE_TEST_SUITE_P(IdRange, IdRangeRows, ::testing::ValuesIn(rangeRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(IdRange, FromZeroToTheLargestIdBeginsAndDoesNotEndAtOnce) {
  const IdRange all = {0, kLargest - 1};
  auto next = all.begin();
  ASSERT_TRUE(next != all.end());
  EXPECT_EQ(*next, 0U);
  ++next;
  EXPECT_EQ(*next, 1U);
}

}  // namespace
}  // namespace velto::testing
