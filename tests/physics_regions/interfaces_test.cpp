// SPDX-License-Identifier: Apache-2.0
//
// Interfaces: which of them have two boundaries and so become regions.

#include <gtest/gtest.h>
#include <string>

#include "tests/physics_regions/region_rows.h"

namespace velto::testing {
namespace {

class Interfaces : public ::testing::TestWithParam<TableRow> {};

TEST_P(Interfaces, AreReadAtOnce) { expectTable(GetParam()); }

/// Beside boundaries 1 "cold" and 2 "hot" of domain 0 "water".
std::string withInterfaces(const std::string& settings) {
  return R"(
    domains/water/location = channel
    boundaries/cold/location = hull
    boundaries/hot/location = shell
  )" + settings;
}

const std::string kBoundaries =
    "0 domain water at 'channel'\n"
    "1 boundary cold at 'hull'\n"
    "2 boundary hot at 'shell'\n";

const TableRow kRows[] = {
    {"Side1GoesFirst", withInterfaces(R"(
       interfaces/heat/boundariesSide2 = cold
       interfaces/heat/boundariesSide1 = hot
     )"),
     kBoundaries + "3 interface heat: sides 2 1\n"
                   "ids: cold 1, heat 3, hot 2, water 0\n"},
    {"SameBoundaryOnBothSides", withInterfaces(R"(
       interfaces/heat/boundariesSide1 = hot
       interfaces/heat/boundariesSide2 = hot
     )"),
     kBoundaries + "3 interface heat: sides 2 2\n"
                   "ids: cold 1, heat 3, hot 2, water 0\n"},
    {"BoundaryOfTwoInterfaces", withInterfaces(R"(
       interfaces/heat/boundariesSide1 = cold
       interfaces/heat/boundariesSide2 = hot
       interfaces/back/boundariesSide1 = hot
       interfaces/back/boundariesSide2 = cold
     )"),
     kBoundaries + "3 interface heat: sides 1 2\n"
                   "4 interface back: sides 2 1\n"
                   "ids: back 4, cold 1, heat 3, hot 2, water 0\n"},
    {"LocationAndDomainOfAnInterfaceCountForNothing", withInterfaces(R"(
       interfaces/heat/boundariesSide1 = cold
       interfaces/heat/boundariesSide2 = hot
       interfaces/heat/location = hull
       interfaces/heat/domain = water
     )"),
     kBoundaries + "3 interface heat: sides 1 2\n"
                   "ids: cold 1, heat 3, hot 2, water 0\n"},
    {"SideWhoseNameAnEarlierInterfaceTook", withInterfaces(R"(
       interfaces/cold/boundariesSide1 = cold
       interfaces/cold/boundariesSide2 = hot
       interfaces/heat/boundariesSide1 = hot
       interfaces/heat/boundariesSide2 = cold
     )"),
     kBoundaries + "3 interface cold: sides 1 2\n"
                   "ids: cold 3, hot 2, water 0\n"},
    {"EmptySideBesideABoundaryWithAnEmptyName", withInterfaces(R"(
       boundaries//location = rim
       interfaces/without/location = hull
       interfaces/half1/boundariesSide1 = hot
       interfaces/half2/boundariesSide2 = hot
       interfaces/heat/boundariesSide1 = cold
       interfaces/heat/boundariesSide2 = hot
     )"),
     kBoundaries + "3 boundary  at 'rim'\n"
                   "4 interface heat: sides 1 2\n"
                   "ids:  3, cold 1, heat 4, hot 2, water 0\n"},
    {"SideWhoseNameADomainAndASubdomainHaveToo", withInterfaces(R"(
       domains/hot/location = heater
       subdomains/cold/location = channel
       interfaces/heat/boundariesSide1 = cold
       interfaces/heat/boundariesSide2 = hot
     )"),
     "0 domain water at 'channel'\n"
     "1 domain hot at 'heater'\n"
     "2 subdomain cold at 'channel'\n"
     "3 boundary cold at 'hull'\n"
     "4 boundary hot at 'shell'\n"
     "5 interface heat: sides 3 4\n"
     "ids: cold 3, heat 5, hot 4, water 0\n"},
};

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, Interfaces, ::testing::ValuesIn(kRows), nameOf<TableRow>);

// --- Interfaces that are none -------------------------------------------------------------------

struct DroppedRow {
  std::string name;
  std::string settings;

  friend std::ostream& operator<<(std::ostream& out, const DroppedRow& row) {
    return out << row.name;
  }
};

class NoInterfaces : public ::testing::TestWithParam<DroppedRow> {};

/// Each row is an interface "drop" that is left out, before one that stays and takes the next id.
TEST_P(NoInterfaces, TakeNoId) {
  const ResolverRun run(
      withInterfaces("boundaries/rim/location = rim\n"
                     "subdomains/bed/location = channel\n" +
                     GetParam().settings +
                     "interfaces/heat/boundariesSide1 = cold\n"
                     "interfaces/heat/boundariesSide2 = hot\n"));
  EXPECT_EQ(run.table(),
            "0 domain water at 'channel'\n"
            "1 subdomain bed at 'channel'\n"
            "2 boundary cold at 'hull'\n"
            "3 boundary hot at 'shell'\n"
            "4 boundary rim at 'rim'\n"
            "5 interface heat: sides 2 3\n"
            "ids: bed 1, cold 2, heat 5, hot 3, rim 4, water 0\n");
  EXPECT_EQ(run.errors(), Texts());
}

std::string dropped(const std::string& side1, const std::string& side2) {
  return "interfaces/drop/boundariesSide1 = " + side1 +
         "\n"
         "interfaces/drop/boundariesSide2 = " +
         side2 + "\n";
}

const DroppedRow kDropped[] = {
    {"WithoutSide1", "interfaces/drop/boundariesSide2 = hot\n"},
    {"WithoutSide2", "interfaces/drop/boundariesSide1 = hot\n"},
    {"WithoutSides", "interfaces/drop/location = hull\n"},
    {"WithAnEmptySide1", dropped("", "hot")},
    {"WithAnEmptySide2", dropped("hot", "")},
    {"WithAnUnknownSide1", dropped("nobody", "hot")},
    {"WithAnUnknownSide2", dropped("hot", "nobody")},
    {"WithASubdomainOnSide1", dropped("bed", "hot")},
    {"WithASubdomainOnSide2", dropped("hot", "bed")},
    {"WithADomainOnSide1", dropped("water", "hot")},
    {"WithADomainOnSide2", dropped("hot", "water")},
    {"WithADomainOnBothSides", dropped("water", "water")},
    {"WithItselfOnSide1", dropped("drop", "hot")},
    {"WithALaterInterfaceOnSide2", dropped("hot", "heat")},
    {"WithTwoBoundariesOnOneSide", dropped("hot, rim", "cold")},
    {"WithABlankBeforeTheName", dropped(" hot", "cold")},
    {"WithANameInOtherLetters", dropped("cold", "Hot")},
};

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, NoInterfaces, ::testing::ValuesIn(kDropped),
                         nameOf<DroppedRow>);

}  // namespace
}  // namespace velto::testing
