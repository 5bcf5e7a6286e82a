// SPDX-License-Identifier: Apache-2.0
//
// MeshDamage: sizes of a mesh, ranges of zones, lists of zones.

#include "testing/MeshDamage.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "testing/random_pick.h"

namespace velto::testing {

namespace {

constexpr std::uint64_t kTwoTo32 = std::uint64_t{1} << 32U;

/// A size that is near another, or on an edge.
std::uint64_t nudged(std::uint64_t size, Random& random) {
  switch (random.below(6)) {
    case 0:
      return size + 1;
    case 1:
      return size - 1;
    case 2:
      return size - 5 + random.below(11);
    case 3:
      return size + kTwoTo32 * (1 + random.below(3));
    default:
      return random.pick(edgeSizes());
  }
}

std::uint64_t anyDimension(Random& random) {
  return random.pick<std::uint64_t>({0, 1, 2, 3, 4, kTwoTo32 + 2, kTwoTo32 + 3, kTwoTo32 + 3});
}

}  // namespace

MeshDamage::MeshDamage(memory::Case& damaged, const base::MeshKey& key, Random& random)
    : case_(damaged),
      key_(key),
      mesh_(damaged.mesh(key)),
      data_(damaged.arrays(key)),
      random_(random) {}

void MeshDamage::setRange(int id, std::uint64_t first, std::uint64_t last) {
  zone(id).sizes[zoneFirstId] = first;
  zone(id).sizes[zoneLastId] = last;
  zone(id).sizes[zoneElementCount] = last - first + 1;
}

std::string MeshDamage::recount(OrvZoneCategory category) {
  std::uint64_t total = 0;
  for (const int id : mesh_.idsOf(category)) {
    total += mesh_.zoneSize(id, zoneElementCount);
  }
  mesh_.sizes[base::countOf(category)] = total;
  return "in all " + std::to_string(total);
}

std::string MeshDamage::dimension() {
  std::optional<std::uint64_t>& size = mesh_.sizes[meshDimension];
  size.reset();
  if (random_.chance(85)) {
    size = anyDimension(random_);
  }
  return "dimension = " + valueText(size);
}

std::string MeshDamage::count() {
  const OrvMeshSizeType key = base::countOf(anyCategory(random_));
  std::optional<std::uint64_t>& size = mesh_.sizes[key];
  const std::uint64_t before = size.value_or(0);
  size.reset();
  if (random_.chance(80)) {
    size = random_.chance(30) ? 0 : nudged(before, random_);
  }
  return "mesh size " + std::to_string(key) + " = " + valueText(size);
}

std::string MeshDamage::dimensionOfZone() {
  const int id = anyZone(mesh_, random_);
  std::optional<std::uint64_t>& size = zone(id).sizes[zoneDimension];
  size.reset();
  if (random_.chance(85)) {
    size = anyDimension(random_);
  }
  return zoneText(id) + "dimension = " + valueText(size);
}

std::string MeshDamage::zoneSize() {
  const int id = anyZone(mesh_, random_);
  const auto key = random_.pick<std::size_t>({zoneFirstId, zoneLastId, zoneElementCount});
  std::optional<std::uint64_t>& size = zone(id).sizes[key];
  const std::uint64_t before = size.value_or(0);
  size.reset();
  if (random_.chance(85)) {
    size = nudged(before, random_);
  }
  return zoneText(id) + "size " + std::to_string(key) + " = " + valueText(size);
}

std::string MeshDamage::range() {
  const OrvZoneCategory category = anyCategory(random_);
  const int id = anyZone(mesh_, category, random_);
  std::uint64_t first = mesh_.zoneSize(id, zoneFirstId);
  std::uint64_t last = mesh_.zoneSize(id, zoneLastId);
  const std::size_t how = random_.below(5);
  if (how == 0) {  // that of another zone
    const int other = anyZone(mesh_, category, random_);
    first = mesh_.zoneSize(other, zoneFirstId);
    last = mesh_.zoneSize(other, zoneLastId);
  } else if (how == 1) {  // elsewhere
    const std::uint64_t by = random_.chance(70) ? random_.below(9) - 4 : random_.pick(edgeSizes());
    first += by;
    last += by;
  } else if (how == 2) {  // anywhere
    first = random_.chance(50) ? first : random_.pick(edgeSizes());
    last = random_.pick(edgeSizes());
  } else {  // a bit longer or shorter
    std::uint64_t& end = how == 3 ? first : last;
    end += random_.below(7) - 3;
  }
  setRange(id, first, last);
  std::string text =
      zoneText(id) + "range = " + std::to_string(first) + " to " + std::to_string(last);
  if (random_.chance(60)) {
    text += ", " + recount(category);
  }
  return text;
}

std::string MeshDamage::growth() {
  const OrvZoneCategory category = anyCategory(random_);
  const int id = anyZone(mesh_, category, random_);
  const std::uint64_t end = mesh_.zoneSize(id, zoneLastId);
  const std::uint64_t by = random_.pick(edgeSizes());
  for (const int other : mesh_.idsOf(category)) {
    const std::uint64_t first = mesh_.zoneSize(other, zoneFirstId);
    if (first > end) {
      setRange(other, first + by, mesh_.zoneSize(other, zoneLastId) + by);
    }
  }
  setRange(id, mesh_.zoneSize(id, zoneFirstId), end + by);
  return zoneText(id) + std::to_string(by) + " elements more, " + recount(category);
}

std::string MeshDamage::twin() {
  const OrvZoneCategory category = anyCategory(random_);
  const int id = anyZone(mesh_, category, random_);
  const std::uint64_t by =
      random_.chance(50) ? mesh_.zoneSize(id, zoneElementCount) : random_.below(2);
  for (const int other : mesh_.idsOf(category)) {
    const std::uint64_t first = mesh_.zoneSize(other, zoneFirstId) + by;
    setRange(other, first, mesh_.zoneSize(other, zoneLastId) + by);
  }
  mesh_.zoneIds[category].push_back(id);
  return zoneText(id) + "listed twice, category moved by " + std::to_string(by) + ", " +
         recount(category);
}

std::string MeshDamage::zoneList() {
  const OrvZoneCategory category = anyCategory(random_);
  const int link = anyLink(mesh_, category, random_);
  std::vector<int>& ids = mesh_.zoneIds[category];
  const auto at = ids.begin() + static_cast<std::ptrdiff_t>(random_.below(ids.size() + 1));
  const std::size_t how = random_.below(7);
  if (how == 0) {
    random_.shuffle(ids);
  } else if (how == 1) {
    std::reverse(ids.begin(), ids.end());
  } else if (how == 2) {
    ids.clear();
  } else if (how == 3 && at != ids.end()) {
    ids.erase(at);
  } else if (how == 4 && !ids.empty()) {
    ids.insert(at, int{ids[random_.below(ids.size())]});
  } else {
    ids.insert(at, link);
  }
  return "zones of category " + std::to_string(category) + " = " + base::argumentText(ids);
}

}  // namespace velto::testing
