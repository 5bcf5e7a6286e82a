// SPDX-License-Identifier: Apache-2.0
//
// OrvChecker where one call goes wrong: as the plain checker, and as good as new afterwards.

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "testing/capture.h"
#include "tests/checker/CheckerFixture.h"
#include "tests/checker/PlainChecker.h"
#include "tests/faults/Fault.h"

namespace velto::testing {
namespace {

using Kind = Fault::Kind;

// --- Two checks of a case -----------------------------------------------------------------------

/// Whether checkers may ask this in any number: of any case, or where they build a location model.
bool isOfNoConsequence(const std::string& operation, bool buildsModel) {
  static const std::set<std::string> kOfABuild = {
      "getFaceZoneInfo", "getCellZoneInfo",    "getZoneSizeInfo",     "getZoneStringInfo",
      "getFaceZoneType", "getCellFaceZoneIds", "getFaceCellZone0Ids", "getFaceCellZone1Ids",
      "getFaceZoneProp", "getSolverType"};
  return operation == "getMeshId" || (buildsModel && kOfABuild.count(operation) > 0);
}

/// What one checkCase gave; of the messages those that are new.
struct Check {
  std::string thrown;
  bool good = false;
  bool answersAsItsErrors = false;  ///< Good if, and only if, no error was ever found.
  Texts errors;
  Texts warnings;
  std::string out;
  std::string err;
  Transcript calls;

  /// All that can be compared. Not the answer, which goes by errors of earlier checks as well.
  Transcript lines(bool mayBuildModel) const {
    Transcript all;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(all),
                 [mayBuildModel](const std::string& call) {
                   return !isOfNoConsequence(operationOf(call), mayBuildModel);
                 });
    addLines(all, "thrown", thrown);
    addLines(all, "error", errors);
    addLines(all, "warning", warnings);
    addLines(all, "out", out);
    addLines(all, "err", err);
    return all;
  }
};

struct RealSubject {
  explicit RealSubject(TestFactory::ProviderMaker maker) : factory(std::move(maker)) {}

  bool check(const std::string& fileName) {
    streams.emplace();
    return checker.checkCase(fileName);
  }

  void takeStreams(Check& result) {
    result.out = streams->out();
    result.err = streams->err();
    streams.reset();
  }

  TestFactory factory;
  OrvChecker checker;
  std::optional<StreamCapture> streams;
};

struct PlainSubject {
  explicit PlainSubject(PlainChecker::ProviderMaker maker) : checker(std::move(maker)) {}

  bool check(const std::string& fileName) { return checker.checkCase(fileName); }

  void takeStreams(Check& result) {
    result.out = checker.takeOut();
    result.err = checker.takeErr();
  }

  PlainChecker checker;
};

/// The second check is without the fault.
struct TwoChecks {
  Check first;
  Check second;
  Transcript callsOfTheEnd;
};

/// The calls of a sound check that can have faults.
struct Calls {
  Transcript ofProvider;
  Transcript ofModels;
};

/// A case, and the providers that a checker gets for it: the first with the fault.
class Stage {
 public:
  Stage(cases::CasePtr served, Fault fault)
      : served_(std::move(served)), fault_(std::move(fault)) {}

  /// One check alone leaves out the second.
  template <class Subject>
  TwoChecks play(bool isOneAlone = false) {
    TwoChecks checks;
    {
      Subject subject([this](const std::string&) { return makeProvider(); });
      subject.checker.setVerbosity(4);
      subject.checker.setCheckLevel(2);
      checks.first = check(subject);
      if (!isOneAlone) {
        checks.second = check(subject);
      }
    }
    checks.callsOfTheEnd = calls_.ofProvider;
    return checks;
  }

  /// Of one sound check, all of them.
  Calls callsOfACheck() {
    RealSubject subject([this](const std::string&) { return makeProvider(); });
    subject.checker.setVerbosity(4);
    subject.checker.setCheckLevel(2);
    const StreamCapture streams;
    LocationModelScript script(&calls_.ofModels);
    EXPECT_TRUE(subject.checker.checkCase(file()));
    return calls_;
  }

 private:
  static const std::string& file() {
    static const TemporaryFile kFile;
    return kFile.path();
  }

  template <class Subject>
  Check check(Subject& subject) {
    LocationModelScript script(&calls_.ofProvider);
    if (made_ == 0) {
      apply(fault_, script);
    }
    Check result;
    const auto errorsBefore = static_cast<std::ptrdiff_t>(subject.checker.getErrors().size());
    const auto warningsBefore = static_cast<std::ptrdiff_t>(subject.checker.getWarnings().size());
    try {
      result.good = subject.check(file());
    } catch (...) {
      result.thrown = thrownByFault();
    }
    subject.takeStreams(result);
    const Texts& errors = subject.checker.getErrors();
    const Texts& warnings = subject.checker.getWarnings();
    result.answersAsItsErrors = result.good == errors.empty();
    result.errors.assign(errors.begin() + errorsBefore, errors.end());
    result.warnings.assign(warnings.begin() + warningsBefore, warnings.end());
    result.calls.swap(calls_.ofProvider);
    return result;
  }

  OrvFileProvider* makeProvider() {
    auto provider = std::make_unique<ScriptedProvider>(served_, &calls_.ofProvider,
                                                       "provider " + std::to_string(++made_));
    if (made_ == 1) {
      apply(fault_, *provider);
    }
    return provider.release();
  }

  cases::CasePtr served_;
  Fault fault_;
  Calls calls_;
  int made_ = 0;
};

// --- Faults of every call -----------------------------------------------------------------------

class FaultyCase : public ::testing::TestWithParam<cases::NamedCase> {
 protected:
  FaultyCase()
      : served_(GetParam().make()),
        buildsModel_(served_->tables.locationModel == nullptr),
        calls_(Stage(served_, Fault()).callsOfACheck()),
        sound_(Stage(served_, Fault()).play<RealSubject>()) {}

  /// Checks with each of the faults, and goes on while nothing fails.
  template <class Expectation>
  void forEach(const std::vector<Fault>& faults, const Expectation& expect) {
    EXPECT_GT(faults.size(), 0U);
    for (const Fault& fault : faults) {
      const TwoChecks found = Stage(served_, fault).play<RealSubject>();
      expect(fault, found);
      expectAsGoodAsNew(found);
      if (!isOfNoConsequence(operationOf(fault.call), buildsModel_)) {
        const bool hidesModel = fault.kind == Kind::findsNothing || fault.kind == Kind::isRefused ||
                                fault.kind == Kind::isDenied;
        expectTheSame(Stage(served_, fault).play<PlainSubject>(true).first, found.first,
                      buildsModel_ || hidesModel);
      }
      if (HasFailure()) {
        ADD_FAILURE() << ::testing::PrintToString(fault);
        return;
      }
    }
  }

  /// The second check gives what it gives after a sound one, and all providers are released.
  void expectAsGoodAsNew(const TwoChecks& found) const {
    EXPECT_TRUE(found.second.answersAsItsErrors);
    EXPECT_EQ(differenceOf(sound_.second.lines(buildsModel_), found.second.lines(buildsModel_)),
              "");
    EXPECT_EQ(found.callsOfTheEnd, Transcript({"~provider 2"}));
  }

  static void expectTheSame(const Check& expected, const Check& found, bool mayBuildModel) {
    EXPECT_EQ(found.good, expected.good);
    EXPECT_EQ(differenceOf(expected.lines(mayBuildModel), found.lines(mayBuildModel)), "");
  }

  cases::CasePtr served_;
  bool buildsModel_;
  Calls calls_;
  TwoChecks sound_;
};

TEST_P(FaultyCase, IsLeftWithWhatIsThrown) {
  forEach(faultsOf(calls_.ofProvider, {Kind::throwsError}),
          [](const Fault&, const TwoChecks& found) {
            EXPECT_EQ(found.first.thrown, "throws cable cut");
          });
}

class FaultyMemory : public FaultyCase {};

TEST_P(FaultyMemory, ReachesTheCaller) {
  forEach(faultsOf(calls_.ofProvider, {Kind::throwsNoMemory}),
          [](const Fault&, const TwoChecks& found) {
            EXPECT_EQ(found.first.thrown, "throws for lack of memory");
          });
}

std::ptrdiff_t countOf(const std::string& text, const Texts& messages) {
  return std::count_if(messages.begin(), messages.end(), [&](const std::string& message) {
    return message.substr(message.find(" : ") + 3) == text;
  });
}

TEST_P(FaultyCase, EndsWithTheErrorsThatArePosted) {
  forEach(faultsOf(calls_.ofProvider, {Kind::postsErrors}),
          [](const Fault&, const TwoChecks& found) {
            EXPECT_FALSE(found.first.good);
            EXPECT_EQ(countOf("ORV - disk gone", found.first.errors), 1);
            EXPECT_EQ(countOf("ORV - and the spare one too", found.first.errors), 1);
            EXPECT_EQ(found.first.errors.size(), 2U);
          });
}

TEST_P(FaultyCase, IsGoodThoughAWarningIsPosted) {
  forEach(faultsOf(calls_.ofProvider, {Kind::postsWarnings}), [this](const Fault& fault,
                                                                     const TwoChecks& found) {
    // The last call asks for errors: nobody asks for warnings behind it.
    const bool isLast =
        fault.call == "hasError()" &&
        fault.nth == std::count(calls_.ofProvider.begin(), calls_.ofProvider.end(), "hasError()");
    EXPECT_TRUE(found.first.good);
    EXPECT_EQ(countOf("ORV - disk slow", found.first.warnings), isLast ? 0 : 1);
    EXPECT_EQ(found.first.warnings.size(), sound_.first.warnings.size() + (isLast ? 0U : 1U));
  });
}

TEST_P(FaultyCase, IsJudgedByWhatThereIsWhereACallFindsNothing) {
  forEach(faultsOf(calls_.ofProvider, {Kind::findsNothing, Kind::givesNoList}),
          [](const Fault&, const TwoChecks& found) { EXPECT_EQ(found.first.thrown, ""); });
}

TEST_P(FaultyCase, IsJudgedByWhatThereIsWhereAReadDeliversShort) {
  forEach(faultsOf(calls_.ofProvider, {Kind::deliversNothing, Kind::deliversHalf}),
          [](const Fault&, const TwoChecks& found) { EXPECT_EQ(found.first.thrown, ""); });
}

class FaultyModel : public FaultyCase {};

TEST_P(FaultyModel, IsJudgedByWhatItAnswers) {
  forEach(faultsOf(calls_.ofModels, {Kind::breaksDown}),
          [](const Fault& fault, const TwoChecks& found) {
            EXPECT_EQ(found.first.thrown, "throws " + fault.call);
          });
  forEach(faultsOf(calls_.ofModels, {Kind::isRefused, Kind::isDenied}),
          [](const Fault&, const TwoChecks& found) { EXPECT_EQ(found.first.thrown, ""); });
}

const cases::NamedCase kWithPhysics = {"withPhysics", cases::withPhysics};
const cases::NamedCase kTwoBodies = {"twoBodies", cases::twoBodies};
const cases::NamedCase kWithPartitions = {"withPartitions", cases::withPartitions};

INSTANTIATE_TEST_SUITE_P(Checker, FaultyCase,
                         ::testing::Values(kWithPhysics, kTwoBodies, kWithPartitions),
                         [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(Checker, FaultyMemory, ::testing::Values(kWithPhysics),
                         [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(Checker, FaultyModel, ::testing::Values(kWithPhysics, kTwoBodies),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace velto::testing
