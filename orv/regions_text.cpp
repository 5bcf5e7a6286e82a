// SPDX-License-Identifier: Apache-2.0
//
// Physics regions as tables, one for each kind; and a single region with what led to it.

#include <algorithm>
#include <fmt/format.h>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "orv/TextTable.h"
#include "orv/model_views.h"
#include "orv/near_name.h"
#include "orv/region_views.h"
#include "orv/shown_name.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

using Ids = std::optional<std::vector<int>>;
using Row = std::vector<std::string>;

template <class WordOf>
std::string listed(const Ids& ids, WordOf wordOf) {
  return ids ? joined(*ids, ", ", wordOf) : "-";
}

/// A cell of a table, or a line of an explanation, for one sort of places.
class PlaceLists {
 public:
  explicit PlaceLists(const ModelSummary& model) : model_(model) {}

  std::string bodies(const Region& region) const {
    return listed(region.bodies, [this](int id) { return bodyWord(model_, id); });
  }
  std::string faceUses(const Region& region) const {
    return listed(region.faceUses, [this](int id) { return faceUseWord(model_, id); });
  }
  std::string zones(const Ids& zones) const {
    return listed(zones, [this](int id) { return zoneWords(model_, id); });
  }
  std::string zoneSides(const Region& region) const {
    return listed(region.zoneSides, [this](int side) { return zoneSideWords(model_, side); });
  }

 private:
  const ModelSummary& model_;
};

std::string namesWord(const RegionSummary& summary, const Region& region) {
  const bool isLookedUp = summary.model.origin != ModelOrigin::none;
  return joined(region.names, ", ", [&](const NameInLocation& name) {
    const bool isLost = isLookedUp && !counts(summary, region, name);
    return shownName(name.name) + (isLost ? " (?)" : "");
  });
}

std::string domainWord(const Region& region) {
  return region.domain ? shownName(*region.domain) : "-";
}

Ids allCellZones(const Region& region) {
  Ids zones = region.cellNodeZones;
  if (zones && region.otherCellZones) {
    zones->insert(zones->end(), region.otherCellZones->begin(), region.otherCellZones->end());
  }
  return zones;
}

std::vector<TextTable::Column> headings(std::string_view kind) {
  std::vector<TextTable::Column> columns = {{std::string(kind)}};
  const auto add = [&columns](std::initializer_list<const char*> more) {
    for (const char* heading : more) {
      columns.push_back({heading});
    }
  };
  if (kind == kInterface.one) {
    add({"side 1", "side 2"});
    return columns;
  }
  add({"location"});
  if (kind != kDomain.one) {
    add({"domain"});
  }
  if (kind == kBoundary.one) {
    add({"face uses", "zone sides", "bulk zones"});
  } else {
    add({"bodies", "cell zones", "bulk zones", "zone sides"});
  }
  return columns;
}

Row rowOf(const RegionSummary& summary, const Region& region) {
  Row row = {shownName(region.name)};
  if (region.kind == kInterface.one) {
    row.push_back(shownName(region.sides[0]));
    row.push_back(shownName(region.sides[1]));
    return row;
  }
  const PlaceLists lists(summary.model);
  row.push_back(namesWord(summary, region));
  if (region.kind != kDomain.one) {
    row.push_back(domainWord(region));
  }
  if (region.kind == kBoundary.one) {
    row.push_back(lists.faceUses(region));
    row.push_back(lists.zoneSides(region));
    row.push_back(lists.zones(region.bulkZones));
  } else {
    row.push_back(lists.bodies(region));
    row.push_back(lists.zones(allCellZones(region)));
    row.push_back(lists.zones(region.bulkZones));
    row.push_back(lists.zoneSides(region));
  }
  return row;
}

std::string headText(const ModelSummary& model) {
  return shownText(model.file) + "\n" +
         (model.origin == ModelOrigin::none ? "" : "  " + originWords(model) + "\n");
}

// --- One region ---------------------------------------------------------------------------------

/// Whether a name may be misspelt.
bool isUnknown(const RegionSummary& summary, const Region& region, const NameInLocation& name) {
  return name.place.kind == PlaceKind::none && !counts(summary, region, name);
}

std::string nearWords(const std::string& name, const std::vector<std::string>& places) {
  Row near = nearNames(name, places);
  std::transform(near.begin(), near.end(), near.begin(), shownName);
  return near.empty() ? "" : fmt::format("; did you mean {}?", fmt::join(near, " or "));
}

/// The zones of a body or the zone sides of a face use that a name stands for.
std::string zonesOfPlace(const RegionSummary& summary, const Region& region,
                         const NameInLocation& name) {
  const ModelSummary& model = summary.model;
  if (!counts(summary, region, name)) {
    return "";
  }
  switch (name.place.kind) {
    case PlaceKind::body: {
      BodyZoneWords words = bodyZoneWords(model, model.bodies.at(name.place.id));
      words.zones.insert(words.zones.end(), words.takenIn.begin(), words.takenIn.end());
      return ": " + joined(words.zones, ", ");
    }
    case PlaceKind::faceUse:
      return ": " + joined(faceUseZoneWords(model, model.faceUses.at(name.place.id)), ", ");
    case PlaceKind::composite:
    case PlaceKind::face:
    case PlaceKind::none:
      break;
  }
  return "";
}

std::string placesText(const RegionSummary& summary, const Region& region) {
  TextTable table(std::vector<TextTable::Column>(2));
  std::vector<std::string> places;  // Gathered for the first name that needs them.
  for (const NameInLocation& name : region.names) {
    std::string words = placeWords(summary, region, name) + zonesOfPlace(summary, region, name);
    if (isUnknown(summary, region, name)) {
      if (places.empty()) {
        places = namesOfPlaces(summary, region);
      }
      words += nearWords(name.name, places);
    }
    table.addRow({shownName(name.name), words});
  }
  return table.text("    ");
}

/// Where the domain of a boundary comes from.
std::string domainWords(const RegionSummary& summary, const Region& region) {
  std::string words = domainWord(region);
  if (region.domain) {
    if (region.kind == kSubdomain.one) {
      words += ", which has its first body";
    } else if (region.faceUses) {
      words += ", which has the body of its first face use";
    } else {
      words += ", which takes in its bulk zone";
    }
  } else if (summary.isResolved) {
    words += ", no domain takes it in";
  }
  return words;
}

void addVolumeRows(TextTable& table, const RegionSummary& summary, const Region& region) {
  const PlaceLists lists(summary.model);
  table.addRow({"bodies", lists.bodies(region)});
  if (region.cellNodeZones && !region.cellNodeZones->empty()) {
    table.addRow(
        {"cell zones", lists.zones(region.cellNodeZones) + ", whose cells list their nodes"});
  }
  if (region.otherCellZones && !region.otherCellZones->empty()) {
    table.addRow({"cell zones", lists.zones(region.otherCellZones)});
  }
  table.addRow({"bulk zones", lists.zones(region.bulkZones)});
  table.addRow({"zone sides", lists.zoneSides(region)});
  if (region.kind == kDomain.one) {
    table.addRow({"boundaries", joined(region.boundaries, ", ", shownName)});
  }
}

void addSideRow(TextTable& table, const RegionSummary& summary, const char* side,
                const std::string& boundary) {
  const auto found = std::find_if(summary.regions.begin(), summary.regions.end(),
                                  [&boundary](const Region& region) {
                                    return region.kind == kBoundary.one && region.name == boundary;
                                  });
  const std::string sides =
      found == summary.regions.end() ? "-" : PlaceLists(summary.model).zoneSides(*found);
  table.addRow({side, "boundary " + shownName(boundary), "zone sides " + sides});
}

void addSurfaceRows(TextTable& table, const RegionSummary& summary, const Region& region) {
  const PlaceLists lists(summary.model);
  table.addRow({"face uses", lists.faceUses(region)});
  table.addRow({"zone sides", lists.zoneSides(region)});
  table.addRow({"bulk zones", lists.zones(region.bulkZones)});
}

}  // namespace

std::string regionsText(const RegionSummary& summary) {
  std::string text = headText(summary.model);
  std::vector<std::string> counts;
  for (const KindOfRegion& kind : kKindsOfRegion) {
    TextTable table(headings(kind.one));
    std::size_t count = 0;
    for (const Region& region : summary.regions) {
      if (region.kind == kind.one) {
        table.addRow(rowOf(summary, region));
        ++count;
      }
    }
    counts.push_back(counted(count, kind.one, kind.more));
    text += count == 0 ? "" : "\n" + table.text("");
  }
  return text + fmt::format("\n{}\n", fmt::join(counts, ", "));
}

std::string regionExplained(const RegionSummary& summary, const Region& region) {
  std::string text = headText(summary.model) + "\n" + regionWords(region) + "\n";
  TextTable table(std::vector<TextTable::Column>(3));
  if (region.kind == kInterface.one) {
    addSideRow(table, summary, "side 1", region.sides[0]);
    addSideRow(table, summary, "side 2", region.sides[1]);
    return text + table.text("  ");
  }
  const bool isLookedUp = summary.model.origin != ModelOrigin::none;
  text += isLookedUp ? "  location\n" + placesText(summary, region)
                     : "  location  " + namesWord(summary, region) + "\n";
  if (isVolume(region)) {
    addVolumeRows(table, summary, region);
  } else {
    addSurfaceRows(table, summary, region);
  }
  if (region.kind != kDomain.one) {
    table.addRow({"domain", domainWords(summary, region)});
  }
  return text + table.text("  ");
}

}  // namespace velto::orv
