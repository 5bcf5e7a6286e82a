// SPDX-License-Identifier: Apache-2.0
//
// Copies of the named cases, line by line as the destination sees them.

#include <algorithm>
#include <gtest/gtest.h>

#include "tests/copier/copy_run.h"

namespace velto::testing {
namespace {

/// The calls behind the tables of the case, from the first of the nodes on.
Transcript behindTables(const CopyRun& run) {
  const Transcript calls = run.written();
  return Transcript(std::find(calls.begin(), calls.end(), "beginNodes([1])"), calls.end());
}

TEST(WholeCases, OneHex) {
  CopyRun run(cases::oneHex());
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.written(), linesOf(R"(
    startWriting(0)
    setMeshId(1)
    setSolverType(VELTO_GENERIC)
    setMeshSize(0, 3)
    setMeshSize(1, 8)
    setMeshSize(2, 0)
    setMeshSize(3, 6)
    setMeshSize(4, 1)
    setMeshUnits(m)
    writeMeshAttributes()
    setZoneIds(0, [1])
    setZoneSizeInfo(1, 0, 1)
    setZoneSizeInfo(1, 1, 8)
    setZoneSizeInfo(1, 3, 3)
    setZoneStringInfo(1, 0, points)
    setZoneIds(2, [2])
    setZoneSizeInfo(2, 0, 1)
    setZoneSizeInfo(2, 1, 6)
    setZoneSizeInfo(2, 3, 3)
    setFaceZoneInfo(2, 0, 4)
    setFaceZoneInfo(2, 5, 3)
    setZoneStringInfo(2, 0, walls)
    setZoneIds(3, [3])
    setZoneSizeInfo(3, 0, 1)
    setZoneSizeInfo(3, 1, 1)
    setZoneSizeInfo(3, 3, 3)
    setCellZoneInfo(3, 0, 4)
    setZoneStringInfo(3, 0, fluid)
    beginNodes([1])
    beginNodeCoordinates([1])
    writeNodeCoordinates(1, [0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0, 1, 1, 0, 1, 1, 1, 1, 0, 1, 1])
    endNodeCoordinates()
    endNodes()
    beginCells([3])
    beginCellTypes([3], [4])
    endCellTypes()
    endCells()
    beginFaces([2])
    beginFaceNodes([2])
    beginFaceNodeCounts()
    writeUniformFaceNodeCount(2, 4)
    endFaceNodeCounts()
    beginFaceNodeIds()
    writeFaceNodeIds(2, [1, 5, 8, 4, 2, 3, 7, 6, 1, 2, 6, 5, 4, 8, 7, 3, 1, 4, 3, 2, 5, 6, 7, 8])
    endFaceNodeIds()
    endFaceNodes()
    beginFaceCell0([2])
    writeFaceCell0(2, [1, 1, 1, 1, 1, 1])
    endFaceCell0()
    endFaces()
    setLocationModel(model)
    endWriting(0)
  )"));
}

TEST(WholeCases, TwoHexes) {
  CopyRun run(cases::twoHexes());
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(behindTables(run), linesOf(R"(
    beginNodes([1])
    beginNodeCoordinates([1])
    writeNodeCoordinates(1, [0, 0, 0, 1, 0, 0, 2, 0, 0, 0, 1, 0, 1, 1, 0, 2, 1, 0, 0, 0, 1, 1, 0, 1, 2, 0, 1, 0, 1, 1, 1, 1, 1, 2, 1, 1])
    endNodeCoordinates()
    endNodes()
    beginCells([4])
    beginCellTypes([4], [4])
    endCellTypes()
    endCells()
    beginFaces([2, 3])
    beginFaceNodes([2, 3])
    beginFaceNodeCounts()
    writeUniformFaceNodeCount(2, 4)
    writeUniformFaceNodeCount(3, 4)
    endFaceNodeCounts()
    beginFaceNodeIds()
    writeFaceNodeIds(2, [2, 5, 11, 8])
    writeFaceNodeIds(3, [1, 7, 10, 4, 1, 2, 8, 7, 4, 10, 11, 5, 1, 4, 5, 2, 7, 8, 11, 10, 3, 6, 12, 9, 2, 3, 9, 8, 5, 11, 12, 6, 2, 5, 6, 3, 8, 9, 12, 11])
    endFaceNodeIds()
    endFaceNodes()
    beginFaceCell0([2, 3])
    writeFaceCell0(2, [1])
    writeFaceCell0(3, [1, 1, 1, 1, 1, 2, 2, 2, 2, 2])
    endFaceCell0()
    beginFaceCell1([2])
    writeFaceCell1(2, [2])
    endFaceCell1()
    endFaces()
    setLocationModel(model)
    endWriting(0)
  )"));
}

TEST(WholeCases, TwoBodies) {
  CopyRun run(cases::twoBodies());
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(behindTables(run), linesOf(R"(
    beginNodes([1])
    beginNodeCoordinates([1])
    writeNodeCoordinates(1, [0, 0, 0, 1, 0, 0, 2, 0, 0, 0, 1, 0, 1, 1, 0, 2, 1, 0, 0, 0, 1, 1, 0, 1, 2, 0, 1, 0, 1, 1, 1, 1, 1, 2, 1, 1])
    endNodeCoordinates()
    endNodes()
    beginCells([5, 6])
    beginCellTypes([5, 6], [4, 4])
    endCellTypes()
    endCells()
    beginFaces([2, 3, 4])
    beginFaceNodes([2, 3, 4])
    beginFaceNodeCounts()
    writeUniformFaceNodeCount(2, 4)
    writeUniformFaceNodeCount(3, 4)
    writeUniformFaceNodeCount(4, 4)
    endFaceNodeCounts()
    beginFaceNodeIds()
    writeFaceNodeIds(2, [2, 5, 11, 8])
    writeFaceNodeIds(3, [1, 7, 10, 4, 1, 2, 8, 7, 4, 10, 11, 5, 1, 4, 5, 2, 7, 8, 11, 10])
    writeFaceNodeIds(4, [3, 6, 12, 9, 2, 3, 9, 8, 5, 11, 12, 6, 2, 5, 6, 3, 8, 9, 12, 11])
    endFaceNodeIds()
    endFaceNodes()
    beginFaceCell0([2, 3, 4])
    writeFaceCell0(2, [1])
    writeFaceCell0(3, [1, 1, 1, 1, 1])
    writeFaceCell0(4, [2, 2, 2, 2, 2])
    endFaceCell0()
    beginFaceCell1([2])
    writeFaceCell1(2, [2])
    endFaceCell1()
    endFaces()
    setLocationModel(model)
    endWriting(0)
  )"));
}

TEST(WholeCases, Quad2d) {
  CopyRun run(cases::quad2d());
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(behindTables(run), linesOf(R"(
    beginNodes([1])
    beginNodeCoordinates([1])
    writeNodeCoordinates(1, [0, 0, 1, 0, 2, 0, 0, 1, 1, 1, 2, 1])
    endNodeCoordinates()
    endNodes()
    beginCells([4])
    beginCellTypes([4], [3])
    endCellTypes()
    endCells()
    beginFaces([2, 3])
    beginFaceNodes([2, 3])
    beginFaceNodeCounts()
    writeUniformFaceNodeCount(2, 2)
    writeUniformFaceNodeCount(3, 2)
    endFaceNodeCounts()
    beginFaceNodeIds()
    writeFaceNodeIds(2, [2, 5])
    writeFaceNodeIds(3, [1, 2, 5, 4, 4, 1, 2, 3, 3, 6, 6, 5])
    endFaceNodeIds()
    endFaceNodes()
    beginFaceCell0([2, 3])
    writeFaceCell0(2, [1])
    writeFaceCell0(3, [1, 1, 1, 2, 2, 2])
    endFaceCell0()
    beginFaceCell1([2])
    writeFaceCell1(2, [2])
    endFaceCell1()
    endFaces()
    setLocationModel(model)
    endWriting(0)
  )"));
}

TEST(WholeCases, PeriodicPair) {
  CopyRun run(cases::periodicPair());
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(behindTables(run), linesOf(R"(
    beginNodes([1])
    beginNodeCoordinates([1])
    writeNodeCoordinates(1, [0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0, 1, 1, 0, 1, 1, 1, 1, 0, 1, 1])
    endNodeCoordinates()
    endNodes()
    beginCells([5])
    beginCellTypes([5], [4])
    endCellTypes()
    endCells()
    beginFaces([2, 3, 4])
    beginFaceNodes([2, 3, 4])
    beginFaceNodeCounts()
    writeUniformFaceNodeCount(2, 4)
    writeUniformFaceNodeCount(3, 4)
    writeUniformFaceNodeCount(4, 4)
    endFaceNodeCounts()
    beginFaceNodeIds()
    writeFaceNodeIds(2, [1, 5, 8, 4])
    writeFaceNodeIds(3, [2, 3, 7, 6])
    writeFaceNodeIds(4, [1, 2, 6, 5, 4, 8, 7, 3, 1, 4, 3, 2, 5, 6, 7, 8])
    endFaceNodeIds()
    endFaceNodes()
    beginFaceCell0([2, 3, 4])
    writeFaceCell0(2, [1])
    writeFaceCell0(3, [1])
    writeFaceCell0(4, [1, 1, 1, 1])
    endFaceCell0()
    endFaces()
    setLocationModel(model)
    endWriting(0)
  )"));
}

TEST(WholeCases, PostHex) {
  CopyRun run(cases::postHex());
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(behindTables(run), linesOf(R"(
    beginNodes([1])
    beginNodeCoordinates([1])
    writeNodeCoordinates(1, [0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0, 1, 1, 0, 1, 1, 1, 1, 0, 1, 1])
    endNodeCoordinates()
    endNodes()
    beginCells([3])
    beginCellNodes([3])
    beginCellNodeCounts()
    writeUniformCellNodeCount(3, 8)
    endCellNodeCounts()
    beginCellNodeIds()
    writeCellNodeIds(3, [1, 2, 3, 4, 5, 6, 7, 8])
    endCellNodeIds()
    endCellNodes()
    beginCellTypes([3], [4])
    endCellTypes()
    endCells()
    beginFaces([2])
    beginFaceNodes([2])
    beginFaceNodeCounts()
    writeUniformFaceNodeCount(2, 4)
    endFaceNodeCounts()
    beginFaceNodeIds()
    writeFaceNodeIds(2, [1, 5, 8, 4, 2, 3, 7, 6, 1, 2, 6, 5, 4, 8, 7, 3, 1, 4, 3, 2, 5, 6, 7, 8])
    endFaceNodeIds()
    endFaceNodes()
    endFaces()
    setLocationModel(model)
    endWriting(0)
  )"));
}

TEST(WholeCases, PostPolyhedron) {
  CopyRun run(cases::postPolyhedron());
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(behindTables(run), linesOf(R"(
    beginNodes([1])
    beginNodeCoordinates([1])
    writeNodeCoordinates(1, [0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0, 1, 1, 0, 1, 1, 1, 1, 0, 1, 1])
    endNodeCoordinates()
    endNodes()
    beginCells([3])
    beginCellTypes([3], [7])
    endCellTypes()
    endCells()
    beginFaces([2])
    beginFaceNodes([2])
    beginFaceNodeCounts()
    writeUniformFaceNodeCount(2, 4)
    endFaceNodeCounts()
    beginFaceNodeIds()
    writeFaceNodeIds(2, [1, 5, 8, 4, 2, 3, 7, 6, 1, 2, 6, 5, 4, 8, 7, 3, 1, 4, 3, 2, 5, 6, 7, 8])
    endFaceNodeIds()
    endFaceNodes()
    endFaces()
    setLocationModel(model)
    endWriting(0)
  )"));
}

TEST(WholeCases, WithPartitions) {
  CopyRun run(cases::withPartitions());
  run.copier.copyCellPartitionsToDestination(true);
  run.source.setPartitionId(1);
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(behindTables(run), linesOf(R"(
    beginNodes([1])
    beginNodeCoordinates([1])
    writeNodeCoordinates(1, [1, 0, 0, 2, 0, 0, 2, 1, 0, 1, 1, 0, 1, 0, 1, 2, 0, 1, 2, 1, 1, 1, 1, 1])
    endNodeCoordinates()
    endNodes()
    beginCells([3])
    beginCellNodes([3])
    beginCellNodeCounts()
    writeUniformCellNodeCount(3, 8)
    endCellNodeCounts()
    beginCellNodeIds()
    writeCellNodeIds(3, [1, 2, 3, 4, 5, 6, 7, 8])
    endCellNodeIds()
    endCellNodes()
    beginCellTypes([3], [4])
    endCellTypes()
    beginCellPartitions([3], 2)
    writeCellPartitions(3, [1])
    endCellPartitions()
    endCells()
    beginFaces([2])
    beginFaceNodes([2])
    beginFaceNodeCounts()
    writeUniformFaceNodeCount(2, 4)
    endFaceNodeCounts()
    beginFaceNodeIds()
    writeFaceNodeIds(2, [1, 5, 8, 4, 2, 3, 7, 6, 1, 2, 6, 5, 4, 8, 7, 3, 1, 4, 3, 2, 5, 6, 7, 8])
    endFaceNodeIds()
    endFaceNodes()
    endFaces()
    setLocationModel(model)
    endWriting(0)
  )"));
}

TEST(WholeCases, WithPhysics) {
  CopyRun run(cases::withPhysics());
  run.copier.copySettingsToDestination(true);
  run.copier.copyNodeCoordinatesToDestination(false);
  run.copier.copyFacesToDestination(false, false, false);
  run.copier.setDestinationSolverFormat("boundaries");
  EXPECT_TRUE(run.copyCase());
  const Transcript calls = run.written();
  EXPECT_EQ(Transcript(std::find(calls.begin(), calls.end(), "beginCells([6, 7])"), calls.end()),
            linesOf(R"(
    beginCells([6, 7])
    beginCellTypes([6, 7], [4, 4])
    endCellTypes()
    endCells()
    setLocationModel(model)
    writeSettings([boundaries/domains/water/location = channel], 0, settings)
    writeSettings([boundaries/domains/steel/location = metal], 0, settings)
    writeSettings([boundaries/subdomains/heating/location = heater], 0, settings)
    writeSettings([boundaries/subdomains/heating/domain = steel], 0, settings)
    writeSettings([boundaries/screen/location = screen], 0, settings)
    writeSettings([boundaries/screen/domain = water], 0, settings)
    writeSettings([boundaries/friction/location = wetted], 0, settings)
    writeSettings([boundaries/friction/domain = water], 0, settings)
    writeSettings([boundaries/insulation/location = heater walls], 0, settings)
    writeSettings([boundaries/insulation/domain = steel], 0, settings)
    writeSettings([boundaries/water side/location = contact@channel], 0, settings)
    writeSettings([boundaries/water side/domain = water], 0, settings)
    writeSettings([boundaries/steel side/location = heater contact], 0, settings)
    writeSettings([boundaries/steel side/domain = steel], 0, settings)
    writeSettings([boundaries/interfaces/heat transfer/boundariesSide1 = water side], 0, settings)
    writeSettings([boundaries/interfaces/heat transfer/boundariesSide2 = steel side], 0, settings)
    writeSettings([boundaries/interfaces/heat transfer/domainsSide1 = water], 0, settings)
    writeSettings([boundaries/interfaces/heat transfer/domainsSide2 = steel], 0, settings)
    writeStandardSettings([Time = TIME, Source Format = VELTO_GENERIC, Destination Format = boundaries], 0)
    endWriting(0)
  )"));
}

TEST(WholeCases, WithResults) {
  CopyRun run(cases::withResults());
  EXPECT_TRUE(run.copy());
  const Transcript calls = run.written();
  EXPECT_EQ(
      Transcript(std::find(calls.begin(), calls.end(), "addPhases([water, air])"), calls.end()),
      linesOf(R"(
    addPhases([water, air])
    setPhaseDescription(1, liquid)
    setPhaseAttribute(1, density, 998.2)
    setPhaseAttribute(1, kind, fluid)
    beginPhase(1)
    addVariable(temperature)
    setVariableDescription(1, static temperature)
    setVariableAttribute(1, units, K)
    addVariable(velocity)
    declareVariables(0, [temperature, velocity], [1, 2])
    beginVariableZones(0)
    beginVariable(0, temperature, [1], 1)
    writeVariable(1, [280, 281, 282, 283, 284, 285, 286, 287])
    endVariable()
    endVariableZones()
    beginVariableZones(0)
    beginVariable(0, velocity, [1], 3)
    writeVariable(1, [1, 0, 0, 2, 0, 0, 3, 0, 0, 4, 0, 0, 5, 0, 0, 6, 0, 0, 7, 0, 0, 8, 0, 0])
    endVariable()
    endVariableZones()
    endPhase()
    beginPhase(1)
    addVariable(pressure)
    declareVariables(3, [pressure], [3])
    beginVariableZones(3)
    beginVariable(3, pressure, [3], 1)
    writeVariable(3, [101325])
    endVariable()
    endVariableZones()
    endPhase()
    beginPhase(2)
    addVariable(fraction)
    declareVariables(3, [fraction], [4])
    beginVariableZones(3)
    beginVariable(3, fraction, [3], 1)
    writeVariable(3, [0.25])
    endVariable()
    endVariableZones()
    endPhase()
    endWriting(1)
  )"));
}

// --- What arrived -------------------------------------------------------------------------------

class ArrivedCases : public ::testing::TestWithParam<cases::NamedCase> {};

INSTANTIATE_TEST_SUITE_P(All, ArrivedCases, ::testing::ValuesIn(cases::all()),
                         rowName<cases::NamedCase>);

TEST_P(ArrivedCases, MakeTheSameCopyOnceMore) {
  CopyRun first(GetParam().make());
  first.copier.copyCellPartitionsToDestination(true);
  EXPECT_TRUE(first.copy());
  EXPECT_EQ(first.out, "");
  EXPECT_EQ(first.err, "");
  CopyRun second(first.destination.takeCase());
  second.copier.copyCellPartitionsToDestination(true);
  EXPECT_TRUE(second.copy());
  EXPECT_EQ(second.written(), first.written());
  EXPECT_EQ(second.err, "");
}

}  // namespace
}  // namespace velto::testing
