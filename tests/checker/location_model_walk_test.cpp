// SPDX-License-Identifier: Apache-2.0
//
// Whether a file holds a location model and should; what a model is asked, in which order, and what
// is made of its refusals.

#include <algorithm>
#include <functional>

#include "testing/ScriptedLocationModel.h"
#include "testing/capture.h"
#include "testing/case_edits.h"
#include "tests/checker/CheckerFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using checker_access::LocationNames;
using Model = OrvLocationModel::State;

// --- Whether there is a model -------------------------------------------------------------------

class TopologyModel : public CheckerFixture {
 protected:
  /// What the check shows of an opened case at verbosity 3.
  std::string shown() {
    checker.setVerbosity(3);
    const StreamCapture streams;
    EXPECT_TRUE(checker_access::checkTopologyModel(checker));
    return streams.out();
  }

  /// A post target with a location model.
  static cases::CasePtr postWithModel() {
    cases::CasePtr made = cases::postHex();
    made->tables.locationModel = cases::withPhysics()->tables.locationModel;
    return made;
  }

  const std::string looks_ = "- checkTopologyModel - Checking for location model.\n";
  const std::string found_ = "- checkTopologyModel - Location Model exists\n";
  const std::string skips_ =
      "- checkTopologyModel - Skipping location model checks at user request.\n";
  const Texts warning_ = {
      "checkTopologyModel : Found a location model in a file that doesn't contain a ORV Restart mesh."};
};

TEST_F(TopologyModel, IsMissedByNobody) {
  open(cases::postHex());
  EXPECT_EQ(shown(), looks_);
  EXPECT_EQ(checker.getWarnings(), Texts());
  EXPECT_EQ(calls(), Transcript({"getLocationModel()"}));
}

TEST_F(TopologyModel, WithoutPartsCountsAsNone) {
  const cases::CasePtr served = cases::postHex();
  served->tables.locationModel = std::make_shared<OrvLocationModel>();
  open(served);
  EXPECT_EQ(shown(), looks_);
  EXPECT_EQ(checker.getWarnings(), Texts());
}

TEST_F(TopologyModel, BelongsBesideARestartTarget) {
  open(cases::withPhysics());
  const LocationModelScript script(&transcript);
  EXPECT_EQ(shown(), looks_ + found_);
  EXPECT_EQ(checker.getWarnings(), Texts());
  EXPECT_EQ(calls(), Transcript({"getLocationModel()", "getParts()", "hasTarget(0)"}));
}

TEST_F(TopologyModel, MayStandBesideARestartTargetOfAnyMesh) {
  const cases::CasePtr served = postWithModel();
  served->tables.meshes[{2, targetRestart, -1}] = served->mesh(cases::kPostMesh);
  open(served);
  EXPECT_EQ(shown(), looks_ + found_);
  EXPECT_EQ(checker.getWarnings(),
            Texts({"checkCase : ORV file with multiple target types - support is limited"}));
}

TEST_F(TopologyModel, IsWorthAWarningWithoutRestartTarget) {
  open(postWithModel());
  EXPECT_EQ(shown(), looks_ + found_);
  Texts expected = warning_;
  expected.insert(expected.end(), warning_.begin(), warning_.end());
  EXPECT_EQ(checker.getWarnings(), expected) << "one of the run that opened the case";
  EXPECT_EQ(checker.getErrors(), Texts());
}

TEST_F(TopologyModel, IsSkippedAtRequest) {
  checker.setNoLM(true);
  open(postWithModel());
  EXPECT_EQ(shown(), looks_ + found_ + skips_);
  EXPECT_EQ(checker.getWarnings(), Texts());
  EXPECT_EQ(callsOf({"hasTarget"}), Transcript());
}

TEST_F(TopologyModel, IsLookedForOnceBeforeTheMeshes) {
  serve(postWithModel());
  prepare([](ScriptedProvider& p) { p.answerList("getMeshIds", {1, 1}); });
  checker.setCheckLevel(0);
  checker.setVerbosity(3);
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.warnings, warning_);
  EXPECT_EQ(
      result.err,
      "Warning: checkTopologyModel: Found a location model in a file that doesn't contain a ORV Restart mesh.\n");
  EXPECT_EQ(result.out,
            "- checkVersion - getFileVersion\n"
            "Version: 3.4.5\n"
            "- checkSolverType - getSolverType\n" +
                looks_ + found_ +
                "Processing mesh : 1\n"
                "Processing target : 1\n"
                "Processing mesh : 1\n"
                "Processing target : 1\n"
                "- checkCase - availableTargets\n");
  EXPECT_EQ(callsOf({"getSolverType", "getLocationModel", "hasTarget", "getMeshIds"}),
            Transcript({"getSolverType()", "getLocationModel()", "hasTarget(0)", "getMeshIds(0)"}));
}

TEST_F(TopologyModel, LeavesMessagesOfTheLibraryForTheFirstPass) {
  serve(cases::postHex());
  prepare([](ScriptedProvider& p) { failOn(p, "getLocationModel"); });
  const CheckResult result = check();
  EXPECT_FALSE(result.good);
  EXPECT_EQ(result.errors, Texts({"checkTopologyModel : ORV - disk gone"}));
  EXPECT_EQ(callsOf({"getMeshIds", "getMeshSize"}), Transcript({"getMeshIds(0)"}));
}

// --- What a model is asked ----------------------------------------------------------------------

class LocationModelCalls : public CheckerFixture {
 protected:
  LocationModelCalls() { open(served_); }

  bool checkModel() {
    const StreamCapture streams;
    return checker_access::checkLocationModel(checker, *served_->tables.locationModel, names_);
  }

  /// Has the case's model changed before it is checked.
  void change(const std::function<void(Model&)>& edit) { changeModel(*served_, edit); }

  const cases::CasePtr served_ = cases::withPhysics();
  LocationNames names_;
};

TEST_F(LocationModelCalls, ComeInOrder) {
  const LocationModelScript script(&transcript);
  EXPECT_TRUE(checkModel());
  transcript.erase(std::remove(transcript.begin(), transcript.end(), "getMeshId()"),
                   transcript.end());
  EXPECT_EQ(calls(), Transcript({"getZoneIds(3)",
                                 "getZoneIds(2)",
                                 "getParts()",
                                 "getPartBodies(1)",
                                 "getBodyZones(2, 1)",
                                 "getBodyName(2)",
                                 "getFaceZoneType(2)",
                                 "getZoneStringInfo(2, 0)",
                                 "getBodyZones(3, 1)",
                                 "getBodyName(3)",
                                 "getPartFaceUses(1)",
                                 "getFaceUseZoneSides(5, 1)",
                                 "getFaceUseName(5)",
                                 "getFaceUseZoneSides(7, 1)",
                                 "getFaceUseName(7)",
                                 "getFaceUseRelativeName(7)",
                                 "getFaceUseZoneSides(8, 1)",
                                 "getFaceUseName(8)",
                                 "getFaceUseZoneSides(10, 1)",
                                 "getFaceUseName(10)",
                                 "getPartComposites(1)",
                                 "getCompositeName(11)",
                                 "resolveComposite(11)",
                                 "getCompositeName(12)",
                                 "resolveComposite(12)"}));
}

TEST_F(LocationModelCalls, AskNoNameOfWhatHasNoPlaceInTheMesh) {
  change([](Model& m) {
    m.bodies[2].zones.clear();
    m.faceUses[7].zoneSides.clear();
  });
  const LocationModelScript script(&transcript);
  EXPECT_TRUE(checkModel());
  EXPECT_EQ(callsOf({"getBodyName", "getFaceUseName", "getFaceUseRelativeName"}),
            Transcript({"getBodyName(3)", "getFaceUseName(5)", "getFaceUseName(8)",
                        "getFaceUseName(10)"}));
}

TEST_F(LocationModelCalls, EndAtTheFirstDefect) {
  change([](Model& m) { m.faceUses[5].zoneSides[1] = {99, 98}; });
  const LocationModelScript script(&transcript);
  EXPECT_FALSE(checkModel());
  EXPECT_EQ(callsOf({"getFaceUseZoneSides", "getPartComposites"}),
            Transcript({"getFaceUseZoneSides(5, 1)"}));
}

// --- Refusals -----------------------------------------------------------------------------------

struct RefusalRow {
  const char* name;
  std::function<void(LocationModelScript&)> script;
  /// Without the step; empty for a model that passes.
  std::string error;
  LocationNames names;
};

std::ostream& operator<<(std::ostream& out, const RefusalRow& row) { return out << row.name; }

const std::vector<RefusalRow>& refusalRows() {
  static const Texts kUses = {"channel walls", "contact@channel", "heater contact", "heater walls"};
  static const std::vector<RefusalRow> kRows = {
      {"TheBodiesOfAPart",
       [](LocationModelScript& s) { s.refuse("getPartBodies"); },
       "Location Model contains a composite (metal) that refers to a body (3) that doesn't exist in the Location Model.",
       {{}, kUses, {}, {}, {}}},
      {"TheUsesOfAPart",
       [](LocationModelScript& s) { s.refuse("getPartFaceUses"); },
       "Location Model contains a composite (wetted) that refers to a face use (5) that doesn't exist in the Location Model.",
       {{"channel", "heater"}, {}, {"screen"}, {"metal"}, {}}},
      {"TheCompositesOfAPart",
       [](LocationModelScript& s) { s.deny("getPartComposites"); },
       "",
       {{"channel", "heater"}, kUses, {"screen"}, {}, {}}},
      {"TheZonesOfABodyThoughTheyAreGiven",
       [](LocationModelScript& s) { s.deny("getBodyZones(2, 1)"); },
       "",
       {{"heater"}, kUses, {}, {"metal"}, {"wetted"}}},
      {"TheNameOfABody",
       [](LocationModelScript& s) { s.refuse("getBodyName(3)"); },
       "Location Model contains an unnamed body (3).",
       {{"channel"}, {}, {"screen"}, {}, {}}},
      {"TheNameOfABodyThoughItIsGiven",
       [](LocationModelScript& s) { s.deny("getBodyName(3)"); },
       "Location Model contains an unnamed body (3).",
       {{"channel"}, {}, {"screen"}, {}, {}}},
      {"TheSidesOfAUseThoughTheyAreGiven",
       [](LocationModelScript& s) { s.deny("getFaceUseZoneSides(5, 1)"); },
       "",
       {{"channel", "heater"},
        {"contact@channel", "heater contact", "heater walls"},
        {"screen"},
        {"metal"},
        {"wetted"}}},
      {"TheNameOfAUseThoughItIsGiven",
       [](LocationModelScript& s) { s.deny("getFaceUseName(5)"); },
       "",
       {{"channel", "heater"},
        {"hull@channel", "contact@channel", "heater contact", "heater walls"},
        {"screen"},
        {"metal"},
        {"wetted"}}},
      {"BothNamesOfAUseThoughTheyAreGiven",
       [](LocationModelScript& s) {
         s.deny("getFaceUseName(5)");
         s.deny("getFaceUseRelativeName(5)");
       },
       "Location Model contains an unnamed face use (5).",
       {{"channel", "heater"}, {}, {"screen"}, {}, {}}},
      {"TheRelativeNameOfAUseWithAName",
       [](LocationModelScript& s) { s.refuse("getFaceUseRelativeName(5)"); },
       "",
       {{"channel", "heater"}, kUses, {"screen"}, {"metal"}, {"wetted"}}},
      {"TheNameOfACompositeThoughItIsGiven",
       [](LocationModelScript& s) { s.deny("getCompositeName(12)"); },
       "Location Model contains an unnamed composite (12).",
       {{"channel", "heater"}, kUses, {"screen"}, {"metal"}, {}}},
      {"ToResolveAComposite",
       [](LocationModelScript& s) { s.refuse("resolveComposite(11)"); },
       "",
       {{"channel", "heater"}, kUses, {"screen"}, {}, {"wetted"}}},
  };
  return kRows;
}

class LocationModelRefusals : public LocationModelCalls,
                              public ::testing::WithParamInterface<RefusalRow> {};

TEST_P(LocationModelRefusals, Of) {
  const RefusalRow& row = GetParam();
  LocationModelScript script;
  row.script(script);
  EXPECT_EQ(checkModel(), row.error.empty());
  EXPECT_EQ(checker.getErrors(), row.error.empty() ? Texts() : Texts({"checkCase : " + row.error}));
  EXPECT_TRUE(names_ == row.names);
}

INSTANTIATE_TEST_SUITE_P(LocationModel, LocationModelRefusals, ::testing::ValuesIn(refusalRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(LocationModelCalls, TakeTheListsOfACompositeThatCannotBeResolvedUnchecked) {
  change([](Model& m) { m.composites[11] = {"partly", {99}, {}, {98}}; });
  LocationModelScript script;
  script.deny("resolveComposite(11)");
  EXPECT_TRUE(checkModel());
  EXPECT_EQ(checker.getErrors(), Texts());
  EXPECT_EQ(names_.bodyComposites, Texts({"partly"}));
  EXPECT_EQ(names_.faceUseComposites, Texts({"partly", "wetted"}));
}

}  // namespace
}  // namespace velto::testing
