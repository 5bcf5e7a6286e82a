// SPDX-License-Identifier: Apache-2.0
//
// The named case with a location model and physics objects.

#include <memory>
#include <utility>

#include "embedded/base/OrvLocationModelState.h"
#include "embedded/base/shapes.h"
#include "embedded/memory/CaseBuilder.h"
#include "testing/Row.h"
#include "testing/cases.h"

namespace velto::testing::cases {

namespace {

using memory::CaseBuilder;

constexpr int kMesh = 1;

/// Writes down a model of one part. The operations of the state are called, not those of the model,
/// so that a script of location models does not see them.
class ModelText {
 public:
  ModelText() { state().createPart(3, "assembly", part_); }

  int body(const std::string& name, const std::vector<int>& zones) {
    int id = 0;
    state().createBody(part_, name, id);
    state().setBodyZones(id, kMesh, zones);
    return id;
  }

  int face(const std::string& name) {
    int id = 0;
    state().createFace(part_, name, id);
    return id;
  }

  /// An empty name is none.
  int use(const std::string& name, int body, int face, int side, int zoneSide) {
    int id = 0;
    state().createFaceUse(body, face, side, id);
    state().setFaceUseZoneSides(id, kMesh, {zoneSide});
    state().setFaceUseName(id, name);
    return id;
  }

  void composite(const OrvLocationModel::State::Composite& composite) {
    state().addComposite(part_, composite);
  }

  std::shared_ptr<const OrvLocationModel> take() { return std::move(model_); }

 private:
  OrvLocationModel::State& state() { return OrvLocationModel::State::of(*model_); }

  std::unique_ptr<OrvLocationModel> model_ = std::make_unique<OrvLocationModel>();
  int part_ = 0;
};

std::shared_ptr<const OrvLocationModel> channelAndHeater() {
  ModelText model;
  const int channel = model.body("channel", {6, 2});
  const int heater = model.body("heater", {7});
  const int walls = model.use("channel walls", channel, model.face("hull"), 0, 4);
  const int contact = model.face("contact");
  const int wettedContact = model.use("", channel, contact, 0, 3);
  model.use("heater contact", heater, contact, 1, -3);
  model.use("heater walls", heater, model.face("shell"), 0, 5);
  model.composite({"metal", {heater}, {}, {}});
  model.composite({"wetted", {}, {}, {walls, wettedContact}});
  return model.take();
}

void describePhysics(CaseBuilder& builder) {
  builder.setting("domains/water/location", "channel")
      .setting("domains/steel/location", "metal")
      .setting("subdomains/heating/location", "heater")
      .setting("subdomains/heating/domain", "steel")
      .setting("boundaries/screen/location", "screen")
      .setting("boundaries/screen/domain", "water")
      .setting("boundaries/friction/location", "wetted")
      .setting("boundaries/friction/domain", "water")
      .setting("boundaries/insulation/location", "heater walls")
      .setting("boundaries/insulation/domain", "steel")
      .setting("boundaries/water side/location", "contact@channel")
      .setting("boundaries/water side/domain", "water")
      .setting("boundaries/steel side/location", "heater contact")
      .setting("boundaries/steel side/domain", "steel")
      .setting("interfaces/heat transfer/boundariesSide1", "water side")
      .setting("interfaces/heat transfer/boundariesSide2", "steel side")
      .setting("interfaces/heat transfer/domainsSide1", "water")
      .setting("interfaces/heat transfer/domainsSide2", "steel");
}

}  // namespace

CasePtr withPhysics() {
  const Row row(3);
  CaseBuilder builder;
  builder.units("m")
      .nodes(1, "points", row.points())
      .faces(2, "screen", faceZoneTypeInterior, {row.after(1)})
      .faces(3, "contact", faceZoneType14, {row.after(2)})
      .faces(4, "fluid walls", base::boundaryWall, row.walls(1, 2))
      .faces(5, "solid walls", base::boundaryWall, row.walls(3, 3))
      .cells(6, "fluid", base::cellShapeHexahedron, 2)
      .cells(7, "solid", base::cellShapeHexahedron, 1);
  describePhysics(builder);
  CasePtr built = builder.build();
  built->tables.locationModel = channelAndHeater();
  return built;
}

}  // namespace velto::testing::cases
