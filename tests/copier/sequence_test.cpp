// SPDX-License-Identifier: Apache-2.0
//
// copy and copyCase: the steps and their switches.

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <ostream>

#include "embedded/memory/CaseBuilder.h"
#include "tests/copier/copy_run.h"
#include "tests/copier/full_case.h"

namespace velto::testing {
namespace {

/// The first calls of all steps at the destination.
const Transcript kAllSteps = {"startWriting",     "setMeshId",      "setSolverType",
                              "setMeshSize",      "setMeshUnits",   "writeMeshAttributes",
                              "setZoneIds",       "beginNodes",     "beginCells",
                              "beginCellNodes",   "beginCellTypes", "beginCellPartitions",
                              "endCells",         "beginFaces",     "beginFaceNodes",
                              "beginFaceCell0",   "beginFaceCell1", "endFaces",
                              "setLocationModel", "writeSettings",  "writeStandardSettings",
                              "endWriting"};

/// The steps that a copy took at the destination.
Transcript steps(const CopyRun& run) {
  Transcript taken;
  for (const std::string& call : run.written()) {
    const std::string operation = operationOf(call);
    const bool isStep = std::count(kAllSteps.begin(), kAllSteps.end(), operation) == 1;
    if (isStep && std::count(taken.begin(), taken.end(), operation) == 0) {
      taken.push_back(operation);
    }
  }
  return taken;
}

// --- Defaults -----------------------------------------------------------------------------------

TEST(CopySequence, CarriesAllButPartitionsAndSettingsByDefaultAndPrintsNothing) {
  CopyRun run(fullCase());
  EXPECT_TRUE(run.copyCase());
  Transcript expected = kAllSteps;
  for (const char* step : {"beginCellPartitions", "writeSettings", "writeStandardSettings"}) {
    expected.erase(std::find(expected.begin(), expected.end(), step));
  }
  EXPECT_EQ(steps(run), expected);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "");
}

TEST(CopySequence, CarriesAllWithEverySwitchOn) {
  CopyRun run(fullCase());
  switchAllOn(run.copier);
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(steps(run), kAllSteps);
}

// --- Switches, one by one -----------------------------------------------------------------------

/// A change of switches, and what it takes away of the lines and the steps.
struct SwitchRow {
  std::string name;
  std::function<void(OrvCopier&)> change;
  Transcript linesGone;
  Transcript stepsGone;

  friend std::ostream& operator<<(std::ostream& out, const SwitchRow& row) {
    return out << row.name;
  }
};

class CopySwitches : public ::testing::TestWithParam<SwitchRow> {};

Transcript without(Transcript lines, const Transcript& gone) {
  for (const std::string& line : gone) {
    const auto found = std::find(lines.begin(), lines.end(), line);
    EXPECT_NE(found, lines.end()) << line;
    if (found != lines.end()) {
      lines.erase(found);
    }
  }
  return lines;
}

TEST_P(CopySwitches, TakeTheirStepAway) {
  CopyRun run(fullCase());
  switchAllOn(run.copier);
  run.copyCase();  // the zones are known
  run.copier.setVerbose(true);
  GetParam().change(run.copier);
  EXPECT_TRUE(run.copyCase());
  Transcript lines = kCaseLines;
  lines.insert(lines.begin() + 9, "    Writing cell partitions");
  for (const char* line :
       {"Writing settings", "  Settings written", "  Standard Settings written"}) {
    lines.emplace_back(line);
  }
  EXPECT_EQ(run.out, printed(without(lines, GetParam().linesGone)));
  EXPECT_EQ(steps(run), without(kAllSteps, GetParam().stepsGone));
}

TEST_P(CopySwitches, AreNoBusinessOfTheResults) {
  CopyRun run(cases::withResults());
  run.copyResults();
  const Transcript expected = run.log.lines;
  GetParam().change(run.copier);
  EXPECT_TRUE(run.copyResults());
  EXPECT_EQ(run.log.lines, expected);
}

const Transcript kCellLines = {"  Writing cell mesh", "    Writing cell nodes",
                               "    Writing cell types", "    Writing cell partitions"};
const Transcript kCellSteps = {"beginCells", "beginCellNodes", "beginCellTypes",
                               "beginCellPartitions", "endCells"};
const Transcript kFaceLines = {"  Writing face mesh", "    Writing face nodes",
                               "    Writing face parents"};
const Transcript kFaceSteps = {"beginFaces", "beginFaceNodes", "beginFaceCell0", "beginFaceCell1",
                               "endFaces"};

INSTANTIATE_TEST_SUITE_P(
    All, CopySwitches,
    ::testing::Values(
        SwitchRow{"MeshSize",
                  [](OrvCopier& copier) { copier.copyMeshSizeToDestination(false); },
                  {"  Copying problem size"},
                  {"setMeshSize"}},
        SwitchRow{"MeshUnits",
                  [](OrvCopier& copier) { copier.copyMeshUnitsToDestination(false); },
                  {"  Copying mesh units"},
                  {"setMeshUnits"}},
        SwitchRow{"MeshSizeAndUnits",
                  [](OrvCopier& copier) {
                    copier.copyMeshSizeToDestination(false);
                    copier.copyMeshUnitsToDestination(false);
                  },
                  {"  Copying problem size", "  Copying mesh units", "  Writing mesh attibutes"},
                  {"setMeshSize", "setMeshUnits", "writeMeshAttributes"}},
        SwitchRow{"ZoneTopology",
                  [](OrvCopier& copier) { copier.copyZoneTopologyToDestination(false); },
                  {"  Copying zone toplogy"},
                  {"setZoneIds"}},
        SwitchRow{"NodeCoordinates",
                  [](OrvCopier& copier) { copier.copyNodeCoordinatesToDestination(false); },
                  {"  Writing node mesh"},
                  {"beginNodes"}},
        SwitchRow{"Cells",
                  [](OrvCopier& copier) { copier.copyCellsToDestination(false, true, true); },
                  kCellLines, kCellSteps},
        SwitchRow{"CellNodes",
                  [](OrvCopier& copier) { copier.copyCellsToDestination(true, false, true); },
                  {"    Writing cell nodes"},
                  {"beginCellNodes"}},
        SwitchRow{"CellTypes",
                  [](OrvCopier& copier) { copier.copyCellsToDestination(true, true, false); },
                  {"    Writing cell types"},
                  {"beginCellTypes"}},
        SwitchRow{"CellPartitions",
                  [](OrvCopier& copier) { copier.copyCellPartitionsToDestination(false); },
                  {"    Writing cell partitions"},
                  {"beginCellPartitions"}},
        SwitchRow{"Faces",
                  [](OrvCopier& copier) { copier.copyFacesToDestination(false, true, true); },
                  kFaceLines, kFaceSteps},
        SwitchRow{"FaceNodes",
                  [](OrvCopier& copier) { copier.copyFacesToDestination(true, false, true); },
                  {"    Writing face nodes"},
                  {"beginFaceNodes"}},
        SwitchRow{"FaceParents",
                  [](OrvCopier& copier) { copier.copyFacesToDestination(true, true, false); },
                  {"    Writing face parents"},
                  {"beginFaceCell0", "beginFaceCell1"}},
        SwitchRow{"LocationModel",
                  [](OrvCopier& copier) { copier.copyLocationModelToDestination(false); },
                  {"  Writing location model"},
                  {"setLocationModel"}},
        SwitchRow{"Settings",
                  [](OrvCopier& copier) { copier.copySettingsToDestination(false); },
                  {"Writing settings", "  Settings written", "  Standard Settings written"},
                  {"writeSettings", "writeStandardSettings"}}),
    rowName<SwitchRow>);

TEST(CopySequence, TakesEachSwitchOnAgain) {
  CopyRun run(fullCase());
  run.switchAllOff();
  run.copier.copyMeshSizeToDestination(true);
  run.copier.copyMeshUnitsToDestination(true);
  run.copier.copyZoneTopologyToDestination(true);
  run.copier.copyNodeCoordinatesToDestination(true);
  run.copier.copyCellsToDestination(true, true, true);
  run.copier.copyCellPartitionsToDestination(true);
  run.copier.copyFacesToDestination(true, true, true);
  run.copier.copyLocationModelToDestination(true);
  run.copier.copySettingsToDestination(true);
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(steps(run), kAllSteps);
}

// --- Few switches -------------------------------------------------------------------------------

TEST(CopySequence, OnlyOpensAndClosesTheCaseWithEverySwitchOff) {
  CopyRun run(fullCase());
  run.switchAllOff();
  run.copier.setVerbose(true);
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.log.lines, Transcript({"startWriting(0)", "setMeshId(1)",
                                       "setSolverType(VELTO_GENERIC)", "endWriting(0)"}));
  EXPECT_EQ(run.out, "Writing mesh\n  Mesh written\n");
}

TEST(CopySequence, LeavesTheBracketsToTheCallerOnRequest) {
  CopyRun run(fullCase());
  switchAllOn(run.copier);
  run.copier.setVerbose(true);
  run.copyCase();
  Transcript expected = run.written();
  const std::string lines = run.out;
  EXPECT_EQ(expected.front(), "startWriting(0)");
  EXPECT_EQ(expected.back(), "endWriting(0)");
  EXPECT_TRUE(run.copyCase(false));
  EXPECT_EQ(run.written(), Transcript(expected.begin() + 1, expected.end() - 1));
  EXPECT_EQ(run.out, lines);
}

TEST(CopySequence, WritesMeshAttributesForUnitsAlone) {
  CopyRun run(cases::oneHex());
  run.switchAllOff();
  run.copier.copyMeshUnitsToDestination(true);
  run.copier.setVerbose(true);
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.out,
            "Writing mesh\n  Copying mesh units\n  Writing mesh attibutes\n  Mesh written\n");
  EXPECT_EQ(run.written(), linesOf(R"(
    startWriting(0)
    setMeshId(1)
    setSolverType(VELTO_GENERIC)
    setMeshUnits(m)
    writeMeshAttributes()
    endWriting(0)
  )"));
}

TEST(CopySequence, WritesMeshAttributesForSizesAlone) {
  CopyRun run(cases::oneHex());
  run.switchAllOff();
  run.copier.copyMeshSizeToDestination(true);
  run.copier.setVerbose(true);
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.out,
            "Writing mesh\n  Copying problem size\n  Writing mesh attibutes\n  Mesh written\n");
  EXPECT_EQ(callsOf("writeMeshAttributes", run.log.lines), Transcript({"writeMeshAttributes()"}));
}

TEST(CopySequence, OpensFamiliesWithNoZoneIfTheTopologyWasNeverCopied) {
  CopyRun run(fullCase());
  run.copier.copyCellPartitionsToDestination(true);
  run.copier.copyZoneTopologyToDestination(false);
  run.copier.copyLocationModelToDestination(false);
  run.copier.copyMeshSizeToDestination(false);
  run.copier.copyMeshUnitsToDestination(false);
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.written(), linesOf(R"(
    startWriting(0)
    setMeshId(1)
    setSolverType(VELTO_GENERIC)
    beginNodes([1])
    beginNodeCoordinates([1])
    endNodeCoordinates()
    endNodes()
    beginCells([])
    beginCellNodes([])
    beginCellNodeCounts()
    endCellNodeCounts()
    beginCellNodeIds()
    endCellNodeIds()
    endCellNodes()
    beginCellTypes([], [0])
    endCellTypes()
    beginCellPartitions([], 0)
    endCellPartitions()
    endCells()
    beginFaces([])
    beginFaceNodes([])
    beginFaceNodeCounts()
    endFaceNodeCounts()
    beginFaceNodeIds()
    endFaceNodeIds()
    endFaceNodes()
    beginFaceCell0([])
    endFaceCell0()
    beginFaceCell1([])
    endFaceCell1()
    endFaces()
    endWriting(0)
  )"));
  EXPECT_EQ(run.err, "");
}

TEST(CopySequence, OpensCellsAndFacesWithTheZonesThatTheDestinationLists) {
  CopyRun run(cases::oneHex());
  run.switchAllOff();
  run.copier.copyCellsToDestination(true, false, false);
  run.copier.copyFacesToDestination(true, false, false);
  run.destination.setZoneIds(zoneCategoryCell, {9, 8});
  run.destination.setZoneIds(zoneCategoryFace, {7});
  EXPECT_EQ(run.moved(),
            Transcript({"beginCells([9, 8])", "endCells()", "beginFaces([7])", "endFaces()"}));
}

// --- Selection, repetition ----------------------------------------------------------------------

TEST(CopySequence, SelectsMeshOneAtTheDestinationWhateverTheSourceHas) {
  CopyRun run(memory::CaseBuilder().mesh({5, targetRestart, -1}).units("ft").build());
  run.source.setMeshId(5);
  run.destination.setMeshId(4);
  run.switchAllOff();
  run.copier.copyMeshUnitsToDestination(true);
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.log.lines,
            Transcript({"startWriting(0)", "setMeshId(1)", "setSolverType(VELTO_GENERIC)",
                        "source: getMeshUnits()", "setMeshUnits(ft)", "writeMeshAttributes()",
                        "endWriting(0)"}));
  EXPECT_EQ(run.destination.getMeshId(), 1);
}

TEST(CopySequence, CopiesResultsBehindTheCase) {
  CopyRun run(cases::withResults());
  run.copyCase();
  Transcript expected = run.log.lines;
  run.copyResults();
  expected.insert(expected.end(), run.log.lines.begin(), run.log.lines.end());
  EXPECT_TRUE(run.copy());
  EXPECT_EQ(run.log.lines, expected);
}

TEST(CopySequence, RepeatsEveryCallInASecondCopy) {
  CopyRun run(fullCase());
  run.copy();
  const Transcript expected = run.written();
  EXPECT_TRUE(run.copy());
  EXPECT_EQ(run.written(), expected);
}

}  // namespace
}  // namespace velto::testing
