// SPDX-License-Identifier: Apache-2.0
//
// MeshDamage: how long lists are, how their counts are told, and which zones a family lists.

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <vector>

#include "testing/MeshDamage.h"
#include "testing/random_pick.h"

namespace velto::testing {

using base::Family;
using memory::Slice;
using memory::ZoneList;

namespace {

constexpr std::uint64_t kMostValues = 2000;

/// So many values: those that are there, then ones.
template <class Value>
Slice<Value> resized(const Slice<Value>& slice, std::size_t size) {
  std::vector<Value> values(slice.begin(), slice.end());
  values.resize(size, Value{1});
  return Slice<Value>(std::move(values));
}

/// Shorter or longer; the new length goes into `text`.
template <class Value>
Slice<Value> otherLength(const Slice<Value>& slice, Random& random, std::string& text) {
  const std::size_t shorter = random.pick<std::size_t>({0, slice.size() / 2, slice.size() - 1});
  const std::size_t longer = slice.size() + 1 + random.below(3);
  const std::size_t size = slice.size() > 0 && random.chance(60) ? shorter : longer;
  text += ": " + std::to_string(size) + " values";
  return resized(slice, size);
}

template <class Data>
void shuffle(ZoneList<Data>& list, Random& random) {
  std::vector<int> zones = list.zones();
  if (random.chance(50)) {
    std::reverse(zones.begin(), zones.end());
  } else {
    random.shuffle(zones);
  }
  ZoneList<Data> ordered;
  for (const int zone : zones) {
    ordered[zone] = *list.find(zone);
  }
  list = ordered;
}

void fill(memory::CountedData& data, std::size_t size, Random& random) {
  data.uniform = static_cast<short>(random.between(1, 3));
  data.ids = resized(data.ids, size * static_cast<std::size_t>(*data.uniform));
}
void fill(Slice<std::uint64_t>& data, std::size_t size, Random&) { data = resized(data, size); }
void fill(memory::CellTypeData& data, std::size_t size, Random&) {
  data.types = resized(data.types, size);
}

/// Takes a zone off a list, or onto it with values for so many elements. True if it was there.
template <class Data>
bool toggle(ZoneList<Data>& list, int zone, std::size_t size, Random& random) {
  if (list.find(zone) != nullptr) {
    list.remove(zone);
    return true;
  }
  Data& data = list[zone];
  if (random.chance(70)) {
    fill(data, size, random);
  }
  return false;
}

Family anyFamily(Random& random) {
  return random.pick<Family>({Family::faceNodes, Family::cellNodes, Family::cellFaces,
                              Family::faceCell0, Family::faceCell1, Family::faceShadows,
                              Family::cellTypes});
}

bool isOfFaces(Family family) {
  return family != Family::cellNodes && family != Family::cellFaces && family != Family::cellTypes;
}

}  // namespace

/// Does something with the zone list of a family of faces or cells.
template <class Action>
auto MeshDamage::withList(Family family, const Action& action) {
  switch (family) {
    case Family::faceNodes:
    case Family::cellNodes:
    case Family::cellFaces:
      return action(data_.counted(family));
    case Family::cellTypes:
      return action(data_.cellTypes);
    default:
      return action(data_.faceIds(family));
  }
}

void MeshDamage::fitList(const IdList& list) {
  const memory::CountedData& held = data_.counted(list.family)[list.zone];
  const std::uint64_t elements = std::min(mesh_.zoneSize(list.zone, zoneElementCount), kMostValues);
  const std::int64_t length =
      held.uniform ? static_cast<std::int64_t>(elements) * *held.uniform
                   : std::accumulate(held.counts.begin(), held.counts.end(), std::int64_t{0});
  *list.ids = resized(*list.ids, static_cast<std::size_t>(std::max<std::int64_t>(length, 0)));
}

std::string MeshDamage::listLength() {
  const IdList list = anyIdList();
  const std::vector<int>& typed = data_.cellTypes.zones();
  if (!typed.empty() && random_.chance(15)) {
    const int zone = random_.pick(typed);
    Slice<int>& types = data_.cellTypes[zone].types;
    std::string text = familyName(Family::cellTypes, zone);
    types = otherLength(types, random_, text);
    return text;
  }
  if (list.ids == nullptr) {
    return "no list to change";
  }
  std::string text = familyName(list.family, list.zone);
  const bool isCounted = !isOfFaces(list.family) || list.family == Family::faceNodes;
  if (isCounted && random_.chance(30)) {
    Slice<short>& counts = data_.counted(list.family)[list.zone].counts;
    text += ", counts";
    counts = otherLength(counts, random_, text);
    return text;
  }
  *list.ids = otherLength(*list.ids, random_, text);
  return text;
}

std::string MeshDamage::uniformity() {
  const Family family = random_.pick<Family>(
      {Family::faceNodes, Family::cellNodes, Family::cellFaces, Family::cellTypes});
  const std::vector<int> zones = withList(family, [](const auto& list) { return list.zones(); });
  if (zones.empty()) {
    return std::string("no ") + familyName(family);
  }
  const int zone = random_.pick(zones);
  const auto size =
      static_cast<std::size_t>(std::min(mesh_.zoneSize(zone, zoneElementCount), kMostValues));
  const int other = random_.between(0, 9);
  const bool isOther = random_.chance(40);
  const auto turn = [&](auto& uniform, auto& slice) {
    using Value = std::decay_t<decltype(*uniform)>;
    if (uniform) {
      const Value value = isOther ? static_cast<Value>(other) : *uniform;
      slice = Slice<Value>(std::vector<Value>(size, value));
      uniform.reset();
      return std::string(": one by one");
    }
    uniform = isOther || slice.size() == 0 ? static_cast<Value>(other) : *slice.begin();
    slice = Slice<Value>();
    return ": each " + std::to_string(*uniform);
  };
  std::string text = familyName(family, zone);
  if (family == Family::cellTypes) {
    text += turn(data_.cellTypes[zone].uniform, data_.cellTypes[zone].types);
  } else {
    text += turn(data_.counted(family)[zone].uniform, data_.counted(family)[zone].counts);
  }
  return text;
}

std::string MeshDamage::listing() {
  const Family family = anyFamily(random_);
  const OrvZoneCategory category = isOfFaces(family) ? zoneCategoryFace : zoneCategoryCell;
  const int zone =
      random_.chance(85) ? anyZone(mesh_, category, random_) : anyLink(mesh_, category, random_);
  const auto size =
      static_cast<std::size_t>(std::min(mesh_.zoneSize(zone, zoneElementCount), kMostValues));
  const bool wasListed =
      withList(family, [&](auto& list) { return toggle(list, zone, size, random_); });
  return familyName(family, zone) + (wasListed ? " gone" : " listed");
}

std::string MeshDamage::listOrder() {
  const Family family = anyFamily(random_);
  const std::vector<int> zones = withList(family, [&](auto& list) {
    shuffle(list, random_);
    return list.zones();
  });
  return std::string("zones of ") + familyName(family) + " = " + base::argumentText(zones);
}

std::string MeshDamage::countByOne() {
  const OrvMeshSizeType key = base::countOf(anyCategory(random_));
  const std::uint64_t by = random_.pick<std::uint64_t>({1, 2, 0 - std::uint64_t{1}});
  mesh_.sizes[key] = mesh_.size(key) + by;
  return "mesh size " + std::to_string(key) + " = " + valueText(mesh_.sizes[key]);
}

}  // namespace velto::testing
