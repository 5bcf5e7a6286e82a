// SPDX-License-Identifier: Apache-2.0
//
// How the cells of each zone are described, and what one walk leaves for the next.

#include "embedded/memory/CaseBuilder.h"
#include "testing/capture.h"
#include "tests/checker/CheckerFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using base::MeshKey;
using cases::kPostMesh;

struct KindRow {
  const char* name;
  OrvTargetCategory target;
  std::vector<int> cellZones;
  std::vector<int> nodeZones;  // that list the nodes of their cells
  std::vector<int> faceZones;  // that list the faces of their cells
  std::vector<int> before;     // kinds and form that an earlier walk left
  int modeBefore;
  std::vector<int> kinds;
  int mode;
  Texts errors;
  Texts warnings;
};

std::ostream& operator<<(std::ostream& out, const KindRow& row) { return out << row.name; }

const std::vector<KindRow>& kindRows() {
  const std::string step = "checkCellZoneConnectivityTypes : ";
  static const std::vector<KindRow> kRows = {
      {"FaceNodeZones", targetRestart, {5, 6}, {}, {}, {}, 0, {2, 2}, 2, {}, {}},
      {"CellNodeZones", targetRestart, {5, 6}, {5, 6}, {}, {}, 0, {3, 3}, 3, {}, {}},
      {"FaceNodeAndCellNodeZones", targetRestart, {5, 6}, {6}, {}, {}, 0, {2, 3}, 4, {}, {}},
      {"ARestartZoneOfBothFamilies", targetRestart, {5, 6}, {5}, {5}, {}, 0, {1, 2}, 1, {}, {}},
      {"ARestartZoneThatListsFaces", targetRestart, {5}, {}, {5}, {}, 0, {1}, 1, {}, {}},
      {"RestartZonesForgetTheirEarlierKinds",
       targetRestart,
       {5, 6},
       {6},
       {},
       {4, 1},
       1,
       {2, 3},
       4,
       {},
       {}},
      {"NoZonesKeepTheForm", targetRestart, {}, {5}, {5}, {3, 3}, 3, {}, 3, {}, {}},
      {"NoZonesKeepAnUnsetForm", targetPost, {}, {}, {}, {}, 0, {}, 0, {}, {}},
      {"FamiliesInAnyOrder", targetRestart, {5, 6, 7}, {7, -3, 5}, {}, {}, 0, {3, 2, 3}, 4, {}, {}},
      {"PostCellNodeZones", targetPost, {5, 6}, {5, 6}, {}, {}, 0, {3, 3}, 3, {}, {}},
      {"PostZonesThatListFaces",
       targetPost,
       {5, 6},
       {},
       {6, 5},
       {},
       0,
       {4, 4},
       1,
       {},
       {step + "Polyhedral cell zone (5) doesn't have correct type.",
        step + "Polyhedral cell zone (6) doesn't have correct type."}},
      {"ANegativeIdWithItsSign",
       targetPost,
       {-4},
       {},
       {-4},
       {},
       0,
       {4},
       1,
       {},
       {step + "Polyhedral cell zone (-4) doesn't have correct type."}},
      {"APostZoneOfNoFamily",
       targetPost,
       {5, 6},
       {6},
       {},
       {},
       0,
       {1, 3},
       1,
       {step + "Cell zone [5] with  unexpected connectivity in ORV Post mesh (1)."},
       {}},
      {"APostZoneOfBothFamilies",
       targetPost,
       {5},
       {5},
       {5},
       {},
       0,
       {1},
       1,
       {step + "Cell zone [5] with  unexpected connectivity in ORV Post mesh (1)."},
       {}},
      {"EveryUnexpectedZone",
       targetPost,
       {5, -6},
       {},
       {},
       {},
       0,
       {1, 1},
       1,
       {step + "Cell zone [5] with  unexpected connectivity in ORV Post mesh (1).",
        step + "Cell zone [-6] with  unexpected connectivity in ORV Post mesh (1)."},
       {}},
      {"APartitionInItsText",
       targetPartitionedPost,
       {5},
       {},
       {},
       {},
       0,
       {1},
       1,
       {step +
        "Cell zone [5] with  unexpected connectivity in ORV Partitioned Post mesh (1) and partition (4)."},
       {}},
      {"APostZoneThatWasACellNodeZone", targetPost, {5}, {}, {}, {3}, 3, {3}, 3, {}, {}},
      {"APostZoneThatListedFacesBefore", targetPost, {5}, {}, {}, {4}, 1, {4}, 1, {}, {}},
      {"APostZoneThatWasAFaceNodeZone",
       targetPost,
       {5},
       {},
       {},
       {2},
       2,
       {1},
       1,
       {step + "Cell zone [5] with  unexpected connectivity in ORV Post mesh (1)."},
       {}},
      {"APostZoneThatListsFacesOnceMore",
       targetPost,
       {5},
       {},
       {5},
       {4},
       1,
       {1},
       1,
       {step + "Cell zone [5] with  unexpected connectivity in ORV Post mesh (1)."},
       {}},
      {"APostZoneThatListsFacesAfterAFaceNodeZone",
       targetPost,
       {5},
       {},
       {5},
       {2},
       2,
       {1},
       1,
       {step + "Cell zone [5] with  unexpected connectivity in ORV Post mesh (1)."},
       {}},
      {"ZonesThatWereAdded", targetPost, {5, 6}, {6}, {}, {3}, 3, {3, 3}, 3, {}, {}},
      {"ZonesThatAreGone", targetPost, {5}, {5}, {}, {3, 4}, 1, {3}, 3, {}, {}},
  };
  return kRows;
}

class ConnectivityTypesRows : public CheckerFixture,
                              public ::testing::WithParamInterface<KindRow> {};

TEST_P(ConnectivityTypesRows, Classify) {
  const KindRow& row = GetParam();
  prepare([&row](ScriptedProvider& p) {
    p.answerList("getTargets", {row.target});
    p.answerList("getPartitionIds", {4});
    p.answerList("getZoneIds(3)", row.cellZones);
    p.answerList("beginCellNodes", row.nodeZones);
    p.answerList("beginCellFaces", row.faceZones);
  });
  open(cases::oneHex());
  checker_access::cellZoneConnectivityTypes(checker) = row.before;
  checker_access::cellsFromFacesMode(checker) = row.modeBefore;
  const StreamCapture streams;
  EXPECT_TRUE(checker_access::checkCellZoneConnectivityTypes(checker));
  EXPECT_EQ(checker_access::cellZoneConnectivityTypes(checker), row.kinds);
  EXPECT_EQ(checker_access::cellsFromFacesMode(checker), row.mode);
  EXPECT_EQ(checker.getErrors(), row.errors);
  EXPECT_EQ(checker.getWarnings(), row.warnings);
}

INSTANTIATE_TEST_SUITE_P(ConnectivityTypes, ConnectivityTypesRows, ::testing::ValuesIn(kindRows()),
                         [](const auto& row) { return std::string(row.param.name); });

class ConnectivityTypes : public CheckerFixture {};

TEST_F(ConnectivityTypes, AsksInOrder) {
  open(cases::twoBodies());
  EXPECT_TRUE(checker_access::checkCellZoneConnectivityTypes(checker));
  EXPECT_EQ(calls(), Transcript({"getZoneIds(3)", "beginCellNodes()", "endCellNodes()",
                                 "beginCellFaces()", "endCellFaces()", "getTarget()"}));
}

TEST_F(ConnectivityTypes, AsksForTheCellTypeOfAZoneThatListsFaces) {
  const cases::CasePtr polyhedral = cases::postPolyhedron();
  open(polyhedral);
  EXPECT_TRUE(checker_access::checkCellZoneConnectivityTypes(checker));
  EXPECT_EQ(calls(),
            Transcript({"getZoneIds(3)", "beginCellNodes()", "endCellNodes()", "beginCellFaces()",
                        "endCellFaces()", "getTarget()", "getCellZoneInfo(3, 0)"}));
  EXPECT_EQ(checker.getWarnings(), Texts());
  EXPECT_EQ(checker_access::cellZoneConnectivityTypes(checker), std::vector<int>({4}));
}

TEST_F(ConnectivityTypes, WarnsOfAZoneThatListsFacesWithoutCellType) {
  const cases::CasePtr damaged = cases::postPolyhedron();
  damaged->zone(3, kPostMesh).cellInfo[cellZoneCellType].reset();
  open(damaged);
  EXPECT_TRUE(checker_access::checkCellZoneConnectivityTypes(checker));
  EXPECT_EQ(
      checker.getWarnings(),
      Texts(
          {"checkCellZoneConnectivityTypes : Polyhedral cell zone (3) doesn't have correct type."}));
}

TEST_F(ConnectivityTypes, ShowsItsStepsWithAndWithoutZones) {
  for (const cases::CasePtr& opened : {cases::oneHex(), memory::CaseBuilder().build()}) {
    checker.setVerbosity(1);
    open(opened);
    checker.setVerbosity(3);
    const StreamCapture streams;
    EXPECT_TRUE(checker_access::checkCellZoneConnectivityTypes(checker));
    EXPECT_EQ(streams.out(),
              "- checkCellZoneConnectivityTypes - init\n"
              "- checkCellZoneConnectivityTypes - categorize\n");
  }
}

TEST_F(ConnectivityTypes, RefusesAPolyhedralZoneOfARestartTarget) {
  // No run gets there: in a restart target a zone has a kind before its cell faces are looked at.
  open(cases::oneHex());
  checker_access::displayStep(checker, "checkCellZoneConnectivityTypes", "categorize");
  const StreamCapture streams;
  EXPECT_EQ(checker_access::judgeConnectivity(checker, 3, 4, true), 1);
  EXPECT_EQ(
      checker.getErrors(),
      Texts(
          {"checkCellZoneConnectivityTypes : Cell zone [3] with ORV Post Polyhedral connectivity in ORV Restart mesh (1)."}));
}

TEST_F(ConnectivityTypes, EndTheWalkAtALibraryError) {
  prepare([](ScriptedProvider& p) { failOn(p, "beginCellFaces"); });
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkCellZoneConnectivityTypes : ORV - disk gone"}));
  EXPECT_EQ(callsOf({"beginFaceTree"}), Transcript());
}

TEST_F(ConnectivityTypes, AreKeptFromOneMeshToTheNext) {
  // A restart mesh of two zones, then a post mesh of two whose cells nobody lists.
  const cases::CasePtr two = cases::twoBodies();
  const MeshKey second = {2, targetPost, -1};
  two->tables.meshes[second] = two->mesh();
  for (const int zone : {2, 3, 4, 5, 6}) {
    two->zone(zone, second).boundingFaceZones.clear();
    two->zone(zone, second).sideCellZones = {};
  }
  two->arrays(second);
  two->arrays().cellNodes[5] = {};
  serve(two);
  const CheckResult result = check();
  EXPECT_EQ(
      result.errors,
      Texts(
          {"checkCellZoneConnectivityTypes : Cell zone [6] with  unexpected connectivity in ORV Post mesh (2)."}));
  EXPECT_EQ(checker_access::cellZoneConnectivityTypes(checker), std::vector<int>({3, 1}));
  EXPECT_EQ(checker_access::cellsFromFacesMode(checker), 1);
}

TEST_F(ConnectivityTypes, AreKeptFromOneRunToTheNext) {
  serve(cases::postHex());
  EXPECT_TRUE(check().good);
  const cases::CasePtr bare = cases::postHex();
  bare->arrays(kPostMesh).cellNodes = {};
  serve(bare);
  EXPECT_TRUE(check().good);
  OrvChecker fresh;
  EXPECT_EQ(
      check(fresh, file.path()).errors,
      Texts(
          {"checkCellZoneConnectivityTypes : Cell zone [3] with  unexpected connectivity in ORV Post mesh (1)."}));
}

TEST_F(ConnectivityTypes, GoWithTheCopiesOfAChecker) {
  serve(cases::postHex());
  EXPECT_TRUE(check().good);
  OrvChecker copy(checker);
  EXPECT_EQ(checker_access::cellZoneConnectivityTypes(copy), std::vector<int>({3}));
  EXPECT_EQ(checker_access::cellsFromFacesMode(copy), 3);
  OrvChecker assigned;
  assigned = checker;
  EXPECT_EQ(checker_access::cellZoneConnectivityTypes(assigned), std::vector<int>({3}));
  EXPECT_EQ(checker_access::cellsFromFacesMode(assigned), 3);
}

}  // namespace
}  // namespace velto::testing
