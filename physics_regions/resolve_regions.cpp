// SPDX-License-Identifier: Apache-2.0
//
// Resolving: what the names of the locations come to, in three passes over the regions.
//
//   domains, subdomains   names -> bodies -> cell zones, bulk zones, zone sides of their boundaries
//   subdomains            first body -> the domain with that body
//   boundaries            names -> face uses -> zone sides; first face use -> the domain around it
//                         own name -> bulk zone, and the region that takes it in
//
// A bulk zone is a zone of a body that is no cell zone: a face zone inside it.

#include <algorithm>
#include <initializer_list>
#include <iostream>

#include "data_access/OrvUtilities.h"
#include "data_access/families.h"

#include "physics_regions/Resolving.h"
#include "physics_regions/region_kinds.h"

namespace velto {

namespace {

/// Tells on standard error alone; no list of errors keeps it.
void displayLine(const std::string& text) { std::cerr << text << std::endl; }

std::vector<std::string> namesOf(const std::string& location) {
  std::vector<std::string> names;
  OrvUtilities::splitString(location, names, true, ',');
  return names;
}

void append(std::vector<int>& ids, const std::vector<int>& more) {
  ids.insert(ids.end(), more.begin(), more.end());
}

/// Clears what the last resolving left, and again what this one did unless it came to its end: it
/// may be abandoned, and the data-access library may throw.
struct WholeOrNothing {
  explicit WholeOrNothing(RegionTable& filled) : table(filled) { table.clearResolved(); }
  WholeOrNothing(const WholeOrNothing&) = delete;
  WholeOrNothing& operator=(const WholeOrNothing&) = delete;
  ~WholeOrNothing() {
    if (!isWhole) {
      table.clearResolved();
    }
  }

  RegionTable& table;
  bool isWhole = false;
};

}  // namespace

// --- Whether there is anything to resolve with --------------------------------------------------

bool PhysicsRegionResolver::resolveUsing(const OrvProvider* provider) {
  return resolveUsing(provider, provider);
}

bool PhysicsRegionResolver::resolveUsing(const OrvProvider* modelSource,
                                         const OrvProvider* provider) {
  return resolveUsing(modelSource == nullptr ? nullptr : modelSource->getLocationModel(), provider);
}

bool PhysicsRegionResolver::resolveUsing(const OrvLocationModel* model,
                                         const OrvProvider* provider) {
  // The contract has no const reading of lists: asking for one changes what a provider has open.
  auto* mesh = const_cast<OrvProvider*>(provider);
  if (mesh == nullptr ||
      (mesh->getZoneCount(zoneCategoryCell) == 0 && mesh->getZoneCount(zoneCategoryFace) == 0)) {
    return fail("Mesh Model is not valid as it doesn't contain any zones.");
  }
  std::vector<int> parts;
  if (model != nullptr) {
    model->getParts(parts);
  }
  if (model == nullptr || parts.empty()) {
    return fail("Location Model is not valid as it doesn't contain any parts.");
  }
  WholeOrNothing resolved(*table);
  resolved.isWhole = Resolving(*table, *model, std::move(parts), *mesh).run();
  return resolved.isWhole;
}

// --- One resolving ------------------------------------------------------------------------------

bool PhysicsRegionResolver::Resolving::run() {
  if (!groupCellZones()) {
    return false;
  }
  const std::vector<Region> volumes = regionsOf({regionKindDomain, regionKindSubdomain});
  if (!std::all_of(volumes.begin(), volumes.end(),
                   [this](const Region& region) { return resolveVolume(region); })) {
    return false;
  }
  for (const Region& subdomain : regionsOf({regionKindSubdomain})) {
    joinDomain(subdomain);
  }
  const std::vector<Region> boundaries = regionsOf({regionKindBoundary});
  return std::all_of(boundaries.begin(), boundaries.end(),
                     [this](const Region& region) { return resolveBoundary(region); });
}

bool PhysicsRegionResolver::Resolving::groupCellZones() {
  std::vector<int> zones;
  mesh_.getZoneIds(zoneCategoryCell, zones);
  for (const int zone : zones) {
    cellZones_[zone] = CellZoneGroup::other;
  }
  for (const int zone : listZones(mesh_, kCellNodes)) {
    const auto found = cellZones_.find(zone);
    if (found == cellZones_.end()) {
      return false;
    }
    found->second = CellZoneGroup::listsNodes;
  }
  return true;
}

std::vector<PhysicsRegionResolver::Resolving::Region> PhysicsRegionResolver::Resolving::regionsOf(
    std::initializer_list<RegionKind> kinds) const {
  std::vector<Region> regions;
  for (const auto& [id, kind] : table_.regionKinds) {
    const auto name = table_.regionNames.find(id);
    const auto location = table_.regionLocations.find(id);
    if (std::count(kinds.begin(), kinds.end(), kind) != 0 && name != table_.regionNames.end() &&
        location != table_.regionLocations.end()) {
      regions.push_back({id, kind, name->second, location->second});
    }
  }
  return regions;
}

// --- What a location names ----------------------------------------------------------------------

bool PhysicsRegionResolver::Resolving::lookUp(const Region& region, std::vector<int>& ids) {
  const bool isBoundary = region.kind == regionKindBoundary;
  const PlaceOrder& order = isBoundary ? kSurfacePlaces : kVolumePlaces;
  for (const std::string& name : namesOf(region.location)) {
    for (const int part : parts_) {
      const Place place = findPlace(model_, part, name, order);
      if (place.kind == PlaceKind::none) {
        if (isBoundary) {
          joinBulkZone(region);
        }
        continue;
      }
      if (isMisplaced(place, order)) {
        const std::string found = wordOf(place.kind);
        displayLine("Unexpectedly found a " + found + " '" + std::to_string(place.id) +
                    "' in the location of a " + wordOf(region.kind) + ".");
        return false;
      }
      if (place.kind == PlaceKind::composite) {
        addMembers(place.id, region.kind, ids);
      } else {
        ids.push_back(place.id);
      }
      break;  // The first part that knows the name has the word.
    }
  }
  return true;
}

void PhysicsRegionResolver::Resolving::addMembers(int composite, RegionKind kind,
                                                  std::vector<int>& ids) const {
  std::vector<int> bodies;
  std::vector<int> faces;
  std::vector<int> faceUses;
  model_.resolveComposite(composite, bodies, faces, faceUses);
  append(ids, kind == regionKindBoundary ? faceUses : bodies);
}

// Kept: the name of the boundary decides and not the one in its location, and it gains the zone
// again for each name and part.
void PhysicsRegionResolver::Resolving::joinBulkZone(const Region& boundary) {
  const auto zone = bulkZoneByName_.find(boundary.name);
  if (zone == bulkZoneByName_.end()) {
    return;
  }
  table_.regionBulkZones[boundary.id].push_back(zone->second);
  table_.regionDomains[boundary.id] = regionByBulkZone_.at(zone->second);
}

// --- Domains and subdomains ---------------------------------------------------------------------

bool PhysicsRegionResolver::Resolving::resolveVolume(const Region& region) {
  std::vector<int> bodies;
  if (!lookUp(region, bodies)) {
    return false;
  }
  std::sort(bodies.begin(), bodies.end());
  if (region.kind == regionKindDomain) {
    for (const int body : bodies) {
      domainByBody_[body] = region.id;
    }
  }
  // Kept: these two are there even where they stay empty; zone sides only if there is a body.
  table_.regionCellZones[region.id];
  std::vector<int>& bulk = table_.regionBulkZones[region.id];
  for (const int body : bodies) {
    addBodyZones(region, body, bulk);
    addBodyBoundary(region, body);
  }
  nameBulkZones(bulk);
  table_.regionBodies[region.id] = std::move(bodies);
  return true;
}

void PhysicsRegionResolver::Resolving::addBodyZones(const Region& region, int body,
                                                    std::vector<int>& bulk) {
  std::vector<int> zones;
  model_.getBodyZones(body, mesh_.getMeshId(), zones);
  auto& [listingNodes, others] = table_.regionCellZones[region.id];
  for (const int zone : zones) {
    const auto cellZone = cellZones_.find(zone);
    if (cellZone == cellZones_.end()) {
      bulk.push_back(zone);
      regionByBulkZone_[zone] = region.id;
    } else {
      (cellZone->second == CellZoneGroup::listsNodes ? listingNodes : others).push_back(zone);
    }
  }
}

void PhysicsRegionResolver::Resolving::addBodyBoundary(const Region& region, int body) {
  std::vector<int>& sides = table_.regionZoneSides[region.id];
  std::vector<int> faceUses;
  if (!model_.getBodyBoundary(body, faceUses)) {
    return;
  }
  for (const int faceUse : faceUses) {
    if (region.kind == regionKindDomain) {
      domainByFaceUse_[faceUse] = region.id;
    }
    addZoneSides(faceUse, sides);
  }
}

void PhysicsRegionResolver::Resolving::nameBulkZones(const std::vector<int>& bulk) {
  for (const int zone : bulk) {
    std::string name;
    mesh_.getZoneStringInfo(zone, zoneName, name);
    if (!name.empty()) {
      bulkZoneByName_[name] = zone;
    }
  }
}

void PhysicsRegionResolver::Resolving::joinDomain(const Region& subdomain) {
  const std::vector<int>& bodies = table_.regionBodies.at(subdomain.id);
  if (bodies.empty()) {
    return;
  }
  const auto domain = domainByBody_.find(bodies.front());
  if (domain != domainByBody_.end()) {
    table_.regionDomains[subdomain.id] = domain->second;
  }
}

// --- Boundaries ---------------------------------------------------------------------------------

bool PhysicsRegionResolver::Resolving::resolveBoundary(const Region& region) {
  std::vector<int> faceUses;
  if (!lookUp(region, faceUses)) {
    return false;
  }
  if (faceUses.empty()) {
    return true;
  }
  // The domain around a face use goes before the one that a bulk zone gave.
  const auto domain = domainByFaceUse_.find(faceUses.front());
  if (domain != domainByFaceUse_.end()) {
    table_.regionDomains[region.id] = domain->second;
  }
  std::vector<int>& sides = table_.regionZoneSides[region.id];
  for (const int faceUse : faceUses) {
    addZoneSides(faceUse, sides);
  }
  table_.regionFaceUses[region.id] = std::move(faceUses);
  return true;
}

void PhysicsRegionResolver::Resolving::addZoneSides(int faceUse, std::vector<int>& sides) const {
  std::vector<int> sidesOfUse;
  model_.getFaceUseZoneSides(faceUse, mesh_.getMeshId(), sidesOfUse);
  append(sides, sidesOfUse);
}

}  // namespace velto
