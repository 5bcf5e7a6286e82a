// SPDX-License-Identifier: Apache-2.0
//
// Defects in the zone tables that all kinds of zones can have: counts, ranges, names. The samples
// that are damaged are post meshes, whose names no settings refer to.

#include <cstdint>

#include "samples/defect_lists.h"

namespace velto::samples {

namespace {

/// Leaves only the count of the zones of a kind.
template <OrvZoneCategory Category>
void removeZones(memory::Case& damaged) {
  dropZones(damaged, Category);
}

/// Leaves the zones of a kind without their count.
template <OrvZoneCategory Category>
void removeCount(memory::Case& damaged) {
  onlyMesh(damaged).sizes.at(base::countOf(Category)).reset();
}

/// Faces and cells go with the count: it is another defect to have them without counted nodes.
void removeNodeCount(memory::Case& damaged) {
  removeCount<zoneCategoryNode>(damaged);
  for (const OrvZoneCategory other : {zoneCategoryFace, zoneCategoryCell}) {
    dropZones(damaged, other);
    onlyMesh(damaged).sizes.at(base::countOf(other)) = 0;
  }
}

/// Moves the range of a zone to higher ids (or, by a number below 0, to lower ones).
void move(base::ZoneRecord& zone, std::int64_t by) {
  for (const OrvZoneSizeType end : {zoneFirstId, zoneLastId}) {
    zone.sizes.at(end) = zone.sizes.at(end).value_or(0) + static_cast<std::uint64_t>(by);
  }
}

void moveAllFaces(memory::Case& damaged) {
  base::MeshTables& mesh = onlyMesh(damaged);
  for (const int zone : mesh.idsOf(zoneCategoryFace)) {
    move(mesh.zones.at(zone), 1);
  }
}

}  // namespace

const std::vector<Defect>& defectsOfZones() {
  static const std::vector<Defect> kDefects = {
      {"no-node-zones", "The mesh counts nodes that no zone holds.", "post", true,
       "checkNodeZones : Non-zero node count and no node zones", removeZones<zoneCategoryNode>},
      {"no-node-count", "The mesh has nodes that it does not count, and nothing else.", "post",
       true, "checkNodeZones : Non-zero node zones with no global node count", removeNodeCount},
      {"no-face-zones", "The mesh counts faces that no zone holds.", "post", true,
       "checkFaceZones : Non-zero face count and no face zones", removeZones<zoneCategoryFace>},
      {"no-face-count", "The mesh has faces that it does not count.", "post", true,
       "checkFaceZones : Non-zero face zones with no global face count",
       removeCount<zoneCategoryFace>},
      {"no-cell-zones", "The mesh counts cells that no zone holds.", "post", true,
       "checkCellZones : Non-zero cell count and no cell zones", removeZones<zoneCategoryCell>},
      {"no-cell-count", "The mesh has cells that it does not count.", "post", true,
       "checkCellZones : Non-zero cell zones with no global cell count",
       removeCount<zoneCategoryCell>},
      {"zone-size", "A face zone says that it has one face more than its ids.", "post", true,
       "checkFaceZones : Error in zone size / start / end",
       [](memory::Case& damaged) { ++*recordOf(damaged, "top").sizes[zoneElementCount]; }},
      {"overlap", "A face zone begins with the last face of the one before.", "post", true,
       "checkFaceZones : Overlapping Face ranges",
       [](memory::Case& damaged) { move(recordOf(damaged, "top"), -1); }},
      {"gap", "A face between two face zones belongs to none.", "post", true,
       "checkFaceZones : Face zones do not cover the full range of declared Faces",
       [](memory::Case& damaged) { move(recordOf(damaged, "back"), 1); }},
      {"face-count", "The mesh counts one face more than its zones hold.", "post", true,
       "checkFaceZones : Mismatch in Face zones content and total number of Faces",
       [](memory::Case& damaged) { ++*onlyMesh(damaged).sizes[meshFaceCount]; }},
      {"face-range", "The ids of the faces begin at 2.", "post", true,
       "checkFaceZones : Face zones total range doesnt match [1,nmax]", moveAllFaces},
      {"unnamed-zone", "A face zone has no name.", "post", false,
       "checkFaceZones : Empty Face zone name",
       [](memory::Case& damaged) { recordOf(damaged, "top").texts[zoneName] = ""; }},
  };
  return kDefects;
}

}  // namespace velto::samples
