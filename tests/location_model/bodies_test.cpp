// SPDX-License-Identifier: Apache-2.0
//
// Bodies: their names, and which interior face zones they take in.

#include <functional>
#include <gtest/gtest.h>
#include <limits>

#include "tests/location_model/builder_run.h"

namespace velto::testing {
namespace {

/// Cells 1 and 2 in zone 8 "fluid", cell 3 in zone 9 "solid"; zone 3 "inside" with a face between
/// the cells of the first, zone 4 "walls" around it.
CasePtr fluidAndSolid() {
  return CaseBuilder()
      .faces(3, "inside", faceZoneTypeInterior, {beside(1, 2)})
      .faces(4, "walls", kPlainType, {beside(1), beside(2)})
      .cells(8, "fluid", cellShapeHexahedron, 2)
      .cells(9, "solid", cellShapeHexahedron, 1)
      .build();
}

/// What is set as the zones of all bodies.
Texts zonesOfBodies(const Built& built) { return callsOf({"setBodyZones"}, built.calls); }

// --- Names --------------------------------------------------------------------------------------

TEST(Bodies, BearTheNamesOfTheirCellZones) {
  EXPECT_EQ(callsOf({"createBody"}, build(fluidAndSolid()).calls),
            Transcript({"createBody(1, fluid)", "createBody(1, solid)"}));
}

TEST(Bodies, AreNamedByTheirIdsWhereTheZoneHasAnEmptyName) {
  const CasePtr served = fluidAndSolid();
  served->zone(8).texts[zoneName] = "";
  served->zone(9).texts[zoneName].reset();
  EXPECT_EQ(callsOf({"createBody"}, build(served).calls),
            Transcript({"createBody(1, B8)", "createBody(1, B9)"}));
}

// --- What they take in --------------------------------------------------------------------------

TEST(Bodies, TakeInInteriorZonesOfWhichNoFaceIsMade) {
  const Built built = build(fluidAndSolid());
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8, 3], boundary [4]
  body 5 'solid': zones [9], boundary []
  face 3 'F4': sides 4 | 0
  use 4 'walls' or 'F4@fluid': zone sides [4]
)");
}

TEST(Bodies, TakeInInteriorZonesThoughTheyAreNotTheFirst) {
  const CasePtr served = fluidAndSolid();
  served->mesh().zoneIds[zoneCategoryCell] = {9, 8};
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'solid': zones [9], boundary []
  body 3 'fluid': zones [8, 3], boundary [5]
  face 4 'F4': sides 5 | 0
  use 5 'walls' or 'F4@fluid': zone sides [4]
)");
}

TEST(Bodies, TakeInNothingWhereTheirCellsListTheirNodes) {
  const CasePtr served = fluidAndSolid();
  served->arrays().cellNodes[8];
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5, 7]
  body 8 'solid': zones [9], boundary []
  face 3 'inside': sides 4 | 5
  face 6 'F4': sides 7 | 0
  use 4 '' or 'inside@fluid': zone sides [3]
  use 5 '' or 'inside@fluid.2': zone sides [-3]
  use 7 'walls' or 'F4@fluid': zone sides [4]
)");
}

TEST(Bodies, TakeInZonesThoughTheCellsOfOthersListTheirNodes) {
  const CasePtr served = fluidAndSolid();
  served->arrays().cellNodes[9];
  EXPECT_EQ(zonesOfBodies(build(served)),
            Texts({"setBodyZones(2, 1, [8, 3])", "setBodyZones(5, 1, [9])"}));
}

TEST(Bodies, TakeInZonesThoughTheCellsOfParentsListTheirNodes) {
  const CasePtr served = fluidAndSolid();
  served->zone(9).cellInfo[cellZoneChild] = 8;
  const Preparation listParent = [](ScriptedProvider& p, LocationModelScript&) {
    p.answerList("beginCellNodes", {9, 9});
  };
  EXPECT_EQ(zonesOfBodies(build(served, listParent)), Texts({"setBodyZones(2, 1, [8, 3])"}));
}

TEST(Bodies, TakeInZonesInTheOrderInWhichTheseBoundThem) {
  const CasePtr served = CaseBuilder()
                             .faces(3, "first", faceZoneTypeInterior, {beside(1, 2)})
                             .faces(4, "second", faceZoneTypeInterior, {beside(1, 2)})
                             .faces(5, "third", faceZoneTypeInterior, {beside(1, 2)})
                             .cells(8, "fluid", cellShapeHexahedron, 2)
                             .build();
  served->zone(8).boundingFaceZones = {5, 3, 4, 3};
  EXPECT_EQ(zonesOfBodies(build(served)), Texts({"setBodyZones(2, 1, [8, 5, 3, 4, 3])"}));
}

TEST(Bodies, TakeInOnlyZonesThatAreListedAsBoundingThem) {
  const CasePtr served = fluidAndSolid();
  served->zone(8).boundingFaceZones = {4};
  EXPECT_EQ(zonesOfBodies(build(served)),
            Texts({"setBodyZones(2, 1, [8])", "setBodyZones(8, 1, [9])"}));
}

TEST(Bodies, TakeInInteriorZonesThatHaveAChild) {
  const CasePtr served = fluidAndSolid();
  served->zone(3).faceInfo[faceZoneChild] = 4;
  EXPECT_EQ(zonesOfBodies(build(served)),
            Texts({"setBodyZones(2, 1, [8, 3])", "setBodyZones(5, 1, [9])"}));
}

TEST(Bodies, TakeInAZoneOfWhichAnEarlierBodyHasAFace) {
  const CasePtr served = fluidAndSolid();
  served->mesh().zoneIds[zoneCategoryCell] = {9, 8};
  served->zone(3).sideCellZones = {std::vector<int>{9}, std::vector<int>{}};
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'solid': zones [9], boundary [4]
  body 5 'fluid': zones [8, 3], boundary [7]
  face 3 'inside': sides 4 | 0
  face 6 'F4': sides 7 | 0
  use 4 '' or 'inside@solid': zone sides [3]
  use 7 'walls' or 'F4@fluid': zone sides [4]
)");
}

TEST(Bodies, KeepAZoneThatTheyTookInFromTheFacesOfLaterOnes) {
  const CasePtr served = fluidAndSolid();
  served->zone(3).sideCellZones = {std::vector<int>{}, std::vector<int>{9}};
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8, 3], boundary [4]
  body 5 'solid': zones [9], boundary []
  face 3 'F4': sides 4 | 0
  use 4 'walls' or 'F4@fluid': zone sides [4]
)");
}

// --- The test of an interior zone ---------------------------------------------------------------

struct InteriorRow {
  const char* name;
  std::function<void(memory::Case&)> damage;
  bool isTakenIn;
  bool readsAFace;
};

std::ostream& operator<<(std::ostream& out, const InteriorRow& row) { return out << row.name; }

class InteriorZone : public ::testing::TestWithParam<InteriorRow> {};

/// The cells of the faces of zone 3.
void setCells(memory::Case& served, memory::Ids cell0, memory::Ids cell1) {
  served.arrays().faceCell0[3] = memory::Slice<std::uint64_t>(std::move(cell0));
  served.arrays().faceCell1[3] = memory::Slice<std::uint64_t>(std::move(cell1));
}

/// Zone 3 without the relations that tell where it lies, so that its first face has to tell.
void setCellsOnly(memory::Case& served, memory::Ids cell0, memory::Ids cell1) {
  served.zone(3).sideCellZones = {};
  setCells(served, std::move(cell0), std::move(cell1));
}

void setSides(memory::Case& served, std::vector<int> side0, std::vector<int> side1) {
  served.zone(3).sideCellZones = {std::move(side0), std::move(side1)};
}

TEST_P(InteriorZone, IsTakenInOrNot) {
  const CasePtr served = fluidAndSolid();
  GetParam().damage(*served);
  const Built built = build(served);
  EXPECT_EQ(zonesOfBodies(built).at(0),
            GetParam().isTakenIn ? "setBodyZones(2, 1, [8, 3])" : "setBodyZones(2, 1, [8])");
  const Transcript sampled = callsOf({"getFaceCell0", "getFaceCell1"}, built.calls);
  EXPECT_EQ(sampled, GetParam().readsAFace ? Transcript({"getFaceCell0(1)", "getFaceCell1(1)"})
                                           : Transcript());
}

constexpr std::uint64_t kHigh = std::numeric_limits<std::uint64_t>::max();

INSTANTIATE_TEST_SUITE_P(
    Bodies, InteriorZone,
    ::testing::Values(
        InteriorRow{"WithBothSidesInTheBody", [](auto&) {}, true, false},
        InteriorRow{"OfType14", [](auto& c) { c.zone(3).faceInfo[faceZoneType] = faceZoneType14; },
                    false, false},
        InteriorRow{"WithoutType", [](auto& c) { c.zone(3).faceInfo[faceZoneType].reset(); }, false,
                    false},
        InteriorRow{"OfAnotherTypeWithoutRelations",
                    [](auto& c) {
                      c.zone(3).faceInfo[faceZoneType] = faceZoneType3;
                      setCellsOnly(c, {1}, {2});
                    },
                    false, false},
        InteriorRow{"BetweenTwoBodies", [](auto& c) { setSides(c, {8}, {9}); }, false, false},
        InteriorRow{"BetweenTwoOtherBodies", [](auto& c) { setSides(c, {9}, {9}); }, false, false},
        InteriorRow{"WhoseListsBothBeginWithTheBody",
                    [](auto& c) {
                      setSides(c, {8, 9}, {8, 77});
                    },
                    true, false},
        InteriorRow{"WhoseSide0BeginsWithAnother",
                    [](auto& c) {
                      setSides(c, {9, 8}, {8});
                    },
                    false, false},
        InteriorRow{"WhoseSide1BeginsWithAnother",
                    [](auto& c) {
                      setSides(c, {8}, {77, 8});
                    },
                    false, false},
        InteriorRow{"WithFacesElsewhereThatNobodyReads", [](auto& c) { setCells(c, {3}, {3}); },
                    true, false},
        InteriorRow{"WithoutRelations", [](auto& c) { setCellsOnly(c, {1}, {2}); }, true, true},
        InteriorRow{"WithoutRelationsOfSide0", [](auto& c) { setSides(c, {}, {8}); }, true, true},
        InteriorRow{"WithoutRelationsOfSide1", [](auto& c) { setSides(c, {8}, {}); }, true, true},
        InteriorRow{"WithOneRelationToAnotherBody", [](auto& c) { setSides(c, {}, {9}); }, true,
                    true},
        InteriorRow{"OfWhichOnlyTheFirstFaceLiesInside",
                    [](auto& c) {
                      setCellsOnly(c, {2, 3}, {1, 3});
                    },
                    true, true},
        InteriorRow{"OfWhichOnlyTheFirstFaceLiesOutside",
                    [](auto& c) {
                      setCellsOnly(c, {3, 1}, {3, 2});
                    },
                    false, true},
        InteriorRow{"WithTheFirstCellOnBothSides", [](auto& c) { setCellsOnly(c, {1}, {1}); }, true,
                    true},
        InteriorRow{"WithTheLastCellOnBothSides", [](auto& c) { setCellsOnly(c, {2}, {2}); }, true,
                    true},
        InteriorRow{"WithACellBehindTheBodyOnSide0", [](auto& c) { setCellsOnly(c, {3}, {2}); },
                    false, true},
        InteriorRow{"WithACellBehindTheBodyOnSide1", [](auto& c) { setCellsOnly(c, {2}, {3}); },
                    false, true},
        InteriorRow{"WithNoCellOnSide0", [](auto& c) { setCellsOnly(c, {0}, {2}); }, false, true},
        InteriorRow{"WithNoCellOnSide1", [](auto& c) { setCellsOnly(c, {2}, {0}); }, false, true},
        InteriorRow{"WithACellBeforeTheBody",
                    [](auto& c) {
                      c.zone(8).sizes[zoneFirstId] = 2;
                      setCellsOnly(c, {1}, {2});
                    },
                    false, true},
        InteriorRow{"WithCellsAbove2To63",
                    [](auto& c) {
                      c.zone(8).sizes[zoneLastId] = kHigh;
                      setCellsOnly(c, {kHigh}, {kHigh / 2 + 1});
                    },
                    true, true},
        InteriorRow{"OfABodyThatBeginsAbove2To63",
                    [](auto& c) {
                      c.zone(8).sizes[zoneFirstId] = kHigh / 2 + 1;
                      c.zone(8).sizes[zoneLastId] = kHigh;
                      setCellsOnly(c, {2}, {2});
                    },
                    false, true},
        InteriorRow{"OfABodyWhoseLastCellComesBeforeItsFirst",
                    [](auto& c) {
                      c.zone(8).sizes[zoneLastId] = 0;
                      setCellsOnly(c, {1}, {2});
                    },
                    false, true}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Bodies, ReadTheFirstFaceOfAZoneSide0FirstEachInABracketOfItsOwn) {
  const CasePtr served = CaseBuilder()
                             .faces(2, "walls", kPlainType, {beside(1), beside(2)})
                             .faces(3, "inside", faceZoneTypeInterior, {beside(1, 2), beside(1, 2)})
                             .faces(4, "more", faceZoneTypeInterior, {beside(2, 1)})
                             .cells(8, "fluid", cellShapeHexahedron, 2)
                             .build();
  served->zone(3).sideCellZones = {};
  served->zone(4).sideCellZones = {};
  const Built built = build(served);
  const Transcript fromPart(built.calls.begin() + 7, built.calls.begin() + 22);
  EXPECT_EQ(lines(fromPart), R"(createPart(3, P)
createBody(1, fluid)
beginFaceCell0()
getFaceCell0(3)
endFaceCell0()
beginFaceCell1()
getFaceCell1(3)
endFaceCell1()
beginFaceCell0()
getFaceCell0(5)
endFaceCell0()
beginFaceCell1()
getFaceCell1(5)
endFaceCell1()
setBodyZones(2, 1, [8, 3, 4])
)");
}

}  // namespace
}  // namespace velto::testing
