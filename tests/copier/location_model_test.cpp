// SPDX-License-Identifier: Apache-2.0
//
// copyCase: the location model of the source, or one that is built.

#include <gtest/gtest.h>

#include "embedded/memory/CaseBuilder.h"
#include "testing/ScriptedLocationModel.h"
#include "testing/model_text.h"
#include "tests/copier/copy_run.h"

namespace velto::testing {
namespace {

/// A copy of nothing but the location model.
class ModelRun : public CopyRun {
 public:
  explicit ModelRun(const cases::CasePtr& served) : CopyRun(served) {
    switchAllOff();
    copier.copyLocationModelToDestination(true);
  }

  /// The model that the destination took, empty for none.
  std::string model() const {
    const auto taken = destination.takeCase();
    return taken->tables.locationModel == nullptr ? "none"
                                                  : modelText(*taken->tables.locationModel);
  }
};

const char* const kBuiltOfOneHex =
    "part 'P' (1)\n"
    "  body 2 'fluid': zones [3], boundary [4]\n"
    "  face 3 'F2': sides 4 | 0\n"
    "  use 4 'walls' or 'F2@fluid': zone sides [2]\n";

TEST(CopiedLocationModel, IsTheOneOfTheSource) {
  const cases::CasePtr served = cases::withPhysics();
  ModelRun run(served);
  EXPECT_EQ(run.moved(), Transcript({"setLocationModel(model)"}));
  EXPECT_EQ(run.model(), modelText(*served->tables.locationModel));
}

TEST(CopiedLocationModel, OfTheSourceIsOnlyAskedForItsParts) {
  Transcript calls;
  ModelRun run(cases::withPhysics());
  const LocationModelScript script(&calls);
  run.copyCase(false);
  EXPECT_EQ(calls, Transcript({"getParts()"}));
  EXPECT_EQ(Transcript(run.log.lines.begin() + 2, run.log.lines.end()),
            Transcript({"source: getLocationModel()", "setLocationModel(model)"}));
}

TEST(CopiedLocationModel, IsBuiltIfTheSourceHasNone) {
  ModelRun run(cases::oneHex());
  run.moved();
  EXPECT_EQ(
      ofDestination(run.log.lines),
      Transcript({"setMeshId(1)", "setSolverType(VELTO_GENERIC)", "setLocationModel(model)"}));
  EXPECT_EQ(run.model(), kBuiltOfOneHex);
}

TEST(CopiedLocationModel, IsBuiltIfTheSourceHasOneWithoutParts) {
  const cases::CasePtr served = cases::oneHex();
  served->tables.locationModel = std::make_shared<OrvLocationModel>();
  ModelRun run(served);
  run.moved();
  EXPECT_EQ(run.model(), kBuiltOfOneHex);
}

TEST(CopiedLocationModel, IsNotGivenIfNoneCanBeBuilt) {
  ModelRun run(memory::CaseBuilder().build());
  run.copier.setVerbose(true);
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(ofDestination(run.log.lines),
            Transcript({"startWriting(0)", "setMeshId(1)", "setSolverType(VELTO_GENERIC)",
                        "endWriting(0)"}));
  EXPECT_EQ(run.out, "Writing mesh\n  Writing location model\n  Mesh written\n");
  EXPECT_EQ(run.err, "");
}

TEST(CopiedLocationModel, OfAFailedBuildIsGivenWithThePartsThatItHas) {
  ModelRun run(cases::oneHex());
  LocationModelScript script;
  script.refuse("createFace");
  EXPECT_EQ(callsOf("setLocationModel", run.moved()), Transcript({"setLocationModel(model)"}));
  EXPECT_EQ(run.model(),
            "part 'P' (1)\n"
            "  body 2 'fluid': zones [3], boundary []\n");
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "");
}

TEST(CopiedLocationModel, IsBuiltAnewInEachCopy) {
  ModelRun run(cases::oneHex());
  run.copyCase();
  const Transcript expected = run.log.lines;
  EXPECT_TRUE(run.copyCase());
  EXPECT_EQ(run.log.lines, expected);
  EXPECT_EQ(run.model(), kBuiltOfOneHex);
}

TEST(CopiedLocationModel, IsNotAskedForWithItsSwitchOff) {
  ModelRun run(cases::oneHex());
  run.copier.copyLocationModelToDestination(false);
  EXPECT_EQ(run.moved(), Transcript());
  EXPECT_EQ(callsOf("getLocationModel", run.log.lines), Transcript());
  EXPECT_EQ(run.model(), "none");
}

TEST(CopiedLocationModel, ThatBreaksDownEndsTheCopy) {
  ModelRun run(cases::oneHex());
  LocationModelScript script;
  script.breakDown("createBody");
  EXPECT_THROW(run.copyCase(), std::runtime_error);
  EXPECT_EQ(callsOf("endWriting", run.log.lines), Transcript());
  EXPECT_EQ(callsOf("setLocationModel", run.log.lines), Transcript());
}

}  // namespace
}  // namespace velto::testing
