// SPDX-License-Identifier: Apache-2.0
//
// What is asked for the tables of nodes of faces and cells, and in which order.

#include <iostream>

#include "tests/checker/ConnectivityFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using base::Family;

class NodeTablesCalls : public ConnectivityFixture {
 protected:
  /// oneHex() with other zones of faces, or of cells.
  static cases::CasePtr with(Family family, const std::vector<ZoneLists>& zones) {
    cases::CasePtr made = cases::oneHex();
    setLists(*made, family, zones);
    return made;
  }
};

std::vector<ZoneLists> zonesToAskFor() {
  return {{5, 2, 2, {}, {1, 2, 3, 4}}, {2, 2, {}, {2, 1}, {1, 2, 0}}, {9, 0, 4, {}, {}}};
}

TEST_F(NodeTablesCalls, OfFacesComeInOrder) {
  run(with(Family::faceNodes, zonesToAskFor()), checker_access::readFaceNodes);
  EXPECT_EQ(
      calls(),
      Transcript({"getMeshSize(3)", "getZoneIds(2)", "beginFaceNodes()", "beginFaceNodeCounts()",
                  "getZoneSizeInfo(5, 2)", "getUniformFaceNodeCount(5)", "getZoneSizeInfo(2, 2)",
                  "getUniformFaceNodeCount(2)", "readFaceNodeCounts(2, 2)", "getZoneSizeInfo(9, 2)",
                  "endFaceNodeCounts()", "beginFaceNodeIds()", "readFaceNodeIds(5, 4)",
                  "readFaceNodeIds(2, 3)", "readFaceNodeIds(9, 0)", "endFaceNodeIds()",
                  "endFaceNodes()"}));
}

TEST_F(NodeTablesCalls, OfCellsComeInOrder) {
  run(with(Family::cellNodes, zonesToAskFor()), checker_access::readCellNodes);
  EXPECT_EQ(
      calls(),
      Transcript({"getMeshSize(4)", "getZoneIds(3)", "beginCellNodes()", "beginCellNodeCounts()",
                  "getZoneSizeInfo(5, 2)", "getUniformCellNodeCount(5)", "getZoneSizeInfo(2, 2)",
                  "getUniformCellNodeCount(2)", "readCellNodeCounts(2, 2)", "getZoneSizeInfo(9, 2)",
                  "endCellNodeCounts()", "beginCellNodeIds()", "readCellNodeIds(5, 4)",
                  "readCellNodeIds(2, 3)", "readCellNodeIds(9, 0)", "endCellNodeIds()",
                  "endCellNodes()"}));
}

TEST_F(NodeTablesCalls, OfAMeshWithoutFacesCloseTheFamily) {
  run(with(Family::faceNodes, {}), checker_access::readFaceNodes);
  EXPECT_EQ(calls(), Transcript({"getMeshSize(3)", "getZoneIds(2)", "beginFaceNodes()",
                                 "beginFaceNodeCounts()", "endFaceNodeCounts()",
                                 "beginFaceNodeIds()", "endFaceNodeIds()", "endFaceNodes()"}));
}

TEST_F(NodeTablesCalls, AreMadeInTheirSteps) {
  prepare([](ScriptedProvider& p) {
    for (const std::string call : {"getMeshSize(3)", "beginFaceNodes", "beginFaceNodeCounts",
                                   "endFaceNodeCounts", "beginFaceNodeIds", "endFaceNodes"}) {
      p.on(call, [call](base::CaseCore&) { std::cout << "  " << call << "\n"; });
    }
  });
  EXPECT_EQ(run(cases::oneHex(), checker_access::readFaceNodes, 3).out,
            "- readFaceNodes - init\n"
            "  getMeshSize(3)\n"
            "  beginFaceNodes\n"
            "- readFaceNodes - node counts\n"
            "  beginFaceNodeCounts\n"
            "  endFaceNodeCounts\n"
            "- readFaceNodes - node ids\n"
            "  beginFaceNodeIds\n"
            "  endFaceNodes\n"
            "- readFaceNodes - face index\n");
}

TEST_F(NodeTablesCalls, CloseTheFamilyBeforeALogicError) {
  const CheckResult result =
      run(with(Family::faceNodes, {{2, 8, 1, {}, {}}}), checker_access::readFaceNodes);
  EXPECT_EQ(result.errors, Texts({"readFaceNodes : Logic error in face connectivity index"}));
  EXPECT_EQ(callsOf({"endFaceNodeIds", "endFaceNodes"}),
            Transcript({"endFaceNodeIds()", "endFaceNodes()"}));
}

/// Writes down which list the family is opened with.
class ListWatcher : public ScriptedProvider {
 public:
  ListWatcher(const cases::CasePtr& served, Transcript& handedIn)
      : ScriptedProvider(served), handedIn_(handedIn) {}

  void beginFaceNodes(std::vector<int>& zoneIds) override {
    handedIn_.push_back(callText("beginFaceNodes", zoneIds));
    ScriptedProvider::beginFaceNodes(zoneIds);
  }
  void beginCellNodes(std::vector<int>& zoneIds) override {
    handedIn_.push_back(callText("beginCellNodes", zoneIds));
    ScriptedProvider::beginCellNodes(zoneIds);
  }
  void beginCellFaces(std::vector<int>& zoneIds) override {
    handedIn_.push_back(callText("beginCellFaces", zoneIds));
    ScriptedProvider::beginCellFaces(zoneIds);
  }

 private:
  Transcript& handedIn_;
};

TEST_F(NodeTablesCalls, HandInTheZonesOfTheMeshWhereTheChecksHandInAnEmptyList) {
  Transcript handedIn;
  const TestFactory watchers([&handedIn](const std::string&) {
    return std::make_unique<ListWatcher>(cases::twoBodies(), handedIn).release();
  });
  open(cases::twoBodies());
  checker_access::readFaceNodes(checker);
  checker_access::readCellNodes(checker);
  checker_access::checkFaceConnectivity(checker);
  checker_access::checkCellConnectivity(checker);
  EXPECT_EQ(handedIn,
            Transcript({"beginFaceNodes([2, 3, 4])", "beginCellNodes([5, 6])", "beginFaceNodes([])",
                        "beginCellNodes([])", "beginCellFaces([])"}));
}

}  // namespace
}  // namespace velto::testing
