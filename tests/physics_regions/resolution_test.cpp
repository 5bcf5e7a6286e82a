// SPDX-License-Identifier: Apache-2.0
//
// Resolving: what the locations of a case come to.

#include <gtest/gtest.h>
#include <string>

#include "tests/physics_regions/region_run.h"

namespace velto::testing {
namespace {

struct ResolutionRow {
  std::string name;
  std::string settings;
  std::string model;
  std::string table;
  /// On standard error.
  std::string line;
  bool good = true;

  friend std::ostream& operator<<(std::ostream& out, const ResolutionRow& row) {
    return out << row.name;
  }
};

class Resolution : public ::testing::TestWithParam<ResolutionRow> {};

TEST_P(Resolution, Gives) {
  ResolverRun run(GetParam().settings, GetParam().model);
  EXPECT_EQ(run.resolve(), GetParam().good);
  EXPECT_EQ(run.table(), GetParam().table);
  EXPECT_EQ(run.err, GetParam().line);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.errors(), Texts());
}

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
};

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, Resolution, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace velto::testing
