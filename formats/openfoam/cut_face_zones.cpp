// SPDX-License-Identifier: Apache-2.0
//
// Cutting of face zones: two passes over the faces of each, one that meets the pieces and, if there
// are several, one that deals out the faces.

#include "formats/openfoam/cut_face_zones.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "embedded/base/zone_relations.h"

namespace velto::openfoam {

namespace {

/// The cell zones beside a face, as their places from 1 on; 0 for a cell of no zone. Of a boundary
/// face both are that of its cell, of a cyclic one the second is that of its partner's cell.
using Sides = std::pair<int, int>;

/// The piece of each pair of cell zones that faces of a zone lie between.
class Pieces {
 public:
  void meet(const Sides& sides) {
    if (sides == last_) {
      return;
    }
    last_ = sides;
    if (numbers_.emplace(sides, 0).second) {
      met_.push_back(sides);
    }
  }

  /// To be called once all are met. What lies at a cell of no zone goes with the first piece that
  /// agrees, and makes a piece of its own only if none does.
  void number() {
    numbers_.clear();
    for (const Sides& sides : met_) {
      if (sides.first != 0 && sides.second != 0) {
        const std::size_t piece = add(sides);
        for (const Sides& alike : {Sides{sides.first, 0}, Sides{0, sides.second}, Sides{0, 0}}) {
          numbers_.emplace(alike, piece);
        }
      }
    }
    for (const Sides& sides : met_) {
      if (numbers_.count(sides) == 0) {
        add(sides);
      }
    }
  }

  std::size_t numberOf(const Sides& sides) const { return numbers_.at(sides); }

  /// The pairs that gave the pieces, by number.
  const std::vector<Sides>& all() const { return pieces_; }

 private:
  std::size_t add(const Sides& sides) {
    numbers_[sides] = pieces_.size();
    pieces_.push_back(sides);
    return pieces_.size() - 1;
  }

  Sides last_{-1, -1};
  std::vector<Sides> met_;  // each once, in order
  std::vector<Sides> pieces_;
  std::map<Sides, std::size_t> numbers_;
};

base::CellZoneRanges rangesOf(const std::vector<LayoutZone>& cells) {
  std::vector<base::CellZoneRanges::Range> ranges;
  for (const LayoutZone& zone : cells) {
    const int place = static_cast<int>(ranges.size()) + 1;
    ranges.push_back({zone.first + 1, zone.first + zone.count, place});
  }
  return base::CellZoneRanges(std::move(ranges));
}

class Cutter {
 public:
  Cutter(const std::vector<FaceZone>& zones, const PolyMesh& mesh,
         const std::vector<LayoutZone>& cells)
      : mesh_(mesh), cells_(cells), ranges_(rangesOf(cells)) {
    for (const FaceZone& zone : zones) {
      names_.insert(zone.name);
    }
    findPairs();
  }

  void cut(FaceZone zone, std::vector<FaceZone>& result) {
    const std::uint64_t held = facesHeld(zone);
    Pieces pieces;
    for (std::uint64_t i = 0; i < held; ++i) {
      pieces.meet(sidesOf(zone, i));
    }
    pieces.number();
    if (pieces.all().size() < 2) {
      result.push_back(std::move(zone));
      return;
    }
    const std::size_t begin = result.size();
    for (const Sides& sides : pieces.all()) {
      FaceZone& piece = result.emplace_back();
      piece.name = nameOfPiece(zone.name, sides);
      piece.settings = zone.settings;
      piece.patch = zone.patch;
      piece.gathered.emplace();
      piece.isPiece = true;
    }
    for (std::uint64_t i = 0; i < held; ++i) {
      result[begin + pieces.numberOf(sidesOf(zone, i))].gathered->push_back(zone.faceAt(i));
    }
    std::uint64_t next = zone.first;
    for (std::size_t i = begin; i < result.size(); ++i) {
      result[i].first = next;
      result[i].count = result[i].gathered->size();
      next += result[i].count;
    }
    result.back().count += zone.count - held;
  }

 private:
  /// How many faces of a zone there are to look at; a patch may reach past the last face.
  std::uint64_t facesHeld(const FaceZone& zone) const {
    const std::uint64_t faces = mesh_.owner.size();
    return zone.gathered ? zone.gathered->size()
                         : std::min(zone.count, faces - std::min(zone.first, faces));
  }

  void findPairs() {
    const auto partners = cyclicPartners(mesh_.patches);
    pairs_.resize(partners.size());
    for (std::size_t i = 0; i < partners.size(); ++i) {
      if (partners[i] && partners[*partners[i]] == i) {
        const Patch& own = mesh_.patches[i];
        const Patch& other = mesh_.patches[*partners[i]];
        const bool isWhole = own.faceCount == other.faceCount && isWithin(own) && isWithin(other);
        pairs_[i] = isWhole ? &other : nullptr;
      }
    }
  }

  bool isWithin(const Patch& patch) const {
    const std::uint64_t faces = mesh_.owner.size();
    return patch.firstFace <= faces && patch.faceCount <= faces - patch.firstFace;
  }

  Sides sidesOf(const FaceZone& zone, std::uint64_t i) const {
    const std::uint64_t face = zone.faceAt(i);
    const int side0 = zoneBeside(mesh_.owner, face);
    if (zone.isInternal()) {
      return {side0, zoneBeside(mesh_.neighbour, face)};
    }
    const Patch* const other = pairs_[*zone.patch];
    return {side0, other == nullptr ? side0 : zoneBeside(mesh_.owner, other->firstFace + i)};
  }

  int zoneBeside(const memory::IdList& side, std::uint64_t face) const {
    const auto* const found = face < side.size() ? ranges_.find(side[face]) : nullptr;
    return found == nullptr ? 0 : found->zone;
  }

  std::string nameOfPiece(const std::string& zone, const Sides& sides) {
    std::string name = zone + ":" + nameOfCells(sides.first);
    if (sides.second != sides.first) {
      name += ":" + nameOfCells(sides.second);
    }
    int& last = lastNumbers_.emplace(name, 1).first->second;
    std::string unique = name;
    while (!names_.insert(unique).second) {
      unique = name + "-" + std::to_string(++last);
    }
    return unique;
  }

  std::string nameOfCells(int place) const {
    return place == 0 ? "none" : cells_[static_cast<std::size_t>(place) - 1].name;
  }

  const PolyMesh& mesh_;
  const std::vector<LayoutZone>& cells_;
  const base::CellZoneRanges ranges_;
  std::set<std::string> names_;             // of all zones and pieces so far
  std::map<std::string, int> lastNumbers_;  // behind names that were taken
  std::vector<const Patch*> pairs_;         // the other half of each patch that is cut like it
};

}  // namespace

std::vector<FaceZone> cutByCellZones(std::vector<FaceZone> zones, const PolyMesh& mesh,
                                     const std::vector<LayoutZone>& cells) {
  if (cells.size() < 2) {
    return zones;
  }
  Cutter cutter(zones, mesh, cells);
  std::vector<FaceZone> result;
  for (FaceZone& zone : zones) {
    cutter.cut(std::move(zone), result);
  }
  return result;
}

}  // namespace velto::openfoam
