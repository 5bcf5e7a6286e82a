// SPDX-License-Identifier: Apache-2.0
//
// Whether the sizes of a case are small, so that each of its elements may be looked at.

#include <algorithm>
#include <cstdint>
#include <optional>

#include "testing/random_case.h"

namespace velto::testing {

namespace {

constexpr std::uint64_t kMostElements = 3000;
constexpr short kMostPerElement = 300;

bool isFew(const std::optional<std::uint64_t>& size) { return size.value_or(0) <= kMostElements; }

/// Dimensions may be anything.
bool areTablesSmall(const base::MeshTables& mesh) {
  return std::all_of(mesh.sizes.begin() + meshNodeCount, mesh.sizes.end(), isFew) &&
         std::all_of(mesh.zones.begin(), mesh.zones.end(), [](const auto& zone) {
           return std::all_of(zone.second.sizes.begin(), zone.second.sizes.begin() + zoneDimension,
                              isFew);
         });
}

/// A zone may get fewer elements, and then a part of the counts alone is added up.
bool isListSmall(const memory::CountedData& list) {
  if (list.uniform) {
    return *list.uniform >= 0 && *list.uniform <= kMostPerElement;
  }
  std::int64_t sum = 0;
  return std::all_of(list.counts.begin(), list.counts.end(), [&sum](short count) {
    sum += count;
    return sum >= 0 && count <= kMostPerElement;
  });
}

}  // namespace

bool isSmall(const memory::Case& looked) {
  for (const auto& mesh : looked.tables.meshes) {
    if (!areTablesSmall(mesh.second)) {
      return false;
    }
  }
  for (const auto& mesh : looked.data) {
    for (const base::Family family :
         {base::Family::faceNodes, base::Family::cellNodes, base::Family::cellFaces}) {
      const auto& lists = mesh.second.counted(family);
      for (const int zone : lists.zones()) {
        if (!isListSmall(*lists.find(zone))) {
          return false;
        }
      }
    }
  }
  return true;
}

}  // namespace velto::testing
