// SPDX-License-Identifier: Apache-2.0
//
// The language of these tests: what is written down is what a resolver meets, and all of a table is
// shown.

#include "tests/physics_regions/region_texts.h"

#include <gtest/gtest.h>
#include <stdexcept>

#include "embedded/memory/MemoryProvider.h"
#include "testing/model_text.h"

namespace velto::testing {
namespace {

TEST(RegionTexts, TellAModel) {
  EXPECT_EQ(modelText(*modelOf(R"(
    part assembly
      body channel: 7 2
      body ghost
      use hull of channel: 4 -6
      use of channel: 6
      face shell
      composite both: channel, hull, shell
    part second
      body channel:
  )")),
            "part 'assembly' (1)\n"
            "  body 2 'channel': zones [7, 2], boundary [5, 7]\n"
            "  body 3 'ghost': no zones, boundary []\n"
            "  face 4 'face of hull': sides 5 | 0\n"
            "  face 6 'face 1': sides 7 | 0\n"
            "  face 8 'shell': sides 0 | 0\n"
            "  use 5 'hull' or 'face of hull@channel': zone sides [4, -6]\n"
            "  use 7 '' or 'face 1@channel': zone sides [6]\n"
            "  composite 9 'both': bodies [2], faces [8], uses [5]\n"
            "part 'second' (10)\n"
            "  body 11 'channel': zones [], boundary []\n");
}

TEST(RegionTexts, TellSettings) {
  const cases::CasePtr made = regionCase(R"(
    domains/water/location = a, b
    domains/none/location =
    boundaries/two words/location =  c
  )",
                                         "");
  memory::MemoryProvider provider(made);
  provider.startReading("case", dataClassCase);
  EXPECT_EQ(provider.getSettings(dataClassCase, "domains/water/location", 1).asString(), "a, b");
  EXPECT_EQ(provider.getSettings(dataClassCase, "domains/none/location", 1).asString(), "");
  EXPECT_EQ(provider.getSettings(dataClassCase, "boundaries/two words/location", 1).asString(),
            " c");
  EXPECT_EQ(provider.getLocationModel(), nullptr);
}

TEST(RegionTexts, RefuseWhatTheyCannotRead) {
  EXPECT_THROW(regionCase("domains/water/location", ""), std::invalid_argument);
  EXPECT_THROW(modelOf("part p\nblob x"), std::invalid_argument);
  EXPECT_THROW(modelOf("part p\nuse x: 4"), std::invalid_argument);
}

TEST(RegionTexts, ShowATable) {
  RegionTable table;
  EXPECT_EQ(tableText(table), "");
  table.regionNames = {{0, "water"}, {1, "walls"}, {2, "heat"}, {5, "odd"}};
  table.regionKinds = {{0, regionKindDomain}, {1, regionKindBoundary}, {2, regionKindInterface}};
  table.regionLocations = {{0, "a, b"}, {1, "c"}};
  table.interfaceSides = {{2, {1, 0}}};
  table.regionIds = {{"water", 0}, {"walls", 1}};
  table.regionDomains = {{0, 1}, {1, 0}};
  table.regionBodies = {{0, {3, 3}}};
  table.regionCellZones = {{0, {{7}, {}}}};
  table.regionFaceUses = {{1, {5, 4}}};
  table.regionBulkZones = {{0, {}}, {1, {2}}};
  table.regionZoneSides = {{0, {-6}}};
  EXPECT_EQ(
      tableText(table),
      "0 domain water at 'a, b': bodies [3, 3], cell zones [7] [], bulk zones [], zone sides [-6]\n"
      "1 boundary walls at 'c': face uses [5, 4], bulk zones [2]\n"
      "2 interface heat: sides 1 0\n"
      "5 ? odd\n"
      "ids: walls 1, water 0\n"
      "domains: 0 -> 1, 1 -> 0\n");
  table.clearResolved();
  EXPECT_EQ(tableText(table),
            "0 domain water at 'a, b'\n"
            "1 boundary walls at 'c'\n"
            "2 interface heat: sides 1 0\n"
            "5 ? odd\n"
            "ids: walls 1, water 0\n");
}

}  // namespace
}  // namespace velto::testing
