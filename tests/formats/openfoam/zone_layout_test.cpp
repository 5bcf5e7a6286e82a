// SPDX-License-Identifier: Apache-2.0
//
// Where the elements of zones stand in a case.

#include "formats/openfoam/zone_layout.h"

#include <gtest/gtest.h>

namespace velto::openfoam {
namespace {

ElementZone zone(const std::string& name, std::vector<std::int64_t> labels) {
  ElementZone made;
  made.name = name;
  made.labels = std::move(labels);
  return made;
}

std::string describe(const ZoneLayout& layout) {
  std::string text;
  for (const LayoutZone& one : layout.zones) {
    text += one.name + " [" + std::to_string(one.first) + " +" + std::to_string(one.count) + "] ";
  }
  text += layout.isRenumbered() ? "order" : "in place";
  for (const std::uint64_t element : layout.order) {
    text += element == ZoneLayout::kNothing ? " -" : " " + std::to_string(element);
  }
  return text;
}

TEST(ZoneLayout, WithoutZonesIsOneZoneInPlace) {
  EXPECT_EQ(describe(layOutZones({}, 5, "rest", false)), "rest [0 +5] in place");
}

TEST(ZoneLayout, WithoutElementsHasNoZones) {
  EXPECT_EQ(describe(layOutZones({}, 0, "rest", false)), "in place");
}

TEST(ZoneLayout, KeepsRangesInPlaceAndAppendsTheRest) {
  EXPECT_EQ(describe(layOutZones({zone("b", {3, 4}), zone("a", {0, 1, 2})}, 7, "rest", false)),
            "b [3 +2] a [0 +3] rest [5 +2] in place");
}

TEST(ZoneLayout, PutsTheRestFirstOnRequest) {
  EXPECT_EQ(describe(layOutZones({zone("a", {2, 3})}, 4, "rest", true)),
            "rest [0 +2] a [2 +2] in place");
}

TEST(ZoneLayout, RenumbersWhereAZoneIsNoRange) {
  EXPECT_EQ(describe(layOutZones({zone("a", {4, 1})}, 5, "rest", false)),
            "a [0 +2] rest [2 +3] order 4 1 0 2 3");
}

TEST(ZoneLayout, RenumbersWhereTheRestIsNoRange) {
  EXPECT_EQ(describe(layOutZones({zone("a", {1, 2})}, 4, "rest", true)),
            "rest [0 +2] a [2 +2] order 0 3 1 2");
}

TEST(ZoneLayout, LeavesOverlappingRangesAsTheyStand) {
  EXPECT_EQ(describe(layOutZones({zone("a", {0, 1, 2}), zone("b", {2, 3})}, 4, "rest", false)),
            "a [0 +3] b [2 +2] in place");
}

TEST(ZoneLayout, GivesAnElementInTwoZonesASlotInEach) {
  EXPECT_EQ(describe(layOutZones({zone("a", {2, 0}), zone("b", {2})}, 3, "rest", false)),
            "a [0 +2] b [2 +1] rest [3 +1] order 2 0 2 1");
}

TEST(ZoneLayout, GivesALabelOutOfRangeAnEmptySlot) {
  EXPECT_EQ(describe(layOutZones({zone("a", {-1, 7, 1})}, 2, "rest", false)),
            "a [0 +3] rest [3 +1] order - - 1 0");
}

TEST(ZoneLayout, AllowsEmptyZones) {
  EXPECT_EQ(describe(layOutZones({zone("a", {})}, 2, "rest", false)),
            "a [0 +0] rest [0 +2] in place");
}

TEST(NewIds, NamesAnElementByItsFirstSlot) {
  const ZoneLayout layout = layOutZones({zone("a", {2, 0}), zone("b", {2})}, 3, "rest", false);
  EXPECT_EQ(newIds(layout, 3), (std::vector<std::uint64_t>{2, 4, 1}));
}

TEST(ZoneLayout, TellsRangesFromOtherLists) {
  EXPECT_TRUE(isRange(zone("none", {})));
  EXPECT_TRUE(isRange(zone("one", {4})));
  EXPECT_TRUE(isRange(zone("some", {4, 5, 6})));
  EXPECT_FALSE(isRange(zone("gap", {4, 6})));
  EXPECT_FALSE(isRange(zone("back", {5, 4})));
  EXPECT_FALSE(isRange(zone("negative", {-1, 0})));
}

TEST(ZoneLayout, OfRangesPastTheElementsHasNoRestBehindThem) {
  EXPECT_EQ(describe(layOutZones({zone("a", {3, 4, 5}), zone("b", {8, 9})}, 5, "rest", false)),
            "a [3 +3] b [8 +2] rest [0 +3] in place");
}

}  // namespace
}  // namespace velto::openfoam
