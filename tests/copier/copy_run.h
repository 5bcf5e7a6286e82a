// SPDX-License-Identifier: Apache-2.0
//
// CopyRun: copies of a case, the calls of both sides on one transcript, and the streams.

#ifndef VELTO_TESTS_COPIER_COPY_RUN_H
#define VELTO_TESTS_COPIER_COPY_RUN_H

#include <cstddef>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

#include "velto/OrvCopier.h"

#include "testing/RecordingConsumer.h"
#include "testing/ScriptedProvider.h"
#include "testing/cases.h"

namespace velto::testing {

/// The calls of both sides, oldest first; those of the source begin with "source: ".
struct CopyLog {
  Transcript lines;
  std::size_t breaksAt = 0;  // the line, from 1, whose call throws a std::runtime_error

  void add(const std::string& line);
};

class LoggedSource : public ScriptedProvider {
 public:
  LoggedSource(const cases::CasePtr& served, CopyLog& log) : ScriptedProvider(served), log_(log) {}

 protected:
  void onCall(const std::string& call) override {
    log_.add("source: " + call);
    ScriptedProvider::onCall(call);
  }

 private:
  CopyLog& log_;
};

class LoggedDestination : public RecordingConsumer {
 public:
  explicit LoggedDestination(CopyLog& log) : RecordingConsumer(nullptr), log_(log) {}

 protected:
  void onCall(const std::string& call) override {
    log_.add(call);
    RecordingConsumer::onCall(call);
  }

 private:
  CopyLog& log_;
};

/// The name of a row as the name of its test.
template <class Row>
std::string rowName(const ::testing::TestParamInfo<Row>& info) {
  return info.param.name;
}

/// Counts how often a stream is flushed.
class FlushCount : public std::stringbuf {
 public:
  int flushes = 0;

 protected:
  int sync() override {
    ++flushes;
    return std::stringbuf::sync();
  }
};

/// The lines of a text without their indent and without empty lines.
Transcript linesOf(const std::string& text);

/// What is printed for some lines.
std::string printed(const Transcript& lines);

/// Of some calls those of the destination.
Transcript ofDestination(const Transcript& calls);

/// Of some calls those of an operation, of either side.
Transcript callsOf(const std::string& operation, const Transcript& calls);

/// Leaves out the queries of tables: how often one asks is nobody's affair.
Transcript withoutQueries(const Transcript& calls);

/// A case whose mesh is selected, a copier, and a destination in memory.
///
///     CopyRun run(cases::oneHex());
///     EXPECT_TRUE(run.copyCase());
///     EXPECT_EQ(run.written(), linesOf(R"(
///       startWriting(0)
///       ...
///     )"));
class CopyRun {
 public:
  explicit CopyRun(const cases::CasePtr& served, const std::string& applicationName = "tests");

  // A copy. What it calls and prints takes the place of what a copy before it did.
  bool copy();
  bool copyCase(bool bracketWriting = true);
  bool copyResults();

  /// The calls of the destination alone, without queries; for the time of the standard settings
  /// there is "TIME".
  Transcript written() const;

  void switchAllOff();

  /// Copies the tables of all zones and then turns every switch off, for a test of one step.
  void mapZones();

  /// What the steps that are switched on do: the calls of both sides, without queries, in a
  /// copyCase(false) behind its first two setters.
  Transcript moved();

  CopyLog log;
  LoggedSource source;
  LoggedDestination destination;
  OrvCopier copier;
  std::string out;
  std::string err;

 private:
  bool run(const std::function<bool()>& copying);
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIER_COPY_RUN_H
