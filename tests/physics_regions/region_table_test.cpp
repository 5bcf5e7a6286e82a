// SPDX-License-Identifier: Apache-2.0
//
// The table that a resolver starts with: which objects of the settings become regions, and which
// ids they get.

#include <gtest/gtest.h>

#include "tests/physics_regions/region_rows.h"

namespace velto::testing {
namespace {

class Regions : public ::testing::TestWithParam<TableRow> {};

TEST_P(Regions, AreReadAtOnce) { expectTable(GetParam()); }

// --- Kinds, ids, locations ----------------------------------------------------------------------

const TableRow kOrder[] = {
    {"NoSettings", "", ""},
    {"NoPhysics", "numerics/scheme/order = 2", ""},
    {"KindsInAnOrderOfTheirOwn",
     R"(
       interfaces/heat/boundariesSide1 = cold
       interfaces/heat/boundariesSide2 = hot
       boundaries/hot/location = shell
       boundaries/cold/location = hull
       subdomains/bed/location = channel
       domains/water/location = channel
       domains/steel/location = heater
     )",
     "0 domain water at 'channel'\n"
     "1 domain steel at 'heater'\n"
     "2 subdomain bed at 'channel'\n"
     "3 boundary hot at 'shell'\n"
     "4 boundary cold at 'hull'\n"
     "5 interface heat: sides 4 3\n"
     "ids: bed 2, cold 4, heat 5, hot 3, steel 1, water 0\n"},
    {"ObjectsOfAKindInTheOrderOfTheSettings",
     R"(
       domains/zinc/location = a
       domains/air/location = b
       domains/Water/location = c
     )",
     "0 domain zinc at 'a'\n"
     "1 domain air at 'b'\n"
     "2 domain Water at 'c'\n"
     "ids: Water 2, air 1, zinc 0\n"},
    {"ObjectsOfAKindInTheOrderOfAList",
     R"(
       domains/water/location = channel
       domains/steel/location = heater
       domains = steel, water
     )",
     "0 domain steel at 'heater'\n"
     "1 domain water at 'channel'\n"
     "ids: steel 0, water 1\n"},
    {"NameThatTheListHasTwice",
     R"(
       domains = water, steel, water
       domains/water/location = channel
       domains/steel/location = heater
       boundaries/walls/location = hull
       boundaries/walls/domain = water
     )",
     "0 domain water at 'channel'\n"
     "1 domain steel at 'heater'\n"
     "2 domain water at 'channel'\n"
     "3 boundary walls at 'hull'\n"
     "ids: steel 1, walls 3, water 2\n"
     "domains: 2 -> 3\n"},
    {"NamesWithoutLocationTakeNoId",
     R"(
       domains/empty/location =
       domains/water/location = channel
       domains/bare/fluid = oil
       domains/steel/location = heater
       subdomains/hole/location =
       subdomains/bed/location = channel
       boundaries/gap/domain = water
       boundaries/walls/location = hull
     )",
     "0 domain water at 'channel'\n"
     "1 domain steel at 'heater'\n"
     "2 subdomain bed at 'channel'\n"
     "3 boundary walls at 'hull'\n"
     "ids: bed 2, steel 1, walls 3, water 0\n"},
    {"LocationsAsTheyStand",
     "domains/water/location =  channel , heater,,\n"
     "subdomains/bed/location = ,\n"
     "boundaries/walls/location = \t\n",
     "0 domain water at ' channel , heater,,'\n"
     "1 subdomain bed at ','\n"
     "2 boundary walls at '\t'\n"
     "ids: bed 1, walls 2, water 0\n"},
    {"NameInTwoKinds",
     R"(
       domains/x/location = channel
       boundaries/x/location = hull
     )",
     "0 domain x at 'channel'\n"
     "1 boundary x at 'hull'\n"
     "ids: x 1\n"},
    {"NameInFourKinds",
     R"(
       domains/x/location = channel
       subdomains/x/location = bed
       boundaries/x/location = hull
       interfaces/x/boundariesSide1 = x
       interfaces/x/boundariesSide2 = x
     )",
     "0 domain x at 'channel'\n"
     "1 subdomain x at 'bed'\n"
     "2 boundary x at 'hull'\n"
     "3 interface x: sides 2 2\n"
     "ids: x 3\n"},
    {"EmptyName", "domains//location = channel",
     "0 domain  at 'channel'\n"
     "ids:  0\n"},
};

INSTANTIATE_TEST_SUITE_P(Order, Regions, ::testing::ValuesIn(kOrder), nameOf<TableRow>);

// --- Domains that subdomains and boundaries name ------------------------------------------------

const TableRow kDomains[] = {
    {"OfASubdomain",
     R"(
       domains/steel/location = heater
       domains/water/location = channel
       subdomains/bed/location = channel
       subdomains/bed/domain = water
     )",
     "0 domain steel at 'heater'\n"
     "1 domain water at 'channel'\n"
     "2 subdomain bed at 'channel'\n"
     "ids: bed 2, steel 0, water 1\n"
     "domains: 1 -> 2\n"},
    {"OfABoundary",
     R"(
       domains/water/location = channel
       boundaries/walls/location = hull
       boundaries/walls/domain = water
     )",
     "0 domain water at 'channel'\n"
     "1 boundary walls at 'hull'\n"
     "ids: walls 1, water 0\n"
     "domains: 0 -> 1\n"},
    {"KeepTheLaterOfTwoBoundaries",
     R"(
       domains/water/location = channel
       boundaries/walls/location = hull
       boundaries/walls/domain = water
       boundaries/lid/location = top
       boundaries/lid/domain = water
     )",
     "0 domain water at 'channel'\n"
     "1 boundary walls at 'hull'\n"
     "2 boundary lid at 'top'\n"
     "ids: lid 2, walls 1, water 0\n"
     "domains: 0 -> 2\n"},
    {"KeepABoundaryRatherThanASubdomain",
     R"(
       boundaries/walls/location = hull
       boundaries/walls/domain = water
       subdomains/bed/location = channel
       subdomains/bed/domain = water
       domains/water/location = channel
     )",
     "0 domain water at 'channel'\n"
     "1 subdomain bed at 'channel'\n"
     "2 boundary walls at 'hull'\n"
     "ids: bed 1, walls 2, water 0\n"
     "domains: 0 -> 2\n"},
    {"HaveAnEntryEach",
     R"(
       domains/water/location = channel
       domains/steel/location = heater
       domains/oil/location = sump
       boundaries/shell/location = shell
       boundaries/shell/domain = steel
       boundaries/hull/location = hull
       boundaries/hull/domain = water
     )",
     "0 domain water at 'channel'\n"
     "1 domain steel at 'heater'\n"
     "2 domain oil at 'sump'\n"
     "3 boundary shell at 'shell'\n"
     "4 boundary hull at 'hull'\n"
     "ids: hull 4, oil 2, shell 3, steel 1, water 0\n"
     "domains: 0 -> 4, 1 -> 3\n"},
    {"ThatAreUnknown",
     R"(
       domains/water/location = channel
       subdomains/bed/location = channel
       subdomains/bed/domain = oil
       boundaries/walls/location = hull
       boundaries/walls/domain = oil
       boundaries/lid/location = top
       boundaries/lid/domain = water
     )",
     "0 domain water at 'channel'\n"
     "1 subdomain bed at 'channel'\n"
     "2 boundary walls at 'hull'\n"
     "3 boundary lid at 'top'\n"
     "ids: bed 1, lid 3, walls 2, water 0\n"
     "domains: 0 -> 3\n"},
    {"ThatHaveNoLocation",
     R"(
       domains/oil/location =
       boundaries/walls/location = hull
       boundaries/walls/domain = oil
     )",
     "0 boundary walls at 'hull'\n"
     "ids: walls 0\n"},
    {"ThatAreNoDomains",
     R"(
       subdomains/bed/location = channel
       subdomains/nest/location = channel
       subdomains/nest/domain = bed
       boundaries/walls/location = hull
       boundaries/walls/domain = bed
       boundaries/lid/location = top
       boundaries/lid/domain = walls
     )",
     "0 subdomain bed at 'channel'\n"
     "1 subdomain nest at 'channel'\n"
     "2 boundary walls at 'hull'\n"
     "3 boundary lid at 'top'\n"
     "ids: bed 0, lid 3, nest 1, walls 2\n"},
    {"WhoseNameASubdomainTook",
     R"(
       domains/water/location = channel
       subdomains/bed/location = channel
       subdomains/bed/domain = water
       subdomains/water/location = channel
       subdomains/water/domain = water
       boundaries/walls/location = hull
       boundaries/walls/domain = water
     )",
     "0 domain water at 'channel'\n"
     "1 subdomain bed at 'channel'\n"
     "2 subdomain water at 'channel'\n"
     "3 boundary walls at 'hull'\n"
     "ids: bed 1, walls 3, water 2\n"
     "domains: 0 -> 1\n"},
    {"WhoseNameTheBoundaryItselfTakes",
     R"(
       domains/water/location = channel
       boundaries/water/location = hull
       boundaries/water/domain = water
     )",
     "0 domain water at 'channel'\n"
     "1 boundary water at 'hull'\n"
     "ids: water 1\n"},
    {"AreNamedLetterByLetter",
     R"(
       domains/water/location = channel
       boundaries/blank/location = hull
       boundaries/blank/domain =  water
       boundaries/list/location = hull
       boundaries/list/domain = water, water
       boundaries/case/location = hull
       boundaries/case/domain = Water
     )",
     "0 domain water at 'channel'\n"
     "1 boundary blank at 'hull'\n"
     "2 boundary list at 'hull'\n"
     "3 boundary case at 'hull'\n"
     "ids: blank 1, case 3, list 2, water 0\n"},
    {"WithAnEmptyNameAreNamedByNone",
     R"(
       domains//location = channel
       subdomains/bed/location = channel
       subdomains/bed/domain =
       boundaries/walls/location = hull
     )",
     "0 domain  at 'channel'\n"
     "1 subdomain bed at 'channel'\n"
     "2 boundary walls at 'hull'\n"
     "ids:  0, bed 1, walls 2\n"},
    {"OfAnObjectWithoutLocation",
     R"(
       domains/water/location = channel
       boundaries/walls/location =
       boundaries/walls/domain = water
     )",
     "0 domain water at 'channel'\n"
     "ids: water 0\n"},
    {"OfADomainOrAnInterfaceAreNotRead",
     R"(
       domains/water/location = channel
       domains/steel/location = heater
       domains/steel/domain = water
       boundaries/walls/location = hull
       interfaces/heat/boundariesSide1 = walls
       interfaces/heat/boundariesSide2 = walls
       interfaces/heat/domain = water
     )",
     "0 domain water at 'channel'\n"
     "1 domain steel at 'heater'\n"
     "2 boundary walls at 'hull'\n"
     "3 interface heat: sides 2 2\n"
     "ids: heat 3, steel 1, walls 2, water 0\n"},
};

INSTANTIATE_TEST_SUITE_P(Domains, Regions, ::testing::ValuesIn(kDomains), nameOf<TableRow>);

// --- What is asked, and when --------------------------------------------------------------------

TEST(RegionReading, AsksForEachKindAndForEachObjectInOrder) {
  const ResolverRun run(R"(
    interfaces/heat/boundariesSide1 = walls
    interfaces/heat/boundariesSide2 = walls
    interfaces/half/boundariesSide2 = walls
    boundaries/walls/location = hull
    boundaries/gap/domain = water
    subdomains/bed/location = channel
    subdomains/hole/domain = water
    domains/water/location = channel
    domains/oil/fluid = oil
  )");
  EXPECT_EQ(run.calls, Transcript({
                           "getSettings(0, domains, 1)",
                           "getSettings(0, domains/water/location, 1)",
                           "getSettings(0, domains/oil/location, 1)",
                           "getSettings(0, subdomains, 1)",
                           "getSettings(0, subdomains/bed/location, 1)",
                           "getSettings(0, subdomains/bed/domain, 1)",
                           "getSettings(0, subdomains/hole/location, 1)",
                           "getSettings(0, boundaries, 1)",
                           "getSettings(0, boundaries/walls/location, 1)",
                           "getSettings(0, boundaries/walls/domain, 1)",
                           "getSettings(0, boundaries/gap/location, 1)",
                           "getSettings(0, interfaces, 1)",
                           "getSettings(0, interfaces/heat/boundariesSide1, 1)",
                           "getSettings(0, interfaces/heat/boundariesSide2, 1)",
                           "getSettings(0, interfaces/half/boundariesSide1, 1)",
                           "getSettings(0, interfaces/half/boundariesSide2, 1)",
                       }));
}

TEST(RegionReading, AsksForTheKindsAloneWhereThereIsNothing) {
  const ResolverRun run("");
  EXPECT_EQ(run.calls,
            Transcript({"getSettings(0, domains, 1)", "getSettings(0, subdomains, 1)",
                        "getSettings(0, boundaries, 1)", "getSettings(0, interfaces, 1)"}));
}

TEST(RegionReading, NeedsNoProvider) {
  const PhysicsRegionResolver resolver(nullptr);
  EXPECT_EQ(tableText(tableOf(resolver)), "");
  EXPECT_EQ(resolver.getErrors(), Texts());
}

TEST(RegionReading, DoesNotKeepTheProvider) {
  ResolverRun run("domains/water/location = channel");
  run.provider.reset();
  std::string location;
  EXPECT_TRUE(run.resolver->regionLocation("water", location));
  EXPECT_EQ(location, "channel");
  EXPECT_EQ(run.table(),
            "0 domain water at 'channel'\n"
            "ids: water 0\n");
}

/// Settings that change later are seen by a resolver that is made later.
TEST(RegionReading, IsDoneOnce) {
  const std::string before =
      "0 domain water at 'channel'\n"
      "ids: water 0\n";
  ResolverRun run("domains/water/location = channel", "part assembly\n body heater: 8");
  base::Settings& settings = base::coreOf(*run.provider).tables.defaultSettings();
  settings.set("domains/water/location", "heater");
  settings.set("domains/oil/location", "sump");
  EXPECT_EQ(run.table(), before);
  run.calls.clear();
  EXPECT_TRUE(run.resolve());
  EXPECT_EQ(run.table(),
            "0 domain water at 'channel': bodies [], cell zones [] [], bulk zones []\n"
            "ids: water 0\n");
  for (const std::string& call : run.calls) {
    EXPECT_NE(operationOf(call), "getSettings");
  }
  EXPECT_EQ(tableText(tableOf(PhysicsRegionResolver(run.provider.get()))),
            "0 domain water at 'heater'\n"
            "1 domain oil at 'sump'\n"
            "ids: oil 1, water 0\n");
}

}  // namespace
}  // namespace velto::testing
