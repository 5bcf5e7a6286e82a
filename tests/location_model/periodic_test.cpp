// SPDX-License-Identifier: Apache-2.0
//
// Periodic face zones: which zones count as such, the sides they keep, and the names of their uses.

#include <functional>
#include <gtest/gtest.h>

#include "tests/location_model/builder_run.h"

namespace velto::testing {
namespace {

/// Body 9 "fluid" with zone 3 of a type of its own, whose shadow is zone 4 "left".
CasePtr withZone(int type, int typeOfShadow) {
  CasePtr served = CaseBuilder()
                       .faces(3, "right", type, {beside(1, 1)})
                       .faces(4, "left", typeOfShadow, {beside(0)})
                       .cells(9, "fluid", cellShapeHexahedron, 1)
                       .build();
  served->zone(3).faceInfo[faceZoneShadow] = 4;
  return served;
}

void makePeriodic(memory::Case& served, int zone) {
  served.zone(zone).properties.push_back(faceZonePeriodic);
}

// --- Which zones count --------------------------------------------------------------------------

struct PeriodicRow {
  const char* name;
  int type;
  int typeOfShadow;
  std::function<void(memory::Case&)> damage;
  bool isPeriodic;
};

std::ostream& operator<<(std::ostream& out, const PeriodicRow& row) { return out << row.name; }

class PeriodicZone : public ::testing::TestWithParam<PeriodicRow> {};

/// A zone that stores no cells has no face if it is periodic, and one if it is not.
TEST_P(PeriodicZone, IsOneOrNot) {
  const CasePtr served = withZone(GetParam().type, GetParam().typeOfShadow);
  served->arrays().faceCell0 = {};
  served->arrays().faceCell1 = {};
  GetParam().damage(*served);
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(callsOf({"createFace"}, built.calls),
            GetParam().isPeriodic ? Transcript() : Transcript({"createFace(1, F3)"}));
}

void change(memory::Case& served, int zone, OrvFaceZoneInfoType key, int value) {
  served.zone(zone).faceInfo.at(static_cast<std::size_t>(key)) = value;
}

const auto kSound = [](memory::Case&) {};

INSTANTIATE_TEST_SUITE_P(
    PeriodicZones, PeriodicZone,
    ::testing::Values(
        PeriodicRow{"Type12", 12, kPlainType, kSound, true},
        PeriodicRow{"Type12WithoutShadow", 12, kPlainType,
                    [](auto& c) { change(c, 3, faceZoneShadow, 0); }, true},
        PeriodicRow{"Type8WithAShadowOfType12", 8, 12, kSound, true},
        PeriodicRow{"Type8WithAShadowOfType8", 8, 8, kSound, false},
        PeriodicRow{"Type8WithAShadowOfType3", 8, 3, kSound, false},
        PeriodicRow{"Type8WithAPlainShadow", 8, kPlainType, kSound, false},
        PeriodicRow{"Type8WithAPlainShadowThatHasTheProperty", 8, kPlainType,
                    [](auto& c) { makePeriodic(c, 4); }, false},
        PeriodicRow{"Type8WithAShadowWithoutType", 8, -1, kSound, false},
        PeriodicRow{"Type8WithAShadowThatHasOnlyTheProperty", 8, -1,
                    [](auto& c) { makePeriodic(c, 4); }, true},
        PeriodicRow{"Type8WithAShadowWhoseTypeWasNeverSet", 8, -1,
                    [](auto& c) {
                      c.zone(4).faceInfo[faceZoneType].reset();
                      makePeriodic(c, 4);
                    },
                    true},
        PeriodicRow{"Type8WithAShadowThatIsNotThere", 8, 12,
                    [](auto& c) { change(c, 3, faceZoneShadow, 77); }, false},
        PeriodicRow{"Type8WithoutShadow", 8, 12, [](auto& c) { change(c, 3, faceZoneShadow, 0); },
                    false},
        PeriodicRow{"Type8WhoseShadowWasNeverSet", 8, 12,
                    [](auto& c) { c.zone(3).faceInfo[faceZoneShadow].reset(); }, false},
        PeriodicRow{"Type8WithZone0ForAShadow", 8, 12,
                    [](auto& c) {
                      change(c, 3, faceZoneShadow, 0);
                      change(c, 0, faceZoneType, 12);
                    },
                    true},
        PeriodicRow{"Type8WithANegativeShadow", 8, 12,
                    [](auto& c) { change(c, 3, faceZoneShadow, -4); }, false},
        PeriodicRow{"Type8WithANegativeShadowOfType12", 8, 12,
                    [](auto& c) {
                      change(c, 3, faceZoneShadow, -4);
                      change(c, -4, faceZoneType, 12);
                    },
                    false},
        PeriodicRow{"Type8ThatHasThePropertyItself", 8, kPlainType,
                    [](auto& c) { makePeriodic(c, 3); }, false},
        PeriodicRow{"NoType", -1, 12, kSound, false},
        PeriodicRow{"NoTypeButTheProperty", -1, kPlainType, [](auto& c) { makePeriodic(c, 3); },
                    true},
        PeriodicRow{"NoTypeAndAnotherProperty", -1, 12,
                    [](auto& c) {
                      c.zone(3).properties = {3, 5};
                    },
                    false},
        PeriodicRow{"ATypeThatWasNeverSetAndTheProperty", 3, 12,
                    [](auto& c) {
                      c.zone(3).faceInfo[faceZoneType].reset();
                      makePeriodic(c, 3);
                    },
                    true},
        PeriodicRow{"Type3WithAShadowOfType12", 3, 12, [](auto& c) { makePeriodic(c, 3); }, false},
        PeriodicRow{"PlainWithTheProperty", kPlainType, 12, [](auto& c) { makePeriodic(c, 3); },
                    false},
        PeriodicRow{"TypeMinus2WithTheProperty", -2, 12, [](auto& c) { makePeriodic(c, 3); },
                    false}),
    [](const auto& row) { return std::string(row.param.name); });

// --- The sides that are kept --------------------------------------------------------------------

TEST(PeriodicZones, AreEachAFaceWithUsesOnTheSidesThatStoreCells) {
  const Built built = build(cases::periodicPair());
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [5], boundary [4, 6, 8]
  face 3 'F2': sides 4 | 0
  face 5 'F3': sides 6 | 0
  face 7 'F4': sides 8 | 0
  use 4 'left' or 'F2@fluid': zone sides [2]
  use 6 'right' or 'F3@fluid': zone sides [3]
  use 8 'walls' or 'F4@fluid': zone sides [4]
)");
}

struct StoredRow {
  const char* name;
  std::vector<int> cell0Zones;
  std::vector<int> cell1Zones;
  Texts sides;
};

std::ostream& operator<<(std::ostream& out, const StoredRow& row) { return out << row.name; }

class PeriodicZoneOfBothSides : public ::testing::TestWithParam<StoredRow> {};

TEST_P(PeriodicZoneOfBothSides, KeepsThoseThatStoreCells) {
  const Built built =
      build(withZone(12, kPlainType), [](ScriptedProvider& p, LocationModelScript&) {
        p.answerList("beginFaceCell0", GetParam().cell0Zones);
        p.answerList("beginFaceCell1", GetParam().cell1Zones);
      });
  EXPECT_TRUE(built.good);
  EXPECT_EQ(callsOf({"createFaceUse", "setFaceUseZoneSides"}, built.calls), GetParam().sides);
}

INSTANTIATE_TEST_SUITE_P(
    PeriodicZones, PeriodicZoneOfBothSides,
    ::testing::Values(
        StoredRow{"Both",
                  {3},
                  {3},
                  {"createFaceUse(2, 3, 0)", "setFaceUseZoneSides(4, 1, [3])",
                   "createFaceUse(2, 3, 1)", "setFaceUseZoneSides(5, 1, [-3])"}},
        StoredRow{
            "Side0", {3, 4}, {4}, {"createFaceUse(2, 3, 0)", "setFaceUseZoneSides(4, 1, [3])"}},
        StoredRow{"Side1", {4}, {3}, {"createFaceUse(2, 3, 1)", "setFaceUseZoneSides(4, 1, [-3])"}},
        StoredRow{"Neither", {4}, {}, {}},
        StoredRow{"BothInListsWithoutOrder",
                  {7, 3, 1, 5},
                  {3, 2, 1},
                  {"createFaceUse(2, 3, 0)", "setFaceUseZoneSides(4, 1, [3])",
                   "createFaceUse(2, 3, 1)", "setFaceUseZoneSides(5, 1, [-3])"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PeriodicZones, NeedNoCellsOnTheSidesOfOtherZones) {
  const Built built =
      build(withZone(kPlainType, 12), [](ScriptedProvider& p, LocationModelScript&) {
        p.answerList("beginFaceCell0", {});
        p.answerList("beginFaceCell1", {});
      });
  EXPECT_EQ(callsOf({"createFaceUse"}, built.calls),
            Transcript({"createFaceUse(2, 3, 0)", "createFaceUse(2, 3, 1)"}));
}

// --- Names of uses ------------------------------------------------------------------------------

struct NameRow {
  const char* name;
  const char* solverType;
  int type;
  std::function<void(memory::Case&)> damage;
  const char* expected;
};

std::ostream& operator<<(std::ostream& out, const NameRow& row) { return out << row.name; }

class UseOfAPeriodicZone : public ::testing::TestWithParam<NameRow> {};

TEST_P(UseOfAPeriodicZone, IsNamed) {
  const CasePtr served = withZone(GetParam().type, 12);
  served->tables.solverType = GetParam().solverType;
  served->arrays().faceCell1.remove(3);
  served->zone(3).texts[zoneName] = "";
  GetParam().damage(*served);
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(callsOf({"findFace", "createFace", "setFaceUseName"}, built.calls),
            Transcript({"findFace(1, F3)", "createFace(1, F3)",
                        "setFaceUseName(4, " + std::string(GetParam().expected) + ")"}));
}

INSTANTIATE_TEST_SUITE_P(
    PeriodicZones, UseOfAPeriodicZone,
    ::testing::Values(NameRow{"AfterItsShadow", "VELTO_DRIFTA", 8, kSound, "left-shadow"},
                      NameRow{"AfterAShadowWithoutName", "VELTO_DRIFTA", 8,
                              [](auto& c) { c.zone(4).texts[zoneName].reset(); }, "-shadow"},
                      NameRow{"AfterItselfWhereItHasAName", "VELTO_DRIFTA", 8,
                              [](auto& c) { c.zone(3).texts[zoneName] = "right"; }, "right"},
                      NameRow{"NothingWithAnotherSolver", "VELTO_GENERIC", 8, kSound, ""},
                      NameRow{"NothingWithoutSolver", "", 8, kSound, ""},
                      NameRow{"NothingWithASolverOfOtherCase", "Velto_Drifta", 8, kSound, ""},
                      NameRow{"NothingWithASolverThatBeginsLikeIt", "VELTO_DRIFTA2", 8, kSound, ""},
                      NameRow{"NothingWithType12", "VELTO_DRIFTA", 12, kSound, ""},
                      NameRow{"NothingWithoutTypeButTheProperty", "VELTO_DRIFTA", -1,
                              [](auto& c) { makePeriodic(c, 3); }, ""},
                      NameRow{"NothingWithZone0ForAShadow", "VELTO_DRIFTA", 8,
                              [](auto& c) {
                                change(c, 3, faceZoneShadow, 0);
                                change(c, 0, faceZoneType, 12);
                                c.zone(0).texts[zoneName] = "zero";
                              },
                              ""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PeriodicZones, OfBothSidesNameBothUsesAfterTheirShadow) {
  const CasePtr served = withZone(8, 12);
  served->tables.solverType = "VELTO_DRIFTA";
  served->zone(3).texts[zoneName] = "";
  EXPECT_EQ(build(served).model, R"(part 'P' (1)
  body 2 'fluid': zones [9], boundary [4, 5]
  face 3 'F3': sides 4 | 5
  use 4 'left-shadow' or 'F3@fluid': zone sides [3]
  use 5 'left-shadow' or 'F3@fluid.2': zone sides [-3]
)");
}

TEST(PeriodicZones, AloneAreNamedAfterTheirShadow) {
  const CasePtr served = withZone(8, 3);
  served->tables.solverType = "VELTO_DRIFTA";
  served->zone(3).texts[zoneName] = "";
  EXPECT_EQ(callsOf({"setFaceUseName"}, build(served).calls), Transcript({"setFaceUseName(4, )"}));
}

}  // namespace
}  // namespace velto::testing
