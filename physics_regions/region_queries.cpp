// SPDX-License-Identifier: Apache-2.0
//
// What a PhysicsRegionResolver tells of its regions: each query looks a name up and gives the entry
// that one map of the table has for it.

#include "velto/PhysicsRegionResolver.h"

#include "physics_regions/region_kinds.h"

namespace velto {

namespace {

/// False, and nothing copied, for a region without an entry.
template <class Entry>
bool copyEntry(const std::map<int, Entry>& entries, int region, Entry& output) {
  const auto found = entries.find(region);
  if (found == entries.end()) {
    return false;
  }
  output = found->second;
  return true;
}

}  // namespace

bool PhysicsRegionResolver::fail(const std::string& message) const {
  addError(message);
  return false;
}

std::optional<int> PhysicsRegionResolver::findRegion(const std::string& region) const {
  const auto found = table->regionIds.find(region);
  if (found == table->regionIds.end()) {
    fail("Region '" + region + "' not found.");
    return std::nullopt;
  }
  return found->second;
}

// --- What a region comes to ---------------------------------------------------------------------

bool PhysicsRegionResolver::bodies(const std::string& region, std::vector<int>& bodyIds) const {
  bodyIds.clear();
  const std::optional<int> id = findRegion(region);
  return id && (copyEntry(table->regionBodies, *id, bodyIds) ||
                fail("Region '" + region + "' is not defined by Bodies."));
}

bool PhysicsRegionResolver::faceUses(const std::string& region,
                                     std::vector<int>& faceUseIds) const {
  faceUseIds.clear();
  const std::optional<int> id = findRegion(region);
  return id && (copyEntry(table->regionFaceUses, *id, faceUseIds) ||
                fail("Region '" + region + "' is not defined by face uses."));
}

bool PhysicsRegionResolver::bulkZones(const std::string& region, std::vector<int>& zoneIds) const {
  zoneIds.clear();
  const std::optional<int> id = findRegion(region);
  return id && (copyEntry(table->regionBulkZones, *id, zoneIds) ||
                fail("Region '" + region + "' does not require a bulk face zone."));
}

bool PhysicsRegionResolver::zoneSides(const std::string& region, std::vector<int>& sides) const {
  sides.clear();
  const std::optional<int> id = findRegion(region);
  // Kept: "be resolve".
  return id && (copyEntry(table->regionZoneSides, *id, sides) ||
                fail("Region '" + region + "' cannot be resolve to face zone sides."));
}

bool PhysicsRegionResolver::cellZones(const std::string& region, std::vector<int>& cellNodeZones,
                                      std::vector<int>& otherZones) const {
  cellNodeZones.clear();
  otherZones.clear();
  const std::optional<int> id = findRegion(region);
  if (!id) {
    return false;
  }
  const auto found = table->regionCellZones.find(*id);
  if (found == table->regionCellZones.end()) {
    return fail("Region '" + region + "' cannot be resolved to cell zones.");
  }
  cellNodeZones = found->second.first;
  otherZones = found->second.second;
  return true;
}

bool PhysicsRegionResolver::bounding(const std::string& region, std::string& domain) const {
  domain.clear();
  const std::optional<int> id = findRegion(region);
  int other = 0;
  // Kept: before the first resolving the other one is no domain but lies in one.
  return id &&
         (copyEntry(table->regionDomains, *id, other) ||
          fail("Region '" + region + "' is not associated with a domain.")) &&
         copyEntry(table->regionNames, other, domain);
}

bool PhysicsRegionResolver::boundedBy(const std::string& region,
                                      std::vector<std::string>& boundaries) const {
  // Kept harmless: the name may be one of those in the list that is emptied.
  std::vector<std::string> before;
  before.swap(boundaries);
  const std::optional<int> id = findRegion(region);
  if (!id) {
    return false;
  }
  for (const auto& [bounding, domain] : table->regionDomains) {
    const auto name = table->regionNames.find(bounding);
    // Kept: it is judged by name, so that a boundary is left out if its name has a later meaning,
    // and a subdomain stands here whose name is that of a boundary too.
    if (domain == *id && name != table->regionNames.end() &&
        regionIsOfType(name->second, wordOf(regionKindBoundary))) {
      boundaries.push_back(name->second);
    }
  }
  return !boundaries.empty();
}

// --- What the settings say ----------------------------------------------------------------------

bool PhysicsRegionResolver::regionLocation(const std::string& region, std::string& location) const {
  location.clear();
  const std::optional<int> id = findRegion(region);
  return id && (copyEntry(table->regionLocations, *id, location) ||
                fail("Region '" + region + "' doesn't have a location."));
}

bool PhysicsRegionResolver::sideOf(const std::string& region, unsigned short side,
                                   std::string& boundary) const {
  boundary.clear();
  if (side > 1) {
    return false;
  }
  const std::optional<int> id = findRegion(region);
  std::pair<int, int> sides;
  return id &&
         (copyEntry(table->interfaceSides, *id, sides) ||
          fail("Region '" + region + "' is not a valid interface.")) &&
         copyEntry(table->regionNames, side == 0 ? sides.first : sides.second, boundary);
}

bool PhysicsRegionResolver::regionIsOfType(const std::string& region,
                                           const std::string& type) const {
  const RegionKind wanted = kindOf(type);
  if (wanted == regionKindNone) {
    return fail("Type '" + type + "' is invalid.");
  }
  const std::optional<int> id = findRegion(region);
  RegionKind kind = regionKindNone;
  return id && copyEntry(table->regionKinds, *id, kind) && kind == wanted;
}

bool PhysicsRegionResolver::regionsOfType(
    std::vector<std::string>& regions,
    std::string type) const {  // NOLINT(performance-unnecessary-value-param): given.
  regions.clear();
  if (table->regionIds.empty()) {
    return fail("This case doesn't contain any physics regions.");
  }
  const RegionKind wanted = kindOf(type);
  if (!type.empty() && wanted == regionKindNone) {
    return fail("Type '" + type + "' is invalid.");
  }
  for (const auto& [name, id] : table->regionIds) {
    RegionKind kind = regionKindNone;
    if (type.empty() || (copyEntry(table->regionKinds, id, kind) && kind == wanted)) {
      regions.push_back(name);
    }
  }
  return true;
}

}  // namespace velto
