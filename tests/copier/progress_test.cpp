// SPDX-License-Identifier: Apache-2.0
//
// The progress lines of copies.

#include <gtest/gtest.h>
#include <iostream>
#include <sstream>

#include "embedded/memory/CaseBuilder.h"
#include "tests/copier/copy_run.h"
#include "tests/copier/full_case.h"

namespace velto::testing {
namespace {

TEST(CopyProgress, PrintsEachStepOfADefaultCopy) {
  CopyRun run(cases::withResults());
  run.copier.setVerbose(true);
  EXPECT_TRUE(run.copy());
  EXPECT_EQ(run.out,
            "Writing mesh\n"
            "  Copying problem size\n"
            "  Copying mesh units\n"
            "  Writing mesh attibutes\n"
            "  Copying zone toplogy\n"
            "  Writing node mesh\n"
            "  Writing cell mesh\n"
            "    Writing cell nodes\n"
            "    Writing cell types\n"
            "  Writing face mesh\n"
            "    Writing face nodes\n"
            "    Writing face parents\n"
            "  Writing location model\n"
            "  Mesh written\n"
            "Copying problem size\n"
            "Copying zone topology\n"
            "Writing results\n"
            "  Writing phase variables\n"
            "  Results written\n"
            "Copy complete\n");
  EXPECT_EQ(run.err, "");
}

TEST(CopyProgress, PrintsEachStepOfACopyWithEverySwitchOn) {
  CopyRun run(fullCase());
  switchAllOn(run.copier);
  run.copier.setVerbose(true);
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.out,
            "Writing mesh\n"
            "  Copying problem size\n"
            "  Copying mesh units\n"
            "  Writing mesh attibutes\n"
            "  Copying zone toplogy\n"
            "  Writing node mesh\n"
            "  Writing cell mesh\n"
            "    Writing cell nodes\n"
            "    Writing cell types\n"
            "    Writing cell partitions\n"
            "  Writing face mesh\n"
            "    Writing face nodes\n"
            "    Writing face parents\n"
            "  Writing location model\n"
            "  Mesh written\n"
            "Writing settings\n"
            "  Settings written\n"
            "  Standard Settings written\n");
}

TEST(CopyProgress, PrintsTheSameLinesForACaseThatHoldsNothing) {
  CopyRun run(memory::CaseBuilder().build());
  run.copier.setVerbose(true);
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.out, printed(kCaseLines));
}

TEST(CopyProgress, PrintsNothingMoreOnceItIsSilentAgain) {
  CopyRun run(cases::oneHex());
  run.copier.setVerbose(true);
  run.copier.setVerbose(false);
  EXPECT_TRUE(run.copy());
  EXPECT_EQ(run.out, "");
}

TEST(CopyProgress, FlushesAfterEachLine) {
  CopyRun run(cases::oneHex());
  run.copier.setVerbose(true);
  FlushCount counted;
  std::streambuf* const before = std::cout.rdbuf(&counted);
  run.copier.copyCase(true);
  std::cout.rdbuf(before);
  EXPECT_EQ(counted.flushes, 14);
  EXPECT_EQ(counted.str(), printed(kCaseLines));
}

/// Takes the lines that are printed into a log, among the calls.
class LineLog : public std::stringbuf {
 public:
  explicit LineLog(CopyLog& log) : log_(log) {}

 protected:
  int sync() override {
    const std::string line = str();
    log_.add("prints " + line.substr(0, line.size() - 1));
    str("");
    return 0;
  }

 private:
  CopyLog& log_;
};

/// Of a log the printed lines, and the call behind each if there is one before the next line.
Transcript linesAndNextCalls(const Transcript& log) {
  Transcript chosen;
  bool isBehindLine = false;
  for (const std::string& entry : log) {
    const bool isLine = entry.compare(0, 7, "prints ") == 0;
    if (isLine || isBehindLine) {
      chosen.push_back(isLine ? entry.substr(7) : "=> " + entry);
    }
    isBehindLine = isLine;
  }
  return chosen;
}

TEST(CopyProgress, PrintsEachLineAheadOfItsStepAndCompletionBehind) {
  CopyRun run(fullCase());
  switchAllOn(run.copier);
  run.copier.setVerbose(true);
  run.log.lines.clear();
  LineLog logged(run.log);
  std::streambuf* const before = std::cout.rdbuf(&logged);
  run.copier.copy();
  std::cout.rdbuf(before);
  EXPECT_EQ(linesAndNextCalls(run.log.lines),
            Transcript({"Writing mesh",
                        "  Copying problem size",
                        "=> source: getMeshSize(0)",
                        "  Copying mesh units",
                        "=> source: getMeshUnits()",
                        "  Writing mesh attibutes",
                        "=> writeMeshAttributes()",
                        "  Copying zone toplogy",
                        "=> source: getZoneIds(0)",
                        "  Writing node mesh",
                        "=> source: beginNodeCoordinates()",
                        "  Writing cell mesh",
                        "=> getZoneIds(3)",
                        "    Writing cell nodes",
                        "=> source: beginCellNodes()",
                        "    Writing cell types",
                        "=> source: beginCellTypes()",
                        "    Writing cell partitions",
                        "=> source: beginCellPartitions()",
                        "  Writing face mesh",
                        "=> getZoneIds(2)",
                        "    Writing face nodes",
                        "=> source: beginFaceNodes()",
                        "    Writing face parents",
                        "=> source: beginFaceCell0()",
                        "  Writing location model",
                        "=> source: getLocationModel()",
                        "  Mesh written",
                        "=> source: getSettingsKeys(0)",
                        "Writing settings",
                        "=> source: getSettingsValue(0, key, settings)",
                        "  Settings written",
                        "=> source: getSolverType()",
                        "  Standard Settings written",
                        "=> endWriting(0)",
                        "Copying problem size",
                        "=> source: getMeshSize(0)",
                        "Copying zone topology",
                        "=> source: getZoneIds(0)",
                        "Writing results",
                        "  Writing phase variables",
                        "=> source: getPhaseIds()",
                        "  Results written",
                        "Copy complete"}));
}

TEST(CopyProgress, PrintsThatTheCopyIsCompleteAlsoWithoutResults) {
  CopyRun run(memory::CaseBuilder().build());
  run.switchAllOff();
  run.copier.setVerbose(true);
  EXPECT_TRUE(run.copy());
  EXPECT_EQ(run.out,
            "Writing mesh\n"
            "  Mesh written\n"
            "Copying problem size\n"
            "Copying zone topology\n"
            "Skipping results as no mesh written\n"
            "Copy complete\n");
}

TEST(CopyProgress, PrintsNoCompletionForPartsOfACopy) {
  CopyRun run(cases::oneHex());
  run.switchAllOff();
  run.copier.setVerbose(true);
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.out, "Writing mesh\n  Mesh written\n");
  EXPECT_TRUE(run.copyResults());
  EXPECT_EQ(run.out,
            "Copying problem size\nCopying zone topology\nWriting results\n"
            "  Writing phase variables\n  Results written\n");
}

}  // namespace
}  // namespace velto::testing
