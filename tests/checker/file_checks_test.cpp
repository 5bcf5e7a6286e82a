// SPDX-License-Identifier: Apache-2.0
//
// The file as a whole (version, solver type) and the sizes of a mesh. The library's version is
// 3.4.5 here.

#include <limits>

#include "testing/capture.h"
#include "tests/checker/CheckerFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

// --- Version ------------------------------------------------------------------------------------

struct VersionRow {
  const char* name;
  int major;
  int minor;
  int patch;
  bool goesOn;
  Texts errors;
  Texts warnings;
};

std::ostream& operator<<(std::ostream& out, const VersionRow& row) { return out << row.name; }

const std::vector<VersionRow>& versionRows() {
  static const std::vector<VersionRow> kRows = {
      {"PassesTheOwnVersion", 3, 4, 5, true, {}, {}},
      {"PassesAnOlderPatch", 3, 4, 4, true, {}, {}},
      {"WarnsOfANewerPatch",
       3,
       4,
       6,
       true,
       {},
       {"checkVersion : ORV patch version number is newer - compatibility might be limited"}},
      {"PassesANewerPatchOfAnOlderMinorVersion", 3, 3, 99, true, {}, {}},
      {"WarnsOfANewerMinorVersion",
       3,
       5,
       0,
       true,
       {},
       {"checkVersion : ORV Minor version number is newer - compatibility might be limited"}},
      {"WarnsOnceOfANewerMinorVersionWithANewerPatch",
       3,
       5,
       6,
       true,
       {},
       {"checkVersion : ORV Minor version number is newer - compatibility might be limited"}},
      {"PassesNegativeMinorAndPatchNumbers", 3, -1, -1, true, {}, {}},
      {"PassesAnOlderMajorVersionWithHugeOtherNumbers",
       2,
       std::numeric_limits<int>::max(),
       std::numeric_limits<int>::max(),
       true,
       {},
       {}},
      {"StopsWithAWarningAtANewerMajorVersion",
       4,
       0,
       0,
       false,
       {},
       {"checkVersion : ORV Major version number is newer - compatibility might be limited"}},
      {"ReportsAMajorVersionOfZero",
       0,
       9,
       9,
       false,
       {"checkVersion : ORV version number invalid"},
       {}},
      {"ReportsANegativeMajorVersion",
       -3,
       0,
       0,
       false,
       {"checkVersion : ORV version number invalid"},
       {}},
  };
  return kRows;
}

class CheckVersion : public CheckerFixture {
 protected:
  CheckVersion() { checker.setCheckLevel(0); }
};

class CheckVersionRows : public CheckVersion, public ::testing::WithParamInterface<VersionRow> {};

TEST_P(CheckVersionRows, Of) {
  const VersionRow& row = GetParam();
  prepare([&row](ScriptedProvider& p) { p.answerVersion(row.major, row.minor, row.patch); });
  const CheckResult result = check();
  EXPECT_EQ(result.good, row.goesOn);
  EXPECT_EQ(result.errors, row.errors);
  EXPECT_EQ(result.warnings, row.warnings);
  EXPECT_EQ(callsOf({"getSolverType"}),
            row.goesOn ? Transcript({"getSolverType()"}) : Transcript());
}

INSTANTIATE_TEST_SUITE_P(CheckVersion, CheckVersionRows, ::testing::ValuesIn(versionRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(CheckVersion, AsksForTheVersionOfTheCase) {
  check();
  EXPECT_EQ(callsOf({"getFileVersion"}), Transcript({"getFileVersion(0)"}));
}

TEST_F(CheckVersion, TakesAVersionThatTheLibraryLeftAloneAsInvalid) {
  const cases::CasePtr unversioned = cases::oneHex();
  unversioned->tables.version.reset();
  serve(unversioned);
  EXPECT_EQ(check().errors, Texts({"checkVersion : ORV version number invalid"}));
}

TEST_F(CheckVersion, ShowsTheVersionFromVerbosityTwo) {
  prepare([](ScriptedProvider& p) { p.answerVersion(0, -2, 7); });
  checker.setVerbosity(1);
  EXPECT_EQ(check().out, "");
  checker.setVerbosity(2);
  EXPECT_EQ(check().out, "Version: 0.-2.7\n");
}

TEST_F(CheckVersion, DoesNotCollectTheLibrarysMessagesAtANewerMajorVersion) {
  prepare([](ScriptedProvider& p) {
    p.answerVersion(4, 0, 0);
    failOn(p, "getFileVersion");
  });
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(callsOf({"hasWarning", "hasError"}), Transcript());
}

TEST_F(CheckVersion, DoesNotCollectTheLibrarysMessagesAtAnInvalidVersion) {
  prepare([](ScriptedProvider& p) {
    p.answerVersion(0, 0, 0);
    failOn(p, "getFileVersion");
  });
  EXPECT_EQ(check().errors, Texts({"checkVersion : ORV version number invalid"}));
}

TEST_F(CheckVersion, StopsTheRunAtALibraryErrorOfAGoodVersion) {
  prepare([](ScriptedProvider& p) {
    p.on("getFileVersion", [](base::CaseCore& core) {
      core.messages.addWarning("slow disk");
      core.messages.addError("disk gone");
    });
  });
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkVersion : ORV - disk gone"}));
  EXPECT_EQ(result.warnings, Texts({"checkVersion : ORV - slow disk"}));
  EXPECT_EQ(callsOf({"getSolverType"}), Transcript());
}

TEST_F(CheckVersion, AcceptsACaseWithoutAFile) {
  EXPECT_TRUE(checker_access::checkVersion(checker, dataClassCase));
  EXPECT_EQ(checker.getErrors(), Texts());
  EXPECT_EQ(checker.getWarnings(),
            Texts({"checkVersion : Not a OrvFileIO source - cannot check version number"}));
}

// --- Solver type --------------------------------------------------------------------------------

struct SolverTypeRow {
  const char* name;
  const char* solverType;
  Texts errors;
  Texts warnings;
};

std::ostream& operator<<(std::ostream& out, const SolverTypeRow& row) { return out << row.name; }

const std::vector<SolverTypeRow>& solverTypeRows() {
  static const std::vector<SolverTypeRow> kRows = {
      {"PassesAKnownPrefix", "VELTO_FLUID", {}, {}},
      {"PassesThePrefixAlone", "VELTO_", {}, {}},
      {"WarnsOfTheGenericType",
       "ORV_GENERIC",
       {},
       {"checkSolverType : File with undefined / ORV_GENERIC solver type"}},
      {"ReportsAnEmptyType", "", {"checkSolverType : Empty solver type"}, {}},
      {"WarnsOfAnotherType", "OTHER", {}, {"checkSolverType : File with unknown solver type"}},
      {"WarnsOfTheGenericTypeWithMoreBehindIt",
       "ORV_GENERIC2",
       {},
       {"checkSolverType : File with unknown solver type"}},
      {"WarnsOfThePrefixFurtherIn",
       "XVELTO_FLUID",
       {},
       {"checkSolverType : File with unknown solver type"}},
      {"WarnsOfATextShorterThanThePrefix",
       "VELTO",
       {},
       {"checkSolverType : File with unknown solver type"}},
      {"WarnsOfThePrefixInSmallLetters",
       "velto_fluid",
       {},
       {"checkSolverType : File with unknown solver type"}},
  };
  return kRows;
}

class CheckSolverTypeRows : public CheckerFixture,
                            public ::testing::WithParamInterface<SolverTypeRow> {};

TEST_P(CheckSolverTypeRows, Of) {
  const cases::CasePtr damaged = cases::oneHex();
  damaged->tables.solverType = GetParam().solverType;
  serve(damaged);
  checker.setCheckLevel(0);
  const CheckResult result = check();
  EXPECT_EQ(result.good, GetParam().errors.empty());
  EXPECT_EQ(result.errors, GetParam().errors);
  EXPECT_EQ(result.warnings, GetParam().warnings);
  EXPECT_EQ(callsOf({"getMeshIds"}), Transcript({"getMeshIds(0)"}));
  EXPECT_TRUE(checker_access::checkSolverType(checker));
}

INSTANTIATE_TEST_SUITE_P(CheckSolverType, CheckSolverTypeRows,
                         ::testing::ValuesIn(solverTypeRows()),
                         [](const auto& row) { return std::string(row.param.name); });

// --- Mesh size ----------------------------------------------------------------------------------

struct MeshSizeRow {
  const char* name;
  std::uint64_t dimension;
  std::uint64_t nodes;
  std::uint64_t faces;
  std::uint64_t cells;
  bool result;
  Texts errors;
  std::string out;  // at verbosity 2
};

std::ostream& operator<<(std::ostream& out, const MeshSizeRow& row) { return out << row.name; }

const std::vector<MeshSizeRow>& meshSizeRows() {
  const std::uint64_t huge = std::numeric_limits<std::uint64_t>::max();
  static const std::vector<MeshSizeRow> kRows = {
      {"PassesAMeshOfThreeDimensions", 3, 8, 6, 1, true, {}, "Size: nodes 8 faces 6 cells 1\n"},
      {"PassesAMeshOfTwoDimensions", 2, 4, 4, 1, true, {}, "Size: nodes 4 faces 4 cells 1\n"},
      {"PassesAnEmptyMesh", 2, 0, 0, 0, true, {}, "Size: nodes 0 faces 0 cells 0\n"},
      {"PassesNodesAlone", 3, 8, 0, 0, true, {}, "Size: nodes 8 faces 0 cells 0\n"},
      {"PassesHugeCounts",
       3,
       huge,
       huge,
       huge,
       true,
       {},
       "Size: nodes 18446744073709551615 faces 18446744073709551615 cells 18446744073709551615\n"},
      {"ReportsDimensionOne", 1, 8, 6, 1, false, {"checkMeshSize : Invalid mesh dimension"}, ""},
      {"ReportsDimensionFour", 4, 8, 6, 1, false, {"checkMeshSize : Invalid mesh dimension"}, ""},
      {"ReportsADimensionThatIsTwoInItsLowBits",
       (std::uint64_t{1} << 32U) + 2,
       8,
       6,
       1,
       false,
       {"checkMeshSize : Invalid mesh dimension"},
       ""},
      {"ReportsFacesWithoutNodes",
       3,
       0,
       6,
       0,
       true,
       {"checkMeshSize : The mesh has cell/faces but no nodes"},
       "Size: nodes 0 faces 6 cells 0\n"},
      {"ReportsCellsWithoutNodes",
       3,
       0,
       0,
       1,
       true,
       {"checkMeshSize : The mesh has cell/faces but no nodes"},
       "Size: nodes 0 faces 0 cells 1\n"},
      {"ReportsFacesAndCellsWithoutNodesOnce",
       3,
       0,
       6,
       1,
       true,
       {"checkMeshSize : The mesh has cell/faces but no nodes"},
       "Size: nodes 0 faces 6 cells 1\n"},
  };
  return kRows;
}

using CheckMeshSize = CheckerFixture;

class CheckMeshSizeRows : public CheckMeshSize,
                          public ::testing::WithParamInterface<MeshSizeRow> {};

TEST_P(CheckMeshSizeRows, Of) {
  const MeshSizeRow& row = GetParam();
  const cases::CasePtr damaged = cases::oneHex();
  auto& sizes = damaged->mesh().sizes;
  sizes[meshDimension] = row.dimension;
  sizes[meshNodeCount] = row.nodes;
  sizes[meshFaceCount] = row.faces;
  sizes[meshCellCount] = row.cells;
  open(damaged);
  checker.setVerbosity(2);
  const StreamCapture streams;
  EXPECT_EQ(checker_access::checkMeshSize(checker), row.result);
  EXPECT_EQ(streams.out(), row.out);
  EXPECT_EQ(checker.getErrors(), row.errors);
  EXPECT_EQ(checker.getWarnings(), Texts());
}

INSTANTIATE_TEST_SUITE_P(CheckMeshSize, CheckMeshSizeRows, ::testing::ValuesIn(meshSizeRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(CheckMeshSize, TakesADimensionThatTheLibraryLeftAloneAsInvalid) {
  const cases::CasePtr damaged = cases::oneHex();
  damaged->mesh().sizes[meshDimension].reset();
  open(damaged);
  EXPECT_FALSE(checker_access::checkMeshSize(checker));
  EXPECT_EQ(checker.getErrors(), Texts({"checkMeshSize : Invalid mesh dimension"}));
  EXPECT_EQ(calls(), Transcript({"getMeshSize(0)"}));
}

TEST_F(CheckMeshSize, TakesCountsThatTheLibraryLeftAloneAsZero) {
  const cases::CasePtr damaged = cases::oneHex();
  damaged->mesh().sizes = {};
  damaged->mesh().sizes[meshDimension] = 3;
  open(damaged);
  EXPECT_TRUE(checker_access::checkMeshSize(checker));
  EXPECT_EQ(checker.getErrors(), Texts());
  EXPECT_EQ(calls(),
            Transcript({"getMeshSize(0)", "getMeshSize(1)", "getMeshSize(3)", "getMeshSize(4)"}));
}

TEST_F(CheckMeshSize, ShowsNothingAtVerbosityOne) {
  open(cases::oneHex());
  const StreamCapture streams;
  EXPECT_TRUE(checker_access::checkMeshSize(checker));
  EXPECT_EQ(streams.out(), "");
}

TEST_F(CheckMeshSize, StopsTheWalkAtAnInvalidDimension) {
  const cases::CasePtr damaged = cases::oneHex();
  damaged->mesh().sizes[meshDimension] = 1;
  serve(damaged);
  prepare([](ScriptedProvider& p) {
    p.answerList("getMeshIds", {1, 2});
    p.answerList("getTargets", {0, 1});
  });
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkMeshSize : Invalid mesh dimension"}));
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(callsOf({"setMeshId", "setTarget", "setPartitionId", "getMeshSize"}),
            Transcript({"setMeshId(1)", "setTarget(0)", "setPartitionId(-1)", "getMeshSize(0)"}));
}

}  // namespace
}  // namespace velto::testing
