// SPDX-License-Identifier: Apache-2.0
//
// Pieces of JSON about a location model, which reports of models and of regions have in common.

#ifndef VELTO_ORV_MODEL_JSON_H
#define VELTO_ORV_MODEL_JSON_H

#include <nlohmann/json.hpp>
#include <vector>

#include "orv/ModelSummary.h"

namespace velto::orv {

using Json = nlohmann::ordered_json;

/// The beginning of a report: file, where the model comes from, and the mesh.
Json modelHeadJson(const ModelSummary& summary);

/// Null for the name of what is not in the model.
inline Json nameJson(const ModelName& name) { return name ? Json(*name) : Json(); }

/// An object that something else mentions, by id and name; null for id 0.
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

/// A list of ids as what `jsonOf` makes of each.
template <class JsonOf>
Json listJson(const ModelSummary& summary, const std::vector<int>& ids, JsonOf jsonOf) {
  Json list = Json::array();
  for (const int id : ids) {
    list.push_back(jsonOf(summary, id));
  }
  return list;
}

Json zoneJson(const ModelSummary& summary, int id);
Json zoneSideJson(const ModelSummary& summary, int zoneSide);

}  // namespace velto::orv

#endif  // VELTO_ORV_MODEL_JSON_H
