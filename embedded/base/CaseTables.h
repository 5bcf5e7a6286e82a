// SPDX-License-Identifier: Apache-2.0
//
// CaseTables: everything about a case but its bulk arrays, per mesh, target and partition.

#ifndef VELTO_EMBEDDED_BASE_CASE_TABLES_H
#define VELTO_EMBEDDED_BASE_CASE_TABLES_H

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data_access/OrvLocationModel.h"
#include "data_access/OrvTypes.h"

#include "embedded/base/Settings.h"

namespace velto::base {

/// Which mesh the tables speak of. A partition of -1 stands for "no partition".
struct MeshKey {
  int mesh = 1;                              ///< A mesh id.
  OrvTargetCategory target = targetRestart;  ///< The kind of mesh.
  int partition = -1;                        ///< A partition id.

  /// @name Comparison
  /// @{

  /// By mesh id, then target, then partition.
  friend bool operator<(const MeshKey& a, const MeshKey& b) {
    return std::tie(a.mesh, a.target, a.partition) < std::tie(b.mesh, b.target, b.partition);
  }
  friend bool operator==(const MeshKey& a, const MeshKey& b) {
    return std::tie(a.mesh, a.target, a.partition) == std::tie(b.mesh, b.target, b.partition);
  }

  /// @}
};

/// The size of a mesh that counts the elements of a category.
OrvMeshSizeType countOf(OrvZoneCategory category);

/// What the tables hold of one zone. A value that was never set is not there, so that a query for
/// it leaves its output alone.
struct ZoneRecord {
  std::array<std::optional<std::uint64_t>, 4> sizes;  ///< By OrvZoneSizeType.
  std::array<std::optional<std::string>, 2> texts;    ///< By OrvZoneStringInfoType.
  std::array<std::optional<int>, 6> faceInfo;         ///< By OrvFaceZoneInfoType.
  std::array<std::optional<int>, 2> cellInfo;         ///< By OrvCellZoneInfoType.
  std::vector<int> properties;                        ///< The OrvFaceZonePropType values that hold.
  std::vector<int> boundingFaceZones;                 ///< Of a cell zone.
  std::array<std::vector<int>, 2> sideCellZones;      ///< Of a face zone, by side.
};

/// One mesh: its sizes and zones.
struct MeshTables {
  std::array<std::optional<std::uint64_t>, 5> sizes;    ///< By OrvMeshSizeType.
  std::optional<std::string> units;                     ///< Of length, such as "m".
  std::map<OrvZoneCategory, std::vector<int>> zoneIds;  ///< The zones that are declared, in order.
  std::unordered_map<int, ZoneRecord> zones;            ///< By zone id, declared or not.

  /// The ids of a category, in their order.
  const std::vector<int>& idsOf(OrvZoneCategory category) const;

  /// The ids of all zones that have a record, in ascending order.
  std::vector<int> sortedZones() const;

  /// Adds a zone behind the zones of its category: its elements follow theirs, its dimension is the
  /// mesh's, and the mesh's count grows by its own.
  ZoneRecord& addZone(OrvZoneCategory category, int zoneId, const std::string& name,
                      std::uint64_t count);

  /// A size of the mesh, 0 if it was never set.
  std::uint64_t size(OrvMeshSizeType key) const;
  /// A number of a zone, 0 if it was never set.
  std::uint64_t zoneSize(int zoneId, OrvZoneSizeType key) const;
};

/// Names and values, in order.
using Attributes = std::vector<std::pair<std::string, std::string>>;

/// A phase of the results.
struct Phase {
  short id = 0;                            ///< From 1 on where a consumer gave it.
  std::optional<std::string> name;         ///< A copy carries only phases that have one.
  std::optional<std::string> description;  ///< A text for people.
  Attributes attributes;                   ///< What else is said of it.
};

/// A variable of the results; where it has values is told by the arrays.
struct Variable {
  int id = 0;                              ///< The same in all phases.
  std::string name;                        ///< By which its values are asked for.
  std::optional<std::string> description;  ///< A text for people.
  Attributes attributes;                   ///< What else is said of it.
};

/// Version of the format that a file was written in.
struct FileVersion {
  /// @name Its numbers
  /// @{

  /// One of the numbers of OrvFileIO::getFileVersion.
  int major = 0;
  int minor = 0;
  int patch = 0;

  /// @}
};

/// The version that this library writes.
FileVersion ownVersion();

/// A whole case but for its bulk arrays. Copies share the location model, which is never changed
/// once it stands here.
struct CaseTables {
  std::string solverType;                ///< Such as "VELTO_GENERIC"; may be empty.
  std::string applicationName;           ///< The program that wrote; may be empty.
  std::optional<FileVersion> version;    ///< Of the file; none if nothing tells it.
  std::map<MeshKey, MeshTables> meshes;  ///< Each mesh, target and partition.
  /// By data class and path of the store.
  std::map<std::pair<OrvDataClass, std::string>, Settings> settings;
  std::shared_ptr<const OrvLocationModel> locationModel;  ///< Or null.
  std::vector<Phase> phases;                              ///< In order; ids differ.
  std::vector<Variable> variables;                        ///< In order; ids and names differ.

  /// The store that settings of the case stand in by default; made if it is not there.
  Settings& defaultSettings();

  /// @name Looking up
  /// @{

  /// The phase of an id, or the variable of an id or a name; null if there is none. The pointer is
  /// valid until another is added.
  Phase* findPhase(short id);
  const Phase* findPhase(short id) const;
  Variable* findVariable(int id);
  const Variable* findVariable(int id) const;
  const Variable* findVariable(const std::string& name) const;

  /// @}

  /// Registers a variable and gives its id; a name that is known keeps its id.
  int addVariable(const std::string& name);
};

/// The value of an attribute, or null.
const std::string* findAttribute(const Attributes& attributes, const std::string& name);

/// Sets an attribute; a name that is there gets the new value.
void setAttribute(Attributes& attributes, const std::string& name, const std::string& value);

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_CASE_TABLES_H
