// SPDX-License-Identifier: Apache-2.0
//
// OrvChecker where one allocation fails: as good as new afterwards.

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "tests/checker/CheckerFixture.h"
#include "tests/faults/Sheltered.h"
#include "tests/faults/memory_run.h"

namespace velto::testing {
namespace {

/// Counts those that live.
struct CountedProvider : private ServedCase, public ShelteredProvider {
  CountedProvider(const cases::CasePtr& served, bool isClosed, int& count)
      : ServedCase{memory::MemoryProvider(served)},
        ShelteredProvider(source, isClosed),
        count_(count) {
    ++count_;
  }
  ~CountedProvider() override { --count_; }

 private:
  int& count_;
};

/// A checker that checks once with a failing allocation, and once more.
class CheckerSubject {
 public:
  CheckerSubject(cases::CasePtr served, bool isClosed)
      : served_(std::move(served)), isClosed_(isClosed), factory_([this](const std::string&) {
          const Shelter shelter;
          EXPECT_EQ(living_, 0) << "the case before was not released";
          return static_cast<OrvFileProvider*>(new CountedProvider(served_, isClosed_, living_));
        }) {
    checker_.emplace();
    checker_->setVerbosity(4);
    checker_->setCheckLevel(2);
    file();
  }

  void attempt() {
    const FixedStreams streams;
    good_ = checker_->checkCase(file());
  }

  /// Of the messages those that are new.
  CheckResult checkAgain() {
    const auto errors = static_cast<std::ptrdiff_t>(checker_->getErrors().size());
    const auto warnings = static_cast<std::ptrdiff_t>(checker_->getWarnings().size());
    const FixedStreams streams;
    CheckResult result;
    result.good = checker_->checkCase(file()) == checker_->getErrors().empty();
    result.errors.assign(checker_->getErrors().begin() + errors, checker_->getErrors().end());
    result.warnings.assign(checker_->getWarnings().begin() + warnings,
                           checker_->getWarnings().end());
    result.out = streams.out();
    result.err = streams.err();
    return result;
  }

  void judge(const MemoryOutcome& outcome, const CheckResult& expected) {
    if (isClosed_ && outcome.isAsThrown) {
      EXPECT_TRUE(outcome.isThrown) << "it reaches the caller";
    }
    EXPECT_TRUE(outcome.isThrown || good_ == checker_->getErrors().empty());
    const CheckResult found = checkAgain();
    EXPECT_TRUE(found.good) << "or not good, and there are errors";
    EXPECT_EQ(found.errors, expected.errors);
    EXPECT_EQ(found.warnings, expected.warnings);
    EXPECT_EQ(found.out, expected.out);
    EXPECT_EQ(found.err, expected.err);
    checker_.reset();
    EXPECT_EQ(living_, 0);
  }

  OrvChecker& checker() { return *checker_; }

 private:
  static const std::string& file() {
    static const TemporaryFile kFile;
    return kFile.path();
  }

  cases::CasePtr served_;
  bool isClosed_;
  int living_ = 0;
  TestFactory factory_;
  std::optional<OrvChecker> checker_;
  bool good_ = false;
};

class CheckWithoutMemory : public ::testing::TestWithParam<cases::NamedCase> {
 protected:
  std::size_t failEachOf(bool isClosed) const {
    const cases::CasePtr served = GetParam().make();
    const CheckResult expected = CheckerSubject(served, isClosed).checkAgain();
    return failEach([&] { return std::make_unique<CheckerSubject>(served, isClosed); },
                    [&](CheckerSubject& subject, const MemoryOutcome& outcome) {
                      subject.judge(outcome, expected);
                    });
  }
};

TEST_P(CheckWithoutMemory, ThrowsAndLeavesTheCheckerAsGoodAsNew) {
  EXPECT_GT(failEachOf(true), 100U);
}

/// The library tells of some failures with a message.
TEST_P(CheckWithoutMemory, LeavesTheCheckerAsGoodAsNewWhereTheLibraryHasNone) {
  EXPECT_GT(failEachOf(false), 100U);
}

/// A checker that has an open case, and is copied in both ways.
class CopiedSubject : public CheckerSubject {
 public:
  using CheckerSubject::CheckerSubject;

  void open() {
    checkAgain();
    target_.setVerbosity(0);
  }

  void attempt() {
    target_ = checker();
    const OrvChecker copy = checker();
  }

 private:
  OrvChecker target_;
};

TEST_P(CheckWithoutMemory, LeavesACheckerThatIsCopiedAsItWas) {
  const cases::CasePtr served = GetParam().make();
  const CheckResult expected = CheckerSubject(served, true).checkAgain();
  const auto makeSubject = [&] {
    auto subject = std::make_unique<CopiedSubject>(served, true);
    subject->open();
    return subject;
  };
  EXPECT_GT(failEach(makeSubject,
                     [&](CopiedSubject& subject, const MemoryOutcome& outcome) {
                       subject.judge(outcome, expected);
                     }),
            1U);
}

INSTANTIATE_TEST_SUITE_P(Checker, CheckWithoutMemory,
                         ::testing::Values(cases::NamedCase{"withPhysics", cases::withPhysics},
                                           cases::NamedCase{"twoBodies", cases::twoBodies},
                                           cases::NamedCase{"twoHexes", cases::twoHexes}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace velto::testing
