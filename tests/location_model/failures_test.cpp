// SPDX-License-Identifier: Apache-2.0
//
// Failures: what is said when the model refuses, and what stands in the model then.

#include <functional>
#include <gtest/gtest.h>

#include "tests/location_model/builder_run.h"

namespace velto::testing {
namespace {

/// Bodies 8 "fluid" and 9 "solid" with zone 3 "between" of type 14, and the linked pair 4 "hot" and
/// 5 "cold".
CasePtr pairAndBetween() {
  return CaseBuilder()
      .faces(3, "between", faceZoneType14, {beside(1, 2)})
      .faces(4, "hot", 3, {beside(1)})
      .faces(5, "cold", 3, {beside(2)})
      .cells(8, "fluid", cellShapeHexahedron, 1)
      .cells(9, "solid", cellShapeHexahedron, 1)
      .shadows(4, 5)
      .build();
}

// --- Operations that the model refuses ----------------------------------------------------------

struct RefusalRow {
  const char* name;
  const char* refused;
  const char* error;
  const char* model;
};

std::ostream& operator<<(std::ostream& out, const RefusalRow& row) { return out << row.name; }

class Refusal : public ::testing::TestWithParam<RefusalRow> {};

/// The build ends with the call that failed, and nothing is taken back.
TEST_P(Refusal, EndsTheBuild) {
  const Built built = build(pairAndBetween(), [](ScriptedProvider&, LocationModelScript& script) {
    script.refuse(GetParam().refused);
  });
  EXPECT_FALSE(built.good);
  EXPECT_EQ(built.errors, Texts({GetParam().error}));
  EXPECT_EQ(built.model, GetParam().model);
  EXPECT_EQ(built.calls.back(), GetParam().refused);
}

INSTANTIATE_TEST_SUITE_P(
    LocationModelBuilder, Refusal,
    ::testing::Values(
        RefusalRow{"OfABody", "createBody(1, fluid)", "Unable to define body 'fluid'",
                   "part 'P' (1)\n"},
        RefusalRow{
            "OfTheZonesOfABody", "setBodyZones(2, 1, [8])",
            "Unable to build location model: Unable to set the zones associated with the body 'fluid'.",
            R"(part 'P' (1)
  body 2 'fluid': no zones, boundary []
)"},
        RefusalRow{"OfAFace", "createFace(1, between)",
                   "Unable to build location model: Unable to define face 'between'.",
                   R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary []
)"},
        RefusalRow{
            "OfAUseOfSide0", "createFaceUse(2, 3, 0)",
            "Unable to build location model: Unable to define face use on side 0 of 'between'.",
            R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary []
  face 3 'between': sides 0 | 0
)"},
        RefusalRow{
            "OfTheZoneSideOfSide0", "setFaceUseZoneSides(4, 1, [3])",
            "Unable to build location model: Unable to set the correct zone side for face use.",
            R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  face 3 'between': sides 4 | 0
  use 4 '' or 'between@fluid': no zone sides
)"},
        RefusalRow{"OfALaterFace", "createFace(1, F4)",
                   "Unable to build location model: Unable to define face 'F4'.",
                   R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  face 3 'between': sides 4 | 0
  use 4 '' or 'between@fluid': zone sides [3]
)"},
        RefusalRow{"OfALaterBody", "createBody(1, solid)", "Unable to define body 'solid'",
                   R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 6]
  face 3 'between': sides 4 | 0
  face 5 'F4': sides 6 | 0
  use 4 '' or 'between@fluid': zone sides [3]
  use 6 'hot' or 'F4@fluid': zone sides [4]
)"},
        RefusalRow{
            "OfAUseOfSide1", "createFaceUse(7, 3, 1)",
            "Unable to build location model: Unable to define face use on side 1 of 'between'.",
            R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 6]
  body 7 'solid': zones [9], boundary []
  face 3 'between': sides 4 | 0
  face 5 'F4': sides 6 | 0
  use 4 '' or 'between@fluid': zone sides [3]
  use 6 'hot' or 'F4@fluid': zone sides [4]
)"},
        RefusalRow{
            "OfTheZoneSideOfSide1", "setFaceUseZoneSides(8, 1, [-3])",
            "Unable to build location model: Unable to set the correct zone side for face use.",
            R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 6]
  body 7 'solid': zones [9], boundary [8]
  face 3 'between': sides 4 | 8
  face 5 'F4': sides 6 | 0
  use 4 '' or 'between@fluid': zone sides [3]
  use 6 'hot' or 'F4@fluid': zone sides [4]
  use 8 '' or 'between@solid': no zone sides
)"},
        RefusalRow{"OfTheSecondHalfOfAPair", "createFaceUse(7, 5, 1)",
                   "Unable to build location model: Unable to define face use on side 1 of 'F5'.",
                   R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 6]
  body 7 'solid': zones [9], boundary [8]
  face 3 'between': sides 4 | 8
  face 5 'F4': sides 6 | 0
  use 4 '' or 'between@fluid': zone sides [3]
  use 6 'hot' or 'F4@fluid': zone sides [4]
  use 8 '' or 'between@solid': zone sides [-3]
)"},
        RefusalRow{
            "OfTheZoneSideOfTheSecondHalfOfAPair", "setFaceUseZoneSides(9, 1, [5])",
            "Unable to build location model: Unable to set the correct zone side for face use.",
            R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 6]
  body 7 'solid': zones [9], boundary [8, 9]
  face 3 'between': sides 4 | 8
  face 5 'F4': sides 6 | 9
  use 4 '' or 'between@fluid': zone sides [3]
  use 6 'hot' or 'F4@fluid': zone sides [4]
  use 8 '' or 'between@solid': zone sides [-3]
  use 9 'cold' or 'F4@solid': no zone sides
)"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Failures, NameABodyByItsIdWhereTheZoneHasNoName) {
  const CasePtr served = pairAndBetween();
  served->zone(8).texts[zoneName] = "";
  EXPECT_EQ(build(served, [](ScriptedProvider&, LocationModelScript& s) { s.refuse("createBody"); })
                .errors,
            Texts({"Unable to define body 'B8'"}));
  EXPECT_EQ(
      build(served, [](ScriptedProvider&, LocationModelScript& s) { s.refuse("setBodyZones"); })
          .errors,
      Texts(
          {"Unable to build location model: Unable to set the zones associated with the body 'B8'."}));
}

TEST(Failures, EndTheBuildThoughTheModelDidWhatItDenies) {
  const Built built = build(pairAndBetween(), [](ScriptedProvider&, LocationModelScript& script) {
    script.deny("createFaceUse", 1);
  });
  EXPECT_FALSE(built.good);
  EXPECT_EQ(
      built.errors,
      Texts({"Unable to build location model: Unable to define face use on side 0 of 'between'."}));
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  face 3 'between': sides 4 | 0
  use 4 '' or 'between@fluid': no zone sides
)");
}

// --- Cases that the model cannot hold -----------------------------------------------------------

TEST(Failures, ReportABodyOfANameThatIsTaken) {
  const CasePtr served = pairAndBetween();
  served->zone(9).texts[zoneName] = "fluid";
  const Built built = build(served);
  EXPECT_FALSE(built.good);
  EXPECT_EQ(built.errors, Texts({"Unable to define body 'fluid'"}));
}

TEST(Failures, ReportACellZoneThatIsListedTwice) {
  const Built built = build(pairAndBetween(), [](ScriptedProvider& p, LocationModelScript&) {
    p.answerList("getZoneIds(3)", {8, 8});
  });
  EXPECT_FALSE(built.good);
  EXPECT_EQ(built.errors, Texts({"Unable to define body 'fluid'"}));
}

/// Body 8 "fluid" with zones 3 and 4 of type 14 that bear one name.
CasePtr sameNames(const memory::FaceLine& first, const memory::FaceLine& second) {
  return CaseBuilder()
      .faces(3, "zone", faceZoneType14, {first})
      .faces(4, "zone", faceZoneType14, {second})
      .cells(8, "fluid", cellShapeHexahedron, 1)
      .build();
}

TEST(Failures, ReportASide0ThatIsTaken) {
  const Built built = build(sameNames(beside(1), beside(1)));
  EXPECT_FALSE(built.good);
  EXPECT_EQ(
      built.errors,
      Texts(
          {"Unable to build location model: Cannot define face use for an invalid face side of 'zone'."}));
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4]
  face 3 'zone': sides 4 | 0
  use 4 '' or 'zone@fluid': zone sides [3]
)");
  EXPECT_EQ(built.calls.back(), "getFaceSides(3)");
}

TEST(Failures, ReportASide1ThatIsTaken) {
  const Built built = build(sameNames(beside(0, 1), beside(0, 1)));
  EXPECT_FALSE(built.good);
  EXPECT_EQ(
      built.errors,
      Texts(
          {"Unable to build location model: Cannot define face use for an invalid face side of 'zone'."}));
  EXPECT_EQ(built.calls.back(), "getFaceSides(3)");
}

TEST(Failures, ReportASide1ThatIsTakenBehindTheUseOfSide0) {
  const Built built = build(sameNames(beside(0, 1), beside(1, 1)));
  EXPECT_FALSE(built.good);
  EXPECT_EQ(
      built.errors,
      Texts(
          {"Unable to build location model: Cannot define face use for an invalid face side of 'zone'."}));
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 5]
  face 3 'zone': sides 5 | 4
  use 4 '' or 'zone@fluid': zone sides [-3]
  use 5 '' or 'zone@fluid.2': zone sides [4]
)");
}

TEST(Failures, ReportASideOfAOneSidedZoneByTheNameOfItsFace) {
  const CasePtr served = sameNames(beside(1), beside(1));
  served->zone(3).texts[zoneName] = "F4";
  served->zone(4).faceInfo[faceZoneType] = kPlainType;
  EXPECT_EQ(
      build(served).errors,
      Texts(
          {"Unable to build location model: Cannot define face use for an invalid face side of 'F4'."}));
}

TEST(Failures, ReportAFaceThatCannotBeFoundAndIsThere) {
  const Built built = build(pairAndBetween(), [](ScriptedProvider&, LocationModelScript& script) {
    script.refuse("findFace");
  });
  EXPECT_FALSE(built.good);
  EXPECT_EQ(built.errors,
            Texts({"Unable to build location model: Unable to define face 'between'."}));
  EXPECT_EQ(built.calls.back(), "createFace(1, between)");
}

// --- Answers that nobody minds ------------------------------------------------------------------

struct IgnoredRow {
  const char* name;
  std::function<void(LocationModelScript&)> prepare;
};

std::ostream& operator<<(std::ostream& out, const IgnoredRow& row) { return out << row.name; }

class IgnoredAnswer : public ::testing::TestWithParam<IgnoredRow> {};

TEST_P(IgnoredAnswer, ChangesNothing) {
  const Built expected = build(pairAndBetween());
  EXPECT_TRUE(expected.good);
  const Built found = build(pairAndBetween(), [](ScriptedProvider&, LocationModelScript& script) {
    GetParam().prepare(script);
  });
  EXPECT_TRUE(found == expected);
}

INSTANTIATE_TEST_SUITE_P(
    LocationModelBuilder, IgnoredAnswer,
    ::testing::Values(IgnoredRow{"OfTheSidesOfAFace", [](auto& s) { s.deny("getFaceSides"); }},
                      IgnoredRow{"OfTheNameOfAUse", [](auto& s) { s.deny("setFaceUseName"); }}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Failures, AreNoneWhereAUseCannotBeNamed) {
  const Built built = build(pairAndBetween(), [](ScriptedProvider&, LocationModelScript& script) {
    script.refuse("setFaceUseName");
  });
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [8], boundary [4, 6]
  body 7 'solid': zones [9], boundary [8, 9]
  face 3 'between': sides 4 | 8
  face 5 'F4': sides 6 | 9
  use 4 '' or 'between@fluid': zone sides [3]
  use 6 '' or 'F4@fluid': zone sides [4]
  use 8 '' or 'between@solid': zone sides [-3]
  use 9 '' or 'F4@solid': zone sides [5]
)");
}

/// A part that was refused is noticed by its first body.
TEST(Failures, BeginWithTheBodyWhereThereIsNoPart) {
  const Built built = build(pairAndBetween(), [](ScriptedProvider&, LocationModelScript& script) {
    script.refuse("createPart");
  });
  EXPECT_FALSE(built.good);
  EXPECT_EQ(built.errors, Texts({"Unable to define body 'fluid'"}));
  EXPECT_EQ(built.model, "");
}

}  // namespace
}  // namespace velto::testing
