// SPDX-License-Identifier: Apache-2.0
//
// A sample with a location model of its own and physics of every kind that refers to it.

#include <memory>
#include <utility>
#include <vector>

#include "embedded/memory/LocationModelWriter.h"
#include "samples/sample_parts.h"

namespace velto::samples {

namespace {

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

std::shared_ptr<const OrvLocationModel> locate(const TwoBodies& bodies, int contactZone) {
  memory::LocationModelWriter model;
  model.part("assembly");
  const int fluid = model.body(
      "channel", existing({bodies.mesh.cellZoneId(0), bodies.fluidInterior, bodies.screen}));
  const int solid =
      model.body("heater", existing({bodies.mesh.cellZoneId(1), bodies.solidInterior}));
  model.use(fluid, model.face("inlet face"), 0, {bodies.inlet}, "channel inlet");
  const int walls =
      model.use(fluid, model.face("channel hull"), 0, {bodies.fluidWalls}, "channel walls");
  const int end = model.use(solid, model.face("end face"), 0, {bodies.outlet}, "heater end");
  const int hull =
      model.use(solid, model.face("heater hull"), 0, {bodies.solidWalls}, "heater walls");
  const int contact = model.face("contact");
  const int wettedContact = model.use(fluid, contact, 0, {contactZone}, "contact of channel");
  model.use(solid, contact, 1, {-contactZone}, "contact of heater");
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
  describeAll(sample.tables.defaultSettings());
  return sample;
}

}  // namespace velto::samples
