// SPDX-License-Identifier: Apache-2.0
//
// MeshToWrite: a mesh of a case that can be written as a polyMesh, judged before anything is.

#ifndef VELTO_FORMATS_OPENFOAM_MESH_TO_WRITE_H
#define VELTO_FORMATS_OPENFOAM_MESH_TO_WRITE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "embedded/base/CaseTables.h"
#include "formats/openfoam/KeptArrays.h"

namespace velto::openfoam {

/// A node or cell zone: its elements have the ids from `firstId` on.
struct ZoneToWrite {
  int id = 0;
  std::string name;
  std::uint64_t firstId = 1;
  std::uint64_t count = 0;
};

/// A face zone. Its faces have the numbers from `begin` on, counted over all face zones.
struct FaceZoneToWrite : ZoneToWrite {
  bool isInternal = false;  ///< All its faces have two cells; else all have one.
  std::uint64_t begin = 0;
  const KeptIds* nodes = nullptr;  ///< The faces' node ids, one face after the other.
  std::uint64_t uniform = 0;       ///< Nodes of each face; 0 if that differs.
  const short* counts = nullptr;   ///< Nodes of each face where that differs.
  const KeptIds* side0 = nullptr;
  const KeptIds* side1 = nullptr;  ///< Null where no face has a cell there.

  /// The faces can be written as they stand: side 0 has the cell of the lower id, or the only one,
  /// and faces inside the mesh are in upper-triangular order.
  bool isInOrder = false;

  std::uint64_t cell0(std::uint64_t i) const { return (*side0)[i]; }
  std::uint64_t cell1(std::uint64_t i) const { return side1 == nullptr ? 0 : (*side1)[i]; }
  std::uint64_t nodeCount(std::uint64_t i) const {
    return uniform != 0 ? uniform : static_cast<std::uint64_t>(counts[i]);
  }
};

/// A restart mesh with points, faces and the cells beside them, and no id or count that is wrong.
/// It refers to arrays that have to outlive it.
struct MeshToWrite {
  std::vector<ZoneToWrite> nodeZones;  ///< By first id.
  std::vector<const double*> coordinates;
  std::vector<ZoneToWrite> cellZones;  ///< In the order of the mesh, as the face zones.
  std::vector<FaceZoneToWrite> faceZones;
  std::uint64_t nodeCount = 0;
  std::uint64_t cellCount = 0;
  std::uint64_t faceCount = 0;
  std::uint64_t faceNodeCount = 0;
  std::uint64_t internalCount = 0;

  /// The place in `faceZones` of the zone that holds a face.
  std::size_t zoneOf(std::uint64_t face) const;

  /// The place of one of the zones in `faceZones`.
  std::size_t placeOf(const FaceZoneToWrite& zone) const {
    return static_cast<std::size_t>(&zone - faceZones.data());
  }

  /// The three coordinates of a node.
  const double* pointOf(std::uint64_t node) const;
};

/// "zone 4 'hot wall'".
std::string shownZone(int id, const std::string& name);

/// Judges a mesh. `mesh` is the word for it in messages. Memory is taken in proportion to the
/// arrays, not to what the tables claim.
///
/// Errors: base::CaseError, for the first thing found: what is missing, a zone whose numbers or
/// arrays do not fit together, a face with an id out of range or with the wrong cells, a cell that
/// no face bounds.
MeshToWrite judgeMesh(const std::string& mesh, const base::MeshTables& tables,
                      const KeptArrays& arrays);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_MESH_TO_WRITE_H
