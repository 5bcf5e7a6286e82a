// SPDX-License-Identifier: Apache-2.0
//
// The families of bulk reads as data, so that what tools do with every family is written once.

#ifndef VELTO_DATA_ACCESS_FAMILIES_H
#define VELTO_DATA_ACCESS_FAMILIES_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "data_access/OrvProvider.h"

namespace velto {

/// What opens a family, filling the list of the zones that carry it, and what closes it.
struct ReadFamily {
  /// Opens the family and replaces `zoneIds` by the zones that carry it.
  void (OrvProvider::*begin)(std::vector<int>& zoneIds);
  /// Closes the family.
  void (OrvProvider::*end)();
};

/// A family whose elements list ids: first how many each, one number for a whole zone or one an
/// element, then the lists of a zone one after the other.
struct CountedReadFamily : ReadFamily {
  /// Opens the counts, before the ids.
  void (OrvProvider::*beginCounts)();
  /// True, and the count, if all elements of the zone have one.
  bool (OrvProvider::*getUniformCount)(int zoneId, short& count);
  /// One count an element of the zone, `n` in all.
  void (OrvProvider::*readCounts)(int zoneId, short* counts, std::size_t n);
  /// Closes the counts.
  void (OrvProvider::*endCounts)();
  /// Opens the ids.
  void (OrvProvider::*beginIds)();
  /// The zone's list, `n` ids in all: uniformListLength or summedListLength tells how many.
  void (OrvProvider::*readIds)(int zoneId, std::uint64_t* ids, std::size_t n);
  /// Closes the ids.
  void (OrvProvider::*endIds)();
};

/// One side of the faces: a cell id a face, of one face or of all faces of a zone.
struct SideReadFamily : ReadFamily {
  /// The cell beside one face, by the id of the face.
  std::uint64_t (OrvProvider::*getCell)(std::uint64_t faceId);
  /// The cells beside all faces of a zone.
  void (OrvProvider::*readCells)(int zoneId, std::uint64_t* cellIds, std::size_t n);
};

/// The nodes of faces, in loop order.
inline constexpr CountedReadFamily kFaceNodes = {
    {&OrvProvider::beginFaceNodes, &OrvProvider::endFaceNodes},
    &OrvProvider::beginFaceNodeCounts,
    &OrvProvider::getUniformFaceNodeCount,
    &OrvProvider::readFaceNodeCounts,
    &OrvProvider::endFaceNodeCounts,
    &OrvProvider::beginFaceNodeIds,
    &OrvProvider::readFaceNodeIds,
    &OrvProvider::endFaceNodeIds};

/// The nodes of cells.
inline constexpr CountedReadFamily kCellNodes = {
    {&OrvProvider::beginCellNodes, &OrvProvider::endCellNodes},
    &OrvProvider::beginCellNodeCounts,
    &OrvProvider::getUniformCellNodeCount,
    &OrvProvider::readCellNodeCounts,
    &OrvProvider::endCellNodeCounts,
    &OrvProvider::beginCellNodeIds,
    &OrvProvider::readCellNodeIds,
    &OrvProvider::endCellNodeIds};

/// The faces of cells that list their own.
inline constexpr CountedReadFamily kCellFaces = {
    {&OrvProvider::beginCellFaces, &OrvProvider::endCellFaces},
    &OrvProvider::beginCellFaceCounts,
    &OrvProvider::getUniformCellFaceCount,
    &OrvProvider::readCellFaceCounts,
    &OrvProvider::endCellFaceCounts,
    &OrvProvider::beginCellFaceIds,
    &OrvProvider::readCellFaceIds,
    &OrvProvider::endCellFaceIds};

/// The cells on side 0 of faces.
inline constexpr SideReadFamily kFaceCell0 = {
    {&OrvProvider::beginFaceCell0, &OrvProvider::endFaceCell0},
    &OrvProvider::getFaceCell0,
    &OrvProvider::readFaceCell0};
/// The cells on side 1 of faces.
inline constexpr SideReadFamily kFaceCell1 = {
    {&OrvProvider::beginFaceCell1, &OrvProvider::endFaceCell1},
    &OrvProvider::getFaceCell1,
    &OrvProvider::readFaceCell1};

/// The length of a zone's list where all its elements have `count` ids. Exact.
inline std::int64_t uniformListLength(short count, std::uint64_t elementCount) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(count) * elementCount);
}

/// The length of a zone's list where each element has a count of its own.
/// Kept: the sum is one of 32 bits, and wraps for a list of more than 2^31 - 1 ids.
inline std::int64_t summedListLength(const short* counts, std::size_t n) {
  std::uint32_t sum = 0;
  for (std::size_t i = 0; i < n; ++i) {
    sum += static_cast<std::uint32_t>(counts[i]);
  }
  return static_cast<std::int32_t>(sum);
}

/// The zones that carry a family, in the provider's order. Opens the family and closes it at once;
/// REQUIRES: no family is open.
inline std::vector<int> listZones(OrvProvider& provider, const ReadFamily& family) {
  std::vector<int> zoneIds;
  (provider.*family.begin)(zoneIds);
  (provider.*family.end)();
  return zoneIds;
}

/// The parent zones of the face tree, which is opened and closed at once as well.
inline std::vector<int> listTreeParents(OrvProvider& provider) {
  std::vector<int> parents;
  std::vector<int> children;
  provider.beginFaceTree(parents, children);
  provider.endFaceTree();
  return parents;
}

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_FAMILIES_H
