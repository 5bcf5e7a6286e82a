// SPDX-License-Identifier: Apache-2.0
//
// Who releases the case that a checker opened, and when: destruction, the next checkCase, copies
// and assignments.

#include <optional>

#include "tests/checker/CheckerFixture.h"

namespace velto::testing {
namespace {

class Ownership : public CheckerFixture {
 protected:
  Ownership() {
    checker.setCheckLevel(0);
    subject_.emplace();
    subject_->setCheckLevel(0);
  }

  CheckResult checkSubject() { return check(*subject_, file.path()); }
  std::string absent() const { return file.path() + ".absent"; }

  /// Which providers were started, and which were destroyed, in order.
  Transcript lives() const {
    return callsOf({"startReading", "~provider 1", "~provider 2", "~provider 3"});
  }

  std::optional<OrvChecker> subject_;
};

// --- One checker --------------------------------------------------------------------------------

TEST_F(Ownership, KeepsTheCaseOpenAfterTheRun) {
  checkSubject();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)"}));
}

TEST_F(Ownership, ReleasesTheCaseWithTheChecker) {
  checkSubject();
  subject_.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
}

TEST_F(Ownership, HasNothingToReleaseBeforeTheFirstRun) {
  subject_.reset();
  EXPECT_EQ(lives(), Transcript());
}

TEST_F(Ownership, ReleasesTheCaseBeforeTheNextOneIsOpened) {
  checkSubject();
  checkSubject();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1", "startReading(FILE, 0)"}));
  subject_.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1", "startReading(FILE, 0)",
                                 "~provider 2"}));
}

TEST_F(Ownership, ReleasesTheCaseAlsoWhereTheNextFileDoesNotExist) {
  checkSubject();
  check(*subject_, absent());
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
}

TEST_F(Ownership, ReleasesACaseOnceAfterAFailedOpen) {
  checkSubject();
  check(*subject_, absent());
  check(*subject_, absent());
  subject_.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
}

TEST_F(Ownership, OpensAnotherCaseAfterAFailedOpen) {
  checkSubject();
  check(*subject_, absent());
  checkSubject();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1", "startReading(FILE, 0)"}));
}

TEST_F(Ownership, ReleasesTheCaseWhereTheNextFileGetsNoProvider) {
  checkSubject();
  refuseProviders();
  checkSubject();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
  subject_.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
}

TEST_F(Ownership, KeepsACaseThatCannotBeReadUntilTheEnd) {
  prepare([](ScriptedProvider& p) { p.refuseToRead("cut off"); });
  checkSubject();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)"}));
  subject_.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
}

TEST_F(Ownership, KeepsACaseWhoseWalkFailedUntilTheEnd) {
  prepare([](ScriptedProvider& p) { failOn(p, "setMeshId"); });
  checkSubject();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)"}));
  subject_.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
}

TEST_F(Ownership, StaysUsableAfterWhatTheLibraryThrows) {
  prepare([](ScriptedProvider& p) {
    p.on("getMeshIds", [](base::CaseCore&) { throw std::bad_alloc(); });
  });
  EXPECT_THROW(checkSubject(), std::bad_alloc);
  prepare({});
  EXPECT_TRUE(checkSubject().good);
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1", "startReading(FILE, 0)"}));
}

// --- Copies -------------------------------------------------------------------------------------

TEST_F(Ownership, ACopyTakesOptionsAndLists) {
  prepare([](ScriptedProvider& p) { p.answerVersion(0, 0, 0); });
  subject_->setVerbosity(2);
  checkSubject();
  OrvChecker copy(*subject_);
  EXPECT_EQ(copy.getErrors(), Texts({"checkVersion : ORV version number invalid"}));
  const CheckResult result = check(copy, absent());
  EXPECT_EQ(result.errors, Texts({"checkVersion : ORV version number invalid",
                                  "checkVersion : Error: No such file / unreadable"}));
  EXPECT_EQ(subject_->getErrors(), Texts({"checkVersion : ORV version number invalid"}));
}

TEST_F(Ownership, TheFirstOfTwoCopiesReleasesTheCase) {
  checkSubject();
  std::optional<OrvChecker> copy(*subject_);
  subject_.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
  copy.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
}

TEST_F(Ownership, TheCopyReleasesTheCaseWhereItGoesFirst) {
  checkSubject();
  std::optional<OrvChecker> copy(*subject_);
  copy.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
  subject_.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
}

TEST_F(Ownership, TheNextRunOfACopyReleasesTheSharedCase) {
  checkSubject();
  std::optional<OrvChecker> copy(*subject_);
  check(*copy, file.path());
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1", "startReading(FILE, 0)"}));
  subject_.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1", "startReading(FILE, 0)"}));
  copy.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1", "startReading(FILE, 0)",
                                 "~provider 2"}));
}

TEST_F(Ownership, ACopyCanRunAfterTheOriginalReleasedTheCase) {
  checkSubject();
  OrvChecker copy(*subject_);
  subject_.reset();
  EXPECT_TRUE(check(copy, file.path()).good);
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1", "startReading(FILE, 0)"}));
}

TEST_F(Ownership, CopiesOfAFreshCheckerOpenCasesOfTheirOwn) {
  std::optional<OrvChecker> copy(*subject_);
  checkSubject();
  check(*copy, file.path());
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "startReading(FILE, 0)"}));
  copy.reset();
  subject_.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "startReading(FILE, 0)", "~provider 2",
                                 "~provider 1"}));
}

// --- Assignments --------------------------------------------------------------------------------

TEST_F(Ownership, AnAssignmentSharesTheCaseOfItsSource) {
  checkSubject();
  std::optional<OrvChecker> target(std::in_place);
  *target = *subject_;
  subject_.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
  target.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
}

TEST_F(Ownership, AnAssignmentDoesNotReleaseWhatItsTargetHeld) {
  OrvFileIO* held = nullptr;
  prepare([&held](ScriptedProvider& p) { held = &p; });
  std::optional<OrvChecker> target(std::in_place);
  check(*target, file.path());
  const OrvFileIO* const heldByTarget = held;
  checkSubject();
  *target = *subject_;
  target.reset();
  subject_.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "startReading(FILE, 0)", "~provider 2"}));
  delete heldByTarget;
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "startReading(FILE, 0)", "~provider 2",
                                 "~provider 1"}));
}

TEST_F(Ownership, AnAssignmentTakesOptionsAndLists) {
  prepare([](ScriptedProvider& p) { p.answerVersion(0, 0, 0); });
  checkSubject();
  OrvChecker target;
  target = *subject_;
  EXPECT_EQ(target.getErrors(), Texts({"checkVersion : ORV version number invalid"}));
}

TEST_F(Ownership, ASelfAssignmentChangesNothing) {
  prepare([](ScriptedProvider& p) { p.answerVersion(4, 0, 0); });
  checkSubject();
  const OrvChecker& same = *subject_;
  *subject_ = same;
  EXPECT_EQ(subject_->getWarnings(), Texts({"checkVersion : ORV Major version number is newer - "
                                            "compatibility might be limited"}));
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)"}));
  subject_.reset();
  EXPECT_EQ(lives(), Transcript({"startReading(FILE, 0)", "~provider 1"}));
}

}  // namespace
}  // namespace velto::testing
