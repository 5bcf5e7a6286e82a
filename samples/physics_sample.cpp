// SPDX-License-Identifier: Apache-2.0
//
// A sample with a location model of its own and physics of every kind that refers to it.

#include <stdexcept>
#include <utility>
#include <vector>

#include "data_access/OrvLocationModel.h"

#include "embedded/base/OrvLocationModelState.h"
#include "samples/sample_parts.h"

namespace velto::samples {

namespace {

constexpr int kAssembly = 3;  // the kind of part that a built model has

/// Zones without those that a small box has no faces for.
std::vector<int> existing(const std::vector<int>& zones) {
  std::vector<int> left;
  for (const int zone : zones) {
    if (zone != 0) {
      left.push_back(zone);
    }
  }
  return left;
}

void require(bool done, const std::string& name) {
  if (!done) {
    throw std::logic_error("the location model does not take " + name);
  }
}

/// Writes down a model of one part on mesh 1.
class ModelWriter {
 public:
  ModelWriter() { model_->createPart(kAssembly, "assembly", part_); }

  int body(const std::string& name, const std::vector<int>& zones) {
    int id = 0;
    require(model_->createBody(part_, name, id), name);
    require(model_->setBodyZones(id, base::MeshKey().mesh, existing(zones)), name);
    return id;
  }

  int face(const std::string& name) {
    int id = 0;
    require(model_->createFace(part_, name, id), name);
    return id;
  }

  /// A face use; the sign of the zone tells the side of its faces.
  int use(const std::string& name, int body, int face, int side, int signedZone) {
    int id = 0;
    require(model_->createFaceUse(body, face, side, id), name);
    require(model_->setFaceUseName(id, name), name);
    require(model_->setFaceUseZoneSides(id, base::MeshKey().mesh, {signedZone}), name);
    return id;
  }

  void composite(OrvLocationModel::State::Composite composite) {
    const std::string name = composite.name;
    OrvLocationModel::State& state = OrvLocationModel::State::of(*model_);
    require(state.addComposite(part_, std::move(composite)) != 0, name);
  }

  std::shared_ptr<const OrvLocationModel> take() { return std::move(model_); }

 private:
  std::unique_ptr<OrvLocationModel> model_ = std::make_unique<OrvLocationModel>();
  int part_ = 0;
};

std::shared_ptr<const OrvLocationModel> locate(const TwoBodies& bodies, int contactZone) {
  ModelWriter model;
  const int fluid =
      model.body("channel", {bodies.mesh.cellZoneId(0), bodies.fluidInterior, bodies.screen});
  const int solid = model.body("heater", {bodies.mesh.cellZoneId(1), bodies.solidInterior});
  model.use("channel inlet", fluid, model.face("inlet face"), 0, bodies.inlet);
  const int walls =
      model.use("channel walls", fluid, model.face("channel hull"), 0, bodies.fluidWalls);
  const int end = model.use("heater end", solid, model.face("end face"), 0, bodies.outlet);
  const int hull =
      model.use("heater walls", solid, model.face("heater hull"), 0, bodies.solidWalls);
  const int contact = model.face("contact");
  const int wettedContact = model.use("contact of channel", fluid, contact, 0, contactZone);
  model.use("contact of heater", solid, contact, 1, -contactZone);
  model.composite({"metal", {solid}, {}, {}});
  model.composite({"wetted", {}, {}, {walls, wettedContact}});
  // As a place of volumes it is the body, as one of surfaces its outside.
  model.composite({"heater unit", {solid}, {}, {end, hull}});
  return model.take();
}

/// Adds the entries "<object>/<attribute>" of one physics object.
void describe(base::Settings& settings, const std::string& object,
              const std::vector<std::pair<std::string, std::string>>& attributes) {
  for (const auto& attribute : attributes) {
    settings.set(object + "/" + attribute.first, attribute.second);
  }
}

void describeAll(base::Settings& settings) {
  describe(settings, "domains/water", {{"location", "channel"}, {"material", "water"}});
  describe(settings, "domains/steel", {{"location", "metal"}, {"material", "steel"}});
  describe(settings, "subdomains/heating",
           {{"location", "heater"}, {"domain", "steel"}, {"power", "1500 W"}});
  describe(settings, "subdomains/expansion", {{"location", "heater unit"}, {"domain", "steel"}});
  describe(settings, "boundaries/inflow",
           {{"location", "channel inlet"}, {"domain", "water"}, {"velocity", "1.5 m/s"}});
  // A boundary inside a body bears the name of its face zone.
  describe(settings, "boundaries/screen", {{"location", "screen"}, {"domain", "water"}});
  describe(settings, "boundaries/friction", {{"location", "wetted"}, {"domain", "water"}});
  describe(settings, "boundaries/insulation",
           {{"location", "heater walls,heater end"}, {"domain", "steel"}});
  describe(settings, "boundaries/coating", {{"location", "heater unit"}, {"domain", "steel"}});
  describe(settings, "boundaries/water side",
           {{"location", "contact of channel"}, {"domain", "water"}});
  describe(settings, "boundaries/steel side",
           {{"location", "contact of heater"}, {"domain", "steel"}});
  describe(settings, "interfaces/heat transfer",
           {{"boundariesSide1", "water side"},
            {"boundariesSide2", "steel side"},
            {"domainsSide1", "water"},
            {"domainsSide2", "steel"}});
}

}  // namespace

Sample makePhysics(std::uint64_t cells) {
  TwoBodies bodies = twoBodiesMesh(cells);
  const int contact = bodies.mesh.addFaces("contact", faceZoneType14,
                                           {planeAt(bodies.mesh.grid, bodies.cut, Sides::both)});
  Sample sample = emptySample();
  addMesh(sample, {}, bodies.mesh);
  sample.tables.locationModel = locate(bodies, contact);
  describeAll(settingsOf(sample.tables));
  return sample;
}

}  // namespace velto::samples
