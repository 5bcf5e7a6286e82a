// SPDX-License-Identifier: Apache-2.0
//
// The frame of a build: what ends it before it begins, the order of its calls, which zones count,
// and the error list.

#include <gtest/gtest.h>
#include <memory>
#include <type_traits>

#include "embedded/memory/MemoryProvider.h"
#include "tests/location_model/builder_run.h"

namespace velto::testing {
namespace {

static_assert(std::has_virtual_destructor_v<LocationModelBuilder>);

// --- What ends a build before it begins ---------------------------------------------------------

TEST(LocationModelBuilder, RefusesANullProvider) {
  const LocationModelBuilder builder;
  OrvLocationModel model;
  EXPECT_FALSE(builder.build(nullptr, &model));
  EXPECT_EQ(builder.getErrors(), Texts({"Unable to build location model: The provider is null."}));
  EXPECT_EQ(modelText(model), "");
}

TEST(LocationModelBuilder, RefusesANullModelAndAsksTheProviderNothing) {
  Transcript calls;
  ScriptedProvider provider(cases::twoBodies(), &calls);
  const LocationModelBuilder builder;
  EXPECT_FALSE(builder.build(&provider, nullptr));
  EXPECT_EQ(builder.getErrors(),
            Texts({"Unable to build location model: The location model is null."}));
  EXPECT_EQ(calls, Transcript());
}

TEST(LocationModelBuilder, LooksAtTheProviderBeforeTheModel) {
  const LocationModelBuilder builder;
  EXPECT_FALSE(builder.build(nullptr, nullptr));
  EXPECT_EQ(builder.getErrors(), Texts({"Unable to build location model: The provider is null."}));
}

TEST(LocationModelBuilder, RefusesAMeshWithoutFaceZones) {
  const Built built = build(CaseBuilder().cells(5, "fluid", cellShapeHexahedron, 1).build());
  EXPECT_FALSE(built.good);
  EXPECT_EQ(
      built.errors,
      Texts(
          {"Unable to build location model: There are no face zones defined in the mesh model."}));
  EXPECT_EQ(built.model, "");
  EXPECT_EQ(built.calls, Transcript({"getZoneIds(2)"}));
}

TEST(LocationModelBuilder, RefusesAMeshWithoutCellZones) {
  const Built built = build(CaseBuilder().faces(3, "walls", kPlainType, {beside(1)}).build());
  EXPECT_FALSE(built.good);
  EXPECT_EQ(
      built.errors,
      Texts(
          {"Unable to build location model: There are no cell zones defined in the mesh model."}));
  EXPECT_EQ(built.model, "");
  EXPECT_EQ(built.calls, Transcript({"getZoneIds(2)", "getZoneIds(3)"}));
}

TEST(LocationModelBuilder, MissesFaceZonesFirstInAMeshWithoutAnyZone) {
  const Built built = build(CaseBuilder().build());
  EXPECT_FALSE(built.good);
  EXPECT_EQ(
      built.errors,
      Texts(
          {"Unable to build location model: There are no face zones defined in the mesh model."}));
}

// --- The order of the calls ---------------------------------------------------------------------

TEST(LocationModelBuilder, BuildsBodyAfterBodyAndTheFacesOfEachBehindIt) {
  const Built built = build(cases::twoBodies());
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.errors, Texts());
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [5], boundary [4, 6]
  body 7 'solid': zones [6], boundary [8, 10]
  face 3 'between': sides 4 | 8
  face 5 'F3': sides 6 | 0
  face 9 'F4': sides 10 | 0
  use 4 '' or 'between@fluid': zone sides [2]
  use 6 'fluid walls' or 'F3@fluid': zone sides [3]
  use 8 '' or 'between@solid': zone sides [-2]
  use 10 'solid walls' or 'F4@solid': zone sides [4]
)");
  EXPECT_EQ(lines(built.calls), R"(getZoneIds(2)
getZoneIds(3)
beginCellNodes()
beginFaceCell0()
endFaceCell0()
beginFaceCell1()
endFaceCell1()
createPart(3, P)
createBody(1, fluid)
setBodyZones(2, 1, [5])
findFace(1, between)
createFace(1, between)
getFaceSides(3)
createFaceUse(2, 3, 0)
setFaceUseZoneSides(4, 1, [2])
findFace(1, F3)
createFace(1, F3)
getFaceSides(5)
createFaceUse(2, 5, 0)
setFaceUseName(6, fluid walls)
setFaceUseZoneSides(6, 1, [3])
createBody(1, solid)
setBodyZones(7, 1, [6])
findFace(1, between)
getFaceSides(3)
createFaceUse(7, 3, 1)
setFaceUseZoneSides(8, 1, [-2])
findFace(1, F4)
createFace(1, F4)
getFaceSides(9)
createFaceUse(7, 9, 0)
setFaceUseName(10, solid walls)
setFaceUseZoneSides(10, 1, [4])
)");
}

TEST(LocationModelBuilder, LeavesTheFamilyOfTheCellNodesOpenAndClosesTheOthers) {
  const Built built = build(cases::withResults());
  EXPECT_TRUE(built.good);
  const Transcript families = callsOf({"beginCellNodes", "endCellNodes", "beginFaceCell0",
                                       "endFaceCell0", "beginFaceCell1", "endFaceCell1"},
                                      built.calls);
  EXPECT_EQ(families, Transcript({"beginCellNodes()", "beginFaceCell0()", "endFaceCell0()",
                                  "beginFaceCell1()", "endFaceCell1()"}));
}

TEST(LocationModelBuilder, GivesZonesToTheMeshThatIsSelected) {
  const CasePtr served = CaseBuilder()
                             .mesh({7, targetRestart, -1})
                             .faces(3, "walls", kPlainType, {beside(1)})
                             .cells(5, "fluid", cellShapeHexahedron, 1)
                             .build();
  const Built built = build(
      served, [](ScriptedProvider& provider, LocationModelScript&) { provider.setMeshId(7); });
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [5], boundary [4]
  face 3 'F3': sides 4 | 0
  use 4 'walls' or 'F3@fluid': zone sides [3]
)");
  EXPECT_EQ(callsOf({"setBodyZones", "setFaceUseZoneSides"}, built.calls),
            Transcript({"setBodyZones(2, 7, [5])", "setFaceUseZoneSides(4, 7, [3])"}));
}

// --- Which zones count --------------------------------------------------------------------------

TEST(LocationModelBuilder, LooksAtNoFaceZoneThatHasAChild) {
  const CasePtr served = cases::twoBodies();
  served->zone(3).faceInfo[faceZoneChild] = 4;
  served->zone(2).faceInfo[faceZoneChild] = -1;
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [5], boundary []
  body 3 'solid': zones [6], boundary [5]
  face 4 'F4': sides 5 | 0
  use 5 'solid walls' or 'F4@solid': zone sides [4]
)");
}

TEST(LocationModelBuilder, MakesNoBodyOfACellZoneThatHasAChild) {
  const CasePtr served = cases::twoBodies();
  served->zone(5).cellInfo[cellZoneChild] = 6;
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'solid': zones [6], boundary [4, 6]
  face 3 'between': sides 0 | 4
  face 5 'F4': sides 6 | 0
  use 4 '' or 'between@solid': zone sides [-2]
  use 6 'solid walls' or 'F4@solid': zone sides [4]
)");
}

TEST(LocationModelBuilder, MakesAPartWithoutBodiesWhereNoCellZoneIsALeaf) {
  const CasePtr served = cases::twoBodies();
  served->zone(5).cellInfo[cellZoneChild] = 6;
  served->zone(6).cellInfo[cellZoneChild] = -5;
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.errors, Texts());
  EXPECT_EQ(built.model, "part 'P' (1)\n");
  EXPECT_EQ(lines(built.calls), R"(getZoneIds(2)
getZoneIds(3)
beginCellNodes()
beginFaceCell0()
endFaceCell0()
beginFaceCell1()
endFaceCell1()
createPart(3, P)
)");
}

TEST(LocationModelBuilder, MakesNoFaceWhereNoFaceZoneIsALeaf) {
  const CasePtr served = cases::oneHex();
  served->zone(2).faceInfo[faceZoneChild] = 9;
  const Built built = build(served);
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [3], boundary []
)");
}

TEST(LocationModelBuilder, FollowsTheOrderOfTheZoneLists) {
  const Built built = build(cases::twoBodies(), [](ScriptedProvider& p, LocationModelScript&) {
    p.answerList("getZoneIds(2)", {4, 2, 3});
    p.answerList("getZoneIds(3)", {6, 5});
  });
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'solid': zones [6], boundary [4, 6]
  body 7 'fluid': zones [5], boundary [8, 10]
  face 3 'F4': sides 4 | 0
  face 5 'between': sides 8 | 6
  face 9 'F3': sides 10 | 0
  use 4 'solid walls' or 'F4@solid': zone sides [4]
  use 6 '' or 'between@solid': zone sides [-2]
  use 8 '' or 'between@fluid': zone sides [2]
  use 10 'fluid walls' or 'F3@fluid': zone sides [3]
)");
}

// --- The error list, copies, several builds -----------------------------------------------------

TEST(LocationModelBuilder, HasNoErrorsWhenItIsNew) {
  EXPECT_EQ(LocationModelBuilder().getErrors(), Texts());
}

TEST(LocationModelBuilder, KeepsTheErrorsOfEarlierBuildsInFront) {
  const LocationModelBuilder builder;
  OrvLocationModel model;
  const Texts& errors = builder.getErrors();
  builder.build(nullptr, &model);
  EXPECT_FALSE(runBuilder(builder, model, CaseBuilder().build()).good);
  EXPECT_TRUE(runBuilder(builder, model, cases::oneHex()).good);
  builder.build(nullptr, &model);
  EXPECT_EQ(
      errors,
      Texts({"Unable to build location model: The provider is null.",
             "Unable to build location model: There are no face zones defined in the mesh model.",
             "Unable to build location model: The provider is null."}));
}

TEST(LocationModelBuilder, CopiesItsErrors) {
  OrvLocationModel model;
  const LocationModelBuilder first;
  first.build(nullptr, &model);
  const auto copy = std::make_unique<LocationModelBuilder>(first);
  LocationModelBuilder assigned;
  assigned.build(nullptr, &model);
  assigned.build(nullptr, &model);
  assigned = first;
  first.build(nullptr, &model);
  const Texts once = {"Unable to build location model: The provider is null."};
  EXPECT_EQ(copy->getErrors(), once);
  EXPECT_EQ(assigned.getErrors(), once);
  EXPECT_EQ(first.getErrors(), Texts({once[0], once[0]}));
}

TEST(LocationModelBuilder, StartsAgainWithEveryBuild) {
  const LocationModelBuilder builder;
  OrvLocationModel first;
  OrvLocationModel second;
  const Built before = runBuilder(builder, first, cases::periodicPair());
  const Built after = runBuilder(builder, second, cases::periodicPair());
  EXPECT_TRUE(before == after);
}

TEST(LocationModelBuilder, AddsAPartToAModelThatHasSome) {
  const LocationModelBuilder builder;
  OrvLocationModel model;
  EXPECT_TRUE(runBuilder(builder, model, cases::oneHex()).good);
  const Built built = runBuilder(builder, model, cases::oneHex());
  EXPECT_TRUE(built.good);
  EXPECT_EQ(built.model, R"(part 'P' (1)
  body 2 'fluid': zones [3], boundary [4]
  face 3 'F2': sides 4 | 0
  use 4 'walls' or 'F2@fluid': zone sides [2]
part 'P' (5)
  body 6 'fluid': zones [3], boundary [8]
  face 7 'F2': sides 8 | 0
  use 8 'walls' or 'F2@fluid': zone sides [2]
)");
}

TEST(LocationModelBuilder, BuildsFromAProviderThatIsNoDouble) {
  memory::MemoryProvider provider(cases::oneHex());
  ASSERT_TRUE(provider.startReading("case", dataClassCase));
  const LocationModelBuilder builder;
  OrvLocationModel model;
  EXPECT_TRUE(builder.build(&provider, &model));
  EXPECT_EQ(modelText(model), R"(part 'P' (1)
  body 2 'fluid': zones [3], boundary [4]
  face 3 'F2': sides 4 | 0
  use 4 'walls' or 'F2@fluid': zone sides [2]
)");
}

}  // namespace
}  // namespace velto::testing
