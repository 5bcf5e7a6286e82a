// SPDX-License-Identifier: Apache-2.0
//
// ForwardingProvider passes every call on, with its arguments and its answer.

#include <array>
#include <gtest/gtest.h>

#include "testing/ForwardingProvider.h"
#include "testing/ScriptedProvider.h"
#include "testing/cases.h"

namespace velto::testing {
namespace {

class ForwardingProviderTest : public ::testing::Test {
 protected:
  Transcript calls_;
  ScriptedProvider target_{cases::withResults(), &calls_};
  ForwardingProvider forwarder_{static_cast<OrvFileProvider&>(target_)};
  std::vector<int> zones_;
  std::array<double, 8> doubles_{};
  std::array<int, 8> ints_{};
  std::array<short, 8> shorts_{};
  std::array<std::uint64_t, 24> ids_{};
  short count_ = 0;
};

TEST_F(ForwardingProviderTest, PassesQueriesOfTheFile) {
  int major = 0;
  int minor = 0;
  int patch = 0;
  std::vector<std::string> keys;
  std::string value;
  forwarder_.setBaseOption(true);
  forwarder_.setFileName("duct.orv", dataClassResults);
  EXPECT_TRUE(forwarder_.startReading("duct.orv", dataClassCase));
  forwarder_.getFileVersion(dataClassCase, major, minor, patch);
  forwarder_.setSolverType("VELTO_OTHER");
  forwarder_.getSettingsKeys(dataClassCase, keys);
  forwarder_.getSettingsValue(dataClassCase, "Time", value, "settings");
  forwarder_.getMeshIds(zones_, dataClassCase);
  forwarder_.getTargets(zones_, 1, dataClassCase);
  forwarder_.getPartitionIds(zones_, 1, dataClassCase);
  EXPECT_EQ(forwarder_.getZoneCount(zoneCategoryFace), 1U);
  forwarder_.getZoneIds(zoneCategoryFace, zones_);
  EXPECT_EQ(major, 1);
  EXPECT_EQ(zones_, std::vector<int>({2}));
  EXPECT_EQ(
      calls_,
      Transcript({"setBaseOption(true)", "setFileName(duct.orv, 1)", "startReading(duct.orv, 0)",
                  "getFileVersion(0)", "setSolverType(VELTO_OTHER)", "getSettingsKeys(0)",
                  "getSettingsValue(0, Time, settings)", "getMeshIds(0)", "getTargets(1, 0)",
                  "getPartitionIds(1, 0)", "getZoneCount(2)", "getZoneIds(2)"}));
}

TEST_F(ForwardingProviderTest, PassesTheCountedFamilies) {
  forwarder_.startReading("", dataClassCase);
  calls_.clear();
  forwarder_.beginFaceNodes(zones_);
  EXPECT_EQ(zones_, std::vector<int>({2}));
  forwarder_.beginFaceNodeCounts();
  EXPECT_TRUE(forwarder_.getUniformFaceNodeCount(2, count_));
  EXPECT_EQ(count_, 4);
  forwarder_.readFaceNodeCounts(2, shorts_.data(), 6);
  forwarder_.endFaceNodeCounts();
  forwarder_.beginFaceNodeIds();
  forwarder_.readFaceNodeIds(2, ids_.data(), 24);
  EXPECT_EQ(ids_[23], 8U);
  forwarder_.endFaceNodeIds();
  forwarder_.endFaceNodes();
  forwarder_.beginCellNodes(zones_);
  forwarder_.beginCellNodeCounts();
  EXPECT_FALSE(forwarder_.getUniformCellNodeCount(3, count_));
  forwarder_.readCellNodeCounts(3, shorts_.data(), 1);
  forwarder_.endCellNodeCounts();
  forwarder_.beginCellNodeIds();
  forwarder_.readCellNodeIds(3, ids_.data(), 8);
  forwarder_.endCellNodeIds();
  forwarder_.endCellNodes();
  forwarder_.beginCellFaces(zones_);
  forwarder_.beginCellFaceCounts();
  EXPECT_FALSE(forwarder_.getUniformCellFaceCount(3, count_));
  forwarder_.readCellFaceCounts(3, shorts_.data(), 1);
  forwarder_.endCellFaceCounts();
  forwarder_.beginCellFaceIds();
  forwarder_.readCellFaceIds(3, ids_.data(), 6);
  forwarder_.endCellFaceIds();
  forwarder_.endCellFaces();
  EXPECT_EQ(
      calls_,
      Transcript({"beginFaceNodes()",         "beginFaceNodeCounts()", "getUniformFaceNodeCount(2)",
                  "readFaceNodeCounts(2, 6)", "endFaceNodeCounts()",   "beginFaceNodeIds()",
                  "readFaceNodeIds(2, 24)",   "endFaceNodeIds()",      "endFaceNodes()",
                  "beginCellNodes()",         "beginCellNodeCounts()", "getUniformCellNodeCount(3)",
                  "readCellNodeCounts(3, 1)", "endCellNodeCounts()",   "beginCellNodeIds()",
                  "readCellNodeIds(3, 8)",    "endCellNodeIds()",      "endCellNodes()",
                  "beginCellFaces()",         "beginCellFaceCounts()", "getUniformCellFaceCount(3)",
                  "readCellFaceCounts(3, 1)", "endCellFaceCounts()",   "beginCellFaceIds()",
                  "readCellFaceIds(3, 6)",    "endCellFaceIds()",      "endCellFaces()"}));
}

TEST_F(ForwardingProviderTest, PassesTheFamiliesWithoutCounts) {
  forwarder_.startReading("", dataClassCase);
  calls_.clear();
  std::vector<int> children;
  int type = 0;
  forwarder_.beginNodeCoordinates(zones_);
  EXPECT_EQ(forwarder_.readNodeCoordinates(1, doubles_.data(), 8), 8U);
  forwarder_.endNodeCoordinates();
  forwarder_.beginFaceCell0(zones_);
  EXPECT_EQ(forwarder_.getFaceCell0(6), 1U);
  forwarder_.readFaceCell0(2, ids_.data(), 6);
  forwarder_.endFaceCell0();
  forwarder_.beginFaceCell1(zones_);
  EXPECT_EQ(forwarder_.getFaceCell1(6), 0U);
  forwarder_.readFaceCell1(2, ids_.data(), 6);
  forwarder_.endFaceCell1();
  forwarder_.beginFaceShadows(zones_);
  EXPECT_EQ(forwarder_.getFaceShadow(6), 0U);
  forwarder_.endFaceShadows();
  forwarder_.beginFaceTree(zones_, children);
  forwarder_.endFaceTree();
  forwarder_.beginCellTypes(zones_);
  EXPECT_TRUE(forwarder_.getUniformCellType(3, type));
  EXPECT_EQ(forwarder_.getCellType(1), 4);
  EXPECT_EQ(forwarder_.readCellTypes(3, ints_.data(), 1), 1U);
  forwarder_.endCellTypes();
  forwarder_.beginCellPartitions(zones_);
  EXPECT_EQ(forwarder_.getCellPartitionInfo(3), 0);
  forwarder_.readCellPartitions(3, ints_.data(), 1);
  forwarder_.endCellPartitions();
  EXPECT_EQ(calls_, Transcript({"beginNodeCoordinates()",  "readNodeCoordinates(1, 8)",
                                "endNodeCoordinates()",    "beginFaceCell0()",
                                "getFaceCell0(6)",         "readFaceCell0(2, 6)",
                                "endFaceCell0()",          "beginFaceCell1()",
                                "getFaceCell1(6)",         "readFaceCell1(2, 6)",
                                "endFaceCell1()",          "beginFaceShadows()",
                                "getFaceShadow(6)",        "endFaceShadows()",
                                "beginFaceTree()",         "endFaceTree()",
                                "beginCellTypes()",        "getUniformCellType(3)",
                                "getCellType(1)",          "readCellTypes(3, 1)",
                                "endCellTypes()",          "beginCellPartitions()",
                                "getCellPartitionInfo(3)", "readCellPartitions(3, 1)",
                                "endCellPartitions()"}));
}

TEST_F(ForwardingProviderTest, PassesTheFieldData) {
  forwarder_.startReading("", dataClassCase);
  calls_.clear();
  std::vector<std::string> names;
  std::string text;
  forwarder_.beginPhase(1);
  EXPECT_TRUE(forwarder_.getPhaseDescription(1, text));
  EXPECT_EQ(text, "liquid");
  EXPECT_TRUE(forwarder_.getPhaseAttributeNames(1, names));
  EXPECT_TRUE(forwarder_.getPhaseAttribute(1, "density", text));
  EXPECT_EQ(text, "998.2");
  forwarder_.getVariableNames(zoneCategoryNode, names);
  EXPECT_EQ(names, std::vector<std::string>({"temperature", "velocity"}));
  EXPECT_TRUE(forwarder_.getVariableDescription(1, text));
  EXPECT_TRUE(forwarder_.getVariableAttributeNames(1, names));
  EXPECT_TRUE(forwarder_.getVariableAttribute(1, "units", text));
  EXPECT_EQ(forwarder_.beginVariable(zoneCategoryNode, "temperature", zones_), 1U);
  EXPECT_EQ(forwarder_.readVariable(1, doubles_.data(), 8), 8U);
  EXPECT_EQ(doubles_[7], 287);
  forwarder_.endVariable();
  forwarder_.endPhase();
  EXPECT_EQ(calls_,
            Transcript({"beginPhase(1)", "getPhaseDescription(1)", "getPhaseAttributeNames(1)",
                        "getPhaseAttribute(1, density)", "getVariableNames(0)",
                        "getVariableDescription(1)", "getVariableAttributeNames(1)",
                        "getVariableAttribute(1, units)", "beginVariable(0, temperature)",
                        "readVariable(1, 8)", "endVariable()", "endPhase()"}));
}

TEST_F(ForwardingProviderTest, SharesSelectionTablesAndMessages) {
  forwarder_.startReading("", dataClassCase);
  forwarder_.setMeshId(7);
  EXPECT_EQ(target_.getMeshId(), 7);
  target_.setMeshId(1);
  std::uint64_t nodes = 0;
  forwarder_.getMeshSize(meshNodeCount, nodes);
  EXPECT_EQ(nodes, 8U);
  base::coreOf(target_).messages.addError("disk gone");
  EXPECT_EQ(forwarder_.getErrors(true, true), std::vector<std::string>({"Error:\n\tdisk gone"}));
  EXPECT_FALSE(target_.hasError());
}

/// Writes down when calls go into the target and come out of it.
class Doorkeeper : public ForwardingProvider {
 public:
  Doorkeeper(OrvFileProvider& target, Transcript& lines)
      : ForwardingProvider(target), lines_(lines) {}

 protected:
  void onEnter() override { lines_.emplace_back("in"); }
  void onLeave() noexcept override { lines_.emplace_back("out"); }

 private:
  Transcript& lines_;
};

TEST_F(ForwardingProviderTest, TellsWhenACallIsInTheTarget) {
  target_.on("endFaceTree", [](base::CaseCore&) { throw 1; });
  Doorkeeper keeper(target_, calls_);
  EXPECT_EQ(keeper.getZoneCount(zoneCategoryFace), 0U);
  keeper.beginFaceTree(zones_, zones_);
  EXPECT_THROW(keeper.endFaceTree(), int);
  EXPECT_EQ(calls_, Transcript({"in", "getZoneCount(2)", "out", "in", "beginFaceTree()", "out",
                                "in", "endFaceTree()", "out"}));
}

TEST_F(ForwardingProviderTest, LeavesTheTargetToItsOwner) {
  { const ForwardingProvider passing(static_cast<OrvFileProvider&>(target_)); }
  EXPECT_EQ(calls_, Transcript());
}

}  // namespace
}  // namespace velto::testing
