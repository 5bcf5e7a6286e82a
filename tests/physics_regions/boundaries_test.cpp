// SPDX-License-Identifier: Apache-2.0
//
// Boundaries: the face uses that their locations name, and the domain around them.

#include <gtest/gtest.h>
#include <string>

#include "tests/physics_regions/region_rows.h"

namespace velto::testing {
namespace {

class Boundaries : public ::testing::TestWithParam<ResolutionRow> {};

TEST_P(Boundaries, ComeToFaceUses) { expectResolution(GetParam()); }

const char* const kTwoBodies = R"(
  part assembly
    body channel: 7
    body heater: 8
    use hull of channel: 4
    use shell of heater: 5 -6
    use rim of channel:
    face sheet
    composite wetted: hull, shell, channel, sheet
    composite volume: channel, sheet
)";

/// Of the domains that withDomains() gives, in front of every row's table.
const std::string kDomains =
    "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [], zone sides [4]\n"
    "1 domain steel at 'heater': bodies [3], cell zones [] [8], bulk zones [], zone sides [5, -6]\n";

// --- What a location names ----------------------------------------------------------------------

const ResolutionRow kLocations[] = {
    {"FaceUse", withDomains("boundaries/walls/location = hull"), kTwoBodies,
     kDomains + "2 boundary walls at 'hull': face uses [5], zone sides [4]\n"
                "ids: steel 1, walls 2, water 0\n"
                "domains: 2 -> 0\n",
     ""},
    {"FaceUsesAsTheyStand", withDomains("boundaries/walls/location = shell, hull"), kTwoBodies,
     kDomains + "2 boundary walls at 'shell, hull': face uses [7, 5], zone sides [5, -6, 4]\n"
                "ids: steel 1, walls 2, water 0\n"
                "domains: 2 -> 1\n",
     ""},
    {"FaceUseThatIsNamedTwice", withDomains("boundaries/walls/location = hull, hull"), kTwoBodies,
     kDomains + "2 boundary walls at 'hull, hull': face uses [5, 5], zone sides [4, 4]\n"
                "ids: steel 1, walls 2, water 0\n"
                "domains: 2 -> 0\n",
     ""},
    {"CompositeOfEverySort", withDomains("boundaries/walls/location = wetted"), kTwoBodies,
     kDomains + "2 boundary walls at 'wetted': face uses [5, 7], zone sides [4, 5, -6]\n"
                "ids: steel 1, walls 2, water 0\n"
                "domains: 2 -> 0\n",
     ""},
    {"CompositeBesideOneOfItsFaceUses", withDomains("boundaries/walls/location = shell, wetted"),
     kTwoBodies,
     kDomains +
         "2 boundary walls at 'shell, wetted': face uses [7, 5, 7], zone sides [5, -6, 4, 5, -6]\n"
         "ids: steel 1, walls 2, water 0\n"
         "domains: 2 -> 1\n",
     ""},
    {"CompositeWithoutFaceUses", withDomains("boundaries/walls/location = volume"), kTwoBodies,
     kDomains + "2 boundary walls at 'volume'\n"
                "ids: steel 1, walls 2, water 0\n",
     ""},
    {"UnknownNames", withDomains("boundaries/walls/location = nowhere, nobody"), kTwoBodies,
     kDomains + "2 boundary walls at 'nowhere, nobody'\n"
                "ids: steel 1, walls 2, water 0\n",
     ""},
    {"UnknownNamesAroundAFaceUse", withDomains("boundaries/walls/location = nowhere, hull, nobody"),
     kTwoBodies,
     kDomains + "2 boundary walls at 'nowhere, hull, nobody': face uses [5], zone sides [4]\n"
                "ids: steel 1, walls 2, water 0\n"
                "domains: 2 -> 0\n",
     ""},
    {"BlanksAndCommasAroundNames", withDomains("boundaries/walls/location =  shell ,,hull,"),
     kTwoBodies,
     kDomains + "2 boundary walls at ' shell ,,hull,': face uses [7, 5], zone sides [5, -6, 4]\n"
                "ids: steel 1, walls 2, water 0\n"
                "domains: 2 -> 1\n",
     ""},
    {"CommasAlone", withDomains("boundaries/walls/location = ,,"), kTwoBodies,
     kDomains + "2 boundary walls at ',,'\n"
                "ids: steel 1, walls 2, water 0\n",
     ""},
    {"BlanksAlone", withDomains("boundaries/walls/location = \t"), kTwoBodies,
     kDomains + "2 boundary walls at '\t'\n"
                "ids: steel 1, walls 2, water 0\n",
     ""},
    {"FaceUseWithoutSides", withDomains("boundaries/walls/location = rim"), kTwoBodies,
     kDomains + "2 boundary walls at 'rim': face uses [9], zone sides []\n"
                "ids: steel 1, walls 2, water 0\n"
                "domains: 2 -> 0\n",
     ""},
    {"FaceUseOfTwoBoundaries",
     withDomains("boundaries/walls/location = hull, rim\n"
                 "boundaries/lid/location = hull\n"),
     kTwoBodies,
     kDomains + "2 boundary walls at 'hull, rim': face uses [5, 9], zone sides [4]\n"
                "3 boundary lid at 'hull': face uses [5], zone sides [4]\n"
                "ids: lid 3, steel 1, walls 2, water 0\n"
                "domains: 2 -> 0, 3 -> 0\n",
     ""},
};

INSTANTIATE_TEST_SUITE_P(Locations, Boundaries, ::testing::ValuesIn(kLocations),
                         nameOf<ResolutionRow>);

// --- Which object of a name ---------------------------------------------------------------------

const ResolutionRow kNames[] = {
    {"FaceUseBeforeAllOthers", "boundaries/walls/location = x",
     R"(
       part assembly
         body x: 7
         use other of x: 5
         use x of x: 4
         face x
         composite x: other
     )",
     "0 boundary walls at 'x': face uses [6], zone sides [4]\n"
     "ids: walls 0\n",
     ""},
    {"CompositeBeforeFaceAndBody", "boundaries/walls/location = x",
     R"(
       part assembly
         body x: 7
         use other of x: 5
         face x
         composite x: other
     )",
     "0 boundary walls at 'x': face uses [4], zone sides [5]\n"
     "ids: walls 0\n",
     ""},
    {"FaceUseOfTheFirstPart", "boundaries/walls/location = x",
     R"(
       part one
         body channel: 7
         use x of channel: 4
       part two
         body heater: 8
         use x of heater: 5
     )",
     "0 boundary walls at 'x': face uses [4], zone sides [4]\n"
     "ids: walls 0\n",
     ""},
    {"CompositeOfTheFirstPart", "boundaries/walls/location = x",
     R"(
       part one
         body channel: 7
         use other of channel: 4
         composite x: other
       part two
         body heater: 8
         use x of heater: 5
     )",
     "0 boundary walls at 'x': face uses [4], zone sides [4]\n"
     "ids: walls 0\n",
     ""},
    {"CompositeWithoutFaceUsesOfTheFirstPart", "boundaries/walls/location = x",
     R"(
       part one
         body channel: 7
         composite x: channel
       part two
         body heater: 8
         use x of heater: 5
     )",
     "0 boundary walls at 'x'\n"
     "ids: walls 0\n",
     ""},
    {"FaceUseBeforeABodyAndAFaceOfLaterParts", "boundaries/walls/location = x",
     R"(
       part one
         body channel: 7
         use x of channel: 4
       part two
         body x: 8
       part three
         face x
     )",
     "0 boundary walls at 'x': face uses [4], zone sides [4]\n"
     "ids: walls 0\n",
     ""},
    {"FaceUsesOfSeveralParts", "boundaries/walls/location = y, x",
     R"(
       part one
         body channel: 7
         use x of channel: 4
       part two
         body heater: 8
         use y of heater: 5
     )",
     "0 boundary walls at 'y, x': face uses [8, 4], zone sides [5, 4]\n"
     "ids: walls 0\n",
     ""},
};

INSTANTIATE_TEST_SUITE_P(Names, Boundaries, ::testing::ValuesIn(kNames), nameOf<ResolutionRow>);

// --- The domain around the first face use -------------------------------------------------------

const char* const kChannelAndHeater = R"(
  part assembly
    body channel: 7
    body heater: 8
    use hull of channel: 4
    use shell of heater: 5
)";

const ResolutionRow kAround[] = {
    {"InADomainThatTheSettingsDoNotName",
     withDomains("boundaries/walls/location = hull\n"
                 "boundaries/walls/domain = steel\n"),
     kTwoBodies,
     kDomains + "2 boundary walls at 'hull': face uses [5], zone sides [4]\n"
                "ids: steel 1, walls 2, water 0\n"
                "domains: 2 -> 0\n",
     ""},
    {"InTwoDomains",
     R"(
       domains/water/location = channel
       domains/all/location = heater, channel
       boundaries/walls/location = hull
     )",
     kChannelAndHeater,
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [], zone sides [4]\n"
     "1 domain all at 'heater, channel': bodies [2, 3], cell zones [7] [8], bulk zones [], zone sides [4, 5]\n"
     "2 boundary walls at 'hull': face uses [5], zone sides [4]\n"
     "ids: all 1, walls 2, water 0\n"
     "domains: 2 -> 1\n",
     ""},
    {"WithTheFirstFaceUseInNoDomain",
     R"(
       domains/water/location = channel
       boundaries/walls/location = shell, hull
       boundaries/walls/domain = water
     )",
     kChannelAndHeater,
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [], zone sides [4]\n"
     "1 boundary walls at 'shell, hull': face uses [7, 5], zone sides [5, 4]\n"
     "ids: walls 1, water 0\n",
     ""},
    {"WithALaterFaceUseInNoDomain",
     R"(
       domains/water/location = channel
       boundaries/walls/location = hull, shell
     )",
     kChannelAndHeater,
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [], zone sides [4]\n"
     "1 boundary walls at 'hull, shell': face uses [5, 7], zone sides [4, 5]\n"
     "ids: walls 1, water 0\n"
     "domains: 1 -> 0\n",
     ""},
    {"InASubdomainAlone",
     R"(
       subdomains/bed/location = channel
       boundaries/walls/location = hull
     )",
     kChannelAndHeater,
     "0 subdomain bed at 'channel': bodies [2], cell zones [7] [], bulk zones [], zone sides [4]\n"
     "1 boundary walls at 'hull': face uses [5], zone sides [4]\n"
     "ids: bed 0, walls 1\n",
     ""},
    {"InASubdomainOfADomain",
     R"(
       domains/water/location = channel
       subdomains/bed/location = channel
       boundaries/walls/location = hull
     )",
     kChannelAndHeater,
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [], zone sides [4]\n"
     "1 subdomain bed at 'channel': bodies [2], cell zones [7] [], bulk zones [], zone sides [4]\n"
     "2 boundary walls at 'hull': face uses [5], zone sides [4]\n"
     "ids: bed 1, walls 2, water 0\n"
     "domains: 1 -> 0, 2 -> 0\n",
     ""},
};

INSTANTIATE_TEST_SUITE_P(Around, Boundaries, ::testing::ValuesIn(kAround), nameOf<ResolutionRow>);

}  // namespace
}  // namespace velto::testing
