// SPDX-License-Identifier: Apache-2.0
//
// copyResults: its frame, phases, and sides that are no files.

#include <gtest/gtest.h>

#include "tests/copier/HiddenDestination.h"
#include "tests/copier/HiddenSource.h"
#include "tests/copier/copy_run.h"
#include "tests/copier/results_run.h"

namespace velto::testing {
namespace {

// --- The frame ----------------------------------------------------------------------------------

TEST(CopiedResults, AreTablesAloneIfThereAreNoPhases) {
  CopyRun run(memory::CaseBuilder().nodes(1, "points", {{0, 0, 0}}).build());
  run.copier.setVerbose(true);
  EXPECT_TRUE(run.copyResults());
  EXPECT_EQ(run.out,
            "Copying problem size\n"
            "Copying zone topology\n"
            "Writing results\n"
            "  Writing phase variables\n"
            "  Results written\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.written(), linesOf(R"(
    startWriting(1)
    setSolverType(VELTO_GENERIC)
    setMeshSize(0, 3)
    setMeshSize(1, 1)
    setMeshSize(2, 0)
    setMeshSize(3, 0)
    setMeshSize(4, 0)
    setZoneIds(0, [1])
    setZoneSizeInfo(1, 0, 1)
    setZoneSizeInfo(1, 1, 1)
    setZoneSizeInfo(1, 3, 3)
    setZoneStringInfo(1, 0, points)
    setZoneIds(2, [])
    setZoneIds(3, [])
    endWriting(1)
  )"));
}

TEST(CopiedResults, AreLeftOpenIfThereAreNoZones) {
  CopyRun run(memory::CaseBuilder().phase(1, "water").build());
  run.copier.setVerbose(true);
  EXPECT_TRUE(run.copyResults());
  EXPECT_EQ(run.out,
            "Copying problem size\n"
            "Copying zone topology\n"
            "Skipping results as no mesh written\n");
  EXPECT_EQ(run.written(), linesOf(R"(
    startWriting(1)
    setSolverType(VELTO_GENERIC)
    setMeshSize(0, 3)
    setMeshSize(1, 0)
    setMeshSize(2, 0)
    setMeshSize(3, 0)
    setMeshSize(4, 0)
    setZoneIds(0, [])
    setZoneIds(2, [])
    setZoneIds(3, [])
  )"));
  EXPECT_EQ(callsOf("getPhaseIds", run.log.lines), Transcript());
}

TEST(CopiedResults, AreWrittenForZonesOfACopyBeforeIfThereAreNone) {
  CopyRun run(cases::oneHex());
  run.mapZones();
  const cases::CasePtr none = memory::CaseBuilder().build();
  LoggedSource empty(none, run.log);
  empty.startReading("case", dataClassCase);
  run.copier.setSource(&empty);
  EXPECT_TRUE(run.copyResults());
  EXPECT_EQ(run.log.lines.back(), "endWriting(1)");
}

TEST(CopiedResults, SelectNoMesh) {
  CopyRun run(cases::withResults());
  run.destination.setMeshId(7);
  EXPECT_TRUE(run.copyResults());
  EXPECT_EQ(callsOf("setMeshId", run.log.lines), Transcript());
  EXPECT_EQ(run.destination.getMeshId(), 7);
}

TEST(CopiedResults, NeedNoCopyOfTheCase) {
  CopyRun alone(cases::withResults());
  EXPECT_TRUE(alone.copyResults());
  const Transcript expected = alone.log.lines;
  CopyRun run(cases::withResults());
  run.copyCase();
  EXPECT_TRUE(run.copyResults());
  EXPECT_EQ(run.log.lines, expected);
}

TEST(CopiedResults, StartWithTheSolverFormatAndGoThroughTheSizes) {
  CopyRun run(cases::oneHex());
  run.copier.setDestinationSolverFormat("TARGET");
  run.copyResults();
  EXPECT_EQ(Transcript(run.log.lines.begin(), run.log.lines.begin() + 5),
            Transcript({"startWriting(1)", "setSolverType(TARGET)", "source: getMeshSize(0)",
                        "setMeshSize(0, 3)", "source: getMeshSize(1)"}));
}

// --- Phases -------------------------------------------------------------------------------------

TEST(CopiedPhases, GoUnderTheIdsOfTheDestination) {
  CopyRun run(twoPhases().variable(6, zoneCategoryNode, "t", 1, 1, {7, 8}).build());
  EXPECT_EQ(fieldsOf(run), linesOf(R"(
    addPhases([water, air])
    source: getPhaseDescription(5)
    source: getPhaseAttributeNames(5)
    source: beginPhase(5)
    source: getVariableNames(0)
    source: getVariableNames(2)
    source: getVariableNames(3)
    source: endPhase()
    source: getPhaseDescription(6)
    source: getPhaseAttributeNames(6)
    source: beginPhase(6)
    source: getVariableNames(0)
    beginPhase(2)
    addVariable(t)
    source: getVariableDescription(1)
    source: getVariableAttributeNames(1)
    declareVariables(0, [t], [1])
    source: beginVariable(0, t)
    beginVariableZones(0)
    beginVariable(0, t, [1], 1)
    source: readVariable(1, 2)
    writeVariable(1, [7, 8])
    endVariable()
    endVariableZones()
    source: endVariable()
    endPhase()
    source: getVariableNames(2)
    source: getVariableNames(3)
    source: endPhase()
  )"));
}

TEST(CopiedPhases, WithoutANameAreLeftOut) {
  const cases::CasePtr served =
      twoPhases().variable(5, zoneCategoryNode, "t", 1, 1, {7, 8}).build();
  served->tables.phases[0].name.reset();
  CopyRun run(served);
  EXPECT_EQ(fieldsOf(run), linesOf(R"(
    addPhases([air])
    source: getPhaseDescription(6)
    source: getPhaseAttributeNames(6)
    source: beginPhase(6)
    source: getVariableNames(0)
    source: getVariableNames(2)
    source: getVariableNames(3)
    source: endPhase()
  )"));
  EXPECT_EQ(callsOf("getPhaseName", run.log.lines),
            Transcript({"source: getPhaseName(5)", "source: getPhaseName(6)"}));
}

TEST(CopiedPhases, AreAddedAsAnEmptyListIfNoneHasAName) {
  const cases::CasePtr served = twoPhases().build();
  served->tables.phases[0].name.reset();
  served->tables.phases[1].name.reset();
  CopyRun run(served);
  EXPECT_EQ(fieldsOf(run), Transcript({"addPhases([])"}));
}

TEST(CopiedPhases, MayHaveAnEmptyName) {
  const cases::CasePtr served = twoPhases().build();
  served->tables.phases[0].name = "";
  CopyRun run(served);
  EXPECT_EQ(fieldsOf(run)[0], "addPhases([, air])");
}

TEST(CopiedPhases, TakeDescriptionAndAttributesWithThem) {
  const cases::CasePtr served = twoPhases().build();
  served->tables.phases[1].description = "";
  served->tables.phases[1].attributes = {{"b", "1"}, {"a", ""}};
  CopyRun run(served);
  run.source.on("getPhaseAttribute(6, a)", [](base::CaseCore&) {});
  const Transcript calls = fieldsOf(run);
  EXPECT_EQ(Transcript(calls.begin() + 8, calls.begin() + 16), linesOf(R"(
    source: getPhaseDescription(6)
    setPhaseDescription(2, )
    source: getPhaseAttributeNames(6)
    source: getPhaseAttribute(6, b)
    setPhaseAttribute(2, b, 1)
    source: getPhaseAttribute(6, a)
    setPhaseAttribute(2, a, )
    source: beginPhase(6)
  )"));
}

TEST(CopiedPhases, LoseAttributesThatCannotBeRead) {
  const cases::CasePtr served = twoPhases().build();
  served->tables.phases[0].attributes = {{"a", "1"}, {"b", "2"}, {"c", "3"}};
  CopyRun run(served);
  run.source.on("getPhaseAttribute(5, b)", [](base::CaseCore& core) {
    core.tables.phases[0].attributes.erase(core.tables.phases[0].attributes.begin() + 1);
  });
  run.copyResults();
  EXPECT_EQ(callsOf("setPhaseAttribute", run.log.lines),
            Transcript({"setPhaseAttribute(1, a, 1)", "setPhaseAttribute(1, c, 3)"}));
}

/// A destination that gives phases ids of its own, for as many as it likes.
class OwnPhases : public LoggedDestination {
 public:
  OwnPhases(CopyLog& log, std::vector<short> ids) : LoggedDestination(log), ids_(std::move(ids)) {}
  void addPhases(const std::vector<std::string>& names, std::vector<short>& phaseIds) override {
    EXPECT_EQ(phaseIds, std::vector<short>());
    LoggedDestination::addPhases(names, phaseIds);
    phaseIds = ids_;
  }

 private:
  std::vector<short> ids_;
};

TEST(CopiedPhases, GoByPosition) {
  CopyRun run(twoPhases()
                  .variable(5, zoneCategoryNode, "t", 1, 1, {7, 8})
                  .variable(6, zoneCategoryNode, "t", 1, 1, {7, 8})
                  .build());
  OwnPhases destination(run.log, {-3, 9});
  run.copier.setDestination(&destination);
  run.copyResults();
  EXPECT_EQ(callsOf("beginPhase", run.log.lines),
            Transcript({"source: beginPhase(5)", "beginPhase(-3)", "source: beginPhase(6)",
                        "beginPhase(9)"}));
}

TEST(CopiedPhases, ThatGetNoIdGoNowhere) {
  CopyRun run(twoPhases().variable(6, zoneCategoryNode, "t", 1, 1, {7, 8}).build());
  OwnPhases destination(run.log, {4});
  run.copier.setDestination(&destination);
  EXPECT_TRUE(run.copyResults());
  EXPECT_EQ(callsOf("beginPhase", run.log.lines), Transcript({"source: beginPhase(5)"}));
  EXPECT_EQ(run.log.lines.back(), "endWriting(1)");
}

TEST(CopiedPhases, AreOpenedOnceForEachKindOfZoneThatHasVariables) {
  CopyRun run(twoPhases()
                  .variable(5, zoneCategoryCell, "p", 3, 1, {1, 2})
                  .variable(5, zoneCategoryNode, "t", 1, 1, {7, 8})
                  .variable(5, zoneCategoryFace, "q", 2, 2, {3, 4})
                  .variable(5, zoneCategoryNode, "u", 1, 1, {9, 10})
                  .build());
  EXPECT_EQ(ofDestination(fieldsOf(run)), linesOf(R"(
    addPhases([water, air])
    beginPhase(1)
    addVariable(t)
    addVariable(u)
    declareVariables(0, [t, u], [1, 2])
    beginVariableZones(0)
    beginVariable(0, t, [1], 1)
    writeVariable(1, [7, 8])
    endVariable()
    endVariableZones()
    beginVariableZones(0)
    beginVariable(0, u, [1], 1)
    writeVariable(1, [9, 10])
    endVariable()
    endVariableZones()
    endPhase()
    beginPhase(1)
    addVariable(q)
    declareVariables(2, [q], [3])
    beginVariableZones(2)
    beginVariable(2, q, [2], 2)
    writeVariable(2, [3, 4])
    endVariable()
    endVariableZones()
    endPhase()
    beginPhase(1)
    addVariable(p)
    declareVariables(3, [p], [4])
    beginVariableZones(3)
    beginVariable(3, p, [3], 1)
    writeVariable(3, [1, 2])
    endVariable()
    endVariableZones()
    endPhase()
  )"));
}

// --- Sides that are no files --------------------------------------------------------------------

/// withResults() in which everything has a description and an attribute.
cases::CasePtr describedResults() {
  cases::CasePtr made = twoPhases().variable(5, zoneCategoryNode, "t", 1, 1, {7, 8}).build();
  made->tables.phases[0].description = "liquid";
  made->tables.phases[0].attributes = {{"density", "998.2"}};
  made->tables.variables[0].description = "static temperature";
  made->tables.variables[0].attributes = {{"units", "K"}};
  return made;
}

const char* const kWithoutFiles = R"(
    addPhases([water, air])
    source: beginPhase(5)
    source: getVariableNames(0)
    beginPhase(1)
    addVariable(t)
    source: getVariableAttributeNames(1)
    source: getVariableAttribute(1, units)
    setVariableAttribute(1, units, K)
    declareVariables(0, [t], [1])
    source: beginVariable(0, t)
    beginVariableZones(0)
    beginVariable(0, t, [1], 1)
    source: readVariable(1, 2)
    writeVariable(1, [7, 8])
    endVariable()
    endVariableZones()
    source: endVariable()
    endPhase()
    source: getVariableNames(2)
    source: getVariableNames(3)
    source: endPhase()
    source: beginPhase(6)
    source: getVariableNames(0)
    source: getVariableNames(2)
    source: getVariableNames(3)
    source: endPhase()
  )";

TEST(CopiedResults, OfASourceThatIsNoFileCrossWithoutDescriptionsAndPhaseAttributes) {
  CopyRun run(describedResults());
  HiddenSource plain(run.source);
  run.copier.setSource(&plain);
  EXPECT_EQ(fieldsOf(run), linesOf(kWithoutFiles));
}

TEST(CopiedResults, ForADestinationThatIsNoFileCrossWithoutDescriptionsAndPhaseAttributes) {
  CopyRun run(describedResults());
  HiddenDestination plain(run.destination);
  run.copier.setDestination(&plain);
  EXPECT_EQ(fieldsOf(run), linesOf(kWithoutFiles));
}

TEST(CopiedResults, BetweenSidesThatAreNoFilesCrossWithoutDescriptionsAndPhaseAttributes) {
  CopyRun run(describedResults());
  HiddenSource plainSource(run.source);
  HiddenDestination plainDestination(run.destination);
  run.copier.setSource(&plainSource);
  run.copier.setDestination(&plainDestination);
  EXPECT_EQ(fieldsOf(run), linesOf(kWithoutFiles));
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "");
}

TEST(CopiedResults, BetweenFilesCrossWithDescriptionsAndPhaseAttributes) {
  CopyRun run(describedResults());
  const Transcript calls = fieldsOf(run);
  EXPECT_EQ(Transcript(calls.begin() + 1, calls.begin() + 15), linesOf(R"(
    source: getPhaseDescription(5)
    setPhaseDescription(1, liquid)
    source: getPhaseAttributeNames(5)
    source: getPhaseAttribute(5, density)
    setPhaseAttribute(1, density, 998.2)
    source: beginPhase(5)
    source: getVariableNames(0)
    beginPhase(1)
    addVariable(t)
    source: getVariableDescription(1)
    setVariableDescription(1, static temperature)
    source: getVariableAttributeNames(1)
    source: getVariableAttribute(1, units)
    setVariableAttribute(1, units, K)
  )"));
}

}  // namespace
}  // namespace velto::testing
