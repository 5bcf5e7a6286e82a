// SPDX-License-Identifier: Apache-2.0
//
// MeshDamage: ids, cells beside faces, shadow faces and cell types that the families hold.

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "testing/MeshDamage.h"
#include "testing/random_pick.h"

namespace velto::testing {

using base::Family;
using memory::Slice;

namespace {

using Ids = std::vector<std::uint64_t>;

template <class Value>
std::vector<Value> valuesOf(const Slice<Value>& slice) {
  return std::vector<Value>(slice.begin(), slice.end());
}

bool isCounted(Family family) {
  return family == Family::faceNodes || family == Family::cellNodes || family == Family::cellFaces;
}

/// The size of a mesh up to which ids of a family go.
OrvMeshSizeType boundOf(Family family) {
  switch (family) {
    case Family::faceNodes:
    case Family::cellNodes:
      return meshNodeCount;
    case Family::faceCell0:
    case Family::faceCell1:
      return meshCellCount;
    default:
      return meshFaceCount;
  }
}

/// The first, the last, or any place among so many.
std::size_t anyPlace(std::size_t size, Random& random) {
  const std::size_t any = random.below(size);
  return random.pick<std::size_t>({0, size - 1, any, any, any});
}

}  // namespace

MeshDamage::IdList MeshDamage::anyIdList() {
  std::vector<IdList> lists;
  for (const Family family : {Family::faceNodes, Family::cellNodes, Family::cellFaces}) {
    for (const int zone : data_.counted(family).zones()) {
      lists.push_back({family, zone, &data_.counted(family)[zone].ids});
    }
  }
  for (const Family family : {Family::faceCell0, Family::faceCell1, Family::faceShadows}) {
    for (const int zone : data_.faceIds(family).zones()) {
      lists.push_back({family, zone, &data_.faceIds(family)[zone]});
    }
  }
  return lists.empty() ? IdList{} : random_.pick(lists);
}

std::string MeshDamage::elementId() {
  const IdList list = anyIdList();
  if (list.ids == nullptr || list.ids->size() == 0) {
    return "no id to change";
  }
  const std::uint64_t bound = mesh_.size(boundOf(list.family));
  Ids ids = valuesOf(*list.ids);
  const std::size_t at = anyPlace(ids.size(), random_);
  const std::uint64_t any = 1 + random_.below(static_cast<std::size_t>(bound));
  const std::uint64_t huge = random_.pick(edgeSizes());
  ids[at] = random_.pick<std::uint64_t>({0, 0, 1, any, any, bound, bound + 1, bound + 1, huge});
  const std::string value = std::to_string(ids[at]);
  *list.ids = Slice<std::uint64_t>(std::move(ids));
  return familyName(list.family, list.zone) + ": number " + std::to_string(at) + " = " + value;
}

std::string MeshDamage::sideCells() {
  const Family family = random_.chance(50) ? Family::faceCell0 : Family::faceCell1;
  auto& list = data_.faceIds(family);
  if (list.zones().empty()) {
    return std::string("no ") + familyName(family);
  }
  const int zone = random_.pick(list.zones());
  const std::uint64_t bound = mesh_.size(meshCellCount);
  const std::uint64_t any = 1 + random_.below(static_cast<std::size_t>(bound));
  const std::uint64_t cell = random_.pick<std::uint64_t>({0, 1, any, any, bound, bound + 1});
  list[zone] = Slice<std::uint64_t>(Ids(list[zone].size(), cell));
  return familyName(family, zone) + " all = " + std::to_string(cell);
}

std::string MeshDamage::shadowFaces() {
  auto& list = data_.faceShadows;
  if (list.zones().empty()) {
    return "no shadow faces";
  }
  const int zone = random_.pick(list.zones());
  Ids ids = valuesOf(list[zone]);
  const std::size_t how = random_.below(4);
  if (how == 0) {
    std::reverse(ids.begin(), ids.end());
  }
  for (std::size_t at = 0; at < ids.size(); ++at) {
    if (how == 1) {
      ++ids[at];
    } else if (how == 2) {
      --ids[at];
    } else if (how == 3) {
      ids[at] = mesh_.zoneSize(zone, zoneFirstId) + at;
    }
  }
  const std::vector<std::string> ways = {"reversed", "one up", "one down", "of the zone itself"};
  list[zone] = Slice<std::uint64_t>(std::move(ids));
  return familyName(Family::faceShadows, zone) + " " + ways[how];
}

std::string MeshDamage::typesOfCells() {
  if (data_.cellTypes.zones().empty()) {
    return "no cell types";
  }
  const int zone = random_.pick(data_.cellTypes.zones());
  const int type = random_.chance(90) ? random_.between(-1, 11) : random_.pick(edgeIds());
  memory::CellTypeData& held = data_.cellTypes[zone];
  std::vector<int> types = valuesOf(held.types);
  if (held.uniform) {
    held.uniform = type;
  } else if (!types.empty() && random_.chance(70)) {
    types[anyPlace(types.size(), random_)] = type;
  } else {
    std::fill(types.begin(), types.end(), type);
  }
  held.types = Slice<int>(std::move(types));
  return familyName(Family::cellTypes, zone) + ": " + std::to_string(type);
}

std::string MeshDamage::elementCount() {
  const IdList list = anyIdList();
  if (list.ids == nullptr || !isCounted(list.family)) {
    return "no count to change";
  }
  memory::CountedData& held = data_.counted(list.family)[list.zone];
  std::vector<short> counts = valuesOf(held.counts);
  if (!held.uniform && counts.empty()) {
    return "no count to change";
  }
  const std::size_t at = counts.empty() ? 0 : anyPlace(counts.size(), random_);
  const int before = held.uniform ? *held.uniform : counts[at];
  const auto count = static_cast<short>(
      random_.pick<int>({0, 0, -1, -before, before + 1, before + 1, before - 1, 300}));
  std::string text = familyName(list.family, list.zone) + ": ";
  if (held.uniform) {
    held.uniform = count;
    text += "each ";
  } else {
    counts[at] = count;
    held.counts = Slice<short>(std::move(counts));
    text += "count " + std::to_string(at) + " = ";
  }
  text += std::to_string(count);
  if (random_.chance(50)) {
    fitList(list);
    text += ", with its list";
  }
  return text;
}

}  // namespace velto::testing
