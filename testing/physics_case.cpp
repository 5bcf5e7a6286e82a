// SPDX-License-Identifier: Apache-2.0
//
// The named case with a location model and physics objects.

#include <memory>

#include "embedded/base/shapes.h"
#include "embedded/memory/CaseBuilder.h"
#include "embedded/memory/LocationModelWriter.h"
#include "testing/Row.h"
#include "testing/cases.h"

namespace velto::testing::cases {

namespace {

using memory::CaseBuilder;

std::shared_ptr<const OrvLocationModel> channelAndHeater() {
  memory::LocationModelWriter model;
  model.part("assembly");
  const int channel = model.body("channel", {6, 2});
  const int heater = model.body("heater", {7});
  const int walls = model.use(channel, model.face("hull"), 0, {4}, "channel walls");
  const int contact = model.face("contact");
  const int wettedContact = model.use(channel, contact, 0, {3});
  model.use(heater, contact, 1, {-3}, "heater contact");
  model.use(heater, model.face("shell"), 0, {5}, "heater walls");
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
