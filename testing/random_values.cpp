// SPDX-License-Identifier: Apache-2.0
//
// Random values that are sound: cells from faces first, then nodes that fit them.

#include "testing/random_values.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <set>
#include <utility>
#include <vector>

namespace velto::testing {

using base::MeshTables;
using memory::CountedData;
using memory::Slice;

namespace {

using Ids = std::vector<std::uint64_t>;

/// How many faces a cell of some type has; those of a polyhedron are its fewest.
struct CellForm {
  int type = 0;
  std::size_t faces = 0;
};

constexpr int kPolyhedron = 7;

class SoundValues {
 public:
  SoundValues(MeshTables& mesh, memory::MeshData& data, Random& random)
      : mesh_(mesh),
        data_(data),
        random_(random),
        faceZones_(mesh.idsOf(zoneCategoryFace)),
        cellZones_(mesh.idsOf(zoneCategoryCell)),
        cellCount_(mesh.size(meshCellCount)),
        fewestOfPolyhedron_(mesh.size(meshDimension) == 2 ? 3 : 4) {}

  void fill() {
    const bool areCellsToldByFaces = data_.cellNodes.zones().size() < cellZones_.size();
    if (cellCount_ > 0) {
      drawSides(areCellsToldByFaces);
      areCellsToldByFaces ? drawFittingTypes() : drawAnyTypes();
      listTypes(areCellsToldByFaces);
      nameCells(areCellsToldByFaces);
    }
    drawFaceNodes();
    drawCellNodes();
    drawCellFaces();
    drawShadows();
  }

 private:
  std::uint64_t sizeOf(int zone) const { return mesh_.zoneSize(zone, zoneElementCount); }
  std::uint64_t firstOf(int zone) const { return mesh_.zoneSize(zone, zoneFirstId); }

  /// Mostly in the order of the ranges, or that of the zone list.
  std::vector<int> inSomeOrder(std::vector<int> zones) {
    if (random_.chance(25)) {
      random_.shuffle(zones);
    }
    return zones;
  }

  /// An id from 1 to `total`.
  std::uint64_t anyId(std::uint64_t total) {
    return 1 + random_.below(static_cast<std::size_t>(total));
  }

  Ids anyIds(std::size_t length, std::uint64_t total) {
    Ids ids(length);
    for (std::uint64_t& id : ids) {
      id = anyId(total);
    }
    return ids;
  }

  // --- The cells beside faces -------------------------------------------------------------------

  /// The last face zone is the one that may grow, so side 0 has it if it has to fit.
  void drawSides(bool hasToFit) {
    const bool hasAll = random_.chance(80);
    for (const int zone : faceZones_) {
      if (hasAll || (hasToFit && zone == lastFaceZone()) || random_.chance(60)) {
        sides_[0].push_back(zone);
      }
      if (random_.chance(40)) {
        sides_[1].push_back(zone);
      }
    }
    sides_[0] = inSomeOrder(sides_[0]);
    sides_[1] = inSomeOrder(sides_[1]);
  }

  int lastFaceZone() const { return *std::max_element(faceZones_.begin(), faceZones_.end()); }

  /// How many cells the faces name.
  std::size_t named() const {
    std::size_t count = 0;
    for (const std::vector<int>& side : sides_) {
      for (const int zone : side) {
        count += static_cast<std::size_t>(sizeOf(zone));
      }
    }
    return count;
  }

  void growFaces() {
    base::ZoneRecord& last = mesh_.zones[lastFaceZone()];
    ++*last.sizes[zoneLastId];
    ++*last.sizes[zoneElementCount];
    ++*mesh_.sizes[meshFaceCount];
  }

  std::vector<CellForm> formsOf(std::size_t cells, std::size_t mostFaces) const {
    std::vector<CellForm> forms;
    for (const CellForm form :
         {CellForm{1, 3}, CellForm{2, 4}, CellForm{3, 4}, CellForm{4, 6}, CellForm{5, 5},
          CellForm{6, 5}, CellForm{kPolyhedron, fewestOfPolyhedron_}, CellForm{8, 1},
          CellForm{9, 4}}) {
      if (form.faces * cells <= mostFaces) {
        forms.push_back(form);
      }
    }
    return forms;
  }

  /// Types for which there are about as many faces as they want; then as many faces as they want.
  void drawFittingTypes() {
    cells_.resize(static_cast<std::size_t>(cellCount_));
    std::size_t faces = std::max(named(), cells_.size()) + random_.below(30);
    std::size_t cellsLeft = cells_.size();
    for (const int zone : cellZones_) {
      const auto size = static_cast<std::size_t>(sizeOf(zone));
      const std::size_t drawnAtOnce = random_.chance(45) ? size : 1;
      for (std::size_t at = 0; at < size; at += drawnAtOnce) {
        cellsLeft -= drawnAtOnce;
        const CellForm form = random_.pick(formsOf(drawnAtOnce, faces - cellsLeft));
        faces -= form.faces * drawnAtOnce;
        const auto first = static_cast<std::size_t>(firstOf(zone)) - 1 + at;
        std::fill_n(cells_.begin() + static_cast<std::ptrdiff_t>(first), drawnAtOnce, form);
      }
    }
    while (named() < wanted()) {
      growFaces();
    }
    while (named() > wanted() && !spend(named() - wanted())) {
      growFaces();
    }
  }

  std::size_t wanted() const {
    return std::accumulate(cells_.begin(), cells_.end(), std::size_t{0},
                           [](std::size_t sum, const CellForm& cell) { return sum + cell.faces; });
  }

  /// Gives cells the faces that are too many: any where faces are subdivided, or a polyhedron.
  /// False if no cell would have enough to be one.
  bool spend(std::size_t surplus) {
    if (areFacesSubdivided()) {
      for (; surplus > 0; --surplus) {
        ++cells_[random_.below(cells_.size())].faces;
      }
      return true;
    }
    std::vector<std::size_t> able;
    for (std::size_t cell = 0; cell < cells_.size(); ++cell) {
      if (cells_[cell].faces + surplus >= fewestOfPolyhedron_) {
        able.push_back(cell);
      }
    }
    if (able.empty()) {
      return false;
    }
    CellForm& chosen = cells_[random_.pick(able)];
    chosen = {kPolyhedron, chosen.faces + surplus};
    return true;
  }

  bool areFacesSubdivided() const {
    const std::vector<int>& parents = data_.treeParentZones;
    return std::any_of(sides_[0].begin(), sides_[0].end(), [&](int zone) {
      return mesh_.zones[zone].faceInfo[faceZoneChild].value_or(0) != 0 ||
             std::count(parents.begin(), parents.end(), zone) > 0;
    });
  }

  /// For a mesh whose cells are not told by faces: nobody asks for types.
  void drawAnyTypes() {
    cells_.resize(static_cast<std::size_t>(cellCount_));
    for (CellForm& cell : cells_) {
      cell.type = random_.between(-1, 10);
    }
  }

  void listTypes(bool haveToBeThere) {
    for (const int zone : inSomeOrder(cellZones_)) {
      const auto size = static_cast<std::size_t>(sizeOf(zone));
      if ((!haveToBeThere || size == 0) && random_.chance(40)) {
        continue;
      }
      std::vector<int> types;
      for (std::size_t at = 0; at < size; ++at) {
        types.push_back(cells_[static_cast<std::size_t>(firstOf(zone)) - 1 + at].type);
      }
      const bool isUniform = !types.empty() && std::count(types.begin(), types.end(), types[0]) ==
                                                   static_cast<std::ptrdiff_t>(types.size());
      memory::CellTypeData& filled = data_.cellTypes[zone];
      if (isUniform && random_.chance(60)) {
        filled.uniform = types[0];
      } else {
        filled.types = Slice<int>(std::move(types));
      }
    }
  }

  /// Each cell as often as it wants faces, in any order; or any cells.
  void nameCells(bool hasToFit) {
    Ids deck;
    for (std::size_t cell = 0; hasToFit && cell < cells_.size(); ++cell) {
      deck.insert(deck.end(), cells_[cell].faces, cell + 1);
    }
    random_.shuffle(deck);
    facesOfCell_.resize(cells_.size());
    for (const std::size_t side : {0U, 1U}) {
      const base::Family family = side == 0 ? base::Family::faceCell0 : base::Family::faceCell1;
      for (const int zone : sides_[side]) {
        Ids cells;
        for (std::uint64_t face = firstOf(zone); cells.size() < sizeOf(zone); ++face) {
          if (hasToFit) {
            cells.push_back(deck.back());
            deck.pop_back();
          } else {
            cells.push_back(anyId(cellCount_));
          }
          facesOfCell_[static_cast<std::size_t>(cells.back()) - 1].push_back(face);
        }
        data_.faceIds(family)[zone] = Slice<std::uint64_t>(std::move(cells));
      }
    }
  }

  // --- Nodes and faces of elements --------------------------------------------------------------

  static CountedData counted(const std::vector<Ids>& lists, bool isUniform) {
    CountedData made;
    std::vector<short> counts;
    Ids ids;
    for (const Ids& list : lists) {
      counts.push_back(static_cast<short>(list.size()));
      ids.insert(ids.end(), list.begin(), list.end());
    }
    if (isUniform && !counts.empty()) {
      made.uniform = counts[0];
    } else {
      made.counts = Slice<short>(std::move(counts));
    }
    made.ids = Slice<std::uint64_t>(std::move(ids));
    return made;
  }

  /// An element without nodes is nothing to complain about unless it is the last of its zone.
  bool mayBeEmpty(std::size_t at, std::uint64_t size) { return at + 1 < size && random_.chance(3); }

  void drawFaceNodes() {
    for (const int zone : inSomeOrder(faceZones_)) {
      const bool isUniform = random_.chance(50);
      const std::size_t uniform = 1 + random_.below(5);
      std::vector<Ids> lists;
      while (lists.size() < sizeOf(zone)) {
        const std::size_t length = isUniform                                ? uniform
                                   : mayBeEmpty(lists.size(), sizeOf(zone)) ? 0
                                                                            : 1 + random_.below(5);
        lists.push_back(anyIds(length, mesh_.size(meshNodeCount)));
      }
      data_.faceNodes[zone] = counted(lists, isUniform);
      nodesOfFace_.insert(nodesOfFace_.end(), lists.begin(), lists.end());
    }
  }

  /// The nodes that the faces of the cell have. Both are found by their place in the lists of their
  /// families, which need not be the order of ids.
  Ids nodesFor(std::size_t cell) {
    std::set<std::uint64_t> nodes;
    for (const std::uint64_t face : facesOfCell_[cell]) {
      const Ids& more = nodesOfFace_[static_cast<std::size_t>(face) - 1];
      nodes.insert(more.begin(), more.end());
    }
    Ids drawn(nodes.begin(), nodes.end());
    const Ids more =
        anyIds(drawn.empty() ? 1 + random_.below(8) : random_.below(3), mesh_.size(meshNodeCount));
    drawn.insert(drawn.end(), more.begin(), more.end());
    random_.shuffle(drawn);
    return drawn;
  }

  void drawCellNodes() {
    std::size_t cell = 0;
    for (const int zone : data_.cellNodes.zones()) {
      const bool isUniform = random_.chance(50);
      std::vector<Ids> lists;
      std::size_t longest = 0;
      for (; lists.size() < sizeOf(zone); ++cell) {
        const bool isEmpty = !isUniform && mayBeEmpty(lists.size(), sizeOf(zone));
        lists.push_back(isEmpty ? Ids() : nodesFor(cell));
        longest = std::max(longest, lists.back().size());
      }
      for (Ids& list : lists) {
        while (isUniform && list.size() < longest) {
          list.push_back(anyId(mesh_.size(meshNodeCount)));
        }
      }
      data_.cellNodes[zone] = counted(lists, isUniform);
    }
  }

  void drawCellFaces() {
    for (const int zone : data_.cellFaces.zones()) {
      const bool isUniform = random_.chance(50);
      const std::size_t uniform = random_.below(7);
      std::vector<Ids> lists;
      while (lists.size() < sizeOf(zone)) {
        const std::size_t length = isUniform ? uniform : random_.below(7);
        lists.push_back(anyIds(length, mesh_.size(meshFaceCount)));
      }
      data_.cellFaces[zone] = counted(lists, isUniform);
    }
  }

  /// A zone without shadow zone may be listed; its values mean nothing.
  void drawShadows() {
    for (const int zone : inSomeOrder(faceZones_)) {
      const int shadow = mesh_.zones[zone].faceInfo[faceZoneShadow].value_or(0);
      const bool isLinked = shadow > 0;
      const bool isPossible = !isLinked || sizeOf(shadow) > 0 || sizeOf(zone) == 0;
      if (!isPossible || !random_.chance(isLinked ? 80 : 15)) {
        continue;
      }
      Ids shadows;
      while (shadows.size() < sizeOf(zone)) {
        shadows.push_back(isLinked ? firstOf(shadow) - 1 + anyId(sizeOf(shadow))
                                   : random_.below(4));
      }
      data_.faceShadows[zone] = Slice<std::uint64_t>(std::move(shadows));
    }
  }

  MeshTables& mesh_;
  memory::MeshData& data_;
  Random& random_;
  const std::vector<int> faceZones_;
  const std::vector<int> cellZones_;
  const std::uint64_t cellCount_;
  const std::size_t fewestOfPolyhedron_;
  std::array<std::vector<int>, 2> sides_;  // face zones that say which cells are there
  std::vector<CellForm> cells_;
  std::vector<Ids> facesOfCell_;
  std::vector<Ids> nodesOfFace_;
};

}  // namespace

void addSoundValues(MeshTables& mesh, memory::MeshData& data, Random& random) {
  SoundValues(mesh, data, random).fill();
}

}  // namespace velto::testing
