// SPDX-License-Identifier: Apache-2.0
//
// The zone tables of a mesh: sizes, ranges, names, types and links of its node, face and cell
// zones. Connectivity is not looked at.
//
//   checkNodeZones, checkFaceZones, checkCellZones
//     readZoneTable                the mesh's count beside the list of zones
//     checkZoneCommonAttributes    what zones of every kind have: a range of ids, and a name
//       checkZoneRanges            no overlap and no gap between the ranges
//     checkFaceZone, checkCellZone each zone by itself, on every rule

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "velto/OrvChecker.h"

#include "data_access/OrvFileProvider.h"
#include "data_access/families.h"
#include "data_access/sizes.h"

#include "checker/IdList.h"
#include "checker/IdRange.h"
#include "checker/connectivity_kinds.h"

namespace velto {

// --- The tables ---------------------------------------------------------------------------------

/// A list of zones and what the mesh says of their elements.
struct OrvChecker::ZoneTable {
  std::uint64_t nmax = 0;       ///< Elements of that kind in the mesh.
  std::uint64_t dimension = 0;  ///< Of the mesh; not asked for node zones.
  std::vector<int> ids;

  bool lacksZones() const { return nmax != 0 && ids.empty(); }
  bool lacksCount() const { return nmax == 0 && !ids.empty(); }
  bool isFilled() const { return nmax != 0 && !ids.empty(); }
};

OrvChecker::ZoneTable OrvChecker::readZoneTable(OrvMeshSizeType count, OrvZoneCategory category) {
  OrvFileProvider* source = openProvider();
  ZoneTable table;
  table.nmax = meshSizeOf(*source, count);
  if (category != zoneCategoryNode) {
    table.dimension = meshSizeOf(*source, meshDimension);
  }
  source->getZoneIds(category, table.ids);
  return table;
}

bool OrvChecker::checkNodeZones() {
  displayStep("checkNodeZones", "init");
  const ZoneTable nodes = readZoneTable(meshNodeCount, zoneCategoryNode);
  if (nodes.lacksZones()) {
    addError(1, "Non-zero node count and no node zones");
  }
  if (nodes.lacksCount()) {
    addError(1, "Non-zero node zones with no global node count");
  }
  if (nodes.isFilled()) {
    displayStep("checkNodeZones", "zoneInfo");
    if (verbosity > 1) {
      std::cout << "  Node zones count: " << nodes.ids.size() << std::endl;
    }
    checkZoneCommonAttributes(nodes.ids, nodes.nmax, "Node");
  }
  return !nodes.lacksCount();
}

bool OrvChecker::checkFaceZones() {
  displayStep("checkFaceZones", "init");
  const ZoneTable faces = readZoneTable(meshFaceCount, zoneCategoryFace);
  if (faces.lacksZones()) {
    addError(1, "Non-zero face count and no face zones");
  }
  if (faces.lacksCount()) {
    addError(1, "Non-zero face zones with no global face count");
  }
  if (faces.isFilled()) {
    displayStep("checkFaceZones", "zoneInfo");
    if (verbosity > 1) {
      std::cout << "  Face zones count: " << faces.ids.size() << std::endl;
    }
    const IdList treeZones(listTreeParents(*openProvider()));
    checkZoneCommonAttributes(faces.ids, faces.nmax, "Face");
    const IdList known(faces.ids);
    for (const int zone : known) {
      checkFaceZone(zone, faces.dimension, known, treeZones);
    }
  }
  return !faces.lacksCount();
}

bool OrvChecker::checkCellZones() {
  displayStep("checkCellZones", "init");
  const ZoneTable cells = readZoneTable(meshCellCount, zoneCategoryCell);
  if (cells.lacksZones()) {
    addError(1, "Non-zero cell count and no cell zones");
  }
  if (cells.lacksCount()) {
    addError(1, "Non-zero cell zones with no global cell count");
  }
  if (cells.isFilled()) {
    displayStep("checkCellZones", "zoneInfo");
    if (verbosity > 1) {
      std::cout << "  Cell zones count: " << cells.ids.size() << std::endl;
    }
    checkZoneCommonAttributes(cells.ids, cells.nmax, "Cell");
    const IdList known(cells.ids);
    for (std::size_t i = 0; i < cells.ids.size(); ++i) {
      checkCellZone(cells.ids[i], cells.dimension, known, kindOfCellZone(i));
    }
  }
  return !cells.lacksCount();
}

// --- What zones of every kind have --------------------------------------------------------------

bool OrvChecker::checkZoneCommonAttributes(
    std::vector<int> zoneIds,  // NOLINT(performance-unnecessary-value-param): its given signature
    std::uint64_t nmax, const std::string& kind) {
  OrvFileProvider* source = openProvider();
  std::vector<std::pair<int, int>> ranges;
  ranges.reserve(zoneIds.size());
  std::uint64_t total = 0;
  std::uint64_t lowest = 0;
  std::uint64_t highest = 0;
  for (const int zone : zoneIds) {
    const auto [start, end] = rangeOf(*source, zone);
    const std::uint64_t count = zoneSizeOf(*source, zone, zoneElementCount);
    lowest = ranges.empty() ? start : std::min(lowest, start);
    highest = ranges.empty() ? end : std::max(highest, end);
    total += count;
    // Kept: of a range the low 32 bits count, signed; of counts and of the outer range all 64.
    ranges.emplace_back(static_cast<int>(start), static_cast<int>(end));
    if (count != end - start + 1) {
      addError(1, "Error in zone size / start / end");
      return false;
    }
    std::string name;
    source->getZoneStringInfo(zone, zoneName, name);
    if (name.empty()) {
      addWarning(1, "Empty " + kind + " zone name");
    }
    if (verbosity > 1) {
      std::cout << "  " << kind << " zone id : " << zone << " : " << name << "\n"
                << "  [ " << start << " , " << end << " ] \n"
                << "    range: " << lowest << " ... " << highest << std::endl;
    }
  }
  if (!checkZoneRanges(std::move(ranges), kind)) {
    return false;
  }
  if (total != nmax) {
    addError(1, "Mismatch in " + kind + " zones content and total number of " + kind + "s");
    return false;
  }
  if (lowest != 1 || highest != nmax) {
    // Kept: "doesnt", and the word nmax where one expects the number.
    addError(1, kind + " zones total range doesnt match [1,nmax]");
    return false;
  }
  return true;
}

bool OrvChecker::checkZoneRanges(std::vector<std::pair<int, int>> ranges, const std::string& kind) {
  std::sort(ranges.begin(), ranges.end());
  // Kept: equal ranges count as one, so that they don't overlap.
  ranges.erase(std::unique(ranges.begin(), ranges.end()), ranges.end());
  const auto bad =
      std::adjacent_find(ranges.begin(), ranges.end(), [](const auto& range, const auto& next) {
        return range.second >= next.first || range.second + 1 != next.first;
      });
  if (bad == ranges.end()) {
    return true;
  }
  if (bad->second >= std::next(bad)->first) {
    addError(1, "Overlapping " + kind + " ranges");
  } else {
    addError(1, kind + " zones do not cover the full range of declared " + kind + "s");
  }
  return false;
}

// --- Face zones ---------------------------------------------------------------------------------

void OrvChecker::checkFaceZone(int zone, std::uint64_t dimension, const IdList& known,
                               const IdList& treeZones) {
  OrvFileProvider* source = openProvider();
  int faceType = 0;
  int zoneType = 0;
  int child = 0;
  int parent0 = 0;
  int parent1 = 0;
  int shadow = 0;
  const std::uint64_t ownDimension = zoneSizeOf(*source, zone, zoneDimension);
  source->getFaceZoneInfo(zone, faceZoneFaceType, faceType);
  source->getFaceZoneInfo(zone, faceZoneType, zoneType);
  source->getFaceZoneInfo(zone, faceZoneChild, child);
  source->getFaceZoneInfo(zone, faceZoneParent0, parent0);
  source->getFaceZoneInfo(zone, faceZoneParent1, parent1);
  source->getFaceZoneInfo(zone, faceZoneShadow, shadow);
  if (ownDimension != dimension) {
    addError(1, "Zone dimension inconsistent with mesh dimension");
  }
  std::string name;
  std::string typeName;
  source->getZoneStringInfo(zone, zoneName, name);
  source->getZoneStringInfo(zone, zoneTypeName, typeName);
  if (verbosity > 1) {
    std::cout << "  Face zone id : " << zone << " : " << name << "\n";
    if (!typeName.empty()) {
      std::cout << "    type name: " << typeName << "\n";
    }
    std::cout << "    face type: " << faceType << " zone type: " << zoneType << "\n";
    if (shadow != 0) {
      std::cout << "   shadow zone id: " << shadow << "\n";
    }
    std::cout << std::flush;
  }
  if (zoneType < -1) {
    addError(1, "Invalid face zone type");
  }
  if (faceType == -1) {
    addWarning(1, "Face type was not set");
  } else if (faceType < 0) {
    addError(1, "Invalid face type");
  }
  if (child != 0 && !known.contains(child)) {
    addError(1, "Face zone child zone id invalid");
  }
  if (parent0 != 0 && !known.contains(parent0) && !treeZones.contains(zone)) {
    addError(1, "Face zone parent0 zone id invalid");
  }
  // Kept: the second parent is not excused by the face tree.
  if (parent1 != 0 && !known.contains(parent1)) {
    addError(1, "Face zone parent1 zone id invalid");
  }
  checkShadowLink(zone, shadow, known);
}

void OrvChecker::checkShadowLink(int zone, int shadow, const IdList& known) {
  if (shadow == 0) {
    return;
  }
  if (!known.contains(shadow)) {
    addError(1, "Face zone shadow zone id invalid");
    return;
  }
  int back = 0;
  openProvider()->getFaceZoneInfo(shadow, faceZoneShadow, back);
  if (back != zone) {
    addError(1, "Face zone shadow link is not bilateral");
  }
}

// --- Cell zones ---------------------------------------------------------------------------------

void OrvChecker::checkCellZone(int zone, std::uint64_t dimension, const IdList& known,
                               int connectivity) {
  OrvFileProvider* source = openProvider();
  int cellType = -1;
  int child = 0;
  const std::uint64_t ownDimension = zoneSizeOf(*source, zone, zoneDimension);
  source->getCellZoneInfo(zone, cellZoneCellType, cellType);
  source->getCellZoneInfo(zone, cellZoneChild, child);
  if (ownDimension != dimension) {
    addError(1, "Zone dimension inconsistent with mesh dimension");
  }
  std::string name;
  std::string typeName;
  source->getZoneStringInfo(zone, zoneName, name);
  // Kept: the name once more, where one expects the type's.
  source->getZoneStringInfo(zone, zoneName, typeName);
  if (verbosity > 1) {
    std::cout << "  Cell zone id : " << zone << " : " << name << "\n";
    if (!typeName.empty()) {
      std::cout << "    type name: " << typeName << "\n";
    }
    std::cout << "    cell type: " << cellType << std::endl;
  }
  if (cellType == -1) {
    if (connectivity == connectivityFaceNode) {
      addError(1, "Cell type was not set - mandatory for a face-node zone");
    } else {
      addWarning(1, "Cell type was not set");
    }
  }
  if (cellType < -1) {
    addError(1, "Invalid cell type");
  }
  if (child != 0 && !known.contains(child)) {
    addError(1, "Cell zone child zone id invalid");
  }
}

}  // namespace velto
