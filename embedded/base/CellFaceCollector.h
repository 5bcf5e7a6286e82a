// SPDX-License-Identifier: Apache-2.0
//
// CellFaceCollector: the faces of polyhedra, found from the cells beside the faces.

#ifndef VELTO_EMBEDDED_BASE_CELL_FACE_COLLECTOR_H
#define VELTO_EMBEDDED_BASE_CELL_FACE_COLLECTOR_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "embedded/base/CaseTables.h"
#include "embedded/base/MeshArrays.h"

namespace velto::base {

/// A viewer's mesh keeps for each polyhedron the list of its faces, which a copy does not hand over
/// and which follows from the cells beside the faces. Holds 8 bytes a face and side.
class CellFaceCollector {
 public:
  /// Collects nothing.
  CellFaceCollector() = default;

  /// For the zones of polyhedra of a mesh that are not among `zonesWithNodes`.
  CellFaceCollector(const MeshTables& mesh, const std::vector<int>& zonesWithNodes);

  bool isEmpty() const { return zones_.empty(); }

  /// The cells on one side of the faces from `firstFace` on. Ids that no zone here holds are passed
  /// over.
  void add(std::uint64_t firstFace, const std::uint64_t* cells, std::size_t n);

  /// Writes the family of cell faces, ascending ids for each cell, and forgets what was collected;
  /// nothing if no face was added. Throws CaseError for a cell with more faces than a count can
  /// say.
  void write(MeshArraySink& sink);

 private:
  /// A zone, and where its cells stand among all that are collected.
  struct Zone {
    int id = 0;
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    std::size_t offset = 0;
  };

  /// The cells on one side of a run of faces.
  struct Run {
    std::uint64_t firstFace = 0;
    std::vector<std::uint64_t> cells;
  };

  /// Calls `each` with the place of a cell and the id of a face of it.
  template <class Each>
  void forEachFace(const Each& each) const;
  const Zone* zoneOf(std::uint64_t cell) const;
  void writeZone(MeshArraySink& sink, const Zone& zone, const std::vector<std::uint64_t>& begins,
                 const std::vector<std::uint64_t>& faces) const;

  std::vector<Zone> zones_;  // by first cell
  std::size_t cellCount_ = 0;
  std::vector<Run> runs_;
};

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_CELL_FACE_COLLECTOR_H
