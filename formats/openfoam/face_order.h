// SPDX-License-Identifier: Apache-2.0
//
// The order of faces in a polyMesh, and which way round each has to be written.

#ifndef VELTO_FORMATS_OPENFOAM_FACE_ORDER_H
#define VELTO_FORMATS_OPENFOAM_FACE_ORDER_H

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "formats/openfoam/MeshToWrite.h"
#include "formats/openfoam/written_zones.h"

namespace velto::openfoam {

/// A face as it is written: where it comes from, and whether its loop is reversed so that its
/// normal points from the owner to the neighbour, or outwards.
struct PlacedFace {
  const FaceZoneToWrite* zone = nullptr;
  std::uint64_t index = 0;
  std::uint64_t start = 0;  ///< Where its nodes begin in those of the zone.
  bool isFlipped = false;

  std::uint64_t owner() const { return isFlipped ? zone->cell1(index) : zone->cell0(index); }
  std::uint64_t neighbour() const { return isFlipped ? zone->cell0(index) : zone->cell1(index); }
  std::uint64_t nodeCount() const { return zone->nodeCount(index); }
};

/// Faces with the labels from `first` on: those of one zone in the order of the case, or faces that
/// had to be sorted.
struct FaceRun {
  const FaceZoneToWrite* zone = nullptr;  ///< Null if they were sorted.
  std::uint64_t first = 0;
  std::uint64_t count = 0;
  std::uint64_t place = 0;  ///< Of sorted faces: where the run begins among them.

  /// The faces can be written as they stand in `zone`.
  bool isPlain() const { return zone != nullptr && zone->isInOrder; }
};

/// Internal faces by owner, then by neighbour, then in the order of the case; behind them the
/// patches as given, each with the faces of its zones. The owner is the cell of the lower id.
class FaceOrder {
 public:
  /// The mesh has to outlive the order.
  FaceOrder(const MeshToWrite& mesh, const std::vector<WrittenPatch>& patches);

  std::uint64_t size() const { return size_; }

  /// All faces by label. The internal ones are the first runs, however many.
  const std::vector<FaceRun>& runs() const { return runs_; }

 private:
  friend class FaceWalk;

  static PlacedFace placed(const FaceZoneToWrite& zone, std::uint64_t index, std::uint64_t start) {
    const std::uint64_t cell0 = zone.cell0(index);
    const std::uint64_t cell1 = zone.cell1(index);
    return {&zone, index, start, cell0 == 0 || (cell1 != 0 && cell1 < cell0)};
  }

  std::uint64_t sorted(std::uint64_t place) const {
    const auto i = static_cast<std::size_t>(place);
    return isWide_ ? wide_[i] : narrow_[i];
  }

  /// The zone of a face by its number; `zone` is where the last one was, or null.
  void findZone(std::uint64_t number, const FaceZoneToWrite*& zone) const {
    if (zone == nullptr || number - zone->begin >= zone->count) {
      zone = &mesh_.faceZones[mesh_.zoneOf(number)];
    }
  }

  std::uint64_t startOf(const FaceZoneToWrite& zone, std::uint64_t index) const {
    return zone.uniform != 0 ? index * zone.uniform
                             : starts_[mesh_.placeOf(zone)][static_cast<std::size_t>(index)];
  }

  bool isInternalInOrder() const;
  void addZone(const FaceZoneToWrite& zone);
  void addInternal();
  void addPatch(const WrittenPatch& patch);
  void keepStarts(const FaceZoneToWrite& zone);

  template <class Number>
  void sortInternal(std::vector<Number>& sorted);
  template <class Number>
  void sortByNeighbour(Number* begin, Number* end, const FaceZoneToWrite*& zone) const;
  template <class Number>
  void sortByPoints(const WrittenPatch& patch, std::vector<Number>& sorted);

  const MeshToWrite& mesh_;
  bool isWide_;  // what is sorted needs 64 bits
  std::uint64_t size_ = 0;
  std::vector<FaceRun> runs_;
  // Numbers of sorted faces, doubled, and one more where the face is flipped: in one of both.
  std::vector<std::uint32_t> narrow_;
  std::vector<std::uint64_t> wide_;
  std::vector<std::vector<std::uint64_t>> starts_;  // of faces, in zones that are sorted, by zone
};

/// Goes through the faces of a run, one after the other.
class FaceWalk {
 public:
  FaceWalk(const FaceOrder& order, const FaceRun& run) : order_(order), run_(run) {}

  /// To be called once for each face of the run.
  PlacedFace next() {
    const std::uint64_t i = next_++;
    if (run_.zone != nullptr) {
      const std::uint64_t start = std::exchange(start_, start_ + run_.zone->nodeCount(i));
      return FaceOrder::placed(*run_.zone, i, start);
    }
    const std::uint64_t entry = order_.sorted(run_.place + i);
    order_.findZone(entry / 2, zone_);
    const std::uint64_t index = entry / 2 - zone_->begin;
    return {zone_, index, order_.startOf(*zone_, index), entry % 2 != 0};
  }

 private:
  const FaceOrder& order_;
  const FaceRun& run_;
  std::uint64_t next_ = 0;
  std::uint64_t start_ = 0;
  const FaceZoneToWrite* zone_ = nullptr;  // of the last face that was sorted
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_FACE_ORDER_H
