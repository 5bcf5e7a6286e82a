// SPDX-License-Identifier: Apache-2.0
//
// The nodes and faces that cell zones list themselves: whether each is one of the mesh.

#include <iostream>

#include "tests/checker/ConnectivityFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using base::Family;
using memory::Ids;

const std::string kBadNodes = "checkCellConnectivity : Cell node ids out of node id range";
const std::string kBadFaces = "checkCellConnectivity : Cell face ids out of face id range";
const std::string kInconsistent =
    "checkCellConnectivity : Cell-zones: Inconsistency in cell zone definitions";
const std::string kBadNodesShown =
    "Error: checkCellConnectivity: Cell node ids out of node id range\n";
const std::string kBadFacesShown =
    "Error: checkCellConnectivity: Cell face ids out of face id range\n";
const std::string kInconsistentShown =
    "Error: checkCellConnectivity: Cell-zones: Inconsistency in cell zone definitions\n";

/// What zones list, and which kinds they were found to be. The mesh has 8 nodes and 6 faces.
struct CellLists {
  std::vector<int> zones;
  std::vector<int> kinds;
  std::vector<ZoneLists> nodes;
  std::vector<ZoneLists> faces;
};

struct CellRow {
  const char* name;
  CellLists lists;
  std::function<void(ScriptedProvider&)> script;
  Texts errors;
  std::string err;  // at verbosity 3
};

std::ostream& operator<<(std::ostream& out, const CellRow& row) { return out << row.name; }

std::vector<CellRow> rowsOfIds() {
  return {
      {"TheFirstAndTheLastNode", {{3}, {3}, {{3, 2, {}, {2, 1}, {1, 8, 4}}}, {}}, {}, {}, ""},
      {"TheFirstAndTheLastFace", {{3}, {4}, {}, {{3, 2, {}, {2, 1}, {1, 6, 4}}}}, {}, {}, ""},
      {"NodeZero",
       {{3}, {3}, {{3, 2, {}, {2, 1}, {1, 0, 8}}}, {}},
       {},
       {kBadNodes},
       "zone 3bad node #1 = 0\n" + kBadNodesShown},
      {"TheNodeBehindTheLast",
       {{3}, {3}, {{3, 1, 3, {}, {1, 8, 9}}}, {}},
       {},
       {kBadNodes},
       "zone 3bad node #2 = 9\n" + kBadNodesShown},
      {"FaceZero",
       {{3}, {4}, {}, {{3, 1, 3, {}, {0, 1, 6}}}},
       {},
       {kBadFaces},
       "zone 3bad face #0 = 0\n" + kBadFacesShown},
      {"TheFaceBehindTheLast",
       {{3}, {4}, {}, {{3, 2, {}, {2, 1}, {1, 7, 6}}}},
       {},
       {kBadFaces},
       "zone 3bad face #1 = 7\n" + kBadFacesShown},
      {"LargeIds",
       {{3, 4},
        {3, 4},
        {{3, 1, 2, {}, {18446744073709551615U, 1}}},
        {{4, 1, 2, {}, {9223372036854775808U, 9223372036854775814U}}}},
       {},
       {kBadNodes, kBadFaces},
       "zone 3bad node #0 = 18446744073709551615\n" + kBadNodesShown +
           "zone 4bad face #0 = 9223372036854775808\n"
           "zone 4bad face #1 = 9223372036854775814\n" +
           kBadFacesShown},
      {"BadIdsOfSeveralZonesAreOneError",
       {{9, -4}, {3, 3}, {{-4, 1, 2, {}, {0, 10}}, {9, 1, {}, {2}, {9, 8}}}, {}},
       {},
       {kBadNodes},
       "zone 9bad node #0 = 9\n"
       "zone -4bad node #0 = 0\n"
       "zone -4bad node #1 = 10\n" +
           kBadNodesShown},
      {"AllThreeErrors",
       {{3, 4, 5}, {1, 4, 3}, {{5, 1, 1, {}, {0}}}, {{4, 1, 1, {}, {0}}}},
       {},
       {kBadNodes, kBadFaces, kInconsistent},
       "zone 5bad node #0 = 0\n" + kBadNodesShown + "zone 4bad face #0 = 0\n" + kBadFacesShown +
           kInconsistentShown},
      {"IdsThatWereNotRead",
       {{3, 4}, {3, 3}, {{3, 1, 3, {}, {8, 8, 8}}, {4, 1, 2, {}, {7}}}, {}},
       {},
       {kBadNodes},
       "zone 4bad node #1 = 0\n" + kBadNodesShown},
      {"NegativeCounts",
       {{3}, {4}, {}, {{3, 3, {}, {2, 4, -2}, {1, 2, 3, 7, 0, 0}}}},
       {},
       {kBadFaces},
       "zone 3bad face #3 = 7\n" + kBadFacesShown},
      {"ASumThatWraps",
       {{3}, {3}, {{3, 131077, {}, std::vector<short>(131077, 32767), Ids(32763, 1)}}, {}},
       {},
       {},
       ""},
  };
}

std::vector<CellRow> rowsOfZones() {
  const ZoneLists bad = {3, 1, 1, {}, {0}};
  return {
      {"NoZonesAndNoKinds", {{}, {}, {bad}, {bad}}, {}, {}, ""},
      {"ZonesWithoutKinds", {{3, 4}, {}, {bad}, {bad}}, {}, {}, ""},
      {"FewerKindsThanZones",
       {{4, 3}, {3}, {bad, {4, 1, 1, {}, {0}}}, {}},
       {},
       {kBadNodes},
       "zone 4bad node #0 = 0\n" + kBadNodesShown},
      {"MoreKindsThanZones", {{3}, {2, 1}, {}, {}}, {}, {kInconsistent}, kInconsistentShown},
      {"UnclassifiedZones", {{3}, {0}, {bad}, {bad}}, {}, {}, ""},
      {"FaceNodeZones", {{3}, {2}, {bad}, {bad}}, {}, {}, ""},
      {"UnknownKinds", {{3, 3}, {5, -1}, {bad}, {bad}}, {}, {}, ""},
      {"InconsistentZonesAreOneError",
       {{3, 4}, {1, 1}, {bad}, {bad}},
       {},
       {kInconsistent},
       kInconsistentShown},
      {"ACellNodeZoneThatIsNotListed",
       {{3}, {3}, {bad}, {bad}},
       [](ScriptedProvider& p) {
         p.answerList("beginCellNodes", {2, 4});
       },
       {},
       ""},
      {"ACellFaceZoneThatIsNotListed",
       {{3}, {4}, {bad}, {bad}},
       [](ScriptedProvider& p) {
         p.answerList("beginCellFaces", {2, 4});
       },
       {},
       ""},
      {"AZoneWithoutCells",
       {{3, 4}, {3, 4}, {{3, 0, 1, {}, {0}}}, {{4, 0, {}, {1}, {0}}}},
       {},
       {},
       ""},
      {"CellsWithoutNodes", {{3}, {3}, {{3, 2, 0, {}, {0}}}, {}}, {}, {}, ""},
      {"CountsThatCancelOut", {{3}, {4}, {}, {{3, 2, {}, {2, -2}, {0}}}}, {}, {}, ""},
      {"KindsGoByTheOrderOfZones",
       {{4, 3}, {3, 2}, {bad, {4, 1, 1, {}, {9}}}, {}},
       {},
       {kBadNodes},
       "zone 4bad node #0 = 9\n" + kBadNodesShown},
      {"AZoneListedTwiceByTheFamily",
       {{3}, {3}, {bad}, {}},
       [](ScriptedProvider& p) {
         p.answerList("beginCellNodes", {3, 7, 3});
       },
       {kBadNodes},
       "zone 3bad node #0 = 0\n" + kBadNodesShown},
      {"AZoneThatTheMeshHasTwice",
       {{3, 3}, {4, 4}, {}, {bad}},
       {},
       {kBadFaces},
       "zone 3bad face #0 = 0\nzone 3bad face #0 = 0\n" + kBadFacesShown},
      {"AZoneTwiceWithTwoKinds",
       {{3, 3}, {4, 3}, {bad}, {bad}},
       {},
       {kBadNodes, kBadFaces},
       "zone 3bad node #0 = 0\n" + kBadNodesShown + "zone 3bad face #0 = 0\n" + kBadFacesShown},
  };
}

const std::vector<CellRow>& cellRows() {
  static const std::vector<CellRow> kRows = joined(rowsOfIds(), rowsOfZones());
  return kRows;
}

const char* const kSteps =
    "- checkCellConnectivity - init\n"
    "- checkCellConnectivity - node counts\n"
    "- checkCellConnectivity - node ids\n"
    "- checkCellConnectivity - face ids\n";

class CellConnectivity : public ConnectivityFixture {
 protected:
  /// oneHex() with other cell zones, opened and classified.
  void openWith(const CellLists& lists) {
    const cases::CasePtr made = cases::oneHex();
    setLists(*made, Family::cellNodes, lists.nodes);
    setLists(*made, Family::cellFaces, lists.faces);
    made->mesh().zoneIds[zoneCategoryCell] = lists.zones;
    checker.setVerbosity(1);
    open(made);
    checker_access::cellZoneConnectivityTypes(checker) = lists.kinds;
  }

  CheckResult checkCells(const CellLists& lists, int verbosity = 1) {
    openWith(lists);
    checker.setVerbosity(verbosity);
    return runStep(checker_access::checkCellConnectivity);
  }
};

class CellConnectivityRows : public CellConnectivity,
                             public ::testing::WithParamInterface<CellRow> {};

TEST_P(CellConnectivityRows, AreJudged) {
  const CellRow& row = GetParam();
  prepare(row.script);
  const CheckResult result = checkCells(row.lists, 3);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, row.errors);
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(result.out, kSteps);
  EXPECT_EQ(result.err, row.err);
  EXPECT_EQ(checker_access::cellZoneConnectivityTypes(checker), row.lists.kinds);
}

INSTANTIATE_TEST_SUITE_P(CellConnectivity, CellConnectivityRows, ::testing::ValuesIn(cellRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(CellConnectivity, ShowsBadIdsAndStepsFromVerbosityThree) {
  struct Row {
    int verbosity;
    std::string out;
    std::string err;
  };
  const std::string all = "zone 3bad node #0 = 0\n" + kBadNodesShown + "zone 4bad face #0 = 0\n" +
                          kBadFacesShown + kInconsistentShown;
  const std::string echoes = kBadNodesShown + kBadFacesShown + kInconsistentShown;
  for (const Row& row : {Row{0, "", ""}, Row{1, "", echoes}, Row{2, "", echoes},
                         Row{3, kSteps, all}, Row{4, kSteps, all}}) {
    renewChecker();
    const CheckResult result = checkCells(
        {{3, 4, 5}, {3, 4, 1}, {{3, 1, 1, {}, {0}}}, {{4, 1, 1, {}, {0}}}}, row.verbosity);
    EXPECT_EQ(result.out, row.out);
    EXPECT_EQ(result.err, row.err);
    EXPECT_EQ(result.errors, Texts({kBadNodes, kBadFaces, kInconsistent}));
  }
}

TEST_F(CellConnectivity, AsksInOrder) {
  checkCells({{3, 4, 5, 6, 7, 8, 9},
              {3, 3, 3, 3, 4, 2, 4},
              {{4, 2, {}, {2, 1}, {1, 2, 0}},
               {3, 2, 2, {}, {1, 2, 3, 4}},
               {5, 0, 4, {}, {}},
               {7, 1, 1, {}, {0}},
               {8, 1, 1, {}, {0}}},
              {{7, 1, {}, {2}, {1, 0}}, {3, 2, 2, {}, {1, 2, 3, 4}}, {9, 0, {}, {}, {}}}});
  EXPECT_EQ(calls(), Transcript({"getMeshSize(1)",
                                 "getMeshSize(3)",
                                 "getZoneIds(3)",
                                 "beginCellNodes()",
                                 "beginCellNodeCounts()",
                                 "getZoneSizeInfo(3, 2)",
                                 "getUniformCellNodeCount(3)",
                                 "getZoneSizeInfo(4, 2)",
                                 "getUniformCellNodeCount(4)",
                                 "readCellNodeCounts(4, 2)",
                                 "getZoneSizeInfo(5, 2)",
                                 "endCellNodeCounts()",
                                 "beginCellNodeIds()",
                                 "readCellNodeIds(3, 4)",
                                 "readCellNodeIds(4, 3)",
                                 "endCellNodeIds()",
                                 "endCellNodes()",
                                 "beginCellFaces()",
                                 "beginCellFaceCounts()",
                                 "getZoneSizeInfo(7, 2)",
                                 "getUniformCellFaceCount(7)",
                                 "readCellFaceCounts(7, 1)",
                                 "getZoneSizeInfo(9, 2)",
                                 "endCellFaceCounts()",
                                 "beginCellFaceIds()",
                                 "readCellFaceIds(7, 2)",
                                 "endCellFaceIds()",
                                 "endCellFaces()"}));
}

TEST_F(CellConnectivity, ClosesTheFamiliesOfAMeshWithoutCells) {
  checkCells({});
  EXPECT_EQ(calls(), Transcript({"getMeshSize(1)", "getMeshSize(3)", "getZoneIds(3)",
                                 "beginCellNodes()", "beginCellNodeCounts()", "endCellNodeCounts()",
                                 "beginCellNodeIds()", "endCellNodeIds()", "endCellNodes()",
                                 "beginCellFaces()", "beginCellFaceCounts()", "endCellFaceCounts()",
                                 "beginCellFaceIds()", "endCellFaceIds()", "endCellFaces()"}));
}

TEST_F(CellConnectivity, ReadsNoListWithoutIds) {
  checkCells({{3, 4}, {3, 4}, {{3, 2, {}, {2, -2}, {}}}, {{4, 2, 0, {}, {}}}});
  EXPECT_EQ(callsOf({"readCellNodeCounts", "readCellNodeIds", "getUniformCellFaceCount",
                     "readCellFaceIds"}),
            Transcript({"readCellNodeCounts(3, 2)", "getUniformCellFaceCount(4)"}));
}

TEST_F(CellConnectivity, ShowsEachStepBeforeItsCalls) {
  prepare([](ScriptedProvider& p) {
    for (const std::string call :
         {"getMeshSize(1)", "beginCellNodes", "beginCellNodeCounts", "endCellNodeCounts",
          "beginCellNodeIds", "endCellNodeIds", "endCellNodes", "beginCellFaces",
          "beginCellFaceCounts", "endCellFaceCounts", "beginCellFaceIds", "endCellFaces"}) {
      p.on(call, [call](base::CaseCore&) { std::cout << "  " << call << "\n"; });
    }
  });
  EXPECT_EQ(checkCells({}, 3).out,
            "- checkCellConnectivity - init\n"
            "  getMeshSize(1)\n"
            "  beginCellNodes\n"
            "- checkCellConnectivity - node counts\n"
            "  beginCellNodeCounts\n"
            "  endCellNodeCounts\n"
            "- checkCellConnectivity - node ids\n"
            "  beginCellNodeIds\n"
            "  endCellNodeIds\n"
            "  endCellNodes\n"
            "  beginCellFaces\n"
            "  beginCellFaceCounts\n"
            "  endCellFaceCounts\n"
            "- checkCellConnectivity - face ids\n"
            "  beginCellFaceIds\n"
            "  endCellFaces\n");
}

TEST_F(CellConnectivity, TellsOfBadIdsBetweenTheEndsOfPassAndFamily) {
  prepare([](ScriptedProvider& p) {
    for (const std::string call :
         {"endCellNodeIds", "endCellNodes", "endCellFaceIds", "endCellFaces"}) {
      p.on(call, [call](base::CaseCore&) { std::cerr << "  " << call << "\n"; });
    }
  });
  EXPECT_EQ(checkCells({{3, 4, 5}, {3, 4, 1}, {{3, 1, 1, {}, {0}}}, {{4, 1, 1, {}, {0}}}}).err,
            "  endCellNodeIds\n" + kBadNodesShown + "  endCellNodes\n  endCellFaceIds\n" +
                kBadFacesShown + "  endCellFaces\n" + kInconsistentShown);
}

TEST_F(CellConnectivity, LeavesLibraryErrorsToTheRun) {
  prepare([](ScriptedProvider& p) { failOn(p, "readCellNodeIds"); });
  const CheckResult result = checkCells({{3}, {3}, {{3, 1, 1, {}, {1}}}, {}});
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(callsOf({"hasWarning", "hasError", "endCellFaces"}), Transcript({"endCellFaces()"}));
}

// --- In a run ------------------------------------------------------------------------------------

TEST_F(CellConnectivity, RunsAtLevelTwoOnly) {
  prepare([](ScriptedProvider& p) { failOn(p, "beginCellNodeCounts"); });
  EXPECT_TRUE(check().good);
  checker.setCheckLevel(2);
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkCellConnectivity : ORV - disk gone"}));
  // The walk ends here.
  EXPECT_EQ(callsOf({"beginCellFaceIds", "beginCellTypes", "beginFaceShadows"}),
            Transcript({"beginCellFaceIds()"}));
}

TEST_F(CellConnectivity, FollowsTheFacesInARun) {
  serve(cases::postPolyhedron());
  checker.setCheckLevel(2);
  check();
  EXPECT_EQ(callsOf({"endFaceNodeIds", "readCellFaceIds", "endFaceTree", "beginCellTypes"}),
            Transcript({"endFaceTree()", "endFaceNodeIds()", "readCellFaceIds(3, 6)",
                        "beginCellTypes()", "endFaceTree()", "endFaceNodeIds()"}));
}

TEST_F(CellConnectivity, LeavesAListThatCannotBeHadToTheCaller) {
  for (const ZoneLists& zone : listsThatCannotBeHad(3)) {
    openWith({{3}, {3}, {zone}, {}});
    EXPECT_TRUE(wantsMemory(checker_access::checkCellConnectivity));
    expectToBeUsable();
  }
}

TEST_F(CellConnectivity, CountsBadIdsIn32Bits) {
  const CheckResult result = checkCells({std::vector<int>(65536, 3),
                                         std::vector<int>(65536, 3),
                                         {{3, 65536, 1, {}, Ids(65536, 0)}},
                                         {}});
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(callsOf({"readCellNodeIds"}), Transcript(65536, "readCellNodeIds(3, 65536)"));
}

}  // namespace
}  // namespace velto::testing
