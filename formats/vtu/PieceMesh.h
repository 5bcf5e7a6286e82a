// SPDX-License-Identifier: Apache-2.0
//
// PieceMesh: the mesh of one piece of the file, its lists held against its counts.

#ifndef VELTO_FORMATS_VTU_PIECE_MESH_H
#define VELTO_FORMATS_VTU_PIECE_MESH_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "embedded/base/CaseTables.h"
#include "embedded/memory/Case.h"

namespace velto::vtu {

/// A zone with elements: the index of its first one (its id less 1), and how many there are.
struct ZoneSpan {
  int zone = 0;
  std::uint64_t first = 0;
  std::uint64_t count = 0;
};

/// The lists of nodes of a zone's faces or cells, every id of which is a node.
struct NodeLists {
  const std::uint64_t* ids = nullptr;
  const short* counts = nullptr;  // null if each has `uniform` nodes
  std::size_t uniform = 0;

  std::size_t countOf(std::uint64_t element) const {
    return counts == nullptr ? uniform : static_cast<std::size_t>(counts[element]);
  }
};

/// A view of the tables and arrays of one mesh, target and partition, which outlive it. What it
/// finds wrong is a CaseError that names the file, the mesh, the zone and the element.
class PieceMesh {
 public:
  /// `file` is what is being written.
  PieceMesh(const std::string& file, const base::MeshKey& key, const base::MeshTables& tables,
            const memory::MeshData& data);

  const base::MeshKey& key() const { return key_; }
  const base::MeshTables& tables() const { return tables_; }
  const memory::MeshData& data() const { return data_; }

  bool isPlane() const { return tables_.size(meshDimension) == 2; }

  /// The zones that have elements, in the order of their elements.
  const std::vector<ZoneSpan>& nodeZones() const { return nodeZones_; }
  const std::vector<ZoneSpan>& faceZones() const { return faceZones_; }
  const std::vector<ZoneSpan>& cellZones() const { return cellZones_; }

  std::uint64_t nodeCount() const { return countIn(nodeZones_); }
  std::uint64_t cellCount() const { return countIn(cellZones_); }

  /// Coordinates of a node zone, and how many a node has: 2 or 3.
  const double* coordinates(const ZoneSpan& zone) const;
  std::size_t dimension(const ZoneSpan& zone) const;

  /// The place of a node, of which z is 0 in a plane.
  std::array<double, 3> point(std::uint64_t nodeId) const;

  /// Looks at the lists of nodes of a zone. An element has at least `least` nodes, at most `most`.
  NodeLists nodeLists(const ZoneSpan& zone, const memory::CountedData& lists, const char* element,
                      std::size_t least, std::size_t most) const;

  /// Throws; the element is that of an index in the zone.
  [[noreturn]] void fail(const std::string& what) const;
  [[noreturn]] void fail(const ZoneSpan& zone, const std::string& what) const;
  [[noreturn]] void fail(const ZoneSpan& zone, const char* element, std::uint64_t index,
                         const std::string& what) const;

 private:
  static std::uint64_t countIn(const std::vector<ZoneSpan>& zones) {
    return zones.empty() ? 0 : zones.back().first + zones.back().count;
  }
  std::vector<ZoneSpan> spansOf(OrvZoneCategory category, const char* element) const;
  void checkCoordinates() const;

  std::string place_;
  base::MeshKey key_;
  const base::MeshTables& tables_;
  const memory::MeshData& data_;
  std::vector<ZoneSpan> nodeZones_;
  std::vector<ZoneSpan> faceZones_;
  std::vector<ZoneSpan> cellZones_;
};

/// The zone among spans that holds an element.
const ZoneSpan& zoneOf(const std::vector<ZoneSpan>& zones, std::uint64_t index);

/// Whether there is a zone of cells that has cells.
bool hasCells(const base::MeshTables& tables);

}  // namespace velto::vtu

#endif  // VELTO_FORMATS_VTU_PIECE_MESH_H
