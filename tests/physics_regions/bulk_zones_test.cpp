// SPDX-License-Identifier: Apache-2.0
//
// Boundaries on face zones inside bodies, which they find by their own name.

#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "tests/physics_regions/region_rows.h"

namespace velto::testing {
namespace {

class BulkZones : public ::testing::TestWithParam<ResolutionRow> {};

TEST_P(BulkZones, JoinABoundary) { expectResolution(GetParam()); }

// --- Names that are unknown, and the name that is known -----------------------------------------

const char* const kChannelAndHeater = R"(
  part assembly
    body channel: 7 2
    body heater: 8
    use hull of channel: 4
    use shell of heater: 5
    composite volume: channel
)";

/// Of the domains that withDomains() gives, in front of every row's table.
const std::string kDomains =
    "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
    "1 domain steel at 'heater': bodies [3], cell zones [] [8], bulk zones [], zone sides [5]\n";

const ResolutionRow kNames[] = {
    {"OfItsName", withDomains("boundaries/screen/location = screen"), kChannelAndHeater,
     kDomains + "2 boundary screen at 'screen': bulk zones [2]\n"
                "ids: screen 2, steel 1, water 0\n"
                "domains: 2 -> 0\n",
     ""},
    {"WhateverUnknownNameItsLocationHolds",
     withDomains("boundaries/screen/location = nowhere\n"
                 "boundaries/screen/domain = steel\n"),
     kChannelAndHeater,
     kDomains + "2 boundary screen at 'nowhere': bulk zones [2]\n"
                "ids: screen 2, steel 1, water 0\n"
                "domains: 2 -> 0\n",
     ""},
    {"NotForItsLocation", withDomains("boundaries/walls/location = screen"), kChannelAndHeater,
     kDomains + "2 boundary walls at 'screen'\n"
                "ids: steel 1, walls 2, water 0\n",
     ""},
    {"OncePerUnknownName", withDomains("boundaries/screen/location = a, b, a"), kChannelAndHeater,
     kDomains + "2 boundary screen at 'a, b, a': bulk zones [2, 2, 2]\n"
                "ids: screen 2, steel 1, water 0\n"
                "domains: 2 -> 0\n",
     ""},
    {"NotForAKnownFaceUse", withDomains("boundaries/screen/location = hull"), kChannelAndHeater,
     kDomains + "2 boundary screen at 'hull': face uses [5], zone sides [4]\n"
                "ids: screen 2, steel 1, water 0\n"
                "domains: 2 -> 0\n",
     ""},
    {"NotForAKnownComposite", withDomains("boundaries/screen/location = volume"), kChannelAndHeater,
     kDomains + "2 boundary screen at 'volume'\n"
                "ids: screen 2, steel 1, water 0\n",
     ""},
    {"NotForBlanksAlone", withDomains("boundaries/screen/location = \t"), kChannelAndHeater,
     kDomains + "2 boundary screen at '\t'\n"
                "ids: screen 2, steel 1, water 0\n",
     ""},
    {"NotForCommasAlone", withDomains("boundaries/screen/location = ,,"), kChannelAndHeater,
     kDomains + "2 boundary screen at ',,'\n"
                "ids: screen 2, steel 1, water 0\n",
     ""},
    {"InFrontOfAFaceUseWhoseDomainGoesBefore",
     withDomains("boundaries/screen/location = nowhere, shell"), kChannelAndHeater,
     kDomains +
         "2 boundary screen at 'nowhere, shell': face uses [7], bulk zones [2], zone sides [5]\n"
         "ids: screen 2, steel 1, water 0\n"
         "domains: 2 -> 1\n",
     ""},
    {"BehindAFaceUseWhoseDomainGoesBefore",
     withDomains("boundaries/screen/location = shell, nowhere"), kChannelAndHeater,
     kDomains +
         "2 boundary screen at 'shell, nowhere': face uses [7], bulk zones [2], zone sides [5]\n"
         "ids: screen 2, steel 1, water 0\n"
         "domains: 2 -> 1\n",
     ""},
    {"OfEachBoundaryOfTheName",
     withDomains("boundaries = screen, screen\n"
                 "boundaries/screen/location = screen\n"),
     kChannelAndHeater,
     kDomains + "2 boundary screen at 'screen': bulk zones [2]\n"
                "3 boundary screen at 'screen': bulk zones [2]\n"
                "ids: screen 3, steel 1, water 0\n"
                "domains: 2 -> 0, 3 -> 0\n",
     ""},
    {"NotForAFaceZoneInNoBody", withDomains("boundaries/baffle/location = baffle"),
     kChannelAndHeater,
     kDomains + "2 boundary baffle at 'baffle'\n"
                "ids: baffle 2, steel 1, water 0\n",
     ""},
    {"NotForACellZone", withDomains("boundaries/fluid/location = fluid"), kChannelAndHeater,
     kDomains + "2 boundary fluid at 'fluid'\n"
                "ids: fluid 2, steel 1, water 0\n",
     ""},
    {"NotInOtherLetters", withDomains("boundaries/Screen/location = screen"), kChannelAndHeater,
     kDomains + "2 boundary Screen at 'screen'\n"
                "ids: Screen 2, steel 1, water 0\n",
     ""},
};

INSTANTIATE_TEST_SUITE_P(Names, BulkZones, ::testing::ValuesIn(kNames), nameOf<ResolutionRow>);

// --- Several parts ------------------------------------------------------------------------------

const char* const kTwoParts = R"(
  part one
    body channel: 7 2
    use hull of channel: 4
  part two
    body heater: 8
    use shell of heater: 5
)";

const std::string kDomainsOfParts =
    "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
    "1 domain steel at 'heater': bodies [6], cell zones [] [8], bulk zones [], zone sides [5]\n";

const ResolutionRow kParts[] = {
    {"OncePerUnknownNameAndPart", withDomains("boundaries/screen/location = a, b"), kTwoParts,
     kDomainsOfParts + "2 boundary screen at 'a, b': bulk zones [2, 2, 2, 2]\n"
                       "ids: screen 2, steel 1, water 0\n"
                       "domains: 2 -> 0\n",
     ""},
    {"OncePerPartBeforeTheOneThatKnowsTheName",
     withDomains("boundaries/screen/location = nowhere, shell, hull"), kTwoParts,
     kDomainsOfParts +
         "2 boundary screen at 'nowhere, shell, hull': face uses [8, 4], bulk zones [2, 2, 2], zone sides [5, 4]\n"
         "ids: screen 2, steel 1, water 0\n"
         "domains: 2 -> 1\n",
     ""},
};

INSTANTIATE_TEST_SUITE_P(Parts, BulkZones, ::testing::ValuesIn(kParts), nameOf<ResolutionRow>);

// --- The domain around them ---------------------------------------------------------------------

const ResolutionRow kAround[] = {
    {"LeaveTheirDomainToAFaceUseInNone",
     R"(
       domains/water/location = channel
       boundaries/screen/location = nowhere, shell
     )",
     kChannelAndHeater,
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
     "1 boundary screen at 'nowhere, shell': face uses [7], bulk zones [2], zone sides [5]\n"
     "ids: screen 1, water 0\n"
     "domains: 1 -> 0\n",
     ""},
    {"OfTwoDomains",
     R"(
       domains/water/location = channel
       domains/all/location = channel, heater
       domains/steel/location = heater
       boundaries/screen/location = screen
     )",
     kChannelAndHeater,
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
     "1 domain all at 'channel, heater': bodies [2, 3], cell zones [7] [8], bulk zones [2], zone sides [4, 5]\n"
     "2 domain steel at 'heater': bodies [3], cell zones [] [8], bulk zones [], zone sides [5]\n"
     "3 boundary screen at 'screen': bulk zones [2]\n"
     "ids: all 1, screen 3, steel 2, water 0\n"
     "domains: 3 -> 1\n",
     ""},
    {"OfADomainAndItsSubdomain",
     R"(
       domains/water/location = channel
       subdomains/bed/location = channel
       boundaries/screen/location = screen
     )",
     kChannelAndHeater,
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
     "1 subdomain bed at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
     "2 boundary screen at 'screen': bulk zones [2]\n"
     "ids: bed 1, screen 2, water 0\n"
     "domains: 1 -> 0, 2 -> 1\n",
     ""},
    {"OfASubdomainAlone",
     R"(
       subdomains/bed/location = channel
       boundaries/screen/location = screen
     )",
     kChannelAndHeater,
     "0 subdomain bed at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
     "1 boundary screen at 'screen': bulk zones [2]\n"
     "ids: bed 0, screen 1\n"
     "domains: 1 -> 0\n",
     ""},
    {"NotOfABodyInNoRegion",
     R"(
       domains/steel/location = heater
       boundaries/screen/location = screen
       boundaries/screen/domain = steel
     )",
     kChannelAndHeater,
     "0 domain steel at 'heater': bodies [3], cell zones [] [8], bulk zones [], zone sides [5]\n"
     "1 boundary screen at 'screen'\n"
     "ids: screen 1, steel 0\n",
     ""},
    {"OfADomainOfTheSameName",
     R"(
       domains/screen/location = channel
       boundaries/screen/location = screen
     )",
     kChannelAndHeater,
     "0 domain screen at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
     "1 boundary screen at 'screen': bulk zones [2]\n"
     "ids: screen 1\n"
     "domains: 1 -> 0\n",
     ""},
};

INSTANTIATE_TEST_SUITE_P(Around, BulkZones, ::testing::ValuesIn(kAround), nameOf<ResolutionRow>);

// --- Zones of every sort ------------------------------------------------------------------------

const ResolutionRow kZones[] = {
    {"BesideAZoneInNoCategory",
     R"(
       domains/water/location = channel
       boundaries/screen/location = screen
     )",
     "part assembly\n body channel: 7 2 99",
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2, 99], zone sides []\n"
     "1 boundary screen at 'screen': bulk zones [2]\n"
     "ids: screen 1, water 0\n"
     "domains: 1 -> 0\n",
     ""},
    {"OfTheNodes",
     R"(
       domains/water/location = channel
       boundaries/points/location = points
     )",
     "part assembly\n body channel: 7 1",
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [1], zone sides []\n"
     "1 boundary points at 'points': bulk zones [1]\n"
     "ids: points 1, water 0\n"
     "domains: 1 -> 0\n",
     ""},
    {"OfTheBoundary",
     R"(
       domains/water/location = channel
       boundaries/wet/location = wet
     )",
     "part assembly\n body channel: 7 4\n use hull of channel: 4",
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [4], zone sides [4]\n"
     "1 boundary wet at 'wet': bulk zones [4]\n"
     "ids: water 0, wet 1\n"
     "domains: 1 -> 0\n",
     ""},
};

INSTANTIATE_TEST_SUITE_P(Zones, BulkZones, ::testing::ValuesIn(kZones), nameOf<ResolutionRow>);

// --- Names of zones -----------------------------------------------------------------------------

struct ZoneNameRow {
  std::string name;
  /// Of zones 2 and 3; none if it was never set.
  std::optional<std::string> name2;
  std::optional<std::string> name3;
  std::string boundary;
  std::string table;

  friend std::ostream& operator<<(std::ostream& out, const ZoneNameRow& row) {
    return out << row.name;
  }
};

class NamesOfBulkZones : public ::testing::TestWithParam<ZoneNameRow> {};

/// Zone 3 is met first, then 2, then 3 again in another domain.
TEST_P(NamesOfBulkZones, LeadToTheLastZone) {
  const cases::CasePtr made = regionCase(
      "domains/water/location = channel\n"
      "domains/steel/location = heater\n"
      "domains/oil/location = sump\n"
      "boundaries/" +
          GetParam().boundary + "/location = nowhere\n",
      "part assembly\n body channel: 3 7 2\n body heater: 8 3\n body sump: 9");
  made->zone(2).texts[zoneName] = GetParam().name2;
  made->zone(3).texts[zoneName] = GetParam().name3;
  ResolverRun run(made);
  EXPECT_TRUE(run.resolve());
  EXPECT_EQ(
      run.table(),
      "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [3, 2], zone sides []\n"
      "1 domain steel at 'heater': bodies [3], cell zones [] [8], bulk zones [3], zone sides []\n"
      "2 domain oil at 'sump': bodies [4], cell zones [] [9], bulk zones [], zone sides []\n" +
          GetParam().table);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.errors(), Texts());
}

const ZoneNameRow kZoneNames[] = {
    {"OfTwoZones", "grid", "grid", "grid",
     "3 boundary grid at 'nowhere': bulk zones [3]\n"
     "ids: grid 3, oil 2, steel 1, water 0\n"
     "domains: 3 -> 1\n"},
    {"OfAnEarlierZone", "grid", "screen", "grid",
     "3 boundary grid at 'nowhere': bulk zones [2]\n"
     "ids: grid 3, oil 2, steel 1, water 0\n"
     "domains: 3 -> 0\n"},
    {"ThatWereNeverSet", "grid", std::nullopt, "grid",
     "3 boundary grid at 'nowhere': bulk zones [2]\n"
     "ids: grid 3, oil 2, steel 1, water 0\n"
     "domains: 3 -> 0\n"},
    {"ThatAreEmpty", "", "", "",
     "3 boundary  at 'nowhere'\n"
     "ids:  3, oil 2, steel 1, water 0\n"},
};

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, NamesOfBulkZones, ::testing::ValuesIn(kZoneNames),
                         nameOf<ZoneNameRow>);

/// Zones 2 and 3 of one name in one body: the order of its list decides, and not that of the ids.
TEST(NamesOfBulkZonesOfABody, LeadToTheLastZone) {
  const cases::CasePtr made = regionCase(
      "domains/water/location = channel\n"
      "boundaries/grid/location = nowhere\n",
      "part assembly\n body channel: 3 7 2");
  made->zone(2).texts[zoneName] = "grid";
  made->zone(3).texts[zoneName] = "grid";
  ResolverRun run(made);
  EXPECT_TRUE(run.resolve());
  EXPECT_EQ(
      run.table(),
      "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [3, 2], zone sides []\n"
      "1 boundary grid at 'nowhere': bulk zones [2]\n"
      "ids: grid 1, water 0\n"
      "domains: 1 -> 0\n");
}

}  // namespace
}  // namespace velto::testing
