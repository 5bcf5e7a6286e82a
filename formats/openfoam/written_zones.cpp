// SPDX-License-Identifier: Apache-2.0
//
// Zones of a case as zones of a polyMesh: pieces are joined, then names and types are found.

#include "formats/openfoam/written_zones.h"

#include <algorithm>
#include <map>

#include "formats/openfoam/foam_words.h"
#include "formats/openfoam/patch_types.h"

namespace velto::openfoam {

namespace {

/// Zones that become one, by the name that they have together.
struct Group {
  std::string name;
  std::vector<std::size_t> zones;
};

class Planner {
 public:
  Planner(const MeshToWrite& mesh, const base::MeshTables& tables, const KeptSettings& settings)
      : mesh_(mesh), tables_(tables), settings_(settings) {}

  WrittenZones run() {
    addPatches();
    addFaceZones();
    addCellZones();
    return std::move(result_);
  }

 private:
  const FaceZoneToWrite& zone(std::size_t place) const { return mesh_.faceZones[place]; }

  /// Joins the zones for which `wholeOf` gives the name of a whole that is not theirs.
  template <class Takes, class WholeOf>
  std::vector<Group> joined(const Takes& takes, const WholeOf& wholeOf) const {
    std::vector<Group> groups;
    std::map<std::string, std::size_t> wholes;
    for (std::size_t place = 0; place < mesh_.faceZones.size(); ++place) {
      if (!takes(zone(place))) {
        continue;
      }
      const std::string& whole = wholeOf(zone(place).name);
      std::size_t group = groups.size();
      if (whole != zone(place).name) {
        group = wholes.emplace(whole, group).first->second;
      }
      if (group == groups.size()) {
        groups.push_back({whole, {}});
      }
      groups[group].zones.push_back(place);
    }
    return groups;
  }

  /// The names in `kind`, as words; `zones` says which zone each is of.
  std::vector<std::string> words(const std::vector<std::string>& names,
                                 const std::vector<int>& zones, const std::string& kind) {
    std::vector<std::string> words = foamWords(names);
    for (std::size_t i = 0; i < words.size(); ++i) {
      if (words[i] != names[i]) {
        result_.warnings.push_back(shownZone(zones[i], names[i]) + ": written as " + kind + " '" +
                                   words[i] + "'");
      }
    }
    return words;
  }

  std::vector<std::string> words(const std::vector<Group>& groups, const std::string& kind) {
    std::vector<std::string> names;
    std::vector<int> zones;
    for (const Group& group : groups) {
      names.push_back(group.name);
      zones.push_back(zone(group.zones.front()).id);
    }
    return words(names, zones, kind);
  }

  void addPatches() {
    const auto groups =
        joined([](const FaceZoneToWrite& zone) { return !zone.isInternal; },
               [this](const std::string& name) -> auto& { return settings_.patchOf(name); });
    const std::vector<std::string> names = words(groups, "patch");
    std::vector<PatchToType> patches;
    for (std::size_t i = 0; i < groups.size(); ++i) {
      WrittenPatch patch;
      patch.name = names[i];
      patch.zones = groups[i].zones;
      for (const std::size_t place : patch.zones) {
        patch.faceCount += zone(place).count;
      }
      result_.patches.push_back(std::move(patch));
      PatchToType& typed = patches.emplace_back();
      typed.keptName = groups[i].name;
      for (const std::size_t place : groups[i].zones) {
        typed.zones.push_back(zone(place).id);
      }
    }
    findTypes(patches, tables_, settings_, result_);
  }

  void addFaceZones() {
    const auto groups = joined(
        [this](const FaceZoneToWrite& zone) {
          return zone.isInternal && !settings_.isInterior(zone.name);
        },
        [this](const std::string& name) -> auto& { return settings_.faceZoneOf(name); });
    const std::vector<std::string> names = words(groups, "face zone");
    for (std::size_t i = 0; i < groups.size(); ++i) {
      result_.faceZones.push_back({names[i], groups[i].zones});
    }
    for (const auto& [name, count] : settings_.lostBoundaryFaces()) {
      std::string& warning = result_.warnings.emplace_back("face zone '");
      warning.append(name).append("': ").append(count);
      warning += " faces of patches that it had are not in it";
    }
  }

  /// Whether the cells of a zone are those that the reader found in no cell zone.
  bool isRest(std::size_t place) const {
    const std::vector<ZoneToWrite>& zones = mesh_.cellZones;
    if (zones.size() == 1) {
      return zones[place].name == "cells";
    }
    return place + 1 == zones.size() && zones[place].name == "default";
  }

  void addCellZones() {
    std::vector<std::string> names;
    std::vector<int> ids;
    for (std::size_t place = 0; place < mesh_.cellZones.size(); ++place) {
      const ZoneToWrite& zone = mesh_.cellZones[place];
      if (!isRest(place)) {
        result_.cellZones.push_back({zone.name, zone.firstId - 1, zone.count});
        names.push_back(zone.name);
        ids.push_back(zone.id);
      }
    }
    const std::vector<std::string> written = words(names, ids, "cell zone");
    for (std::size_t i = 0; i < written.size(); ++i) {
      result_.cellZones[i].name = written[i];
    }
    for (const std::string& name : settings_.emptyCellZones()) {
      const bool isThere =
          std::any_of(mesh_.cellZones.begin(), mesh_.cellZones.end(),
                      [&name](const ZoneToWrite& zone) { return zone.name == name; });
      if (!isThere && foamWord(name) == name) {
        result_.cellZones.push_back({name, 0, 0});
      }
    }
  }

  const MeshToWrite& mesh_;
  const base::MeshTables& tables_;
  const KeptSettings& settings_;
  WrittenZones result_;
};

}  // namespace

WrittenZones zonesToWrite(const MeshToWrite& mesh, const base::MeshTables& tables,
                          const KeptSettings& settings) {
  return Planner(mesh, tables, settings).run();
}

}  // namespace velto::openfoam
