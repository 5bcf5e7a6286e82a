// SPDX-License-Identifier: Apache-2.0
//
// The walk: the order of calls, the filters, and what ends it. Most tests run at check level 0,
// where a pass does no more than select its mesh, target and partition.

#include <sstream>

#include "tests/checker/CheckerFixture.h"

namespace velto::testing {
namespace {

const char* const kMultipleTargets =
    "checkCase : ORV file with multiple target types - support is limited";

class Walk : public CheckerFixture {
 protected:
  Walk() { checker.setCheckLevel(0); }

  /// What a message of the library reads like that is taken over at the start of a pass.
  const std::string diskGone_ = std::string(kStepBeforeWalk) + " : ORV - disk gone";
};

// --- Opening ------------------------------------------------------------------------------------

TEST_F(Walk, CallsTheProviderInOrder) {
  EXPECT_TRUE(check().good);
  EXPECT_EQ(
      calls(),
      Transcript({"setBaseOption(true)", "startReading(FILE, 0)", "getFileVersion(0)",
                  "hasWarning()", "hasError()", "getSolverType()", "hasWarning()", "hasError()",
                  "getLocationModel()", "getMeshIds(0)", "getTargets(1, 0)",
                  "getPartitionIds(1, 0)", "setMeshId(1)", "setTarget(0)", "setPartitionId(-1)",
                  "hasWarning()", "hasError()", "hasWarning()", "hasError()"}));
}

TEST_F(Walk, EndsAtAFileThatDoesNotExist) {
  const CheckResult result = check(checker, file.path() + ".absent");
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({" : Error: No such file / unreadable"}));
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(calls(), Transcript());
}

TEST_F(Walk, EndsAtAFileWithoutProvider) {
  refuseProviders();
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({" : Not a ORV file (cannot setup provider)"}));
  EXPECT_EQ(result.err, "Error: : Not a ORV file (cannot setup provider)\n");
}

TEST_F(Walk, EndsAtAFileThatCannotBeReadWithTheLibrarysReason) {
  prepare([](ScriptedProvider& p) { p.refuseToRead("cut off"); });
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({" : Error reading ORV file", " : ORV - cut off"}));
  EXPECT_EQ(result.err,
            "Error: : Error reading ORV file\n"
            "Error: : ORV - cut off\n");
  EXPECT_EQ(calls(), Transcript({"setBaseOption(true)", "startReading(FILE, 0)", "hasWarning()",
                                 "hasError()", "getErrors(true, true)"}));
}

TEST_F(Walk, EndsAtAFileThatCannotBeReadWithoutReason) {
  prepare([](ScriptedProvider& p) { p.refuseToRead(""); });
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({" : Error reading ORV file"}));
}

TEST_F(Walk, EndsAtALibraryErrorBeforeTheMeshes) {
  prepare([](ScriptedProvider& p) { failOn(p, "getSolverType"); });
  checker.setVerbosity(3);
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkSolverType : ORV - disk gone"}));
  EXPECT_EQ(result.out,
            "- checkVersion - getFileVersion\n"
            "Version: 3.4.5\n"
            "- checkSolverType - getSolverType\n");
  EXPECT_EQ(callsOf({"getMeshIds"}), Transcript());
}

// --- Meshes, targets, partitions ----------------------------------------------------------------

TEST_F(Walk, VisitsMeshesInTheOrderGiven) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getMeshIds", {5, 2, 9});
    p.answerList("getTargets", {0});
  });
  EXPECT_TRUE(check().good);
  EXPECT_EQ(selections(), selected({{5, 0, -1}, {2, 0, -1}, {9, 0, -1}}));
}

TEST_F(Walk, VisitsTargetsInTheOrderGiven) {
  prepare([](ScriptedProvider& p) { p.answerList("getTargets", {2, 0, 1}); });
  check();
  EXPECT_EQ(selections(), selected({{1, 2, -1}, {1, 0, -1}, {1, 1, -1}}));
}

TEST_F(Walk, VisitsPartitionsInTheOrderGiven) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getTargets", {2});
    p.answerList("getPartitionIds", {4, 0, 3});
  });
  check();
  EXPECT_EQ(selections(), selected({{1, 2, 4}, {1, 2, 0}, {1, 2, 3}}));
}

TEST_F(Walk, ChecksRestartAndPostTargetsOncePerPartition) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getTargets", {0, 1});
    p.answerList("getPartitionIds", {0, 1});
  });
  checker.setVerbosity(2);
  const CheckResult result = check();
  EXPECT_EQ(selections(), selected({{1, 0, 0}, {1, 0, 1}, {1, 1, 0}, {1, 1, 1}}));
  EXPECT_EQ(result.out,
            "Version: 3.4.5\n"
            "Processing mesh : 1\n"
            "Processing target : 0\n"
            "Processing target : 1\n");
}

TEST_F(Walk, DoesNothingForAFileWithoutMeshes) {
  prepare([](ScriptedProvider& p) { p.answerList("getMeshIds", {}); });
  checker.setVerbosity(3);
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.out,
            "- checkVersion - getFileVersion\n"
            "Version: 3.4.5\n"
            "- checkSolverType - getSolverType\n"
            "- checkTopologyModel - Checking for location model.\n"
            "- checkCase - availableTargets\n");
  EXPECT_EQ(callsOf({"getTargets", "getPartitionIds", "setMeshId"}), Transcript());
}

TEST_F(Walk, JudgesAFileWithoutMeshesByTheEarlierSteps) {
  const cases::CasePtr damaged = cases::oneHex();
  damaged->tables.solverType = "";
  serve(damaged);
  prepare([](ScriptedProvider& p) { p.answerList("getMeshIds", {}); });
  EXPECT_FALSE(check().good);
}

TEST_F(Walk, GivesAMeshWithoutPartitionsOnePass) {
  prepare([](ScriptedProvider& p) { p.answerList("getTargets", {2}); });
  checker.setVerbosity(2);
  const CheckResult result = check();
  EXPECT_EQ(selections(), selected({{1, 2, -1}}));
  EXPECT_EQ(result.out,
            "Version: 3.4.5\n"
            "Processing mesh : 1\n"
            "Processing target : 2\n"
            "Processing partition : -1\n");
}

TEST_F(Walk, VisitsAMeshWithoutTargetsWithoutAPass) {
  prepare([](ScriptedProvider& p) { p.answerList("getTargets", {}); });
  checker.setVerbosity(2);
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.out, "Version: 3.4.5\nProcessing mesh : 1\n");
  EXPECT_EQ(selections(), Transcript());
}

TEST_F(Walk, TakesATargetWithoutNameAsAnyOther) {
  prepare([](ScriptedProvider& p) { p.answerList("getTargets", {7}); });
  checker.setVerbosity(2);
  EXPECT_EQ(check().out,
            "Version: 3.4.5\n"
            "Processing mesh : 1\n"
            "Processing target : 7\n");
  EXPECT_EQ(selections(), selected({{1, 7, -1}}));
}

TEST_F(Walk, WalksAPartitionedCaseOfTheLibrary) {
  serve(cases::withPartitions());
  EXPECT_TRUE(check().good);
  EXPECT_EQ(selections(), selected({{1, 2, 0}, {1, 2, 1}}));
}

// --- The warning about several targets ----------------------------------------------------------

TEST_F(Walk, WarnsOfTwoTargetsOfOneMesh) {
  prepare([](ScriptedProvider& p) { p.answerList("getTargets", {0, 1}); });
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.warnings, Texts({kMultipleTargets}));
}

TEST_F(Walk, WarnsOfTwoTargetsAlsoWhereTheFilterPassesOneOver) {
  prepare([](ScriptedProvider& p) { p.answerList("getTargets", {0, 1}); });
  checker.setTarget("restart");
  EXPECT_EQ(check().warnings, Texts({kMultipleTargets}));
}

TEST_F(Walk, WarnsOfTwoMeshesWithDifferentTargets) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getMeshIds", {1, 2});
    p.answerList("getTargets(1, 0)", {0});
    p.answerList("getTargets(2, 0)", {1});
  });
  EXPECT_EQ(check().warnings, Texts({kMultipleTargets}));
}

TEST_F(Walk, DoesNotWarnOfOneTargetInTwoMeshes) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getMeshIds", {1, 2});
    p.answerList("getTargets", {1, 1});
  });
  EXPECT_EQ(check().warnings, Texts());
}

TEST_F(Walk, DoesNotCountTheTargetsOfAMeshThatTheFilterPassesOver) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getMeshIds", {1, 2});
    p.answerList("getTargets(1, 0)", {0});
    p.answerList("getTargets(2, 0)", {1});
  });
  checker.setMeshId(1);
  EXPECT_EQ(check().warnings, Texts());
}

TEST_F(Walk, ForgetsTheTargetsOfAnEarlierRun) {
  prepare([](ScriptedProvider& p) { p.answerList("getTargets", {0}); });
  check();
  prepare([](ScriptedProvider& p) { p.answerList("getTargets", {1}); });
  EXPECT_EQ(check().warnings, Texts());
}

// --- What ends the walk, and what does not ------------------------------------------------------

TEST_F(Walk, EndsAtALibraryErrorOfASelection) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getMeshIds", {1, 2});
    p.answerList("getTargets", {0, 1});
    failOn(p, "setTarget(1)");
  });
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({diskGone_}));
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(selections(), selected({{1, 0, -1}, {1, 1, -1}}));
}

TEST_F(Walk, GivesNoStepAndNoWarningAtTheEndOfAWalkThatFailed) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getTargets", {0, 1});
    failOn(p, "setTarget(1)");
  });
  checker.setVerbosity(3);
  EXPECT_EQ(check().out,
            "- checkVersion - getFileVersion\n"
            "Version: 3.4.5\n"
            "- checkSolverType - getSolverType\n"
            "- checkTopologyModel - Checking for location model.\n"
            "Processing mesh : 1\n"
            "Processing target : 0\n"
            "Processing target : 1\n");
}

TEST_F(Walk, GoesOnAfterALibraryWarning) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getMeshIds", {1, 2});
    p.answerList("getTargets", {0});
    p.on("setMeshId(1)", [](base::CaseCore& core) { core.messages.addWarning("slow disk"); });
  });
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.warnings, Texts({std::string(kStepBeforeWalk) + " : ORV - slow disk"}));
  EXPECT_EQ(selections(), selected({{1, 0, -1}, {2, 0, -1}}));
}

TEST_F(Walk, CollectsTheLibrarysMessagesOnceMoreAtTheEnd) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getTargets", {});
    p.on("getPartitionIds", [](base::CaseCore& core) {
      core.messages.addWarning("slow disk");
      core.messages.addError("disk gone");
    });
  });
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.warnings, Texts({"checkCase : ORV - slow disk"}));
  EXPECT_EQ(result.errors, Texts({"checkCase : ORV - disk gone"}));
}

TEST_F(Walk, GoesOnAfterAnErrorOfACheck) {
  const cases::CasePtr damaged = cases::oneHex();
  damaged->tables.solverType = "";
  serve(damaged);
  prepare([](ScriptedProvider& p) { p.answerList("getTargets", {0, 1}); });
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkSolverType : Empty solver type"}));
  EXPECT_EQ(result.warnings, Texts({kMultipleTargets}));
  EXPECT_EQ(selections(), selected({{1, 0, -1}, {1, 1, -1}}));
}

// --- Check levels -------------------------------------------------------------------------------

TEST_F(Walk, LooksAtNoMeshBelowCheckLevelOne) {
  for (const int level : {0, -1}) {
    transcript.clear();
    checker.setCheckLevel(level);
    EXPECT_TRUE(check().good);
    EXPECT_EQ(callsOf({"getMeshSize"}), Transcript());
  }
}

TEST_F(Walk, LooksAtTheMeshSizeFirstFromCheckLevelOne) {
  for (const int level : {1, 2, 3}) {
    transcript.clear();
    checker.setCheckLevel(level);
    check();
    const Transcript asked = callsOf({"setPartitionId", "getMeshSize"});
    ASSERT_GE(asked.size(), 5U);
    EXPECT_EQ(Transcript(asked.begin(), asked.begin() + 5),
              Transcript({"setPartitionId(-1)", "getMeshSize(0)", "getMeshSize(1)",
                          "getMeshSize(3)", "getMeshSize(4)"}));
  }
}

TEST_F(Walk, HasCheckLevelOneByDefault) {
  OrvChecker fresh;
  prepare([](ScriptedProvider& p) { p.answerList("getTargets", {1}); });
  EXPECT_EQ(check(fresh, file.path()).errors, Texts({"checkMeshSize : Invalid mesh dimension"}));
}

/// The label of each step line, the first of several in a row only.
Texts stepsOf(const std::string& out) {
  Texts steps;
  std::istringstream lines(out);
  for (std::string line; std::getline(lines, line);) {
    const std::string step =
        line.compare(0, 2, "- ") == 0 ? line.substr(2, line.find(" - ", 2) - 2) : "";
    if (!step.empty() && (steps.empty() || steps.back() != step)) {
      steps.push_back(step);
    }
  }
  return steps;
}

TEST_F(Walk, RunsItsChecksInOrder) {
  serve(cases::withPhysics());
  checker.setCheckLevel(1);
  checker.setVerbosity(3);
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(
      stepsOf(result.out),
      Texts({"checkVersion", "checkSolverType", "checkTopologyModel", "checkMeshSize",
             "checkMeshConnectivity", "checkPhysicsToMeshMapUsingTopologyModel", "checkDomain",
             "checkSubdomain", "checkBoundary", "checkInterface", "checkCellZoneConnectivityTypes",
             "checkNodeZones", "checkFaceZones", "checkCellZones", "checkCase"}));
}

TEST_F(Walk, RunsAllOtherStepsWithoutLocationModel) {
  serve(cases::withPhysics());
  checker.setCheckLevel(1);
  checker.setVerbosity(3);
  checker.setNoLM(true);
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(stepsOf(result.out),
            Texts({"checkVersion", "checkSolverType", "checkTopologyModel", "checkMeshSize",
                   "checkMeshConnectivity", "checkPhysicsToMeshMapUsingTopologyModel",
                   "checkCellZoneConnectivityTypes", "checkNodeZones", "checkFaceZones",
                   "checkCellZones", "checkCase"}));
  EXPECT_EQ(selections(), selected({{1, 0, -1}}));
}

}  // namespace
}  // namespace velto::testing
