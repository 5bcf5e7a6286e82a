// SPDX-License-Identifier: Apache-2.0
//
// Lists of ids that hold them in as few bits as they need.

#include <cstdint>
#include <gtest/gtest.h>
#include <type_traits>
#include <vector>

#include "embedded/memory/IdList.h"
#include "embedded/memory/Slice.h"

namespace velto::memory {
namespace {

using Ids = std::vector<std::uint64_t>;

constexpr std::uint64_t kMostNarrow = 4294967295U;

Ids valuesOf(const IdList& list) { return {list.begin(), list.end()}; }

bool isNarrow(const IdList& list) {
  return list.visit([](const auto* ids, std::size_t) {
    return std::is_same_v<decltype(ids), const std::uint32_t*>;
  });
}

TEST(IdList, TakesThirtyTwoBitsWhileAllIdsFit) {
  IdList list;
  list.add(0);
  list.add(kMostNarrow);
  EXPECT_TRUE(isNarrow(list));
  EXPECT_EQ(valuesOf(list), (Ids{0, kMostNarrow}));
}

TEST(IdList, GoesOverToSixtyFourBitsWithTheFirstIdThatNeedsThem) {
  IdList list;
  list.add(7);
  list.add(kMostNarrow + 1);
  list.add(8);
  EXPECT_FALSE(isNarrow(list));
  EXPECT_EQ(valuesOf(list), (Ids{7, kMostNarrow + 1, 8}));
}

TEST(IdList, AppendsRunsOfEitherWidth) {
  const std::vector<std::uint32_t> narrow = {1, 2};
  const Ids wide = {3, UINT64_MAX};
  IdList list;
  list.append(narrow.data(), narrow.size());
  list.append(wide.data(), wide.size());
  list.append(narrow.data(), narrow.size());
  EXPECT_EQ(valuesOf(list), (Ids{1, 2, 3, UINT64_MAX, 1, 2}));
}

TEST(IdList, AppendsTheSameIdManyTimes) {
  IdList list;
  list.append(2, std::uint64_t{5});
  EXPECT_TRUE(isNarrow(list));
  list.append(1, kMostNarrow + 1);
  EXPECT_EQ(valuesOf(list), (Ids{5, 5, kMostNarrow + 1}));
}

TEST(IdList, ChangesEachIdAndWidensOnTheWay) {
  IdList list;
  list.append(3, std::uint64_t{2});
  std::uint64_t factor = 0;
  list.transform([&](std::uint64_t id) { return id * (factor += kMostNarrow / 2); });
  EXPECT_EQ(valuesOf(list), (Ids{4294967294U, 8589934588U, 12884901882U}));
}

TEST(IdList, IsEqualToTheSameIdsOfAnotherWidth) {
  IdList narrow;
  narrow.append(2, std::uint64_t{4});
  EXPECT_TRUE(narrow == IdList(Ids{4, 4}));
  EXPECT_FALSE(narrow == IdList(Ids{4, 5}));
  EXPECT_FALSE(narrow == IdList(Ids{4}));
}

TEST(IdList, ItsIteratorsWalkAtRandom) {
  IdList list;
  for (std::uint64_t id = 10; id < 15; ++id) {
    list.add(id);
  }
  const auto first = list.begin();
  const auto last = list.end();
  EXPECT_EQ(last - first, 5);
  EXPECT_EQ(first[3], 13U);
  EXPECT_EQ(*(last - 1), 14U);
  EXPECT_TRUE(first < last && first <= last && last > first && last >= first);
  auto it = 2 + first;
  EXPECT_EQ(*it++, 12U);
  EXPECT_EQ(*it--, 13U);
  EXPECT_EQ(*--it, 11U);
}

TEST(IdSlice, IsAPartOfASharedListInItsWidth) {
  auto list = std::make_shared<IdList>();
  for (std::uint64_t id = 1; id <= 6; ++id) {
    list->add(id);
  }
  const Slice<std::uint64_t> part(std::shared_ptr<const IdList>(list), 4, 9);
  EXPECT_EQ(part.data(), nullptr);
  ASSERT_NE(part.narrow(), nullptr);
  EXPECT_EQ(Ids(part.begin(), part.end()), (Ids{5, 6}));
  Ids copied(3, 0);
  EXPECT_EQ(part.copyTo(copied.data(), copied.size()), 2U);
  EXPECT_EQ(copied, (Ids{5, 6, 0}));
}

TEST(IdSlice, OfAVectorStaysWide) {
  const Slice<std::uint64_t> ids(Ids{1, 2, 3});
  EXPECT_EQ(ids.narrow(), nullptr);
  ASSERT_NE(ids.data(), nullptr);
  EXPECT_EQ(ids.data()[2], 3U);
  EXPECT_EQ(ids[1], 2U);
}

}  // namespace
}  // namespace velto::memory
