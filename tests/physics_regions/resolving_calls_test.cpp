// SPDX-License-Identifier: Apache-2.0
//
// What a resolving asks of provider and model, in order.

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace velto::testing
