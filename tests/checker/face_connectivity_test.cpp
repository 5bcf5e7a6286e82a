// SPDX-License-Identifier: Apache-2.0
//
// The nodes of faces: whether each is a node of the mesh.

#include <iostream>

#include "tests/checker/ConnectivityFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using memory::Ids;

const char* const kOutOfRange = "checkFaceConnectivity : Face node ids out of node id range";
const char* const kOutOfRangeShown =
    "Error: checkFaceConnectivity: Face node ids out of node id range\n";
const char* const kNotAll = "checkFaceConnectivity : Not all face zones define node connectivity";
const char* const kNotAllShown =
    "Warning: checkFaceConnectivity: Not all face zones define node connectivity\n";

/// 131077 faces of 32767 nodes, which makes a sum of 32763 in 32 bits; the last of these is bad.
ZoneLists wrappedList() {
  ZoneLists zone = {2, 131077, {}, std::vector<short>(131077, 32767), Ids(32764, 1)};
  zone.ids[32762] = 0;
  zone.ids[32763] = 0;
  return zone;
}

struct FaceRow {
  const char* name;
  std::vector<ZoneLists> zones;
  std::function<void(ScriptedProvider&)> script;
  Texts errors;
  Texts warnings;
  std::string err;  // at verbosity 3
};

std::ostream& operator<<(std::ostream& out, const FaceRow& row) { return out << row.name; }

const std::vector<FaceRow>& faceRows() {
  static const std::vector<FaceRow> kRows = {
      {"TheFirstAndTheLastNode", {{2, 2, {}, {2, 1}, {1, 8, 4}}}, {}, {}, {}, ""},
      {"NodeZero",
       {{2, 2, {}, {2, 1}, {1, 0, 8}}},
       {},
       {kOutOfRange},
       {},
       std::string("zone 2bad node #1 = 0\n") + kOutOfRangeShown},
      {"TheNodeBehindTheLast",
       {{2, 2, {}, {2, 1}, {1, 8, 9}}},
       {},
       {kOutOfRange},
       {},
       std::string("zone 2bad node #2 = 9\n") + kOutOfRangeShown},
      {"LargeIds",
       {{2, 1, 3, {}, {18446744073709551615U, 9223372036854775808U, 9223372036854775816U}}},
       {},
       {kOutOfRange},
       {},
       std::string("zone 2bad node #0 = 18446744073709551615\n"
                   "zone 2bad node #1 = 9223372036854775808\n"
                   "zone 2bad node #2 = 9223372036854775816\n") +
           kOutOfRangeShown},
      {"BadIdsOfSeveralZonesAreOneError",
       {{7, 2, 2, {}, {0, 1, 2, 10}}, {-5, 1, {}, {3}, {8, 7, 6}}, {2, 1, {}, {3}, {0, 8, 0}}},
       {},
       {kOutOfRange},
       {},
       std::string("zone 7bad node #0 = 0\n"
                   "zone 7bad node #3 = 10\n"
                   "zone 2bad node #0 = 0\n"
                   "zone 2bad node #2 = 0\n") +
           kOutOfRangeShown},
      {"NoZones", {}, {}, {}, {}, ""},
      {"AZoneWithoutFaces", {{2, 0, 4, {}, {0, 0}}}, {}, {}, {}, ""},
      {"AZoneOfFacesWithoutNodes", {{2, 3, 0, {}, {0, 0}}}, {}, {}, {}, ""},
      {"FewerZonesListed",
       {{2, 1, 1, {}, {1}}, {3, 1, 1, {}, {0}}},
       [](ScriptedProvider& p) { p.answerList("beginFaceNodes", {2}); },
       {},
       {kNotAll},
       kNotAllShown},
      {"NoZonesListed",
       {{2, 1, 1, {}, {0}}},
       [](ScriptedProvider& p) { p.answerList("beginFaceNodes", {}); },
       {},
       {kNotAll},
       kNotAllShown},
      {"MoreZonesListed",
       {{2, 1, 1, {}, {1}}, {3, 1, 1, {}, {9}}},
       [](ScriptedProvider& p) { p.answerList("getZoneIds(2)", {2}); },
       {kOutOfRange},
       {kNotAll},
       std::string(kNotAllShown) + "zone 3bad node #0 = 9\n" + kOutOfRangeShown},
      {"OtherZonesListed",
       {{2, 1, 1, {}, {0}}, {3, 1, 1, {}, {9}}},
       [](ScriptedProvider& p) {
         p.answerList("getZoneIds(2)", {2});
         p.answerList("beginFaceNodes", {3});
       },
       {kOutOfRange},
       {},
       std::string("zone 3bad node #0 = 9\n") + kOutOfRangeShown},
      {"AZoneListedTwice",
       {{2, 1, 1, {}, {0}}},
       [](ScriptedProvider& p) {
         p.answerList("beginFaceNodes", {2, 2});
       },
       {kOutOfRange},
       {kNotAll},
       std::string(kNotAllShown) + "zone 2bad node #0 = 0\nzone 2bad node #0 = 0\n" +
           kOutOfRangeShown},
      {"IdsThatWereNotRead",
       {{2, 1, 3, {}, {8, 8, 8}}, {3, 1, 2, {}, {7}}},
       {},
       {kOutOfRange},
       {"checkFaceConnectivity : ORV - face nodes of zone 3: 1 values are there, 2 were expected"},
       std::string("zone 3bad node #1 = 0\nWarning: checkFaceConnectivity: ORV - face nodes of "
                   "zone 3: 1 values are there, 2 were expected\n") +
           kOutOfRangeShown},
      {"CountsThatCancelOut", {{2, 2, {}, {2, -2}, {0, 0}}}, {}, {}, {}, ""},
      {"NegativeCounts",
       {{2, 3, {}, {2, 4, -2}, {1, 2, 3, 9, 0, 0}}},
       {},
       {kOutOfRange},
       {},
       std::string("zone 2bad node #3 = 9\n") + kOutOfRangeShown},
      {"ASumThatWraps",
       {wrappedList()},
       {},
       {kOutOfRange},
       {},
       std::string("zone 2bad node #32762 = 0\n") + kOutOfRangeShown},
  };
  return kRows;
}

const char* const kSteps =
    "- checkFaceConnectivity - init\n"
    "- checkFaceConnectivity - node counts\n"
    "- checkFaceConnectivity - node ids\n";

class FaceConnectivity : public ConnectivityFixture {
 protected:
  CheckResult checkFaces(const cases::CasePtr& opened, int verbosity = 1) {
    return run(opened, checker_access::checkFaceConnectivity, verbosity);
  }
};

class FaceConnectivityRows : public FaceConnectivity,
                             public ::testing::WithParamInterface<FaceRow> {};

TEST_P(FaceConnectivityRows, AreJudged) {
  const FaceRow& row = GetParam();
  prepare(row.script);
  const CheckResult result = checkFaces(withFaceNodes(row.zones), 3);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, row.errors);
  EXPECT_EQ(result.warnings, row.warnings);
  EXPECT_EQ(result.out, kSteps);
  EXPECT_EQ(result.err, row.err);
}

INSTANTIATE_TEST_SUITE_P(FaceConnectivity, FaceConnectivityRows, ::testing::ValuesIn(faceRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(FaceConnectivity, RefusesAllIdsOfAMeshWithoutNodes) {
  const cases::CasePtr damaged = withFaceNodes({{2, 1, 2, {}, {1, 0}}});
  damaged->mesh().sizes[meshNodeCount] = 0;
  EXPECT_EQ(checkFaces(damaged, 3).err,
            std::string("zone 2bad node #0 = 1\nzone 2bad node #1 = 0\n") + kOutOfRangeShown);
}

TEST_F(FaceConnectivity, ShowsBadIdsAndStepsFromVerbosityThree) {
  struct Row {
    int verbosity;
    std::string out;
    std::string err;
  };
  const std::string bad = "zone 2bad node #0 = 0\n";
  for (const Row& row :
       {Row{-1, "", ""}, Row{0, "", ""}, Row{1, "", kOutOfRangeShown}, Row{2, "", kOutOfRangeShown},
        Row{3, kSteps, bad + kOutOfRangeShown}, Row{4, kSteps, bad + kOutOfRangeShown}}) {
    renewChecker();
    const CheckResult result = checkFaces(withFaceNodes({{2, 1, 1, {}, {0}}}), row.verbosity);
    EXPECT_EQ(result.out, row.out);
    EXPECT_EQ(result.err, row.err);
    EXPECT_EQ(result.errors, Texts({kOutOfRange}));
  }
}

TEST_F(FaceConnectivity, AsksInOrder) {
  checkFaces(withFaceNodes(
      {{5, 2, 2, {}, {1, 2, 3, 4}}, {2, 2, {}, {2, 1}, {1, 2, 0}}, {9, 0, 4, {}, {}}}));
  EXPECT_EQ(calls(), Transcript({"getMeshSize(1)",
                                 "getZoneIds(2)",
                                 "beginFaceNodes()",
                                 "beginFaceNodeCounts()",
                                 "getZoneSizeInfo(5, 2)",
                                 "getUniformFaceNodeCount(5)",
                                 "getZoneSizeInfo(2, 2)",
                                 "getUniformFaceNodeCount(2)",
                                 "readFaceNodeCounts(2, 2)",
                                 "getZoneSizeInfo(9, 2)",
                                 "endFaceNodeCounts()",
                                 "beginFaceNodeIds()",
                                 "readFaceNodeIds(5, 4)",
                                 "readFaceNodeIds(2, 3)",
                                 "readFaceNodeIds(9, 0)",
                                 "endFaceNodeIds()",
                                 "hasWarning()",
                                 "hasError()",
                                 "endFaceNodes()",
                                 "hasWarning()",
                                 "hasError()"}));
}

TEST_F(FaceConnectivity, GoesByTheListOfTheFamily) {
  prepare([](ScriptedProvider& p) { p.answerList("beginFaceNodes", {9, 5, 5}); });
  checkFaces(withFaceNodes({{5, 1, 1, {}, {1}}, {2, 1, 1, {}, {1}}}));
  EXPECT_EQ(
      callsOf({"getZoneSizeInfo", "getUniformFaceNodeCount", "readFaceNodeIds"}),
      Transcript({"getZoneSizeInfo(9, 2)", "getZoneSizeInfo(5, 2)", "getUniformFaceNodeCount(5)",
                  "getZoneSizeInfo(5, 2)", "getUniformFaceNodeCount(5)", "readFaceNodeIds(9, 0)",
                  "readFaceNodeIds(5, 1)", "readFaceNodeIds(5, 1)"}));
  EXPECT_EQ(checker.getWarnings(), Texts({kNotAll}));
}

TEST_F(FaceConnectivity, ClosesTheFamilyOfAMeshWithoutFaces) {
  checkFaces(withFaceNodes({}));
  EXPECT_EQ(calls(), Transcript({"getMeshSize(1)", "getZoneIds(2)", "beginFaceNodes()",
                                 "beginFaceNodeCounts()", "endFaceNodeCounts()",
                                 "beginFaceNodeIds()", "endFaceNodeIds()", "hasWarning()",
                                 "hasError()", "endFaceNodes()", "hasWarning()", "hasError()"}));
}

TEST_F(FaceConnectivity, ShowsEachStepBeforeItsCalls) {
  prepare([](ScriptedProvider& p) {
    for (const std::string call : {"getMeshSize(1)", "beginFaceNodes", "beginFaceNodeCounts",
                                   "endFaceNodeCounts", "beginFaceNodeIds", "endFaceNodes"}) {
      p.on(call, [call](base::CaseCore&) { std::cout << "  " << call << "\n"; });
    }
  });
  EXPECT_EQ(checkFaces(cases::oneHex(), 3).out,
            "- checkFaceConnectivity - init\n"
            "  getMeshSize(1)\n"
            "  beginFaceNodes\n"
            "- checkFaceConnectivity - node counts\n"
            "  beginFaceNodeCounts\n"
            "  endFaceNodeCounts\n"
            "- checkFaceConnectivity - node ids\n"
            "  beginFaceNodeIds\n"
            "  endFaceNodes\n");
}

TEST_F(FaceConnectivity, TellsOfALibraryErrorAtTheNextOfItsTwoPlaces) {
  const std::string gone = "checkFaceConnectivity : ORV - disk gone";
  struct Row {
    std::vector<std::string> calls;
    Texts errors;
  };
  for (const Row& row :
       {Row{{"getMeshSize(1)"}, {gone, kOutOfRange}}, Row{{"beginFaceNodes"}, {gone, kOutOfRange}},
        Row{{"readFaceNodeIds"}, {gone, kOutOfRange}}, Row{{"endFaceNodeIds"}, {gone, kOutOfRange}},
        Row{{"endFaceNodes"}, {kOutOfRange, gone}},
        Row{{"beginFaceNodeIds", "endFaceNodes"}, {gone, kOutOfRange, gone}}}) {
    renewChecker();
    prepare([&row](ScriptedProvider& p) {
      for (const std::string& call : row.calls) {
        failOn(p, call);
      }
    });
    const CheckResult result = checkFaces(withFaceNodes({{2, 1, 1, {}, {0}}}));
    EXPECT_FALSE(result.good) << row.calls.front();
    EXPECT_EQ(result.errors, row.errors);
  }
}

TEST_F(FaceConnectivity, IsFalseForALibraryErrorOfSoundFaces) {
  for (const std::string call : {"beginFaceNodes", "endFaceNodes"}) {
    renewChecker();
    prepare([&call](ScriptedProvider& p) { failOn(p, call); });
    const CheckResult result = checkFaces(cases::oneHex());
    EXPECT_FALSE(result.good) << call;
    EXPECT_EQ(result.errors, Texts({"checkFaceConnectivity : ORV - disk gone"}));
  }
}

TEST_F(FaceConnectivity, TellsOfLibraryWarningsAtBothPlaces) {
  prepare([](ScriptedProvider& p) {
    const auto warn = [](base::CaseCore& core) { core.messages.addWarning("slow"); };
    p.on("beginFaceNodes", warn);
    p.on("endFaceNodes", warn);
  });
  const CheckResult result = checkFaces(cases::oneHex());
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.warnings,
            Texts({"checkFaceConnectivity : ORV - slow", "checkFaceConnectivity : ORV - slow"}));
}

// --- In a run ------------------------------------------------------------------------------------

cases::CasePtr withABadNode() {
  cases::CasePtr damaged = cases::oneHex();
  Ids ids(damaged->arrays().faceNodes[2].ids.begin(), damaged->arrays().faceNodes[2].ids.end());
  ids[5] = 9;
  damaged->arrays().faceNodes[2].ids = memory::Slice<std::uint64_t>(ids);
  return damaged;
}

TEST_F(FaceConnectivity, RunsAtLevelTwoOnly) {
  serve(withABadNode());
  EXPECT_TRUE(check().good);
  EXPECT_EQ(callsOf({"beginFaceNodeIds"}), Transcript());
  checker.setCheckLevel(2);
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({kOutOfRange}));
}

TEST_F(FaceConnectivity, LeavesTheRunGoingAfterABadId) {
  serve(withABadNode());
  checker.setCheckLevel(2);
  check();
  EXPECT_EQ(callsOf({"endFaceNodes", "beginCellNodeIds", "endFaceShadows"}),
            Transcript({"endFaceNodes()", "beginCellNodeIds()", "endFaceShadows()"}));
}

TEST_F(FaceConnectivity, LeavesTheRunGoingAfterALibraryErrorThatItTookOver) {
  // What the run asks behind the check finds no error any more.
  prepare([](ScriptedProvider& p) { failOn(p, "endFaceNodes"); });
  checker.setCheckLevel(2);
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkFaceConnectivity : ORV - disk gone"}));
  EXPECT_EQ(callsOf({"beginCellNodeIds"}), Transcript({"beginCellNodeIds()"}));
}

TEST_F(FaceConnectivity, LeavesAListThatCannotBeHadToTheCaller) {
  for (const ZoneLists& zone : listsThatCannotBeHad(2)) {
    open(withFaceNodes({zone}));
    EXPECT_TRUE(wantsMemory(checker_access::checkFaceConnectivity));
    expectToBeUsable();
  }
}

TEST_F(FaceConnectivity, CountsBadIdsBeyond32Bits) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getZoneIds(2)", std::vector<int>(65536, 2));
    p.answerList("beginFaceNodes", std::vector<int>(65536, 2));
  });
  const CheckResult result = checkFaces(withFaceNodes({{2, 65536, 1, {}, Ids(65536, 0)}}));
  EXPECT_EQ(result.errors, Texts({kOutOfRange}));
  EXPECT_EQ(callsOf({"readFaceNodeIds"}), Transcript(65536, "readFaceNodeIds(2, 65536)"));
}

}  // namespace
}  // namespace velto::testing
