// SPDX-License-Identifier: Apache-2.0
//
// PlainChecker: the nodes of faces, the nodes and faces of cells, zone by zone and kept in tables.

#include <functional>
#include <string>

#include "tests/checker/PlainChecker.h"

namespace velto::testing {

/// The operations of a family that has counts.
struct PlainChecker::Family {
  std::function<void(std::vector<int>&)> begin;
  std::function<void()> beginCounts;
  std::function<bool(int, short&)> getUniformCount;
  std::function<void(int, short*, std::size_t)> readCounts;
  std::function<void()> endCounts;
  std::function<void()> beginIds;
  std::function<void(int, std::uint64_t*, std::size_t)> readIds;
  std::function<void()> endIds;
  std::function<void()> end;

  static Family ofFaceNodes(OrvProvider& from) {
    return {[&from](auto& zones) { from.beginFaceNodes(zones); },
            [&from] { from.beginFaceNodeCounts(); },
            [&from](int zone, short& count) { return from.getUniformFaceNodeCount(zone, count); },
            [&from](int zone, auto* to, auto n) { from.readFaceNodeCounts(zone, to, n); },
            [&from] { from.endFaceNodeCounts(); },
            [&from] { from.beginFaceNodeIds(); },
            [&from](int zone, auto* to, auto n) { from.readFaceNodeIds(zone, to, n); },
            [&from] { from.endFaceNodeIds(); },
            [&from] { from.endFaceNodes(); }};
  }

  static Family ofCellNodes(OrvProvider& from) {
    return {[&from](auto& zones) { from.beginCellNodes(zones); },
            [&from] { from.beginCellNodeCounts(); },
            [&from](int zone, short& count) { return from.getUniformCellNodeCount(zone, count); },
            [&from](int zone, auto* to, auto n) { from.readCellNodeCounts(zone, to, n); },
            [&from] { from.endCellNodeCounts(); },
            [&from] { from.beginCellNodeIds(); },
            [&from](int zone, auto* to, auto n) { from.readCellNodeIds(zone, to, n); },
            [&from] { from.endCellNodeIds(); },
            [&from] { from.endCellNodes(); }};
  }

  static Family ofCellFaces(OrvProvider& from) {
    return {[&from](auto& zones) { from.beginCellFaces(zones); },
            [&from] { from.beginCellFaceCounts(); },
            [&from](int zone, short& count) { return from.getUniformCellFaceCount(zone, count); },
            [&from](int zone, auto* to, auto n) { from.readCellFaceCounts(zone, to, n); },
            [&from] { from.endCellFaceCounts(); },
            [&from] { from.beginCellFaceIds(); },
            [&from](int zone, auto* to, auto n) { from.readCellFaceIds(zone, to, n); },
            [&from] { from.endCellFaceIds(); },
            [&from] { from.endCellFaces(); }};
  }

  /// The length of a zone's list: `n` elements of one count, or the sum of their counts, which goes
  /// round at 32 bits. Counts are left in `counts` in the second case, and in the first as well if
  /// `everyCount` is set.
  std::uint64_t takeCounts(int zone, std::uint64_t n, bool everyCount,
                           std::vector<short>& counts) const {
    counts.clear();
    if (n == 0) {
      return 0;
    }
    short uniform = 0;
    if (getUniformCount(zone, uniform)) {
      if (everyCount) {
        counts.assign(n, uniform);
      }
      return static_cast<std::uint64_t>(std::int64_t{uniform}) * n;
    }
    counts.assign(n, 0);
    readCounts(zone, counts.data(), n);
    std::uint32_t sum = 0;
    for (const short count : counts) {
      sum += static_cast<std::uint32_t>(int{count});
    }
    return static_cast<std::uint64_t>(std::int64_t{static_cast<std::int32_t>(sum)});
  }
};

namespace {

constexpr int kInconsistent = 1;
constexpr int kCellNode = 3;
constexpr int kCellFace = 4;

}  // namespace

// --- Zone by zone -------------------------------------------------------------------------------

void PlainChecker::checkFaceConnectivity() {
  displayStep("checkFaceConnectivity", "init");
  const Family family = Family::ofFaceNodes(*provider_);
  const std::uint64_t nodes = meshSize(meshNodeCount);
  const std::vector<int> faceZones = zonesOf(zoneCategoryFace);
  std::vector<int> listed;
  family.begin(listed);
  if (listed.size() != faceZones.size()) {
    addWarning("Not all face zones define node connectivity");
  }
  displayStep("checkFaceConnectivity", "node counts");
  family.beginCounts();
  std::vector<std::uint64_t> lengths;
  for (const int zone : listed) {
    std::vector<short> counts;
    lengths.push_back(family.takeCounts(zone, zoneSize(zone, zoneElementCount), false, counts));
  }
  family.endCounts();
  displayStep("checkFaceConnectivity", "node ids");
  family.beginIds();
  std::uint64_t bad = 0;
  for (std::size_t i = 0; i < listed.size(); ++i) {
    bad += badIds("node", family, listed[i], lengths[i], nodes);
  }
  family.endIds();
  checkORVErrors();
  if (bad != 0) {
    addError("Face node ids out of node id range");
  }
  family.end();
  checkORVErrors();
}

/// Reads the list of a zone; how many ids of it are not in 1 to `highest`.
std::uint64_t PlainChecker::badIds(const std::string& word, const Family& family, int zone,
                                   std::uint64_t length, std::uint64_t highest) {
  std::vector<std::uint64_t> ids(length, 0);
  family.readIds(zone, ids.data(), ids.size());
  std::uint64_t bad = 0;
  for (std::uint64_t j = 0; j < ids.size(); ++j) {
    if (ids[j] >= 1 && ids[j] <= highest) {
      continue;
    }
    if (verbosity_ >= 3) {
      err_ << "zone " << zone << "bad " << word << " #" << j << " = " << ids[j] << "\n";
    }
    ++bad;
  }
  return bad;
}

void PlainChecker::checkCellConnectivity() {
  displayStep("checkCellConnectivity", "init");
  const std::uint64_t nodes = meshSize(meshNodeCount);
  const std::uint64_t faces = meshSize(meshFaceCount);
  const std::vector<int> cellZones = zonesOf(zoneCategoryCell);
  checkListsOfKind(kCellNode, cellZones, nodes);
  checkListsOfKind(kCellFace, cellZones, faces);
  if (standsIn(kinds_, kInconsistent)) {
    addError("Cell-zones: Inconsistency in cell zone definitions");
  }
}

void PlainChecker::checkListsOfKind(int kind, const std::vector<int>& cellZones,
                                    std::uint64_t highest) {
  const bool isOfNodes = kind == kCellNode;
  const std::string word = isOfNodes ? "node" : "face";
  const Family family =
      isOfNodes ? Family::ofCellNodes(*provider_) : Family::ofCellFaces(*provider_);
  std::vector<int> listed;
  family.begin(listed);
  if (isOfNodes) {  // Kept: the cell-face pass counts under the step before it.
    displayStep("checkCellConnectivity", "node counts");
  }
  family.beginCounts();
  std::vector<std::uint64_t> lengths(cellZones.size(), 0);
  for (std::size_t i = 0; i < cellZones.size(); ++i) {
    if (i < kinds_.size() && kinds_[i] == kind && standsIn(listed, cellZones[i])) {
      std::vector<short> counts;
      const std::uint64_t n = zoneSize(cellZones[i], zoneElementCount);
      lengths[i] = family.takeCounts(cellZones[i], n, false, counts);
    }
  }
  family.endCounts();
  displayStep("checkCellConnectivity", word + " ids");
  family.beginIds();
  std::uint32_t bad = 0;  // Kept: 32 bits here, 64 for the nodes of faces.
  for (std::size_t i = 0; i < cellZones.size(); ++i) {
    if (lengths[i] != 0) {
      bad += static_cast<std::uint32_t>(badIds(word, family, cellZones[i], lengths[i], highest));
    }
  }
  family.endIds();
  if (bad != 0) {
    addError(isOfNodes ? "Cell node ids out of node id range"
                       : "Cell face ids out of face id range");
  }
  family.end();
}

// --- Kept in tables -----------------------------------------------------------------------------

bool PlainChecker::readFaceNodes() {
  displayStep("readFaceNodes", "init");
  const std::uint64_t total = meshSize(meshFaceCount);
  return readNodes("Face", Family::ofFaceNodes(*provider_), total, zonesOf(zoneCategoryFace),
                   faces_);
}

bool PlainChecker::readCellNodes() {
  displayStep("readCellNodes", "init");
  const std::uint64_t total = meshSize(meshCellCount);
  return readNodes("Cell", Family::ofCellNodes(*provider_), total, zonesOf(zoneCategoryCell),
                   cells_);
}

/// `zones` is the list that is handed to the family, which replaces it.
bool PlainChecker::readNodes(const std::string& word, const Family& family, std::uint64_t total,
                             std::vector<int> zones, NodeTable& table) {
  const std::string step = "read" + word + "Nodes";
  family.begin(zones);
  displayStep(step, "node counts");
  family.beginCounts();
  std::vector<std::uint64_t> lengths(zones.size(), 0);
  std::vector<std::vector<short>> counts(zones.size());
  for (std::size_t i = 0; i < zones.size(); ++i) {
    const std::uint64_t n = zoneSize(zones[i], zoneElementCount);
    lengths[i] = family.takeCounts(zones[i], n, true, counts[i]);
  }
  family.endCounts();
  table.lists.clear();
  for (const std::uint64_t length : lengths) {
    table.lists.emplace_back(length, 0);
  }
  displayStep(step, "node ids");
  family.beginIds();
  for (std::size_t i = 0; i < zones.size(); ++i) {
    family.readIds(zones[i], table.lists[i].data(), table.lists[i].size());
  }
  family.endIds();
  family.end();
  displayStep(step, word == "Face" ? "face index" : "cell index");
  table.counts.assign(total, 0);
  table.zones.assign(total, 0);
  table.cursors.assign(total, 0);
  std::uint64_t position = 0;
  for (std::size_t i = 0; i < zones.size(); ++i) {
    if (!indexZone(word == "Face" ? "face" : "cell", i, counts[i], position, table)) {
      return false;
    }
  }
  return true;
}

bool PlainChecker::indexZone(const std::string& word, std::size_t zone,
                             const std::vector<short>& counts, std::uint64_t& position,
                             NodeTable& table) {
  const std::uint64_t total = table.counts.size();
  std::uint64_t cursor = 0;
  for (const short count : counts) {
    if (position > total) {  // Kept: > and not >=, so one element too many passes.
      addError("Logic error in " + word + " connectivity index");
      return false;
    }
    if (cursor >= table.lists[zone].size()) {  // Kept: also for an element without nodes.
      addError("Logic error 2 in " + word + " connectivity index");
      return false;
    }
    if (position < total) {
      table.counts[position] = count;
      table.zones[position] = zone;
      table.cursors[position] = cursor;
    }
    cursor += static_cast<std::uint64_t>(std::int64_t{count});
    ++position;
  }
  return true;
}

/// Zeros stand behind the end of a list.
std::vector<std::uint64_t> PlainChecker::nodesAt(const NodeTable& table,
                                                 std::uint64_t position) const {
  std::vector<std::uint64_t> nodes;
  for (int k = 0; k < table.counts[position]; ++k) {
    const std::vector<std::uint64_t>& list = table.lists[table.zones[position]];
    const std::uint64_t place = table.cursors[position] + static_cast<std::uint64_t>(k);
    nodes.push_back(place < list.size() ? list[place] : 0);
  }
  return nodes;
}

}  // namespace velto::testing
