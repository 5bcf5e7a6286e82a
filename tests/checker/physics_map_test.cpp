// SPDX-License-Identifier: Apache-2.0
//
// The way to a location model and to the physics objects: whether they are looked at, a model that
// has to be built, steps and calls in their order.

#include "embedded/memory/CaseBuilder.h"
#include "testing/ScriptedLocationModel.h"
#include "testing/capture.h"
#include "testing/case_edits.h"
#include "tests/checker/CheckerFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using Model = OrvLocationModel::State;

const std::string kStep = "checkPhysicsToMeshMapUsingTopologyModel : ";
const std::string kShownStep = "- checkPhysicsToMeshMapUsingTopologyModel - ";

class PhysicsMap : public CheckerFixture {
 protected:
  /// The check alone, on an opened case; what it shows at verbosity 3 is shown_.
  bool checkMap() {
    checker.setVerbosity(3);
    const StreamCapture streams;
    const bool good = checker_access::checkPhysicsToMeshMapUsingTopologyModel(checker);
    shown_ = streams.out();
    return good;
  }

  Transcript settingsAsked() const { return callsOf({"getSettings"}); }

  /// The calls but those of the queries that a build may make in any number.
  Transcript chosenCalls() const {
    return callsOf({"getTarget", "getLocationModel", "getParts", "getSettings", "createPart",
                    "getPartBodies", "getPartComposites", "getZoneIds"});
  }

  std::string shown_;
  const std::string building_ = kShownStep + "No location model exists, trying to build.\n";
  const std::string skipped_ = kStep + "No Physics Model - skipped";
};

// --- Whether it is looked at --------------------------------------------------------------------

TEST_F(PhysicsMap, IsNotOfATargetOtherThanRestart) {
  for (const int target : {1, 2, 7, -1}) {
    prepare([target](ScriptedProvider& p) { p.answerList("getTargets", {target}); });
    open(cases::withPhysics());
    EXPECT_TRUE(checkMap());
    EXPECT_EQ(shown_, kShownStep + "N/A for ORV Post or ORV Partitioned Post mesh.\n");
    EXPECT_EQ(calls(), Transcript({"getTarget()"}));
    EXPECT_EQ(checker.getErrors(), Texts());
  }
}

TEST_F(PhysicsMap, IsSkippedAtRequest) {
  const cases::CasePtr damaged = cases::withPhysics();
  changeModel(*damaged, [](Model& m) { m.bodies[2].name.clear(); });
  damaged->setSetting("domains/water/location", "zzz");
  open(damaged);
  checker.setNoLM(true);
  EXPECT_TRUE(checkMap());
  EXPECT_EQ(shown_, kShownStep + "Skipping location model checks at user request.\n");
  EXPECT_EQ(calls(), Transcript({"getTarget()"}));
  EXPECT_EQ(checker.getErrors(), Texts());
}

TEST_F(PhysicsMap, TellsTheTargetBeforeTheRequest) {
  checker.setNoLM(true);
  open(cases::postHex());
  EXPECT_TRUE(checkMap());
  EXPECT_EQ(shown_, kShownStep + "N/A for ORV Post or ORV Partitioned Post mesh.\n");
}

// --- A case with a model ------------------------------------------------------------------------

TEST_F(PhysicsMap, ShowsItsSteps) {
  open(cases::withPhysics());
  EXPECT_TRUE(checkMap());
  EXPECT_EQ(shown_, kShownStep +
                        "init\n"
                        "- checkDomain - Checking Physics - Domains\n"
                        "- checkSubdomain - Checking Physics - Subdomains\n"
                        "- checkBoundary - Checking Physics - Boundaries\n"
                        "- checkInterface - Checking Physics - Interfaces\n");
  EXPECT_EQ(checker.getErrors(), Texts());
  EXPECT_EQ(checker.getWarnings(), Texts());
}

TEST_F(PhysicsMap, AsksInOrder) {
  const cases::CasePtr served = cases::withPhysics();
  for (const char* const more : {"boundaries/friction", "boundaries/insulation",
                                 "boundaries/water side", "boundaries/steel side"}) {
    removeSetting(*served, more);
  }
  served->setSetting("interfaces/heat transfer/boundariesSide1", "screen");
  open(served);
  const LocationModelScript script(&transcript);
  EXPECT_TRUE(checkMap());
  EXPECT_EQ(chosenCalls(),
            Transcript({"getTarget()",
                        "getLocationModel()",
                        "getParts()",
                        "getSettings(0, domains, 1)",
                        "getZoneIds(3)",
                        "getZoneIds(2)",
                        "getParts()",
                        "getPartBodies(1)",
                        "getPartComposites(1)",
                        "getSettings(0, domains, 1)",
                        "getSettings(0, boundaries, 1)",
                        "getSettings(0, subdomains, 1)",
                        "getSettings(0, interfaces, 1)",
                        "getSettings(0, domains/water/location, 1)",
                        "getSettings(0, domains/steel/location, 1)",
                        "getSettings(0, subdomains/heating/location, 1)",
                        "getSettings(0, subdomains/heating/domain, 1)",
                        "getSettings(0, boundaries/screen/location, 1)",
                        "getSettings(0, boundaries/screen/domain, 1)",
                        "getSettings(0, interfaces/heat transfer/boundariesSide1, 1)",
                        "getSettings(0, interfaces/heat transfer/boundariesSide1, 1)",
                        "getSettings(0, interfaces/heat transfer/domainsSide1, 1)",
                        "getSettings(0, interfaces/heat transfer/domainsSide2, 1)"}));
}

/// Which of the four kinds of physics objects is there.
class PhysicsOfOneKind : public PhysicsMap, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(PhysicsOfOneKind, IsLookedForUntilItIsFound) {
  const std::vector<std::string> kinds = {"domains", "boundaries", "subdomains", "interfaces"};
  Transcript asked;
  for (std::size_t i = 0; i <= GetParam(); ++i) {
    asked.push_back("getSettings(0, " + kinds[i] + ", 1)");
  }
  const cases::CasePtr served = cases::withPhysics();
  served->tables.settings.clear();
  served->setSetting(kinds[GetParam()] + "/a/b", "c");
  // The check ends here, before it asks for the objects of each kind.
  changeModel(*served, [](Model& m) { m.bodies[2].name.clear(); });
  open(served);
  EXPECT_FALSE(checkMap());
  EXPECT_EQ(settingsAsked(), asked);
}

INSTANTIATE_TEST_SUITE_P(PhysicsMap, PhysicsOfOneKind, ::testing::Range<std::size_t>(0, 4));

TEST_F(PhysicsMap, WarnsOfACaseWithoutPhysics) {
  const cases::CasePtr served = cases::withPhysics();
  served->tables.settings.clear();
  served->setSetting("materials/water/density", "998");
  open(served);
  EXPECT_TRUE(checkMap());
  EXPECT_EQ(shown_, kShownStep + "init\n");
  EXPECT_EQ(checker.getWarnings(), Texts({skipped_}));
  EXPECT_EQ(checker.getErrors(), Texts());
  EXPECT_EQ(settingsAsked(),
            Transcript({"getSettings(0, domains, 1)", "getSettings(0, boundaries, 1)",
                        "getSettings(0, subdomains, 1)", "getSettings(0, interfaces, 1)"}));
}

TEST_F(PhysicsMap, ChecksTheModelOfACaseWithoutPhysics) {
  const cases::CasePtr damaged = cases::withPhysics();
  damaged->tables.settings.clear();
  changeModel(*damaged, [](Model& m) { m.bodies[2].name.clear(); });
  open(damaged);
  EXPECT_FALSE(checkMap());
  EXPECT_EQ(checker.getErrors(), Texts({kStep + "Location Model contains an unnamed body (2)."}));
  EXPECT_EQ(checker.getWarnings(), Texts());
}

TEST_F(PhysicsMap, LeavesThePhysicsOfABadModelAlone) {
  const cases::CasePtr damaged = cases::withPhysics();
  changeModel(*damaged, [](Model& m) { m.bodies[2].name.clear(); });
  damaged->setSetting("domains/water/location", "zzz");
  open(damaged);
  EXPECT_FALSE(checkMap());
  EXPECT_EQ(checker.getErrors(), Texts({kStep + "Location Model contains an unnamed body (2)."}));
  EXPECT_EQ(settingsAsked(), Transcript({"getSettings(0, domains, 1)"}));
}

TEST_F(PhysicsMap, ShowsNoStepBehindAFault) {
  const cases::CasePtr damaged = cases::withPhysics();
  damaged->setSetting("subdomains/heating/location", "zzz");
  open(damaged);
  EXPECT_FALSE(checkMap());
  EXPECT_EQ(shown_, kShownStep +
                        "init\n"
                        "- checkDomain - Checking Physics - Domains\n"
                        "- checkSubdomain - Checking Physics - Subdomains\n");
}

TEST_F(PhysicsMap, ChecksEachMeshAgainstWhatHasAPlaceThere) {
  const cases::CasePtr served = cases::withPhysics();
  served->tables.meshes[{2, targetRestart, -1}] = served->mesh();
  served->data[{2, targetRestart, -1}] = served->arrays();
  serve(served);
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(
      result.errors,
      Texts(
          {"checkDomain : The attribute 'location' of 'water' references locations that don't exist in the location model."}));
  EXPECT_EQ(selections(), selected({{1, 0, -1}, {2, 0, -1}}));
}

TEST_F(PhysicsMap, EndsTheWalkAtALibraryErrorWithTheLabelOfItsLastStep) {
  prepare([](ScriptedProvider& p) {
    p.on("getLocationModel", 2,
         [](base::CaseCore& core) { core.messages.addError("model cut off"); });
  });
  serve(cases::withPhysics());
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkInterface : ORV - model cut off"}));
  EXPECT_EQ(callsOf({"beginCellNodes"}), Transcript());
}

// --- A case without a model ---------------------------------------------------------------------

TEST_F(PhysicsMap, BuildsAModel) {
  open(cases::oneHex());
  EXPECT_TRUE(checkMap());
  EXPECT_EQ(shown_, kShownStep + "init\n" + building_);
  EXPECT_EQ(checker.getErrors(), Texts());
  EXPECT_EQ(checker.getWarnings(), Texts({skipped_}));
}

TEST_F(PhysicsMap, BuildsAModelInThePlaceOfOneWithoutParts) {
  const cases::CasePtr served = cases::oneHex();
  served->tables.locationModel = std::make_shared<OrvLocationModel>();
  open(served);
  EXPECT_TRUE(checkMap());
  EXPECT_EQ(shown_, kShownStep + "init\n" + building_);
}

TEST_F(PhysicsMap, BuildsBeforeItLooksForPhysics) {
  open(cases::oneHex());
  const LocationModelScript script(&transcript);
  EXPECT_TRUE(checkMap());
  EXPECT_EQ(
      chosenCalls(),
      Transcript({"getTarget()", "getLocationModel()", "getZoneIds(2)", "getZoneIds(3)",
                  "createPart(3, P)", "getSettings(0, domains, 1)", "getSettings(0, boundaries, 1)",
                  "getSettings(0, subdomains, 1)", "getSettings(0, interfaces, 1)", "getParts()",
                  "getZoneIds(3)", "getZoneIds(2)", "getParts()", "getPartBodies(1)",
                  "getPartComposites(1)"}));
}

TEST_F(PhysicsMap, KnowsTheNamesOfABuiltModel) {
  const cases::CasePtr served = cases::screenInFlow();
  served->setSetting("domains/air/location", "fluid");
  served->setSetting("boundaries/grid/location", "screen,walls");
  served->setSetting("boundaries/grid/domain", "air");
  open(served);
  EXPECT_TRUE(checkMap());
  EXPECT_EQ(checker.getErrors(), Texts());
  EXPECT_EQ(checker.getWarnings(), Texts());
}

TEST_F(PhysicsMap, BuildsOnceForEachPass) {
  serve(cases::oneHex());
  prepare([](ScriptedProvider& p) { p.answerList("getMeshIds", {1, 1}); });
  const LocationModelScript script(&transcript);
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.warnings, Texts({skipped_, skipped_}));
  EXPECT_EQ(callsOf({"createPart"}), Transcript({"createPart(3, P)", "createPart(3, P)"}));
}

TEST_F(PhysicsMap, ReportsAMeshWithoutZones) {
  serve(memory::CaseBuilder().build());
  checker.setVerbosity(3);
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(
      result.errors,
      Texts(
          {kStep +
               "Unable to build location model: There are no face zones defined in the mesh model.",
           kStep + "Failed to build location model."}));
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(settingsAsked(), Transcript());
  EXPECT_EQ(result.out.substr(result.out.find(kShownStep)),
            kShownStep + "init\n" + building_ +
                "- checkCellZoneConnectivityTypes - init\n"
                "- checkCellZoneConnectivityTypes - categorize\n"
                "- checkNodeZones - init\n"
                "- checkFaceZones - init\n"
                "- checkCellZones - init\n"
                "- checkCase - availableTargets\n");
}

TEST_F(PhysicsMap, ReportsAllErrorsOfABuildInOrder) {
  const cases::CasePtr damaged = cases::twoBodies();
  damaged->zone(2).sideCellZones = {{{5, 6}, {6, 5}}};
  serve(damaged);
  EXPECT_EQ(
      check().errors,
      Texts(
          {kStep +
               "Unable to build location model: Face zone 2'between' bounds mode than one cell zone on side 0.",
           kStep +
               "Unable to build location model: Face zone 2'between' bounds mode than one cell zone on side 1.",
           kStep + "Failed to build location model."}));
}

TEST_F(PhysicsMap, ReportsTheErrorsOfEachBuildOnce) {
  const cases::CasePtr damaged = cases::twoBodies();
  damaged->zone(6).texts[zoneName] = "fluid";
  serve(damaged);
  prepare([](ScriptedProvider& p) { p.answerList("getMeshIds", {1, 1}); });
  const Texts once = {kStep + "Unable to define body 'fluid'",
                      kStep + "Failed to build location model."};
  EXPECT_EQ(check().errors, Texts({once[0], once[1], once[0], once[1]}));
}

TEST_F(PhysicsMap, ReportsABuildThatFailsThoughThereIsPhysics) {
  const cases::CasePtr damaged = cases::twoBodies();
  damaged->zone(6).texts[zoneName] = "fluid";
  damaged->setSetting("domains/air/location", "fluid");
  open(damaged);
  EXPECT_FALSE(checkMap());
  EXPECT_EQ(shown_, kShownStep + "init\n" + building_);
  EXPECT_EQ(checker.getErrors(), Texts({kStep + "Unable to define body 'fluid'",
                                        kStep + "Failed to build location model."}));
  EXPECT_EQ(settingsAsked(), Transcript());
}

// --- A build that gives nothing -----------------------------------------------------------------

class BuildOfNothing : public PhysicsMap {
 protected:
  /// No cell zone is a leaf, so that nothing is made but the part.
  BuildOfNothing() {
    served_->zone(3).cellInfo[cellZoneChild] = 3;
    script_.refuse("createPart");
  }

  const cases::CasePtr served_ = cases::oneHex();
  LocationModelScript script_;
  const std::string unable_ = kStep + "Unable to obtain a valid location model.";
};

TEST_F(BuildOfNothing, IsWorthAWarning) {
  open(served_);
  EXPECT_TRUE(checkMap());
  EXPECT_EQ(shown_, kShownStep + "init\n" + building_);
  EXPECT_EQ(checker.getWarnings(), Texts({unable_, skipped_}));
  EXPECT_EQ(checker.getErrors(), Texts());
}

TEST_F(BuildOfNothing, IsAnErrorWherePhysicsNeedsAModel) {
  served_->setSetting("interfaces/contact/boundariesSide1", "");
  open(served_);
  EXPECT_FALSE(checkMap());
  EXPECT_EQ(shown_, kShownStep + "init\n" + building_);
  EXPECT_EQ(checker.getWarnings(), Texts({unable_}));
  EXPECT_EQ(
      checker.getErrors(),
      Texts(
          {kStep +
           "Physics objects are available in the settings, without a location model, the locations of these objects will be invalid."}));
  EXPECT_EQ(callsOf({"getZoneIds"}), Transcript({"getZoneIds(2)", "getZoneIds(3)"}))
      << "of the build alone";
}

}  // namespace
}  // namespace velto::testing
