// SPDX-License-Identifier: Apache-2.0
//
// ScriptedProvider: the transcript, actions on calls, and scripted answers.

#include <array>
#include <gtest/gtest.h>
#include <stdexcept>

#include "testing/ScriptedProvider.h"
#include "testing/cases.h"

namespace velto::testing {
namespace {

TEST(ScriptedProvider, RecordsQueriesThatAreNotVirtual) {
  Transcript calls;
  ScriptedProvider provider(cases::oneHex(), &calls);
  std::uint64_t size = 0;
  int id = 0;
  provider.startReading("duct.orv", dataClassCase);
  provider.setMeshId(1);
  provider.getMeshSize(meshNodeCount, size);
  EXPECT_EQ(size, 8U);
  EXPECT_FALSE(provider.hasWarning());
  EXPECT_TRUE(provider.hasTarget(targetRestart));
  EXPECT_FALSE(provider.getSettings(dataClassCase, "domains", 1).isValid());
  EXPECT_FALSE(provider.getVariableId("pressure", id));
  EXPECT_EQ(calls, Transcript({"startReading(duct.orv, 0)", "setMeshId(1)", "getMeshSize(1)",
                               "hasWarning()", "hasTarget(0)", "getSettings(0, domains, 1)",
                               "getVariableId(pressure)"}));
}

TEST(ScriptedProvider, RunsAnActionOnEachCallOfAnOperation) {
  ScriptedProvider provider(cases::oneHex());
  provider.on("getZoneCount", [](base::CaseCore& core) { core.messages.addWarning("odd"); });
  provider.getZoneCount(zoneCategoryNode);
  provider.getZoneCount(zoneCategoryFace);
  EXPECT_EQ(provider.getWarnings(true, true),
            std::vector<std::string>({"Warning:\n\todd", "Warning:\n\todd"}));
}

TEST(ScriptedProvider, RunsAnActionOnOneCallText) {
  ScriptedProvider provider(cases::oneHex());
  provider.on("getZoneCount(2)", [](base::CaseCore& core) { core.messages.addError("faces"); });
  provider.getZoneCount(zoneCategoryNode);
  EXPECT_FALSE(provider.hasError());
  provider.getZoneCount(zoneCategoryFace);
  EXPECT_TRUE(provider.hasError());
}

TEST(ScriptedProvider, RunsAnActionOnTheNthCallOnly) {
  ScriptedProvider provider(cases::oneHex());
  int runs = 0;
  provider.on("setMeshId", 2, [&runs](base::CaseCore&) { ++runs; });
  provider.setMeshId(1);
  EXPECT_EQ(runs, 0);
  provider.setMeshId(1);
  provider.setMeshId(1);
  EXPECT_EQ(runs, 1);
}

TEST(ScriptedProvider, ActsBeforeTheCallIsCarriedOut) {
  ScriptedProvider provider(cases::oneHex());
  provider.startReading("", dataClassCase);
  provider.on("getMeshSize", [](base::CaseCore& core) {
    core.tables.meshes[core.selection].sizes[meshNodeCount] = 5;
  });
  std::uint64_t nodes = 0;
  provider.getMeshSize(meshNodeCount, nodes);
  EXPECT_EQ(nodes, 5U);
}

TEST(ScriptedProvider, ThrowsWhatAnActionThrows) {
  Transcript calls;
  ScriptedProvider provider(cases::oneHex(), &calls);
  provider.on("endFaceNodes", [](base::CaseCore&) { throw std::runtime_error("disk gone"); });
  EXPECT_THROW(provider.endFaceNodes(), std::runtime_error);
  EXPECT_EQ(calls, Transcript({"endFaceNodes()"}));
}

TEST(ScriptedProvider, RefusesToReadWithAReason) {
  Transcript calls;
  ScriptedProvider provider(cases::oneHex(), &calls);
  provider.refuseToRead("duct.orv: cut off");
  EXPECT_FALSE(provider.startReading("duct.orv", dataClassCase));
  EXPECT_EQ(provider.getErrors(true, true),
            std::vector<std::string>({"Error:\n\tduct.orv: cut off"}));
  EXPECT_EQ(calls, Transcript({"startReading(duct.orv, 0)", "getErrors(true, true)"}));
}

TEST(ScriptedProvider, AnswersLists) {
  ScriptedProvider provider(cases::oneHex());
  provider.startReading("", dataClassCase);
  provider.answerList("getMeshIds", {3, 1});
  provider.answerList("getTargets", {7});
  provider.answerList("getTargets(3, 0)", {});
  provider.answerList("beginFaceNodes", {2, 2});
  std::vector<int> list;
  provider.getMeshIds(list, dataClassCase);
  EXPECT_EQ(list, std::vector<int>({3, 1}));
  provider.getTargets(list, 1, dataClassCase);
  EXPECT_EQ(list, std::vector<int>({7}));
  provider.getTargets(list, 3, dataClassCase);
  EXPECT_EQ(list, std::vector<int>());
  provider.beginFaceNodes(list);
  EXPECT_EQ(list, std::vector<int>({2, 2}));
}

TEST(ScriptedProvider, LeavesAListAlone) {
  ScriptedProvider provider(cases::oneHex());
  provider.startReading("", dataClassCase);
  provider.leaveList("beginFaceNodes");
  std::vector<int> list = {9, 8};
  provider.beginFaceNodes(list);
  EXPECT_EQ(list, std::vector<int>({9, 8}));
  provider.getZoneIds(zoneCategoryFace, list);
  EXPECT_EQ(list, std::vector<int>({2}));
}

TEST(ScriptedProvider, DeliversLessThanItHas) {
  ScriptedProvider provider(cases::oneHex());
  provider.startReading("", dataClassCase);
  provider.deliverAtMost("readFaceCell0", 4);
  std::array<std::uint64_t, 6> cells{};
  provider.readFaceCell0(2, cells.data(), cells.size());
  EXPECT_EQ(cells, (std::array<std::uint64_t, 6>{1, 1, 1, 1, 0, 0}));
  EXPECT_FALSE(provider.hasWarning());
}

TEST(ScriptedProvider, AnswersForOneElement) {
  ScriptedProvider provider(cases::oneHex());
  provider.startReading("", dataClassCase);
  provider.answerElement("getFaceCell0(3)", 7);
  provider.answerElement("getCellType", 5);
  std::vector<int> list;
  provider.beginFaceCell0(list);
  EXPECT_EQ(provider.getFaceCell0(2), 1U);
  EXPECT_EQ(provider.getFaceCell0(3), 7U);
  provider.beginCellTypes(list);
  EXPECT_EQ(provider.getCellType(1), 5);
}

TEST(ScriptedProvider, AnswersForAWholeZone) {
  ScriptedProvider provider(cases::oneHex());
  provider.startReading("", dataClassCase);
  short count = 0;
  EXPECT_TRUE(provider.getUniformFaceNodeCount(2, count));
  EXPECT_EQ(count, 4);
  provider.answerUniform("getUniformFaceNodeCount(2)", 3);
  EXPECT_TRUE(provider.getUniformFaceNodeCount(2, count));
  EXPECT_EQ(count, 3);
  provider.answerUniform("getUniformCellType", std::nullopt);
  int type = -1;
  EXPECT_FALSE(provider.getUniformCellType(3, type));
}

TEST(ScriptedProvider, AnswersWhatAReadDelivered) {
  ScriptedProvider provider(cases::oneHex());
  provider.startReading("", dataClassCase);
  provider.answerDelivered("readNodeCoordinates", 99);
  std::array<double, 24> values{};
  EXPECT_EQ(provider.readNodeCoordinates(1, values.data(), 24), 99U);
  EXPECT_EQ(values[23], 1);
}

TEST(ScriptedProvider, AnswersAVersion) {
  ScriptedProvider provider(cases::oneHex());
  provider.answerVersion(4, 5, 6);
  int major = 0;
  int minor = 0;
  int patch = 0;
  provider.getFileVersion(dataClassCase, major, minor, patch);
  EXPECT_EQ(std::vector<int>({major, minor, patch}), std::vector<int>({4, 5, 6}));
}

TEST(ScriptedProvider, RecordsItsDestruction) {
  Transcript calls;
  OrvFileIO* provider = new ScriptedProvider(cases::oneHex(), &calls, "provider 1");
  delete provider;
  EXPECT_EQ(calls, Transcript({"~provider 1"}));
}

}  // namespace
}  // namespace velto::testing
