// SPDX-License-Identifier: Apache-2.0
//
// PlainResolver: the queries.

#include "tests/physics_regions/PlainResolver.h"

namespace velto::testing {

namespace {

template <class Map, class Key>
bool holds(const Map& map, const Key& key) {
  return map.find(key) != map.end();
}

int kindOf(const std::string& type) {
  if (type == "domain") {
    return 1;
  }
  if (type == "boundary") {
    return 2;
  }
  if (type == "subdomain") {
    return 3;
  }
  if (type == "interface") {
    return 4;
  }
  return 0;
}

}  // namespace

bool PlainResolver::isKnown(const std::string& region) const {
  return holds(table_.regionIds, region) || fail("Region '" + region + "' not found.");
}

bool PlainResolver::bodies(const std::string& region, std::vector<int>& bodyIds) const {
  bodyIds.clear();
  if (!isKnown(region)) {
    return false;
  }
  const auto found = table_.regionBodies.find(table_.regionIds.at(region));
  if (found == table_.regionBodies.end()) {
    return fail("Region '" + region + "' is not defined by Bodies.");
  }
  bodyIds = found->second;
  return true;
}

bool PlainResolver::faceUses(const std::string& region, std::vector<int>& faceUseIds) const {
  faceUseIds.clear();
  if (!isKnown(region)) {
    return false;
  }
  const auto found = table_.regionFaceUses.find(table_.regionIds.at(region));
  if (found == table_.regionFaceUses.end()) {
    return fail("Region '" + region + "' is not defined by face uses.");
  }
  faceUseIds = found->second;
  return true;
}

bool PlainResolver::bulkZones(const std::string& region, std::vector<int>& zoneIds) const {
  zoneIds.clear();
  if (!isKnown(region)) {
    return false;
  }
  const auto found = table_.regionBulkZones.find(table_.regionIds.at(region));
  if (found == table_.regionBulkZones.end()) {
    return fail("Region '" + region + "' does not require a bulk face zone.");
  }
  zoneIds = found->second;
  return true;
}

bool PlainResolver::zoneSides(const std::string& region, std::vector<int>& sides) const {
  sides.clear();
  if (!isKnown(region)) {
    return false;
  }
  const auto found = table_.regionZoneSides.find(table_.regionIds.at(region));
  if (found == table_.regionZoneSides.end()) {
    return fail("Region '" + region + "' cannot be resolve to face zone sides.");
  }
  sides = found->second;
  return true;
}

bool PlainResolver::cellZones(const std::string& region, std::vector<int>& cellNodeZones,
                              std::vector<int>& otherZones) const {
  cellNodeZones.clear();
  otherZones.clear();
  if (!isKnown(region)) {
    return false;
  }
  const auto found = table_.regionCellZones.find(table_.regionIds.at(region));
  if (found == table_.regionCellZones.end()) {
    return fail("Region '" + region + "' cannot be resolved to cell zones.");
  }
  cellNodeZones = found->second.first;
  otherZones = found->second.second;
  return true;
}

bool PlainResolver::bounding(const std::string& region, std::string& domain) const {
  domain.clear();
  if (!isKnown(region)) {
    return false;
  }
  const auto found = table_.regionDomains.find(table_.regionIds.at(region));
  if (found == table_.regionDomains.end()) {
    return fail("Region '" + region + "' is not associated with a domain.");
  }
  if (!holds(table_.regionNames, found->second)) {
    return false;
  }
  domain = table_.regionNames.at(found->second);
  return true;
}

bool PlainResolver::boundedBy(const std::string& region,
                              std::vector<std::string>& boundaries) const {
  boundaries.clear();
  if (!isKnown(region)) {
    return false;
  }
  for (const auto& [key, value] : table_.regionDomains) {
    if (value == table_.regionIds.at(region) && holds(table_.regionNames, key)) {
      const std::string& name = table_.regionNames.at(key);
      if (regionIsOfType(name, "boundary")) {
        boundaries.push_back(name);
      }
    }
  }
  return !boundaries.empty();
}

bool PlainResolver::regionLocation(const std::string& region, std::string& location) const {
  location.clear();
  if (!isKnown(region)) {
    return false;
  }
  const auto found = table_.regionLocations.find(table_.regionIds.at(region));
  if (found == table_.regionLocations.end()) {
    return fail("Region '" + region + "' doesn't have a location.");
  }
  location = found->second;
  return true;
}

bool PlainResolver::sideOf(const std::string& region, unsigned short side,
                           std::string& boundary) const {
  boundary.clear();
  if (side > 1) {
    return false;
  }
  if (!isKnown(region)) {
    return false;
  }
  const auto found = table_.interfaceSides.find(table_.regionIds.at(region));
  if (found == table_.interfaceSides.end()) {
    return fail("Region '" + region + "' is not a valid interface.");
  }
  const int id = side == 0 ? found->second.first : found->second.second;
  if (!holds(table_.regionNames, id)) {
    return false;
  }
  boundary = table_.regionNames.at(id);
  return true;
}

bool PlainResolver::regionIsOfType(const std::string& region, const std::string& type) const {
  const int kind = kindOf(type);
  if (kind == 0) {
    return fail("Type '" + type + "' is invalid.");
  }
  if (!isKnown(region)) {
    return false;
  }
  const auto found = table_.regionKinds.find(table_.regionIds.at(region));
  return found != table_.regionKinds.end() && found->second == kind;
}

bool PlainResolver::regionsOfType(std::vector<std::string>& regions,
                                  const std::string& type) const {
  regions.clear();
  if (table_.regionIds.empty()) {
    return fail("This case doesn't contain any physics regions.");
  }
  const int kind = kindOf(type);
  if (!type.empty() && kind == 0) {
    return fail("Type '" + type + "' is invalid.");
  }
  for (const auto& [name, id] : table_.regionIds) {
    if (type.empty() || table_.regionKinds.at(id) == kind) {
      regions.push_back(name);
    }
  }
  return true;
}

}  // namespace velto::testing
