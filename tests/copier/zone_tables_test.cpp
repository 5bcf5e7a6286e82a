// SPDX-License-Identifier: Apache-2.0
//
// The tables that a copy carries: sizes and units of the mesh, and what is said of its zones.

#include <gtest/gtest.h>

#include "embedded/memory/CaseBuilder.h"
#include "tests/copier/copy_run.h"

namespace velto::testing {
namespace {

/// A copy of nothing but the tables of zones.
class TableRun : public CopyRun {
 public:
  explicit TableRun(const cases::CasePtr& served) : CopyRun(served) {
    switchAllOff();
    copier.copyZoneTopologyToDestination(true);
  }
};

// --- The mesh -----------------------------------------------------------------------------------

TEST(CopiedMeshSize, IsReadAndWrittenKeyByKey) {
  const cases::CasePtr served = cases::oneHex();
  served->mesh().sizes[meshOtherCount] = 18446744073709551615U;
  CopyRun run(served);
  run.switchAllOff();
  run.copier.copyMeshSizeToDestination(true);
  run.copyCase();
  EXPECT_EQ(run.log.lines, linesOf(R"(
    startWriting(0)
    setMeshId(1)
    setSolverType(VELTO_GENERIC)
    source: getMeshSize(0)
    setMeshSize(0, 3)
    source: getMeshSize(1)
    setMeshSize(1, 8)
    source: getMeshSize(2)
    setMeshSize(2, 18446744073709551615)
    source: getMeshSize(3)
    setMeshSize(3, 6)
    source: getMeshSize(4)
    setMeshSize(4, 1)
    writeMeshAttributes()
    endWriting(0)
  )"));
}

TEST(CopiedMeshSize, IsZeroWhereTheSourceSaysNothing) {
  const cases::CasePtr served = cases::oneHex();
  served->mesh().sizes = {};
  served->mesh().sizes[meshDimension] = 3;
  served->mesh().sizes[meshFaceCount] = 6;
  CopyRun run(served);
  run.copyCase();
  EXPECT_EQ(callsOf("setMeshSize", run.log.lines),
            Transcript({"setMeshSize(0, 3)", "setMeshSize(1, 0)", "setMeshSize(2, 0)",
                        "setMeshSize(3, 6)", "setMeshSize(4, 0)"}));
}

TEST(CopiedMeshUnits, AreEmptyWhereTheSourceSaysNothing) {
  const cases::CasePtr served = cases::oneHex();
  served->mesh().units.reset();
  CopyRun run(served);
  run.copyCase();
  EXPECT_EQ(callsOf("setMeshUnits", run.log.lines), Transcript({"setMeshUnits()"}));
}

TEST(CopiedMeshUnits, AreOfTheMeshThatIsSelectedOnTheSource) {
  const cases::CasePtr served = cases::oneHex();
  served->mesh({2, targetPost, 3}).units = "parsec";
  CopyRun run(served);
  run.source.setMeshId(2);
  run.source.setTarget(targetPost);
  run.source.setPartitionId(3);
  run.copyCase();
  EXPECT_EQ(callsOf("setMeshUnits", run.log.lines), Transcript({"setMeshUnits(parsec)"}));
}

// --- The zones ----------------------------------------------------------------------------------

TEST(CopiedZoneTables, GoCategoryByCategoryAndKeyByKey) {
  TableRun run(cases::oneHex());
  run.copyCase(false);
  EXPECT_EQ(run.log.lines, linesOf(R"(
    setMeshId(1)
    setSolverType(VELTO_GENERIC)
    source: getZoneIds(0)
    setZoneIds(0, [1])
    source: getZoneSizeInfo(1, 0)
    setZoneSizeInfo(1, 0, 1)
    source: getZoneSizeInfo(1, 1)
    setZoneSizeInfo(1, 1, 8)
    source: getZoneSizeInfo(1, 3)
    setZoneSizeInfo(1, 3, 3)
    source: getZoneStringInfo(1, 0)
    setZoneStringInfo(1, 0, points)
    source: getZoneIds(2)
    setZoneIds(2, [2])
    source: getZoneSizeInfo(2, 0)
    setZoneSizeInfo(2, 0, 1)
    source: getZoneSizeInfo(2, 1)
    setZoneSizeInfo(2, 1, 6)
    source: getZoneSizeInfo(2, 3)
    setZoneSizeInfo(2, 3, 3)
    source: getFaceZoneInfo(2, 0)
    setFaceZoneInfo(2, 0, 4)
    source: getFaceZoneInfo(2, 5)
    setFaceZoneInfo(2, 5, 3)
    source: getZoneStringInfo(2, 0)
    setZoneStringInfo(2, 0, walls)
    source: getZoneIds(3)
    setZoneIds(3, [3])
    source: getZoneSizeInfo(3, 0)
    setZoneSizeInfo(3, 0, 1)
    source: getZoneSizeInfo(3, 1)
    setZoneSizeInfo(3, 1, 1)
    source: getZoneSizeInfo(3, 3)
    setZoneSizeInfo(3, 3, 3)
    source: getCellZoneInfo(3, 0)
    setCellZoneInfo(3, 0, 4)
    source: getZoneStringInfo(3, 0)
    setZoneStringInfo(3, 0, fluid)
  )"));
}

TEST(CopiedZoneTables, LeaveLinksCountsTypeNamesAndPropertiesBehind) {
  const cases::CasePtr served = cases::oneHex();
  base::ZoneRecord& walls = served->zone(2);
  walls.faceInfo = {4, 12, 13, 14, 15, 3};
  walls.texts[zoneTypeName] = "wall";
  walls.properties = {faceZonePeriodic};
  served->zone(3).cellInfo = {4, 16};
  TableRun run(served);
  run.copyCase(false);
  const Transcript calls = run.log.lines;
  EXPECT_EQ(callsOf("setFaceZoneInfo", calls),
            Transcript({"setFaceZoneInfo(2, 0, 4)", "setFaceZoneInfo(2, 5, 3)"}));
  EXPECT_EQ(callsOf("setCellZoneInfo", calls), Transcript({"setCellZoneInfo(3, 0, 4)"}));
  EXPECT_EQ(callsOf("setZoneStringInfo", calls),
            Transcript({"setZoneStringInfo(1, 0, points)", "setZoneStringInfo(2, 0, walls)",
                        "setZoneStringInfo(3, 0, fluid)"}));
  EXPECT_EQ(callsOf("getFaceZoneProp", calls), Transcript());
  EXPECT_EQ(callsOf("setZoneSizeInfo", calls).size(), 9U);
}

TEST(CopiedZoneTables, AreZeroAndEmptyWhereTheSourceSaysNothing) {
  const cases::CasePtr served = cases::oneHex();
  for (const int zone : {1, 2, 3}) {
    served->zone(zone) = {};
  }
  served->zone(1).sizes[zoneLastId] = 8;
  served->zone(2).faceInfo[faceZoneFaceType] = 4;
  TableRun run(served);
  run.copyCase();
  EXPECT_EQ(run.written(), linesOf(R"(
    startWriting(0)
    setMeshId(1)
    setSolverType(VELTO_GENERIC)
    setZoneIds(0, [1])
    setZoneSizeInfo(1, 0, 0)
    setZoneSizeInfo(1, 1, 8)
    setZoneSizeInfo(1, 3, 0)
    setZoneStringInfo(1, 0, )
    setZoneIds(2, [2])
    setZoneSizeInfo(2, 0, 0)
    setZoneSizeInfo(2, 1, 0)
    setZoneSizeInfo(2, 3, 0)
    setFaceZoneInfo(2, 0, 4)
    setFaceZoneInfo(2, 5, 0)
    setZoneStringInfo(2, 0, )
    setZoneIds(3, [3])
    setZoneSizeInfo(3, 0, 0)
    setZoneSizeInfo(3, 1, 0)
    setZoneSizeInfo(3, 3, 0)
    setCellZoneInfo(3, 0, 0)
    setZoneStringInfo(3, 0, )
    endWriting(0)
  )"));
}

TEST(CopiedZoneTables, DoNotMixWhatIsSaidOfTwoZones) {
  const cases::CasePtr served = cases::twoBodies();
  served->zone(4) = {};
  served->zone(6) = {};
  TableRun run(served);
  run.copyCase();
  EXPECT_EQ(callsOf("setZoneStringInfo", run.log.lines),
            Transcript({"setZoneStringInfo(1, 0, points)", "setZoneStringInfo(2, 0, between)",
                        "setZoneStringInfo(3, 0, fluid walls)", "setZoneStringInfo(4, 0, )",
                        "setZoneStringInfo(5, 0, fluid)", "setZoneStringInfo(6, 0, )"}));
  EXPECT_EQ(callsOf("setFaceZoneInfo", run.log.lines),
            Transcript({"setFaceZoneInfo(2, 0, 4)", "setFaceZoneInfo(2, 5, 14)",
                        "setFaceZoneInfo(3, 0, 4)", "setFaceZoneInfo(3, 5, 3)",
                        "setFaceZoneInfo(4, 0, 0)", "setFaceZoneInfo(4, 5, 0)"}));
  EXPECT_EQ(callsOf("setCellZoneInfo", run.log.lines),
            Transcript({"setCellZoneInfo(5, 0, 4)", "setCellZoneInfo(6, 0, 0)"}));
}

TEST(CopiedZoneTables, OfACategoryWithoutZonesAreAnEmptyList) {
  TableRun run(memory::CaseBuilder().build());
  run.copyCase();
  EXPECT_EQ(run.written(), linesOf(R"(
    startWriting(0)
    setMeshId(1)
    setSolverType(VELTO_GENERIC)
    setZoneIds(0, [])
    setZoneIds(2, [])
    setZoneIds(3, [])
    endWriting(0)
  )"));
}

TEST(CopiedZoneTables, KeepTheOrderOfTheZones) {
  TableRun run(cases::twoBodies());
  run.source.answerList("getZoneIds(2)", {4, 2, 4, -3});
  run.copyCase();
  EXPECT_EQ(
      callsOf("setZoneIds", run.log.lines),
      Transcript({"setZoneIds(0, [1])", "setZoneIds(2, [4, 2, 4, -3])", "setZoneIds(3, [5, 6])"}));
  EXPECT_EQ(callsOf("setZoneStringInfo", run.log.lines),
            Transcript({"setZoneStringInfo(1, 0, points)", "setZoneStringInfo(4, 0, solid walls)",
                        "setZoneStringInfo(2, 0, between)", "setZoneStringInfo(4, 0, solid walls)",
                        "setZoneStringInfo(-3, 0, )", "setZoneStringInfo(5, 0, fluid)",
                        "setZoneStringInfo(6, 0, solid)"}));
}

TEST(CopiedZoneTables, MayHaveAnIdInTwoCategories) {
  TableRun run(cases::oneHex());
  run.source.answerList("getZoneIds(3)", {2});
  run.copyCase();
  EXPECT_EQ(callsOf("setZoneIds", run.log.lines),
            Transcript({"setZoneIds(0, [1])", "setZoneIds(2, [2])", "setZoneIds(3, [2])"}));
  EXPECT_EQ(callsOf("setCellZoneInfo", run.log.lines), Transcript({"setCellZoneInfo(2, 0, 0)"}));
}

TEST(CopiedZoneTables, AreTheSameInEachCopy) {
  TableRun run(cases::twoBodies());
  run.copyCase();
  const Transcript expected = run.log.lines;
  run.copyCase();
  EXPECT_EQ(run.log.lines, expected);
}

TEST(CopiedZoneTables, OfTheResultsAreThoseOfTheCase) {
  TableRun run(cases::twoBodies());
  run.copyCase(false);
  const Transcript tables(run.log.lines.begin() + 2, run.log.lines.end());
  run.copyResults();
  const Transcript calls = run.log.lines;
  ASSERT_EQ(calls.size(), 2 + 10 + tables.size() + 2);
  EXPECT_EQ(Transcript(calls.begin() + 12, calls.end() - 2), tables);
}

TEST(CopiedZoneTables, StayKnownInLaterCopies) {
  CopyRun run(cases::twoBodies());
  run.source.answerList("getZoneIds(3)", {6});
  run.mapZones();
  run.source.answerList("getZoneIds(3)", {});
  run.copier.copyZoneTopologyToDestination(true);
  run.copyCase();  // zone 6 is not listed any more, and known all the same
  run.copier.copyZoneTopologyToDestination(false);
  run.copier.copyCellsToDestination(true, false, true);
  EXPECT_EQ(callsOf("beginCellTypes", ofDestination(run.moved())),
            Transcript({"beginCellTypes([6], [0, 4])"}));
}

}  // namespace
}  // namespace velto::testing
