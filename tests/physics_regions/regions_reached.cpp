// SPDX-License-Identifier: Apache-2.0
//
// What random physics objects bring about: read off messages, tables, results and calls.

#include "tests/physics_regions/regions_reached.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <vector>

namespace velto::testing {

namespace {

/// A message without the name or the number in it.
std::string withoutName(const std::string& message) {
  const std::size_t open = message.find('\'');
  const std::size_t close = message.find('\'', open + 1);
  return open == std::string::npos || close == std::string::npos
             ? message
             : message.substr(0, open + 1) + message.substr(close);
}

bool isIn(const std::vector<int>& list, int value) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

bool hasTwice(std::vector<int> list) {
  std::sort(list.begin(), list.end());
  return std::adjacent_find(list.begin(), list.end()) != list.end();
}

/// The entry of a region; one that is as good as none if there is none.
template <class Entry>
const Entry& entryOf(const std::map<int, Entry>& entries, int region) {
  static const Entry kNone{};
  const auto found = entries.find(region);
  return found == entries.end() ? kNone : found->second;
}

/// Collects what one case brings about.
class Reached {
 public:
  Things things;

  void lookAtNames(const RegionTable& table) {
    for (const auto& [id, name] : table.regionNames) {
      const int last = table.regionIds.at(name);
      const bool isSameKind = table.regionKinds.at(last) == table.regionKinds.at(id);
      note(last != id && isSameKind, "a name stands twice in a kind");
      note(last != id && !isSameKind, "a name stands in two kinds");
      note(name.empty(), "a region has an empty name");
    }
    for (const auto& [id, location] : table.regionLocations) {
      note(location.find_first_not_of(" ,") == std::string::npos, "a location has no names");
    }
    for (const auto& [id, sides] : table.interfaceSides) {
      note(sides.first == sides.second, "an interface has one boundary on both sides");
      note(table.regionIds.at(table.regionNames.at(sides.first)) != sides.first,
           "an interface has the name of a boundary of another");
    }
    note(!table.regionDomains.empty(), "a domain is named before resolving");
  }

  void lookAtTable(const RegionTable& table) {
    for (const auto& [region, kind] : table.regionKinds) {
      if (kind == regionKindDomain || kind == regionKindSubdomain) {
        lookAtVolume(table, region);
      } else if (kind == regionKindBoundary) {
        lookAtBoundary(table, region);
      }
    }
  }

  void lookAtCalls(const Transcript& calls, const RandomResolving& resolving) {
    std::map<std::string, int> counts;
    std::string firstPart;
    for (std::size_t i = 0; i < calls.size(); ++i) {
      const std::string operation = operationOf(calls[i]);
      ++counts[operation];
      const std::string before = i < 2 ? "" : operationOf(calls[i - 2]);
      note(operation == "resolveComposite" && before == "findBody",
           "a composite in the location of a domain or subdomain");
      note(operation == "resolveComposite" && before == "findFaceUse",
           "a composite in the location of a boundary");
      const std::string after = i + 1 < calls.size() ? operationOf(calls[i + 1]) : "";
      const std::string part = calls[i].substr(0, calls[i].find(','));
      if (operation == "findBody" && firstPart.empty()) {
        firstPart = part;
      }
      note(operation == "findBody" && part != firstPart && after == "getMeshId",
           "a body in a later part");
    }
    for (const ModelRefusal& refusal : resolving.refusals) {
      note(counts[refusal.call] >= std::max(refusal.nth, 1),
           refusal.call + (refusal.isDenied ? " is denied" : " is refused"));
    }
    note(resolving.move && counts["getMeshId"] >= resolving.move->nth, "the mesh moves");
  }

  void lookAtResolving(const WatchedResolving* before, const WatchedResolving& resolving) {
    const bool hadSome = before != nullptr && !before->table.regionBodies.empty();
    const bool hasSome = !resolving.table.regionBodies.empty();
    if (resolving.good) {
      note(hadSome && tableText(before->table) != tableText(resolving.table),
           "a resolving gives something else than that before");
    } else if (!resolving.errors.empty()) {
      note(hadSome && hasSome, "an earlier result stays");
    } else if (resolving.err.empty()) {
      note(true, "cells of no cell zone list nodes");
    } else {
      note(hadSome && !hasSome, "an earlier result goes when a resolving is abandoned");
      things.insert(withoutName(resolving.err));
    }
  }

  void lookAtErrors(const Texts& errors) {
    for (const std::string& error : errors) {
      things.insert(withoutName(error));
    }
  }

  void lookAtAnswers(const Texts& answers, const std::string& when) {
    for (const std::string& answer : answers) {
      const std::size_t end = answer.find(' ', answer.find(": ") + 2);
      things.insert(when + " " + answer.substr(0, end));
    }
  }

 private:
  void note(bool isSo, const std::string& thing) {
    if (isSo) {
      things.insert(thing);
    }
  }

  void lookAtVolume(const RegionTable& table, int region) {
    const bool isDomain = table.regionKinds.at(region) == regionKindDomain;
    const bool isResolved = table.regionBodies.count(region) != 0;
    const std::vector<int>& bodies = entryOf(table.regionBodies, region);
    const auto& cellZones = entryOf(table.regionCellZones, region);
    const bool hasSides = table.regionZoneSides.count(region) != 0;
    note(isResolved && bodies.empty(), "a location comes to no bodies");
    note(hasTwice(bodies), "a body stands twice in a region");
    note(hasSides && table.regionZoneSides.at(region).empty(), "bodies have no zone sides");
    note(hasTwice(cellZones.first), "a cell zone stands twice in a region");
    note(!cellZones.first.empty() && !cellZones.second.empty(), "cell zones of both groups");
    const bool hasDomain = table.regionDomains.count(region) != 0;
    note(!isDomain && hasDomain, "a subdomain lies in a domain");
    note(!isDomain && !hasDomain && !bodies.empty(),
         "the first body of a subdomain is in no domain");
    for (const auto& [other, otherBodies] : table.regionBodies) {
      const bool isOther = other > region;
      const bool sharesBody = isOther && !bodies.empty() && isIn(otherBodies, bodies.front());
      note(sharesBody && isDomain && table.regionKinds.at(other) == regionKindDomain,
           "two domains share a body");
      const std::vector<int>& bulk = entryOf(table.regionBulkZones, region);
      note(isOther && !bulk.empty() && isIn(entryOf(table.regionBulkZones, other), bulk.front()),
           "two regions share a bulk zone");
    }
  }

  void lookAtBoundary(const RegionTable& table, int region) {
    const std::vector<int>& uses = entryOf(table.regionFaceUses, region);
    const std::vector<int>& bulk = entryOf(table.regionBulkZones, region);
    const auto domain = table.regionDomains.find(region);
    const bool hasDomain = domain != table.regionDomains.end();
    note(!bulk.empty(), "a boundary finds its bulk zone by name");
    note(bulk.size() > 1, "a boundary finds its bulk zone more than once");
    note(hasTwice(uses), "a face use stands twice in a boundary");
    note(!uses.empty() && !hasDomain, "the face uses of a boundary are in no domain");
    note(!uses.empty() && hasDomain, "the face uses of a boundary are in a domain");
    if (bulk.empty()) {
      return;
    }
    int last = -1;  // the region that met the bulk zone last
    for (const auto& [other, zones] : table.regionBulkZones) {
      if (table.regionKinds.at(other) != regionKindBoundary && isIn(zones, bulk.front())) {
        last = other;
      }
    }
    note(hasDomain && table.regionKinds.at(last) == regionKindSubdomain && domain->second == last,
         "a boundary lies in a subdomain through its bulk zone");
    note(hasDomain && domain->second != last, "a face use overrides the domain of a bulk zone");
  }
};

}  // namespace

const Things& thingsToReach() {
  static const Things kThings = {
      // Errors.
      "Mesh Model is not valid as it doesn't contain any zones.",
      "Location Model is not valid as it doesn't contain any parts.",
      "Region '' not found.",
      "Region '' is not defined by Bodies.",
      "Region '' is not defined by face uses.",
      "Region '' does not require a bulk face zone.",
      "Region '' cannot be resolve to face zone sides.",
      "Region '' cannot be resolved to cell zones.",
      "Region '' doesn't have a location.",
      "Region '' is not associated with a domain.",
      "Region '' is not a valid interface.",
      "Type '' is invalid.",
      "This case doesn't contain any physics regions.",
      // On standard error.
      "Unexpectedly found a face '' in the location of a domain.\n",
      "Unexpectedly found a face '' in the location of a subdomain.\n",
      "Unexpectedly found a face '' in the location of a boundary.\n",
      "Unexpectedly found a face use '' in the location of a domain.\n",
      "Unexpectedly found a face use '' in the location of a subdomain.\n",
      "Unexpectedly found a body '' in the location of a boundary.\n",
      // Settings.
      "a name stands twice in a kind",
      "a name stands in two kinds",
      "a region has an empty name",
      "a location has no names",
      "an interface has one boundary on both sides",
      "an interface has the name of a boundary of another",
      "a domain is named before resolving",
      // Domains and subdomains.
      "a location comes to no bodies",
      "a body stands twice in a region",
      "bodies have no zone sides",
      "a cell zone stands twice in a region",
      "cell zones of both groups",
      "a subdomain lies in a domain",
      "the first body of a subdomain is in no domain",
      "two domains share a body",
      "two regions share a bulk zone",
      // Boundaries.
      "a boundary finds its bulk zone by name",
      "a boundary finds its bulk zone more than once",
      "a face use stands twice in a boundary",
      "the face uses of a boundary are in no domain",
      "the face uses of a boundary are in a domain",
      "a boundary lies in a subdomain through its bulk zone",
      "a face use overrides the domain of a bulk zone",
      // Models, and several resolvings.
      "a composite in the location of a domain or subdomain",
      "a composite in the location of a boundary",
      "a body in a later part",
      "a resolving gives something else than that before",
      "an earlier result stays",
      "an earlier result goes when a resolving is abandoned",
      "cells of no cell zone list nodes",
      // Misbehaviour.
      "the mesh moves",
      "findBody is denied",
      "findBody is refused",
      "findComposite is denied",
      "findComposite is refused",
      "findFace is denied",
      "findFace is refused",
      "findFaceUse is denied",
      "findFaceUse is refused",
      "getBodyBoundary is denied",
      "getBodyBoundary is refused",
      "getBodyZones is denied",
      "getBodyZones is refused",
      "getFaceUseZoneSides is denied",
      "getFaceUseZoneSides is refused",
      "getParts is denied",
      "getParts is refused",
      "resolveComposite is denied",
      "resolveComposite is refused",
      // Answers.
      "before bounding: true",
      "before regionLocation: true",
      "before sideOf 0: true",
      "before sideOf 1: true",
      "before regionIsOfType domain: true",
      "before regionIsOfType boundary: true",
      "before regionIsOfType subdomain: true",
      "before regionIsOfType interface: true",
      "after bodies: true",
      "after faceUses: true",
      "after bulkZones: true",
      "after zoneSides: true",
      "after cellZones: true",
      "after bounding: true",
      "after boundedBy: true",
  };
  return kThings;
}

Things thingsReached(const RandomRegions& drawn, const Watched& watched) {
  Reached reached;
  reached.lookAtNames(watched.table);
  reached.lookAtAnswers(watched.answersBefore, "before");
  const WatchedResolving* before = nullptr;
  for (std::size_t i = 0; i < drawn.resolvings.size(); ++i) {
    const WatchedResolving& resolving = watched.resolvings[i];
    if (resolving.good) {
      reached.lookAtTable(resolving.table);
    }
    reached.lookAtCalls(resolving.calls, drawn.resolvings[i]);
    reached.lookAtResolving(before, resolving);
    before = &resolving;
  }
  reached.lookAtAnswers(watched.answersAfter, "after");
  reached.lookAtErrors(watched.errors);
  return reached.things;
}

}  // namespace velto::testing
