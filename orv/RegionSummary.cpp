// SPDX-License-Identifier: Apache-2.0
//
// RegionSummary: what settings, resolver and model say of each region, and what is amiss with it.

#include "orv/RegionSummary.h"

#include <fmt/format.h>
#include <set>
#include <utility>

#include "velto/PhysicsRegionResolver.h"

#include "data_access/OrvFileProvider.h"
#include "data_access/OrvUtilities.h"

#include "orv/region_views.h"
#include "orv/shown_name.h"

namespace velto::orv {

namespace {

/// Reads one region after the other.
class RegionReader {
 public:
  RegionReader(OrvFileProvider& provider, const OrvLocationModel* model, RegionSummary& summary)
      : provider_(provider), model_(model), summary_(summary), resolver_(&provider) {}

  void read() {
    if (model_ != nullptr) {
      model_->getParts(parts_);
      resolve();
    }
    for (const KindOfRegion& kind : kKindsOfRegion) {
      const std::vector<std::string> names =
          provider_.getSettings(dataClassCase, std::string(kind.more), 1);
      std::set<std::string> seen;
      for (const std::string& name : names) {
        if (seen.insert(name).second) {
          readObject(kind, name);
        }
      }
    }
  }

 private:
  using ListQuery = bool (PhysicsRegionResolver::*)(const std::string&, std::vector<int>&) const;

  void note(bool isError, const std::string& name, const std::string& text) {
    summary_.findings.push_back({isError, Finding::About::object, name, text});
  }

  void resolve() {
    summary_.isResolved = resolver_.resolveUsing(model_, &provider_);
    const std::vector<std::string>& errors = resolver_.getErrors();
    summary_.model.errors.insert(summary_.model.errors.end(), errors.begin(), errors.end());
  }

  std::string settingOf(const KindOfRegion& kind, const std::string& name,
                        const char* attribute) const {
    return provider_
        .getSettings(dataClassCase, fmt::format("{}/{}/{}", kind.more, name, attribute), 1)
        .asString();
  }

  bool isRegion(const KindOfRegion& kind, const std::string& name) const {
    return resolver_.regionIsOfType(name, std::string(kind.one));
  }

  std::optional<std::vector<int>> list(ListQuery query, const std::string& name) const {
    std::vector<int> ids;
    return (resolver_.*query)(name, ids) ? std::optional(std::move(ids)) : std::nullopt;
  }

  void readObject(const KindOfRegion& kind, const std::string& name) {
    if (isRegion(kind, name)) {
      readRegion(kind, name);
    } else {
      noteNoRegion(kind, name);
    }
  }

  /// Tells why a physics object is no region.
  void noteNoRegion(const KindOfRegion& kind, const std::string& name) {
    const std::string object = fmt::format("{} {}", kind.one, shownName(name));
    if (kind.one == kInterface.one) {
      for (const char* attribute : {"boundariesSide1", "boundariesSide2"}) {
        const std::string side = settingOf(kind, name, attribute);
        if (side.empty()) {
          note(false, name, fmt::format("{} has no {}", object, attribute));
          return;
        }
        if (!isRegion(kBoundary, side)) {
          note(true, name,
               fmt::format("{} has {} {}, but no boundary goes by that name", object, attribute,
                           shownName(side)));
          return;
        }
      }
    } else if (settingOf(kind, name, "location").empty()) {
      note(false, name, object + " has no location");
      return;
    }
    for (const KindOfRegion& other : kKindsOfRegion) {
      if (isRegion(other, name)) {
        note(false, name,
             fmt::format("{} is hidden: the {} of the same name answers to it", object, other.one));
      }
    }
  }

  void readRegion(const KindOfRegion& kind, const std::string& name) {
    Region region;
    region.kind = kind.one;
    region.name = name;
    resolver_.regionLocation(name, region.location);
    resolver_.sideOf(name, 0, region.sides[0]);
    resolver_.sideOf(name, 1, region.sides[1]);
    if (region.kind != kInterface.one) {
      readPlaces(region);
      region.statedDomain = settingOf(kind, name, "domain");
    }
    if (summary_.isResolved) {
      readResolved(region);
    }
    summary_.regions.push_back(std::move(region));
  }

  void readResolved(Region& region) const {
    std::string domain;
    if (resolver_.bounding(region.name, domain)) {
      region.domain = domain;
    }
    resolver_.boundedBy(region.name, region.boundaries);
    region.bodies = list(&PhysicsRegionResolver::bodies, region.name);
    region.faceUses = list(&PhysicsRegionResolver::faceUses, region.name);
    region.bulkZones = list(&PhysicsRegionResolver::bulkZones, region.name);
    region.zoneSides = list(&PhysicsRegionResolver::zoneSides, region.name);
    std::vector<int> cellNodeZones;
    std::vector<int> otherZones;
    if (resolver_.cellZones(region.name, cellNodeZones, otherZones)) {
      region.cellNodeZones = std::move(cellNodeZones);
      region.otherCellZones = std::move(otherZones);
    }
  }

  void readPlaces(Region& region) const {
    std::vector<std::string> names;
    OrvUtilities::splitString(region.location, names, true, ',');
    for (std::string& name : names) {
      NameInLocation found;
      for (auto part = parts_.begin(); part != parts_.end() && found.place.kind == PlaceKind::none;
           ++part) {
        found.place = findPlace(*model_, *part, name, placesFor(region));
        found.part = *part;
      }
      found.name = std::move(name);
      region.names.push_back(std::move(found));
    }
  }

  OrvFileProvider& provider_;
  const OrvLocationModel* model_;
  RegionSummary& summary_;
  PhysicsRegionResolver resolver_;
  std::vector<int> parts_;
};

void indexZones(RegionSummary& summary) {
  for (const auto& [id, zone] : summary.model.zones) {
    summary.zonesByName.emplace(zone.name, id);
  }
  for (const auto& [id, body] : summary.model.bodies) {
    for (const int zone : body.zones.value_or(std::vector<int>())) {
      summary.bodiesByZone.emplace(zone, id);
    }
  }
  for (const auto& [id, use] : summary.model.faceUses) {
    for (const int side : use.zoneSides.value_or(std::vector<int>())) {
      summary.faceUsesByZone.emplace(zoneOfSide(side), id);
    }
  }
}

// --- What is amiss ------------------------------------------------------------------------------

void judgeDomain(const Region& region, const std::set<std::string>& domains,
                 std::vector<Finding>& findings) {
  if (region.statedDomain.empty()) {
    return;
  }
  const std::string object = regionWords(region);
  if (domains.count(region.statedDomain) == 0) {
    findings.push_back({true, Finding::About::object, region.name,
                        fmt::format("{} names the domain {}, but no domain goes by that name",
                                    object, shownName(region.statedDomain))});
  } else if (region.domain && *region.domain != region.statedDomain) {
    findings.push_back({false, Finding::About::object, region.name,
                        fmt::format("{} names the domain {}, but lies in {}", object,
                                    shownName(region.statedDomain), shownName(*region.domain))});
  }
}

void judgePlaces(RegionSummary& summary) {
  bool isExplained = summary.isResolved || !summary.model.errors.empty();
  for (const Region& region : summary.regions) {
    for (const NameInLocation& name : region.names) {
      if (counts(summary, region, name)) {
        continue;
      }
      const bool endsResolving = isMisplaced(name.place, placesFor(region));
      isExplained = isExplained || endsResolving;
      summary.findings.push_back(
          {true, endsResolving ? Finding::About::resolving : Finding::About::place, region.name,
           fmt::format("{}: {}: {}", regionWords(region), shownName(name.name),
                       placeWords(summary, region, name))});
    }
  }
  if (!isExplained) {
    summary.findings.push_back(
        {true, Finding::About::resolving, "",
         "no region is resolved: a zone that is no cell zone lists the nodes of cells"});
  }
}

void judgeDomains(RegionSummary& summary) {
  std::set<std::string> domains;
  for (const Region& region : summary.regions) {
    if (region.kind == kDomain.one) {
      domains.insert(region.name);
    }
  }
  for (const Region& region : summary.regions) {
    judgeDomain(region, domains, summary.findings);
  }
}

}  // namespace

bool counts(const RegionSummary& summary, const Region& region, const NameInLocation& name) {
  if (name.place.kind == PlaceKind::composite) {
    const CompositeOfModel& composite = summary.model.composites.at(name.place.id);
    return !(isVolume(region) ? composite.bodies : composite.faceUses).empty();
  }
  if (name.place.kind != PlaceKind::none) {
    return !isMisplaced(name.place, placesFor(region));
  }
  if (isVolume(region)) {
    return false;
  }
  // A boundary with the name of a zone inside a body lies there, whatever its location says.
  if (summary.isResolved) {
    return region.bulkZones && !region.bulkZones->empty();
  }
  const auto zone = summary.zonesByName.find(region.name);
  return zone != summary.zonesByName.end() && summary.bodiesByZone.count(zone->second) != 0;
}

RegionSummary readRegions(OrvFileProvider& provider, ModelOfCase& model) {
  RegionSummary summary;
  summary.model = std::move(model.summary);
  indexZones(summary);
  RegionReader(provider, model.model, summary).read();
  if (model.model != nullptr) {
    judgePlaces(summary);
  }
  judgeDomains(summary);
  return summary;
}

}  // namespace velto::orv
