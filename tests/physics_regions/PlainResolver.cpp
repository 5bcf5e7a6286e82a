// SPDX-License-Identifier: Apache-2.0
//
// PlainResolver: regions from the settings, and what their locations come to. The queries stand in
// plain_queries.cpp.

#include "tests/physics_regions/PlainResolver.h"

#include <algorithm>
#include <iostream>
#include <utility>

#include "data_access/OrvLocationModel.h"
#include "data_access/OrvProvider.h"
#include "data_access/OrvUtilities.h"

namespace velto::testing {

/// What one resolving works with.
struct PlainResolver::Run {
  const OrvLocationModel& model;
  OrvProvider& provider;
  std::vector<int> partIds;
  std::vector<int> cellZoneIds;
  std::vector<int> cellZoneGroups;  // beside cellZoneIds
  std::map<int, int> domainByBody;
  std::map<int, int> domainByFaceUse;
  std::map<int, int> regionByBulkZone;
  std::map<std::string, int> bulkZoneByName;
};

namespace {

constexpr int kDomain = 1;
constexpr int kBoundary = 2;
constexpr int kSubdomain = 3;
constexpr int kInterface = 4;

std::vector<std::string> namesAt(const OrvProvider& provider, const std::string& path) {
  return provider.getSettings(dataClassCase, path, 1);
}

std::string textAt(const OrvProvider& provider, const std::string& path) {
  return provider.getSettings(dataClassCase, path, 1).asString();
}

std::vector<std::string> tokensOf(const std::string& location) {
  std::vector<std::string> tokens;
  OrvUtilities::splitString(location, tokens, true, ',');
  return tokens;
}

template <class Map, class Key>
bool holds(const Map& map, const Key& key) {
  return map.find(key) != map.end();
}

void append(std::vector<int>& list, const std::vector<int>& more) {
  list.insert(list.end(), more.begin(), more.end());
}

}  // namespace

// --- Regions from the settings ------------------------------------------------------------------

PlainResolver::PlainResolver(const OrvProvider* provider) {
  if (provider == nullptr) {
    return;
  }
  int nextId = 0;
  readDomains(*provider, nextId);
  readSubdomains(*provider, nextId);
  readBoundaries(*provider, nextId);
  readInterfaces(*provider, nextId);
}

void PlainResolver::readDomains(const OrvProvider& provider, int& nextId) {
  for (const std::string& name : namesAt(provider, "domains")) {
    const std::string location = textAt(provider, "domains/" + name + "/location");
    if (location.empty()) {
      continue;
    }
    table_.regionIds[name] = nextId;
    table_.regionNames[nextId] = name;
    table_.regionKinds[nextId] = static_cast<RegionKind>(kDomain);
    table_.regionLocations[nextId] = location;
    ++nextId;
  }
}

void PlainResolver::readSubdomains(const OrvProvider& provider, int& nextId) {
  for (const std::string& name : namesAt(provider, "subdomains")) {
    const std::string location = textAt(provider, "subdomains/" + name + "/location");
    if (location.empty()) {
      continue;
    }
    table_.regionIds[name] = nextId;
    table_.regionNames[nextId] = name;
    table_.regionKinds[nextId] = static_cast<RegionKind>(kSubdomain);
    table_.regionLocations[nextId] = location;
    noteDomain(textAt(provider, "subdomains/" + name + "/domain"), nextId);
    ++nextId;
  }
}

void PlainResolver::readBoundaries(const OrvProvider& provider, int& nextId) {
  for (const std::string& name : namesAt(provider, "boundaries")) {
    const std::string location = textAt(provider, "boundaries/" + name + "/location");
    if (location.empty()) {
      continue;
    }
    table_.regionIds[name] = nextId;
    table_.regionNames[nextId] = name;
    table_.regionKinds[nextId] = static_cast<RegionKind>(kBoundary);
    table_.regionLocations[nextId] = location;
    noteDomain(textAt(provider, "boundaries/" + name + "/domain"), nextId);
    ++nextId;
  }
}

void PlainResolver::readInterfaces(const OrvProvider& provider, int& nextId) {
  for (const std::string& name : namesAt(provider, "interfaces")) {
    const std::string side1 = textAt(provider, "interfaces/" + name + "/boundariesSide1");
    const std::string side2 = textAt(provider, "interfaces/" + name + "/boundariesSide2");
    if (side1.empty() || side2.empty() || !isBoundary(side1) || !isBoundary(side2)) {
      continue;
    }
    const std::pair<int, int> sides = {table_.regionIds.at(side1), table_.regionIds.at(side2)};
    table_.regionIds[name] = nextId;
    table_.regionNames[nextId] = name;
    table_.regionKinds[nextId] = static_cast<RegionKind>(kInterface);
    table_.interfaceSides[nextId] = sides;
    ++nextId;
  }
}

void PlainResolver::noteDomain(const std::string& domain, int id) {
  if (!domain.empty() && holds(table_.regionIds, domain)) {
    const int domainId = table_.regionIds.at(domain);
    if (table_.regionKinds.at(domainId) == kDomain) {
      table_.regionDomains[domainId] = id;
    }
  }
}

bool PlainResolver::isBoundary(const std::string& name) const {
  return holds(table_.regionIds, name) &&
         table_.regionKinds.at(table_.regionIds.at(name)) == kBoundary;
}

bool PlainResolver::fail(const std::string& message) const {
  errors_.push_back(message);
  return false;
}

// --- Resolving ----------------------------------------------------------------------------------

bool PlainResolver::resolveUsing(const OrvProvider* provider) {
  return resolveUsing(provider, provider);
}

bool PlainResolver::resolveUsing(const OrvProvider* modelSource, const OrvProvider* provider) {
  const OrvLocationModel* model = nullptr;
  if (modelSource != nullptr) {
    model = modelSource->getLocationModel();
  }
  return resolveUsing(model, provider);
}

bool PlainResolver::resolveUsing(const OrvLocationModel* model, const OrvProvider* provider) {
  // What counts and lists zones is not const, though it changes nothing.
  auto* const zones = const_cast<OrvProvider*>(provider);
  if (zones == nullptr ||
      (zones->getZoneCount(zoneCategoryCell) == 0 && zones->getZoneCount(zoneCategoryFace) == 0)) {
    return fail("Mesh Model is not valid as it doesn't contain any zones.");
  }
  std::vector<int> partIds;
  if (model != nullptr) {
    model->getParts(partIds);
  }
  if (model == nullptr || partIds.empty()) {
    return fail("Location Model is not valid as it doesn't contain any parts.");
  }
  clearResolved();
  Run run = {*model, *zones, partIds, {}, {}, {}, {}, {}, {}};
  if (!listZones(run)) {
    return false;
  }
  for (const auto& [region, kind] : table_.regionKinds) {
    if ((kind == kDomain || kind == kSubdomain) && !resolveVolume(run, region)) {
      return false;
    }
  }
  for (const auto& [region, kind] : table_.regionKinds) {
    if (kind == kSubdomain) {
      findDomainOfSubdomain(run, region);
    }
  }
  for (const auto& [region, kind] : table_.regionKinds) {
    if (kind == kBoundary && !resolveBoundary(run, region)) {
      return false;
    }
  }
  return true;
}

void PlainResolver::clearResolved() {
  table_.regionDomains.clear();
  table_.regionBulkZones.clear();
  table_.regionBodies.clear();
  table_.regionCellZones.clear();
  table_.regionFaceUses.clear();
  table_.regionZoneSides.clear();
}

bool PlainResolver::abandon(const std::string& line) {
  std::cerr << line << "\n";
  clearResolved();
  return false;
}

bool PlainResolver::listZones(Run& run) {
  run.provider.getZoneIds(zoneCategoryCell, run.cellZoneIds);
  std::sort(run.cellZoneIds.begin(), run.cellZoneIds.end());
  run.cellZoneGroups.assign(run.cellZoneIds.size(), 1);
  std::vector<int> cellNodeZones;
  run.provider.beginCellNodes(cellNodeZones);
  run.provider.endCellNodes();
  for (const int zone : cellNodeZones) {
    const auto found = std::find(run.cellZoneIds.begin(), run.cellZoneIds.end(), zone);
    if (found == run.cellZoneIds.end()) {
      return false;
    }
    run.cellZoneGroups[static_cast<std::size_t>(found - run.cellZoneIds.begin())] = 0;
  }
  return true;
}

// --- Domains and subdomains ---------------------------------------------------------------------

bool PlainResolver::resolveVolume(Run& run, int region) {
  std::vector<int> found;
  if (!findBodies(run, region, found)) {
    return false;
  }
  std::sort(found.begin(), found.end());
  table_.regionBodies[region] = found;
  if (table_.regionKinds.at(region) == kDomain) {
    for (const int body : found) {
      run.domainByBody[body] = region;
    }
  }
  std::vector<int> bulk;
  table_.regionCellZones[region];
  for (const int body : found) {
    takeZones(run, region, body, bulk);
    takeBoundary(run, region, body);
  }
  table_.regionBulkZones[region] = bulk;
  for (const int zone : bulk) {
    std::string name;
    run.provider.getZoneStringInfo(zone, zoneName, name);
    if (!name.empty()) {
      run.bulkZoneByName[name] = zone;
    }
  }
  return true;
}

bool PlainResolver::findBodies(Run& run, int region, std::vector<int>& found) {
  const bool isDomain = table_.regionKinds.at(region) == kDomain;
  const std::string place =
      isDomain ? "in the location of a domain." : "in the location of a subdomain.";
  for (const std::string& token : tokensOf(table_.regionLocations.at(region))) {
    for (const int part : run.partIds) {
      int id = 0;
      if (run.model.findBody(part, token, id)) {
        found.push_back(id);
        break;
      }
      if (run.model.findComposite(part, token, id)) {
        std::vector<int> compositeBodies;
        std::vector<int> compositeFaces;
        std::vector<int> compositeFaceUses;
        run.model.resolveComposite(id, compositeBodies, compositeFaces, compositeFaceUses);
        append(found, compositeBodies);
        break;
      }
      if (run.model.findFace(part, token, id)) {
        return abandon("Unexpectedly found a face '" + std::to_string(id) + "' " + place);
      }
      if (run.model.findFaceUse(part, token, id)) {
        return abandon("Unexpectedly found a face use '" + std::to_string(id) + "' " + place);
      }
    }
  }
  return true;
}

void PlainResolver::takeZones(Run& run, int region, int body, std::vector<int>& bulk) {
  std::vector<int> zones;
  run.model.getBodyZones(body, run.provider.getMeshId(), zones);
  for (const int zone : zones) {
    const auto found = std::find(run.cellZoneIds.begin(), run.cellZoneIds.end(), zone);
    if (found == run.cellZoneIds.end()) {
      bulk.push_back(zone);
      run.regionByBulkZone[zone] = region;
    } else if (run.cellZoneGroups[static_cast<std::size_t>(found - run.cellZoneIds.begin())] == 0) {
      table_.regionCellZones[region].first.push_back(zone);
    } else {
      table_.regionCellZones[region].second.push_back(zone);
    }
  }
}

void PlainResolver::takeBoundary(Run& run, int region, int body) {
  table_.regionZoneSides[region];
  std::vector<int> uses;
  if (!run.model.getBodyBoundary(body, uses)) {
    return;
  }
  for (const int use : uses) {
    if (table_.regionKinds.at(region) == kDomain) {
      run.domainByFaceUse[use] = region;
    }
    std::vector<int> sides;
    run.model.getFaceUseZoneSides(use, run.provider.getMeshId(), sides);
    append(table_.regionZoneSides[region], sides);
  }
}

void PlainResolver::findDomainOfSubdomain(Run& run, int region) {
  const std::vector<int>& found = table_.regionBodies.at(region);
  if (!found.empty() && holds(run.domainByBody, found.front())) {
    table_.regionDomains[region] = run.domainByBody.at(found.front());
  }
}

// --- Boundaries ---------------------------------------------------------------------------------

bool PlainResolver::resolveBoundary(Run& run, int region) {
  std::vector<int> found;
  if (!findFaceUses(run, region, found)) {
    return false;
  }
  if (found.empty()) {
    return true;
  }
  table_.regionFaceUses[region] = found;
  if (holds(run.domainByFaceUse, found.front())) {
    table_.regionDomains[region] = run.domainByFaceUse.at(found.front());
  }
  for (const int use : found) {
    std::vector<int> sides;
    run.model.getFaceUseZoneSides(use, run.provider.getMeshId(), sides);
    append(table_.regionZoneSides[region], sides);
  }
  return true;
}

bool PlainResolver::findFaceUses(Run& run, int region, std::vector<int>& found) {
  for (const std::string& token : tokensOf(table_.regionLocations.at(region))) {
    for (const int part : run.partIds) {
      int id = 0;
      if (run.model.findFaceUse(part, token, id)) {
        found.push_back(id);
        break;
      }
      if (run.model.findComposite(part, token, id)) {
        std::vector<int> compositeBodies;
        std::vector<int> compositeFaces;
        std::vector<int> compositeFaceUses;
        run.model.resolveComposite(id, compositeBodies, compositeFaces, compositeFaceUses);
        append(found, compositeFaceUses);
        break;
      }
      if (run.model.findFace(part, token, id)) {
        return abandon("Unexpectedly found a face '" + std::to_string(id) +
                       "' in the location of a boundary.");
      }
      if (run.model.findBody(part, token, id)) {
        return abandon("Unexpectedly found a body '" + std::to_string(id) +
                       "' in the location of a boundary.");
      }
      takeBulkZoneByName(run, region);
    }
  }
  return true;
}

void PlainResolver::takeBulkZoneByName(Run& run, int region) {
  const std::string& name = table_.regionNames.at(region);
  if (!holds(run.bulkZoneByName, name)) {
    return;
  }
  const int zone = run.bulkZoneByName.at(name);
  table_.regionBulkZones[region].push_back(zone);
  if (holds(run.regionByBulkZone, zone)) {
    table_.regionDomains[region] = run.regionByBulkZone.at(zone);
  }
}

}  // namespace velto::testing
