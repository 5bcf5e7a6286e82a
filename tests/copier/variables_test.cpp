// SPDX-License-Identifier: Apache-2.0
//
// copyResults: variables and their values.

#include <gtest/gtest.h>

#include "tests/copier/copy_run.h"
#include "tests/copier/results_run.h"

namespace velto::testing {
namespace {

TEST(CopiedVariables, GoUnderTheIdsOfTheDestination) {
  const cases::CasePtr served = twoPhases()
                                    .variable(5, zoneCategoryNode, "t", 1, 1, {7, 8})
                                    .variable(5, zoneCategoryNode, "u", 1, 1, {7, 8})
                                    .build();
  served->tables.variables[0].id = 20;
  served->tables.variables[0].description = "of t";
  served->tables.variables[1].id = 10;
  served->tables.variables[1].attributes = {{"a", "1"}, {"b", "2"}};
  CopyRun run(served);
  const Transcript calls = fieldsOf(run);
  EXPECT_EQ(Transcript(calls.begin() + 6, calls.begin() + 17), linesOf(R"(
    addVariable(t)
    source: getVariableDescription(20)
    setVariableDescription(1, of t)
    source: getVariableAttributeNames(20)
    addVariable(u)
    source: getVariableDescription(10)
    source: getVariableAttributeNames(10)
    source: getVariableAttribute(10, a)
    setVariableAttribute(2, a, 1)
    source: getVariableAttribute(10, b)
    setVariableAttribute(2, b, 2)
  )"));
  EXPECT_EQ(callsOf("declareVariables", calls),
            Transcript({"declareVariables(0, [t, u], [1, 2])"}));
}

TEST(CopiedVariables, LoseAttributesThatCannotBeRead) {
  const cases::CasePtr served =
      twoPhases().variable(5, zoneCategoryNode, "t", 1, 1, {7, 8}).build();
  served->tables.variables[0].attributes = {{"a", "1"}, {"b", "2"}};
  CopyRun run(served);
  run.source.on("getVariableAttribute(1, a)", [](base::CaseCore& core) {
    core.tables.variables[0].attributes.erase(core.tables.variables[0].attributes.begin());
  });
  run.copyResults();
  EXPECT_EQ(callsOf("setVariableAttribute", run.log.lines),
            Transcript({"setVariableAttribute(1, b, 2)"}));
}

TEST(CopiedVariables, AreAskedForUnderZeroIfTheSourceKnowsNoIdOfTheirs) {
  const cases::CasePtr served = twoPhases()
                                    .variable(5, zoneCategoryNode, "t", 1, 1, {7, 8})
                                    .variable(5, zoneCategoryNode, "u", 1, 1, {7, 8})
                                    .build();
  served->tables.variables.erase(served->tables.variables.begin() + 1);
  served->tables.variables[0].id = 3;
  CopyRun run(served);
  EXPECT_EQ(
      callsOf("getVariableAttributeNames", fieldsOf(run)),
      Transcript({"source: getVariableAttributeNames(3)", "source: getVariableAttributeNames(0)"}));
  EXPECT_EQ(callsOf("getVariableDescription", run.log.lines),
            Transcript({"source: getVariableDescription(3)", "source: getVariableDescription(0)"}));
}

TEST(CopiedVariables, WithoutZonesAreDeclaredOnly) {
  CopyRun run(twoPhases().variable(5, zoneCategoryCell, "p", 3, 1, {1, 2}).build());
  run.source.answerList("beginVariable(3, p)", {});
  const Transcript calls = fieldsOf(run);
  EXPECT_EQ(Transcript(calls.begin() + 6, calls.begin() + 15), linesOf(R"(
    source: getVariableNames(3)
    beginPhase(1)
    addVariable(p)
    source: getVariableDescription(1)
    source: getVariableAttributeNames(1)
    declareVariables(3, [p], [1])
    source: beginVariable(3, p)
    source: endVariable()
    endPhase()
  )"));
}

TEST(CopiedVariables, AreWrittenForTheZonesThatAreListed) {
  CopyRun run(twoPhases()
                  .variable(5, zoneCategoryCell, "p", 4, 2, {1, 2})
                  .variable(5, zoneCategoryCell, "p", 3, 2, {3, 4, 5, 6})
                  .build());
  run.source.answerList("beginVariable(3, p)", {4, 99, 3});
  const Transcript calls = fieldsOf(run);
  EXPECT_EQ(Transcript(calls.begin() + 12, calls.begin() + 22), linesOf(R"(
    source: beginVariable(3, p)
    beginVariableZones(3)
    beginVariable(3, p, [4, 3], 2)
    source: readVariable(4, 2)
    writeVariable(4, [1, 2])
    source: readVariable(3, 4)
    writeVariable(3, [3, 4, 5, 6])
    endVariable()
    endVariableZones()
    source: endVariable()
  )"));
}

TEST(CopiedVariables, AreOpenedWithNoZoneIfNoneOfTheirsIsListed) {
  CopyRun run(twoPhases().variable(5, zoneCategoryCell, "p", 3, 1, {1, 2}).build());
  run.source.answerList("beginVariable(3, p)", {99});
  const Transcript calls = fieldsOf(run);
  EXPECT_EQ(Transcript(calls.begin() + 12, calls.begin() + 18), linesOf(R"(
    source: beginVariable(3, p)
    beginVariableZones(3)
    beginVariable(3, p, [], 1)
    endVariable()
    endVariableZones()
    source: endVariable()
  )"));
}

TEST(CopiedVariables, OfAZoneWithoutElementsAreAnEmptyWrite) {
  const cases::CasePtr served =
      twoPhases().variable(5, zoneCategoryCell, "p", 3, 2, {1, 2, 3, 4}).build();
  served->zone(3).sizes[zoneElementCount] = 0;
  CopyRun run(served);
  const Transcript calls = fieldsOf(run);
  EXPECT_EQ(callsOf("readVariable", calls), Transcript({"source: readVariable(3, 0)"}));
  EXPECT_EQ(callsOf("writeVariable", calls), Transcript({"writeVariable(3, null of 0)"}));
}

TEST(CopiedVariables, AreWrittenAsFarAsTheyArrive) {
  const cases::CasePtr served =
      twoPhases().variable(5, zoneCategoryCell, "p", 3, 2, {1, 2, 3, 4}).build();
  for (const std::size_t claim : {std::size_t{0}, std::size_t{3}, std::size_t{4}, std::size_t{5},
                                  static_cast<std::size_t>(-1)}) {
    CopyRun run(served);
    run.source.answerDelivered("readVariable", claim);
    const Transcript calls = fieldsOf(run);
    EXPECT_EQ(callsOf("writeVariable", calls),
              Transcript({claim == 0   ? "writeVariable(3, [])"
                          : claim == 3 ? "writeVariable(3, [1, 2, 3])"
                                       : "writeVariable(3, [1, 2, 3, 4])"}));
    EXPECT_EQ(run.err, "");
  }
}

TEST(CopiedVariables, AreZeroWhereNothingWasPutIntoTheBuffer) {
  CopyRun run(twoPhases().variable(5, zoneCategoryCell, "p", 3, 2, {1, 2}).build());
  run.source.answerDelivered("readVariable", 4);
  EXPECT_EQ(callsOf("writeVariable", fieldsOf(run)),
            Transcript({"writeVariable(3, [1, 2, 0, 0])"}));
}

TEST(CopiedVariables, MayHaveNoValueAnElement) {
  CopyRun run(twoPhases().variable(5, zoneCategoryCell, "p", 3, 0, {}).build());
  const Transcript calls = fieldsOf(run);
  EXPECT_EQ(callsOf("beginVariable", ofDestination(calls)),
            Transcript({"beginVariable(3, p, [3], 0)"}));
  EXPECT_EQ(callsOf("writeVariable", calls), Transcript({"writeVariable(3, null of 0)"}));
}

TEST(CopiedVariables, OfTwoPhasesMayBeTheSame) {
  CopyRun run(twoPhases()
                  .variable(5, zoneCategoryCell, "p", 3, 1, {1, 2})
                  .variable(6, zoneCategoryCell, "p", 3, 1, {3, 4})
                  .build());
  const Transcript calls = fieldsOf(run);
  EXPECT_EQ(callsOf("declareVariables", calls),
            Transcript({"declareVariables(3, [p], [1])", "declareVariables(3, [p], [1])"}));
  EXPECT_EQ(callsOf("writeVariable", calls),
            Transcript({"writeVariable(3, [1, 2])", "writeVariable(3, [3, 4])"}));
}

}  // namespace
}  // namespace velto::testing
