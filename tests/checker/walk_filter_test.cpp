// SPDX-License-Identifier: Apache-2.0
//
// The filters of the walk: mesh, target and partition. All at check level 0, where a pass does no
// more than make its selection.

#include <array>
#include <functional>

#include "tests/checker/CheckerFixture.h"

namespace velto::testing {
namespace {

class WalkFilter : public CheckerFixture {
 protected:
  WalkFilter() { checker.setCheckLevel(0); }
};

struct FilterRow {
  const char* name;
  std::function<void(OrvChecker&)> set;
  std::vector<std::array<int, 3>> passes;
};

std::ostream& operator<<(std::ostream& out, const FilterRow& row) { return out << row.name; }

const std::vector<std::array<int, 3>>& allPasses() {
  static const std::vector<std::array<int, 3>> kPasses = {
      {1, 0, 3}, {1, 0, 4}, {1, 1, 3}, {1, 1, 4}, {1, 2, 3}, {1, 2, 4},
      {2, 0, 3}, {2, 0, 4}, {2, 1, 3}, {2, 1, 4}, {2, 2, 3}, {2, 2, 4}};
  return kPasses;
}

/// The passes for which `chosen` holds.
template <class Chosen>
std::vector<std::array<int, 3>> passesWhere(Chosen chosen) {
  std::vector<std::array<int, 3>> passes;
  for (const auto& pass : allPasses()) {
    if (chosen(pass)) {
      passes.push_back(pass);
    }
  }
  return passes;
}

const std::vector<FilterRow>& filterRows() {
  using Pass = std::array<int, 3>;
  static const std::vector<FilterRow> kRows = {
      {"NoneByDefault", [](OrvChecker&) {}, allPasses()},
      {"OneMesh", [](OrvChecker& c) { c.setMeshId(2); },
       passesWhere([](const Pass& p) { return p[0] == 2; })},
      {"AnAbsentMesh", [](OrvChecker& c) { c.setMeshId(3); }, {}},
      {"AllMeshesForZero", [](OrvChecker& c) { c.setMeshId(0); }, allPasses()},
      {"AllMeshesForANegativeId", [](OrvChecker& c) { c.setMeshId(-1); }, allPasses()},
      {"Restart", [](OrvChecker& c) { c.setTarget("restart"); },
       passesWhere([](const Pass& p) { return p[1] == 0; })},
      {"Post", [](OrvChecker& c) { c.setTarget("post"); },
       passesWhere([](const Pass& p) { return p[1] == 1; })},
      {"PartitionedPost", [](OrvChecker& c) { c.setTarget("ppost"); },
       passesWhere([](const Pass& p) { return p[1] == 2; })},
      {"NoneForACapitalisedTarget", [](OrvChecker& c) { c.setTarget("Restart"); }, allPasses()},
      {"NoneForAnEmptyTarget",
       [](OrvChecker& c) {
         c.setTarget("post");
         c.setTarget("");
       },
       allPasses()},
      {"NoneForATargetWithABlank", [](OrvChecker& c) { c.setTarget("post "); }, allPasses()},
      {"OnePartitionOfPartitionedPostOnly", [](OrvChecker& c) { c.setPartitionId(3); },
       passesWhere([](const Pass& p) { return p[1] != 2 || p[2] == 3; })},
      {"AnAbsentPartitionOfPartitionedPostOnly", [](OrvChecker& c) { c.setPartitionId(0); },
       passesWhere([](const Pass& p) { return p[1] != 2; })},
      {"AllPartitionsForMinusOne", [](OrvChecker& c) { c.setPartitionId(-1); }, allPasses()},
      {"AllThree",
       [](OrvChecker& c) {
         c.setMeshId(2);
         c.setTarget("ppost");
         c.setPartitionId(4);
       },
       {{2, 2, 4}}},
  };
  return kRows;
}

class WalkFilterRows : public WalkFilter, public ::testing::WithParamInterface<FilterRow> {};

TEST_P(WalkFilterRows, Choose) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getMeshIds", {1, 2});
    p.answerList("getTargets", {0, 1, 2});
    p.answerList("getPartitionIds", {3, 4});
  });
  GetParam().set(checker);
  check();
  EXPECT_EQ(selections(), selected(GetParam().passes));
}

INSTANTIATE_TEST_SUITE_P(WalkFilter, WalkFilterRows, ::testing::ValuesIn(filterRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(WalkFilter, AsksNothingAboutAMeshThatTheFilterPassesOver) {
  prepare([](ScriptedProvider& p) { p.answerList("getMeshIds", {1, 2}); });
  checker.setMeshId(2);
  checker.setVerbosity(2);
  EXPECT_EQ(check().out, "Version: 3.4.5\nProcessing mesh : 2\n");
  EXPECT_EQ(callsOf({"getTargets", "getPartitionIds"}),
            Transcript({"getTargets(2, 0)", "getPartitionIds(2, 0)"}));
}

TEST_F(WalkFilter, ShowsNoLineForATargetThatTheFilterPassesOver) {
  prepare([](ScriptedProvider& p) { p.answerList("getTargets", {0, 1}); });
  checker.setTarget("post");
  checker.setVerbosity(2);
  EXPECT_EQ(check().out, "Version: 3.4.5\nProcessing mesh : 1\nProcessing target : 1\n");
}

TEST_F(WalkFilter, ShowsNoLineForAPartitionThatTheFilterPassesOver) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getTargets", {2});
    p.answerList("getPartitionIds", {3, 4});
  });
  checker.setPartitionId(4);
  checker.setVerbosity(2);
  EXPECT_EQ(check().out,
            "Version: 3.4.5\n"
            "Processing mesh : 1\n"
            "Processing target : 2\n"
            "Processing partition : 4\n");
}

TEST_F(WalkFilter, SkipsAPartitionedTargetWithoutPartitionsWholeWhereOneIsWanted) {
  prepare([](ScriptedProvider& p) { p.answerList("getTargets", {2}); });
  checker.setPartitionId(3);
  checker.setVerbosity(2);
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.out, "Version: 3.4.5\nProcessing mesh : 1\nProcessing target : 2\n");
  EXPECT_EQ(selections(), Transcript());
}

TEST_F(WalkFilter, KeepsItsOptionsBetweenRuns) {
  prepare([](ScriptedProvider& p) { p.answerList("getMeshIds", {1, 2}); });
  checker.setMeshId(2);
  check();
  transcript.clear();
  check();
  EXPECT_EQ(callsOf({"getTargets"}), Transcript({"getTargets(2, 0)"}));
}

}  // namespace
}  // namespace velto::testing
