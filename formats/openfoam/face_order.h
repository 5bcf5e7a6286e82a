// SPDX-License-Identifier: Apache-2.0
//
// The order of faces in a polyMesh, and which way round each has to be written.

#ifndef VELTO_FORMATS_OPENFOAM_FACE_ORDER_H
#define VELTO_FORMATS_OPENFOAM_FACE_ORDER_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "formats/openfoam/MeshToWrite.h"
#include "formats/openfoam/written_zones.h"

namespace velto::openfoam {

/// A face as it is written: where it comes from, and whether its loop is reversed so that its
/// normal points from the owner to the neighbour, or outwards.
struct PlacedFace {
  const FaceZoneToWrite* zone = nullptr;
  std::uint64_t index = 0;
  bool isFlipped = false;

  std::uint64_t owner() const { return isFlipped ? zone->cell1(index) : zone->cell0(index); }
  std::uint64_t neighbour() const { return isFlipped ? zone->cell0(index) : zone->cell1(index); }
  const std::uint64_t* nodes() const { return zone->nodes + zone->startOf(index); }
  std::uint64_t nodeCount() const { return zone->startOf(index + 1) - zone->startOf(index); }
};

/// Internal faces by owner, then by neighbour, then in the order of the case; behind them the
/// patches as given, each with the faces of its zones. The owner is the cell of the lower id.
class FaceOrder {
 public:
  /// The mesh has to outlive the order.
  FaceOrder(const MeshToWrite& mesh, const std::vector<WrittenPatch>& patches);

  std::uint64_t size() const { return faces_.size(); }
  PlacedFace at(std::uint64_t label) const;

 private:
  void addInternal();
  void addPatch(const WrittenPatch& patch);
  void sortByPoints(std::size_t begin);
  void sortBy(bool isOwner, std::vector<std::uint64_t>& sorted) const;

  const MeshToWrite& mesh_;
  std::vector<std::uint64_t> faces_;  // numbers of faces by label
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_FACE_ORDER_H
