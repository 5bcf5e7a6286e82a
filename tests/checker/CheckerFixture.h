// SPDX-License-Identifier: Apache-2.0
//
// CheckerFixture: a checker, the provider that it will get, and a file for it to open.

#ifndef VELTO_TESTS_CHECKER_CHECKER_FIXTURE_H
#define VELTO_TESTS_CHECKER_CHECKER_FIXTURE_H

#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "velto/OrvChecker.h"

#include "testing/ScriptedProvider.h"
#include "testing/TestFactory.h"
#include "testing/cases.h"

namespace velto::testing {

using Texts = std::vector<std::string>;

/// The step whose name messages carry before the first check of a pass.
inline const char* const kStepBeforeWalk = "checkTopologyModel";

/// An empty file that is there as long as the object.
class TemporaryFile {
 public:
  TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

/// What one run of a checker gave.
struct CheckResult {
  bool good = false;
  Texts errors;
  Texts warnings;
  std::string out;
  std::string err;
};

/// Runs checkCase with both streams captured; the lists are copies of all that the checker holds.
CheckResult runChecker(OrvChecker& checker, const std::string& fileName);

/// Tests say what the provider does (prepare), then run the checker on a file of any content:
///
///     prepare([](ScriptedProvider& p) { p.answerVersion(0, 0, 0); });
///     EXPECT_EQ(check().errors, Texts({...}));
///
/// Each checkCase makes a provider of its own, "provider 1", "provider 2", ..., all of which write
/// their calls into calls().
class CheckerFixture : public ::testing::Test {
 protected:
  CheckerFixture();

  /// The case that providers serve; oneHex() until a test says otherwise.
  void serve(cases::CasePtr served) { served_ = std::move(served); }

  /// Done to every provider that is made from now on.
  void prepare(std::function<void(ScriptedProvider&)> preparation) {
    preparation_ = std::move(preparation);
  }

  /// Has the library post an error when a call is made.
  static void failOn(ScriptedProvider& provider, const std::string& call) {
    provider.on(call, [](base::CaseCore& core) { core.messages.addError("disk gone"); });
  }

  /// From now on no provider is made.
  void refuseProviders() { refuse_ = true; }

  CheckResult check() { return runChecker(checker, file.path()); }
  static CheckResult check(OrvChecker& subject, const std::string& fileName) {
    return runChecker(subject, fileName);
  }

  /// Opens a case and selects its last mesh, target and partition, so that one check of a pass can
  /// be called by itself; calls are written down from then on.
  void open(const cases::CasePtr& opened);

  /// Another checker in place of the one that was used. Its case is released: an assignment alone
  /// does not.
  void renewChecker();

  /// What one step gives on the open case: its answer, and both streams while it runs.
  using Step = bool (*)(OrvChecker&);
  CheckResult runStep(Step step);

  /// What was called so far, the file's name written as FILE.
  Transcript calls() const;

  /// Of these, the calls of some operations.
  Transcript callsOf(const std::vector<std::string>& operations) const;

  /// The selections of the passes, each as its three calls; and what they are expected to be, each
  /// pass as mesh, target and partition.
  Transcript selections() const;
  static Transcript selected(const std::vector<std::array<int, 3>>& passes);

  TemporaryFile file;
  Transcript transcript;  // outlives the checker, whose end writes a line
  OrvChecker checker;

 private:
  OrvFileProvider* makeProvider();

  cases::CasePtr served_ = cases::oneHex();
  std::function<void(ScriptedProvider&)> preparation_;
  bool refuse_ = false;
  int made_ = 0;
  TestFactory factory_;
};

/// For the checks of zones: leaves out the location model, which has messages of its own about
/// them.
class ZoneChecksFixture : public CheckerFixture {
 protected:
  ZoneChecksFixture() { checker.setNoLM(true); }
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_CHECKER_CHECKER_FIXTURE_H
