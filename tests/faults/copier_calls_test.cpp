// SPDX-License-Identifier: Apache-2.0
//
// OrvCopier where one call goes wrong: as the plain copier, and as good as new afterwards.

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "velto/OrvCopier.h"

#include "testing/cases.h"
#include "tests/copier/PlainCopier.h"
#include "tests/copier/copy_watch.h"
#include "tests/copier/rich_case.h"
#include "tests/faults/Fault.h"

namespace velto::testing {
namespace {

using Kind = Misdeed::Kind;

// --- Two copies ---------------------------------------------------------------------------------

/// Copies a case from source 0 to destination 0, and then from 1 to 1, with all switches on.
RandomCopies twoCopies(const cases::CasePtr& served) {
  using Step = CopyStep::Kind;
  RandomCopies copies;
  copies.sources[0].served = served;
  copies.sources[1].served = served;
  copies.steps = {
      {Step::make, 0, {}, {"tests"}},
      {Step::setSource, 0, {0}, {}},
      {Step::setDestination, 0, {0}, {}},
      {Step::setSwitch, 0, {4, 1}, {}},
      {Step::setSwitch, 0, {6, 1}, {}},
      {Step::setSwitch, 0, {7, 1}, {}},
      {Step::addElemIds, 0, {1, 4, 5}, {}},
      {Step::addElemIds, 0, {3, 6}, {}},
      {Step::copy, 0, {}, {}},
      {Step::setSource, 0, {1}, {}},
      {Step::setDestination, 0, {1}, {}},
      {Step::copy, 0, {}, {}},
      {Step::getElemIds, 0, {1}, {}},
      {Step::getElemIds, 0, {3}, {}},
  };
  return copies;
}

bool beginsWith(const std::string& text, const std::string& begin) {
  return text.compare(0, begin.size(), begin) == 0;
}

Transcript::const_iterator lineThatIs(const std::string& line, const Transcript& lines) {
  const auto found = std::find(lines.begin(), lines.end(), line);
  EXPECT_TRUE(found != lines.end()) << line;
  return found;
}

/// What is done up to the end of the first copy.
Transcript firstOf(const Transcript& lines) {
  return Transcript(lines.begin(), lineThatIs("--- copier 0: setSource([1], [])", lines));
}

/// What destination 0 holds in the end.
Transcript heldIn(const Transcript& lines) {
  Transcript held;
  std::copy_if(lineThatIs("--- results", lines), lines.end(), std::back_inserter(held),
               [](const std::string& line) { return beginsWith(line, "to 0 "); });
  return held;
}

/// What is done from then on, and what destination 1 holds in the end.
Transcript secondOf(const Transcript& lines) {
  const auto begin = lineThatIs("--- copier 0: setSource([1], [])", lines);
  const auto end = lineThatIs("--- results", lines);
  Transcript second(begin, end);
  const auto held =
      std::find_if(end, lines.end(), [](const auto& line) { return beginsWith(line, "to 1 "); });
  second.insert(second.end(), held, lines.end());
  return second;
}

/// The calls of the first copy that begin with a name, without it.
Transcript callsOn(const std::string& name, const Transcript& lines) {
  Transcript calls;
  const Transcript first = firstOf(lines);
  for (auto at = lineThatIs("--- copier 0: copy([], [])", first); at != first.end(); ++at) {
    const std::string& line = *at;
    const std::string call = line.substr(std::min(name.size(), line.size()));
    if (beginsWith(line, name) && !beginsWith(call, "is given") && !beginsWith(call, "is to")) {
      calls.push_back(call);
    }
  }
  return calls;
}

/// The calls of the first copy that are neither of an end nor lines of a stream.
Transcript callsOnModels(const Transcript& lines) {
  Transcript calls;
  for (const std::string& line : firstOf(lines)) {
    const std::string operation = operationOf(line);
    if (operation != line && operation.find(' ') == std::string::npos) {
      calls.push_back(line);
    }
  }
  return calls;
}

/// A misdeed for each call, the nth of its text.
std::vector<Misdeed> misdeedsOf(const Transcript& calls, const std::vector<Kind>& kinds) {
  std::vector<Misdeed> misdeeds;
  for (const Fault& fault : faultsOf(calls, {Fault::Kind::findsNothing})) {
    for (const Kind kind : kinds) {
      misdeeds.push_back({kind, fault.call, fault.nth, {}, 0});
    }
  }
  return misdeeds;
}

// --- Misdeeds of every call ---------------------------------------------------------------------

struct CopyRow {
  std::string name;
  cases::CasePtr (*make)();
  Kind thrown;

  friend std::ostream& operator<<(std::ostream& out, const CopyRow& row) { return out << row.name; }
};

class FaultyCopy : public ::testing::TestWithParam<CopyRow> {
 protected:
  FaultyCopy() : copies_(twoCopies(GetParam().make())), sound_(watchedCopies<OrvCopier>(copies_)) {}

  /// Copies as drawn: the first as the plain copier does it, the second as if nothing had been.
  template <class Expectation>
  void expectAsGoodAsNew(const RandomCopies& drawn, const Expectation& expect) const {
    const Transcript found = watchedCopies<OrvCopier>(drawn);
    expect(firstOf(found));
    EXPECT_EQ(differenceOf(secondOf(sound_), secondOf(found)), "");
    if (firstOf(found) != firstOf(sound_) || heldIn(found) != heldIn(sound_)) {
      RandomCopies first = drawn;
      const auto end = std::find_if(first.steps.begin(), first.steps.end(), [](const auto& step) {
        return step.kind == CopyStep::Kind::copy;
      });
      first.steps.erase(end + 2, first.steps.end());
      const Transcript expected = watchedCopies<PlainCopier>(first);
      EXPECT_EQ(differenceOf(firstOf(expected), firstOf(found)), "");
      EXPECT_EQ(differenceOf(heldIn(expected), heldIn(found)), "");
    }
    if (HasFailure()) {
      ADD_FAILURE() << textOf(drawn);
    }
  }

  template <class Expectation>
  void forEachOfSource(const std::vector<Misdeed>& misdeeds, const Expectation& expect) const {
    EXPECT_GT(misdeeds.size(), 0U);
    for (const Misdeed& misdeed : misdeeds) {
      RandomCopies drawn = copies_;
      drawn.sources[0].misdeeds = {misdeed};
      expectAsGoodAsNew(drawn, expect);
      if (HasFailure()) {
        return;
      }
    }
  }

  template <class Expectation>
  void forEachOfDestination(const std::vector<Misdeed>& misdeeds, const Expectation& expect) const {
    EXPECT_GT(misdeeds.size(), 0U);
    for (const Misdeed& misdeed : misdeeds) {
      RandomCopies drawn = copies_;
      drawn.destinations[0].misdeeds = {misdeed};
      expectAsGoodAsNew(drawn, expect);
      if (HasFailure()) {
        return;
      }
    }
  }

  RandomCopies copies_;
  Transcript sound_;
};

/// But for a setting, which is left out with a line that tells so.
TEST_P(FaultyCopy, EndsWithWhatIsThrown) {
  const auto expectEnd = [this](const Transcript& found) {
    if (found.back() == "= true") {
      EXPECT_EQ(std::count_if(found.begin(), found.end(),
                              [](const std::string& line) {
                                return beginsWith(line, "out: Warning: Unable to write settings");
                              }),
                1);
      return;
    }
    EXPECT_TRUE(beginsWith(found.back(), "throws ")) << found.back();
    const auto same = std::mismatch(found.begin(), found.end(), sound_.begin(), sound_.end());
    EXPECT_EQ(same.first - found.begin(), static_cast<std::ptrdiff_t>(found.size()) - 1)
        << "nothing is called behind it";
  };
  forEachOfSource(misdeedsOf(callsOn("from 0 ", sound_), {GetParam().thrown}), expectEnd);
  forEachOfDestination(misdeedsOf(callsOn("to 0 ", sound_), {GetParam().thrown}), expectEnd);
}

class FaultyCopyThatGoesOn : public FaultyCopy {};

TEST_P(FaultyCopyThatGoesOn, LeavesMessagesToWhoeverAsks) {
  const auto expectNoChange = [this](const Transcript& found) {
    EXPECT_EQ(differenceOf(firstOf(sound_), found), "");
  };
  forEachOfSource(misdeedsOf(callsOn("from 0 ", sound_), {Kind::postsError}), expectNoChange);
  forEachOfDestination(misdeedsOf(callsOn("to 0 ", sound_), {Kind::postsWarning}), expectNoChange);
}

TEST_P(FaultyCopyThatGoesOn, GoesOnWithWhatThereIsWhereACallFindsNothing) {
  const auto expectAnEnd = [](const Transcript& found) { EXPECT_EQ(found.back(), "= true"); };
  forEachOfSource(misdeedsOf(callsOn("from 0 ", sound_), {Kind::findsNothing}), expectAnEnd);
  forEachOfDestination(misdeedsOf(callsOn("to 0 ", sound_), {Kind::findsNothing}), expectAnEnd);
}

TEST_P(FaultyCopyThatGoesOn, GoesOnWithWhatThereIsWhereAReadDeliversShort) {
  std::vector<Misdeed> misdeeds;
  for (const std::string& read : callsOn("from 0 ", sound_)) {
    const std::size_t at = read.rfind(", ");
    if (beginsWith(read, "begin")) {
      misdeeds.push_back({Kind::answersList, read, 0, {}, 0});
    } else if (beginsWith(read, "read") && at != std::string::npos) {
      for (const std::size_t delivered : {std::size_t{0}, std::stoul(read.substr(at + 2)) / 2}) {
        misdeeds.push_back({Kind::answersDelivered, read, 0, {}, delivered});
        misdeeds.push_back({Kind::deliversAtMost, read, 0, {}, delivered});
      }
    }
  }
  forEachOfSource(misdeeds, [](const Transcript& found) { EXPECT_EQ(found.back(), "= true"); });
}

TEST_P(FaultyCopyThatGoesOn, GoesOnWhereALocationModelRefuses) {
  for (const Misdeed& misdeed : misdeedsOf(callsOnModels(sound_), {Kind::findsNothing})) {
    for (const bool isDenied : {false, true}) {
      RandomCopies drawn = copies_;
      drawn.refusals = {{misdeed.call, misdeed.nth, isDenied}};
      expectAsGoodAsNew(drawn, [](const Transcript& found) { EXPECT_EQ(found.back(), "= true"); });
    }
  }
}

const CopyRow kRichCase = {"richCase", richCase, Kind::throwsError};
const CopyRow kRichCaseShortOfMemory = {"richCaseShortOfMemory", richCase, Kind::throwsNoMemory};
const CopyRow kWithPhysics = {"withPhysics", cases::withPhysics, Kind::throwsError};

INSTANTIATE_TEST_SUITE_P(Copier, FaultyCopy,
                         ::testing::Values(kRichCase, kRichCaseShortOfMemory, kWithPhysics),
                         [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(Copier, FaultyCopyThatGoesOn, ::testing::Values(kRichCase, kWithPhysics),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace velto::testing
