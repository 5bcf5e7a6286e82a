// SPDX-License-Identifier: Apache-2.0
//
// Which zones bound which: the relation between the zones of a mesh, judged and listed.

#include <functional>

#include "embedded/memory/CaseBuilder.h"
#include "testing/capture.h"
#include "tests/checker/CheckerFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using cases::kPostMesh;

struct RelationRow {
  const char* name;
  cases::CasePtr (*make)();
  std::function<void(memory::Case&)> damage;
  Texts errors;
};

std::ostream& operator<<(std::ostream& out, const RelationRow& row) { return out << row.name; }

/// twoBodies() has the face zones 2, 3, 4 around the cell zones 5 and 6.
const std::vector<RelationRow>& relationRows() {
  static const std::vector<RelationRow> kRows = {
      {"PassesASoundRelation", cases::twoBodies, [](memory::Case&) {}, {}},
      {"PassesAFaceZoneThatBoundsNothing",
       cases::twoBodies,
       [](memory::Case& c) { c.zone(3).sideCellZones = {}; },
       {}},
      {"PassesACellZoneThatNoFaceZoneNamesInReturn",
       cases::twoBodies,
       [](memory::Case& c) { c.zone(5).boundingFaceZones = {4}; },
       {}},
      {"PassesAnEntryThatIsThereTwice",
       cases::twoBodies,
       [](memory::Case& c) {
         c.zone(5).boundingFaceZones = {2, 2};
       },
       {}},
      {"ReportsACellZoneWithoutFaceZones",
       cases::twoBodies,
       [](memory::Case& c) { c.zone(6).boundingFaceZones.clear(); },
       {"checkMeshConnectivity : No face zones bound cell zone [6]"}},
      {"ReportsAFaceZoneThatDoesNotExist",
       cases::twoBodies,
       [](memory::Case& c) {
         c.zone(5).boundingFaceZones = {2, 9, 8};
       },
       {"checkMeshConnectivity : Cell zone [5] is bounded by a Face zone [9] that doesn't exist."}},
      {"ReportsACellZoneInPlaceOfAFaceZone",
       cases::twoBodies,
       [](memory::Case& c) { c.zone(6).boundingFaceZones = {5}; },
       {"checkMeshConnectivity : Cell zone [6] is bounded by a Face zone [5] that doesn't exist."}},
      {"ReportsAFaceZoneOfNegativeId",
       cases::twoBodies,
       [](memory::Case& c) { c.zone(5).boundingFaceZones = {-2}; },
       {"checkMeshConnectivity : Cell zone [5] is bounded by a Face zone [-2] that doesn't exist."}},
      {"ReportsTheFirstBadCellZoneOnly",
       cases::twoBodies,
       [](memory::Case& c) {
         c.zone(5).boundingFaceZones.clear();
         c.zone(6).boundingFaceZones.clear();
         c.zone(2).sideCellZones[0] = {7};
       },
       {"checkMeshConnectivity : No face zones bound cell zone [5]"}},
      {"ReportsACellZoneThatDoesNotExistOnSideZero",
       cases::twoBodies,
       [](memory::Case& c) {
         c.zone(3).sideCellZones[0] = {5, 7, 8};
       },
       {"checkMeshConnectivity : Face zone [3] bounds Cell zone [7] that doesn't exist."}},
      {"ReportsACellZoneThatDoesNotExistOnSideOne",
       cases::twoBodies,
       [](memory::Case& c) { c.zone(4).sideCellZones[1] = {-1}; },
       {"checkMeshConnectivity : Face zone [4] bounds Cell zone [-1] that doesn't exist."}},
      {"ReportsSideZeroOfAllZonesBeforeSideOne",
       cases::twoBodies,
       [](memory::Case& c) {
         c.zone(2).sideCellZones[1] = {7};
         c.zone(4).sideCellZones[0] = {8};
       },
       {"checkMeshConnectivity : Face zone [4] bounds Cell zone [8] that doesn't exist."}},
      {"PassesAPostTargetWithoutRelation", cases::postHex, [](memory::Case&) {}, {}},
      {"ReportsAPostCellZoneThatIsBounded",
       cases::postHex,
       [](memory::Case& c) { c.zone(3, kPostMesh).boundingFaceZones = {2}; },
       {"checkMeshConnectivity : Cell zone [3] is bounded by Face zones in ORV Post mesh (1)."}},
      {"ReportsAPostCellZoneThatIsBoundedByNoFaceZone",
       cases::postHex,
       [](memory::Case& c) { c.zone(3, kPostMesh).boundingFaceZones = {77}; },
       {"checkMeshConnectivity : Cell zone [3] is bounded by Face zones in ORV Post mesh (1)."}},
      {"ReportsAPostFaceZoneThatBounds",
       cases::postHex,
       [](memory::Case& c) { c.zone(2, kPostMesh).sideCellZones[0] = {3}; },
       {"checkMeshConnectivity : Face zone [2] found to bound cell zones in a ORV Post mesh (1)."}},
      {"ReportsAPostFaceZoneThatBoundsOnSideOne",
       cases::postHex,
       [](memory::Case& c) { c.zone(2, kPostMesh).sideCellZones[1] = {77}; },
       {"checkMeshConnectivity : Face zone [2] found to bound cell zones in a ORV Post mesh (1)."}},
      {"NamesThePartitionOfABoundedCellZone",
       cases::withPartitions,
       [](memory::Case& c) {
         c.zone(3, {1, targetPartitionedPost, 1}).boundingFaceZones = {2};
       },
       {"checkMeshConnectivity : Cell zone [3] is bounded by Face zones in ORV Partitioned Post mesh (1) and partition (1)."}},
      {"NamesThePartitionOfABoundingFaceZone",
       cases::withPartitions,
       [](memory::Case& c) {
         c.zone(2, {1, targetPartitionedPost, 0}).sideCellZones[0] = {3};
       },
       {"checkMeshConnectivity : Face zone [2] found to bound cell zones in a ORV Partitioned Post mesh (1) and partition (0)."}},
  };
  return kRows;
}

class MeshConnectivityRows : public ZoneChecksFixture,
                             public ::testing::WithParamInterface<RelationRow> {};

TEST_P(MeshConnectivityRows, Of) {
  const RelationRow& row = GetParam();
  const cases::CasePtr damaged = row.make();
  row.damage(*damaged);
  serve(damaged);
  const CheckResult result = check();
  EXPECT_EQ(result.good, row.errors.empty());
  EXPECT_EQ(result.errors, row.errors);
  EXPECT_EQ(result.warnings, Texts());
  const StreamCapture streams;
  EXPECT_EQ(checker_access::checkMeshConnectivity(checker), row.errors.empty());
}

INSTANTIATE_TEST_SUITE_P(MeshConnectivity, MeshConnectivityRows,
                         ::testing::ValuesIn(relationRows()),
                         [](const auto& row) { return std::string(row.param.name); });

class MeshConnectivity : public ZoneChecksFixture {
 protected:
  Transcript relationCalls() const {
    return callsOf({"getCellFaceZoneIds", "getFaceCellZone0Ids", "getFaceCellZone1Ids"});
  }
};

TEST_F(MeshConnectivity, AsksInOrder) {
  open(cases::oneHex());
  EXPECT_TRUE(checker_access::checkMeshConnectivity(checker));
  EXPECT_EQ(calls(),
            Transcript({"getTarget()", "getZoneIds(3)", "getZoneIds(2)", "getCellFaceZoneIds(3)",
                        "hasWarning()", "hasError()", "getFaceCellZone0Ids(2)", "hasWarning()",
                        "hasError()", "getFaceCellZone1Ids(2)", "hasWarning()", "hasError()"}));
}

TEST_F(MeshConnectivity, GoesThroughAllZonesOfEachList) {
  open(cases::twoBodies());
  EXPECT_TRUE(checker_access::checkMeshConnectivity(checker));
  EXPECT_EQ(relationCalls(), Transcript({"getCellFaceZoneIds(5)", "getCellFaceZoneIds(6)",
                                         "getFaceCellZone0Ids(2)", "getFaceCellZone0Ids(3)",
                                         "getFaceCellZone0Ids(4)", "getFaceCellZone1Ids(2)",
                                         "getFaceCellZone1Ids(3)", "getFaceCellZone1Ids(4)"}));
}

TEST_F(MeshConnectivity, PassesAMeshWithoutZones) {
  open(memory::CaseBuilder().build());
  checker.setVerbosity(3);
  const StreamCapture streams;
  EXPECT_TRUE(checker_access::checkMeshConnectivity(checker));
  EXPECT_EQ(streams.out(),
            "- checkMeshConnectivity - init\n"
            "- checkMeshConnectivity - getCellFaceZoneIds\n"
            "- checkMeshConnectivity - getFaceCellZone0Ids\n"
            "- checkMeshConnectivity - getFaceCellZone1Ids\n");
}

TEST_F(MeshConnectivity, EndsTheWalkAtTheFirstBadEntry) {
  const cases::CasePtr damaged = cases::twoBodies();
  damaged->zone(5).boundingFaceZones.clear();
  serve(damaged);
  prepare([](ScriptedProvider& p) {
    p.answerList("getMeshIds", {1, 2});
    p.answerList("getTargets", {0, 1});
  });
  checker.setVerbosity(3);
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkMeshConnectivity : No face zones bound cell zone [5]"}));
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(result.out,
            "- checkVersion - getFileVersion\n"
            "Version: 3.4.5\n"
            "- checkSolverType - getSolverType\n"
            "- checkTopologyModel - Checking for location model.\n"
            "Processing mesh : 1\n"
            "Processing target : 0\n"
            "- checkMeshSize - getMeshSize\n"
            "Size: nodes 12 faces 11 cells 2\n"
            "- checkMeshConnectivity - init\n"
            "- checkMeshConnectivity - getCellFaceZoneIds\n");
  EXPECT_EQ(selections(), selected({{1, 0, -1}}));
}

TEST_F(MeshConnectivity, EndsAtALibraryErrorOfACellZoneOfARestartTarget) {
  serve(cases::twoBodies());
  prepare([](ScriptedProvider& p) { failOn(p, "getCellFaceZoneIds(5)"); });
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkMeshConnectivity : ORV - disk gone"}));
  EXPECT_EQ(relationCalls(), Transcript({"getCellFaceZoneIds(5)"}));
}

TEST_F(MeshConnectivity, GoesOnAfterALibraryErrorOfACellZoneOfAPostTarget) {
  serve(cases::postHex());
  prepare([](ScriptedProvider& p) { failOn(p, "getCellFaceZoneIds(3)"); });
  checker.setVerbosity(3);
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkMeshConnectivity : ORV - disk gone"}));
  EXPECT_EQ(relationCalls(), Transcript({"getCellFaceZoneIds(3)", "getFaceCellZone0Ids(2)",
                                         "getFaceCellZone1Ids(2)"}));
  EXPECT_NE(result.out.find("- checkCase - availableTargets\n"), std::string::npos);
}

TEST_F(MeshConnectivity, ReportsABoundedPostCellZoneAfterALibraryError) {
  const cases::CasePtr damaged = cases::postHex();
  damaged->zone(3, kPostMesh).boundingFaceZones = {2};
  serve(damaged);
  prepare([](ScriptedProvider& p) { failOn(p, "getCellFaceZoneIds(3)"); });
  EXPECT_EQ(
      check().errors,
      Texts(
          {"checkMeshConnectivity : ORV - disk gone",
           "checkMeshConnectivity : Cell zone [3] is bounded by Face zones in ORV Post mesh (1)."}));
}

TEST_F(MeshConnectivity, EndsAtALibraryErrorOfAFaceZoneOfEveryTarget) {
  for (const cases::CasePtr& served : {cases::oneHex(), cases::postHex()}) {
    for (const char* const call : {"getFaceCellZone0Ids(2)", "getFaceCellZone1Ids(2)"}) {
      OrvChecker fresh;
      serve(served);
      prepare([call](ScriptedProvider& p) { failOn(p, call); });
      transcript.clear();
      const CheckResult result = check(fresh, file.path());
      EXPECT_FALSE(result.good);
      EXPECT_EQ(result.errors, Texts({"checkMeshConnectivity : ORV - disk gone"}));
      EXPECT_EQ(relationCalls().back(), call);
      EXPECT_EQ(callsOf({"beginCellNodes"}), Transcript());
    }
  }
}

TEST_F(MeshConnectivity, GoesOnAfterALibraryWarning) {
  serve(cases::oneHex());
  prepare([](ScriptedProvider& p) {
    p.on("getFaceCellZone0Ids(2)",
         [](base::CaseCore& core) { core.messages.addWarning("slow disk"); });
  });
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.warnings, Texts({"checkMeshConnectivity : ORV - slow disk"}));
}

TEST_F(MeshConnectivity, FillsAFreshListForEachZone) {
  // The library leaves the list alone for a zone that it does not know.
  prepare([](ScriptedProvider& p) { p.answerList("getZoneIds(3)", {5, 99}); });
  open(cases::twoBodies());
  EXPECT_FALSE(checker_access::checkMeshConnectivity(checker));
  EXPECT_EQ(checker.getErrors(),
            Texts({"checkMeshConnectivity : No face zones bound cell zone [99]"}));
}

TEST_F(MeshConnectivity, ListsNothingAtVerbosityOne) {
  open(cases::twoBodies());
  const StreamCapture streams;
  EXPECT_TRUE(checker_access::checkMeshConnectivity(checker));
  EXPECT_EQ(streams.out(), "");
  EXPECT_EQ(callsOf({"getZoneStringInfo"}), Transcript());
}

TEST_F(MeshConnectivity, ListsAllFaceZonesForEachCellZoneFromVerbosityTwo) {
  open(cases::twoBodies());
  checker.setVerbosity(2);
  const StreamCapture streams;
  EXPECT_TRUE(checker_access::checkMeshConnectivity(checker));
  EXPECT_EQ(streams.out(),
            "Cell Zone: fluid [5] is bounded by: \n"
            "  between [2]\n"
            "  fluid walls [3]\n"
            "  solid walls [4]\n"
            "Cell Zone: solid [6] is bounded by: \n"
            "  between [2]\n"
            "  fluid walls [3]\n"
            "  solid walls [4]\n"
            "Face Zone: between [2] bounds: \n"
            "  fluid [5]\n"
            "Face Zone: fluid walls [3] bounds: \n"
            "  fluid [5]\n"
            "Face Zone: solid walls [4] bounds: \n"
            "  solid [6]\n"
            "Face Zone: between [2] bounds: \n"
            "  solid [6]\n");
}

TEST_F(MeshConnectivity, ListsEntriesInTheOrderOfTheLibraryAndNamesAsTheyStand) {
  const cases::CasePtr changed = cases::twoBodies();
  changed->zone(2).sideCellZones[0] = {6, 5, 6};
  changed->zone(2).texts[zoneName] = "";
  changed->zone(5).texts[zoneName].reset();
  open(changed);
  checker.setVerbosity(2);
  const StreamCapture streams;
  EXPECT_TRUE(checker_access::checkMeshConnectivity(checker));
  EXPECT_NE(streams.out().find("Face Zone:  [2] bounds: \n"
                               "  solid [6]\n"
                               "   [5]\n"
                               "  solid [6]\n"),
            std::string::npos)
      << streams.out();
}

TEST_F(MeshConnectivity, AsksForNamesInTheOrderOfTheLines) {
  open(cases::oneHex());
  checker.setVerbosity(2);
  const StreamCapture streams;
  EXPECT_TRUE(checker_access::checkMeshConnectivity(checker));
  EXPECT_EQ(
      callsOf({"getCellFaceZoneIds", "getFaceCellZone0Ids", "getFaceCellZone1Ids",
               "getZoneStringInfo"}),
      Transcript({"getCellFaceZoneIds(3)", "getZoneStringInfo(3, 0)", "getZoneStringInfo(2, 0)",
                  "getFaceCellZone0Ids(2)", "getZoneStringInfo(2, 0)", "getZoneStringInfo(3, 0)",
                  "getFaceCellZone1Ids(2)"}));
}

}  // namespace
}  // namespace velto::testing
