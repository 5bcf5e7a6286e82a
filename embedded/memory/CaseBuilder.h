// SPDX-License-Identifier: Apache-2.0
//
// CaseBuilder: a small language in which samples and tests write down a case.

#ifndef VELTO_EMBEDDED_MEMORY_CASE_BUILDER_H
#define VELTO_EMBEDDED_MEMORY_CASE_BUILDER_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "embedded/base/shapes.h"
#include "embedded/memory/Case.h"

namespace velto::memory {

/// Ids of nodes or faces.
using Ids = std::vector<std::uint64_t>;

/// A face as one writes it down: its nodes in loop order (the normal points from cell0 into cell1,
/// outwards on a boundary), and the cells on its two sides, 0 for none.
struct FaceLine {
  Ids nodes;                ///< In loop order.
  std::uint64_t cell0 = 0;  ///< The cell on side 0.
  std::uint64_t cell1 = 0;  ///< The cell on side 1.
};

/// Builds sound cases from what makes them differ. Element ids count up from 1 in the order of the
/// calls; counts, ranges, sizes, shapes, uniform counts and zone relations follow from what is
/// said.
///
///     auto box = CaseBuilder()
///                    .nodes(1, "points", {{0, 0, 0}, ...})
///                    .faces(2, "walls", boundaryWall, {{{1, 4, 3, 2}, 1}, ...})
///                    .cells(3, "fluid", cellShapeHexahedron, 1)
///                    .build();
///
/// A test takes the case that comes out and damages it.
class CaseBuilder {
 public:
  /// Starts with one mesh: id 1, restart target, no partition.
  explicit CaseBuilder(int dimension = 3);

  /// What follows belongs to another mesh, target or partition.
  CaseBuilder& mesh(const base::MeshKey& key, int dimension = 3);

  /// @name The case as a whole
  /// @{

  /// Sets the solver type; "VELTO_GENERIC" if it was never set.
  CaseBuilder& solverType(const std::string& type);
  /// Sets the version of the file; that of the library if it was never set.
  CaseBuilder& version(int major, int minor, int patch);
  /// Sets the unit of length of the current mesh.
  CaseBuilder& units(const std::string& units);
  /// Sets an entry of the default settings.
  CaseBuilder& setting(const std::string& key, const std::string& value);

  /// @}
  /// @name Zones of the current mesh
  /// @{

  /// A node zone, each node with as many coordinates as the mesh has dimensions.
  CaseBuilder& nodes(int zone, const std::string& name,
                     const std::vector<std::vector<double>>& coordinates);

  /// A face zone. Side 1 is stored if any of the faces has a cell there.
  CaseBuilder& faces(int zone, const std::string& name, int type,
                     const std::vector<FaceLine>& lines);

  /// A cell zone whose cells are known by their faces, all of one shape.
  CaseBuilder& cells(int zone, const std::string& name, int shape, std::uint64_t count);
  /// The same with one shape a cell.
  CaseBuilder& cells(int zone, const std::string& name, const std::vector<int>& shapes);

  /// Gives the cells of a zone nodes of their own, a list a cell.
  CaseBuilder& cellNodes(int zone, const std::vector<Ids>& cells);
  /// Gives the cells of a zone faces of their own, a list a cell.
  CaseBuilder& cellFaces(int zone, const std::vector<Ids>& cells);

  /// Makes two face zones of equal length each other's shadow, face by face.
  CaseBuilder& shadows(int zone, int shadowZone);

  /// @}
  /// @name Results
  /// @{

  /// A phase of the results.
  CaseBuilder& phase(short id, const std::string& name);
  /// The values of a variable on one zone of the current mesh, element after element.
  CaseBuilder& variable(short phase, OrvZoneCategory category, const std::string& name, int zone,
                        std::size_t valuesPerEntity, const std::vector<double>& values);

  /// @}

  /// The case. Zone relations of restart meshes are entered here.
  std::shared_ptr<Case> build();

 private:
  base::MeshTables& tables() { return case_.mesh(key_); }
  MeshData& arrays() { return case_.arrays(key_); }

  static void relate(base::MeshTables& mesh, const MeshData& data);

  Case case_;
  base::MeshKey key_;
};

}  // namespace velto::memory

#endif  // VELTO_EMBEDDED_MEMORY_CASE_BUILDER_H
