// SPDX-License-Identifier: Apache-2.0
//
// OrvLocationModel: building, finding, the lists of each mesh, relative names, composites, copies.

#include <functional>
#include <gtest/gtest.h>
#include <set>

#include "data_access/OrvLocationModel.h"

#include "embedded/base/OrvLocationModelState.h"
#include "embedded/memory/MemoryConsumer.h"

namespace velto::testing {
namespace {

using Ids = std::vector<int>;

constexpr int kAbsent = 999;

/// Two bodies with a face between them: "fluid" holds its side 0, "solid" its side 1, and "fluid"
/// holds side 0 of "inlet".
class LocationModel : public ::testing::Test {
 protected:
  LocationModel() {
    model_.createPart(3, "assembly", part_);
    EXPECT_TRUE(model_.createBody(part_, "fluid", fluid_));
    EXPECT_TRUE(model_.createBody(part_, "solid", solid_));
    EXPECT_TRUE(model_.createFace(part_, "between", between_));
    EXPECT_TRUE(model_.createFace(part_, "inlet", inlet_));
    EXPECT_TRUE(model_.createFaceUse(fluid_, between_, 0, fluidUse_));
    EXPECT_TRUE(model_.createFaceUse(solid_, between_, 1, solidUse_));
    EXPECT_TRUE(model_.createFaceUse(fluid_, inlet_, 0, inletUse_));
  }

  std::string nameOf(int faceUse) const {
    std::string name = "untouched";
    EXPECT_TRUE(model_.getFaceUseName(faceUse, name));
    return name;
  }

  std::string relativeNameOf(int faceUse) const {
    std::string name = "untouched";
    EXPECT_TRUE(model_.getFaceUseRelativeName(faceUse, name));
    return name;
  }

  OrvLocationModel model_;
  int part_ = 0;
  int fluid_ = 0;
  int solid_ = 0;
  int between_ = 0;
  int inlet_ = 0;
  int fluidUse_ = 0;
  int solidUse_ = 0;
  int inletUse_ = 0;
};

// --- Building -----------------------------------------------------------------------------------

TEST(EmptyLocationModel, HasNoParts) {
  const OrvLocationModel model;
  Ids parts = {99};
  model.getParts(parts);
  EXPECT_EQ(parts, Ids());
}

TEST_F(LocationModel, HandsOutIdsThatAreNeverZeroAndNeverTheSame) {
  const std::set<int> ids = {part_,  fluid_,    solid_,    between_,
                             inlet_, fluidUse_, solidUse_, inletUse_};
  EXPECT_EQ(ids.size(), 8U);
  EXPECT_EQ(ids.count(0), 0U);
}

TEST_F(LocationModel, ListsWhatAPartHolds) {
  Ids ids = {99};
  model_.getParts(ids);
  EXPECT_EQ(ids, Ids({part_}));
  EXPECT_TRUE(model_.getPartBodies(part_, ids));
  EXPECT_EQ(ids, Ids({fluid_, solid_}));
  EXPECT_TRUE(model_.getPartFaces(part_, ids));
  EXPECT_EQ(ids, Ids({between_, inlet_}));
  EXPECT_TRUE(model_.getPartFaceUses(part_, ids));
  EXPECT_EQ(ids, Ids({fluidUse_, solidUse_, inletUse_}));
  EXPECT_TRUE(model_.getPartComposites(part_, ids));
  EXPECT_EQ(ids, Ids());
}

TEST_F(LocationModel, TellsTheNamesOfPartsBodiesAndFaces) {
  std::string name = "untouched";
  EXPECT_TRUE(model_.getPartName(part_, name));
  EXPECT_EQ(name, "assembly");
  EXPECT_TRUE(model_.getBodyName(solid_, name));
  EXPECT_EQ(name, "solid");
  EXPECT_TRUE(model_.getFaceName(inlet_, name));
  EXPECT_EQ(name, "inlet");
}

TEST_F(LocationModel, ListsTheBoundaryOfABody) {
  Ids ids = {99};
  EXPECT_TRUE(model_.getBodyBoundary(fluid_, ids));
  EXPECT_EQ(ids, Ids({fluidUse_, inletUse_}));
  EXPECT_TRUE(model_.getBodyBoundary(solid_, ids));
  EXPECT_EQ(ids, Ids({solidUse_}));
}

TEST_F(LocationModel, TellsWhoHoldsTheSidesOfAFace) {
  int side0 = -1;
  int side1 = -1;
  EXPECT_TRUE(model_.getFaceSides(between_, side0, side1));
  EXPECT_EQ(side0, fluidUse_);
  EXPECT_EQ(side1, solidUse_);
  EXPECT_TRUE(model_.getFaceSides(inlet_, side0, side1));
  EXPECT_EQ(side0, inletUse_);
  EXPECT_EQ(side1, 0);
}

TEST_F(LocationModel, HasEmptySidesOnAFaceWithoutUses) {
  int face = 0;
  ASSERT_TRUE(model_.createFace(part_, "outlet", face));
  int side0 = -1;
  int side1 = -1;
  EXPECT_TRUE(model_.getFaceSides(face, side0, side1));
  EXPECT_EQ(side0, 0);
  EXPECT_EQ(side1, 0);
}

struct RefusalRow {
  const char* name;
  /// Tries to create something and gives the id, which was 77 before.
  std::function<bool(OrvLocationModel&, int part, int body, int face, int& id)> create;
};

std::ostream& operator<<(std::ostream& out, const RefusalRow& row) { return out << row.name; }

class LocationModelRefuses : public LocationModel,
                             public ::testing::WithParamInterface<RefusalRow> {};

TEST_P(LocationModelRefuses, AndChangesNothing) {
  int id = 77;
  EXPECT_FALSE(GetParam().create(model_, part_, fluid_, between_, id));
  EXPECT_EQ(id, 77);
  Ids ids;
  model_.getPartBodies(part_, ids);
  EXPECT_EQ(ids, Ids({fluid_, solid_}));
  model_.getPartFaceUses(part_, ids);
  EXPECT_EQ(ids, Ids({fluidUse_, solidUse_, inletUse_}));
  model_.getBodyBoundary(fluid_, ids);
  EXPECT_EQ(ids, Ids({fluidUse_, inletUse_}));
  model_.getParts(ids);
  EXPECT_EQ(ids, Ids({part_}));
}

INSTANTIATE_TEST_SUITE_P(
    LocationModel, LocationModelRefuses,
    ::testing::Values(
        RefusalRow{"ABodyOfAnUnknownPart", [](OrvLocationModel& m, int, int, int,
                                              int& id) { return m.createBody(kAbsent, "x", id); }},
        RefusalRow{"ABodyWithTheNameOfAnother",
                   [](OrvLocationModel& m, int part, int, int, int& id) {
                     return m.createBody(part, "solid", id);
                   }},
        RefusalRow{"AFaceOfAnUnknownPart", [](OrvLocationModel& m, int, int, int,
                                              int& id) { return m.createFace(kAbsent, "x", id); }},
        RefusalRow{"AFaceWithTheNameOfAnother",
                   [](OrvLocationModel& m, int part, int, int, int& id) {
                     return m.createFace(part, "inlet", id);
                   }},
        RefusalRow{"AUseOfAnUnknownBody",
                   [](OrvLocationModel& m, int, int, int face, int& id) {
                     return m.createFaceUse(kAbsent, face, 0, id);
                   }},
        RefusalRow{"AUseOfAnUnknownFace",
                   [](OrvLocationModel& m, int, int body, int, int& id) {
                     return m.createFaceUse(body, kAbsent, 0, id);
                   }},
        RefusalRow{"AUseOfASideThatIsTaken",
                   [](OrvLocationModel& m, int, int body, int face, int& id) {
                     return m.createFaceUse(body, face, 1, id);
                   }},
        RefusalRow{"AUseOfSideTwo", [](OrvLocationModel& m, int, int body, int face,
                                       int& id) { return m.createFaceUse(body, face, 2, id); }},
        RefusalRow{"AUseOfANegativeSide",
                   [](OrvLocationModel& m, int, int body, int face, int& id) {
                     return m.createFaceUse(body, face, -1, id);
                   }}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(LocationModel, RefusesAUseOfAFaceOfAnotherPart) {
  int otherPart = 0;
  int otherFace = 0;
  int use = 77;
  model_.createPart(3, "other", otherPart);
  ASSERT_TRUE(model_.createFace(otherPart, "inlet", otherFace));
  EXPECT_FALSE(model_.createFaceUse(fluid_, otherFace, 0, use));
  EXPECT_EQ(use, 77);
}

TEST_F(LocationModel, TakesTheSameNamesInAnotherPartAndInAnotherKind) {
  int otherPart = 0;
  int id = 0;
  model_.createPart(3, "assembly", otherPart);
  EXPECT_NE(otherPart, part_);
  EXPECT_TRUE(model_.createBody(otherPart, "fluid", id));
  EXPECT_TRUE(model_.createFace(otherPart, "inlet", id));
  EXPECT_TRUE(model_.createFace(part_, "fluid", id));
  Ids parts;
  model_.getParts(parts);
  EXPECT_EQ(parts, Ids({part_, otherPart}));
}

// --- Finding and names --------------------------------------------------------------------------

TEST_F(LocationModel, FindsObjectsByName) {
  int id = 0;
  EXPECT_TRUE(model_.findBody(part_, "solid", id));
  EXPECT_EQ(id, solid_);
  EXPECT_TRUE(model_.findFace(part_, "between", id));
  EXPECT_EQ(id, between_);
  EXPECT_TRUE(model_.setFaceUseName(inletUse_, "inlet side"));
  EXPECT_TRUE(model_.findFaceUse(part_, "inlet side", id));
  EXPECT_EQ(id, inletUse_);
}

TEST_F(LocationModel, LeavesTheIdAloneWhereItFindsNothing) {
  int id = 77;
  EXPECT_FALSE(model_.findBody(part_, "inlet", id));
  EXPECT_FALSE(model_.findFace(part_, "fluid", id));
  EXPECT_FALSE(model_.findFaceUse(part_, "between", id));
  EXPECT_FALSE(model_.findFaceUse(part_, "", id));
  EXPECT_FALSE(model_.findComposite(part_, "fluid", id));
  EXPECT_FALSE(model_.findBody(kAbsent, "fluid", id));
  EXPECT_FALSE(model_.findFace(kAbsent, "between", id));
  EXPECT_FALSE(model_.findFaceUse(kAbsent, "between", id));
  EXPECT_FALSE(model_.findComposite(kAbsent, "fluid", id));
  EXPECT_EQ(id, 77);
}

TEST_F(LocationModel, GivesAnEmptyNameForAUseThatWasNeverNamed) {
  EXPECT_EQ(nameOf(inletUse_), "");
  EXPECT_NE(relativeNameOf(inletUse_), "");
}

TEST_F(LocationModel, GivesEachUseARelativeNameOfItsOwn) {
  EXPECT_EQ(relativeNameOf(fluidUse_), "between@fluid");
  EXPECT_EQ(relativeNameOf(solidUse_), "between@solid");
  EXPECT_EQ(relativeNameOf(inletUse_), "inlet@fluid");
  int secondUse = 0;
  ASSERT_TRUE(model_.createFaceUse(fluid_, inlet_, 1, secondUse));
  EXPECT_EQ(relativeNameOf(secondUse), "inlet@fluid.2");
}

TEST_F(LocationModel, FindsAnUnnamedUseByItsRelativeName) {
  int id = 77;
  EXPECT_TRUE(model_.findFaceUse(part_, "inlet@fluid", id));
  EXPECT_EQ(id, inletUse_);
  ASSERT_TRUE(model_.setFaceUseName(inletUse_, "inlet side"));
  id = 77;
  EXPECT_FALSE(model_.findFaceUse(part_, "inlet@fluid", id));
  EXPECT_EQ(id, 77);
}

TEST_F(LocationModel, FindsARenamedUseByItsNewNameOnly) {
  ASSERT_TRUE(model_.setFaceUseName(inletUse_, "first"));
  ASSERT_TRUE(model_.setFaceUseName(inletUse_, "second"));
  EXPECT_EQ(nameOf(inletUse_), "second");
  int id = 77;
  EXPECT_FALSE(model_.findFaceUse(part_, "first", id));
  EXPECT_TRUE(model_.findFaceUse(part_, "second", id));
  EXPECT_EQ(id, inletUse_);
}

TEST_F(LocationModel, GivesOneIdForANameThatTwoUsesBear) {
  ASSERT_TRUE(model_.setFaceUseName(inletUse_, "both"));
  ASSERT_TRUE(model_.setFaceUseName(fluidUse_, "both"));
  int id = 77;
  EXPECT_TRUE(model_.findFaceUse(part_, "both", id));
  EXPECT_TRUE(id == inletUse_ || id == fluidUse_);
}

TEST_F(LocationModel, GivesTheNameOfABody) {
  std::string name = "untouched";
  EXPECT_TRUE(model_.getBodyName(solid_, name));
  EXPECT_EQ(name, "solid");
}

// --- Lists of each mesh -------------------------------------------------------------------------

TEST_F(LocationModel, KeepsZonesOfABodyForEachMesh) {
  Ids zones = {99};
  EXPECT_FALSE(model_.getBodyZones(fluid_, 1, zones));
  EXPECT_EQ(zones, Ids({99}));
  EXPECT_TRUE(model_.setBodyZones(fluid_, 1, {5, 2}));
  EXPECT_TRUE(model_.setBodyZones(fluid_, 2, {}));
  EXPECT_TRUE(model_.getBodyZones(fluid_, 1, zones));
  EXPECT_EQ(zones, Ids({5, 2}));
  EXPECT_TRUE(model_.getBodyZones(fluid_, 2, zones));
  EXPECT_EQ(zones, Ids());
  EXPECT_TRUE(model_.setBodyZones(fluid_, 1, {7}));
  EXPECT_TRUE(model_.getBodyZones(fluid_, 1, zones));
  EXPECT_EQ(zones, Ids({7}));
  EXPECT_FALSE(model_.getBodyZones(solid_, 1, zones));
}

TEST_F(LocationModel, KeepsZoneSidesOfAFaceUseForEachMesh) {
  Ids sides = {99};
  EXPECT_FALSE(model_.getFaceUseZoneSides(solidUse_, 1, sides));
  EXPECT_EQ(sides, Ids({99}));
  EXPECT_TRUE(model_.setFaceUseZoneSides(solidUse_, 1, {-2, 3}));
  EXPECT_TRUE(model_.getFaceUseZoneSides(solidUse_, 1, sides));
  EXPECT_EQ(sides, Ids({-2, 3}));
  EXPECT_FALSE(model_.getFaceUseZoneSides(solidUse_, 2, sides));
  EXPECT_TRUE(model_.setFaceUseZoneSides(solidUse_, 1, {4}));
  EXPECT_TRUE(model_.getFaceUseZoneSides(solidUse_, 1, sides));
  EXPECT_EQ(sides, Ids({4}));
}

// --- Unknown ids --------------------------------------------------------------------------------

TEST_F(LocationModel, AnswersFalseForUnknownIdsAndLeavesOutputsAlone) {
  Ids ids = {99};
  std::string name = "untouched";
  int side0 = -1;
  int side1 = -2;
  EXPECT_FALSE(model_.getPartBodies(fluid_, ids));
  EXPECT_FALSE(model_.getPartFaces(kAbsent, ids));
  EXPECT_FALSE(model_.getPartFaceUses(kAbsent, ids));
  EXPECT_FALSE(model_.getPartComposites(0, ids));
  EXPECT_FALSE(model_.getBodyBoundary(part_, ids));
  EXPECT_FALSE(model_.getBodyZones(kAbsent, 1, ids));
  EXPECT_FALSE(model_.getFaceUseZoneSides(between_, 1, ids));
  EXPECT_FALSE(model_.getPartName(fluid_, name));
  EXPECT_FALSE(model_.getFaceName(part_, name));
  EXPECT_FALSE(model_.getBodyName(kAbsent, name));
  EXPECT_FALSE(model_.getFaceUseName(0, name));
  EXPECT_FALSE(model_.getFaceUseRelativeName(fluid_, name));
  EXPECT_FALSE(model_.getCompositeName(kAbsent, name));
  EXPECT_FALSE(model_.getFaceSides(fluidUse_, side0, side1));
  EXPECT_FALSE(model_.resolveComposite(kAbsent, ids, ids, ids));
  EXPECT_FALSE(model_.setBodyZones(kAbsent, 1, {1}));
  EXPECT_FALSE(model_.setFaceUseZoneSides(kAbsent, 1, {1}));
  EXPECT_FALSE(model_.setFaceUseName(kAbsent, "x"));
  EXPECT_EQ(ids, Ids({99}));
  EXPECT_EQ(name, "untouched");
  EXPECT_EQ(side0, -1);
  EXPECT_EQ(side1, -2);
}

// --- Composites and copies ----------------------------------------------------------------------

TEST_F(LocationModel, ResolvesAComposite) {
  const int walls = OrvLocationModel::State::of(model_).addComposite(
      part_, {"walls", {fluid_}, {between_}, {fluidUse_, solidUse_}});
  int found = 0;
  EXPECT_TRUE(model_.findComposite(part_, "walls", found));
  EXPECT_EQ(found, walls);
  std::string name;
  EXPECT_TRUE(model_.getCompositeName(walls, name));
  EXPECT_EQ(name, "walls");
  Ids bodies = {99};
  Ids faces = {99};
  Ids faceUses = {99};
  EXPECT_TRUE(model_.resolveComposite(walls, bodies, faces, faceUses));
  EXPECT_EQ(bodies, Ids({fluid_}));
  EXPECT_EQ(faces, Ids({between_}));
  EXPECT_EQ(faceUses, Ids({fluidUse_, solidUse_}));
  Ids composites;
  EXPECT_TRUE(model_.getPartComposites(part_, composites));
  EXPECT_EQ(composites, Ids({walls}));
}

TEST_F(LocationModel, HasNoCompositeOfAnUnknownPart) {
  EXPECT_EQ(OrvLocationModel::State::of(model_).addComposite(kAbsent, {"walls", {}, {}, {}}), 0);
}

TEST(LocationModelOfAConsumer, IsACopyThatOutlivesItsSource) {
  memory::MemoryConsumer consumer;
  int part = 0;
  int body = 0;
  {
    OrvLocationModel model;
    model.createPart(3, "assembly", part);
    ASSERT_TRUE(model.createBody(part, "fluid", body));
    ASSERT_TRUE(model.setBodyZones(body, 1, {5}));
    consumer.setLocationModel(&model);
    ASSERT_TRUE(model.setBodyZones(body, 1, {6}));
  }
  const OrvLocationModel* kept = consumer.getLocationModel();
  ASSERT_NE(kept, nullptr);
  Ids zones;
  EXPECT_TRUE(kept->getBodyZones(body, 1, zones));
  EXPECT_EQ(zones, Ids({5}));
}

TEST(LocationModelOfAConsumer, IsNullBeforeAndAfterNull) {
  memory::MemoryConsumer consumer;
  EXPECT_EQ(consumer.getLocationModel(), nullptr);
  const OrvLocationModel model;
  consumer.setLocationModel(&model);
  EXPECT_NE(consumer.getLocationModel(), nullptr);
  consumer.setLocationModel(nullptr);
  EXPECT_EQ(consumer.getLocationModel(), nullptr);
}

}  // namespace
}  // namespace velto::testing
