// SPDX-License-Identifier: Apache-2.0
//
// Random picks from numbers and from a case.

#include "testing/random_pick.h"

#include <cstddef>
#include <iterator>
#include <limits>

namespace velto::testing {

using base::MeshKey;
using base::MeshTables;

const std::vector<std::uint64_t>& edgeSizes() {
  static const std::vector<std::uint64_t> kSizes = [] {
    constexpr std::uint64_t kTwoTo31 = std::uint64_t{1} << 31U;
    constexpr std::uint64_t kTwoTo32 = std::uint64_t{1} << 32U;
    constexpr std::uint64_t kTwoTo63 = std::uint64_t{1} << 63U;
    std::vector<std::uint64_t> sizes = {0, 1, 2, 3};
    for (const std::uint64_t edge : {kTwoTo31, kTwoTo32, kTwoTo32 + kTwoTo31, 2 * kTwoTo32,
                                     kTwoTo63, ~std::uint64_t{0}, 0 - kTwoTo31, 0 - kTwoTo32}) {
      for (std::uint64_t offset = 0; offset <= 4; ++offset) {
        sizes.push_back(edge - 2 + offset);
      }
    }
    return sizes;
  }();
  return kSizes;
}

const std::vector<int>& edgeIds() {
  using Limits = std::numeric_limits<int>;
  static const std::vector<int> kIds = {
      Limits::min(),     Limits::min() + 1, -100, -2,  -1, 0, 1, 2,
      Limits::max() - 1, Limits::max(),     99,   4711};
  return kIds;
}

OrvZoneCategory anyCategory(Random& random) {
  return random.pick<OrvZoneCategory>({zoneCategoryNode, zoneCategoryFace, zoneCategoryCell});
}

int anyZone(const MeshTables& mesh, OrvZoneCategory category, Random& random) {
  const std::vector<int>& ids = mesh.idsOf(category);
  return ids.empty() ? random.between(1, 9) : random.pick(ids);
}

int anyZone(const MeshTables& mesh, Random& random) {
  std::vector<int> ids;
  for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
    const std::vector<int>& more = mesh.idsOf(category);
    ids.insert(ids.end(), more.begin(), more.end());
  }
  return ids.empty() ? random.between(1, 9) : random.pick(ids);
}

int anyLink(const MeshTables& mesh, OrvZoneCategory category, Random& random) {
  const int choice = random.between(0, 9);
  return choice < 5   ? anyZone(mesh, category, random)
         : choice < 7 ? anyZone(mesh, random)
         : choice < 9 ? random.between(-3, 20)
                      : random.pick(edgeIds());
}

MeshKey anyMesh(const base::CaseTables& tables, Random& random) {
  const auto at = static_cast<std::ptrdiff_t>(random.below(tables.meshes.size()));
  return std::next(tables.meshes.begin(), at)->first;
}

base::FileVersion anyVersion(Random& random) {
  base::FileVersion version = base::ownVersion();
  for (int* const number : {&version.major, &version.minor, &version.patch}) {
    *number = random.chance(10) ? random.pick(edgeIds()) : *number + random.between(-1, 1);
  }
  return version;
}

std::string meshText(const MeshKey& key) {
  return "mesh " + std::to_string(key.mesh) + " target " + std::to_string(key.target) +
         " partition " + std::to_string(key.partition);
}

std::string versionText(const base::FileVersion& version) {
  return std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
         std::to_string(version.patch);
}

}  // namespace velto::testing
