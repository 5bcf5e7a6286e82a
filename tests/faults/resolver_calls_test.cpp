// SPDX-License-Identifier: Apache-2.0
//
// PhysicsRegionResolver where one call goes wrong: as the plain resolver, and as good as new
// afterwards.

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>

#include "velto/PhysicsRegionResolver.h"

#include "testing/capture.h"
#include "tests/faults/Fault.h"
#include "tests/physics_regions/PlainResolver.h"
#include "tests/physics_regions/region_texts.h"

namespace velto::testing {
namespace {

using Kind = Fault::Kind;
using Texts = std::vector<std::string>;

using velto::testing::tableOf;
const RegionTable& tableOf(const PlainResolver& resolver) { return resolver.table(); }

cases::CasePtr everyKindOfRegion() {
  return regionCase(R"(
    domains/water/location = channel, all
    subdomains/bed/location = channel
    subdomains/bed/domain = water
    boundaries/walls/location = hull, nowhere, both
    boundaries/walls/domain = water
    boundaries/screen/location = screen
    interfaces/heat/boundariesSide1 = walls
    interfaces/heat/boundariesSide2 = screen
  )",
                    R"(
    part assembly
      body channel: 7 2
      body heater: 8
      use hull of channel: 4
      use shell of heater: 5
      composite all: heater
      composite both: hull, shell
    part other
      body spare: 9
  )");
}

/// What a constructor or a resolving gave.
struct Step {
  std::string thrown;
  bool good = false;
  Texts errors;
  std::string table;
  std::string out;
  std::string err;
  Transcript calls;

  Transcript lines() const {
    Transcript all = calls;
    addLines(all, "thrown", thrown);
    all.emplace_back(good ? "good" : "not good");
    addLines(all, "error", errors);
    addLines(all, "table", table);
    addLines(all, "out", out);
    addLines(all, "err", err);
    return all;
  }
};

/// A resolver that is made for a case and resolves with it, each time with a provider of its own.
template <class Resolver>
class Steps {
 public:
  explicit Steps(cases::CasePtr served) : served_(std::move(served)) {}

  Step make(const Fault& fault = Fault()) {
    return taken(fault, [this] {
      resolver_.emplace(&*provider_);
      return true;
    });
  }

  /// The calls on models go into a transcript of their own, if there is one.
  Step resolve(const Fault& fault = Fault(), Transcript* modelCalls = nullptr) {
    return taken(
        fault, [this] { return resolver_->resolveUsing(&*provider_); }, modelCalls);
  }

  const Resolver& resolver() const { return *resolver_; }

 private:
  template <class Operation>
  Step taken(const Fault& fault, const Operation& operation, Transcript* modelCalls = nullptr) {
    Step step;
    const std::size_t errorsBefore = resolver_ ? resolver_->getErrors().size() : 0;
    open();
    apply(fault, *provider_);
    LocationModelScript script(modelCalls == nullptr ? &calls_ : modelCalls);
    apply(fault, script);
    calls_.clear();
    {
      const StreamCapture streams;
      try {
        step.good = operation();
      } catch (...) {
        step.thrown = thrownByFault();
      }
      step.out = streams.out();
      step.err = streams.err();
    }
    step.calls = calls_;
    if (resolver_) {
      const Texts& errors = resolver_->getErrors();
      step.errors.assign(errors.begin() + static_cast<std::ptrdiff_t>(errorsBefore), errors.end());
      step.table = tableText(tableOf(*resolver_));
    }
    return step;
  }

  void open() {
    provider_.emplace(served_, &calls_);
    provider_->startReading("case", dataClassCase);
    provider_->setMeshId(1);
    provider_->setTarget(targetRestart);
    provider_->setPartitionId(-1);
  }

  cases::CasePtr served_;
  Transcript calls_;
  std::optional<ScriptedProvider> provider_;
  std::optional<Resolver> resolver_;
};

class FaultyRegions : public ::testing::TestWithParam<cases::NamedCase> {
 protected:
  FaultyRegions() : served_(GetParam().make()) {
    Steps<PhysicsRegionResolver> run(served_);
    made_ = run.make();
    callsOfResolving_ = run.resolve(Fault(), &modelCalls_).calls;
    resolved_ = run.resolve();
    EXPECT_TRUE(resolved_.good);
    EXPECT_EQ(run.resolver().getErrors(), Texts());
  }

  /// Resolves with the fault, before that and after that without.
  Step resolve(const Fault& fault) const {
    Steps<PhysicsRegionResolver> run(served_);
    EXPECT_EQ(differenceOf(made_.lines(), run.make().lines()), "");
    EXPECT_EQ(differenceOf(resolved_.lines(), run.resolve().lines()), "");
    Step found = run.resolve(fault);
    EXPECT_EQ(differenceOf(resolved_.lines(), run.resolve().lines()), "") << fault;
    Steps<PlainResolver> plain(served_);
    plain.make();
    plain.resolve();
    const Step expected = plain.resolve(fault);
    if (expected.thrown.empty()) {
      EXPECT_EQ(differenceOf(expected.lines(), found.lines()), "") << fault;
    } else {
      EXPECT_EQ(expected.thrown, found.thrown) << fault;
      EXPECT_EQ(expected.calls, found.calls) << fault;
    }
    return found;
  }

  cases::CasePtr served_;
  Step made_;
  Step resolved_;
  Transcript callsOfResolving_;
  Transcript modelCalls_;
};

/// What was resolved before is all there or all gone.
TEST_P(FaultyRegions, AreLeftWithWhatIsThrown) {
  std::vector<Fault> faults =
      faultsOf(callsOfResolving_, {Kind::throwsError, Kind::throwsNoMemory});
  for (const Fault& fault : faultsOf(modelCalls_, {Kind::breaksDown})) {
    faults.push_back(fault);
  }
  Steps<PhysicsRegionResolver> run(served_);
  run.make();
  const std::string unresolved = tableText([&] {
    RegionTable table = tableOf(run.resolver());
    table.clearResolved();
    return table;
  }());
  for (const Fault& fault : faults) {
    const Step found = resolve(fault);
    const std::string thrown = fault.kind == Kind::throwsError      ? kThrown
                               : fault.kind == Kind::throwsNoMemory ? "for lack of memory"
                                                                    : fault.call;
    EXPECT_EQ(found.thrown, "throws " + thrown) << fault;
    EXPECT_EQ(found.calls.back(), fault.call) << fault;
    EXPECT_EQ(found.errors, Texts()) << fault;
    EXPECT_TRUE(found.table == resolved_.table || found.table == unresolved) << found.table;
  }
}

TEST_P(FaultyRegions, LeaveMessagesToWhoeverAsks) {
  for (const Fault& fault : faultsOf(callsOfResolving_, {Kind::postsErrors, Kind::postsWarnings})) {
    EXPECT_EQ(differenceOf(resolved_.lines(), resolve(fault).lines()), "") << fault;
  }
}

TEST_P(FaultyRegions, ComeToWhatThereIs) {
  std::vector<Fault> faults = faultsOf(callsOfResolving_, {Kind::findsNothing, Kind::givesNoList});
  for (const Fault& fault : faultsOf(modelCalls_, {Kind::isRefused, Kind::isDenied})) {
    faults.push_back(fault);
  }
  for (const Fault& fault : faults) {
    EXPECT_EQ(resolve(fault).thrown, "") << fault;
  }
}

/// Of the settings as of the model: those that cannot be read are no regions, and nothing remains
/// of a resolver whose constructor throws.
TEST_P(FaultyRegions, AreNoneThatTheSettingsDoNotTell) {
  for (const Fault& fault :
       faultsOf(made_.calls, {Kind::throwsError, Kind::throwsNoMemory, Kind::findsNothing})) {
    Steps<PhysicsRegionResolver> run(served_);
    Steps<PlainResolver> plain(served_);
    EXPECT_EQ(differenceOf(plain.make(fault).lines(), run.make(fault).lines()), "") << fault;
    if (fault.kind == Kind::findsNothing) {
      EXPECT_EQ(differenceOf(plain.resolve().lines(), run.resolve().lines()), "") << fault;
    }
    EXPECT_EQ(differenceOf(made_.lines(), run.make().lines()), "") << fault;
    EXPECT_EQ(differenceOf(resolved_.lines(), run.resolve().lines()), "") << fault;
  }
}

INSTANTIATE_TEST_SUITE_P(Resolver, FaultyRegions,
                         ::testing::Values(cases::NamedCase{"everyKind", everyKindOfRegion},
                                           cases::NamedCase{"withPhysics", cases::withPhysics}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace velto::testing
