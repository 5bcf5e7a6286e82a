// SPDX-License-Identifier: Apache-2.0
//
// What is shown of zone tables, what is asked for, and in which order.

#include "testing/capture.h"
#include "tests/checker/ZoneTablesFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using ZoneTables = ZoneTablesFixture;

// --- What is shown ------------------------------------------------------------------------------

TEST_F(ZoneTables, ShowNothingAtVerbosityOne) { EXPECT_EQ(run(cases::periodicPair()).out, ""); }

TEST_F(ZoneTables, ShowZonesFromVerbosityTwo) {
  EXPECT_EQ(shown(2, cases::periodicPair(), "  Node zones count", "end of the output"),
            "  Node zones count: 1\n"
            "  Node zone id : 1 : points\n"
            "  [ 1 , 8 ] \n"
            "    range: 1 ... 8\n"
            "  Face zones count: 3\n"
            "  Face zone id : 2 : left\n"
            "  [ 1 , 1 ] \n"
            "    range: 1 ... 1\n"
            "  Face zone id : 3 : right\n"
            "  [ 2 , 2 ] \n"
            "    range: 1 ... 2\n"
            "  Face zone id : 4 : walls\n"
            "  [ 3 , 6 ] \n"
            "    range: 1 ... 6\n"
            "  Face zone id : 2 : left\n"
            "    type name: periodic\n"
            "    face type: 4 zone type: 12\n"
            "   shadow zone id: 3\n"
            "  Face zone id : 3 : right\n"
            "    type name: periodic shadow\n"
            "    face type: 4 zone type: 8\n"
            "   shadow zone id: 2\n"
            "  Face zone id : 4 : walls\n"
            "    type name: wall\n"
            "    face type: 4 zone type: 3\n"
            "  Cell zones count: 1\n"
            "  Cell zone id : 5 : fluid\n"
            "  [ 1 , 1 ] \n"
            "    range: 1 ... 1\n"
            "  Cell zone id : 5 : fluid\n"
            "    type name: fluid\n"
            "    cell type: 4\n");
}

TEST_F(ZoneTables, ShowStepsFromVerbosityThree) {
  EXPECT_EQ(shown(3, cases::oneHex(), "- checkNodeZones", "end of the output"),
            "- checkNodeZones - init\n"
            "- checkNodeZones - zoneInfo\n"
            "  Node zones count: 1\n"
            "  Node zone id : 1 : points\n"
            "  [ 1 , 8 ] \n"
            "    range: 1 ... 8\n"
            "- checkFaceZones - init\n"
            "- checkFaceZones - zoneInfo\n"
            "  Face zones count: 1\n"
            "  Face zone id : 2 : walls\n"
            "  [ 1 , 6 ] \n"
            "    range: 1 ... 6\n"
            "  Face zone id : 2 : walls\n"
            "    type name: wall\n"
            "    face type: 4 zone type: 3\n"
            "- checkCellZones - init\n"
            "- checkCellZones - zoneInfo\n"
            "  Cell zones count: 1\n"
            "  Cell zone id : 3 : fluid\n"
            "  [ 1 , 1 ] \n"
            "    range: 1 ... 1\n"
            "  Cell zone id : 3 : fluid\n"
            "    type name: fluid\n"
            "    cell type: 4\n"
            "- checkCase - availableTargets\n");
}

TEST_F(ZoneTables, LeaveOutTheLinesOfEmptyTypeNames) {
  const cases::CasePtr changed = cases::oneHex();
  changed->zone(2).texts[zoneTypeName] = "";
  changed->zone(3).texts[zoneName] = "";
  changed->zone(3).texts[zoneTypeName] = "not asked for";
  changed->zone(3).cellInfo[cellZoneCellType] = -5;
  EXPECT_EQ(shown(2, changed, "  Face zone id : 2 : walls\n    ", "end of the output"),
            "  Face zone id : 2 : walls\n"
            "    face type: 4 zone type: 3\n"
            "  Cell zones count: 1\n"
            "  Cell zone id : 3 : \n"
            "  [ 1 , 1 ] \n"
            "    range: 1 ... 1\n"
            "  Cell zone id : 3 : \n"
            "    cell type: -5\n");
}

TEST_F(ZoneTables, ShowTheRangeUpToEachZone) {
  EXPECT_EQ(shown(2, withZones(zoneCategoryNode, 9, {{1, 4, 6, 3}, {7, 7, 9, 3}, {-8, 1, 3, 3}}),
                  "  Node zones count", "  Face zones count"),
            "  Node zones count: 3\n"
            "  Node zone id : 1 : zone 1\n"
            "  [ 4 , 6 ] \n"
            "    range: 4 ... 6\n"
            "  Node zone id : 7 : zone 7\n"
            "  [ 7 , 9 ] \n"
            "    range: 4 ... 9\n"
            "  Node zone id : -8 : zone -8\n"
            "  [ 1 , 3 ] \n"
            "    range: 1 ... 9\n");
}

TEST_F(ZoneTables, ShowNothingOfAZoneOfWrongSize) {
  EXPECT_EQ(shown(3, withZones(zoneCategoryNode, 8, {{1, 1, 4, 4}, {7, 5, 8, 5}}),
                  "- checkNodeZones - zoneInfo", "- checkFaceZones"),
            "- checkNodeZones - zoneInfo\n"
            "  Node zones count: 2\n"
            "  Node zone id : 1 : zone 1\n"
            "  [ 1 , 4 ] \n"
            "    range: 1 ... 4\n");
}

// --- What is asked ------------------------------------------------------------------------------

TEST_F(ZoneTables, AskForNodeZonesInOrder) {
  open(cases::oneHex());
  EXPECT_TRUE(checker_access::checkNodeZones(checker));
  EXPECT_EQ(calls(), Transcript({"getMeshSize(1)", "getZoneIds(0)", "getZoneSizeInfo(1, 0)",
                                 "getZoneSizeInfo(1, 1)", "getZoneSizeInfo(1, 2)",
                                 "getZoneStringInfo(1, 0)"}));
}

TEST_F(ZoneTables, AskForFaceZonesInOrder) {
  open(cases::oneHex());
  EXPECT_TRUE(checker_access::checkFaceZones(checker));
  EXPECT_EQ(calls(),
            Transcript({"getMeshSize(3)", "getMeshSize(0)", "getZoneIds(2)", "beginFaceTree()",
                        "endFaceTree()", "getZoneSizeInfo(2, 0)", "getZoneSizeInfo(2, 1)",
                        "getZoneSizeInfo(2, 2)", "getZoneStringInfo(2, 0)", "getZoneSizeInfo(2, 3)",
                        "getFaceZoneInfo(2, 0)", "getFaceZoneInfo(2, 5)", "getFaceZoneInfo(2, 1)",
                        "getFaceZoneInfo(2, 2)", "getFaceZoneInfo(2, 3)", "getFaceZoneInfo(2, 4)",
                        "getZoneStringInfo(2, 0)", "getZoneStringInfo(2, 1)"}));
}

TEST_F(ZoneTables, AskForTheShadowOfAShadow) {
  open(cases::periodicPair());
  EXPECT_TRUE(checker_access::checkFaceZones(checker));
  EXPECT_EQ(callsOf({"getFaceZoneInfo"}),
            Transcript({"getFaceZoneInfo(2, 0)", "getFaceZoneInfo(2, 5)", "getFaceZoneInfo(2, 1)",
                        "getFaceZoneInfo(2, 2)", "getFaceZoneInfo(2, 3)", "getFaceZoneInfo(2, 4)",
                        "getFaceZoneInfo(3, 4)", "getFaceZoneInfo(3, 0)", "getFaceZoneInfo(3, 5)",
                        "getFaceZoneInfo(3, 1)", "getFaceZoneInfo(3, 2)", "getFaceZoneInfo(3, 3)",
                        "getFaceZoneInfo(3, 4)", "getFaceZoneInfo(2, 4)", "getFaceZoneInfo(4, 0)",
                        "getFaceZoneInfo(4, 5)", "getFaceZoneInfo(4, 1)", "getFaceZoneInfo(4, 2)",
                        "getFaceZoneInfo(4, 3)", "getFaceZoneInfo(4, 4)"}));
}

TEST_F(ZoneTables, AskForCellZonesInOrderAndTwiceForTheName) {
  open(cases::oneHex());
  EXPECT_TRUE(checker_access::checkCellZones(checker));
  EXPECT_EQ(
      calls(),
      Transcript({"getMeshSize(4)", "getMeshSize(0)", "getZoneIds(3)", "getZoneSizeInfo(3, 0)",
                  "getZoneSizeInfo(3, 1)", "getZoneSizeInfo(3, 2)", "getZoneStringInfo(3, 0)",
                  "getZoneSizeInfo(3, 3)", "getCellZoneInfo(3, 0)", "getCellZoneInfo(3, 1)",
                  "getZoneStringInfo(3, 0)", "getZoneStringInfo(3, 0)"}));
}

TEST_F(ZoneTables, AskForNothingMoreOfAnEmptyTable) {
  open(withZones(zoneCategoryFace, 6, {}));
  const StreamCapture streams;
  EXPECT_TRUE(checker_access::checkFaceZones(checker));
  EXPECT_EQ(calls(), Transcript({"getMeshSize(3)", "getMeshSize(0)", "getZoneIds(2)"}));
}

TEST_F(ZoneTables, AskForNoNameOfAZoneOfWrongSize) {
  open(withZones(zoneCategoryNode, 8, {{1, 1, 8, 7}, {7, 9, 9, 1}}));
  const StreamCapture streams;
  EXPECT_TRUE(checker_access::checkNodeZones(checker));
  EXPECT_EQ(calls(), Transcript({"getMeshSize(1)", "getZoneIds(0)", "getZoneSizeInfo(1, 0)",
                                 "getZoneSizeInfo(1, 1)", "getZoneSizeInfo(1, 2)"}));
}

TEST_F(ZoneTables, EndTheWalkAtALibraryErrorOfAnyTable) {
  struct Row {
    const char* call;
    const char* step;
  };
  for (const Row& row :
       {Row{"getZoneIds(0)", "checkNodeZones"}, Row{"beginFaceTree", "checkFaceZones"},
        Row{"getCellZoneInfo(3, 1)", "checkCellZones"}}) {
    OrvChecker fresh;
    fresh.setNoLM(true);
    prepare([&row](ScriptedProvider& p) {
      p.answerList("getMeshIds", {1, 2});
      failOn(p, row.call);
    });
    transcript.clear();
    const CheckResult result = check(fresh, file.path());
    EXPECT_FALSE(result.good);
    EXPECT_EQ(result.errors, Texts({std::string(row.step) + " : ORV - disk gone"}));
    EXPECT_EQ(selections(), selected({{1, 0, -1}}));
  }
}

}  // namespace
}  // namespace velto::testing
