// SPDX-License-Identifier: Apache-2.0
//
// What a resolving asks of provider and model, in order, and what becomes of one in which they
// throw.

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

#include "embedded/memory/CaseBuilder.h"
#include "tests/physics_regions/region_rows.h"

namespace velto::testing {
namespace {

/// The calls of the resolving alone.
Transcript callsOfResolving(ResolverRun& run) {
  run.calls.clear();
  run.resolve();
  return run.calls;
}

TEST(ResolvingCalls, AreThoseOfARegionAfterTheOther) {
  ResolverRun run(R"(
    domains/water/location = channel, all
    subdomains/bed/location = nowhere
    boundaries/walls/location = hull
    boundaries/screen/location = screen
    interfaces/heat/boundariesSide1 = walls
    interfaces/heat/boundariesSide2 = walls
  )",
                  R"(
    part assembly
      body channel: 7 2
      body heater: 8
      use hull of channel: 4
      use shell of heater: 5
      composite all: heater
  )");
  EXPECT_EQ(callsOfResolving(run), Transcript({
                                       "getLocationModel()",
                                       "getZoneCount(3)",
                                       "getParts()",
                                       "getZoneIds(3)",
                                       "beginCellNodes()",
                                       "endCellNodes()",
                                       // The domain
                                       "findBody(1, channel)",
                                       "findBody(1, all)",
                                       "findComposite(1, all)",
                                       "resolveComposite(8)",
                                       "getMeshId()",
                                       "getBodyZones(2, 1)",
                                       "getBodyBoundary(2)",
                                       "getMeshId()",
                                       "getFaceUseZoneSides(5, 1)",
                                       "getMeshId()",
                                       "getBodyZones(3, 1)",
                                       "getBodyBoundary(3)",
                                       "getMeshId()",
                                       "getFaceUseZoneSides(7, 1)",
                                       "getZoneStringInfo(2, 0)",
                                       // The subdomain
                                       "findBody(1, nowhere)",
                                       "findComposite(1, nowhere)",
                                       "findFace(1, nowhere)",
                                       "findFaceUse(1, nowhere)",
                                       // The boundaries
                                       "findFaceUse(1, hull)",
                                       "getMeshId()",
                                       "getFaceUseZoneSides(5, 1)",
                                       "findFaceUse(1, screen)",
                                       "findComposite(1, screen)",
                                       "findFace(1, screen)",
                                       "findBody(1, screen)",
                                   }));
}

TEST(ResolvingCalls, GoThroughThePartsForEachName) {
  ResolverRun run("domains/water/location = x, y",
                  "part one\n body y: 8\n part two\n body x: 7\n part three\n body x: 9");
  EXPECT_EQ(callsOfResolving(run), Transcript({
                                       "getLocationModel()",
                                       "getZoneCount(3)",
                                       "getParts()",
                                       "getZoneIds(3)",
                                       "beginCellNodes()",
                                       "endCellNodes()",
                                       "findBody(1, x)",
                                       "findComposite(1, x)",
                                       "findFace(1, x)",
                                       "findFaceUse(1, x)",
                                       "findBody(3, x)",
                                       "findBody(1, y)",
                                       "getMeshId()",
                                       "getBodyZones(2, 1)",
                                       "getBodyBoundary(2)",
                                       "getMeshId()",
                                       "getBodyZones(4, 1)",
                                       "getBodyBoundary(4)",
                                   }));
}

TEST(ResolvingCalls, EndWithAnObjectOfTheWrongSort) {
  ResolverRun run("domains/water/location = sheet, channel\n boundaries/walls/location = hull",
                  "part assembly\n body channel: 7\n use hull of channel: 4\n face sheet");
  EXPECT_EQ(callsOfResolving(run),
            Transcript({"getLocationModel()", "getZoneCount(3)", "getParts()", "getZoneIds(3)",
                        "beginCellNodes()", "endCellNodes()", "findBody(1, sheet)",
                        "findComposite(1, sheet)", "findFace(1, sheet)"}));
}

TEST(ResolvingCalls, CloseTheListOfZonesBeforeAnyIsJudged) {
  ResolverRun run("domains/water/location = channel", "part assembly\n body channel: 7");
  run.provider->answerList("beginCellNodes", {4});
  EXPECT_EQ(callsOfResolving(run),
            Transcript({"getLocationModel()", "getZoneCount(3)", "getParts()", "getZoneIds(3)",
                        "beginCellNodes()", "endCellNodes()"}));
}

TEST(ResolvingCalls, EndWithTheZonesIfThereAreNone) {
  ResolverRun run(memory::CaseBuilder().build());
  EXPECT_EQ(callsOfResolving(run),
            Transcript({"getLocationModel()", "getZoneCount(3)", "getZoneCount(2)"}));
}

TEST(ResolvingCalls, EndWithThePartsIfThereAreNone) {
  cases::CasePtr made = regionCase("domains/water/location = channel", "");
  ResolverRun without(made);
  EXPECT_EQ(callsOfResolving(without), Transcript({"getLocationModel()", "getZoneCount(3)"}));
  made->tables.locationModel = std::make_shared<OrvLocationModel>();
  ResolverRun empty(made);
  EXPECT_EQ(callsOfResolving(empty),
            Transcript({"getLocationModel()", "getZoneCount(3)", "getParts()"}));
}

// --- Exceptions ---------------------------------------------------------------------------------

struct ExceptionRow {
  std::string name;
  std::string call;
  int nth = 1;
  /// Before anything of the earlier result is given up.
  bool keeps = false;

  friend std::ostream& operator<<(std::ostream& out, const ExceptionRow& row) {
    return out << row.name;
  }
};

const char* const kResolved =
    "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
    "1 boundary walls at 'hull': face uses [4], zone sides [4]\n"
    "ids: walls 1, water 0\n"
    "domains: 1 -> 0\n";
const char* const kCleared =
    "0 domain water at 'channel'\n"
    "1 boundary walls at 'hull'\n"
    "ids: walls 1, water 0\n";

class ResolvingThatThrows : public ::testing::TestWithParam<ExceptionRow> {
 protected:
  void expectAllOrNothing() {
    EXPECT_EQ(run_.table(), GetParam().keeps ? kResolved : kCleared);
    EXPECT_EQ(run_.errors(), Texts());
    EXPECT_TRUE(run_.resolve());
    EXPECT_EQ(run_.table(), kResolved);
    EXPECT_EQ(run_.err, "");
  }

  ResolverRun run_{R"(
    domains/water/location = channel
    boundaries/walls/location = hull
    boundaries/walls/domain = water
  )",
                   R"(
    part assembly
      body channel: 7 2
      use hull of channel: 4
  )"};
};

class ProviderThatThrows : public ResolvingThatThrows {};

TEST_P(ProviderThatThrows, LeavesAllOrNothing) {
  EXPECT_TRUE(run_.resolve());
  run_.provider->on(GetParam().call, GetParam().nth,
                    [](base::CaseCore&) { throw std::runtime_error("disk gone"); });
  EXPECT_THROW(run_.resolve(), std::runtime_error);
  expectAllOrNothing();
}

const ExceptionRow kProvider[] = {
    {"AskedForItsModel", "getLocationModel", 1, true},
    {"AskedForTheCountOfZones", "getZoneCount", 1, true},
    {"AskedForItsCellZones", "getZoneIds"},
    {"OpeningTheCellNodes", "beginCellNodes"},
    {"ClosingTheCellNodes", "endCellNodes"},
    {"AskedForTheMeshIdOfABody", "getMeshId", 1},
    {"AskedForTheMeshIdOfAFaceUse", "getMeshId", 2},
    {"AskedForTheMeshIdOfABoundary", "getMeshId", 3},
    {"AskedForTheNameOfAZone", "getZoneStringInfo"},
};

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, ProviderThatThrows, ::testing::ValuesIn(kProvider),
                         nameOf<ExceptionRow>);

class ModelThatThrows : public ResolvingThatThrows {};

TEST_P(ModelThatThrows, LeavesAllOrNothing) {
  EXPECT_TRUE(run_.resolve());
  {
    LocationModelScript script;
    script.breakDown(GetParam().call, GetParam().nth);
    EXPECT_THROW(run_.resolver->resolveUsing(run_.provider.get()), std::runtime_error);
  }
  expectAllOrNothing();
}

const ExceptionRow kModel[] = {
    {"AskedForItsParts", "getParts", 1, true},
    {"AskedForABody", "findBody"},
    {"AskedForTheZonesOfABody", "getBodyZones"},
    {"AskedForTheBoundaryOfABody", "getBodyBoundary"},
    {"AskedForTheSidesOfABody", "getFaceUseZoneSides", 1},
    {"AskedForAFaceUse", "findFaceUse"},
    {"AskedForTheSidesOfABoundary", "getFaceUseZoneSides", 2},
};

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, ModelThatThrows, ::testing::ValuesIn(kModel),
                         nameOf<ExceptionRow>);

}  // namespace
}  // namespace velto::testing
