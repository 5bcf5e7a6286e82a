// SPDX-License-Identifier: Apache-2.0
//
// The frame of the checker: the log, what is shown at which verbosity, the step display, and how
// the library's messages are taken over.

#include "testing/capture.h"
#include "tests/checker/CheckerFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

// --- The log ------------------------------------------------------------------------------------

class Log : public CheckerFixture {
 protected:
  Log() { checker.setCheckLevel(0); }

  void serveSolverType(const std::string& solverType) {
    const cases::CasePtr changed = cases::oneHex();
    changed->tables.solverType = solverType;
    serve(changed);
  }
};

TEST_F(Log, EchoesAnErrorWithAColonAndRecordsItWithABlankBeforeIt) {
  serveSolverType("");
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.err, "Error: checkSolverType: Empty solver type\n");
  EXPECT_EQ(result.errors, Texts({"checkSolverType : Empty solver type"}));
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(result.out, "");
}

TEST_F(Log, EchoesAWarningWithAColonAndRecordsItWithABlankBeforeIt) {
  serveSolverType("OTHER");
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.err, "Warning: checkSolverType: File with unknown solver type\n");
  EXPECT_EQ(result.warnings, Texts({"checkSolverType : File with unknown solver type"}));
  EXPECT_EQ(result.errors, Texts());
}

TEST_F(Log, HasAnEmptyLabelBeforeTheFirstStep) {
  const CheckResult result = check(checker, file.path() + ".absent");
  EXPECT_EQ(result.errors, Texts({" : Error: No such file / unreadable"}));
  EXPECT_EQ(result.err, "Error: : Error: No such file / unreadable\n");
}

TEST_F(Log, KeepsTheLabelOfTheLastRun) {
  check();
  const CheckResult result = check(checker, file.path() + ".absent");
  EXPECT_EQ(result.errors, Texts({"checkCase : Error: No such file / unreadable"}));
  EXPECT_EQ(result.err, "Error: checkCase: Error: No such file / unreadable\n");
}

TEST_F(Log, KeepsEqualMessages) {
  serveSolverType("");
  check();
  const CheckResult second = check();
  EXPECT_EQ(second.errors,
            Texts({"checkSolverType : Empty solver type", "checkSolverType : Empty solver type"}));
}

TEST_F(Log, StaysFalseWithTheErrorsOfAnEarlierRun) {
  serveSolverType("");
  check();
  serveSolverType("VELTO_GENERIC");
  EXPECT_FALSE(check().good);
}

TEST_F(Log, HandsOutItsListsLive) {
  const Texts& errors = checker.getErrors();
  const Texts& warnings = checker.getWarnings();
  serveSolverType("");
  check();
  serveSolverType("OTHER");
  check();
  EXPECT_EQ(errors, Texts({"checkSolverType : Empty solver type"}));
  EXPECT_EQ(warnings, Texts({"checkSolverType : File with unknown solver type"}));
}

struct LevelRow {
  const char* name;
  int level;
  int verbosity;
  bool echoed;
};

std::ostream& operator<<(std::ostream& out, const LevelRow& row) { return out << row.name; }

class LogLevels : public ::testing::TestWithParam<LevelRow> {};

TEST_P(LogLevels, Of) {
  OrvChecker checker;
  checker.setVerbosity(GetParam().verbosity);
  const StreamCapture streams;
  checker_access::addError(checker, GetParam().level, "bad");
  checker_access::addWarning(checker, GetParam().level, "odd");
  EXPECT_EQ(streams.err(), GetParam().echoed ? "Error: : bad\nWarning: : odd\n" : "");
  EXPECT_EQ(checker.getErrors(), Texts({" : bad"}));
  EXPECT_EQ(checker.getWarnings(), Texts({" : odd"}));
}

INSTANTIATE_TEST_SUITE_P(Log, LogLevels,
                         ::testing::Values(LevelRow{"EchoesAtItsOwnVerbosity", 1, 1, true},
                                           LevelRow{"EchoesAtAHigherVerbosity", 1, 4, true},
                                           LevelRow{"IsSilentAtALowerVerbosity", 2, 1, false},
                                           LevelRow{"ComparesSigned", 0, -1, false},
                                           LevelRow{"EchoesAtEqualNegatives", -1, -1, true}),
                         [](const auto& row) { return std::string(row.param.name); });

// --- What is shown ------------------------------------------------------------------------------

class Verbosity : public Log {
 protected:
  /// A file of two target categories with an unknown solver type.
  CheckResult checkAt(int verbosity) {
    serveSolverType("OTHER");
    prepare([](ScriptedProvider& p) {
      p.answerList("getTargets", {0, 2});
      p.answerList("getPartitionIds", {5});
    });
    checker.setVerbosity(verbosity);
    return check();
  }

  const std::string echo_ =
      "Warning: checkSolverType: File with unknown solver type\n"
      "Warning: checkCase: ORV file with multiple target types - support is limited\n";
  const Texts warnings_ = {"checkSolverType : File with unknown solver type",
                           "checkCase : ORV file with multiple target types - support is limited"};
};

TEST_F(Verbosity, ZeroShowsNothing) {
  const CheckResult result = checkAt(0);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.warnings, warnings_);
}

TEST_F(Verbosity, LessThanZeroShowsNothing) {
  const CheckResult result = checkAt(-1);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.warnings, warnings_);
}

TEST_F(Verbosity, OneShowsMessagesOnly) {
  const CheckResult result = checkAt(1);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, echo_);
}

TEST_F(Verbosity, OneIsTheDefault) {
  serveSolverType("OTHER");
  const CheckResult result = check();
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "Warning: checkSolverType: File with unknown solver type\n");
}

TEST_F(Verbosity, TwoShowsDetails) {
  const CheckResult result = checkAt(2);
  EXPECT_EQ(result.out,
            "Version: 3.4.5\n"
            "Processing mesh : 1\n"
            "Processing target : 0\n"
            "Processing target : 2\n"
            "Processing partition : 5\n");
  EXPECT_EQ(result.err, echo_);
}

TEST_F(Verbosity, ThreeShowsSteps) {
  const CheckResult result = checkAt(3);
  EXPECT_EQ(result.out,
            "- checkVersion - getFileVersion\n"
            "Version: 3.4.5\n"
            "- checkSolverType - getSolverType\n"
            "- checkTopologyModel - Checking for location model.\n"
            "Processing mesh : 1\n"
            "Processing target : 0\n"
            "Processing target : 2\n"
            "Processing partition : 5\n"
            "- checkCase - availableTargets\n");
  EXPECT_EQ(result.err, echo_);
}

TEST_F(Verbosity, FourShowsTheSameOfTheFrame) {
  const std::string out = checkAt(3).out;
  EXPECT_EQ(checkAt(4).out, out);
}

TEST_F(Verbosity, ZeroWithABadFilePrintsNothingAndKeepsTheMessage) {
  checker.setVerbosity(0);
  const CheckResult result = check(checker, file.path() + ".absent");
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.errors, Texts({" : Error: No such file / unreadable"}));
}

// --- The step display ---------------------------------------------------------------------------

TEST(DisplayStep, WritesStepAndDetailFromVerbosityThree) {
  OrvChecker checker;
  checker.setVerbosity(3);
  const StreamCapture streams;
  checker_access::displayStep(checker, "checkFaces", "init");
  EXPECT_EQ(streams.out(), "- checkFaces - init\n");
}

TEST(DisplayStep, LeavesOutAnEmptyDetail) {
  OrvChecker checker;
  checker.setVerbosity(3);
  const StreamCapture streams;
  checker_access::displayStep(checker, "checkFaces", "");
  EXPECT_EQ(streams.out(), "- checkFaces\n");
}

TEST(DisplayStep, SetsTheLabelAtEveryVerbosity) {
  OrvChecker checker;
  checker.setVerbosity(0);
  const StreamCapture streams;
  checker_access::displayStep(checker, "checkFaces", "init");
  checker_access::addError(checker, 1, "bad");
  EXPECT_EQ(streams.out(), "");
  EXPECT_EQ(checker.getErrors(), Texts({"checkFaces : bad"}));
}

TEST(DisplayStep, WritesNothingAtVerbosityTwo) {
  OrvChecker checker;
  checker.setVerbosity(2);
  const StreamCapture streams;
  checker_access::displayStep(checker, "checkFaces", "init");
  EXPECT_EQ(streams.out(), "");
}

// --- The library's messages ---------------------------------------------------------------------

class CheckORVErrors : public Log {
 protected:
  /// A run in which the library has messages when the solver type is asked for.
  CheckResult checkWith(const std::function<void(base::Messages&)>& post) {
    prepare([post](ScriptedProvider& p) {
      p.on("getSolverType", [post](base::CaseCore& core) { post(core.messages); });
    });
    return check();
  }
};

TEST_F(CheckORVErrors, ReportsACheckerWithoutCase) {
  const StreamCapture streams;
  EXPECT_FALSE(checker_access::checkORVErrors(checker));
  EXPECT_EQ(checker.getErrors(), Texts({" : checkMessageState - internal error - null ref"}));
  EXPECT_EQ(streams.err(), "Error: : checkMessageState - internal error - null ref\n");
}

TEST_F(CheckORVErrors, TakesWarningsWithoutTheirPrefixAndGoesOn) {
  const CheckResult result = checkWith([](base::Messages& messages) {
    messages.addWarning("slow disk");
    messages.addWarning("old index");
  });
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.warnings,
            Texts({"checkSolverType : ORV - slow disk", "checkSolverType : ORV - old index"}));
  EXPECT_EQ(result.err,
            "Warning: checkSolverType: ORV - slow disk\n"
            "Warning: checkSolverType: ORV - old index\n");
}

TEST_F(CheckORVErrors, TakesErrorsWithoutTheirPrefixAndStops) {
  const CheckResult result = checkWith([](base::Messages& messages) {
    messages.addError("disk gone");
    messages.addError("index gone");
  });
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors,
            Texts({"checkSolverType : ORV - disk gone", "checkSolverType : ORV - index gone"}));
  EXPECT_EQ(result.err,
            "Error: checkSolverType: ORV - disk gone\n"
            "Error: checkSolverType: ORV - index gone\n");
  EXPECT_EQ(callsOf({"getMeshIds"}), Transcript());
}

TEST_F(CheckORVErrors, TakesWarningsBeforeErrors) {
  const CheckResult result = checkWith([](base::Messages& messages) {
    messages.addError("disk gone");
    messages.addWarning("slow disk");
  });
  EXPECT_EQ(result.err,
            "Warning: checkSolverType: ORV - slow disk\n"
            "Error: checkSolverType: ORV - disk gone\n");
}

TEST_F(CheckORVErrors, CutsAPrefixOffTheStartOnlyAndOnlyOnce) {
  const CheckResult result = checkWith([](base::Messages& messages) {
    messages.addWarning("disk: Warning:\n\tslow");
    messages.addWarning("Warning:\n\ttwice");
    messages.addWarning("Error:\n\tof the other kind");
    messages.addError("disk: Error:\n\tgone");
    messages.addError("Error:\n\ttwice");
    messages.addError("");
  });
  EXPECT_EQ(result.warnings, Texts({"checkSolverType : ORV - disk: Warning:\n\tslow",
                                    "checkSolverType : ORV - Warning:\n\ttwice",
                                    "checkSolverType : ORV - Error:\n\tof the other kind"}));
  EXPECT_EQ(result.errors,
            Texts({"checkSolverType : ORV - disk: Error:\n\tgone",
                   "checkSolverType : ORV - Error:\n\ttwice", "checkSolverType : ORV - "}));
}

TEST_F(CheckORVErrors, FetchesWithBothFlagsAndOnlyWhatIsPending) {
  checkWith([](base::Messages& messages) { messages.addWarning("slow disk"); });
  EXPECT_EQ(callsOf({"getWarnings", "getErrors"}), Transcript({"getWarnings(true, true)"}));
}

TEST_F(CheckORVErrors, TakesEachMessageOnce) {
  const CheckResult result =
      checkWith([](base::Messages& messages) { messages.addWarning("slow disk"); });
  EXPECT_EQ(result.warnings, Texts({"checkSolverType : ORV - slow disk"}));
}

TEST_F(CheckORVErrors, IgnoresErrorsOfTheChecksThemselves) {
  serveSolverType("");
  const CheckResult result = check();
  EXPECT_EQ(result.errors, Texts({"checkSolverType : Empty solver type"}));
  EXPECT_EQ(callsOf({"getMeshIds"}), Transcript({"getMeshIds(0)"}));
  EXPECT_TRUE(checker_access::checkORVErrors(checker));
}

// --- Where the walk is --------------------------------------------------------------------------

TEST(TargetName, KnowsThreeTargets) {
  EXPECT_EQ(checker_access::targetName(0), "ORV Restart");
  EXPECT_EQ(checker_access::targetName(1), "ORV Post");
  EXPECT_EQ(checker_access::targetName(2), "ORV Partitioned Post");
  EXPECT_EQ(checker_access::targetName(3), "Unknown");
  EXPECT_EQ(checker_access::targetName(-1), "Unknown");
}

class DescribeLocation : public CheckerFixture {
 protected:
  /// The location that a walk ends at, over one mesh 4 of the given target and partition 7.
  std::string after(int target) {
    prepare([target](ScriptedProvider& p) {
      p.answerList("getMeshIds", {4});
      p.answerList("getTargets", {target});
      p.answerList("getPartitionIds", {7});
    });
    checker.setCheckLevel(0);
    check();
    return checker_access::describeLocation(checker);
  }
};

TEST_F(DescribeLocation, NamesTargetAndMesh) {
  EXPECT_EQ(after(0), "ORV Restart mesh (4)");
  EXPECT_EQ(after(1), "ORV Post mesh (4)");
  EXPECT_EQ(after(9), "Unknown mesh (4)");
}

TEST_F(DescribeLocation, NamesThePartitionOfAPartitionedPostTarget) {
  EXPECT_EQ(after(2), "ORV Partitioned Post mesh (4) and partition (7)");
}

}  // namespace
}  // namespace velto::testing
