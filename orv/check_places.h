// SPDX-License-Identifier: Apache-2.0
//
// Places and filters of a check, as the JSON and the SARIF view write them.

#ifndef VELTO_ORV_CHECK_PLACES_H
#define VELTO_ORV_CHECK_PLACES_H

#include <nlohmann/json.hpp>

#include "orv/CheckReport.h"
#include "orv/words.h"

namespace velto::orv {

/// "mesh", "target" and "partition", null where the place is not within one.
inline nlohmann::ordered_json placeJson(const CheckPlace& place) {
  nlohmann::ordered_json json = {{"mesh", nullptr}, {"target", nullptr}, {"partition", nullptr}};
  if (!(place == CheckPlace())) {
    json["mesh"] = place.mesh;
  }
  if (place.target != -1) {
    json["target"] = targetOption(place.target);
  }
  if (place.partition != -1) {
    json["partition"] = place.partition;
  }
  return json;
}

/// What the command line left to check: the same three, and whether location models were checked.
inline nlohmann::ordered_json filtersJson(const CheckOptions& options) {
  nlohmann::ordered_json json = {{"mesh", nullptr}, {"target", nullptr}, {"partition", nullptr}};
  if (options.mesh != 0) {
    json["mesh"] = options.mesh;
  }
  if (!options.target.empty()) {
    json["target"] = options.target;
  }
  if (options.partition != -1) {
    json["partition"] = options.partition;
  }
  json["locationModel"] = !options.noLocationModel;
  return json;
}

}  // namespace velto::orv

#endif  // VELTO_ORV_CHECK_PLACES_H
