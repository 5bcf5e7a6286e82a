// SPDX-License-Identifier: Apache-2.0
//
// PlainChecker: the tables of node, face and cell zones.

#include <algorithm>
#include <cctype>
#include <iterator>
#include <utility>

#include "tests/checker/PlainChecker.h"

namespace velto::testing {

namespace {

/// The low half of a number, as a signed one.
int narrowed(std::uint64_t value) { return static_cast<int>(static_cast<std::uint32_t>(value)); }

std::string inLowerCase(std::string word) {
  word[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(word[0])));
  return word;
}

}  // namespace

void PlainChecker::checkNodeZones() {
  displayStep("checkNodeZones", "init");
  const std::uint64_t count = meshSize(meshNodeCount);
  const std::vector<int> zones = zonesOf(zoneCategoryNode);
  if (beginZoneTable("Node", count, zones)) {
    checkCommonAttributes(zones, count, "Node");
  }
}

void PlainChecker::checkFaceZones() {
  displayStep("checkFaceZones", "init");
  const std::uint64_t count = meshSize(meshFaceCount);
  const std::uint64_t dimension = meshSize(meshDimension);
  const std::vector<int> zones = zonesOf(zoneCategoryFace);
  if (!beginZoneTable("Face", count, zones)) {
    return;
  }
  std::vector<int> parents;
  std::vector<int> children;
  provider_->beginFaceTree(parents, children);
  provider_->endFaceTree();
  checkCommonAttributes(zones, count, "Face");
  for (const int zone : zones) {
    checkFaceZone(zone, dimension, zones, parents);
  }
}

void PlainChecker::checkCellZones() {
  displayStep("checkCellZones", "init");
  const std::uint64_t count = meshSize(meshCellCount);
  const std::uint64_t dimension = meshSize(meshDimension);
  const std::vector<int> zones = zonesOf(zoneCategoryCell);
  if (!beginZoneTable("Cell", count, zones)) {
    return;
  }
  checkCommonAttributes(zones, count, "Cell");
  for (std::size_t i = 0; i < zones.size(); ++i) {
    // A library may list more zones here than it did when their kinds were found.
    checkCellZone(zones[i], dimension, zones, i < kinds_.size() ? kinds_[i] : 0);
  }
}

/// True if there are zones to look at: elements and zones are there together, or not at all.
bool PlainChecker::beginZoneTable(const std::string& kind, std::uint64_t count,
                                  const std::vector<int>& zones) {
  const std::string word = inLowerCase(kind);
  if (count != 0 && zones.empty()) {
    addError("Non-zero " + word + " count and no " + word + " zones");
  }
  if (count == 0 && !zones.empty()) {
    addError("Non-zero " + word + " zones with no global " + word + " count");
  }
  if (count == 0 || zones.empty()) {
    return false;
  }
  displayStep("check" + kind + "Zones", "zoneInfo");
  if (verbosity_ > 1) {
    out_ << "  " << kind << " zones count: " << zones.size() << "\n";
  }
  return true;
}

void PlainChecker::checkCommonAttributes(const std::vector<int>& zones, std::uint64_t count,
                                         const std::string& kind) {
  std::uint64_t total = 0;
  std::vector<std::uint64_t> starts;
  std::vector<std::uint64_t> ends;
  std::set<std::pair<int, int>> ranges;
  for (const int zone : zones) {
    starts.push_back(zoneSize(zone, zoneFirstId));
    ends.push_back(zoneSize(zone, zoneLastId));
    const std::uint64_t inZone = zoneSize(zone, zoneElementCount);
    total += inZone;
    ranges.emplace(narrowed(starts.back()), narrowed(ends.back()));
    if (inZone != ends.back() - starts.back() + 1) {
      addError("Error in zone size / start / end");
      return;
    }
    const std::string name = zoneText(zone, zoneName);
    if (name.empty()) {
      addWarning("Empty " + kind + " zone name");
    }
    if (verbosity_ > 1) {
      out_ << "  " << kind << " zone id : " << zone << " : " << name << "\n"
           << "  [ " << starts.back() << " , " << ends.back() << " ] \n"
           << "    range: " << *std::min_element(starts.begin(), starts.end()) << " ... "
           << *std::max_element(ends.begin(), ends.end()) << "\n";
    }
  }
  if (!checkRanges(ranges, kind)) {
    return;
  }
  if (total != count) {
    addError("Mismatch in " + kind + " zones content and total number of " + kind + "s");
  } else if (*std::min_element(starts.begin(), starts.end()) != 1 ||
             *std::max_element(ends.begin(), ends.end()) != count) {
    addError(kind + " zones total range doesnt match [1,nmax]");
  }
}

/// Ranges that are equal count once: it is their total that gives them away.
bool PlainChecker::checkRanges(const std::set<std::pair<int, int>>& ranges,
                               const std::string& kind) {
  const auto bad =
      std::adjacent_find(ranges.begin(), ranges.end(), [](const auto& range, const auto& next) {
        return std::int64_t{range.second} + 1 != std::int64_t{next.first};
      });
  if (bad == ranges.end()) {
    return true;
  }
  if (bad->second >= std::next(bad)->first) {
    addError("Overlapping " + kind + " ranges");
  } else {
    addError(kind + " zones do not cover the full range of declared " + kind + "s");
  }
  return false;
}

void PlainChecker::checkFaceZone(int zone, std::uint64_t dimension, const std::vector<int>& zones,
                                 const std::vector<int>& treeZones) {
  const std::uint64_t zoneDim = zoneSize(zone, zoneDimension);
  const auto info = [&](OrvFaceZoneInfoType key) {
    int value = 0;
    provider_->getFaceZoneInfo(zone, key, value);
    return value;
  };
  const int faceType = info(faceZoneFaceType);
  const int zoneType = info(faceZoneType);
  const int child = info(faceZoneChild);
  const int parent0 = info(faceZoneParent0);
  const int parent1 = info(faceZoneParent1);
  const int shadow = info(faceZoneShadow);
  if (zoneDim != dimension) {
    addError("Zone dimension inconsistent with mesh dimension");
  }
  const std::string name = zoneText(zone, zoneName);
  const std::string typeName = zoneText(zone, zoneTypeName);
  if (verbosity_ > 1) {
    out_ << "  Face zone id : " << zone << " : " << name << "\n"
         << (typeName.empty() ? "" : "    type name: " + typeName + "\n")
         << "    face type: " << faceType << " zone type: " << zoneType << "\n"
         << (shadow == 0 ? "" : "   shadow zone id: " + std::to_string(shadow) + "\n");
  }
  if (zoneType < -1) {
    addError("Invalid face zone type");
  }
  if (faceType == -1) {
    addWarning("Face type was not set");
  }
  if (faceType < -1) {
    addError("Invalid face type");
  }
  if (child != 0 && !standsIn(zones, child)) {
    addError("Face zone child zone id invalid");
  }
  if (parent0 != 0 && !standsIn(zones, parent0) && !standsIn(treeZones, zone)) {
    addError("Face zone parent0 zone id invalid");
  }
  if (parent1 != 0 && !standsIn(zones, parent1)) {  // Kept: no exception for zones of the tree.
    addError("Face zone parent1 zone id invalid");
  }
  if (shadow != 0) {
    checkShadow(zone, shadow, zones);
  }
}

void PlainChecker::checkShadow(int zone, int shadow, const std::vector<int>& zones) {
  if (!standsIn(zones, shadow)) {
    addError("Face zone shadow zone id invalid");
    return;
  }
  int back = 0;
  provider_->getFaceZoneInfo(shadow, faceZoneShadow, back);
  if (back != zone) {
    addError("Face zone shadow link is not bilateral");
  }
}

void PlainChecker::checkCellZone(int zone, std::uint64_t dimension, const std::vector<int>& zones,
                                 int kind) {
  const std::uint64_t zoneDim = zoneSize(zone, zoneDimension);
  int cellType = -1;
  provider_->getCellZoneInfo(zone, cellZoneCellType, cellType);
  int child = 0;
  provider_->getCellZoneInfo(zone, cellZoneChild, child);
  if (zoneDim != dimension) {
    addError("Zone dimension inconsistent with mesh dimension");
  }
  const std::string name = zoneText(zone, zoneName);
  const std::string typeName = zoneText(zone, zoneName);  // Kept: the name once more.
  if (verbosity_ > 1) {
    out_ << "  Cell zone id : " << zone << " : " << name << "\n"
         << (typeName.empty() ? "" : "    type name: " + typeName + "\n")
         << "    cell type: " << cellType << "\n";
  }
  constexpr int kFaceNode = 2;
  if (cellType == -1 && kind == kFaceNode) {
    addError("Cell type was not set - mandatory for a face-node zone");
  }
  if (cellType == -1 && kind != kFaceNode) {
    addWarning("Cell type was not set");
  }
  if (cellType < -1) {
    addError("Invalid cell type");
  }
  if (child != 0 && !standsIn(zones, child)) {
    addError("Cell zone child zone id invalid");
  }
}

}  // namespace velto::testing
