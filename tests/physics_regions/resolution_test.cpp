// SPDX-License-Identifier: Apache-2.0
//
// Resolving: what the locations of a case come to.

#include <gtest/gtest.h>

#include "tests/physics_regions/region_rows.h"

namespace velto::testing {
namespace {

class Resolution : public ::testing::TestWithParam<ResolutionRow> {};

TEST_P(Resolution, Gives) { expectResolution(GetParam()); }

const ResolutionRow kRows[] = {
    {"EveryKind",
     R"(
       domains/water/location = channel
       domains/steel/location = heater
       subdomains/bed/location = channel
       boundaries/walls/location = hull
       boundaries/screen/location = screen
       boundaries/cold/location = contact
       boundaries/hot/location = contact of heater
       interfaces/heat/boundariesSide1 = cold
       interfaces/heat/boundariesSide2 = hot
     )",
     R"(
       part assembly
         body channel: 7 2 3
         body heater: 8 9
         use hull of channel: 4
         use contact of channel: 6
         use contact of heater of heater: -6
     )",
     "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2, 3], zone sides [4, 6]\n"
     "1 domain steel at 'heater': bodies [3], cell zones [] [8, 9], bulk zones [], zone sides [-6]\n"
     "2 subdomain bed at 'channel': bodies [2], cell zones [7] [], bulk zones [2, 3], zone sides [4, 6]\n"
     "3 boundary walls at 'hull': face uses [5], zone sides [4]\n"
     "4 boundary screen at 'screen': bulk zones [2]\n"
     "5 boundary cold at 'contact': face uses [7], zone sides [6]\n"
     "6 boundary hot at 'contact of heater': face uses [9], zone sides [-6]\n"
     "7 interface heat: sides 5 6\n"
     "ids: bed 2, cold 5, heat 7, hot 6, screen 4, steel 1, walls 3, water 0\n"
     "domains: 2 -> 0, 3 -> 0, 4 -> 2, 5 -> 0, 6 -> 1\n",
     ""},
    {"NoRegions", "", "part assembly\n body channel: 7", "", ""},
    {"InterfacesHaveNoLocation",
     R"(
       boundaries/walls/location = hull
       interfaces/heat/boundariesSide1 = walls
       interfaces/heat/boundariesSide2 = walls
       interfaces/heat/location = channel
     )",
     R"(
       part assembly
         body channel: 7
         use hull of channel: 4
     )",
     "0 boundary walls at 'hull': face uses [4], zone sides [4]\n"
     "1 interface heat: sides 0 0\n"
     "ids: heat 1, walls 0\n",
     ""},
    {"RegionsOfOneNameEachOnItsOwn",
     R"(
       domains/x/location = channel
       subdomains/x/location = heater, channel
       boundaries/x/location = shell
       interfaces/x/boundariesSide1 = x
       interfaces/x/boundariesSide2 = x
     )",
     R"(
       part assembly
         body channel: 7 2
         body heater: 8
         use hull of channel: 4
         use shell of heater: 5
     )",
     "0 domain x at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
     "1 subdomain x at 'heater, channel': bodies [2, 3], cell zones [7] [8], bulk zones [2], zone sides [4, 5]\n"
     "2 boundary x at 'shell': face uses [7], zone sides [5]\n"
     "3 interface x: sides 2 2\n"
     "ids: x 3\n"
     "domains: 1 -> 0\n",
     ""},
    {"DomainsThatTheSettingsNameCountNoMore",
     R"(
       domains/water/location = nowhere
       subdomains/bed/location = nowhere
       subdomains/bed/domain = water
       boundaries/walls/location = nowhere
       boundaries/walls/domain = water
     )",
     "part assembly\n body channel: 7",
     "0 domain water at 'nowhere': bodies [], cell zones [] [], bulk zones []\n"
     "1 subdomain bed at 'nowhere': bodies [], cell zones [] [], bulk zones []\n"
     "2 boundary walls at 'nowhere'\n"
     "ids: bed 1, walls 2, water 0\n",
     ""},
};

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, Resolution, ::testing::ValuesIn(kRows),
                         nameOf<ResolutionRow>);

}  // namespace
}  // namespace velto::testing
