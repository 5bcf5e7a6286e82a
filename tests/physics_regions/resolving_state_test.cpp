// SPDX-License-Identifier: Apache-2.0
//
// What a resolving leaves behind: after success, after each way to fail, when it is repeated, and
// when provider or model throw.

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

#include "embedded/memory/CaseBuilder.h"
#include "testing/case_edits.h"
#include "tests/physics_regions/region_rows.h"

namespace velto::testing {
namespace {

using memory::CaseBuilder;

const char* const kSettings = R"(
  domains/water/location = channel
  boundaries/walls/location = hull
  boundaries/walls/domain = water
)";

const char* const kModel = R"(
  part assembly
    body channel: 7 2
    use hull of channel: 4
)";

/// The table of a resolver that was never asked to resolve, that resolved, and that failed to.
const char* const kUnresolved =
    "0 domain water at 'channel'\n"
    "1 boundary walls at 'hull'\n"
    "ids: walls 1, water 0\n"
    "domains: 0 -> 1\n";
const char* const kResolved =
    "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [4]\n"
    "1 boundary walls at 'hull': face uses [4], zone sides [4]\n"
    "ids: walls 1, water 0\n"
    "domains: 1 -> 0\n";
const char* const kCleared =
    "0 domain water at 'channel'\n"
    "1 boundary walls at 'hull'\n"
    "ids: walls 1, water 0\n";

const char* const kNoZones = "Mesh Model is not valid as it doesn't contain any zones.";
const char* const kNoParts = "Location Model is not valid as it doesn't contain any parts.";

// --- Failures -----------------------------------------------------------------------------------

struct FailureRow {
  std::string name;
  std::function<bool(const ResolverRun& run)> resolve;
  Texts errors;
  std::string line;
  bool keeps;

  friend std::ostream& operator<<(std::ostream& out, const FailureRow& row) {
    return out << row.name;
  }
};

class ResolvingThatFails : public ::testing::TestWithParam<FailureRow> {
 protected:
  void expectFailure() const {
    const StreamCapture streams;
    EXPECT_FALSE(GetParam().resolve(run_));
    EXPECT_EQ(run_.errors(), GetParam().errors);
    EXPECT_EQ(streams.err(), GetParam().line);
    EXPECT_EQ(streams.out(), "");
  }

  ResolverRun run_{kSettings, kModel};
};

TEST_P(ResolvingThatFails, KeepsOrClearsWhatTheSettingsLeft) {
  expectFailure();
  EXPECT_EQ(run_.table(), GetParam().keeps ? kUnresolved : kCleared);
}

TEST_P(ResolvingThatFails, KeepsOrClearsTheEarlierResult) {
  EXPECT_TRUE(run_.resolve());
  EXPECT_EQ(run_.table(), kResolved);
  expectFailure();
  EXPECT_EQ(run_.table(), GetParam().keeps ? kResolved : kCleared);
  EXPECT_TRUE(run_.resolve());
  EXPECT_EQ(run_.table(), kResolved);
  EXPECT_EQ(run_.errors(), GetParam().errors);
}

/// With the zones of another case in the place of the mesh.
bool resolveOn(const ResolverRun& run, const ResolverRun& mesh) {
  return run.resolver->resolveUsing(run.provider.get(), mesh.provider.get());
}

/// With a mesh that claims that these zones list the nodes of their cells.
bool resolveWithCellNodesOf(const ResolverRun& run, const std::vector<int>& zones) {
  run.provider->answerList("beginCellNodes", zones);
  const bool good = run.resolver->resolveUsing(run.provider.get());
  run.provider->answerList("beginCellNodes", {7});
  return good;
}

bool resolveWithModel(const ResolverRun& run, const std::string& model) {
  return run.resolver->resolveUsing(modelOf(model).get(), run.provider.get());
}

const FailureRow kMesh[] = {
    {"WithoutAProvider",
     [](const auto& run) { return run.resolver->resolveUsing(nullptr); },
     {kNoZones},
     "",
     true},
    {"WithAModelSourceAlone",
     [](const auto& run) { return run.resolver->resolveUsing(run.provider.get(), nullptr); },
     {kNoZones},
     "",
     true},
    {"WithAModelAlone",
     [](const auto& run) { return run.resolver->resolveUsing(modelOf(kModel).get(), nullptr); },
     {kNoZones},
     "",
     true},
    {"WithNodeZonesAlone",
     [](const auto& run) {
       return resolveOn(run, ResolverRun(CaseBuilder().nodes(1, "points", {{0, 0, 0}}).build()));
     },
     {kNoZones},
     "",
     true},
    {"OnAMeshThatIsNotThere",
     [](const auto& run) {
       run.provider->setMeshId(2);
       const bool good = run.resolver->resolveUsing(run.provider.get());
       run.provider->setMeshId(1);
       return good;
     },
     {kNoZones},
     "",
     true},
    {"WithNeitherMeshNorModel",
     [](const auto& run) {
       return run.resolver->resolveUsing(ResolverRun(CaseBuilder().build()).provider.get());
     },
     {kNoZones},
     "",
     true},
};

INSTANTIATE_TEST_SUITE_P(Mesh, ResolvingThatFails, ::testing::ValuesIn(kMesh), nameOf<FailureRow>);

const FailureRow kModels[] = {
    {"WithoutAModelSource",
     [](const auto& run) {
       const OrvProvider* const none = nullptr;
       return run.resolver->resolveUsing(none, run.provider.get());
     },
     {kNoParts},
     "",
     true},
    {"WithoutAModel",
     [](const auto& run) {
       const OrvLocationModel* const none = nullptr;
       return run.resolver->resolveUsing(none, run.provider.get());
     },
     {kNoParts},
     "",
     true},
    {"OfACaseWithoutAModel",
     [](const auto& run) {
       return run.resolver->resolveUsing(ResolverRun(kSettings).provider.get());
     },
     {kNoParts},
     "",
     true},
    {"WithAModelWithoutParts",
     [](const auto& run) {
       const OrvLocationModel empty;
       return run.resolver->resolveUsing(&empty, run.provider.get());
     },
     {kNoParts},
     "",
     true},
};

INSTANTIATE_TEST_SUITE_P(Model, ResolvingThatFails, ::testing::ValuesIn(kModels),
                         nameOf<FailureRow>);

const FailureRow kInTheMiddle[] = {
    {"OverTheCellNodesOfAFaceZone",
     [](const auto& run) {
       return resolveWithCellNodesOf(run, {7, 4});
     },
     {},
     "",
     false},
    {"OverTheCellNodesOfAnUnknownZone",
     [](const auto& run) { return resolveWithCellNodesOf(run, {99}); },
     {},
     "",
     false},
    {"OverAFaceInTheLocationOfADomain",
     [](const auto& run) { return resolveWithModel(run, "part p\n face channel"); },
     {},
     "Unexpectedly found a face '2' in the location of a domain.\n",
     false},
    {"OverABodyInTheLocationOfABoundary",
     [](const auto& run) { return resolveWithModel(run, "part p\n body channel: 7\n body hull"); },
     {},
     "Unexpectedly found a body '3' in the location of a boundary.\n",
     false},
};

INSTANTIATE_TEST_SUITE_P(Middle, ResolvingThatFails, ::testing::ValuesIn(kInTheMiddle),
                         nameOf<FailureRow>);

// --- Success ------------------------------------------------------------------------------------

TEST(Resolving, IsContentWithCellZonesAlone) {
  ResolverRun run(CaseBuilder()
                      .cells(7, "fluid", base::cellShapeTetrahedron, 1)
                      .setting("domains/water/location", "channel")
                      .build());
  EXPECT_TRUE(resolveWithModel(run, kModel));
  EXPECT_EQ(
      run.table(),
      "0 domain water at 'channel': bodies [2], cell zones [] [7], bulk zones [2], zone sides [4]\n"
      "ids: water 0\n");
}

TEST(Resolving, IsContentWithFaceZonesAlone) {
  ResolverRun run(CaseBuilder()
                      .faces(4, "wet", base::boundaryWall, {{{1, 2, 3}, 1}})
                      .setting("domains/water/location", "channel")
                      .build());
  EXPECT_TRUE(resolveWithModel(run, kModel));
  EXPECT_EQ(
      run.table(),
      "0 domain water at 'channel': bodies [2], cell zones [] [], bulk zones [7, 2], zone sides [4]\n"
      "ids: water 0\n");
}

TEST(Resolving, GroupsCellZonesInWhateverOrderTheyAreListed) {
  ResolverRun run("domains/rock/location = rock", "part p\n body rock: 7 8 9");
  run.provider->answerList("getZoneIds(3)", {9, 7, 8});
  run.provider->answerList("beginCellNodes", {9, 8});
  EXPECT_TRUE(run.resolve());
  EXPECT_EQ(
      run.table(),
      "0 domain rock at 'rock': bodies [2], cell zones [8, 9] [7], bulk zones [], zone sides []\n"
      "ids: rock 0\n");
}

TEST(Resolving, GivesTheSameAgain) {
  ResolverRun run(kSettings, kModel);
  for (int times = 0; times < 3; ++times) {
    EXPECT_TRUE(run.resolve());
    EXPECT_EQ(run.table(), kResolved);
  }
}

TEST(Resolving, StartsAfreshWithAnotherModel) {
  ResolverRun run(kSettings, kModel);
  EXPECT_TRUE(run.resolve());
  EXPECT_TRUE(resolveWithModel(run, "part assembly\n body heater: 9\n body channel: 8"));
  EXPECT_EQ(
      run.table(),
      "0 domain water at 'channel': bodies [3], cell zones [] [8], bulk zones [], zone sides []\n"
      "1 boundary walls at 'hull'\n"
      "ids: walls 1, water 0\n");
  EXPECT_TRUE(run.resolve());
  EXPECT_EQ(run.table(), kResolved);
}

TEST(Resolving, SucceedsWithAnotherModelAfterOneThatEndedIt) {
  ResolverRun run(kSettings, "part assembly\n face channel");
  EXPECT_FALSE(run.resolve());
  EXPECT_EQ(run.err, "Unexpectedly found a face '2' in the location of a domain.\n");
  EXPECT_EQ(run.table(), kCleared);
  EXPECT_TRUE(resolveWithModel(run, kModel));
  EXPECT_EQ(run.table(), kResolved);
  EXPECT_EQ(run.errors(), Texts());
}

TEST(Resolving, TakesTheModelOfAnotherCase) {
  const ResolverRun run(kSettings, "part assembly\n face channel");
  ResolverRun source("", kModel);
  source.calls.clear();
  EXPECT_TRUE(run.resolver->resolveUsing(source.provider.get(), run.provider.get()));
  EXPECT_EQ(run.table(), kResolved);
  EXPECT_EQ(source.calls, Transcript({"getLocationModel()"}));
}

// --- The mesh -----------------------------------------------------------------------------------

/// The case with a second mesh, in which the channel and its hull have other zones.
cases::CasePtr twoMeshes() {
  const base::MeshKey second = {2, targetRestart, -1};
  cases::CasePtr made = regionCase(kSettings, kModel);
  made->arrays(second);
  base::MeshTables& mesh = made->mesh(second);
  mesh.addZone(zoneCategoryFace, 12, "screen", 1);
  mesh.addZone(zoneCategoryFace, 14, "wet", 1);
  mesh.addZone(zoneCategoryCell, 17, "fluid", 1);
  changeModel(*made, [&second](OrvLocationModel::State& model) {
    model.setBodyZones(2, second.mesh, {12, 17});
    model.setFaceUseZoneSides(4, second.mesh, {-14});
  });
  return made;
}

const char* const kResolvedOnMesh2 =
    "0 domain water at 'channel': bodies [2], cell zones [] [17], bulk zones [12], zone sides [-14]\n"
    "1 boundary walls at 'hull': face uses [4], zone sides [-14]\n"
    "ids: walls 1, water 0\n"
    "domains: 1 -> 0\n";

TEST(ResolvingOnAMesh, TakesTheOneThatIsSelected) {
  ResolverRun run(twoMeshes());
  EXPECT_TRUE(run.resolve());
  EXPECT_EQ(run.table(), kResolved);
  run.provider->setMeshId(2);
  EXPECT_TRUE(run.resolve());
  EXPECT_EQ(run.table(), kResolvedOnMesh2);
  run.provider->setMeshId(1);
  EXPECT_TRUE(run.resolve());
  EXPECT_EQ(run.table(), kResolved);
}

TEST(ResolvingOnAMesh, DoesNotAskTheSourceOfTheModelWhichOne) {
  const ResolverRun run(twoMeshes());
  const ResolverRun source(twoMeshes());
  source.provider->setMeshId(2);
  EXPECT_TRUE(run.resolver->resolveUsing(source.provider.get(), run.provider.get()));
  EXPECT_EQ(run.table(), kResolved);
}

/// The zones of the body are asked for first, then the sides of its face use.
TEST(ResolvingOnAMesh, AsksWhichOneAtEachUse) {
  ResolverRun run(twoMeshes());
  run.provider->on("getMeshId", 2, [](base::CaseCore& core) { core.selection.mesh = 2; });
  EXPECT_TRUE(run.resolve());
  EXPECT_EQ(
      run.table(),
      "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [2], zone sides [-14]\n"
      "1 boundary walls at 'hull': face uses [4], zone sides [-14]\n"
      "ids: walls 1, water 0\n"
      "domains: 1 -> 0\n");
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

class ResolvingThatThrows : public ::testing::TestWithParam<ExceptionRow> {
 protected:
  void expectAllOrNothing() {
    EXPECT_EQ(run_.table(), GetParam().keeps ? kResolved : kCleared);
    EXPECT_EQ(run_.errors(), Texts());
    EXPECT_TRUE(run_.resolve());
    EXPECT_EQ(run_.table(), kResolved);
    EXPECT_EQ(run_.err, "");
  }

  ResolverRun run_{kSettings, kModel};
};

class ProviderThatThrows : public ResolvingThatThrows {};

TEST_P(ProviderThatThrows, LeavesAllOrNothing) {
  EXPECT_TRUE(run_.resolve());
  run_.provider->on(GetParam().call, GetParam().nth,
                    [](base::CaseCore&) { throw std::runtime_error("disk gone"); });
  EXPECT_THROW(run_.resolve(), std::runtime_error);
  expectAllOrNothing();
}

const ExceptionRow kProviderCalls[] = {
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

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, ProviderThatThrows, ::testing::ValuesIn(kProviderCalls),
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

const ExceptionRow kModelCalls[] = {
    {"AskedForItsParts", "getParts", 1, true},
    {"AskedForABody", "findBody"},
    {"AskedForTheZonesOfABody", "getBodyZones"},
    {"AskedForTheBoundaryOfABody", "getBodyBoundary"},
    {"AskedForTheSidesOfABody", "getFaceUseZoneSides", 1},
    {"AskedForAFaceUse", "findFaceUse"},
    {"AskedForTheSidesOfABoundary", "getFaceUseZoneSides", 2},
};

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, ModelThatThrows, ::testing::ValuesIn(kModelCalls),
                         nameOf<ExceptionRow>);

}  // namespace
}  // namespace velto::testing
