// SPDX-License-Identifier: Apache-2.0
//
// Upper-triangular order by two stable counting sorts, by neighbour and then by owner.

#include "formats/openfoam/face_order.h"

#include <algorithm>
#include <array>
#include <cstring>
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

PlacedFace placed(const FaceZoneToWrite& zone, std::uint64_t index) {
  const std::uint64_t cell0 = zone.cell0(index);
  const std::uint64_t cell1 = zone.cell1(index);
  return {&zone, index, cell0 == 0 || (cell1 != 0 && cell1 < cell0)};
}

}  // namespace

FaceOrder::FaceOrder(const MeshToWrite& mesh, const std::vector<WrittenPatch>& patches)
    : mesh_(mesh) {
  faces_.reserve(static_cast<std::size_t>(mesh.faceCount));
  addInternal();
  for (const WrittenPatch& patch : patches) {
    addPatch(patch);
  }
}

void FaceOrder::addPatch(const WrittenPatch& patch) {
  const std::size_t begin = faces_.size();
  for (const std::size_t place : patch.zones) {
    const FaceZoneToWrite& zone = mesh_.faceZones[place];
    for (std::uint64_t i = 0; i < zone.count; ++i) {
      faces_.push_back(zone.begin + i);
    }
  }
  if (patch.isInOrderOfPoints) {
    sortByPoints(begin);
  }
}

void FaceOrder::sortByPoints(std::size_t begin) {
  std::vector<std::pair<std::vector<Bits>, std::uint64_t>> keyed;
  for (std::size_t label = begin; label < faces_.size(); ++label) {
    const PlacedFace face = at(label);
    std::vector<Bits> points;
    for (std::uint64_t k = 0; k < face.nodeCount(); ++k) {
      points.push_back(bitsOf(mesh_.pointOf(face.nodes()[k])));
    }
    std::sort(points.begin(), points.end());
    keyed.emplace_back(std::move(points), faces_[label]);
  }
  std::stable_sort(keyed.begin(), keyed.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  for (std::size_t i = 0; i < keyed.size(); ++i) {
    faces_[begin + i] = keyed[i].second;
  }
}

void FaceOrder::addInternal() {
  for (const FaceZoneToWrite& zone : mesh_.faceZones) {
    for (std::uint64_t i = 0; zone.isInternal && i < zone.count; ++i) {
      faces_.push_back(zone.begin + i);
    }
  }
  std::vector<std::uint64_t> sorted(faces_.size());
  sortBy(false, sorted);
  faces_.swap(sorted);
  sortBy(true, sorted);
  faces_.swap(sorted);
  faces_.reserve(static_cast<std::size_t>(mesh_.faceCount));
}

void FaceOrder::sortBy(bool isOwner, std::vector<std::uint64_t>& sorted) const {
  const auto cellOf = [&](std::uint64_t label) {
    const PlacedFace face = at(label);
    return static_cast<std::size_t>(isOwner ? face.owner() : face.neighbour());
  };
  // Cells count from 1: starts[cell] is where its faces begin once the sums are made.
  std::vector<std::uint64_t> starts(static_cast<std::size_t>(mesh_.cellCount) + 2, 0);
  for (std::uint64_t label = 0; label < faces_.size(); ++label) {
    ++starts[cellOf(label) + 1];
  }
  for (std::size_t cell = 1; cell < starts.size(); ++cell) {
    starts[cell] += starts[cell - 1];
  }
  for (std::uint64_t label = 0; label < faces_.size(); ++label) {
    sorted[static_cast<std::size_t>(starts[cellOf(label)]++)] =
        faces_[static_cast<std::size_t>(label)];
  }
}

PlacedFace FaceOrder::at(std::uint64_t label) const {
  const std::uint64_t face = faces_[static_cast<std::size_t>(label)];
  const FaceZoneToWrite& zone = mesh_.faceZones[mesh_.zoneOf(face)];
  return placed(zone, face - zone.begin);
}

}  // namespace velto::openfoam
