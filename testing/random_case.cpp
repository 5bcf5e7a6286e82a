// SPDX-License-Identifier: Apache-2.0
//
// Random sound cases.

#include "testing/random_case.h"

#include <limits>
#include <set>
#include <utility>

#include "embedded/base/shapes.h"
#include "testing/random_model.h"
#include "testing/random_pick.h"
#include "testing/random_values.h"

namespace velto::testing {

using base::MeshKey;
using base::MeshTables;
using base::ZoneRecord;

namespace {

/// Fills the tables and the lists of families of one mesh.
class SoundMesh {
 public:
  SoundMesh(memory::Case& filled, const MeshKey& key, bool mayHavePolyhedra, Random& random)
      : mesh_(filled.mesh(key)),
        data_(filled.arrays(key)),
        isRestart_(key.target == targetRestart),
        mayHavePolyhedra_(mayHavePolyhedra),
        random_(random) {}

  void fill() {
    mesh_.sizes[meshDimension] = random_.chance(75) ? 3 : 2;
    if (random_.chance(3)) {
      return;  // nothing at all is sound as well
    }
    constexpr int kHighest = std::numeric_limits<int>::max() - 40;
    nextZone_ =
        random_.chance(75)
            ? 1
            : random_.pick<int>({-5, -2, 0, 1000, std::numeric_limits<int>::min(), kHighest});
    stride_ = random_.chance(80) ? 1 : 2;
    addZones();
    linkFaceZones();
    linkCellZones();
    if (isRestart_) {
      addRelation();
    }
    listCellZones();
    addSoundValues(mesh_, data_, random_);
  }

 private:
  ZoneRecord& zone(int id) { return mesh_.zones[id]; }

  void addZones() {
    const std::vector<std::size_t> counts = {0, 1, 1, 1, 2, 2, 2, 3, 4, 5};
    const std::size_t cells = random_.pick(counts);
    std::size_t faces = random_.pick(counts);
    if (isRestart_ && cells > 0 && faces == 0) {
      faces = 1;  // there has to be something that bounds the cells
    }
    addZones(zoneCategoryNode, random_.pick<std::size_t>({1, 1, 2, 2, 3}));
    addZones(zoneCategoryFace, faces);
    addZones(zoneCategoryCell, cells);
  }

  void addZones(OrvZoneCategory category, std::size_t count) {
    std::uint64_t first = 1;
    std::vector<int> ids;
    for (std::size_t i = 0; i < count; ++i) {
      const int id = nextZone_;
      nextZone_ += stride_;
      ids.push_back(id);
      // A zone may be empty as long as not all are.
      const std::uint64_t size = i > 0 && random_.chance(4) ? 0 : 1 + random_.below(9);
      fillZone(category, id, first, size);
      first += size;
    }
    mesh_.sizes[static_cast<std::size_t>(base::countOf(category))] = first - 1;
    if (random_.chance(25)) {
      random_.shuffle(ids);
    }
    mesh_.zoneIds[category] = ids;
  }

  void fillZone(OrvZoneCategory category, int id, std::uint64_t first, std::uint64_t size) {
    ZoneRecord& filled = zone(id);
    filled.sizes[zoneFirstId] = first;
    filled.sizes[zoneLastId] = first + size - 1;
    filled.sizes[zoneElementCount] = size;
    filled.sizes[zoneDimension] = mesh_.sizes[meshDimension];
    filled.texts[zoneName] = "zone" + std::to_string(id);
    if (random_.chance(40)) {
      filled.texts[zoneTypeName] = "kind" + std::to_string(id);
    }
    if (category == zoneCategoryFace) {
      filled.faceInfo[faceZoneFaceType] = random_.between(0, 5);
      filled.faceInfo[faceZoneType] = random_.pick<int>({-1, 2, 2, 2, 3, 7, 8, 12, 14});
    }
    if (category == zoneCategoryCell) {
      filled.cellInfo[cellZoneCellType] = random_.between(0, 7);
    }
  }

  void linkFaceZones() {
    const std::vector<int>& faces = mesh_.idsOf(zoneCategoryFace);
    if (faces.empty()) {
      return;
    }
    if (faces.size() >= 2 && random_.chance(40)) {
      zone(faces[0]).faceInfo[faceZoneShadow] = faces[1];
      zone(faces[1]).faceInfo[faceZoneShadow] = faces[0];
    }
    for (const OrvFaceZoneInfoType link : {faceZoneChild, faceZoneParent0, faceZoneParent1}) {
      if (random_.chance(25)) {
        ZoneRecord& linked = zone(random_.pick(faces));
        linked.faceInfo[static_cast<std::size_t>(link)] = random_.pick(faces);
      }
    }
    if (random_.chance(30)) {
      plantTree(faces);
    }
  }

  /// A zone of the tree may have a parent that is no zone.
  void plantTree(const std::vector<int>& faces) {
    for (const int face : faces) {
      if (random_.chance(50)) {
        data_.treeParentZones.push_back(face);
      } else if (random_.chance(50)) {
        data_.treeChildZones.push_back(face);
      }
    }
    random_.shuffle(data_.treeParentZones);
    if (!data_.treeParentZones.empty() && random_.chance(60)) {
      zone(data_.treeParentZones[0]).faceInfo[faceZoneParent0] = random_.pick(edgeIds());
    }
  }

  void linkCellZones() {
    const std::vector<int>& cells = mesh_.idsOf(zoneCategoryCell);
    if (!cells.empty() && random_.chance(25)) {
      ZoneRecord& linked = zone(random_.pick(cells));
      linked.cellInfo[cellZoneChild] = random_.pick(cells);
    }
  }

  /// At most one leaf cell zone is on a side, so that a location model can be built.
  void addRelation() {
    const std::vector<int>& faces = mesh_.idsOf(zoneCategoryFace);
    std::set<std::pair<int, std::size_t>> taken;
    for (const int cell : mesh_.idsOf(zoneCategoryCell)) {
      const bool isLeaf = zone(cell).cellInfo[cellZoneChild].value_or(0) == 0;
      const int always = random_.pick(faces);
      for (const int face : faces) {
        if (face != always && !random_.chance(50)) {
          continue;
        }
        zone(cell).boundingFaceZones.push_back(face);
        const bool mayBeInside = zone(face).faceInfo[faceZoneType] == faceZoneTypeInterior;
        const int sides = mayBeInside && random_.chance(50) ? 2 : random_.chance(60) ? 0 : 1;
        for (const std::size_t side : {0U, 1U}) {
          const bool isMeant = sides == 2 || sides == static_cast<int>(side);
          if (isMeant && (!isLeaf || taken.insert({face, side}).second)) {
            zone(face).sideCellZones[side].push_back(cell);
          }
        }
      }
    }
    settleInteriorZones();
  }

  /// Whether an interior zone of one side lies in a body is told by its first face, which may name
  /// any cells.
  void settleInteriorZones() {
    for (const int face : mesh_.idsOf(zoneCategoryFace)) {
      ZoneRecord& settled = zone(face);
      const bool hasBothSides =
          !settled.sideCellZones[0].empty() && !settled.sideCellZones[1].empty();
      if (settled.faceInfo[faceZoneType] == faceZoneTypeInterior && !hasBothSides) {
        settled.faceInfo[faceZoneType] = faceZoneType14;
      }
    }
  }

  /// Into the families that say what a cell is made of; zones of a restart target need none.
  void listCellZones() {
    std::vector<int> cells = mesh_.idsOf(zoneCategoryCell);
    if (random_.chance(40)) {
      random_.shuffle(cells);
    }
    const bool mayListFaces =
        !isRestart_ && mayHavePolyhedra_ && !mesh_.idsOf(zoneCategoryFace).empty();
    const int listed = isRestart_ ? random_.pick<int>({0, 50, 50, 100}) : 100;
    for (const int cell : cells) {
      if (!random_.chance(listed)) {
        continue;
      }
      if (mayListFaces && random_.chance(40)) {
        data_.cellFaces[cell];
        zone(cell).cellInfo[cellZoneCellType] = base::cellShapePolyhedron;
      } else {
        data_.cellNodes[cell];
      }
    }
  }

  MeshTables& mesh_;
  memory::MeshData& data_;
  bool isRestart_;
  bool mayHavePolyhedra_;
  Random& random_;
  int nextZone_ = 1;
  int stride_ = 1;
};

std::vector<int> randomPartitions(bool partitioned, Random& random) {
  if (!random.chance(partitioned ? 65 : 5)) {
    return {-1};
  }
  std::vector<int> partitions;
  const int first = random.chance(80) ? 0 : random.between(2, 5);
  const int count = random.pick<int>({1, 1, 2, 3});
  for (int partition = first; partition < first + count; ++partition) {
    partitions.push_back(partition);
  }
  return partitions;
}

}  // namespace

memory::Case randomSoundCase(Random& random) {
  const std::vector<std::vector<OrvTargetCategory>> choices = {
      {targetRestart},
      {targetPost},
      {targetPartitionedPost},
      {targetRestart, targetPost},
      {targetRestart, targetPartitionedPost},
      {targetPost, targetPartitionedPost},
      {targetRestart, targetPost, targetPartitionedPost}};
  memory::Case made;
  made.tables.version = base::ownVersion();
  made.tables.solverType = random.pick<std::string>({"VELTO_GENERIC", "VELTO_FLOW", "VELTO_"});
  const int meshes = random.chance(70) ? 1 : random.between(2, 3);
  int id = random.chance(85) ? 1 : random.between(-3, 20);
  for (int i = 0; i < meshes; ++i) {
    const std::size_t kinds = choices.size();
    const auto& targets = choices[random.chance(75) ? random.below(3) : random.below(kinds)];
    const std::vector<int> partitions =
        randomPartitions(targets.back() == targetPartitionedPost, random);
    const bool walkedOnce = targets.size() == 1 && partitions.size() == 1;
    for (const OrvTargetCategory target : targets) {
      for (const int partition : partitions) {
        SoundMesh(made, {id, target, partition}, i == 0 && walkedOnce, random).fill();
      }
    }
    id += random.between(1, 3);
  }
  addSoundModel(made, random);
  addSoundPhysics(made, random);
  return made;
}

}  // namespace velto::testing
