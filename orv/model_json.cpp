// SPDX-License-Identifier: Apache-2.0
//
// A location model as JSON: every object with its id and name, lists of any length.

#include "orv/model_json.h"

#include "data_access/location_models.h"

#include "orv/model_views.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

Json kindJson(ZoneOfModel::Kind kind) {
  switch (kind) {
    case ZoneOfModel::Kind::face:
      return "face";
    case ZoneOfModel::Kind::cell:
      return "cell";
    case ZoneOfModel::Kind::none:
      break;
  }
  return nullptr;
}

Json bodyJson(const ModelSummary& summary, int id) {
  const BodyOfModel& body = summary.bodies.at(id);
  return {{"id", id},
          {"name", nameJson(body.name)},
          {"zones", body.zones ? listJson(summary, *body.zones, zoneJson) : Json()}};
}

Json faceJson(const ModelSummary& summary, int id) {
  const FaceOfModel& face = summary.faces.at(id);
  return {{"id", id},
          {"name", nameJson(face.name)},
          {"sides", Json::array({reference(summary.faceUses, face.sides[0]),
                                 reference(summary.faceUses, face.sides[1])})}};
}

Json faceUseJson(const ModelSummary& summary, int id) {
  const FaceUseOfModel& use = summary.faceUses.at(id);
  return {{"id", id},
          {"name", nameJson(use.name)},
          {"relativeName", use.relativeName},
          {"body", reference(summary.bodies, use.body)},
          {"face", reference(summary.faces, use.face)},
          {"side", use.face == 0 ? Json() : Json(use.side)},
          {"zoneSides", use.zoneSides ? listJson(summary, *use.zoneSides, zoneSideJson) : Json()}};
}

Json compositeJson(const ModelSummary& summary, int id) {
  const CompositeOfModel& composite = summary.composites.at(id);
  return {{"id", id},
          {"name", nameJson(composite.name)},
          {"bodies", references(summary.bodies, composite.bodies)},
          {"faces", references(summary.faces, composite.faces)},
          {"faceUses", references(summary.faceUses, composite.faceUses)}};
}

Json partJson(const ModelSummary& summary, const PartOfModel& part) {
  return {{"id", part.id},
          {"name", nameJson(part.name)},
          {"bodies", listJson(summary, part.bodies, bodyJson)},
          {"faces", listJson(summary, part.faces, faceJson)},
          {"faceUses", listJson(summary, part.faceUses, faceUseJson)},
          {"composites", listJson(summary, part.composites, compositeJson)}};
}

const char* originWord(ModelOrigin origin) {
  switch (origin) {
    case ModelOrigin::file:
      return "file";
    case ModelOrigin::built:
      return "built";
    case ModelOrigin::none:
      break;
  }
  return "none";
}

}  // namespace

Json modelHeadJson(const ModelSummary& summary) {
  const bool hasMesh = summary.mesh != 0;
  return {{"file", summary.file},
          {"origin", originWord(summary.origin)},
          {"mesh", hasMesh ? Json(summary.mesh) : Json()},
          {"target", hasMesh ? Json(targetWord(summary.target)) : Json()},
          {"partition", summary.partition}};
}

Json zoneJson(const ModelSummary& summary, int id) {
  const ZoneOfModel& zone = summary.zones.at(id);
  return {{"id", id}, {"name", zone.name}, {"kind", kindJson(zone.kind)}};
}

Json zoneSideJson(const ModelSummary& summary, int zoneSide) {
  return {{"zoneSide", zoneSide}, {"zone", zoneJson(summary, zoneOfSide(zoneSide))}};
}

Json modelJson(const ModelSummary& summary) {
  Json parts = Json::array();
  for (const PartOfModel& part : summary.parts) {
    parts.push_back(partJson(summary, part));
  }
  Json report = modelHeadJson(summary);
  report["parts"] = parts;
  report["errors"] = summary.errors;
  return report;
}

}  // namespace velto::orv
