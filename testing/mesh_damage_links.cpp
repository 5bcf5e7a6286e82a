// SPDX-License-Identifier: Apache-2.0
//
// MeshDamage: names, types, links, relations between zones, families, whole records.

#include <cstddef>
#include <optional>

#include "testing/MeshDamage.h"
#include "testing/random_pick.h"

namespace velto::testing {

using base::MeshKey;
using base::MeshTables;
using base::ZoneRecord;

std::string MeshDamage::name() {
  const int id = anyZone(mesh_, random_);
  const std::size_t key = random_.chance(70) ? zoneName : zoneTypeName;
  std::optional<std::string>& text = zone(id).texts[key];
  text.reset();
  if (random_.chance(75)) {
    text = random_.pick<std::string>({"", "", "", "a b", " ", "x : y [3]", "n\nl"});
  }
  return zoneText(id) + "text " + std::to_string(key) + " = " + valueText(text);
}

std::string MeshDamage::faceInfo() {
  const int id = anyZone(mesh_, zoneCategoryFace, random_);
  const bool isShape = random_.chance(50);
  std::optional<int>& value = zone(id).faceInfo[isShape ? faceZoneFaceType : faceZoneType];
  value.reset();
  if (random_.chance(90)) {
    value = random_.chance(70) ? random_.between(-3, 2) : random_.pick(edgeIds());
  }
  return zoneText(id) + (isShape ? "face type = " : "zone type = ") + valueText(value);
}

std::string MeshDamage::faceLink() {
  const int id = anyZone(mesh_, zoneCategoryFace, random_);
  const auto key = random_.pick<std::size_t>(
      {faceZoneChild, faceZoneParent0, faceZoneParent1, faceZoneShadow, faceZoneShadow});
  const int link = anyLink(mesh_, zoneCategoryFace, random_);
  std::optional<int>& value = zone(id).faceInfo[key];
  value.reset();
  if (random_.chance(90)) {
    value = link;
  }
  return zoneText(id) + "face info " + std::to_string(key) + " = " + valueText(value);
}

std::string MeshDamage::cellType() {
  const int id = anyZone(mesh_, zoneCategoryCell, random_);
  std::optional<int>& value = zone(id).cellInfo[cellZoneCellType];
  value.reset();
  if (random_.chance(80)) {
    value = random_.chance(40)   ? -1
            : random_.chance(80) ? random_.between(-2, 8)
                                 : random_.pick(edgeIds());
  }
  return zoneText(id) + "cell type = " + valueText(value);
}

std::string MeshDamage::cellLink() {
  const int id = anyZone(mesh_, zoneCategoryCell, random_);
  const int link = anyLink(mesh_, zoneCategoryCell, random_);
  std::optional<int>& value = zone(id).cellInfo[cellZoneChild];
  value.reset();
  if (random_.chance(90)) {
    value = link;
  }
  return zoneText(id) + "child = " + valueText(value);
}

std::string MeshDamage::relation() {
  const std::size_t side = random_.below(3);
  const bool ofCellZone = side == 2;
  const OrvZoneCategory own = ofCellZone ? zoneCategoryCell : zoneCategoryFace;
  const int id = anyZone(mesh_, own, random_);
  const int link = anyLink(mesh_, ofCellZone ? zoneCategoryFace : zoneCategoryCell, random_);
  ZoneRecord& record = zone(id);
  std::vector<int>& list = ofCellZone ? record.boundingFaceZones : record.sideCellZones[side];
  if (random_.chance(25)) {
    list.clear();
  } else {
    const auto at = static_cast<std::ptrdiff_t>(random_.below(list.size() + 1));
    list.insert(list.begin() + at, link);
  }
  return zoneText(id) + (ofCellZone ? "bounds" : "side " + std::to_string(side)) + " = " +
         base::argumentText(list);
}

std::string MeshDamage::family() {
  const int id = anyLink(mesh_, zoneCategoryCell, random_);
  const base::Family family =
      random_.chance(50) ? base::Family::cellFaces : base::Family::cellNodes;
  const bool isListed = data_.counted(family).find(id) != nullptr;
  if (isListed) {
    data_.counted(family).remove(id);
  } else {
    data_.counted(family)[id];
  }
  return familyName(family, id) + (isListed ? " gone" : " listed");
}

std::string MeshDamage::tree() {
  const int id = anyLink(mesh_, zoneCategoryFace, random_);
  const bool asParent = random_.chance(70);
  (asParent ? data_.treeParentZones : data_.treeChildZones).push_back(id);
  const int parent = random_.pick(edgeIds());
  zone(id).faceInfo[faceZoneParent0] = parent;
  return zoneText(id) + (asParent ? "a parent" : "a child") +
         " in the face tree, parent 0 = " + std::to_string(parent);
}

std::string MeshDamage::record() {
  const int id = anyZone(mesh_, random_);
  mesh_.zones.erase(id);
  return zoneText(id) + "record gone";
}

std::string MeshDamage::copy() {
  MeshKey other = key_;
  if (random_.chance(60)) {
    other.target = static_cast<OrvTargetCategory>(random_.between(-1, 3));
  } else {
    other.mesh += random_.between(-1, 2);
  }
  case_.tables.meshes.insert_or_assign(other, MeshTables(mesh_));
  case_.data.insert_or_assign(other, memory::MeshData(data_));
  return "copied to " + meshText(other);
}

std::string MeshDamage::removal() {
  if (random_.chance(50)) {
    case_.data.erase(key_);
    return "arrays gone";
  }
  case_.tables.meshes.erase(key_);
  return "tables gone";
}

}  // namespace velto::testing
