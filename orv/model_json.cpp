// SPDX-License-Identifier: Apache-2.0
//
// A location model as JSON: every object with its id and name, lists of any length.

#include <nlohmann/json.hpp>

#include "data_access/location_models.h"

#include "orv/model_views.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

using Json = nlohmann::ordered_json;

Json nameJson(const ModelName& name) { return name ? Json(*name) : Json(); }

/// An object that something else mentions; null for id 0.
template <class Objects>
Json reference(const Objects& objects, int id) {
  return id == 0 ? Json() : Json{{"id", id}, {"name", nameJson(objects.at(id).name)}};
}

template <class Objects>
Json references(const Objects& objects, const std::vector<int>& ids) {
  Json list = Json::array();
  for (const int id : ids) {
    list.push_back(reference(objects, id));
  }
  return list;
}

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

Json zoneJson(const ModelSummary& summary, int id) {
  const ZoneOfModel& zone = summary.zones.at(id);
  return {{"id", id}, {"name", zone.name}, {"kind", kindJson(zone.kind)}};
}

Json bodyJson(const ModelSummary& summary, int id) {
  const BodyOfModel& body = summary.bodies.at(id);
  Json zones;
  if (body.zones) {
    zones = Json::array();
    for (const int zone : *body.zones) {
      zones.push_back(zoneJson(summary, zone));
    }
  }
  return {{"id", id}, {"name", nameJson(body.name)}, {"zones", zones}};
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
  Json zoneSides;
  if (use.zoneSides) {
    zoneSides = Json::array();
    for (const int side : *use.zoneSides) {
      zoneSides.push_back({{"zoneSide", side}, {"zone", zoneJson(summary, zoneOfSide(side))}});
    }
  }
  return {{"id", id},
          {"name", nameJson(use.name)},
          {"relativeName", use.relativeName},
          {"body", reference(summary.bodies, use.body)},
          {"face", reference(summary.faces, use.face)},
          {"side", use.face == 0 ? Json() : Json(use.side)},
          {"zoneSides", zoneSides}};
}

Json compositeJson(const ModelSummary& summary, int id) {
  const CompositeOfModel& composite = summary.composites.at(id);
  return {{"id", id},
          {"name", nameJson(composite.name)},
          {"bodies", references(summary.bodies, composite.bodies)},
          {"faces", references(summary.faces, composite.faces)},
          {"faceUses", references(summary.faceUses, composite.faceUses)}};
}

template <class JsonOf>
Json listJson(const ModelSummary& summary, const std::vector<int>& ids, JsonOf jsonOf) {
  Json list = Json::array();
  for (const int id : ids) {
    list.push_back(jsonOf(summary, id));
  }
  return list;
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

nlohmann::ordered_json modelJson(const ModelSummary& summary) {
  Json parts = Json::array();
  for (const PartOfModel& part : summary.parts) {
    parts.push_back(partJson(summary, part));
  }
  const bool hasMesh = summary.mesh != 0;
  return {{"file", summary.file},
          {"origin", originWord(summary.origin)},
          {"mesh", hasMesh ? Json(summary.mesh) : Json()},
          {"target", hasMesh ? Json(targetWord(summary.target)) : Json()},
          {"partition", summary.partition},
          {"parts", parts},
          {"errors", summary.errors}};
}

}  // namespace velto::orv
