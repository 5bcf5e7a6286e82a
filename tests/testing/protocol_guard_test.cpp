// SPDX-License-Identifier: Apache-2.0
//
// ProtocolGuard: every kind of call outside its bracket, and what is tolerated.

#include <array>
#include <functional>
#include <gtest/gtest.h>

#include "testing/ProtocolGuard.h"
#include "testing/ScriptedProvider.h"
#include "testing/cases.h"

namespace velto::testing {
namespace {

using Texts = std::vector<std::string>;

std::vector<int> zones;
std::array<std::uint64_t, 24> ids{};
std::array<short, 8> counts{};
std::array<double, 24> values{};
short count = 0;
int type = 0;

void readFaceNodesWell(OrvFileProvider& provider) {
  provider.beginFaceNodes(zones);
  provider.beginFaceNodeCounts();
  provider.getUniformFaceNodeCount(2, count);
  provider.endFaceNodeCounts();
  provider.beginFaceNodeIds();
  provider.readFaceNodeIds(2, ids.data(), 24);
  provider.endFaceNodeIds();
  provider.endFaceNodes();
}

struct GuardRow {
  const char* name;
  std::function<void(OrvFileProvider&)> calls;
  Texts violations;
  Texts leftOpen;
};

std::ostream& operator<<(std::ostream& out, const GuardRow& row) { return out << row.name; }

class ProtocolGuardRows : public ::testing::TestWithParam<GuardRow> {};

TEST_P(ProtocolGuardRows, Finds) {
  ScriptedProvider target(cases::withResults());
  target.startReading("", dataClassCase);
  ProtocolGuard guard(target);
  GetParam().calls(guard);
  EXPECT_EQ(guard.violations(), GetParam().violations);
  EXPECT_EQ(guard.leftOpen(), GetParam().leftOpen);
}

const std::vector<GuardRow>& goodRows() {
  static const std::vector<GuardRow> kRows = {
      {"AWholeFamily", readFaceNodesWell, {}, {}},
      {"ListingOnly",
       [](OrvFileProvider& p) {
         p.beginCellFaces(zones);
         p.endCellFaces();
       },
       {},
       {}},
      {"AFamilyThatStaysOpen",
       [](OrvFileProvider& p) { p.beginCellNodes(zones); },
       {},
       {"cell nodes"}},
      {"AFamilyLeftForAnother",
       [](OrvFileProvider& p) {
         p.beginCellTypes(zones);
         readFaceNodesWell(p);
       },
       {},
       {"cell types"}},
      {"AFamilyLeftByANewSelection",
       [](OrvFileProvider& p) {
         p.beginCellTypes(zones);
         p.setPartitionId(-1);
       },
       {},
       {"cell types"}},
      {"FieldData",
       [](OrvFileProvider& p) {
         Texts names;
         p.beginPhase(1);
         p.getVariableNames(zoneCategoryNode, names);
         p.beginVariable(zoneCategoryNode, "velocity", zones);
         p.readVariable(1, values.data(), 24);
         p.endVariable();
         p.endPhase();
       },
       {},
       {}},
  };
  return kRows;
}

const std::vector<GuardRow>& badRows() {
  static const std::vector<GuardRow> kRows = {
      {"AReadWithoutBegin",
       [](OrvFileProvider& p) {
         p.readNodeCoordinates(1, values.data(), 24);
         p.getFaceCell0(1);
         p.getFaceShadow(1);
         p.getUniformCellType(3, type);
         p.getCellPartitionInfo(3);
       },
       {"readNodeCoordinates(1, 24): outside node coordinates",
        "getFaceCell0(1): outside side-0 cells", "getFaceShadow(1): outside shadow faces",
        "getUniformCellType(3): outside cell types",
        "getCellPartitionInfo(3): outside cell partitions"},
       {}},
      {"AReadOfTheOtherSide",
       [](OrvFileProvider& p) {
         p.beginFaceCell0(zones);
         p.getFaceCell1(1);
         p.endFaceCell0();
       },
       {"getFaceCell1(1): outside side-1 cells"},
       {}},
      {"AnEndWithoutBegin",
       [](OrvFileProvider& p) { p.endFaceTree(); },
       {"endFaceTree(): outside face tree"},
       {}},
      {"AnEndCalledTwice",
       [](OrvFileProvider& p) {
         readFaceNodesWell(p);
         p.endFaceNodes();
       },
       {"endFaceNodes(): outside face nodes"},
       {}},
      {"CountsOutsideTheCountPass",
       [](OrvFileProvider& p) {
         p.beginFaceNodes(zones);
         p.getUniformFaceNodeCount(2, count);
         p.beginFaceNodeIds();
         p.readFaceNodeCounts(2, counts.data(), 6);
         p.endFaceNodeIds();
         p.endFaceNodes();
       },
       {"getUniformFaceNodeCount(2): outside the counts of face nodes",
        "readFaceNodeCounts(2, 6): outside the counts of face nodes"},
       {}},
      {"IdsOutsideTheIdPass",
       [](OrvFileProvider& p) {
         p.beginFaceNodes(zones);
         p.beginFaceNodeCounts();
         p.readFaceNodeIds(2, ids.data(), 24);
         p.endFaceNodeCounts();
         p.endFaceNodeIds();
         p.endFaceNodes();
       },
       {"readFaceNodeIds(2, 24): outside the ids of face nodes",
        "endFaceNodeIds(): outside the ids of face nodes"},
       {}},
      {"APassWithoutItsFamily",
       [](OrvFileProvider& p) {
         p.beginCellNodeCounts();
         p.endCellNodeCounts();
       },
       {"beginCellNodeCounts(): outside cell nodes", "endCellNodeCounts(): outside cell nodes"},
       {}},
      {"PassesThatOverlap",
       [](OrvFileProvider& p) {
         p.beginCellFaces(zones);
         p.beginCellFaceCounts();
         p.beginCellFaceIds();
         p.endCellFaces();
       },
       {"beginCellFaceIds(): the counts of cell faces are still open",
        "endCellFaces(): the ids of cell faces are still open"},
       {}},
      {"NestedFamilies",
       [](OrvFileProvider& p) {
         p.beginFaceCell0(zones);
         p.beginFaceCell1(zones);
         p.getFaceCell0(1);
         p.endFaceCell1();
         p.endFaceCell0();
       },
       {"getFaceCell0(1): outside side-0 cells", "endFaceCell0(): outside side-0 cells"},
       {"side-0 cells"}},
      {"AReadAfterANewSelection",
       [](OrvFileProvider& p) {
         p.beginFaceCell0(zones);
         p.setMeshId(2);
         p.getFaceCell0(1);
       },
       {"getFaceCell0(1): outside side-0 cells"},
       {"side-0 cells"}},
      {"AVariableWithoutItsPhase",
       [](OrvFileProvider& p) {
         Texts names;
         p.getVariableNames(zoneCategoryNode, names);
         p.beginVariable(zoneCategoryNode, "velocity", zones);
         p.endVariable();
         p.endPhase();
       },
       {"getVariableNames(0): outside a phase", "beginVariable(0, velocity): outside a phase",
        "endPhase(): outside a phase"},
       {}},
      {"AReadWithoutItsVariable",
       [](OrvFileProvider& p) {
         p.beginPhase(1);
         p.readVariable(1, values.data(), 24);
         p.endVariable();
         p.endPhase();
       },
       {"readVariable(1, 24): outside a variable", "endVariable(): outside a variable"},
       {}},
      {"APhaseInAPhase",
       [](OrvFileProvider& p) {
         p.beginPhase(1);
         p.beginPhase(2);
         p.endPhase();
       },
       {"beginPhase(2): a phase is still open"},
       {}},
      {"AVariableThatStaysOpen",
       [](OrvFileProvider& p) {
         p.beginPhase(1);
         p.beginVariable(zoneCategoryNode, "velocity", zones);
         p.endPhase();
       },
       {"endPhase(): a variable is still open"},
       {}},
  };
  return kRows;
}

INSTANTIATE_TEST_SUITE_P(NoFaultIn, ProtocolGuardRows, ::testing::ValuesIn(goodRows()),
                         [](const auto& row) { return std::string(row.param.name); });
INSTANTIATE_TEST_SUITE_P(Fault, ProtocolGuardRows, ::testing::ValuesIn(badRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ProtocolGuard, PassesCallsAndQueriesOn) {
  Transcript calls;
  ScriptedProvider target(cases::oneHex(), &calls);
  ProtocolGuard guard(target);
  EXPECT_TRUE(guard.startReading("duct.orv", dataClassCase));
  guard.setMeshId(1);
  guard.beginFaceNodes(zones);
  EXPECT_EQ(zones, std::vector<int>({2}));
  EXPECT_EQ(calls, Transcript({"startReading(duct.orv, 0)", "setMeshId(1)", "beginFaceNodes()"}));
}

TEST(ProtocolGuard, LeavesTheObserverAsItWas) {
  Transcript calls;
  ScriptedProvider target(cases::oneHex(), &calls);
  { const ProtocolGuard guard(target); }
  target.setMeshId(1);
  EXPECT_EQ(calls, Transcript({"setMeshId(1)"}));
}

}  // namespace
}  // namespace velto::testing
