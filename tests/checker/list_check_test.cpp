// SPDX-License-Identifier: Apache-2.0
//
// The length of a zone's list, and how many of its ids are none of the mesh.

#include <limits>

#include "checker/ListCheck.h"
#include "testing/capture.h"
#include "tests/checker/ConnectivityFixture.h"

namespace velto::testing {
namespace {

using memory::Ids;

constexpr std::uint64_t kTwoTo63 = std::uint64_t{1} << 63U;
constexpr std::uint64_t kLargest = std::numeric_limits<std::uint64_t>::max();

/// One id after the other, as plainly as it can be said.
std::uint64_t plainCount(const Ids& ids, std::uint64_t bound) {
  std::uint64_t outside = 0;
  for (const std::uint64_t id : ids) {
    if (id < 1 || id > bound) {
      ++outside;
    }
  }
  return outside;
}

struct BoundRow {
  const char* name;
  std::uint64_t bound;
  Ids inside;
  Ids outside;
};

std::ostream& operator<<(std::ostream& out, const BoundRow& row) { return out << row.name; }

const std::vector<BoundRow>& boundRows() {
  static const std::vector<BoundRow> kRows = {
      {"NoNodes", 0, {}, {0, 1, 2, kTwoTo63 - 1, kTwoTo63, kTwoTo63 + 1, kLargest}},
      {"OneNode", 1, {1}, {0, 2, 3, kTwoTo63 - 1, kTwoTo63, kTwoTo63 + 1, kLargest}},
      {"SomeNodes", 8, {1, 7, 8}, {0, 9, kTwoTo63, kTwoTo63 + 8, kTwoTo63 + 9, kLargest}},
      {"TwoTo63LessOne",
       kTwoTo63 - 1,
       {1, kTwoTo63 - 2, kTwoTo63 - 1},
       {0, kTwoTo63, kTwoTo63 + 1, kLargest - 1, kLargest}},
      {"TwoTo63", kTwoTo63, {1, kTwoTo63 - 1, kTwoTo63}, {0, kTwoTo63 + 1, kLargest}},
      {"AllButTheLast", kLargest - 1, {1, kTwoTo63, kLargest - 1}, {0, kLargest}},
      {"AllIds", kLargest, {1, kTwoTo63 - 1, kTwoTo63, kLargest - 1, kLargest}, {0}},
  };
  return kRows;
}

class CountOutsideRows : public ::testing::TestWithParam<BoundRow> {};

TEST_P(CountOutsideRows, TellEachId) {
  for (const std::uint64_t id : GetParam().inside) {
    EXPECT_EQ(countOutside(&id, 1, GetParam().bound), 0) << id;
  }
  for (const std::uint64_t id : GetParam().outside) {
    EXPECT_EQ(countOutside(&id, 1, GetParam().bound), 1) << id;
  }
}

TEST_P(CountOutsideRows, CountAsPlainlyAtEveryLengthAndPlace) {
  const std::uint64_t bound = GetParam().bound;
  Ids pool = GetParam().inside;
  pool.insert(pool.end(), GetParam().outside.begin(), GetParam().outside.end());
  for (std::size_t length = 0; length <= 40; ++length) {
    for (std::size_t start = 0; start < pool.size(); ++start) {
      Ids ids(length);
      for (std::size_t i = 0; i < length; ++i) {
        ids[i] = pool[(start + i * 3 + i / 5) % pool.size()];
      }
      EXPECT_EQ(countOutside(ids.data(), ids.size(), bound), plainCount(ids, bound)) << length;
    }
  }
}

TEST_P(CountOutsideRows, FindTheOnlyBadIdAtEveryPlace) {
  const std::uint64_t good = GetParam().bound == 0 ? 0 : 1;
  for (std::size_t length = 1; length <= 40 && good != 0; ++length) {
    for (std::size_t place = 0; place < length; ++place) {
      Ids ids(length, good);
      ids[place] = 0;
      EXPECT_EQ(countOutside(ids.data(), ids.size(), GetParam().bound), 1) << length << place;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(CountOutside, CountOutsideRows, ::testing::ValuesIn(boundRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(CountOutside, TakesNoListForAnEmptyOne) { EXPECT_EQ(countOutside(nullptr, 0, 8), 0); }

struct LengthRow {
  const char* name;
  ZoneLists zone;
  std::int64_t length;
};

std::ostream& operator<<(std::ostream& out, const LengthRow& row) { return out << row.name; }

const std::vector<LengthRow>& lengthRows() {
  const std::uint64_t twoTo32 = std::uint64_t{1} << 32U;
  static const std::vector<LengthRow> kRows = {
      {"NoElementsOfAUniformCount", {2, 0, 4, {}, {}}, 0},
      {"NoElementsOfAnyCount", {2, 0, {}, {4, 4}, {}}, 0},
      {"AUniformCount", {2, 6, 4, {}, {}}, 24},
      {"AUniformCountOfNone", {2, 6, 0, {}, {}}, 0},
      {"AUniformCountBeyond32Bits", {2, twoTo32, 32767, {}, {}}, 140733193388032},
      {"AUniformCountJustBeyond31Bits", {2, 1073741824, 2, {}, {}}, 2147483648},
      {"ANegativeUniformCount", {2, 5, -1, {}, {}}, -5},
      {"TheSmallestUniformCount", {2, twoTo32, -32768, {}, {}}, -140737488355328},
      {"CountsOfEach", {2, 3, {}, {3, 4, 5}, {}}, 12},
      {"NegativeCounts", {2, 3, {}, {2, 4, -2}, {}}, 4},
      {"ANegativeSum", {2, 3, {}, {2, 4, -7}, {}}, -1},
      {"CountsThatAreNotThere", {2, 3, {}, {}, {}}, 0},
      {"CountsThatAreCutShort", {2, 3, {}, {5}, {}}, 5},
      {"ASumBelow31Bits", {2, 65538, {}, std::vector<short>(65538, 32767), {}}, 2147483646},
      {"ASumThatWrapsToANegative",
       {2, 65539, {}, std::vector<short>(65539, 32767), {}},
       -2147450883},
      {"ASumThatWrapsToJustBelowZero", {2, 131076, {}, std::vector<short>(131076, 32767), {}}, -4},
      {"ASumThatWrapsToAPositive", {2, 131077, {}, std::vector<short>(131077, 32767), {}}, 32763},
      {"ANegativeSumThatWraps", {2, 65537, {}, std::vector<short>(65537, -32768), {}}, 2147450880},
  };
  return kRows;
}

class ListLengthRows : public ::testing::TestWithParam<LengthRow> {};

TEST_P(ListLengthRows, Come) {
  ScriptedProvider provider(withFaceNodes({GetParam().zone}));
  EXPECT_TRUE(provider.startReading("any", dataClassCase));
  ListCheck lists(provider, kFaceNodes, "node", 8, false);
  EXPECT_EQ(lists.lengthOf(2), GetParam().length);
}

INSTANTIATE_TEST_SUITE_P(ListLength, ListLengthRows, ::testing::ValuesIn(lengthRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ListLength, ForgetsTheCountsOfTheZoneBefore) {
  ScriptedProvider provider(
      withFaceNodes({{2, 3, {}, {3, 4, 5}, {}}, {7, 4, {}, {}, {}}, {8, 2, {}, {1}, {}}}));
  EXPECT_TRUE(provider.startReading("any", dataClassCase));
  ListCheck lists(provider, kFaceNodes, "node", 8, false);
  EXPECT_EQ(lists.lengthOf(2), 12);
  EXPECT_EQ(lists.lengthOf(7), 0);
  EXPECT_EQ(lists.lengthOf(8), 1);
}

TEST(ListCheck, ShowsItsWordAndEachBadId) {
  ScriptedProvider provider(withFaceNodes({{2, 1, 4, {}, {0, 6, 7, 6}}, {-7, 1, 1, {}, {9}}}));
  EXPECT_TRUE(provider.startReading("any", dataClassCase));
  ListCheck lists(provider, kFaceNodes, "screw", 6, true);
  const StreamCapture streams;
  EXPECT_EQ(lists.countBadIds(2, 4), 2);
  EXPECT_EQ(lists.countBadIds(-7, 1), 1);
  EXPECT_EQ(streams.err(),
            "zone 2bad screw #0 = 0\n"
            "zone 2bad screw #2 = 7\n"
            "zone -7bad screw #0 = 9\n");
  EXPECT_EQ(streams.out(), "");
}

}  // namespace
}  // namespace velto::testing
