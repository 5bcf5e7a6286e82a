// SPDX-License-Identifier: Apache-2.0
//
// Pairs of face zones of type 3 or 8 that are linked by shadow ids: one face for both.

#include <functional>
#include <gtest/gtest.h>

#include "tests/location_model/builder_run.h"

namespace velto::testing {
namespace {

/// Bodies 8 "fluid" and 9 "solid" that touch in two zones, 3 "hot" and 4 "cold".
CasePtr pairBetweenBodies(int type = 3, int typeOfPartner = 3) {
  return CaseBuilder()
      .faces(3, "hot", type, {beside(1)})
      .faces(4, "cold", typeOfPartner, {beside(2)})
      .cells(8, "fluid", cellShapeHexahedron, 1)
      .cells(9, "solid", cellShapeHexahedron, 1)
      .shadows(3, 4)
      .build();
}

void link(memory::Case& served, int zone, int shadow) {
  served.zone(zone).faceInfo[faceZoneShadow] = shadow;
}

const char* const kOneFace = R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  body 5 'solid': zones [9], boundary [6]
  face 3 'F3': sides 4 | 6
  use 4 'hot' or 'F3@fluid': zone sides [3]
  use 6 'cold' or 'F3@solid': zone sides [4]
)";

const char* const kTwoFaces = R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  body 5 'solid': zones [9], boundary [7]
  face 3 'F3': sides 4 | 0
  face 6 'F4': sides 7 | 0
  use 4 'hot' or 'F3@fluid': zone sides [3]
  use 7 'cold' or 'F4@solid': zone sides [4]
)";

// --- Which zones are linked ---------------------------------------------------------------------

struct PairRow {
  const char* name;
  int type;
  int typeOfPartner;
  std::function<void(memory::Case&)> damage;
  const char* model;
};

std::ostream& operator<<(std::ostream& out, const PairRow& row) { return out << row.name; }

class ZonePair : public ::testing::TestWithParam<PairRow> {};

TEST_P(ZonePair, SharesAFaceOrDoesNot) {
  const CasePtr served = pairBetweenBodies(GetParam().type, GetParam().typeOfPartner);
  GetParam().damage(*served);
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.errors, Texts());
  EXPECT_EQ(built.model, GetParam().model);
}

const auto kSound = [](memory::Case&) {};

INSTANTIATE_TEST_SUITE_P(
    LinkedPairs, ZonePair,
    ::testing::Values(
        PairRow{"OfTypes3And3", 3, 3, kSound, kOneFace},
        PairRow{"OfTypes3And8", 3, 8, kSound, kOneFace},
        PairRow{"OfTypes8And3", 8, 3, kSound, kOneFace},
        PairRow{"OfTypes8And8", 8, 8, kSound, kOneFace},
        PairRow{"OfType3AndAPlainOne", 3, kPlainType, kSound, kTwoFaces},
        PairRow{"OfAPlainOneAndType8", kPlainType, 8, kSound, kTwoFaces},
        PairRow{"OfTwoPlainOnes", kPlainType, kPlainType, kSound, kTwoFaces},
        PairRow{"OfTypes3And12", 3, 12, kSound, kTwoFaces},
        PairRow{"OfTypes8And12", 8, 12, kSound, kTwoFaces},
        PairRow{"OfType3AndOneWithoutType", 3, -1, kSound, kTwoFaces},
        PairRow{"WithoutLinks", 3, 3,
                [](auto& c) {
                  link(c, 3, 0);
                  link(c, 4, 0);
                },
                kTwoFaces},
        PairRow{"WhoseLinksWereNeverSet", 3, 3,
                [](auto& c) {
                  c.zone(3).faceInfo[faceZoneShadow].reset();
                  c.zone(4).faceInfo[faceZoneShadow].reset();
                },
                kTwoFaces},
        PairRow{"LinkedFromTheSecondOnly", 3, 3, [](auto& c) { link(c, 3, 0); }, kOneFace},
        PairRow{"LinkedFromTheFirstOnly", 3, 3, [](auto& c) { link(c, 4, 0); }, kTwoFaces},
        PairRow{"LinkedToZonesThatAreNotThere", 3, 3,
                [](auto& c) {
                  link(c, 3, 77);
                  link(c, 4, 78);
                },
                kTwoFaces},
        PairRow{"EachLinkedToItself", 3, 3,
                [](auto& c) {
                  link(c, 3, 3);
                  link(c, 4, 4);
                },
                kTwoFaces},
        PairRow{"LinkedByNegativeIdsOfNoZones", 8, 8,
                [](auto& c) {
                  link(c, 3, -4);
                  link(c, 4, -3);
                },
                kTwoFaces},
        PairRow{"WithCellsOfTheOtherBodyOnTheirOtherSides", 3, 3,
                [](auto& c) {
                  c.zone(3).sideCellZones[1] = {9};
                  c.zone(4).sideCellZones[1] = {8};
                },
                kOneFace},
        PairRow{"WithCellsOfTheSameBodyOnTheirOtherSides", 3, 3,
                [](auto& c) {
                  c.zone(3).sideCellZones[1] = {8};
                  c.zone(4).sideCellZones[1] = {9};
                },
                kOneFace}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(LinkedPairs, InOneBodyShareAFace) {
  const CasePtr served = pairBetweenBodies();
  served->zone(4).sideCellZones[0] = {8};
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5]
  body 6 'solid': zones [9], boundary []
  face 3 'F3': sides 4 | 5
  use 4 'hot' or 'F3@fluid': zone sides [3]
  use 5 'cold' or 'F3@fluid.2': zone sides [4]
)");
}

TEST(LinkedPairs, AskForTheFaceOfTheFirstHalfOnly) {
  const Built built = build(pairBetweenBodies());
  const Transcript fromPart(built.calls.begin() + 7, built.calls.end());
  EXPECT_EQ(lines(fromPart), R"(createPart(3, P)
createBody(1, fluid)
setBodyZones(2, 1, [8])
findFace(1, F3)
createFace(1, F3)
getFaceSides(3)
createFaceUse(2, 3, 0)
setFaceUseName(4, hot)
setFaceUseZoneSides(4, 1, [3])
createBody(1, solid)
setBodyZones(5, 1, [9])
getFaceSides(3)
createFaceUse(5, 3, 1)
setFaceUseName(6, cold)
setFaceUseZoneSides(6, 1, [4])
)");
}

TEST(LinkedPairs, FollowANegativeLinkThoughItIsNotPeriodic) {
  const CasePtr served = CaseBuilder()
                             .faces(-4, "cold", 8, {beside(1)})
                             .faces(3, "hot", 8, {beside(1)})
                             .cells(8, "fluid", cellShapeHexahedron, 1)
                             .build();
  link(*served, 3, -4);
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5]
  face 3 'F-4': sides 4 | 5
  use 4 'cold' or 'F-4@fluid': zone sides [-4]
  use 5 'hot' or 'F-4@fluid.2': zone sides [3]
)");
}

// --- Sides --------------------------------------------------------------------------------------

TEST(LinkedPairs, MakeNothingOfAZoneWithoutSide0InTheBody) {
  const CasePtr served = pairBetweenBodies();
  served->zone(3).sideCellZones = {std::vector<int>{}, std::vector<int>{8}};
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary []
  body 3 'solid': zones [9], boundary [5]
  face 4 'F4': sides 5 | 0
  use 5 'cold' or 'F4@solid': zone sides [4]
)");
}

TEST(LinkedPairs, MakeNothingOfTheirSide1InASecondBody) {
  const CasePtr served = pairBetweenBodies();
  served->zone(3).sideCellZones = {std::vector<int>{8}, std::vector<int>{9}};
  served->zone(4).sideCellZones = {std::vector<int>{}, std::vector<int>{9}};
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  body 5 'solid': zones [9], boundary []
  face 3 'F3': sides 4 | 0
  use 4 'hot' or 'F3@fluid': zone sides [3]
)");
}

TEST(LinkedPairs, TakeSide0OfTheFaceOfAPartnerThatHasOnlySide1) {
  const CasePtr served = pairBetweenBodies();
  link(*served, 3, 0);
  served->zone(3).sideCellZones = {std::vector<int>{}, std::vector<int>{8}};
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  body 5 'solid': zones [9], boundary [6]
  face 3 'F3': sides 6 | 4
  use 4 'hot' or 'F3@fluid': zone sides [-3]
  use 6 'cold' or 'F3@solid': zone sides [4]
)");
}

// --- Names, and faces that were found -----------------------------------------------------------

/// The name of the zone is compared with that of the face which it would have had by itself.
TEST(LinkedPairs, LeaveTheSecondUseUnnamedWhereTheZoneIsNamedAsItsOwnFace) {
  const CasePtr served = pairBetweenBodies();
  served->zone(4).texts[zoneName] = "F4";
  EXPECT_EQ(callsOf({"setFaceUseName"}, build(served).calls),
            Transcript({"setFaceUseName(4, hot)"}));
}

TEST(LinkedPairs, NameTheSecondUseAsTheFaceOfTheFirst) {
  const CasePtr served = pairBetweenBodies();
  served->zone(4).texts[zoneName] = "F3";
  EXPECT_EQ(callsOf({"setFaceUseName"}, build(served).calls),
            Transcript({"setFaceUseName(4, hot)", "setFaceUseName(6, F3)"}));
}

TEST(LinkedPairs, GiveBothUsesAnEmptyNameWhateverTheSolver) {
  const CasePtr served = pairBetweenBodies(8, 8);
  served->tables.solverType = "VELTO_DRIFTA";
  served->zone(3).texts[zoneName] = "";
  served->zone(4).texts[zoneName] = "";
  EXPECT_EQ(callsOf({"setFaceUseName"}, build(served).calls),
            Transcript({"setFaceUseName(4, )", "setFaceUseName(6, )"}));
}

TEST(LinkedPairs, DoNotShareAFaceThatWasFoundByItsName) {
  const CasePtr served = CaseBuilder()
                             .faces(2, "F3", faceZoneType14, {beside(0, 1)})
                             .faces(3, "hot", 3, {beside(1)})
                             .faces(4, "cold", 3, {beside(1)})
                             .cells(8, "fluid", cellShapeHexahedron, 1)
                             .shadows(3, 4)
                             .build();
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5, 7]
  face 3 'F3': sides 5 | 4
  face 6 'F4': sides 7 | 0
  use 4 '' or 'F3@fluid': zone sides [-2]
  use 5 'hot' or 'F3@fluid.2': zone sides [3]
  use 7 'cold' or 'F4@fluid': zone sides [4]
)");
}

// --- Three zones to one partner -----------------------------------------------------------------

/// Zone 3 "hot" with the partner 4 "cold", and zone 6 "late" that names the same partner as that;
/// zone 5 "walls" comes in between.
CasePtr threeZones(const std::vector<memory::FaceLine>& walls) {
  CasePtr served = CaseBuilder()
                       .faces(3, "hot", 3, {beside(1)})
                       .faces(4, "cold", 3, {beside(1)})
                       .faces(5, "walls", kPlainType, walls)
                       .faces(6, "late", 3, {beside(1)})
                       .cells(8, "fluid", cellShapeHexahedron, 1)
                       .shadows(3, 4)
                       .build();
  link(*served, 6, 3);
  return served;
}

TEST(LinkedPairs, GiveAThirdZoneToTheUseThatWasMadeLast) {
  const Built built = build(threeZones({beside(0)}));
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5]
  face 3 'F3': sides 4 | 5
  use 4 'hot' or 'F3@fluid': zone sides [3]
  use 5 'cold' or 'F3@fluid.2': zone sides [6]
)");
  const Transcript last(built.calls.end() - 2, built.calls.end());
  EXPECT_EQ(last, Transcript({"getFaceSides(3)", "setFaceUseZoneSides(5, 1, [6])"}));
}

TEST(LinkedPairs, GiveAThirdZoneToAUseOfAnotherFace) {
  EXPECT_EQ(build(threeZones({beside(1)})).model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5, 7]
  face 3 'F3': sides 4 | 5
  face 6 'F5': sides 7 | 0
  use 4 'hot' or 'F3@fluid': zone sides [3]
  use 5 'cold' or 'F3@fluid.2': zone sides [4]
  use 7 'walls' or 'F5@fluid': zone sides [6]
)");
}

TEST(LinkedPairs, GiveAThirdZoneToNoUseThatWasMadeOfASide1) {
  EXPECT_EQ(build(threeZones({beside(0, 1)})).model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5, 7]
  face 3 'F3': sides 4 | 5
  face 6 'F5': sides 0 | 7
  use 4 'hot' or 'F3@fluid': zone sides [3]
  use 5 'cold' or 'F3@fluid.2': zone sides [6]
  use 7 'walls' or 'F5@fluid': zone sides [-5]
)");
}

TEST(LinkedPairs, GiveAThirdZoneOfAnotherBodyToAUseOfTheFirst) {
  const CasePtr served = CaseBuilder()
                             .faces(3, "hot", 3, {beside(1)})
                             .faces(4, "cold", 3, {beside(1)})
                             .faces(6, "late", 3, {beside(2)})
                             .cells(8, "fluid", cellShapeHexahedron, 1)
                             .cells(9, "solid", cellShapeHexahedron, 1)
                             .shadows(3, 4)
                             .build();
  link(*served, 6, 3);
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5]
  body 6 'solid': zones [9], boundary []
  face 3 'F3': sides 4 | 5
  use 4 'hot' or 'F3@fluid': zone sides [3]
  use 5 'cold' or 'F3@fluid.2': zone sides [6]
)");
}

TEST(LinkedPairs, GiveAZoneToTheFirstUseOfAPartnerThatHoldsBothSidesItself) {
  const CasePtr served = pairBetweenBodies();
  link(*served, 3, 0);
  served->zone(3).sideCellZones = {std::vector<int>{8}, std::vector<int>{8}};
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5]
  body 6 'solid': zones [9], boundary []
  face 3 'F3': sides 4 | 5
  use 4 'hot' or 'F3@fluid': zone sides [4]
  use 5 'hot' or 'F3@fluid.2': zone sides [-3]
)");
}

}  // namespace
}  // namespace velto::testing
