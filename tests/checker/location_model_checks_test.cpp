// SPDX-License-Identifier: Apache-2.0
//
// Bodies, face uses and composites of the location model: what is sound, what is told of the rest,
// and the names that are found.

#include <functional>
#include <optional>

#include "testing/capture.h"
#include "testing/case_edits.h"
#include "tests/checker/CheckerFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using checker_access::LocationNames;
using Model = OrvLocationModel::State;

const std::string kStep = "checkPhysicsToMeshMapUsingTopologyModel : ";

/// withPhysics() without its physics objects.
cases::CasePtr withoutPhysics() {
  cases::CasePtr made = cases::withPhysics();
  made->tables.settings.clear();
  return made;
}

// --- What is told -------------------------------------------------------------------------------

struct ModelRow {
  const char* name;
  std::function<void(Model&)> damage;
  /// Without the step; empty for a model that passes.
  std::string error;
};

std::ostream& operator<<(std::ostream& out, const ModelRow& row) { return out << row.name; }

class LocationModelRows : public CheckerFixture, public ::testing::WithParamInterface<ModelRow> {};

TEST_P(LocationModelRows, Of) {
  const cases::CasePtr damaged = withoutPhysics();
  changeModel(*damaged, GetParam().damage);
  serve(damaged);
  const CheckResult result = check();
  const std::string& error = GetParam().error;
  EXPECT_EQ(result.good, error.empty());
  EXPECT_EQ(result.errors, error.empty() ? Texts() : Texts({kStep + error}));
  EXPECT_EQ(result.warnings,
            error.empty() ? Texts({kStep + "No Physics Model - skipped"}) : Texts());
  EXPECT_EQ(callsOf({"beginFaceTree"}), Transcript({"beginFaceTree()"})) << "the walk goes on";
}

const std::vector<ModelRow>& bodyRows() {
  static const std::vector<ModelRow> kRows = {
      {"PassesASoundModel", [](Model&) {}, ""},
      {"PassesABodyWithoutZones", [](Model& m) { m.bodies[2].zones[1] = {}; }, ""},
      {"PassesACellZoneThatIsListedTwice",
       [](Model& m) {
         m.bodies[2].zones[1] = {6, 6, 7};
       },
       ""},
      {"PassesOverAnUnnamedBodyThatHasNoPlaceInTheMesh",
       [](Model& m) {
         m.bodies[2].name.clear();
         m.bodies[2].zones = {{2, {99}}};
       },
       ""},
      {"ReportsAnUnnamedBody", [](Model& m) { m.bodies[2].name.clear(); },
       "Location Model contains an unnamed body (2)."},
      {"ReportsAnUnnamedBodyBeforeItsZones",
       [](Model& m) {
         m.bodies[3].name.clear();
         m.bodies[3].zones[1] = {99};
       },
       "Location Model contains an unnamed body (3)."},
      {"ReportsAWallOfABody", [](Model& m) { m.bodies[2].zones[1].push_back(4); },
       "Body (channel) refers to a face zone (4) that isn't of type 'interior'."},
      {"ReportsATwoSidedZoneOfABody", [](Model& m) { m.bodies[3].zones[1].push_back(3); },
       "Body (heater) refers to a face zone (3) that isn't of type 'interior'."},
      {"ReportsAZoneThatDoesNotExist", [](Model& m) { m.bodies[2].zones[1].push_back(99); },
       "Body (channel) refers to a zone (99) that isn't a valid cell zone or a valid face zone or doesn't exit at all."},
      {"ReportsANodeZone", [](Model& m) { m.bodies[2].zones[1].push_back(1); },
       "Body (channel) refers to a zone (1) that isn't a valid cell zone or a valid face zone or doesn't exit at all."},
      {"TakesTheZonesOfABodyWithTheirSign", [](Model& m) { m.bodies[2].zones[1].push_back(-2); },
       "Body (channel) refers to a zone (-2) that isn't a valid cell zone or a valid face zone or doesn't exit at all."},
      {"ReportsTheFirstBadZoneOnly",
       [](Model& m) {
         m.bodies[2].zones[1] = {6, 5, 99};
         m.bodies[3].zones[1] = {98};
       },
       "Body (channel) refers to a face zone (5) that isn't of type 'interior'."},
      {"GoesByTheZonesOfTheSelectedMesh", [](Model& m) { m.bodies[2].zones[2] = {99}; }, ""},
  };
  return kRows;
}

INSTANTIATE_TEST_SUITE_P(Bodies, LocationModelRows, ::testing::ValuesIn(bodyRows()),
                         [](const auto& row) { return std::string(row.param.name); });

const std::vector<ModelRow>& faceUseRows() {
  static const std::vector<ModelRow> kRows = {
      {"PassesAUseWithoutSides", [](Model& m) { m.faceUses[5].zoneSides[1] = {}; }, ""},
      {"PassesBothSidesOfAZone",
       [](Model& m) {
         m.faceUses[5].zoneSides[1] = {4, -4, 2};
       },
       ""},
      {"PassesOverAnUnnamedUseThatHasNoPlaceInTheMesh",
       [](Model& m) {
         m.faceUses[7].relativeName.clear();
         m.faceUses[7].zoneSides = {{2, {99}}};
       },
       ""},
      {"PassesAUseThatHasNoRelativeName", [](Model& m) { m.faceUses[5].relativeName.clear(); }, ""},
      {"ReportsAUseWithoutAnyName", [](Model& m) { m.faceUses[7].relativeName.clear(); },
       "Location Model contains an unnamed face use (7)."},
      {"ReportsAZoneThatDoesNotExist",
       [](Model& m) {
         m.faceUses[5].zoneSides[1] = {4, 99};
       },
       "Location Model contains a face use (channel walls) that refers to a face zone (99that doesn't exist in the mesh (1)"},
      {"ShowsSideOneWithoutItsSign", [](Model& m) { m.faceUses[10].zoneSides[1] = {-7}; },
       "Location Model contains a face use (heater walls) that refers to a face zone (7that doesn't exist in the mesh (1)"},
      {"ReportsTheSideOfNoZone", [](Model& m) { m.faceUses[5].zoneSides[1] = {0}; },
       "Location Model contains a face use (channel walls) that refers to a face zone (0that doesn't exist in the mesh (1)"},
      {"ShowsTheRelativeNameOfAUseWithoutName", [](Model& m) { m.faceUses[7].zoneSides[1] = {6}; },
       "Location Model contains a face use (contact@channel) that refers to a face zone (6that doesn't exist in the mesh (1)"},
      {"ReportsBodiesFirst",
       [](Model& m) {
         m.faceUses[5].zoneSides[1] = {99};
         m.bodies[3].zones[1] = {98};
       },
       "Body (heater) refers to a zone (98) that isn't a valid cell zone or a valid face zone or doesn't exit at all."},
  };
  return kRows;
}

INSTANTIATE_TEST_SUITE_P(FaceUses, LocationModelRows, ::testing::ValuesIn(faceUseRows()),
                         [](const auto& row) { return std::string(row.param.name); });

/// A second part 13 with body 14 "spare", and use 16 on its face 15.
void addPart(Model& model) {
  int part = 0;
  int body = 0;
  int face = 0;
  int use = 0;
  model.createPart(3, "second", part);
  model.createBody(part, "spare", body);
  model.setBodyZones(body, 1, {7});
  model.createFace(part, "cover", face);
  model.createFaceUse(body, face, 0, use);
  model.setFaceUseName(use, "spare walls");
  model.setFaceUseZoneSides(use, 1, {5});
}

const std::vector<ModelRow>& compositeRows() {
  static const std::vector<ModelRow> kRows = {
      {"PassesACompositeOfNothing", [](Model& m) { m.composites[11].bodies.clear(); }, ""},
      {"PassesABodyThatHasNoPlaceInTheMesh", [](Model& m) { m.bodies[3].zones.clear(); }, ""},
      {"PassesAUseThatHasNoPlaceInTheMesh", [](Model& m) { m.faceUses[5].zoneSides.clear(); }, ""},
      {"PassesMembersInAnyOrder",
       [](Model& m) {
         m.composites[11].bodies = {3, 2, 3};
         m.composites[11].faceUses = {10, 5, 8, 7};
         m.parts[1].bodies.ids = {3, 2};
         m.parts[1].faceUses.ids = {8, 10, 7, 5};
       },
       ""},
      {"DoesNotLookAtFaces",
       [](Model& m) {
         m.composites[11].faces = {99, 4};
       },
       ""},
      {"ReportsAnUnnamedComposite", [](Model& m) { m.composites[12].name.clear(); },
       "Location Model contains an unnamed composite (12)."},
      {"ReportsAnUnnamedCompositeOfNothing",
       [](Model& m) {
         m.composites[11] = {"", {}, {}, {}};
       },
       "Location Model contains an unnamed composite (11)."},
      {"ReportsABodyThatDoesNotExist",
       [](Model& m) {
         m.composites[11].bodies = {3, 99, 98};
       },
       "Location Model contains a composite (metal) that refers to a body (99) that doesn't exist in the Location Model."},
      {"ReportsAUseInPlaceOfABody", [](Model& m) { m.composites[11].bodies = {5}; },
       "Location Model contains a composite (metal) that refers to a body (5) that doesn't exist in the Location Model."},
      {"ReportsAUseThatDoesNotExist",
       [](Model& m) {
         m.composites[12].faceUses = {5, -5};
       },
       "Location Model contains a composite (wetted) that refers to a face use (-5) that doesn't exist in the Location Model."},
      {"ReportsBodiesBeforeUses",
       [](Model& m) {
         m.composites[12].faceUses = {99};
         m.composites[12].bodies = {98};
       },
       "Location Model contains a composite (wetted) that refers to a body (98) that doesn't exist in the Location Model."},
      {"ReportsABodyOfAnotherPart",
       [](Model& m) {
         addPart(m);
         m.composites[11].bodies = {14};
       },
       "Location Model contains a composite (metal) that refers to a body (14) that doesn't exist in the Location Model."},
      {"ReportsAUseOfAnotherPart",
       [](Model& m) {
         addPart(m);
         m.addComposite(13, {"all", {14}, {}, {16, 5}});
       },
       "Location Model contains a composite (all) that refers to a face use (5) that doesn't exist in the Location Model."},
      {"ReportsUsesFirst",
       [](Model& m) {
         m.composites[11].name.clear();
         m.faceUses[7].relativeName.clear();
       },
       "Location Model contains an unnamed face use (7)."},
      {"ReportsAllOfOnePartBeforeTheNext",
       [](Model& m) {
         addPart(m);
         m.bodies[14].name.clear();
         m.composites[12].name.clear();
       },
       "Location Model contains an unnamed composite (12)."},
      {"ReportsTheSecondPartToo",
       [](Model& m) {
         addPart(m);
         m.bodies[14].name.clear();
       },
       "Location Model contains an unnamed body (14)."},
  };
  return kRows;
}

INSTANTIATE_TEST_SUITE_P(Composites, LocationModelRows, ::testing::ValuesIn(compositeRows()),
                         [](const auto& row) { return std::string(row.param.name); });

// --- What depends on the zones of the mesh ------------------------------------------------------

class LocationModelChecks : public CheckerFixture {
 protected:
  /// Opens a case and checks its model alone.
  bool checkModelOf(const cases::CasePtr& served) {
    open(served);
    const StreamCapture streams;
    return checker_access::checkLocationModel(checker, *served->tables.locationModel, names_);
  }

  LocationNames names_;
};

TEST_F(LocationModelChecks, TakesAZoneThatIsBothAsAFaceZone) {
  prepare([](ScriptedProvider& p) { p.answerList("getZoneIds(2)", {2, 3, 4, 5, 6}); });
  EXPECT_FALSE(checkModelOf(withoutPhysics()));
  EXPECT_EQ(
      checker.getErrors(),
      Texts(
          {"checkCase : Body (channel) refers to a face zone (6) that isn't of type 'interior'."}));
}

TEST_F(LocationModelChecks, ReportsAnInteriorZoneWithoutType) {
  for (const std::optional<int>& type : {std::optional<int>(), std::optional<int>(-1)}) {
    const cases::CasePtr damaged = withoutPhysics();
    damaged->zone(2).faceInfo[faceZoneType] = type;
    serve(damaged);
    OrvChecker fresh;
    EXPECT_EQ(
        check(fresh, file.path()).errors,
        Texts({kStep + "Body (channel) refers to a face zone (2) that isn't of type 'interior'."}));
  }
}

TEST_F(LocationModelChecks, ReportsAnInteriorZoneWithoutName) {
  for (const std::optional<std::string>& name :
       {std::optional<std::string>(), std::optional<std::string>("")}) {
    const cases::CasePtr damaged = withoutPhysics();
    damaged->zone(2).texts[zoneName] = name;
    serve(damaged);
    OrvChecker fresh;
    const CheckResult result = check(fresh, file.path());
    EXPECT_EQ(
        result.errors,
        Texts({kStep + "Body (channel) refers to an interior face zone (2) that isn't named."}));
    EXPECT_EQ(result.warnings, Texts({"checkFaceZones : Empty Face zone name"}));
  }
}

TEST_F(LocationModelChecks, ReportsTheTypeOfAZoneBeforeItsName) {
  const cases::CasePtr damaged = withoutPhysics();
  damaged->zone(2).texts[zoneName] = "";
  damaged->zone(2).faceInfo[faceZoneType] = faceZoneType3;
  EXPECT_FALSE(checkModelOf(damaged));
  EXPECT_EQ(
      checker.getErrors(),
      Texts(
          {"checkCase : Body (channel) refers to a face zone (2) that isn't of type 'interior'."}));
}

TEST_F(LocationModelChecks, NamesTheMeshThatIsSelected) {
  const cases::CasePtr damaged = withoutPhysics();
  damaged->tables.meshes[{8}] = damaged->mesh();
  damaged->tables.meshes.erase(base::MeshKey());
  changeModel(*damaged, [](Model& m) { m.faceUses[5].zoneSides[8] = {99}; });
  EXPECT_FALSE(checkModelOf(damaged));
  EXPECT_EQ(
      checker.getErrors(),
      Texts(
          {"checkCase : Location Model contains a face use (channel walls) that refers to a face zone (99that doesn't exist in the mesh (8)"}));
}

// --- Names --------------------------------------------------------------------------------------

const LocationNames& soundNames() {
  static const LocationNames kNames = {
      {"channel", "heater"},
      {"channel walls", "contact@channel", "heater contact", "heater walls"},
      {"screen"},
      {"metal"},
      {"wetted"}};
  return kNames;
}

TEST_F(LocationModelChecks, CollectsTheNamesOfWhatItFinds) {
  EXPECT_TRUE(checkModelOf(withoutPhysics()));
  EXPECT_TRUE(names_ == soundNames());
  EXPECT_EQ(checker.getErrors(), Texts());
}

TEST_F(LocationModelChecks, AppendsToWhatIsThere) {
  names_ = {{"b"}, {"u"}, {"z"}, {"c"}, {"d"}};
  const cases::CasePtr served = withoutPhysics();
  changeModel(*served, [](Model& m) {
    m.bodies.erase(3);
    m.parts[1].bodies.ids = {2};
    m.parts[1].faceUses.ids = {10};
    m.parts[1].composites.ids = {};
  });
  EXPECT_TRUE(checkModelOf(served));
  EXPECT_TRUE(
      names_ ==
      LocationNames({{"b", "channel"}, {"u", "heater walls"}, {"z", "screen"}, {"c"}, {"d"}}));
}

TEST_F(LocationModelChecks, CollectsNothingOfAModelWithoutParts) {
  const cases::CasePtr served = withoutPhysics();
  served->tables.locationModel = std::make_shared<OrvLocationModel>();
  EXPECT_TRUE(checkModelOf(served));
  EXPECT_TRUE(names_ == LocationNames());
  EXPECT_EQ(checker.getErrors(), Texts());
}

TEST_F(LocationModelChecks, LeavesOutWhatHasNoPlaceInTheMesh) {
  const cases::CasePtr served = withoutPhysics();
  changeModel(*served, [](Model& m) {
    m.bodies[2].zones.clear();
    m.faceUses[5].zoneSides.clear();
  });
  EXPECT_TRUE(checkModelOf(served));
  EXPECT_TRUE(names_ == LocationNames({{"heater"},
                                       {"contact@channel", "heater contact", "heater walls"},
                                       {},
                                       {"metal"},
                                       {"wetted"}}));
}

TEST_F(LocationModelChecks, CollectsAnInteriorZoneOnceForEachBodyThatListsIt) {
  const cases::CasePtr served = withoutPhysics();
  changeModel(*served, [](Model& m) { m.bodies[3].zones[1] = {2, 7, 2}; });
  EXPECT_TRUE(checkModelOf(served));
  EXPECT_EQ(names_.bulkZones, Texts({"screen", "screen", "screen"}));
}

TEST_F(LocationModelChecks, CollectsACompositeByWhatItHas) {
  const cases::CasePtr served = withoutPhysics();
  changeModel(*served, [](Model& m) {
    m.composites[11] = {"both", {2, 3}, {}, {10}};
    m.composites[12] = {"neither", {}, {4}, {}};
  });
  EXPECT_TRUE(checkModelOf(served));
  EXPECT_EQ(names_.bodyComposites, Texts({"both"}));
  EXPECT_EQ(names_.faceUseComposites, Texts({"both"}));
}

TEST_F(LocationModelChecks, CollectsPartByPartAndEqualNamesAsOftenAsTheyStand) {
  const cases::CasePtr served = withoutPhysics();
  changeModel(*served, [](Model& m) {
    addPart(m);
    m.bodies[14].name = "channel";
    m.addComposite(13, {"metal", {14}, {}, {}});
  });
  EXPECT_TRUE(checkModelOf(served));
  EXPECT_EQ(names_.bodies, Texts({"channel", "heater", "channel"}));
  EXPECT_EQ(names_.faceUses, Texts({"channel walls", "contact@channel", "heater contact",
                                    "heater walls", "spare walls"}));
  EXPECT_EQ(names_.bodyComposites, Texts({"metal", "metal"}));
}

TEST_F(LocationModelChecks, KeepsWhatItFoundBeforeADefect) {
  const cases::CasePtr served = withoutPhysics();
  changeModel(*served, [](Model& m) { m.faceUses[8].zoneSides[1] = {99}; });
  EXPECT_FALSE(checkModelOf(served));
  EXPECT_TRUE(
      names_ ==
      LocationNames(
          {{"channel", "heater"}, {"channel walls", "contact@channel"}, {"screen"}, {}, {}}));
}

TEST_F(LocationModelChecks, KeepsAnInteriorZoneOfABodyThatHasADefect) {
  const cases::CasePtr served = withoutPhysics();
  changeModel(*served, [](Model& m) { m.bodies[2].zones[1] = {2, 99}; });
  EXPECT_FALSE(checkModelOf(served));
  EXPECT_TRUE(names_ == LocationNames({{}, {}, {"screen"}, {}, {}}));
}

}  // namespace
}  // namespace velto::testing
