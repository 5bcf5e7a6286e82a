// SPDX-License-Identifier: Apache-2.0
//
// OrvCopier, LocationModelBuilder and PhysicsRegionResolver where one allocation fails: as good as
// new afterwards.

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "velto/LocationModelBuilder.h"
#include "velto/OrvCopier.h"
#include "velto/PhysicsRegionResolver.h"

#include "embedded/memory/MemoryConsumer.h"
#include "embedded/memory/MemoryProvider.h"
#include "testing/RecordingConsumer.h"
#include "testing/cases.h"
#include "testing/model_text.h"
#include "testing/write_case.h"
#include "tests/faults/Sheltered.h"
#include "tests/faults/memory_run.h"
#include "tests/physics_regions/region_texts.h"

namespace velto::testing {
namespace {

using Texts = std::vector<std::string>;

/// A case that is open at its first mesh.
struct Source {
  Source(const cases::CasePtr& served, bool isClosed) : target(served), provider(target, isClosed) {
    provider.startReading("case", dataClassCase);
  }

  memory::MemoryProvider target;
  ShelteredProvider provider;
};

/// Runs where the tool alone lacks memory, and where the library may lack it as well.
constexpr std::array<bool, 2> kClosedAndOpen = {true, false};

/// The tool throws whatever it lacks.
void expectThrown(const MemoryOutcome& outcome, bool isClosed) {
  if (isClosed && outcome.isAsThrown) {
    EXPECT_TRUE(outcome.isThrown) << "it reaches the caller";
  }
}

// --- OrvCopier ----------------------------------------------------------------------------------

cases::CasePtr richCase() {
  cases::CasePtr rich = cases::withResults();
  rich->setSetting("a", "1");
  rich->arrays().cellPartitions[3].partitions = memory::Slice<int>(std::vector<int>{5});
  return rich;
}

/// What a destination got, as calls that write it; without the time of the copy.
Transcript textOf(const memory::Case& written) {
  Transcript calls;
  {
    RecordingConsumer reader(&calls);
    writeCase(written, reader);
  }
  calls.erase(std::remove_if(calls.begin(), calls.end(),
                             [](const std::string& call) {
                               return call.find("Time = ") != std::string::npos;
                             }),
              calls.end());
  if (written.tables.locationModel != nullptr) {
    calls.push_back(modelText(*written.tables.locationModel, 1));
  }
  return calls;
}

class CopierSubject {
 public:
  CopierSubject(cases::CasePtr served, bool isClosed)
      : served_(std::move(served)), isClosed_(isClosed), source_(served_, isClosed) {}

  void attempt() {
    const FixedStreams streams;
    ShelteredConsumer consumer(destination_, isClosed_);
    copy(source_.provider, consumer);
    const Shelter shelter;
    told_ = streams.out();
  }

  /// What another copy prints, and leaves in a destination of its own.
  Transcript copyAgain() {
    Source source(served_, isClosed_);
    memory::MemoryConsumer destination;
    const FixedStreams streams;
    EXPECT_TRUE(copy(source.provider, destination));
    Transcript result = textOf(*destination.takeCase());
    result.push_back(streams.out());
    result.push_back(streams.err());
    return result;
  }

  void judge(const MemoryOutcome& outcome, const Transcript& expected) {
    if (told_.find("Warning: Unable to write settings for '") == std::string::npos) {
      expectThrown(outcome, isClosed_);
    } else {
      EXPECT_FALSE(outcome.isThrown);
    }
    EXPECT_EQ(copyAgain(), expected);
  }

 private:
  bool copy(OrvProvider& source, OrvConsumer& destination) {
    copier_.setSource(&source);
    copier_.setDestination(&destination);
    copier_.setVerbose(true);
    copier_.copyCellPartitionsToDestination(true);
    copier_.copySettingsToDestination(true);
    copier_.setDestinationSolverFormat("a solver with a long name");
    copier_.addElemIds(1, {4, 5});
    copier_.addElemIds(3, {6});
    return copier_.copy();
  }

  cases::CasePtr served_;
  bool isClosed_;
  Source source_;
  memory::MemoryConsumer destination_;
  OrvCopier copier_{"tests"};
  std::string told_;
};

class CopyWithoutMemory : public ::testing::TestWithParam<cases::NamedCase> {};

TEST_P(CopyWithoutMemory, LeavesTheCopierAsGoodAsNew) {
  const cases::CasePtr served = GetParam().make();
  const Transcript expected = CopierSubject(served, true).copyAgain();
  for (const bool isClosed : kClosedAndOpen) {
    EXPECT_GT(failEach([&] { return std::make_unique<CopierSubject>(served, isClosed); },
                       [&](CopierSubject& subject, const MemoryOutcome& outcome) {
                         subject.judge(outcome, expected);
                       }),
              50U);
  }
}

INSTANTIATE_TEST_SUITE_P(Copier, CopyWithoutMemory,
                         ::testing::Values(cases::NamedCase{"richCase", richCase},
                                           cases::NamedCase{"withPhysics", cases::withPhysics}),
                         [](const auto& row) { return row.param.name; });

// --- LocationModelBuilder -----------------------------------------------------------------------

class BuilderSubject {
 public:
  BuilderSubject(const cases::CasePtr& served, bool isClosed)
      : isClosed_(isClosed), source_(served, isClosed) {}

  void attempt() {
    OrvLocationModel model;
    good_ = builder_.build(&source_.provider, &model);
  }

  std::string buildAgain() {
    OrvLocationModel model;
    EXPECT_TRUE(builder_.build(&source_.provider, &model));
    return modelText(model, 1);
  }

  void judge(const MemoryOutcome& outcome, const std::string& expected) {
    expectThrown(outcome, isClosed_);
    EXPECT_EQ(builder_.getErrors().empty(), outcome.isThrown || good_);
    EXPECT_EQ(buildAgain(), expected);
  }

 private:
  bool isClosed_;
  Source source_;
  LocationModelBuilder builder_;
  bool good_ = false;
};

class BuildWithoutMemory : public ::testing::TestWithParam<cases::NamedCase> {};

TEST_P(BuildWithoutMemory, LeavesTheBuilderAsGoodAsNew) {
  const cases::CasePtr served = GetParam().make();
  const std::string expected = BuilderSubject(served, true).buildAgain();
  for (const bool isClosed : kClosedAndOpen) {
    EXPECT_GT(failEach([&] { return std::make_unique<BuilderSubject>(served, isClosed); },
                       [&](BuilderSubject& subject, const MemoryOutcome& outcome) {
                         subject.judge(outcome, expected);
                       }),
              20U);
  }
}

INSTANTIATE_TEST_SUITE_P(Builder, BuildWithoutMemory,
                         ::testing::Values(cases::NamedCase{"periodicPair", cases::periodicPair},
                                           cases::NamedCase{"withPhysics", cases::withPhysics}),
                         [](const auto& row) { return row.param.name; });

// --- PhysicsRegionResolver ----------------------------------------------------------------------

/// The table, and what the queries of a region tell.
std::string answersOf(const PhysicsRegionResolver& resolver) {
  std::string text = tableText(tableOf(resolver));
  Texts regions;
  resolver.regionsOfType(regions, "");
  regions.emplace_back("a region with a long name that is not there");
  for (const std::string& region : regions) {
    std::vector<int> ids;
    std::vector<int> moreIds;
    std::string name;
    Texts names;
    resolver.bodies(region, ids);
    resolver.faceUses(region, ids);
    resolver.bulkZones(region, ids);
    resolver.zoneSides(region, ids);
    resolver.cellZones(region, ids, moreIds);
    resolver.bounding(region, name);
    resolver.boundedBy(region, names);
    resolver.regionLocation(region, name);
    resolver.sideOf(region, 0, name);
    resolver.regionIsOfType(region, "domain");
    resolver.regionsOfType(names, region);
  }
  for (const std::string& error : resolver.getErrors()) {
    text += error + "\n";
  }
  resolver.clearErrors();
  return text;
}

class ResolverSubject {
 public:
  ResolverSubject(const cases::CasePtr& served, bool isClosed)
      : isClosed_(isClosed), source_(served, isClosed) {}

  void attempt() {
    const FixedStreams streams;
    resolver_.emplace(&source_.provider);
    resolver_->resolveUsing(&source_.provider);
    resolver_->resolveUsing(&source_.provider);
    answersOf(*resolver_);
  }

  /// Of the same resolver, if it could be made.
  std::string resolveAgain() {
    const FixedStreams streams;
    if (!resolver_) {
      resolver_.emplace(&source_.provider);
    }
    resolver_->clearErrors();
    EXPECT_TRUE(resolver_->resolveUsing(&source_.provider));
    EXPECT_EQ(resolver_->getErrors(), Texts());
    std::string answers = answersOf(*resolver_);
    return answers + streams.out() + streams.err();
  }

  void judge(const MemoryOutcome& outcome, const std::string& expected) {
    expectThrown(outcome, isClosed_);
    EXPECT_EQ(resolveAgain(), expected);
  }

 private:
  bool isClosed_;
  Source source_;
  std::optional<PhysicsRegionResolver> resolver_;
};

TEST(ResolvingWithoutMemory, LeavesTheResolverAsGoodAsNew) {
  const cases::CasePtr served = cases::withPhysics();
  const std::string expected = ResolverSubject(served, true).resolveAgain();
  for (const bool isClosed : kClosedAndOpen) {
    EXPECT_GT(failEach([&] { return std::make_unique<ResolverSubject>(served, isClosed); },
                       [&](ResolverSubject& subject, const MemoryOutcome& outcome) {
                         subject.judge(outcome, expected);
                       }),
              100U);
  }
}

}  // namespace
}  // namespace velto::testing
