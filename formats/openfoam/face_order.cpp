// SPDX-License-Identifier: Apache-2.0
//
// Upper-triangular order: zones that have it stay as they are, others are put in order by a stable
// counting sort by owner and a sort of the few faces of each owner.

#include "formats/openfoam/face_order.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <numeric>
#include <utility>

namespace velto::openfoam {

namespace {

/// A point by its bits: any coordinates can be compared, and equal ones only are equal.
using Bits = std::array<std::uint64_t, 3>;

Bits bitsOf(const double* point) {
  Bits bits = {};
  std::memcpy(bits.data(), point, sizeof(bits));
  return bits;
}

/// What stands for a sorted face.
template <class Number>
Number entryOf(std::uint64_t number, bool isFlipped) {
  return static_cast<Number>(2 * number + (isFlipped ? 1 : 0));
}

bool isAbove(const FaceZoneToWrite& zone, const FaceZoneToWrite& before) {
  const std::uint64_t last = before.count - 1;
  return std::make_pair(before.cell0(last), before.cell1(last)) <=
         std::make_pair(zone.cell0(0), zone.cell1(0));
}

/// Calls `take` with owner, direction and place of each face of an internal zone.
template <class Take>
void forEachInternal(const FaceZoneToWrite& zone, const Take& take) {
  if (!zone.isInternal || zone.count == 0) {
    return;
  }
  zone.side0->with([&](const auto* cell0) {
    zone.side1->with([&](const auto* cell1) {
      for (std::uint64_t i = 0; i < zone.count; ++i) {
        const bool isFlipped = cell1[i] < cell0[i];
        take(static_cast<std::size_t>(isFlipped ? cell1[i] : cell0[i]), isFlipped, i);
      }
    });
  });
}

}  // namespace

FaceOrder::FaceOrder(const MeshToWrite& mesh, const std::vector<WrittenPatch>& patches)
    : mesh_(mesh), isWide_(mesh.faceCount > std::numeric_limits<std::uint32_t>::max() / 2) {
  addInternal();
  for (const WrittenPatch& patch : patches) {
    addPatch(patch);
  }
}

void FaceOrder::addZone(const FaceZoneToWrite& zone) {
  runs_.push_back({&zone, size_, zone.count, 0});
  size_ += zone.count;
}

void FaceOrder::keepStarts(const FaceZoneToWrite& zone) {
  if (zone.uniform != 0) {
    return;
  }
  starts_.resize(mesh_.faceZones.size());
  auto& starts = starts_[mesh_.placeOf(zone)];
  starts.reserve(static_cast<std::size_t>(zone.count));
  std::uint64_t start = 0;
  for (std::uint64_t i = 0; i < zone.count; ++i) {
    starts.push_back(start);
    start += zone.nodeCount(i);
  }
}

// --- Patches ------------------------------------------------------------------------------------

void FaceOrder::addPatch(const WrittenPatch& patch) {
  if (!patch.isInOrderOfPoints) {
    for (const std::size_t place : patch.zones) {
      addZone(mesh_.faceZones[place]);
    }
  } else if (isWide_) {
    sortByPoints(patch, wide_);
  } else {
    sortByPoints(patch, narrow_);
  }
}

template <class Number>
void FaceOrder::sortByPoints(const WrittenPatch& patch, std::vector<Number>& sorted) {
  std::vector<std::pair<std::vector<Bits>, Number>> keyed;
  for (const std::size_t place : patch.zones) {
    const FaceZoneToWrite& zone = mesh_.faceZones[place];
    keepStarts(zone);
    for (std::uint64_t i = 0; i < zone.count; ++i) {
      std::vector<Bits> points;
      for (std::uint64_t k = 0; k < zone.nodeCount(i); ++k) {
        points.push_back(bitsOf(mesh_.pointOf((*zone.nodes)[startOf(zone, i) + k])));
      }
      std::sort(points.begin(), points.end());
      const bool isFlipped = placed(zone, i, 0).isFlipped;
      keyed.emplace_back(std::move(points), entryOf<Number>(zone.begin + i, isFlipped));
    }
  }
  std::stable_sort(keyed.begin(), keyed.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  runs_.push_back({nullptr, size_, keyed.size(), sorted.size()});
  for (const auto& face : keyed) {
    sorted.push_back(face.second);
  }
  size_ += keyed.size();
}

// --- Internal faces -----------------------------------------------------------------------------

void FaceOrder::addInternal() {
  if (isInternalInOrder()) {
    for (const FaceZoneToWrite& zone : mesh_.faceZones) {
      if (zone.isInternal) {
        addZone(zone);
      }
    }
  } else if (isWide_) {
    sortInternal(wide_);
  } else {
    sortInternal(narrow_);
  }
}

bool FaceOrder::isInternalInOrder() const {
  const FaceZoneToWrite* before = nullptr;
  for (const FaceZoneToWrite& zone : mesh_.faceZones) {
    if (zone.isInternal && zone.count > 0) {
      if (!zone.isInOrder || (before != nullptr && !isAbove(zone, *before))) {
        return false;
      }
      before = &zone;
    }
  }
  return true;
}

template <class Number>
void FaceOrder::sortInternal(std::vector<Number>& sorted) {
  // Cells count from 1: ends[cell] is where its faces begin once the sums are made, and where they
  // end once they are placed.
  std::vector<Number> ends(static_cast<std::size_t>(mesh_.cellCount) + 2, 0);
  for (const FaceZoneToWrite& zone : mesh_.faceZones) {
    forEachInternal(zone, [&ends](std::size_t owner, bool, std::uint64_t) { ++ends[owner + 1]; });
  }
  std::partial_sum(ends.begin(), ends.end(), ends.begin());
  sorted.resize(static_cast<std::size_t>(mesh_.internalCount));
  for (const FaceZoneToWrite& zone : mesh_.faceZones) {
    forEachInternal(zone, [&](std::size_t owner, bool isFlipped, std::uint64_t i) {
      sorted[static_cast<std::size_t>(ends[owner]++)] = entryOf<Number>(zone.begin + i, isFlipped);
    });
  }
  const FaceZoneToWrite* zone = nullptr;
  for (std::size_t cell = 1; cell + 1 < ends.size(); ++cell) {
    sortByNeighbour(sorted.data() + ends[cell - 1], sorted.data() + ends[cell], zone);
  }
  for (const FaceZoneToWrite& internal : mesh_.faceZones) {
    if (internal.isInternal) {
      keepStarts(internal);
    }
  }
  runs_.push_back({nullptr, 0, mesh_.internalCount, 0});
  size_ = mesh_.internalCount;
}

/// Faces of one owner, which come in the order of the case; `zone` is where one was, or null.
template <class Number>
void FaceOrder::sortByNeighbour(Number* begin, Number* end, const FaceZoneToWrite*& zone) const {
  const auto keyOf = [this, &zone](Number entry) {
    findZone(entry / 2, zone);
    const std::uint64_t index = entry / 2 - zone->begin;
    return std::make_pair(entry % 2 != 0 ? zone->cell0(index) : zone->cell1(index), entry);
  };
  std::sort(begin, end, [&keyOf](Number a, Number b) { return keyOf(a) < keyOf(b); });
}

}  // namespace velto::openfoam
