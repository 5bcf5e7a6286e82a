// SPDX-License-Identifier: Apache-2.0
//
// LocationModelBuilder where one call goes wrong: as the plain builder, and as good as new
// afterwards.

#include <gtest/gtest.h>
#include <string>

#include "tests/faults/Fault.h"
#include "tests/location_model/PlainBuilder.h"
#include "tests/location_model/builder_run.h"

namespace velto::testing {
namespace {

using Kind = Fault::Kind;

/// Bodies 8 "fluid" and 9 "solid": 2 inside one, 3 between them, the linked pair 4 and 5, a wall,
/// and a periodic pair; 11 is a body whose parent is passed over.
CasePtr everyKindOfFaceZone() {
  CasePtr made = CaseBuilder()
                     .faces(2, "inside", faceZoneTypeInterior, {beside(1, 1)})
                     .faces(3, "between", faceZoneType14, {beside(1, 2)})
                     .faces(4, "hot", 3, {beside(1)})
                     .faces(5, "cold", 3, {beside(2)})
                     .faces(6, "wall", kPlainType, {beside(2)})
                     .faces(7, "left", kPlainType, {beside(1)})
                     .faces(10, "right", kPlainType, {beside(1)})
                     .cells(8, "fluid", cellShapeHexahedron, 1)
                     .cells(9, "solid", cellShapeHexahedron, 1)
                     .shadows(4, 5)
                     .shadows(7, 10)
                     .build();
  return made;
}

/// One build.
struct FaultyBuild {
  std::string thrown;
  bool good = false;
  Texts errors;
  std::string model;
  Transcript calls;

  Transcript lines() const {
    Transcript all = withoutQueries(calls);
    addLines(all, "thrown", thrown);
    all.emplace_back(good ? "good" : "not good");
    addLines(all, "error", errors);
    addLines(all, "model", model);
    return all;
  }
};

/// Builds into a new model with a provider of its own. Of the errors those are told that are new.
template <class Builder>
FaultyBuild builtWith(Builder& builder, const CasePtr& served, const Fault& fault,
                      Transcript* modelCalls = nullptr) {
  FaultyBuild result;
  const auto errorsBefore = static_cast<std::ptrdiff_t>(builder.getErrors().size());
  Transcript calls;
  ScriptedProvider provider(served, &calls);
  provider.startReading("case", dataClassCase);
  const int mesh = provider.getMeshId();
  calls.clear();
  apply(fault, provider);
  OrvLocationModel model;
  {
    LocationModelScript script(modelCalls == nullptr ? &calls : modelCalls);
    apply(fault, script);
    try {
      result.good = builder.build(&provider, &model);
    } catch (...) {
      result.thrown = thrownByFault();
    }
  }
  result.calls = calls;
  result.errors.assign(builder.getErrors().begin() + errorsBefore, builder.getErrors().end());
  result.model = modelText(model, mesh);
  return result;
}

class FaultyBuilds : public ::testing::TestWithParam<cases::NamedCase> {
 protected:
  FaultyBuilds() : served_(GetParam().make()) {
    const LocationModelBuilder builder;
    Transcript modelCalls;
    sound_ = builtWith(builder, served_, Fault(), &modelCalls);
    EXPECT_TRUE(sound_.good);
    providerCalls_ = sound_.calls;
    modelCalls_ = modelCalls;
    sound_ = builtWith(builder, served_, Fault());
  }

  /// Builds with the fault, and again without.
  FaultyBuild build(const Fault& fault) const {
    const LocationModelBuilder builder;
    FaultyBuild found = builtWith(builder, served_, fault);
    const FaultyBuild again = builtWith(builder, served_, Fault());
    EXPECT_EQ(differenceOf(sound_.lines(), again.lines()), "") << fault;
    if (withoutQueries({fault.call}) == Transcript({fault.call})) {
      PlainBuilder plain;
      EXPECT_EQ(differenceOf(builtWith(plain, served_, fault).lines(), found.lines()), "") << fault;
    }
    return found;
  }

  CasePtr served_;
  FaultyBuild sound_;
  Transcript providerCalls_;
  Transcript modelCalls_;
};

TEST_P(FaultyBuilds, EndWithWhatIsThrown) {
  for (const Fault& fault : faultsOf(providerCalls_, {Kind::throwsError, Kind::throwsNoMemory})) {
    const FaultyBuild found = build(fault);
    EXPECT_EQ(found.thrown,
              fault.kind == Kind::throwsError ? "throws cable cut" : "throws for lack of memory");
    EXPECT_EQ(found.errors, Texts());
    EXPECT_EQ(found.calls.back(), fault.call);
  }
  for (const Fault& fault : faultsOf(modelCalls_, {Kind::breaksDown})) {
    const FaultyBuild found = build(fault);
    EXPECT_EQ(found.thrown, "throws " + fault.call);
    EXPECT_EQ(found.errors, Texts());
    EXPECT_EQ(found.calls.back(), fault.call);
  }
}

TEST_P(FaultyBuilds, LeaveMessagesToWhoeverAsks) {
  for (const Fault& fault : faultsOf(providerCalls_, {Kind::postsErrors, Kind::postsWarnings})) {
    EXPECT_EQ(differenceOf(sound_.lines(), build(fault).lines()), "") << fault;
  }
}

/// What comes of it is as with the plain builder; there is an error wherever there is no model.
TEST_P(FaultyBuilds, GoOnWithWhatThereIs) {
  std::vector<Fault> faults = faultsOf(providerCalls_, {Kind::findsNothing, Kind::givesNoList,
                                                        Kind::deliversNothing, Kind::deliversHalf});
  for (const Fault& fault : faultsOf(modelCalls_, {Kind::isRefused, Kind::isDenied})) {
    faults.push_back(fault);
  }
  for (const Fault& fault : faults) {
    const FaultyBuild found = build(fault);
    EXPECT_EQ(found.thrown, "") << fault;
    EXPECT_EQ(found.errors.size(), found.good ? 0U : 1U) << fault;
  }
}

INSTANTIATE_TEST_SUITE_P(Builder, FaultyBuilds,
                         ::testing::Values(cases::NamedCase{"everyKind", everyKindOfFaceZone},
                                           cases::NamedCase{"withPhysics", cases::withPhysics},
                                           cases::NamedCase{"periodicPair", cases::periodicPair}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace velto::testing
