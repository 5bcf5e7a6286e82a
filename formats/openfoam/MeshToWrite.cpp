// SPDX-License-Identifier: Apache-2.0
//
// Judging a mesh that is to be written: zones, then node ids, then cells, face by face.

#include "formats/openfoam/MeshToWrite.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

#include "embedded/base/CaseError.h"
#include "embedded/base/shapes.h"

namespace velto::openfoam {

using base::CaseError;

namespace {

/// Whether cells on side 0 are below those on side 1, and faces ascend by both. Told block by block
/// by a loop without branches.
template <class Id0, class Id1>
bool isUpperTriangular(const Id0* cell0, const Id1* cell1, std::size_t n) {
  constexpr std::size_t kBlock = 4096;
  bool isWrong = n > 0 && cell0[0] >= cell1[0];
  for (std::size_t begin = 1; begin < n && !isWrong; begin += kBlock) {
    const std::size_t end = std::min(n, begin + kBlock);
    unsigned wrong = 0;
    for (std::size_t i = begin; i < end; ++i) {
      const bool isTurned = cell0[i] >= cell1[i];
      const bool isBelow = cell0[i] < cell0[i - 1];
      const bool isBelowInRow = (cell0[i] == cell0[i - 1]) & (cell1[i] < cell1[i - 1]);
      wrong |= static_cast<unsigned>(isTurned | isBelow | isBelowInRow);
    }
    isWrong = wrong != 0;
  }
  return !isWrong;
}

bool isUpperTriangular(const KeptIds& side0, const KeptIds& side1) {
  return side0.with([&](const auto* cell0) {
    return side1.with(
        [&](const auto* cell1) { return isUpperTriangular(cell0, cell1, side0.size()); });
  });
}

class Judge {
 public:
  Judge(std::string mesh, const base::MeshTables& tables, const KeptArrays& arrays)
      : mesh_(std::move(mesh)), tables_(tables), arrays_(arrays) {}

  MeshToWrite run() {
    const std::uint64_t dimension = tables_.size(meshDimension);
    if (dimension != 0 && dimension != 3) {
      throw CaseError(mesh_ + ": is of dimension " + std::to_string(dimension) +
                      ", OpenFOAM meshes are of dimension 3");
    }
    takeNodes();
    takeCells();
    takeFaces();
    for (const FaceZoneToWrite& zone : result_.faceZones) {
      judgeNodes(zone);
    }
    judgeCells();
    return std::move(result_);
  }

 private:
  [[noreturn]] static void fail(const ZoneToWrite& zone, const std::string& what) {
    throw CaseError(shownZone(zone.id, zone.name) + ": " + what);
  }

  [[noreturn]] static void failFace(const ZoneToWrite& zone, std::uint64_t i,
                                    const std::string& what) {
    fail(zone, "face " + std::to_string(zone.firstId + i) + " " + what);
  }

  ZoneToWrite zoneOf(int id) const {
    const auto record = tables_.zones.find(id);
    ZoneToWrite zone;
    zone.id = id;
    if (record == tables_.zones.end()) {
      fail(zone, "is listed and has no entry");
    }
    zone.name = record->second.texts[zoneName].value_or("");
    const auto& first = record->second.sizes[zoneFirstId];
    const auto& last = record->second.sizes[zoneLastId];
    if (!first || !last || *first == 0 || *last < *first - 1) {
      fail(zone, "has no range of ids");
    }
    zone.firstId = *first;
    zone.count = *last - *first + 1;
    return zone;
  }

  /// The zones of a category in the order of their ids, which go from 1 on without a gap; those
  /// without elements left out.
  std::vector<ZoneToWrite> rowOfZones(OrvZoneCategory category, const std::string& element,
                                      std::uint64_t& total) const {
    std::vector<ZoneToWrite> zones;
    for (const int id : tables_.idsOf(category)) {
      zones.push_back(zoneOf(id));
    }
    std::stable_sort(zones.begin(), zones.end(), [](const ZoneToWrite& a, const ZoneToWrite& b) {
      return a.firstId < b.firstId;
    });
    zones.erase(std::remove_if(zones.begin(), zones.end(),
                               [](const ZoneToWrite& zone) { return zone.count == 0; }),
                zones.end());
    total = 0;
    for (const ZoneToWrite& zone : zones) {
      if (zone.firstId != total + 1) {
        fail(zone, "begins with " + element + " " + std::to_string(zone.firstId) + ", expected " +
                       std::to_string(total + 1));
      }
      total += zone.count;
    }
    if (total == 0) {
      throw CaseError(mesh_ + ": has no " + element + "s");
    }
    return zones;
  }

  void takeNodes() {
    result_.nodeZones = rowOfZones(zoneCategoryNode, "node", result_.nodeCount);
    for (const ZoneToWrite& zone : result_.nodeZones) {
      const auto* const values = arrays_.nodeCoordinates.find(zone.id);
      const std::size_t size = values == nullptr ? 0 : values->size();
      if (values == nullptr || size % 3 != 0 || size / 3 != zone.count) {
        fail(zone, "has " + std::to_string(zone.count) + " nodes and " + std::to_string(size) +
                       " coordinates, expected 3 for each node");
      }
      result_.coordinates.push_back(values->data());
    }
  }

  void takeCells() {
    rowOfZones(zoneCategoryCell, "cell", result_.cellCount);
    for (const int id : tables_.idsOf(zoneCategoryCell)) {
      result_.cellZones.push_back(zoneOf(id));
    }
  }

  void takeFaces() {
    rowOfZones(zoneCategoryFace, "face", result_.faceCount);
    result_.faceCount = 0;
    for (const int id : tables_.idsOf(zoneCategoryFace)) {
      FaceZoneToWrite zone;
      static_cast<ZoneToWrite&>(zone) = zoneOf(id);
      zone.begin = result_.faceCount;
      if (zone.count > 0) {
        takeFaceNodes(zone);
        takeSides(zone);
      }
      zone.isInternal = isInternal(zone);
      result_.faceCount += zone.count;
      result_.internalCount += zone.isInternal ? zone.count : 0;
      result_.faceZones.push_back(std::move(zone));
    }
  }

  void takeFaceNodes(FaceZoneToWrite& zone) {
    const KeptFaceNodes* const data = arrays_.faceNodes.find(zone.id);
    if (data == nullptr || data->ids.size() == 0) {
      fail(zone, "the nodes of its faces are missing");
    }
    const auto failCount = [&zone](std::size_t found) {
      fail(zone, "has " + std::to_string(zone.count) + " faces, and numbers of nodes for " +
                     std::to_string(found));
    };
    zone.nodes = &data->ids;
    const std::uint64_t held = data->ids.size();
    std::uint64_t wanted = 0;
    if (data->uniform) {
      zone.uniform = static_cast<std::uint64_t>(std::max<short>(*data->uniform, 0));
      if (zone.uniform < 3) {
        failFace(zone, 0, "has " + std::to_string(*data->uniform) + " nodes, expected 3 or more");
      }
      if (held / zone.uniform < zone.count) {
        failCount(held / zone.uniform);
      }
      wanted = zone.uniform * zone.count;
    } else {
      if (data->counts.size() != zone.count) {
        failCount(data->counts.size());
      }
      zone.counts = data->counts.data();
      wanted = sumOfCounts(zone);
    }
    if (wanted != held) {
      fail(zone, "has " + std::to_string(held) + " node ids, and " + std::to_string(wanted) +
                     " by the numbers of nodes of its faces");
    }
    result_.faceNodeCount += held;
  }

  static std::uint64_t sumOfCounts(const FaceZoneToWrite& zone) {
    const short* const end = zone.counts + zone.count;
    const short* const wrong =
        std::find_if(zone.counts, end, [](short count) { return count < 3; });
    if (wrong != end) {
      failFace(zone, static_cast<std::uint64_t>(wrong - zone.counts),
               "has " + std::to_string(*wrong) + " nodes, expected 3 or more");
    }
    return std::accumulate(zone.counts, end, std::uint64_t{0});
  }

  void takeSides(FaceZoneToWrite& zone) {
    zone.side0 = sideOf(zone, arrays_.faceCell0, "side 0");
    if (zone.side0 == nullptr) {
      fail(zone, "the cells on side 0 of its faces are missing");
    }
    zone.side1 = sideOf(zone, arrays_.faceCell1, "side 1");
    sideCount_ += zone.count * (zone.side1 == nullptr ? 1U : 2U);
  }

  static const KeptIds* sideOf(const FaceZoneToWrite& zone, const memory::ZoneList<KeptIds>& sides,
                               const std::string& side) {
    const auto* const cells = sides.find(zone.id);
    if (cells == nullptr || cells->size() == 0) {
      return nullptr;
    }
    if (cells->size() != zone.count) {
      fail(zone, "has " + std::to_string(zone.count) + " faces and " +
                     std::to_string(cells->size()) + " cells on " + side);
    }
    return cells;
  }

  /// By its type; a type of other programs says nothing, the first face tells.
  bool isInternal(const FaceZoneToWrite& zone) const {
    switch (tables_.zones.at(zone.id).faceInfo[faceZoneType].value_or(faceZoneTypeNone)) {
      case faceZoneTypeInterior:
      case faceZoneType14:
        return true;
      case base::boundaryWall:
      case base::boundaryPeriodic:
      case base::boundaryPeriodicShadow:
      case base::boundaryPatch:
      case base::boundarySymmetry:
      case base::boundaryEmpty:
      case base::boundaryWedge:
      case base::boundaryProcessor:
      case base::boundaryCoupled:
        return false;
      default:
        return zone.count > 0 && zone.cell0(0) != 0 && zone.cell1(0) != 0;
    }
  }

  void judgeNodes(const FaceZoneToWrite& zone) const {
    if (zone.count == 0 ||
        (zone.nodes->least() >= 1 && zone.nodes->greatest() <= result_.nodeCount)) {
      return;
    }
    std::uint64_t k = 0;
    while ((*zone.nodes)[k] - 1 < result_.nodeCount) {
      ++k;
    }
    std::uint64_t face = 0;
    for (std::uint64_t end = zone.nodeCount(0); end <= k; end += zone.nodeCount(face)) {
      ++face;
    }
    failFace(zone, face,
             "has node " + std::to_string((*zone.nodes)[k]) + ", the mesh has " +
                 std::to_string(result_.nodeCount) + " nodes");
  }

  void judgeCells() {
    if (result_.cellCount > sideCount_) {
      throw CaseError(mesh_ + ": has " + std::to_string(result_.cellCount) + " cells and only " +
                      std::to_string(result_.faceCount) + " faces");
    }
    for (FaceZoneToWrite& zone : result_.faceZones) {
      zone.isInOrder = zone.count == 0 || judgeZone(zone);
    }
    findBareCells();
  }

  /// Whether the faces are in order too. The ranges of the ids mostly tell that all cells are
  /// right, else each face is judged.
  bool judgeZone(const FaceZoneToWrite& zone) const {
    const KeptIds none;
    const KeptIds& side0 = *zone.side0;
    const KeptIds& side1 = zone.side1 == nullptr ? none : *zone.side1;
    const bool isInRange = std::max(side0.greatest(), side1.greatest()) <= result_.cellCount;
    if (isInRange && !zone.isInternal && side0.least() >= 1 && side1.greatest() == 0) {
      return true;
    }
    if (isInRange && zone.isInternal && side0.least() >= 1 && side1.size() > 0 &&
        side1.least() >= 1 && isUpperTriangular(side0, side1)) {
      return true;
    }
    for (std::uint64_t i = 0; i < zone.count; ++i) {
      judgeSides(zone, i);
    }
    return false;
  }

  /// Cells count from 1: the first mark is that of no cell.
  void findBareCells() const {
    std::vector<char> isBounded(static_cast<std::size_t>(result_.cellCount) + 1, 0);
    const auto bare = [&isBounded] {
      return static_cast<const char*>(std::memchr(isBounded.data() + 1, 0, isBounded.size() - 1));
    };
    for (const auto side : {&FaceZoneToWrite::side0, &FaceZoneToWrite::side1}) {
      for (const FaceZoneToWrite& zone : result_.faceZones) {
        mark(zone.*side, isBounded.data());
      }
      if (bare() == nullptr) {
        return;
      }
    }
    failCell(static_cast<std::uint64_t>(bare() - isBounded.data()));
  }

  static void mark(const KeptIds* cells, char* isBounded) {
    if (cells != nullptr) {
      cells->with([cells, isBounded](const auto* ids) {
        for (std::size_t i = 0; i < cells->size(); ++i) {
          isBounded[ids[i]] = 1;
        }
      });
    }
  }

  void judgeSides(const FaceZoneToWrite& zone, std::uint64_t i) const {
    const std::uint64_t cell0 = zone.cell0(i);
    const std::uint64_t cell1 = zone.cell1(i);
    for (const std::uint64_t cell : {cell0, cell1}) {
      if (cell > result_.cellCount) {
        failFace(zone, i,
                 "has cell " + std::to_string(cell) + ", the mesh has " +
                     std::to_string(result_.cellCount) + " cells");
      }
    }
    if (cell0 == 0 && cell1 == 0) {
      failFace(zone, i, "has no cell");
    }
    const bool hasBoth = cell0 != 0 && cell1 != 0;
    if (zone.isInternal && !hasBoth) {
      failFace(zone, i, "has a cell on one side only, and the zone lies inside the mesh");
    }
    if (!zone.isInternal && hasBoth) {
      failFace(zone, i, "has cells on both sides, and the zone is a boundary");
    }
    if (cell0 == cell1) {
      failFace(zone, i, "has cell " + std::to_string(cell0) + " on both sides");
    }
  }

  [[noreturn]] void failCell(std::uint64_t cell) const {
    for (const ZoneToWrite& zone : result_.cellZones) {
      if (cell >= zone.firstId && cell - zone.firstId < zone.count) {
        fail(zone, "cell " + std::to_string(cell) + " has no face");
      }
    }
    throw CaseError(mesh_ + ": cell " + std::to_string(cell) + " has no face");
  }

  std::string mesh_;
  const base::MeshTables& tables_;
  const KeptArrays& arrays_;
  MeshToWrite result_;
  std::uint64_t sideCount_ = 0;  // sides of faces that can have a cell
};

}  // namespace

std::string shownZone(int id, const std::string& name) {
  return "zone " + std::to_string(id) + " '" + name + "'";
}

std::size_t MeshToWrite::zoneOf(std::uint64_t face) const {
  const auto after = std::upper_bound(
      faceZones.begin(), faceZones.end(), face,
      [](std::uint64_t wanted, const FaceZoneToWrite& zone) { return wanted < zone.begin; });
  return static_cast<std::size_t>(after - faceZones.begin()) - 1;
}

const double* MeshToWrite::pointOf(std::uint64_t node) const {
  const auto after = std::upper_bound(
      nodeZones.begin(), nodeZones.end(), node,
      [](std::uint64_t wanted, const ZoneToWrite& zone) { return wanted < zone.firstId; });
  const auto place = static_cast<std::size_t>(after - nodeZones.begin()) - 1;
  return coordinates[place] + 3 * (node - nodeZones[place].firstId);
}

MeshToWrite judgeMesh(const std::string& mesh, const base::MeshTables& tables,
                      const KeptArrays& arrays) {
  return Judge(mesh, tables, arrays).run();
}

}  // namespace velto::openfoam
