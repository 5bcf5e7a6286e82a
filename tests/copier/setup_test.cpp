// SPDX-License-Identifier: Apache-2.0
//
// OrvCopier: source, destination, and what its setters do at once.

#include <gtest/gtest.h>
#include <memory>

#include "testing/TestFactory.h"
#include "tests/copier/HiddenDestination.h"
#include "tests/copier/copy_run.h"

namespace velto::testing {
namespace {

/// A copier and a destination that nobody gave it yet.
struct Desk {
  CopyLog log;
  LoggedDestination destination{log};
};

// --- Application name ---------------------------------------------------------------------------

TEST(CopierSetup, TellsTheDestinationWhoWrites) {
  Desk desk;
  OrvCopier copier("mesh converter");
  copier.setDestination(&desk.destination);
  EXPECT_EQ(desk.log.lines, Transcript({"setApplicationName(mesh converter)"}));
}

TEST(CopierSetup, IsGenericWithoutAName) {
  Desk desk;
  OrvCopier copier;
  copier.setDestination(&desk.destination);
  EXPECT_EQ(desk.log.lines, Transcript({"setApplicationName(Generic)"}));
}

TEST(CopierSetup, SaysNothingForAnEmptyName) {
  Desk desk;
  OrvCopier copier("");
  copier.setDestination(&desk.destination);
  EXPECT_EQ(desk.log.lines, Transcript());
}

TEST(CopierSetup, TellsTheNameAgainToEachDestination) {
  Desk first;
  Desk second;
  OrvCopier copier("mesh converter");
  copier.setDestination(&first.destination);
  copier.setDestination(&second.destination);
  copier.setDestination(&first.destination);
  EXPECT_EQ(first.log.lines, Transcript({"setApplicationName(mesh converter)",
                                         "setApplicationName(mesh converter)"}));
  EXPECT_EQ(second.log.lines, Transcript({"setApplicationName(mesh converter)"}));
}

// --- A destination of the factory ---------------------------------------------------------------

TEST(CopierSetup, HasTheFactoryMakeADestinationAndNamesItsFiles) {
  Desk desk;
  std::vector<OrvFileFormatType> asked;
  const TestFactory factory({}, [&](OrvFileFormatType format) {
    asked.push_back(format);
    return &desk.destination;
  });
  OrvCopier copier("mesh converter");
  copier.setDestination(fileFormatStore, "duct.orv", "duct.orvr");
  EXPECT_EQ(asked, std::vector<OrvFileFormatType>({fileFormatStore}));
  EXPECT_EQ(desk.log.lines, Transcript({"setApplicationName(mesh converter)",
                                        "setFileName(duct.orv, 0)", "setFileName(duct.orvr, 1)"}));
}

TEST(CopierSetup, HandsOnFormatsThatHaveNoNameAndFileNamesThatAreEmpty) {
  Desk desk;
  std::vector<int> asked;
  const TestFactory factory({}, [&](OrvFileFormatType format) {
    asked.push_back(format);
    return &desk.destination;
  });
  OrvCopier copier("");
  copier.setDestination(static_cast<OrvFileFormatType>(77), "", "");
  EXPECT_EQ(asked, std::vector<int>({77}));
  EXPECT_EQ(desk.log.lines, Transcript({"setFileName(, 0)", "setFileName(, 1)"}));
}

TEST(CopierSetup, WritesIntoTheDestinationOfTheFactory) {
  Desk desk;
  const TestFactory factory({}, [&](OrvFileFormatType) { return &desk.destination; });
  CopyRun run(cases::oneHex());
  run.copier.setDestination(fileFormatMemory, "a", "b");
  run.switchAllOff();
  desk.log.lines.clear();
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.log.lines, Transcript());
  EXPECT_EQ(desk.log.lines, Transcript({"startWriting(0)", "setMeshId(1)",
                                        "setSolverType(VELTO_GENERIC)", "endWriting(0)"}));
}

TEST(CopierSetup, GivesNoFileNamesToADestinationThatItWasGiven) {
  CopyRun run(cases::oneHex());
  EXPECT_EQ(run.log.lines,
            Transcript({"source: startReading(case, 0)", "setApplicationName(tests)"}));
}

TEST(CopierSetup, TakesNoDestinationOfAFormatThatTheFactoryLacks) {
  const TestFactory factory({});
  CopyRun run(cases::oneHex(), "");
  run.copier.setVerbose(true);
  run.copier.setDestination(fileFormatOpenFoam, "a", "b");
  EXPECT_FALSE(run.copyCase());
  EXPECT_FALSE(run.copyResults());
  EXPECT_FALSE(run.copy());
  EXPECT_EQ(run.log.lines, Transcript());
  EXPECT_EQ(run.out, "");
}

// --- Null ---------------------------------------------------------------------------------------

TEST(CopierSetup, LetsANullDestinationPassIfItHasNoNameToTell) {
  CopyRun run(cases::oneHex(), "");
  run.copier.setDestination(nullptr);
  EXPECT_FALSE(run.copyCase());
  EXPECT_FALSE(run.copyCase(false));
  EXPECT_FALSE(run.copyResults());
  EXPECT_FALSE(run.copy());
  EXPECT_EQ(run.log.lines, Transcript());
}

TEST(CopierSetupDeathTest, NeedsADestinationToTellItsNameTo) {
  OrvCopier copier("mesh converter");
  EXPECT_DEATH(copier.setDestination(nullptr), "");
}

TEST(CopierSetupDeathTest, NeedsADestinationOfTheFactoryToTellItsNameTo) {
  const TestFactory factory({});
  OrvCopier copier("mesh converter");
  EXPECT_DEATH(copier.setDestination(fileFormatOpenFoam, "a", "b"), "");
}

TEST(CopierSetupDeathTest, NeedsADestinationForCompressionAndMode) {
  OrvCopier copier;
  EXPECT_DEATH(copier.setCompression(1), "");
  EXPECT_DEATH(copier.setMode(true), "");
}

TEST(CopierSetup, CopiesNothingWithoutASource) {
  CopyRun run(cases::oneHex());
  run.copier.setVerbose(true);
  run.copier.setSource(nullptr);
  EXPECT_FALSE(run.copyCase());
  EXPECT_FALSE(run.copyCase(false));
  EXPECT_FALSE(run.copyResults());
  EXPECT_FALSE(run.copy());
  EXPECT_EQ(run.log.lines, Transcript());
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "");
}

TEST(CopierSetup, TakesASourceWithoutACall) {
  CopyRun run(cases::oneHex());
  run.log.lines.clear();
  run.copier.setSource(&run.source);
  EXPECT_EQ(run.log.lines, Transcript());
}

// --- Compression, mode, solver format -----------------------------------------------------------

TEST(CopierSetup, PassesCompressionOnAtOnceWhateverItsLevel) {
  Desk desk;
  OrvCopier copier("");
  copier.setDestination(&desk.destination);
  copier.setCompression(0);
  copier.setCompression(9);
  copier.setCompression(4294967295U);
  EXPECT_EQ(desk.log.lines,
            Transcript({"setCompression(0)", "setCompression(9)", "setCompression(4294967295)"}));
}

TEST(CopierSetup, SetsModeOneAtOnceAndNeverWithdrawsIt) {
  Desk desk;
  OrvCopier copier("");
  copier.setDestination(&desk.destination);
  copier.setMode(false);
  EXPECT_EQ(desk.log.lines, Transcript());
  copier.setMode(true);
  copier.setMode(false);
  copier.setMode(true);
  EXPECT_EQ(desk.log.lines, Transcript({"setMode(1)", "setMode(1)"}));
}

TEST(CopierSetup, NeedsNoDestinationForNoMode) {
  OrvCopier copier;
  copier.setMode(false);
  SUCCEED();
}

TEST(CopierSetup, KeepsNeitherCompressionNorModeForTheNextDestination) {
  CopyRun run(cases::oneHex(), "");
  run.copier.setCompression(5);
  run.copier.setMode(true);
  Desk next;
  run.copier.setDestination(&next.destination);
  run.switchAllOff();
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(next.log.lines, Transcript({"startWriting(0)", "setMeshId(1)",
                                        "setSolverType(VELTO_GENERIC)", "endWriting(0)"}));
}

TEST(CopierSetup, TellsTheSolverFormatAtTheStartOfEachCopyOnly) {
  CopyRun run(cases::oneHex());
  run.log.lines.clear();
  run.copier.setDestinationSolverFormat("VELTO_A");
  EXPECT_EQ(run.log.lines, Transcript());
  run.copy();
  EXPECT_EQ(callsOf("setSolverType", run.log.lines),
            Transcript({"setSolverType(VELTO_A)", "setSolverType(VELTO_A)"}));
  run.copier.setDestinationSolverFormat("");
  run.copyResults();
  EXPECT_EQ(callsOf("setSolverType", run.log.lines), Transcript({"setSolverType()"}));
}

TEST(CopierSetup, NeverAsksForMessagesOfEitherSide) {
  CopyRun run(cases::withResults());
  run.copier.copySettingsToDestination(true);
  run.copy();
  for (const char* operation : {"hasError", "hasWarning", "getErrors", "getWarnings"}) {
    EXPECT_EQ(callsOf(operation, run.log.lines), Transcript()) << operation;
  }
}

// --- Ownership ----------------------------------------------------------------------------------

TEST(CopierSetup, LeavesBothSidesAlive) {
  CopyLog log;
  auto destination = std::make_unique<LoggedDestination>(log);
  const TestFactory factory({}, [&](OrvFileFormatType) { return destination.get(); });
  auto source = std::make_unique<LoggedSource>(cases::oneHex(), log);
  source->startReading("case", dataClassCase);
  {
    OrvCopier copier;
    copier.setSource(source.get());
    copier.setDestination(fileFormatMemory, "a", "b");
    EXPECT_TRUE(copier.copy());
  }
  log.lines.clear();
  destination->endWriting(dataClassCase);
  source->endCellNodes();
  EXPECT_EQ(log.lines, Transcript({"endWriting(0)", "source: endCellNodes()"}));
}

}  // namespace
}  // namespace velto::testing
