// SPDX-License-Identifier: Apache-2.0
//
// Faces and face uses: what becomes of each kind of face zone, its names, and the sides it lies on.

#include <gtest/gtest.h>

#include "tests/location_model/builder_run.h"

namespace velto::testing {
namespace {

/// Cell 1 in zone 8 "fluid", cell 2 in zone 9 "solid", and face zone 3 as given.
CasePtr withZone(int type, const std::string& name, const std::vector<memory::FaceLine>& faces) {
  return CaseBuilder()
      .faces(3, name, type, faces)
      .cells(8, "fluid", cellShapeHexahedron, 1)
      .cells(9, "solid", cellShapeHexahedron, 1)
      .build();
}

// --- Kinds of zones -----------------------------------------------------------------------------

struct ZoneRow {
  const char* name;
  int type;
  std::vector<memory::FaceLine> faces;
  const char* model;
};

std::ostream& operator<<(std::ostream& out, const ZoneRow& row) { return out << row.name; }

class FaceZone : public ::testing::TestWithParam<ZoneRow> {};

TEST_P(FaceZone, BecomesAFace) {
  const Built built = build(withZone(GetParam().type, "zone", GetParam().faces));
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.errors, Texts());
  EXPECT_EQ(built.model, GetParam().model);
}

const char* const kTwoSided = R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  body 5 'solid': zones [9], boundary [6]
  face 3 'zone': sides 4 | 6
  use 4 '' or 'zone@fluid': zone sides [3]
  use 6 '' or 'zone@solid': zone sides [-3]
)";

const char* const kTwoSidedAndOneSideAtHand = R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  body 5 'solid': zones [9], boundary []
  face 3 'zone': sides 4 | 0
  use 4 '' or 'zone@fluid': zone sides [3]
)";

const char* const kOneSided = R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  body 5 'solid': zones [9], boundary []
  face 3 'F3': sides 4 | 0
  use 4 'zone' or 'F3@fluid': zone sides [3]
)";

const char* const kOneSidedOnSide1 = R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  body 5 'solid': zones [9], boundary []
  face 3 'F3': sides 0 | 4
  use 4 'zone' or 'F3@fluid': zone sides [-3]
)";

const char* const kOneSidedWithCellsOnBothSides = R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  body 5 'solid': zones [9], boundary [6]
  face 3 'F3': sides 4 | 6
  use 4 'zone' or 'F3@fluid': zone sides [3]
  use 6 'zone' or 'F3@solid': zone sides [-3]
)";

const char* const kOneSidedInsideABody = R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5]
  body 6 'solid': zones [9], boundary []
  face 3 'F3': sides 4 | 5
  use 4 'zone' or 'F3@fluid': zone sides [3]
  use 5 'zone' or 'F3@fluid.2': zone sides [-3]
)";

const char* const kTurnedRound = R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  body 5 'solid': zones [9], boundary [6]
  face 3 'zone': sides 6 | 4
  use 4 '' or 'zone@fluid': zone sides [-3]
  use 6 '' or 'zone@solid': zone sides [3]
)";

const char* const kAbsorbed = R"(part 'P' (1)
  body 2 'fluid': zones [8, 3], boundary []
  body 3 'solid': zones [9], boundary []
)";

const char* const kTwoSidedInsideABody = R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5]
  body 6 'solid': zones [9], boundary []
  face 3 'zone': sides 4 | 5
  use 4 '' or 'zone@fluid': zone sides [3]
  use 5 '' or 'zone@fluid.2': zone sides [-3]
)";

const char* const kNoFace = R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary []
  body 3 'solid': zones [9], boundary []
)";

INSTANTIATE_TEST_SUITE_P(
    Faces, FaceZone,
    ::testing::Values(
        ZoneRow{"InteriorInOneBody", 2, {beside(1, 1)}, kAbsorbed},
        ZoneRow{"InteriorBetweenTwoBodies", 2, {beside(1, 2)}, kTwoSided},
        ZoneRow{"InteriorBetweenTwoBodiesTurnedRound", 2, {beside(2, 1)}, kTurnedRound},
        ZoneRow{"InteriorOnSide0Only", 2, {beside(1)}, kTwoSidedAndOneSideAtHand},
        ZoneRow{"Type14BetweenTwoBodies", 14, {beside(1, 2)}, kTwoSided},
        ZoneRow{"Type14InOneBody", 14, {beside(1, 1)}, kTwoSidedInsideABody},
        ZoneRow{"Type14OnSide0Only", 14, {beside(1)}, kTwoSidedAndOneSideAtHand},
        ZoneRow{"PlainOnSide0", kPlainType, {beside(1)}, kOneSided},
        ZoneRow{"PlainOnSide1", kPlainType, {beside(0, 1)}, kOneSidedOnSide1},
        ZoneRow{"PlainBetweenTwoBodies", kPlainType, {beside(1, 2)}, kOneSidedWithCellsOnBothSides},
        ZoneRow{"PlainInOneBody", kPlainType, {beside(1, 1)}, kOneSidedInsideABody},
        ZoneRow{"Type3WithoutShadow", 3, {beside(1)}, kOneSided},
        ZoneRow{"Type3WithoutShadowOnSide1", 3, {beside(0, 1)}, kOneSidedOnSide1},
        ZoneRow{"Type8WithoutShadow", 8, {beside(1)}, kOneSided},
        ZoneRow{
            "Type8WithoutShadowBetweenTwoBodies", 8, {beside(1, 2)}, kOneSidedWithCellsOnBothSides},
        ZoneRow{"Type12", 12, {beside(1)}, kOneSided},
        ZoneRow{"Type12BetweenTwoBodies", 12, {beside(1, 2)}, kOneSidedWithCellsOnBothSides},
        ZoneRow{"TypeMinus1", -1, {beside(1)}, kOneSided},
        ZoneRow{"TypeMinus2", -2, {beside(1)}, kOneSided},
        ZoneRow{"Type0", 0, {beside(1)}, kOneSided},
        ZoneRow{"PlainBesideNoCell", kPlainType, {beside(0)}, kNoFace},
        ZoneRow{"InteriorBesideNoCell", 2, {beside(0)}, kNoFace}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Faces, OfZonesWithoutTypeAreOneSided) {
  const CasePtr served = withZone(kPlainType, "zone", {beside(1)});
  served->zone(3).faceInfo[faceZoneType].reset();
  EXPECT_EQ(build(served).model, kOneSided);
}

TEST(Faces, OfInteriorZonesHaveTwoUsesWhereTheCellsListTheirNodes) {
  const CasePtr served = withZone(faceZoneTypeInterior, "zone", {beside(1, 1)});
  served->arrays().cellNodes[8];
  EXPECT_EQ(build(served).model, kTwoSidedInsideABody);
}

// --- Names --------------------------------------------------------------------------------------

TEST(Faces, OfOneSidedZonesGiveTheirUsesAnEmptyNameWhereTheZoneHasOne) {
  const Built built = build(withZone(kPlainType, "", {beside(1)}));
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  body 5 'solid': zones [9], boundary []
  face 3 'F3': sides 4 | 0
  use 4 '' or 'F3@fluid': zone sides [3]
)");
  EXPECT_EQ(callsOf({"setFaceUseName"}, built.calls), Transcript({"setFaceUseName(4, )"}));
}

TEST(Faces, OfOneSidedZonesNameTheirUsesWhateverTheName) {
  const Built built = build(withZone(kPlainType, "F3", {beside(1, 2)}));
  EXPECT_EQ(callsOf({"setFaceUseName"}, built.calls),
            Transcript({"setFaceUseName(4, F3)", "setFaceUseName(6, F3)"}));
}

TEST(Faces, OfTwoSidedZonesLeaveTheirUsesUnnamed) {
  const Built built = build(withZone(faceZoneType14, "zone", {beside(1, 2)}));
  EXPECT_EQ(callsOf({"setFaceUseName"}, built.calls), Transcript());
}

TEST(Faces, OfTwoSidedZonesWithoutNameHaveNone) {
  const CasePtr served = withZone(faceZoneType14, "", {beside(1, 2)});
  served->zone(3).texts[zoneName].reset();
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  body 5 'solid': zones [9], boundary [6]
  face 3 '': sides 4 | 6
  use 4 '' or '@fluid': zone sides [3]
  use 6 '' or '@solid': zone sides [-3]
)");
}

TEST(Faces, AreSharedByTwoSidedZonesOfOneNameThatHoldDifferentSides) {
  const CasePtr served = CaseBuilder()
                             .faces(3, "zone", faceZoneType14, {beside(1)})
                             .faces(4, "zone", faceZoneTypeInterior, {beside(0, 1)})
                             .cells(8, "fluid", cellShapeHexahedron, 1)
                             .build();
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5]
  face 3 'zone': sides 4 | 5
  use 4 '' or 'zone@fluid': zone sides [3]
  use 5 '' or 'zone@fluid.2': zone sides [-4]
)");
}

TEST(Faces, OfOneSidedZonesAreFoundByATwoSidedZoneOfTheirName) {
  const CasePtr served = CaseBuilder()
                             .faces(3, "walls", kPlainType, {beside(1)})
                             .faces(4, "F3", faceZoneType14, {beside(0, 1)})
                             .cells(8, "fluid", cellShapeHexahedron, 1)
                             .build();
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5]
  face 3 'F3': sides 4 | 5
  use 4 'walls' or 'F3@fluid': zone sides [3]
  use 5 '' or 'F3@fluid.2': zone sides [-4]
)");
}

// --- Cell zones that do not count ---------------------------------------------------------------

TEST(Faces, DropCellZonesThatAreNoLeavesWithoutAWord) {
  const CasePtr served = withZone(kPlainType, "zone", {beside(1)});
  served->zone(9).cellInfo[cellZoneChild] = 8;
  served->zone(3).sideCellZones[0] = {9, 77, 8, 3};
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  face 3 'F3': sides 4 | 0
  use 4 'zone' or 'F3@fluid': zone sides [3]
)");
}

TEST(Faces, TakeACellZoneThatIsListedTwiceOnce) {
  const CasePtr served = withZone(kPlainType, "zone", {beside(1)});
  served->zone(3).sideCellZones[0] = {8, 8, 8};
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, kOneSided);
}

TEST(Faces, AreNotMadeOfZonesThatTouchNoLeaf) {
  const CasePtr served = withZone(kPlainType, "zone", {beside(1, 2)});
  served->zone(3).sideCellZones = {std::vector<int>{77}, std::vector<int>{-8, 0}};
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, kNoFace);
}

TEST(Faces, GoByTheRelationsAndNotByTheFaces) {
  const CasePtr served = withZone(kPlainType, "zone", {beside(2, 2)});
  served->zone(3).sideCellZones = {std::vector<int>{8}, std::vector<int>{}};
  const Built built = build(served);
  EXPECT_EQ(built.model, kOneSided);
  EXPECT_EQ(
      callsOf({"getFaceCell0", "readFaceCell0", "getFaceCell1", "readFaceCell1"}, built.calls),
      Transcript());
}

TEST(Faces, OfAZoneThatIsListedTwiceTakeTheirSideTwice) {
  const Built built = build(withZone(kPlainType, "zone", {beside(1)}),
                            [](ScriptedProvider& p, LocationModelScript&) {
                              p.answerList("getZoneIds(2)", {3, 3});
                            });
  EXPECT_FALSE(built.good);
  EXPECT_EQ(
      built.errors,
      Texts(
          {"Unable to build location model: Cannot define face use for an invalid face side of 'F3'."}));
}

}  // namespace
}  // namespace velto::testing
