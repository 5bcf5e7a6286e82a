// SPDX-License-Identifier: Apache-2.0
//
// The words for the objects of a location model, as text and graph show them.

#include <fmt/format.h>

#include "data_access/location_models.h"

#include "orv/model_views.h"
#include "orv/shown_name.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

std::string noZonesWords(const ModelSummary& summary) {
  return fmt::format("no zones in mesh {}", summary.mesh);
}

}  // namespace

std::string modelErrors(const ModelSummary& summary) {
  // Without a mesh the command could not be carried out, which says nothing against the case.
  const char* who = summary.mesh == 0 ? "orv" : "Error";
  std::string lines;
  for (const std::string& error : summary.errors) {
    lines += fmt::format("{}: {}: {}\n", who, shownText(summary.file), shownText(error));
  }
  return lines;
}

std::string originWords(const ModelSummary& summary) {
  const std::string mesh =
      fmt::format("mesh {}, {}{}", summary.mesh, targetWord(summary.target),
                  summary.partition == -1 ? "" : fmt::format(", partition {}", summary.partition));
  return summary.origin == ModelOrigin::file ? "location model of the file, " + mesh
                                             : "built from the zones of " + mesh;
}

std::string zoneWords(const ModelSummary& summary, int zone) {
  const ZoneOfModel& found = summary.zones.at(zone);
  if (found.kind == ZoneOfModel::Kind::none) {
    return fmt::format("[{}] (not in mesh {})", zone, summary.mesh);
  }
  return found.name.empty() ? fmt::format("[{}]", zone)
                            : fmt::format("{} [{}]", shownName(found.name), zone);
}

std::string zoneSideWords(const ModelSummary& summary, int zoneSide) {
  const ZoneOfModel& zone = summary.zones.at(zoneOfSide(zoneSide));
  if (zone.kind != ZoneOfModel::Kind::face) {
    return fmt::format("{:+} (no face zone of mesh {})", zoneSide, summary.mesh);
  }
  return zone.name.empty() ? fmt::format("{:+}", zoneSide)
                           : fmt::format("{:+} {}", zoneSide, shownName(zone.name));
}

BodyZoneWords bodyZoneWords(const ModelSummary& summary, const BodyOfModel& body) {
  BodyZoneWords words;
  if (!body.zones || body.zones->empty()) {
    words.zones = {noZonesWords(summary)};
    return words;
  }
  for (const int zone : *body.zones) {
    const bool isTakenIn = summary.zones.at(zone).kind == ZoneOfModel::Kind::face;
    (isTakenIn ? words.takenIn : words.zones).push_back(zoneWords(summary, zone));
  }
  return words;
}

std::vector<std::string> faceUseZoneWords(const ModelSummary& summary, const FaceUseOfModel& use) {
  if (!use.zoneSides || use.zoneSides->empty()) {
    return {noZonesWords(summary)};
  }
  std::vector<std::string> words;
  words.reserve(use.zoneSides->size());
  for (const int side : *use.zoneSides) {
    words.push_back(zoneSideWords(summary, side));
  }
  return words;
}

std::string nameWord(const ModelName& name, int id) {
  return name ? shownName(*name) : fmt::format("({}, not in the model)", id);
}

std::string bodyWord(const ModelSummary& summary, int id) {
  return id == 0 ? "-" : nameWord(summary.bodies.at(id).name, id);
}

std::string faceWord(const ModelSummary& summary, int id) {
  return id == 0 ? "-" : nameWord(summary.faces.at(id).name, id);
}

std::string faceUseWord(const ModelSummary& summary, int id) {
  const FaceUseOfModel& use = summary.faceUses.at(id);
  const bool isNameless = use.name && use.name->empty() && !use.relativeName.empty();
  return isNameless ? "(" + shownName(use.relativeName) + ")" : nameWord(use.name, id);
}

}  // namespace velto::orv
