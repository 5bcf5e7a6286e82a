// SPDX-License-Identifier: Apache-2.0
//
// copyCase: nodes, types and partitions of cells.

#include <gtest/gtest.h>

#include "embedded/base/shapes.h"
#include "embedded/memory/CaseBuilder.h"
#include "tests/copier/copy_run.h"

namespace velto::testing {
namespace {

using base::cellShapeHexahedron;
using base::cellShapeMixed;
using base::cellShapeTetrahedron;
using base::cellShapeWedge;

/// A copy of nothing but some of the cells, behind one of the tables of some cell zones.
class CellRun : public CopyRun {
 public:
  explicit CellRun(const cases::CasePtr& served, const std::vector<int>& known = {5, 6, 7})
      : CopyRun(served) {
    source.answerList("getZoneIds(3)", known);
    mapZones();
  }

  Transcript nodes() { return inCells(true, false, false); }
  Transcript types() { return inCells(false, true, false); }
  Transcript partitions() { return inCells(false, false, true); }

 private:
  /// What happens between beginCells and endCells.
  Transcript inCells(bool cellNodes, bool cellTypes, bool cellPartitions) {
    copier.copyCellsToDestination(true, cellNodes, cellTypes);
    copier.copyCellPartitionsToDestination(cellPartitions);
    const Transcript calls = moved();
    return Transcript(calls.begin() + 1, calls.end() - 1);
  }
};

/// Cell zones 5 (two tetrahedra), 6 (a tetrahedron and a hexahedron) and 7 (a wedge), with nodes
/// and with partitions.
cases::CasePtr threeZones() {
  cases::CasePtr made = memory::CaseBuilder()
                            .cells(5, "a", cellShapeTetrahedron, 2)
                            .cells(6, "b", {cellShapeTetrahedron, cellShapeHexahedron})
                            .cells(7, "c", cellShapeWedge, 1)
                            .cellNodes(5, {{1, 2, 3, 4}, {2, 3, 4, 5}})
                            .cellNodes(6, {{5, 6, 7, 8}, {1, 2, 3, 4, 5, 6, 7, 8}})
                            .cellNodes(7, {{1, 2, 3, 4, 5, 6}})
                            .build();
  memory::MeshData& data = made->arrays();
  for (const int zone : {5, 6, 7}) {
    data.cellPartitions[zone].info = 10 * zone;
  }
  data.cellPartitions[5].partitions = memory::Slice<int>(std::vector<int>{0, -1});
  data.cellPartitions[6].partitions = memory::Slice<int>(std::vector<int>{2, 3});
  data.cellPartitions[7].partitions = memory::Slice<int>(std::vector<int>{4});
  return made;
}

cases::CasePtr withoutCells(const cases::CasePtr& made, int zone) {
  made->zone(zone).sizes[zoneElementCount] = 0;
  return made;
}

// --- Nodes --------------------------------------------------------------------------------------

TEST(CopiedCellNodes, GoCountsFirstAndThenTheIds) {
  CellRun run(threeZones());
  EXPECT_EQ(run.nodes(), linesOf(R"(
    source: beginCellNodes()
    beginCellNodes([5, 6, 7])
    source: beginCellNodeCounts()
    beginCellNodeCounts()
    source: getUniformCellNodeCount(5)
    writeUniformCellNodeCount(5, 4)
    source: getUniformCellNodeCount(6)
    source: readCellNodeCounts(6, 2)
    writeCellNodeCounts(6, [4, 8])
    source: getUniformCellNodeCount(7)
    writeUniformCellNodeCount(7, 6)
    source: endCellNodeCounts()
    endCellNodeCounts()
    source: beginCellNodeIds()
    beginCellNodeIds()
    source: readCellNodeIds(5, 8)
    writeCellNodeIds(5, [1, 2, 3, 4, 2, 3, 4, 5])
    source: readCellNodeIds(6, 12)
    writeCellNodeIds(6, [5, 6, 7, 8, 1, 2, 3, 4, 5, 6, 7, 8])
    source: readCellNodeIds(7, 6)
    writeCellNodeIds(7, [1, 2, 3, 4, 5, 6])
    source: endCellNodeIds()
    endCellNodeIds()
    endCellNodes()
    source: endCellNodes()
  )"));
}

TEST(CopiedCellNodes, AreNotWrittenIfNoZoneHasThem) {
  CellRun run(threeZones());
  run.source.answerList("beginCellNodes", {});
  EXPECT_EQ(run.nodes(), Transcript({"source: beginCellNodes()", "source: endCellNodes()"}));
}

TEST(CopiedCellNodes, OfZonesThatWereNotCopiedAreLeftOut) {
  CellRun run(threeZones(), {7, 6});
  run.source.answerList("beginCellNodes", {7, 5, 99, 6});
  EXPECT_EQ(ofDestination(run.nodes()), linesOf(R"(
    beginCellNodes([7, 6])
    beginCellNodeCounts()
    writeUniformCellNodeCount(7, 6)
    writeCellNodeCounts(6, [4, 8])
    endCellNodeCounts()
    beginCellNodeIds()
    writeCellNodeIds(7, [1, 2, 3, 4, 5, 6])
    writeCellNodeIds(6, [5, 6, 7, 8, 1, 2, 3, 4, 5, 6, 7, 8])
    endCellNodeIds()
    endCellNodes()
  )"));
}

TEST(CopiedCellNodes, AreOpenedAndClosedIfNoListedZoneWasCopied) {
  CellRun run(threeZones(), {1});
  EXPECT_EQ(run.nodes(), linesOf(R"(
    source: beginCellNodes()
    beginCellNodes([])
    source: beginCellNodeCounts()
    beginCellNodeCounts()
    source: endCellNodeCounts()
    endCellNodeCounts()
    source: beginCellNodeIds()
    beginCellNodeIds()
    source: endCellNodeIds()
    endCellNodeIds()
    endCellNodes()
    source: endCellNodes()
  )"));
}

TEST(CopiedCellNodes, OfAZoneWithoutCellsAreAnEmptyListWithoutCounts) {
  CellRun run(withoutCells(withoutCells(threeZones(), 5), 6));
  run.source.answerList("beginCellNodes", {5, 6});
  EXPECT_EQ(run.nodes(), linesOf(R"(
    source: beginCellNodes()
    beginCellNodes([5, 6])
    source: beginCellNodeCounts()
    beginCellNodeCounts()
    source: endCellNodeCounts()
    endCellNodeCounts()
    source: beginCellNodeIds()
    beginCellNodeIds()
    source: readCellNodeIds(5, 0)
    writeCellNodeIds(5, null of 0)
    source: readCellNodeIds(6, 0)
    writeCellNodeIds(6, null of 0)
    source: endCellNodeIds()
    endCellNodeIds()
    endCellNodes()
    source: endCellNodes()
  )"));
}

TEST(CopiedCellNodes, AreZeroWhereTheSourceHasFewer) {
  const cases::CasePtr served = threeZones();
  served->arrays().cellNodes[6].counts = memory::Slice<short>(std::vector<short>{3});
  served->arrays().cellNodes[6].ids =
      memory::Slice<std::uint64_t>(std::vector<std::uint64_t>{18446744073709551615U, 8});
  CellRun run(served);
  run.source.answerList("beginCellNodes", {6});
  const Transcript calls = run.nodes();
  EXPECT_EQ(callsOf("writeCellNodeCounts", calls), Transcript({"writeCellNodeCounts(6, [3, 0])"}));
  EXPECT_EQ(callsOf("writeCellNodeIds", calls),
            Transcript({"writeCellNodeIds(6, [18446744073709551615, 8, 0])"}));
  EXPECT_EQ(run.err, "") << "a short read is not noticed";
}

TEST(CopiedCellNodes, MayBeAUniformCountOfZero) {
  const cases::CasePtr served = threeZones();
  served->arrays().cellNodes[5].uniform = static_cast<short>(0);
  CellRun run(served);
  run.source.answerList("beginCellNodes", {5});
  const Transcript calls = run.nodes();
  EXPECT_EQ(callsOf("writeUniformCellNodeCount", calls),
            Transcript({"writeUniformCellNodeCount(5, 0)"}));
  EXPECT_EQ(callsOf("writeCellNodeIds", calls), Transcript({"writeCellNodeIds(5, null of 0)"}));
}

TEST(CopiedCellNodes, TakeTheSumOfNegativeCountsAsItIs) {
  const cases::CasePtr served = threeZones();
  served->arrays().cellNodes[6].counts = memory::Slice<short>(std::vector<short>{5, -2});
  CellRun run(served);
  run.source.answerList("beginCellNodes", {6});
  const Transcript calls = run.nodes();
  EXPECT_EQ(callsOf("writeCellNodeCounts", calls), Transcript({"writeCellNodeCounts(6, [5, -2])"}));
  EXPECT_EQ(callsOf("writeCellNodeIds", calls), Transcript({"writeCellNodeIds(6, [5, 6, 7])"}));
}

TEST(CopiedCellNodes, OfAZoneThatIsListedTwiceAreWrittenTwice) {
  CellRun run(threeZones());
  run.source.answerList("beginCellNodes", {7, 7});
  EXPECT_EQ(ofDestination(run.nodes()), linesOf(R"(
    beginCellNodes([7, 7])
    beginCellNodeCounts()
    writeUniformCellNodeCount(7, 6)
    writeUniformCellNodeCount(7, 6)
    endCellNodeCounts()
    beginCellNodeIds()
    writeCellNodeIds(7, [1, 2, 3, 4, 5, 6])
    writeCellNodeIds(7, [1, 2, 3, 4, 5, 6])
    endCellNodeIds()
    endCellNodes()
  )"));
}

// --- Types --------------------------------------------------------------------------------------

TEST(CopiedCellTypes, AreSaidAheadOfTheWritesIfTheyAreUniform) {
  CellRun run(threeZones());
  EXPECT_EQ(run.types(), linesOf(R"(
    source: beginCellTypes()
    source: getUniformCellType(5)
    source: getUniformCellType(6)
    source: getUniformCellType(7)
    beginCellTypes([5, 6, 7], [2, 0, 6])
    source: readCellTypes(6, 2)
    writeCellTypes(6, [2, 4])
    endCellTypes()
    source: endCellTypes()
  )"));
  EXPECT_EQ(run.err, "");
}

TEST(CopiedCellTypes, AreNotWrittenIfNoZoneHasThem) {
  CellRun run(threeZones());
  run.source.answerList("beginCellTypes", {});
  EXPECT_EQ(run.types(), Transcript({"source: beginCellTypes()", "source: endCellTypes()"}));
}

TEST(CopiedCellTypes, AreReadIfTheUniformOneIsZero) {
  const cases::CasePtr served = threeZones();
  served->arrays().cellTypes[5].uniform = cellShapeMixed;
  CellRun run(served);
  run.source.answerList("beginCellTypes", {5});
  EXPECT_EQ(run.types(), linesOf(R"(
    source: beginCellTypes()
    source: getUniformCellType(5)
    beginCellTypes([5], [0])
    source: readCellTypes(5, 2)
    writeCellTypes(5, [0, 0])
    endCellTypes()
    source: endCellTypes()
  )"));
}

TEST(CopiedCellTypes, MayBeUniformAndNegative) {
  const cases::CasePtr served = threeZones();
  served->arrays().cellTypes[5].uniform = -1;
  CellRun run(served);
  run.source.answerList("beginCellTypes", {5});
  EXPECT_EQ(ofDestination(run.types()),
            Transcript({"beginCellTypes([5], [-1])", "endCellTypes()"}));
}

TEST(CopiedCellTypes, OfAZoneWithoutCellsAreNotRead) {
  CellRun run(withoutCells(threeZones(), 6));
  EXPECT_EQ(run.types(), linesOf(R"(
    source: beginCellTypes()
    source: getUniformCellType(5)
    source: getUniformCellType(6)
    source: getUniformCellType(7)
    beginCellTypes([5, 6, 7], [2, 0, 6])
    endCellTypes()
    source: endCellTypes()
  )"));
}

TEST(CopiedCellTypes, AreNotWrittenIfMoreOrFewerArrive) {
  for (const std::size_t delivered :
       {std::size_t{0}, std::size_t{1}, std::size_t{3}, static_cast<std::size_t>(-1)}) {
    CellRun run(threeZones());
    run.source.answerDelivered("readCellTypes", delivered);
    EXPECT_EQ(ofDestination(run.types()),
              Transcript({"beginCellTypes([5, 6, 7], [2, 0, 6])", "endCellTypes()"}));
    EXPECT_EQ(run.err, "Warning: Inconsistent cell type size for zone '6'\n");
    EXPECT_EQ(run.out, "");
  }
}

TEST(CopiedCellTypes, GoOnBehindAZoneThatWasNotWritten) {
  const cases::CasePtr served = threeZones();
  served->arrays().cellTypes[5].uniform.reset();
  served->arrays().cellTypes[7].uniform.reset();
  served->arrays().cellTypes[7].types = memory::Slice<int>(std::vector<int>{7});
  CellRun run(served);
  EXPECT_EQ(ofDestination(run.types()), linesOf(R"(
    beginCellTypes([5, 6, 7], [0, 0, 0])
    writeCellTypes(6, [2, 4])
    writeCellTypes(7, [7])
    endCellTypes()
  )"));
  EXPECT_EQ(run.err, "Warning: Inconsistent cell type size for zone '5'\n");
}

TEST(CopiedCellTypes, AreZeroWhereNothingWasPutIntoTheBuffer) {
  const cases::CasePtr served = threeZones();
  served->arrays().cellTypes[6].types = memory::Slice<int>(std::vector<int>{4});
  CellRun run(served);
  run.source.answerDelivered("readCellTypes", 2);
  EXPECT_EQ(callsOf("writeCellTypes", run.types()), Transcript({"writeCellTypes(6, [4, 0])"}));
}

// Types keep the positions of the whole list where zones were left out of it.
TEST(CopiedCellTypes, HavePositionsOfTheWholeListAlsoIfZonesAreLeftOut) {
  CellRun run(threeZones(), {6, 7});
  EXPECT_EQ(run.types(), linesOf(R"(
    source: beginCellTypes()
    source: getUniformCellType(6)
    source: getUniformCellType(7)
    beginCellTypes([6, 7], [0, 0, 6])
    source: readCellTypes(6, 2)
    writeCellTypes(6, [2, 4])
    source: readCellTypes(7, 1)
    writeCellTypes(7, [6])
    endCellTypes()
    source: endCellTypes()
  )"));
}

TEST(CopiedCellTypes, EndWithTheZonesThatWereCopied) {
  CellRun run(threeZones(), {7});
  run.source.answerList("beginCellTypes", {7, 6, 5});
  EXPECT_EQ(run.types(), linesOf(R"(
    source: beginCellTypes()
    source: getUniformCellType(7)
    beginCellTypes([7], [6, 0, 0])
    endCellTypes()
    source: endCellTypes()
  )"));
}

TEST(CopiedCellTypes, AreOpenedAndClosedIfNoListedZoneWasCopied) {
  CellRun run(threeZones(), {1});
  EXPECT_EQ(run.types(), linesOf(R"(
    source: beginCellTypes()
    beginCellTypes([], [0, 0, 0])
    endCellTypes()
    source: endCellTypes()
  )"));
}

// --- Partitions ---------------------------------------------------------------------------------

TEST(CopiedCellPartitions, GoWithWhatIsSaidOfTheFirstZone) {
  CellRun run(threeZones());
  EXPECT_EQ(run.partitions(), linesOf(R"(
    source: beginCellPartitions()
    source: getCellPartitionInfo(5)
    source: getCellPartitionInfo(6)
    source: getCellPartitionInfo(7)
    beginCellPartitions([5, 6, 7], 50)
    source: readCellPartitions(5, 2)
    writeCellPartitions(5, [0, -1])
    source: readCellPartitions(6, 2)
    writeCellPartitions(6, [2, 3])
    source: readCellPartitions(7, 1)
    writeCellPartitions(7, [4])
    endCellPartitions()
    source: endCellPartitions()
  )"));
}

TEST(CopiedCellPartitions, AreNotWrittenIfNoZoneHasThem) {
  CellRun run(threeZones());
  run.source.answerList("beginCellPartitions", {});
  EXPECT_EQ(run.partitions(),
            Transcript({"source: beginCellPartitions()", "source: endCellPartitions()"}));
}

TEST(CopiedCellPartitions, OfAZoneWithoutCellsAreAnEmptyWrite) {
  CellRun run(withoutCells(threeZones(), 7));
  run.source.answerList("beginCellPartitions", {7});
  EXPECT_EQ(run.partitions(), linesOf(R"(
    source: beginCellPartitions()
    source: getCellPartitionInfo(7)
    beginCellPartitions([7], 70)
    source: readCellPartitions(7, 0)
    writeCellPartitions(7, null of 0)
    endCellPartitions()
    source: endCellPartitions()
  )"));
}

TEST(CopiedCellPartitions, OfZonesThatWereNotCopiedAreLeftOut) {
  CellRun run(threeZones(), {6, 7});
  EXPECT_EQ(run.partitions(), linesOf(R"(
    source: beginCellPartitions()
    source: getCellPartitionInfo(6)
    source: getCellPartitionInfo(7)
    beginCellPartitions([6, 7], 60)
    source: readCellPartitions(6, 2)
    writeCellPartitions(6, [2, 3])
    source: readCellPartitions(7, 1)
    writeCellPartitions(7, [4])
    endCellPartitions()
    source: endCellPartitions()
  )"));
}

TEST(CopiedCellPartitions, AreOpenedAndClosedIfNoListedZoneWasCopied) {
  CellRun run(threeZones(), {1});
  EXPECT_EQ(run.partitions(), linesOf(R"(
    source: beginCellPartitions()
    beginCellPartitions([], 0)
    endCellPartitions()
    source: endCellPartitions()
  )"));
}

TEST(CopiedCellPartitions, AreZeroWhereTheSourceHasFewer) {
  const cases::CasePtr served = threeZones();
  served->arrays().cellPartitions[6].partitions = memory::Slice<int>(std::vector<int>{9});
  CellRun run(served);
  EXPECT_EQ(callsOf("writeCellPartitions", run.partitions()),
            Transcript({"writeCellPartitions(5, [0, -1])", "writeCellPartitions(6, [9, 0])",
                        "writeCellPartitions(7, [4])"}));
  EXPECT_EQ(run.err, "");
}

// --- Together -----------------------------------------------------------------------------------

TEST(CopiedCells, GoAsNodesThenTypesThenPartitions) {
  CellRun run(threeZones());
  run.copier.copyCellsToDestination(true, true, true);
  run.copier.copyCellPartitionsToDestination(true);
  Transcript opened;
  for (const std::string& call : ofDestination(run.moved())) {
    if (call.find('[') != std::string::npos && call.compare(0, 5, "begin") == 0) {
      opened.push_back(call);
    }
  }
  EXPECT_EQ(opened, Transcript({"beginCells([5, 6, 7])", "beginCellNodes([5, 6, 7])",
                                "beginCellTypes([5, 6, 7], [2, 0, 6])",
                                "beginCellPartitions([5, 6, 7], 50)"}));
}

TEST(CopiedCells, StayBehindWithTheFacesThatTheyList) {
  CellRun run(cases::postPolyhedron(), {3});
  run.copier.copyCellsToDestination(true, true, true);
  run.copyCase(false);
  EXPECT_EQ(callsOf("beginCellFaces", run.log.lines), Transcript());
}

}  // namespace
}  // namespace velto::testing
