// SPDX-License-Identifier: Apache-2.0
//
// copyCase: the transfer of settings, the guard around each key, and the standard settings.

#include <cstdlib>
#include <ctime>
#include <functional>
#include <gtest/gtest.h>
#include <iostream>
#include <locale>
#include <ostream>
#include <stdexcept>

#include "embedded/memory/CaseBuilder.h"
#include "tests/copier/copy_run.h"

namespace velto::testing {
namespace {

/// A copy of nothing but the settings of a case.
class SettingsRun : public CopyRun {
 public:
  explicit SettingsRun(const cases::CasePtr& served) : CopyRun(served) {
    switchAllOff();
    copier.copySettingsToDestination(true);
  }
};

cases::CasePtr withKeys(const std::vector<std::string>& keys) {
  memory::CaseBuilder builder;
  for (const std::string& key : keys) {
    builder.setting(key, "value of " + key);
  }
  return builder.build();
}

// --- Keys and values ----------------------------------------------------------------------------

TEST(CopiedSettings, GoOneKeyACallBelowTheSolverFormat) {
  SettingsRun run(withKeys({"b", "a/x y", "b/c"}));
  run.source.setSolverType("SOURCE");
  run.copier.setDestinationSolverFormat("TARGET");
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.written(), linesOf(R"(
    startWriting(0)
    setMeshId(1)
    setSolverType(TARGET)
    writeSettings([TARGET/b = value of b], 0, settings)
    writeSettings([TARGET/a/x y = value of a/x y], 0, settings)
    writeSettings([TARGET/b/c = value of b/c], 0, settings)
    writeStandardSettings([Time = TIME, Source Format = SOURCE, Destination Format = TARGET], 0)
    endWriting(0)
  )"));
}

TEST(CopiedSettings, AreAskedForInTheDefaultStoreOfTheCase) {
  SettingsRun run(withKeys({"a"}));
  run.copyCase(false);
  EXPECT_EQ(callsOf("getSettingsKeys", run.log.lines), Transcript({"source: getSettingsKeys(0)"}));
  EXPECT_EQ(callsOf("getSettingsValue", run.log.lines),
            Transcript({"source: getSettingsValue(0, a, settings)"}));
}

TEST(CopiedSettings, AreReadAndWrittenKeyByKey) {
  SettingsRun run(withKeys({"a", "b"}));
  run.copyCase(false);
  EXPECT_EQ(withoutQueries(Transcript(run.log.lines.begin(), run.log.lines.end() - 1)), linesOf(R"(
    setMeshId(1)
    setSolverType(VELTO_GENERIC)
    source: getSettingsKeys(0)
    source: getSettingsValue(0, a, settings)
    writeSettings([VELTO_GENERIC/a = value of a], 0, settings)
    source: getSettingsValue(0, b, settings)
    writeSettings([VELTO_GENERIC/b = value of b], 0, settings)
  )"));
}

/// A solver format and a key of the source, and the key that it becomes.
struct KeyRow {
  std::string name;
  std::string format;
  std::string key;
  std::string copied;

  friend std::ostream& operator<<(std::ostream& out, const KeyRow& row) { return out << row.name; }
};

class SettingsKeys : public ::testing::TestWithParam<KeyRow> {};

TEST_P(SettingsKeys, AreCopiedAs) {
  SettingsRun run(withKeys({GetParam().key}));
  run.copier.setDestinationSolverFormat(GetParam().format);
  run.copyCase();
  EXPECT_EQ(callsOf("writeSettings", run.log.lines),
            Transcript({"writeSettings([" + GetParam().copied + " = value of " + GetParam().key +
                        "], 0, settings)"}));
}

INSTANTIATE_TEST_SUITE_P(
    All, SettingsKeys,
    ::testing::Values(
        KeyRow{"FormatInFront", "AB", "AB/c", "AB/c"},
        KeyRow{"FormatWithoutSlash", "AB", "ABc/d", "ABc/d"},
        KeyRow{"FormatAlone", "AB", "AB", "AB"}, KeyRow{"FormatTwice", "AB", "AB/AB/c", "AB/AB/c"},
        KeyRow{"FormatFurtherOn", "AB", "c/AB/d", "AB/c/AB/d"},
        KeyRow{"FormatAtTheEnd", "AB", "c/AB", "AB/c/AB"}, KeyRow{"NoFormat", "AB", "c", "AB/c"},
        KeyRow{"OtherCase", "AB", "ab/c", "AB/ab/c"},
        KeyRow{"BeginningOfFormat", "ABC", "AB", "ABC/AB"}, KeyRow{"EmptyFormat", "", "c/d", "c/d"},
        KeyRow{"EmptyKey", "AB", "", "AB/"}, KeyRow{"LeadingSlash", "AB", "/AB/c", "AB//AB/c"},
        KeyRow{"FormatWithSlash", "AB/C", "AB/C/d", "AB/C/d"},
        KeyRow{"DefaultFormat", "VELTO_GENERIC", "domains/water", "VELTO_GENERIC/domains/water"}),
    rowName<KeyRow>);

TEST(CopiedSettings, KeepTheFormatOfTheSourceBehindTheNewOne) {
  SettingsRun run(withKeys({"SOURCE/a"}));
  run.source.setSolverType("SOURCE");
  run.copier.setDestinationSolverFormat("TARGET");
  run.copyCase();
  EXPECT_EQ(callsOf("writeSettings", run.log.lines),
            Transcript({"writeSettings([TARGET/SOURCE/a = value of SOURCE/a], 0, settings)"}));
}

TEST(CopiedSettings, GoByTheSolverTypeThatTheDestinationHas) {
  SettingsRun run(withKeys({"a"}));
  run.destination.on("startWriting", [](base::CaseCore& core) { core.tables.solverType = "X"; });
  run.destination.on("writeSettings", [](base::CaseCore& core) { core.tables.solverType = "Y"; });
  run.source.on("getSettingsValue(0, a, settings)",
                [&](base::CaseCore&) { run.destination.setSolverType("ALTERED"); });
  run.copyCase();
  EXPECT_EQ(withoutQueries(ofDestination(run.log.lines))[3], "setSolverType(ALTERED)");
  EXPECT_EQ(callsOf("writeSettings", run.log.lines),
            Transcript({"writeSettings([ALTERED/a = value of a], 0, settings)"}));
  EXPECT_EQ(callsOf("writeStandardSettings", run.written()),
            Transcript({"writeStandardSettings([Time = TIME, Source Format = VELTO_GENERIC, "
                        "Destination Format = Y], 0)"}));
}

TEST(CopiedSettings, WithoutAValueGetAnEmptyOne) {
  SettingsRun run(withKeys({"a", "b"}));
  run.source.on("getSettingsValue(0, b, settings)",
                [](base::CaseCore& core) { core.tables.settings.clear(); });
  run.copyCase();
  EXPECT_EQ(callsOf("writeSettings", run.log.lines),
            Transcript({"writeSettings([VELTO_GENERIC/a = value of a], 0, settings)",
                        "writeSettings([VELTO_GENERIC/b = ], 0, settings)"}));
}

TEST(CopiedSettings, MayBeNone) {
  SettingsRun run(cases::oneHex());
  run.copier.setVerbose(true);
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.out,
            "Writing mesh\n"
            "  Mesh written\n"
            "Writing settings\n"
            "  Settings written\n"
            "  Standard Settings written\n");
  EXPECT_EQ(run.written(), linesOf(R"(
    startWriting(0)
    setMeshId(1)
    setSolverType(VELTO_GENERIC)
    writeStandardSettings([Time = TIME, Source Format = VELTO_GENERIC, Destination Format = VELTO_GENERIC], 0)
    endWriting(0)
  )"));
}

TEST(CopiedSettings, StayBehindByDefaultWithTheStandardOnes) {
  CopyRun run(cases::withPhysics());
  run.copy();
  for (const char* operation :
       {"getSettingsKeys", "getSettingsValue", "writeSettings", "writeStandardSettings"}) {
    EXPECT_EQ(callsOf(operation, run.log.lines), Transcript()) << operation;
  }
}

// --- The guard ----------------------------------------------------------------------------------

struct Accident {};

/// Something that is thrown while one key is copied.
struct ThrowRow {
  std::string name;
  std::function<void(SettingsRun&, const std::function<void()>& fail)> setUp;
  Transcript written;

  friend std::ostream& operator<<(std::ostream& out, const ThrowRow& row) {
    return out << row.name;
  }
};

class SettingsGuard : public ::testing::TestWithParam<ThrowRow> {
 protected:
  /// Copies the keys a, b and c, of which b fails.
  void expectLossOf(const std::function<void()>& fail, bool isVerbose) {
    SettingsRun run(withKeys({"a", "b", "c"}));
    run.copier.setVerbose(isVerbose);
    GetParam().setUp(run, fail);
    EXPECT_TRUE(run.copyCase());
    EXPECT_EQ(run.out, isVerbose ? "Writing mesh\n"
                                   "  Mesh written\n"
                                   "Writing settings\n"
                                   "Warning: Unable to write settings for 'b\n"
                                   "  Settings written\n"
                                   "  Standard Settings written\n"
                                 : "Warning: Unable to write settings for 'b\n");
    EXPECT_EQ(run.err, "");
    const Transcript written = run.written();
    EXPECT_EQ(callsOf("writeSettings", written), GetParam().written);
    EXPECT_EQ(callsOf("writeStandardSettings", written).size(), 1U);
    EXPECT_EQ(written.back(), "endWriting(0)");
  }
};

TEST_P(SettingsGuard, CatchesAnException) {
  const auto fail = [] { throw std::runtime_error("disk gone"); };
  expectLossOf(fail, false);
  expectLossOf(fail, true);
}

TEST_P(SettingsGuard, CatchesAnInteger) {
  expectLossOf([] { throw 7; }, false);
}

TEST_P(SettingsGuard, CatchesAClassOfTheCallers) {
  expectLossOf([] { throw Accident(); }, false);
}

TEST_P(SettingsGuard, CatchesALackOfMemory) {
  expectLossOf([] { throw std::bad_alloc(); }, true);
}

const Transcript kWithoutB = {"writeSettings([VELTO_GENERIC/a = value of a], 0, settings)",
                              "writeSettings([VELTO_GENERIC/c = value of c], 0, settings)"};

INSTANTIATE_TEST_SUITE_P(
    All, SettingsGuard,
    ::testing::Values(
        ThrowRow{"AroundTheReadOfTheValue",
                 [](SettingsRun& run, const std::function<void()>& fail) {
                   run.source.on("getSettingsValue(0, b, settings)",
                                 [fail](base::CaseCore&) { fail(); });
                 },
                 kWithoutB},
        ThrowRow{"AroundTheQueryForTheFormat",
                 [](SettingsRun& run, const std::function<void()>& fail) {
                   run.source.on("getSettingsValue(0, b, settings)", [&run, fail](base::CaseCore&) {
                     run.destination.on("getSolverType", 1, [fail](base::CaseCore&) { fail(); });
                   });
                 },
                 kWithoutB},
        ThrowRow{"AroundTheWrite",
                 [](SettingsRun& run, const std::function<void()>& fail) {
                   run.destination.on("writeSettings([VELTO_GENERIC/b = value of b], 0, settings)",
                                      [fail](base::CaseCore&) { fail(); });
                 },
                 {kWithoutB[0], "writeSettings([VELTO_GENERIC/b = value of b], 0, settings)",
                  kWithoutB[1]}}),
    rowName<ThrowRow>);

TEST(CopiedSettings, AreToldOneByOneIfNoneCanBeWritten) {
  SettingsRun run(withKeys({"VELTO_GENERIC/a", "", "c d"}));
  run.destination.on("writeSettings", [](base::CaseCore&) { throw 1; });
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.out,
            "Warning: Unable to write settings for 'VELTO_GENERIC/a\n"
            "Warning: Unable to write settings for '\n"
            "Warning: Unable to write settings for 'c d\n");
}

TEST(CopiedSettings, HaveNoGuardAroundTheListOfKeys) {
  SettingsRun run(withKeys({"a"}));
  run.copier.setVerbose(true);
  run.source.on("getSettingsKeys", [](base::CaseCore&) { throw Accident(); });
  EXPECT_THROW(run.copyCase(), Accident);
  EXPECT_EQ(run.out, "Writing mesh\n  Mesh written\n");
  EXPECT_EQ(callsOf("endWriting", run.log.lines), Transcript());
}

TEST(CopiedSettings, HaveNoGuardAroundTheStandardOnes) {
  SettingsRun run(withKeys({"a"}));
  run.destination.on("writeStandardSettings", [](base::CaseCore&) { throw Accident(); });
  EXPECT_THROW(run.copyCase(), Accident);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(callsOf("endWriting", run.log.lines), Transcript());
}

TEST(CopiedSettings, FlushTheirWarnings) {
  SettingsRun run(withKeys({"a", "b"}));
  run.destination.on("writeSettings", [](base::CaseCore&) { throw 1; });
  FlushCount counted;
  std::streambuf* const before = std::cout.rdbuf(&counted);
  run.copier.copyCase(true);
  std::cout.rdbuf(before);
  EXPECT_EQ(counted.flushes, 2);
}

// --- The time -----------------------------------------------------------------------------------

/// What a copy of the settings says as its time.
std::string timeOfCopy() {
  SettingsRun run(cases::oneHex());
  run.copyCase();
  const cases::CasePtr taken = run.destination.takeCase();
  const std::string* const time = taken->tables.defaultSettings().find("Time");
  return time == nullptr ? "" : *time;
}

/// Seconds of a local time that "%c" wrote; -1 if it cannot be read.
std::time_t secondsOf(const std::string& text) {
  std::tm read = {};
  const char* const end = strptime(text.c_str(), "%c", &read);
  read.tm_isdst = -1;
  return end == nullptr || *end != 0 ? -1 : std::mktime(&read);
}

/// Sets the time zone while it lives.
class TimeZone {
 public:
  explicit TimeZone(const char* zone) {
    if (const char* before = std::getenv("TZ")) {
      before_ = before;
    }
    setenv("TZ", zone, 1);
    tzset();
  }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;
  ~TimeZone() {
    if (before_.empty()) {
      unsetenv("TZ");
    } else {
      setenv("TZ", before_.c_str(), 1);
    }
    tzset();
  }

 private:
  std::string before_;
};

TEST(CopyTime, LiesBetweenTheTimesBeforeAndAfter) {
  for (const char* zone : {"UTC0", "AAA-5:30", "BBB11"}) {
    const TimeZone timeZone(zone);
    const std::time_t before = std::time(nullptr);
    const std::time_t copied = secondsOf(timeOfCopy());
    EXPECT_LE(before, copied) << zone;
    EXPECT_LE(copied, std::time(nullptr)) << zone;
  }
}

/// Writes a time in a way of its own, so that a text shows who wrote it.
class OddTimes : public std::time_put<char> {
 protected:
  iter_type do_put(iter_type out, std::ios_base&, char, const std::tm*, char format,
                   char) const override {
    for (const char letter : std::string("odd %") + format) {
      *out++ = letter;
    }
    return out;
  }
};

TEST(CopyTime, IsWrittenAsTheGlobalLocaleHasIt) {
  const std::locale before = std::locale::global(std::locale(std::locale(), new OddTimes));
  const std::string time = timeOfCopy();
  std::locale::global(before);
  EXPECT_EQ(time, "odd %c");
}

TEST(CopyTime, StandsInFrontOfTheFormats) {
  SettingsRun run(cases::oneHex());
  run.source.setSolverType("");
  run.copier.setDestinationSolverFormat("A, B");
  run.copyCase();
  EXPECT_EQ(callsOf("writeStandardSettings", run.written()),
            Transcript({"writeStandardSettings([Time = TIME, Source Format = , Destination Format "
                        "= A, B], 0)"}));
}

}  // namespace
}  // namespace velto::testing
