// SPDX-License-Identifier: Apache-2.0
//
// Face zones with more than one leaf cell zone on a side: what is said, when, and what was made.

#include <gtest/gtest.h>

#include "tests/location_model/builder_run.h"

namespace velto::testing {
namespace {

/// Three bodies 7 "a", 8 "b" and 9 "c" in a row, each with walls of its own (2, 3, 4) in front of
/// zone 5 "between", whose sides a test sets, and zone 6 "behind" at the first.
CasePtr threeBodies(std::vector<int> side0, std::vector<int> side1) {
  CasePtr served = CaseBuilder()
                       .faces(2, "a walls", kPlainType, {beside(1)})
                       .faces(3, "b walls", kPlainType, {beside(2)})
                       .faces(4, "c walls", kPlainType, {beside(3)})
                       .faces(5, "between", kPlainType, {beside(1, 2)})
                       .faces(6, "behind", kPlainType, {beside(1)})
                       .cells(7, "a", cellShapeHexahedron, 1)
                       .cells(8, "b", cellShapeHexahedron, 1)
                       .cells(9, "c", cellShapeHexahedron, 1)
                       .build();
  served->zone(5).sideCellZones = {std::move(side0), std::move(side1)};
  return served;
}

struct OversizeRow {
  const char* name;
  std::vector<int> side0;
  std::vector<int> side1;
  Texts errors;
};

std::ostream& operator<<(std::ostream& out, const OversizeRow& row) { return out << row.name; }

class OversizeZone : public ::testing::TestWithParam<OversizeRow> {};

/// The faces of zones before it are in the model, those of zones behind it are not.
TEST_P(OversizeZone, EndsTheBuildOfTheFirstBody) {
  const Built built = build(threeBodies(GetParam().side0, GetParam().side1));
  EXPECT_FALSE(built.good);
  EXPECT_EQ(built.errors, GetParam().errors);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'a': zones [7], boundary [4]
  face 3 'F2': sides 4 | 0
  use 4 'a walls' or 'F2@a': zone sides [2]
)");
  EXPECT_EQ(built.calls.back(), "setFaceUseZoneSides(4, 1, [2])");
}

INSTANTIATE_TEST_SUITE_P(
    Faces, OversizeZone,
    ::testing::Values(
        OversizeRow{
            "OnSide0",
            {7, 8},
            {},
            {"Unable to build location model: Face zone 5'between' bounds mode than one cell zone on side 0."}},
        OversizeRow{
            "OnSide1",
            {9},
            {8, 7},
            {"Unable to build location model: Face zone 5'between' bounds mode than one cell zone on side 1."}},
        OversizeRow{
            "OnBothSides",
            {9, 7},
            {7, 8, 9},
            {"Unable to build location model: Face zone 5'between' bounds mode than one cell zone on side 0.",
             "Unable to build location model: Face zone 5'between' bounds mode than one cell zone on side 1."}},
        OversizeRow{
            "ThoughItDoesNotTouchTheFirstBody",
            {8, 9},
            {},
            {"Unable to build location model: Face zone 5'between' bounds mode than one cell zone on side 0."}},
        OversizeRow{
            "WithAnotherThatIsNoLeaf",
            {77, 9, 8, 9},
            {8, 77},
            {"Unable to build location model: Face zone 5'between' bounds mode than one cell zone on side 0."}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(OversizeZones, AreNamedByTheirIdAloneWhereTheyHaveNoName) {
  const CasePtr served = threeBodies({7, 8}, {});
  served->zone(5).texts[zoneName].reset();
  const Built built = build(served);
  EXPECT_FALSE(built.good);
  EXPECT_EQ(
      built.errors,
      Texts(
          {"Unable to build location model: Face zone 5'' bounds mode than one cell zone on side 0."}));
}

TEST(OversizeZones, AreNotLookedForAmongZonesThatHaveAChild) {
  const CasePtr served = threeBodies({7, 8}, {});
  served->zone(5).faceInfo[faceZoneChild] = 6;
  EXPECT_TRUE(build(served).good);
}

TEST(OversizeZones, DoNotCountCellZonesThatAreNoLeaves) {
  const CasePtr served = threeBodies({7, 8}, {9, 8});
  served->zone(8).cellInfo[cellZoneChild] = 7;
  EXPECT_TRUE(build(served).good);
}

TEST(OversizeZones, MayBeTakenInByABodyBeforeAnyoneLooks) {
  const CasePtr served = threeBodies({7, 8}, {7, 9});
  served->zone(5).faceInfo[faceZoneType] = faceZoneTypeInterior;
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(callsOf({"setBodyZones"}, built.calls),
            Transcript({"setBodyZones(2, 1, [7, 5])", "setBodyZones(7, 1, [8])",
                        "setBodyZones(10, 1, [9])"}));
}

TEST(OversizeZones, AreReportedOneAtATime) {
  const CasePtr served = threeBodies({7, 8}, {});
  served->zone(6).sideCellZones = {std::vector<int>{7, 8}, std::vector<int>{}};
  const Built built = build(served);
  EXPECT_EQ(
      built.errors,
      Texts(
          {"Unable to build location model: Face zone 5'between' bounds mode than one cell zone on side 0."}));
}

TEST(OversizeZones, AreNotReachedBehindAnotherFailure) {
  const Built built = build(threeBodies({7, 8}, {}), [](ScriptedProvider&, LocationModelScript& s) {
    s.refuse("createFace(1, F2)");
  });
  EXPECT_EQ(built.errors, Texts({"Unable to build location model: Unable to define face 'F2'."}));
}

TEST(OversizeZones, AreNotAskedForWhereThereIsNoLeafCellZone) {
  const CasePtr served = threeBodies({7, 8}, {});
  for (const int zone : {7, 8, 9}) {
    served->zone(zone).cellInfo[cellZoneChild] = 1;
  }
  EXPECT_TRUE(build(served).good);
}

}  // namespace
}  // namespace velto::testing
