// SPDX-License-Identifier: Apache-2.0
//
// Case: a whole case in memory, filled by samples, tests, format readers and the memory consumer.

#ifndef VELTO_EMBEDDED_MEMORY_CASE_H
#define VELTO_EMBEDDED_MEMORY_CASE_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "data_access/OrvTypes.h"

#include "embedded/base/CaseTables.h"
#include "embedded/base/Family.h"
#include "embedded/base/MeshArrays.h"
#include "embedded/memory/Slice.h"
#include "embedded/memory/ZoneList.h"

namespace velto::memory {

/// A zone of a counted family. With a uniform count the list of counts stays empty.
struct CountedData {
  std::optional<short> uniform;  ///< The count of all elements, if they have one.
  Slice<short> counts;           ///< Else one count an element.
  Slice<std::uint64_t> ids;      ///< The ids of all elements, one element after the other.
};

/// The cell types of a zone. With a uniform type the list stays empty.
struct CellTypeData {
  std::optional<int> uniform;  ///< The type of all cells, if they have one.
  Slice<int> types;            ///< Else one type a cell.
};

/// The cell partitions of a zone.
struct CellPartitionData {
  int info = 0;           ///< What OrvProvider::getCellPartitionInfo answers.
  Slice<int> partitions;  ///< One partition a cell.
};

/// Where one variable has its values.
struct VariableData {
  std::size_t valuesPerEntity = 1;  ///< 1 for a scalar, 3 for a vector in space.
  ZoneList<Slice<double>> zones;    ///< The values of each zone, element after element.
};

/// The bulk arrays of one mesh. Nothing here is checked against the tables: a case may be as wrong
/// as a file can be.
struct MeshData {
  /// @name Families
  /// Each has the zones that it lists, in its order.
  /// @{

  /// The data of one family of OrvProvider, zone by zone.
  ZoneList<Slice<double>> nodeCoordinates;
  ZoneList<CountedData> faceNodes;
  ZoneList<CountedData> cellNodes;
  ZoneList<CountedData> cellFaces;
  ZoneList<Slice<std::uint64_t>> faceCell0;
  ZoneList<Slice<std::uint64_t>> faceCell1;
  ZoneList<Slice<std::uint64_t>> faceShadows;
  std::vector<int> treeParentZones;
  std::vector<int> treeChildZones;
  ZoneList<CellTypeData> cellTypes;
  ZoneList<CellPartitionData> cellPartitions;

  /// @}

  /// What OrvConsumer::writeElemIds brought.
  ZoneList<Slice<std::size_t>> elementIds;

  /// Names, and where the variables of these names have their values.
  using VariableList = std::vector<std::pair<std::string, VariableData>>;
  /// Variables in order, by phase and kind of zone.
  std::map<std::pair<short, OrvZoneCategory>, VariableList> variables;

  /// Where a variable has its values; made if it is not there.
  VariableData& variable(const base::VariableKey& key);
  /// Where a variable has its values, or null.
  const VariableData* findVariable(const base::VariableKey& key) const;

  /// @name Families by their value
  /// @{

  /// The zone list of a counted family.
  ZoneList<CountedData>& counted(base::Family family);
  const ZoneList<CountedData>& counted(base::Family family) const;

  /// The zone list of face cells or shadows.
  ZoneList<Slice<std::uint64_t>>& faceIds(base::Family family);
  /// The same, not to be changed.
  const ZoneList<Slice<std::uint64_t>>& faceIds(base::Family family) const;

  /// @}
};

/// Tables and arrays. Copies are cheap in arrays (they are shared) and deep in tables.
struct Case {
  base::CaseTables tables;                 ///< All but the arrays.
  std::map<base::MeshKey, MeshData> data;  ///< The arrays of each mesh, target and partition.

  /// The tables of a mesh, made if they are not there.
  base::MeshTables& mesh(const base::MeshKey& key = {}) { return tables.meshes[key]; }
  /// The arrays of a mesh, made if they are not there.
  MeshData& arrays(const base::MeshKey& key = {}) { return data[key]; }

  /// The record of a zone, for a test that damages it.
  base::ZoneRecord& zone(int id, const base::MeshKey& key = {}) { return mesh(key).zones[id]; }

  /// Sets an entry of the default settings of the case.
  void setSetting(const std::string& key, const std::string& value);
};

}  // namespace velto::memory

#endif  // VELTO_EMBEDDED_MEMORY_CASE_H
