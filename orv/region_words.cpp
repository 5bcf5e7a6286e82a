// SPDX-License-Identifier: Apache-2.0
//
// The words for regions and for the names in their locations, as tables and explanations show them.

#include <algorithm>
#include <fmt/format.h>
#include <set>

#include "orv/model_views.h"
#include "orv/region_views.h"
#include "orv/shown_name.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

const PartOfModel* partOf(const ModelSummary& model, int id) {
  const auto found = std::find_if(model.parts.begin(), model.parts.end(),
                                  [id](const PartOfModel& part) { return part.id == id; });
  return found == model.parts.end() ? nullptr : &*found;
}

/// "face use of part assembly".
std::string ofPart(const ModelSummary& model, const NameInLocation& name) {
  const PartOfModel* part = partOf(model, name.part);
  return fmt::format(
      "{} of part {}", wordOf(name.place.kind),
      part == nullptr ? fmt::format("{}", name.part) : nameWord(part->name, part->id));
}

/// The members of a composite that are taken: its bodies for volumes, else its face uses.
std::string memberWords(const ModelSummary& model, const Region& region, int id) {
  const CompositeOfModel& composite = model.composites.at(id);
  const bool ofBodies = isVolume(region);
  const std::vector<int>& members = ofBodies ? composite.bodies : composite.faceUses;
  if (members.empty()) {
    return ofBodies ? "without bodies" : "without face uses";
  }
  return "with " + joined(members, ", ", [&model, ofBodies](int member) {
           return ofBodies ? bodyWord(model, member) : faceUseWord(model, member);
         });
}

/// "; body channel has it"; nothing if no object has the zone.
template <class WordOf>
std::string ownerWords(const std::unordered_map<int, int>& owners, int zone, const char* kind,
                       WordOf wordOf) {
  const auto found = owners.find(zone);
  return found == owners.end() ? "" : fmt::format("; {} {} has it", kind, wordOf(found->second));
}

/// What a name that no part knows is otherwise: the name of a zone, which is not the same.
std::string unknownWords(const RegionSummary& summary, const Region& region,
                         const std::string& name) {
  std::string unknown = "no part knows this name";
  const auto found = summary.zonesByName.find(name);
  if (found == summary.zonesByName.end()) {
    return unknown;
  }
  const ModelSummary& model = summary.model;
  const int zone = found->second;
  const std::string words = zoneWords(model, zone);
  if (model.zones.at(zone).kind == ZoneOfModel::Kind::cell) {
    return fmt::format("{}, but cell zone {} bears it{}", unknown, words,
                       ownerWords(summary.bodiesByZone, zone, "body",
                                  [&model](int id) { return bodyWord(model, id); }));
  }
  const auto body = summary.bodiesByZone.find(zone);
  if (isVolume(region) || body == summary.bodiesByZone.end()) {
    return fmt::format("{}, but face zone {} bears it{}", unknown, words,
                       ownerWords(summary.faceUsesByZone, zone, "face use",
                                  [&model](int id) { return faceUseWord(model, id); }));
  }
  // A face zone inside a body.
  return fmt::format("{}, but face zone {} inside body {} bears it; {}", unknown, words,
                     bodyWord(model, body->second),
                     region.name == name ? "no domain or subdomain lies in that body"
                                         : "a boundary on it has to be named like the zone");
}

}  // namespace

std::string regionWords(const Region& region) {
  return fmt::format("{} {}", region.kind, shownName(region.name));
}

std::string placeWords(const RegionSummary& summary, const Region& region,
                       const NameInLocation& name) {
  const ModelSummary& model = summary.model;
  if (name.place.kind == PlaceKind::none) {
    return counts(summary, region, name)
               ? "no part knows this name; the boundary lies on the face zone that bears its own name"
               : unknownWords(summary, region, name.name);
  }
  if (name.place.kind == PlaceKind::composite) {
    return fmt::format("{} {}", ofPart(model, name), memberWords(model, region, name.place.id));
  }
  if (counts(summary, region, name)) {
    return ofPart(model, name);
  }
  return fmt::format("{}, where no {} can lie: no region is resolved", ofPart(model, name),
                     region.kind);
}

std::vector<std::string> namesOfPlaces(const RegionSummary& summary, const Region& region) {
  const ModelSummary& model = summary.model;
  std::set<std::string> places;
  const auto add = [&places](const ModelName& known) {
    if (known && !known->empty()) {
      places.insert(*known);
    }
  };
  for (const auto& composite : model.composites) {
    add(composite.second.name);
  }
  if (isVolume(region)) {
    for (const auto& body : model.bodies) {
      add(body.second.name);
    }
  } else {
    for (const auto& use : model.faceUses) {
      add(use.second.name);
      add(use.second.relativeName);
    }
  }
  return {places.begin(), places.end()};
}

}  // namespace velto::orv
