// SPDX-License-Identifier: Apache-2.0
//
// OrvCopier: carries a case from a source into a destination.

#ifndef VELTO_ORV_COPIER_H
#define VELTO_ORV_COPIER_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "velto/export.h"

#include "data_access/OrvTypes.h"
#include "data_access/fwd.h"

namespace velto {

class ZoneMemory;

/// Copies the mesh that is selected on a source, its location model, settings and results into a
/// destination, which may be of another file format and take another solver format.
///
///     velto::OrvCopier copier("mesh converter");
///     copier.setSource(provider);
///     copier.setDestination(fileFormatStore, "duct.orv", "duct.orvr");
///     copier.setCompression(1);
///     copier.copySettingsToDestination(true);
///     bool done = copier.copy();
///
/// Set the source first, then the destination, then the options: compression and mode reach the
/// destination at once and are not kept, everything else is kept for the next copy.
///
/// What is not carried: element counts, child, parent and shadow zones, names of zone types, zone
/// properties, cell faces, shadow faces and the face tree.
///
/// One zone's data is in memory at a time. Neither source nor destination is owned, not even a
/// destination that the factory made. One thread at a time may use a copier, and all copies of it,
/// which share source and destination.
class VELTO_EXPORT OrvCopier {
 public:
  /// `applicationName` is what the destination is told that it was written by; "" for nothing.
  explicit OrvCopier(const std::string& applicationName = "Generic");

  /// A copy has the options, the lists of element ids and the zones met so far of its own from then
  /// on, and the same source and destination.
  OrvCopier(const OrvCopier& other);
  /// As the copy constructor.
  OrvCopier& operator=(const OrvCopier& other);
  /// Leaves source and destination alone.
  virtual ~OrvCopier();

  /// @name Source and destination
  /// @{

  /// Where to read from: a provider with the mesh, target and partition to copy selected.
  void setSource(OrvProvider* provider);

  /// Where to write. REQUIRES: not null, unless the application name is empty.
  void setDestination(OrvConsumer* consumer);

  /// Has the factory make a consumer for a format, and names its files. The copier offers no way to
  /// reach that consumer: a host that wants its messages, or wants it destroyed, makes it itself.
  /// REQUIRES: the factory has such a consumer, unless the application name is empty.
  void setDestination(OrvFileFormatType format, const std::string& caseFile,
                      const std::string& resultsFile);

  /// The solver type that the destination gets at the start of each copy, and that settings stand
  /// under there. "VELTO_GENERIC" if it was never set.
  void setDestinationSolverFormat(const std::string& format);

  /// Passed on to the destination at once. REQUIRES: a destination.
  void setCompression(unsigned int level);

  /// With true, sets mode 1 on the destination at once, which then is required; with false does
  /// nothing.
  void setMode(bool mode);

  /// @}
  /// @name What is copied with the mesh
  /// All of it but cell partitions and settings, if nothing was set.
  /// @{

  /// The dimension, and the counts of nodes, faces and cells.
  void copyMeshSizeToDestination(bool meshSize);
  /// The unit of length of the coordinates. Coordinates are copied as they are.
  void copyMeshUnitsToDestination(bool meshUnits);

  /// The tables of zones. Only zones whose tables were copied, now or in a copy before, are copied.
  void copyZoneTopologyToDestination(bool zoneTopology);

  /// The coordinates of all node zones.
  void copyNodeCoordinatesToDestination(bool nodeCoordinates);

  /// The cells at all, and of them nodes and types.
  void copyCellsToDestination(bool cells, bool cellNodes, bool cellTypes);

  /// The partition that each cell is meant for, where the source tells it; only if cells are copied
  /// at all.
  void copyCellPartitionsToDestination(bool cellPartitions);

  /// The faces at all, and of them nodes and the cells on both sides.
  void copyFacesToDestination(bool faces, bool faceNodes, bool faceParents);

  /// The source's location model, or one that is built from its zones if it has none with parts.
  void copyLocationModelToDestination(bool locationModel);

  /// The settings of the case, each below the destination's solver type, and the standard ones:
  /// time, source format and destination format.
  void copySettingsToDestination(bool settings);

  /// With true, each step is a line on standard output.
  void setVerbose(bool value);

  /// @}
  /// @name Element ids
  /// Lists that the destination gets along with the data of a zone; what it does with them is its
  /// own affair. They are kept from one copy to the next.
  /// @{

  /// Sets the list of a source zone. True.
  bool addElemIds(int zoneId, const std::vector<std::size_t>& ids);

  /// The list of the source zone that became the destination zone `zoneId`, null for an empty list.
  /// `found` is false, and `count` left alone, if there is none or no copy met the zone so far. The
  /// list stays valid until it is replaced or removed.
  const std::size_t* getElemIds(int zoneId, std::size_t& count, bool& found) const;

  /// Forgets the list of a source zone, if there is one. True.
  bool removeElemIds(int zoneId);

  /// @}
  /// @name Copying
  /// False without a source or a destination, otherwise true: whether the destination took it all
  /// is for its own messages to tell. Odd data are told on standard error and copied as far as they
  /// go. What the data-access library throws reaches the caller, and writing is then left open; but
  /// for a setting, which is told on standard output and left out.
  /// @{

  /// copyCase(true), then copyResults().
  bool copy();

  /// The mesh, its location model and settings. With false the caller starts and ends the writing
  /// of the case, so that several targets and partitions can go into one.
  bool copyCase(bool bracketWriting);

  /// Sizes and zone tables, whatever the switches say, and the field data of all phases.
  bool copyResults();

  /// @}

 private:
  void writeProgress(const std::string& line) const;
  void copyElemIds(OrvZoneCategory category);

  // copy_case.cpp: the steps of copyCase
  void copyMeshAttributes();
  void copyNodeCoordinates(ZoneMemory& memory);
  void copyCellMesh(ZoneMemory& memory);
  void copyFaceMesh(ZoneMemory& memory);
  void copyLocationModel();
  void copySettings();

  // copy_results.cpp: the steps of copyResults
  void copyPhaseVariables();
  void copyVariable(OrvZoneCategory category, const std::string& name, ZoneMemory& memory);

  std::map<int, int> zoneMap;
  std::map<int, std::vector<std::size_t>> elemIdTable;
  OrvProvider* source = nullptr;
  OrvConsumer* destination = nullptr;
  bool meshSizeEnabled = true;
  bool meshUnitsEnabled = true;
  bool zoneTopologyEnabled = true;
  bool nodeCoordinatesEnabled = true;
  bool cellsEnabled = true;
  bool cellNodesEnabled = true;
  bool cellTypesEnabled = true;
  bool cellPartitionsEnabled = false;
  bool facesEnabled = true;
  bool faceNodesEnabled = true;
  bool faceParentsEnabled = true;
  bool locationModelEnabled = true;
  bool settingsEnabled = false;
  bool verbose = false;
  std::string destinationSolverFormat = "VELTO_GENERIC";
  std::string applicationName;
};

}  // namespace velto

#endif  // VELTO_ORV_COPIER_H
