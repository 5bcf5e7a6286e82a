// SPDX-License-Identifier: Apache-2.0
//
// Ids that are kept until they are written: values and range, whatever their width.

#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <numeric>
#include <vector>

#include "formats/openfoam/KeptArrays.h"

namespace velto::openfoam {
namespace {

using Ids = std::vector<std::uint64_t>;

Ids valuesOf(const KeptIds& kept) {
  Ids ids;
  for (std::size_t i = 0; i < kept.size(); ++i) {
    ids.push_back(kept[i]);
  }
  return ids;
}

std::size_t bytesOfEach(const KeptIds& kept) {
  return kept.with([](const auto* ids) { return sizeof(*ids); });
}

TEST(KeptIds, AreKeptIn32BitsWhereTheyFit) {
  const Ids ids = {3, 0, UINT32_MAX, 7};
  const KeptIds kept(ids.data(), ids.size());
  EXPECT_EQ(valuesOf(kept), ids);
  EXPECT_EQ(bytesOfEach(kept), 4U);
  EXPECT_EQ(kept.least(), 0U);
  EXPECT_EQ(kept.greatest(), UINT32_MAX);
}

TEST(KeptIds, AreKeptIn64BitsIfOneOfThemDoesNotFit) {
  for (const std::size_t place : {std::size_t{0}, std::size_t{5000}, std::size_t{9999}}) {
    SCOPED_TRACE(place);
    Ids ids(10000);
    std::iota(ids.begin(), ids.end(), 2U);
    ids[place] = std::uint64_t{UINT32_MAX} + 1;
    const KeptIds kept(ids.data(), ids.size());
    EXPECT_TRUE(valuesOf(kept) == ids);
    EXPECT_EQ(bytesOfEach(kept), 8U);
    EXPECT_EQ(kept.least(), place == 0 ? 3U : 2U);
    EXPECT_EQ(kept.greatest(), std::uint64_t{UINT32_MAX} + 1);
  }
}

TEST(KeptIds, HaveTheRangeOfAllOfThem) {
  Ids ids(10000, 50);
  ids[4095] = 90;
  ids[4096] = 10;
  const KeptIds kept(ids.data(), ids.size());
  EXPECT_TRUE(valuesOf(kept) == ids);
  EXPECT_EQ(kept.least(), 10U);
  EXPECT_EQ(kept.greatest(), 90U);
}

TEST(KeptIds, MayBeNone) {
  const KeptIds kept(nullptr, 0);
  EXPECT_EQ(kept.size(), 0U);
  EXPECT_GT(kept.least(), kept.greatest());
}

}  // namespace
}  // namespace velto::openfoam
