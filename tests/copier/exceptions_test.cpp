// SPDX-License-Identifier: Apache-2.0
//
// Copies in which one call throws: what becomes of the exception, the copier and both sides.

#include <gtest/gtest.h>
#include <new>
#include <stdexcept>

#include "tests/copier/copy_run.h"
#include "tests/copier/rich_case.h"

namespace velto::testing {
namespace {

class RichRun : public CopyRun {
 public:
  RichRun() : CopyRun(richCase()) {
    copier.copyCellPartitionsToDestination(true);
    copier.copySettingsToDestination(true);
    for (const int zone : {1, 2, 3}) {
      copier.addElemIds(zone, {4, 5});
    }
  }
};

/// What is printed if the call at a position throws: the guard around a settings key tells of it.
std::string warningAt(const Transcript& calls, std::size_t position) {
  const Transcript before(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(position));
  const std::string operation = operationOf(calls[position]);
  const bool isRead = operation == "source: getSettingsValue";
  const bool isQuery = operation == "getSolverType" && !before.empty() &&
                       operationOf(before.back()) == "source: getSettingsValue";
  if (!isRead && !isQuery && operation != "writeSettings") {
    return "";
  }
  const std::size_t keys = callsOf("getSettingsValue", before).size() + (isRead ? 1U : 0U);
  return keys == 1 ? "Warning: Unable to write settings for 'a\n"
                   : "Warning: Unable to write settings for 'b\n";
}

TEST(BrokenCopies, EndWithTheCallThatThrowsAndCanBeRepeated) {
  RichRun whole;
  ASSERT_TRUE(whole.copy());
  const Transcript calls = whole.log.lines;
  const Transcript written = whole.written();
  ASSERT_GT(calls.size(), 200U);
  for (std::size_t n = 1; n <= calls.size(); ++n) {
    SCOPED_TRACE(std::to_string(n) + ": " + calls[n - 1]);
    RichRun run;
    run.log.breaksAt = n;
    const std::string warning = warningAt(calls, n - 1);
    if (warning.empty()) {
      EXPECT_THROW(run.copy(), std::runtime_error);
      EXPECT_EQ(run.log.lines.size(), n) << "nothing is called behind it, no endWriting either";
    } else {
      EXPECT_TRUE(run.copy());
      EXPECT_EQ(run.log.lines.back(), "endWriting(1)");
    }
    EXPECT_EQ(run.out, warning);
    EXPECT_EQ(run.err, "");
    run.log.breaksAt = 0;
    EXPECT_TRUE(run.copy());
    EXPECT_EQ(run.written(), written);
  }
}

TEST(BrokenCopies, LeaveTheBracketsOfTheirPartOpen) {
  RichRun run;
  run.destination.on("beginFaces", [](base::CaseCore&) { throw 1; });
  EXPECT_THROW(run.copyCase(), int);
  EXPECT_EQ(callsOf("endWriting", run.log.lines), Transcript());
  run.destination.on("beginVariable", [](base::CaseCore&) { throw 1; });
  EXPECT_THROW(run.copyResults(), int);
  EXPECT_EQ(callsOf("endWriting", run.log.lines), Transcript());
}

TEST(BrokenCopies, KeepTheExceptionAsItIs) {
  RichRun run;
  run.source.on("readNodeCoordinates",
                [](base::CaseCore&) { throw std::out_of_range("node file is cut"); });
  std::string what;
  try {
    run.copy();
  } catch (const std::out_of_range& error) {
    what = error.what();
  }
  EXPECT_EQ(what, "node file is cut");
}

TEST(BrokenCopies, PrintNoStepThatTheyDidNotReach) {
  RichRun run;
  run.copier.setVerbose(true);
  run.source.on("beginCellTypes", [](base::CaseCore&) { throw 1; });
  EXPECT_THROW(run.copy(), int);
  EXPECT_EQ(run.out,
            "Writing mesh\n"
            "  Copying problem size\n"
            "  Copying mesh units\n"
            "  Writing mesh attibutes\n"
            "  Copying zone toplogy\n"
            "  Writing node mesh\n"
            "  Writing cell mesh\n"
            "    Writing cell nodes\n"
            "    Writing cell types\n");
}

TEST(BrokenCopies, KnowTheZonesThatWereCopiedBefore) {
  RichRun run;
  run.source.on("getZoneIds(3)", 1, [](base::CaseCore&) { throw 1; });
  EXPECT_THROW(run.copyCase(), int);
  std::size_t count = 0;
  bool found = false;
  run.copier.getElemIds(2, count, found);
  EXPECT_TRUE(found);
  run.copier.getElemIds(3, count, found);
  EXPECT_FALSE(found);
}

// --- Sizes that cannot be had -------------------------------------------------------------------

TEST(BrokenCopies, TellTheCallerOfElementCountsThatNoMemoryHolds) {
  const std::uint64_t tooMany = std::uint64_t{1} << 62U;
  for (const int zone : {1, 2, 3}) {
    const cases::CasePtr served = richCase();
    served->zone(zone).sizes[zoneElementCount] = tooMany;
    if (zone == 2) {
      served->arrays().faceNodes[2].uniform.reset();
    }
    CopyRun run(served);
    EXPECT_THROW(run.copyCase(), std::bad_alloc) << zone;
    EXPECT_EQ(callsOf("endWriting", run.log.lines), Transcript());
    RichRun sound;
    run.copier.setSource(&sound.source);
    EXPECT_TRUE(run.copyCase()) << zone;
  }
}

TEST(BrokenCopies, TellTheCallerOfVariablesThatNoMemoryHolds) {
  const cases::CasePtr served = richCase();
  served->zone(3).sizes[zoneElementCount] = std::uint64_t{1} << 60U;
  CopyRun run(served);
  EXPECT_THROW(run.copyResults(), std::bad_alloc);
  EXPECT_EQ(run.log.lines.back(), "source: getZoneSizeInfo(3, 2)");
}

}  // namespace
}  // namespace velto::testing
