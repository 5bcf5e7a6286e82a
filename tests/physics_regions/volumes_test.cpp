// SPDX-License-Identifier: Apache-2.0
//
// Domains and subdomains: the bodies that their locations name, the zones and sides of these, and
// the domain around a subdomain.

#include <gtest/gtest.h>
#include <string>

#include "tests/physics_regions/region_rows.h"

namespace velto::testing {
namespace {

struct VolumeRow {
  std::string name;
  std::string location;
  std::string model;
  std::string entries;

  friend std::ostream& operator<<(std::ostream& out, const VolumeRow& row) {
    return out << row.name;
  }
};

/// Each row once as a domain and once as a subdomain: they come to the same.
class Volumes : public ::testing::TestWithParam<VolumeRow> {
 protected:
  static void expectEntries(const std::string& objects, const std::string& kind) {
    const VolumeRow& row = GetParam();
    expectResolution({row.name, objects + "/here/location = " + row.location, row.model,
                      "0 " + kind + " here at '" + row.location + "': " + row.entries +
                          "\n"
                          "ids: here 0\n",
                      ""});
  }
};

TEST_P(Volumes, OfADomain) { expectEntries("domains", "domain"); }
TEST_P(Volumes, OfASubdomain) { expectEntries("subdomains", "subdomain"); }

const char* const kTwoBodies = R"(
  part assembly
    body channel: 7 2
    body heater: 9 8 3
    use hull of channel: 4 5
    use shell of heater: -6
    face sheet
    composite both: heater, channel
    composite wetted: hull, shell, sheet
    composite mixed: shell, channel, sheet
)";

const char* const kChannel = "bodies [2], cell zones [7] [], bulk zones [2], zone sides [4, 5]";
const char* const kHeater = "bodies [3], cell zones [] [9, 8], bulk zones [3], zone sides [-6]";
const char* const kBoth =
    "bodies [2, 3], cell zones [7] [9, 8], bulk zones [2, 3], zone sides [4, 5, -6]";
const char* const kNothing = "bodies [], cell zones [] [], bulk zones []";

// --- What a location names ----------------------------------------------------------------------

const VolumeRow kLocations[] = {
    {"Body", "channel", kTwoBodies, kChannel},
    {"BodiesByIdAndNotAsTheyStand", "heater, channel", kTwoBodies, kBoth},
    {"BodyThatIsNamedTwice", "channel, channel", kTwoBodies,
     "bodies [2, 2], cell zones [7, 7] [], bulk zones [2, 2], zone sides [4, 5, 4, 5]"},
    {"Composite", "both", kTwoBodies, kBoth},
    {"CompositeBesideOneOfItsBodies", "both, channel", kTwoBodies,
     "bodies [2, 2, 3], cell zones [7, 7] [9, 8], bulk zones [2, 2, 3], zone sides [4, 5, 4, 5, -6]"},
    {"CompositeOfFaceUsesAndABody", "mixed", kTwoBodies, kChannel},
    {"CompositeWithoutBodies", "wetted", kTwoBodies, kNothing},
    {"CompositeWithoutBodiesBesideABody", "wetted, heater", kTwoBodies, kHeater},
    {"UnknownName", "nowhere", kTwoBodies, kNothing},
    {"UnknownNames", "nowhere, nobody", kTwoBodies, kNothing},
    {"UnknownNamesAroundABody", "nowhere, heater, nobody", kTwoBodies, kHeater},
    {"NameInOtherLetters", "Channel", kTwoBodies, kNothing},
    {"BlanksAndCommasAroundNames", " heater ,,channel,", kTwoBodies, kBoth},
    {"CommasAlone", ",,", kTwoBodies, kNothing},
    {"BlanksAlone", "\t", kTwoBodies, kNothing},
    {"PartWithoutObjects", "channel", "part assembly", kNothing},
    {"NameWithABlank", "hot part", "part assembly\n body hot part: 8",
     "bodies [2], cell zones [] [8], bulk zones [], zone sides []"},
};

INSTANTIATE_TEST_SUITE_P(Locations, Volumes, ::testing::ValuesIn(kLocations), nameOf<VolumeRow>);

// --- Which object of a name ---------------------------------------------------------------------

const VolumeRow kNames[] = {
    {"BodyBeforeAllOthers", "x",
     R"(
       part assembly
         body x: 7
         body other: 8
         use x of other: 5
         face x
         composite x: other
     )",
     "bodies [2], cell zones [7] [], bulk zones [], zone sides []"},
    {"CompositeBeforeFaceAndFaceUse", "x",
     R"(
       part assembly
         body other: 8
         use x of other: 5
         face x
         composite x: other
     )",
     "bodies [2], cell zones [] [8], bulk zones [], zone sides [5]"},
    {"BodyOfTheFirstPart", "x",
     R"(
       part one
         body x: 7
       part two
         body x: 8
     )",
     "bodies [2], cell zones [7] [], bulk zones [], zone sides []"},
    {"CompositeOfTheFirstPart", "x",
     R"(
       part one
         body other: 8
         composite x: other
       part two
         body x: 7
     )",
     "bodies [2], cell zones [] [8], bulk zones [], zone sides []"},
    {"CompositeWithoutBodiesOfTheFirstPart", "x",
     R"(
       part one
         face sheet
         composite x: sheet
       part two
         body x: 7
     )",
     kNothing},
    {"BodyBeforeAFaceOfALaterPart", "x",
     R"(
       part one
         body x: 7
       part two
         face x
     )",
     "bodies [2], cell zones [7] [], bulk zones [], zone sides []"},
    {"BodyBeforeAFaceUseOfALaterPart", "x",
     R"(
       part one
         body x: 7
       part two
         body other: 8
         use x of other: 5
     )",
     "bodies [2], cell zones [7] [], bulk zones [], zone sides []"},
    {"BodiesOfSeveralParts", "x, y, z",
     R"(
       part one
         body y: 8
       part two
         body x: 7
       part three
         body z: 9
     )",
     "bodies [2, 4, 6], cell zones [7] [8, 9], bulk zones [], zone sides []"},
};

INSTANTIATE_TEST_SUITE_P(Names, Volumes, ::testing::ValuesIn(kNames), nameOf<VolumeRow>);

// --- What a body brings -------------------------------------------------------------------------

const VolumeRow kBodies[] = {
    {"CellZonesInTwoGroups", "rock", "part assembly\n body rock: 8 7 9",
     "bodies [2], cell zones [7] [8, 9], bulk zones [], zone sides []"},
    {"ZonesThatAreListedTwice", "rock", "part assembly\n body rock: 8 2 7 8 2 7",
     "bodies [2], cell zones [7, 7] [8, 8], bulk zones [2, 2], zone sides []"},
    {"FaceZonesOfTheBoundary", "channel", "part assembly\n body channel: 4 7 2 6",
     "bodies [2], cell zones [7] [], bulk zones [4, 2, 6], zone sides []"},
    {"ZoneInNoCategory", "channel", "part assembly\n body channel: 7 99 2",
     "bodies [2], cell zones [7] [], bulk zones [99, 2], zone sides []"},
    {"NodeZone", "channel", "part assembly\n body channel: 1 7",
     "bodies [2], cell zones [7] [], bulk zones [1], zone sides []"},
    {"NoCellZone", "screen", "part assembly\n body screen: 2",
     "bodies [2], cell zones [] [], bulk zones [2], zone sides []"},
    {"NoZones", "channel",
     "part assembly\n body channel:", "bodies [2], cell zones [] [], bulk zones [], zone sides []"},
    {"NoPlaceInTheMesh", "ghost", "part assembly\n body ghost",
     "bodies [2], cell zones [] [], bulk zones [], zone sides []"},
    {"FaceUseWithoutSides", "channel",
     R"(
       part assembly
         body channel: 7
         use hull of channel:
     )",
     "bodies [2], cell zones [7] [], bulk zones [], zone sides []"},
    {"FaceUsesInTheirOrder", "channel",
     R"(
       part assembly
         body channel: 7
         use rim of channel: -5 4
         use of channel:
         use hull of channel: 6 4
     )",
     "bodies [2], cell zones [7] [], bulk zones [], zone sides [-5, 4, 6, 4]"},
};

INSTANTIATE_TEST_SUITE_P(Bodies, Volumes, ::testing::ValuesIn(kBodies), nameOf<VolumeRow>);

// --- The domain around a subdomain --------------------------------------------------------------

class DomainOfASubdomain : public ::testing::TestWithParam<ResolutionRow> {};

TEST_P(DomainOfASubdomain, IsThatOfItsFirstBody) { expectResolution(GetParam()); }

/// A line of a table.
std::string line(const std::string& region, const std::string& entries) {
  return region + ": " + entries + "\n";
}

const ResolutionRow kAround[] = {
    {"WhateverTheSettingsName",
     R"(
       domains/steel/location = heater
       domains/water/location = channel
       subdomains/bed/location = channel
       subdomains/bed/domain = steel
     )",
     kTwoBodies,
     line("0 domain steel at 'heater'", kHeater) + line("1 domain water at 'channel'", kChannel) +
         line("2 subdomain bed at 'channel'", kChannel) +
         "ids: bed 2, steel 0, water 1\n"
         "domains: 2 -> 1\n",
     ""},
    {"InTwoDomains",
     R"(
       domains/water/location = channel
       domains/all/location = both
       subdomains/bed/location = channel
     )",
     kTwoBodies,
     line("0 domain water at 'channel'", kChannel) + line("1 domain all at 'both'", kBoth) +
         line("2 subdomain bed at 'channel'", kChannel) +
         "ids: all 1, bed 2, water 0\n"
         "domains: 2 -> 1\n",
     ""},
    {"InTwoDomainsTheOtherWayRound",
     R"(
       domains/all/location = both
       domains/water/location = channel
       subdomains/bed/location = both
       subdomains/coil/location = heater
     )",
     kTwoBodies,
     line("0 domain all at 'both'", kBoth) + line("1 domain water at 'channel'", kChannel) +
         line("2 subdomain bed at 'both'", kBoth) + line("3 subdomain coil at 'heater'", kHeater) +
         "ids: all 0, bed 2, coil 3, water 1\n"
         "domains: 2 -> 1, 3 -> 0\n",
     ""},
    {"WithALaterBodyInNoDomain",
     R"(
       domains/water/location = channel
       subdomains/bed/location = heater, channel
     )",
     kTwoBodies,
     line("0 domain water at 'channel'", kChannel) +
         line("1 subdomain bed at 'heater, channel'", kBoth) +
         "ids: bed 1, water 0\n"
         "domains: 1 -> 0\n",
     ""},
    {"WithTheFirstBodyInNoDomain",
     R"(
       domains/steel/location = heater
       subdomains/bed/location = heater, channel
       subdomains/bed/domain = steel
     )",
     kTwoBodies,
     line("0 domain steel at 'heater'", kHeater) +
         line("1 subdomain bed at 'heater, channel'", kBoth) + "ids: bed 1, steel 0\n",
     ""},
    {"WithoutBodies",
     R"(
       domains/water/location = channel
       subdomains/bed/location = nowhere
       subdomains/bed/domain = water
     )",
     kTwoBodies,
     line("0 domain water at 'channel'", kChannel) +
         line("1 subdomain bed at 'nowhere'", kNothing) + "ids: bed 1, water 0\n",
     ""},
    {"InAnotherSubdomain",
     R"(
       subdomains/bed/location = both
       subdomains/nest/location = channel
     )",
     kTwoBodies,
     line("0 subdomain bed at 'both'", kBoth) + line("1 subdomain nest at 'channel'", kChannel) +
         "ids: bed 0, nest 1\n",
     ""},
    {"OfTheNameOfAnotherDomain",
     R"(
       domains/x/location = channel
       domains/steel/location = heater
       subdomains/x/location = heater
     )",
     kTwoBodies,
     line("0 domain x at 'channel'", kChannel) + line("1 domain steel at 'heater'", kHeater) +
         line("2 subdomain x at 'heater'", kHeater) +
         "ids: steel 1, x 2\n"
         "domains: 2 -> 1\n",
     ""},
};

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, DomainOfASubdomain, ::testing::ValuesIn(kAround),
                         nameOf<ResolutionRow>);

}  // namespace
}  // namespace velto::testing
