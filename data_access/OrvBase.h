// SPDX-License-Identifier: Apache-2.0
//
// OrvBase: what the read side and the write side of a case have in common. Sizes of meshes, tables
// of zones, pending messages, and the selection that all of these answer for.

#ifndef VELTO_DATA_ACCESS_ORV_BASE_H
#define VELTO_DATA_ACCESS_ORV_BASE_H

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "data_access/OrvTypes.h"

namespace velto {

class OrvLocationModel;

/// Virtual base of OrvProvider and OrvConsumer; each of them holds exactly one.
///
/// The selection. A file holds meshes, a mesh holds targets, a target may be cut into partitions.
/// Every query and every setter below speaks of the mesh, target and partition that setMeshId,
/// setTarget and setPartitionId chose last. They can be called in any order and at any time while
/// no family of bulk calls is open.
///
///     setMeshId(1)  setTarget(targetRestart)  setPartitionId(-1)
///     getMeshSize, getZoneIds, getZoneSizeInfo, ...        about that mesh
///
/// No query fails. A query for something unknown (a zone id, a key, a mesh without tables) LEAVES
/// ITS OUTPUT ALONE, so callers preload it with the value they want in that case; getZoneIds alone
/// gives an empty list. Failures of the library itself wait among the pending messages.
///
/// The non-virtual operations and the four virtual ones are defined by the data-access library that
/// is linked, over a state of its own. Objects are not copyable, and serve one thread at a time.
class OrvBase {
 public:
  /// What the data-access library keeps behind an object; declared here, defined by each library.
  struct State;

  OrvBase(const OrvBase&) = delete;
  OrvBase& operator=(const OrvBase&) = delete;

  /// @name Virtual operations, in their order
  /// @{

  /// Sets the library's one base option. Called once, with true, on a fresh provider before it
  /// starts to read.
  virtual void setBaseOption(bool option);

  /// Number of zones of `category` in the selected mesh, 0 if there are none.
  virtual std::uint64_t getZoneCount(OrvZoneCategory category);

  /// Replaces `ids` by the ids of all zones of `category`, in the order that every table over zones
  /// follows; empty if there are none.
  virtual void getZoneIds(OrvZoneCategory category, std::vector<int>& ids);

  /// Stores the solver type of the case being written, such as "VELTO_GENERIC".
  virtual void setSolverType(std::string solverType);

  /// @}
  /// @name Selection
  /// What all queries and setters speak of. Nothing is looked up before they do: an id or a target
  /// that the file does not have selects a mesh of which nothing is known.
  /// @{

  /// Selects a mesh by its id; OrvProvider::getMeshIds lists those of a file.
  void setMeshId(int id);
  /// The id that was selected last. A provider that starts to read selects its first mesh, with the
  /// first target and partition of it.
  int getMeshId() const;
  /// Selects a kind of mesh; OrvProvider::getTargets lists those that a mesh comes in.
  void setTarget(OrvTargetCategory category);
  /// The target that was selected last.
  OrvTargetCategory getTarget() const;
  /// Selects a partition; -1 selects "no partition". OrvProvider::getPartitionIds lists them.
  void setPartitionId(int id);
  /// The partition that was selected last, -1 for "no partition".
  int getPartitionId() const;

  /// @}
  /// @name The case as a whole
  /// @{

  /// The solver type in the file, or what setSolverType stored; may be empty.
  std::string getSolverType() const;

  /// Stores the name of the program that writes.
  void setApplicationName(const std::string& name);

  /// The case's location model, or null. Owned by this object and valid as long as it is, unless
  /// another case or another model takes its place.
  const OrvLocationModel* getLocationModel() const;

  /// @}
  /// @name The selected mesh
  /// @{

  /// Reads one size: a count of elements, or 2 or 3 for meshDimension.
  void getMeshSize(OrvMeshSizeType key, std::uint64_t& value) const;
  /// Stores one size of the mesh being written; OrvConsumer::writeMeshAttributes commits it.
  void setMeshSize(OrvMeshSizeType key, std::uint64_t value);

  /// Reads the unit of length of the coordinates, as text.
  void getMeshUnits(std::string& units) const;
  /// Stores the unit of length of the mesh being written, such as "m".
  void setMeshUnits(const std::string& units);

  /// @}
  /// @name Zones of the selected mesh
  /// A zone is asked for by its id; a category is not needed, since ids are unique in a mesh.
  /// @{

  /// Declares the zones of a category, replacing what was declared before.
  void setZoneIds(OrvZoneCategory category, const std::vector<int>& ids);

  /// Reads an id, a count or the dimension of a zone; a provider may know some of them only.
  void getZoneSizeInfo(int zoneId, OrvZoneSizeType key, std::uint64_t& value) const;
  /// Stores one of these numbers. A key that the library has no name for is passed over.
  void setZoneSizeInfo(int zoneId, OrvZoneSizeType key, std::uint64_t value);

  /// Reads the name of a zone, or of its type.
  void getZoneStringInfo(int zoneId, OrvZoneStringInfoType key, std::string& value) const;
  /// Stores one of these names.
  void setZoneStringInfo(int zoneId, OrvZoneStringInfoType key, const std::string& value);

  /// Reads the shape of a face zone's faces, its type, or the id of a zone that it is linked to.
  void getFaceZoneInfo(int zoneId, OrvFaceZoneInfoType key, int& value) const;
  /// Stores one of these numbers. Declared const, and changes what stands behind the object.
  void setFaceZoneInfo(int zoneId, OrvFaceZoneInfoType key, int value) const;

  /// Reads the shape of a cell zone's cells, or the id of its child zone.
  void getCellZoneInfo(int zoneId, OrvCellZoneInfoType key, int& value) const;
  /// Stores one of these numbers.
  void setCellZoneInfo(int zoneId, OrvCellZoneInfoType key, int value);

  /// Whether a face zone has a property; false for an unknown zone or property.
  bool getFaceZoneProp(int zoneId, OrvFaceZonePropType key) const;

  /// Reads the type of a face zone; left alone where the zone has none.
  void getFaceZoneType(int zoneId, OrvFaceZoneType& type) const;

  /// @}
  /// @name Which zones bound which
  /// For a zone of the mesh the list is replaced, by an empty one where nothing is related.
  /// @{

  /// Replaces `faceZoneIds` by the face zones that bound a cell zone.
  void getCellFaceZoneIds(int cellZoneId, std::list<int>& faceZoneIds);

  /// Replaces `cellZoneIds` by the cell zones on side 0 of a face zone.
  void getFaceCellZone0Ids(int faceZoneId, std::list<int>& cellZoneIds);

  /// Replaces `cellZoneIds` by the cell zones on side 1 of a face zone.
  void getFaceCellZone1Ids(int faceZoneId, std::list<int>& cellZoneIds);

  /// @}
  /// @name Phases of the results
  /// @{

  /// Replaces `ids` by the ids of all phases.
  void getPhaseIds(std::vector<short>& ids) const;

  /// True, and the name, if the phase has one.
  bool getPhaseName(short id, std::string& name) const;

  /// @}
  /// @name Pending messages
  /// What the data-access library has to say. Warnings and errors wait in two lists, from the call
  /// that caused them until somebody fetches them.
  /// @{

  /// Whether a warning is waiting.
  bool hasWarning() const;
  /// Whether an error is waiting.
  bool hasError() const;

  /// The waiting warnings, oldest first, each with the prefix "Warning:\n\t". Fetched with both
  /// flags true they are handed out once: the next fetch does not repeat them.
  std::vector<std::string> getWarnings(bool flag0, bool flag1) const;
  /// The waiting errors in the same way, each with the prefix "Error:\n\t".
  std::vector<std::string> getErrors(bool flag0, bool flag1) const;

  /// @}

  /// Path of the store in which the settings of a case stand by default; goes with
  /// OrvProvider::getSettingsValue and OrvConsumer::writeSettings.
  static const std::string _defaultSettingsPath;  // NOLINT(readability-identifier-naming): given.

 protected:
  OrvBase();
  ~OrvBase();

 private:
  std::unique_ptr<State> state_;
};

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_ORV_BASE_H
