// SPDX-License-Identifier: Apache-2.0
//
// ForwardingConsumer passes every call on, with its arguments.

#include <array>
#include <gtest/gtest.h>

#include "testing/ForwardingConsumer.h"
#include "testing/RecordingConsumer.h"

namespace velto::testing {
namespace {

class ForwardingConsumerTest : public ::testing::Test {
 protected:
  Transcript calls_;
  RecordingConsumer target_{&calls_};
  ForwardingConsumer forwarder_{static_cast<OrvFileConsumer&>(target_)};
  const std::array<std::uint64_t, 2> ids_ = {1, 2};
  const std::array<std::size_t, 2> elemIds_ = {10, 20};
  const std::array<double, 2> doubles_ = {0.5, 1e300};
  const std::array<short, 2> shorts_ = {3, 4};
  const std::array<int, 2> ints_ = {4, 5};
};

TEST_F(ForwardingConsumerTest, PassesBracketsAndSettings) {
  int major = 0;
  int minor = 0;
  int patch = 0;
  std::vector<int> ids = {9};
  forwarder_.setBaseOption(false);
  forwarder_.setFileName("copy.orv", dataClassCase);
  forwarder_.getFileVersion(dataClassCase, major, minor, patch);
  forwarder_.setMode(2);
  forwarder_.setCompression(6);
  forwarder_.startWriting(dataClassCase);
  forwarder_.setSolverType("VELTO_GENERIC");
  forwarder_.writeMeshAttributes();
  forwarder_.writeStandardSettings({{"Time", "now"}, {"Source Format", "memory"}}, dataClassCase);
  forwarder_.writeSettings({{"a/b", "c"}}, dataClassCase, "settings");
  EXPECT_EQ(forwarder_.getZoneCount(zoneCategoryCell), 0U);
  forwarder_.getZoneIds(zoneCategoryCell, ids);
  forwarder_.endWriting(dataClassCase);
  EXPECT_EQ(major, 1);
  EXPECT_EQ(ids, std::vector<int>());
  EXPECT_EQ(calls_,
            Transcript({"setBaseOption(false)", "setFileName(copy.orv, 0)", "getFileVersion(0)",
                        "setMode(2)", "setCompression(6)", "startWriting(0)",
                        "setSolverType(VELTO_GENERIC)", "writeMeshAttributes()",
                        "writeStandardSettings([Time = now, Source Format = memory], 0)",
                        "writeSettings([a/b = c], 0, settings)", "getZoneCount(3)", "getZoneIds(3)",
                        "endWriting(0)"}));
}

TEST_F(ForwardingConsumerTest, PassesNodesAndFaces) {
  forwarder_.beginNodes({1});
  forwarder_.writeElemIds(1, elemIds_.data(), 2);
  forwarder_.beginNodeCoordinates({1});
  forwarder_.writeNodeCoordinates(1, doubles_.data(), 2);
  forwarder_.endNodeCoordinates();
  forwarder_.endNodes();
  forwarder_.beginFaces({2, 3});
  forwarder_.beginFaceNodes({2, 3});
  forwarder_.beginFaceNodeCounts();
  forwarder_.writeUniformFaceNodeCount(2, 4);
  forwarder_.writeFaceNodeCounts(3, shorts_.data(), 2);
  forwarder_.endFaceNodeCounts();
  forwarder_.beginFaceNodeIds();
  forwarder_.writeFaceNodeIds(2, ids_.data(), 2);
  forwarder_.endFaceNodeIds();
  forwarder_.endFaceNodes();
  forwarder_.beginFaceCell0({2});
  forwarder_.writeFaceCell0(2, ids_.data(), 2);
  forwarder_.endFaceCell0();
  forwarder_.beginFaceCell1({2});
  forwarder_.writeFaceCell1(2, nullptr, 0);
  forwarder_.endFaceCell1();
  forwarder_.endFaces();
  EXPECT_EQ(calls_, Transcript({"beginNodes([1])",
                                "writeElemIds(1, [10, 20])",
                                "beginNodeCoordinates([1])",
                                "writeNodeCoordinates(1, [0.5, 1e+300])",
                                "endNodeCoordinates()",
                                "endNodes()",
                                "beginFaces([2, 3])",
                                "beginFaceNodes([2, 3])",
                                "beginFaceNodeCounts()",
                                "writeUniformFaceNodeCount(2, 4)",
                                "writeFaceNodeCounts(3, [3, 4])",
                                "endFaceNodeCounts()",
                                "beginFaceNodeIds()",
                                "writeFaceNodeIds(2, [1, 2])",
                                "endFaceNodeIds()",
                                "endFaceNodes()",
                                "beginFaceCell0([2])",
                                "writeFaceCell0(2, [1, 2])",
                                "endFaceCell0()",
                                "beginFaceCell1([2])",
                                "writeFaceCell1(2, null of 0)",
                                "endFaceCell1()",
                                "endFaces()"}));
}

TEST_F(ForwardingConsumerTest, PassesCells) {
  forwarder_.beginCells({3});
  forwarder_.beginCellTypes({3}, {0});
  forwarder_.writeCellTypes(3, ints_.data(), 2);
  forwarder_.endCellTypes();
  forwarder_.beginCellNodes({3});
  forwarder_.beginCellNodeCounts();
  forwarder_.writeCellNodeCounts(3, shorts_.data(), 2);
  forwarder_.writeUniformCellNodeCount(3, 8);
  forwarder_.endCellNodeCounts();
  forwarder_.beginCellNodeIds();
  forwarder_.writeCellNodeIds(3, ids_.data(), 2);
  forwarder_.endCellNodeIds();
  forwarder_.endCellNodes();
  forwarder_.beginCellPartitions({3}, 7);
  forwarder_.writeCellPartitions(3, ints_.data(), 2);
  forwarder_.endCellPartitions();
  forwarder_.endCells();
  EXPECT_EQ(calls_,
            Transcript({"beginCells([3])", "beginCellTypes([3], [0])", "writeCellTypes(3, [4, 5])",
                        "endCellTypes()", "beginCellNodes([3])", "beginCellNodeCounts()",
                        "writeCellNodeCounts(3, [3, 4])", "writeUniformCellNodeCount(3, 8)",
                        "endCellNodeCounts()", "beginCellNodeIds()", "writeCellNodeIds(3, [1, 2])",
                        "endCellNodeIds()", "endCellNodes()", "beginCellPartitions([3], 7)",
                        "writeCellPartitions(3, [4, 5])", "endCellPartitions()", "endCells()"}));
}

TEST_F(ForwardingConsumerTest, PassesFieldData) {
  std::vector<short> phases;
  int variable = 0;
  forwarder_.addPhases({"water", "air"}, phases);
  EXPECT_EQ(phases, std::vector<short>({1, 2}));
  forwarder_.setPhaseDescription(1, "liquid");
  forwarder_.setPhaseAttribute(1, "kind", "fluid");
  forwarder_.beginPhase(1);
  forwarder_.addVariable("pressure", variable);
  EXPECT_EQ(variable, 1);
  forwarder_.setVariableDescription(1, "static");
  forwarder_.setVariableAttribute(1, "units", "Pa");
  forwarder_.declareVariables(zoneCategoryCell, {"pressure"}, {1});
  forwarder_.beginVariableZones(zoneCategoryCell);
  forwarder_.beginVariable(zoneCategoryCell, "pressure", {3}, 1);
  forwarder_.writeVariable(3, doubles_.data(), 2);
  forwarder_.endVariable();
  forwarder_.endVariableZones();
  forwarder_.endPhase();
  EXPECT_EQ(
      calls_,
      Transcript({"addPhases([water, air])", "setPhaseDescription(1, liquid)",
                  "setPhaseAttribute(1, kind, fluid)", "beginPhase(1)", "addVariable(pressure)",
                  "setVariableDescription(1, static)", "setVariableAttribute(1, units, Pa)",
                  "declareVariables(3, [pressure], [1])", "beginVariableZones(3)",
                  "beginVariable(3, pressure, [3], 1)", "writeVariable(3, [0.5, 1e+300])",
                  "endVariable()", "endVariableZones()", "endPhase()"}));
}

TEST_F(ForwardingConsumerTest, SharesTheTablesOfTheTarget) {
  forwarder_.setMeshId(4);
  forwarder_.setMeshSize(meshNodeCount, 12);
  std::uint64_t nodes = 0;
  target_.getMeshSize(meshNodeCount, nodes);
  EXPECT_EQ(nodes, 12U);
  EXPECT_EQ(calls_, Transcript({"setMeshId(4)", "setMeshSize(1, 12)", "getMeshSize(1)"}));
}

}  // namespace
}  // namespace velto::testing
