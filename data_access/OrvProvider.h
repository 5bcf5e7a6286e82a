// SPDX-License-Identifier: Apache-2.0
//
// OrvProvider: the read side of a case.

#ifndef VELTO_DATA_ACCESS_ORV_PROVIDER_H
#define VELTO_DATA_ACCESS_ORV_PROVIDER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "data_access/OrvBase.h"
#include "data_access/OrvTypes.h"
#include "data_access/OrvVariant.h"

namespace velto {

/// Hands out a case: its meshes and settings by queries, its connectivity and field data by
/// families of bulk calls.
///
/// A family is a small protocol: opened, read zone by zone, closed. One family is open at a time.
///
///     families with counts                      families without counts
///     (face nodes, cell nodes, cell faces)      (coordinates, face cells, shadows, tree,
///                                                cell types, partitions)
///     begin<Family>(zoneIds)                    begin<Family>(zoneIds)
///       begin<Family>Counts()                     read or get, in any order
///         getUniform...Count, read...Counts     end<Family>()
///       end<Family>Counts()
///       begin<Family>Ids()
///         read...Ids
///       end<Family>Ids()
///     end<Family>()
///
/// Every begin REPLACES the list that it gets by the zones that carry the family's data, which may
/// be fewer than all zones of the category, and none on a mesh without such data. Closing at once
/// after begin is how to learn the list; a begin without its end is tolerated.
///
/// Reads move a whole zone in one call into a buffer of the caller's: `n` is its length in entries,
/// and no more than `n` are written. Where a zone holds fewer, the rest of the buffer is left as it
/// is, so callers zero it first; a warning waits among the pending messages then, and an error
/// where the file could not be read. Per-element getters take an id of the mesh, not a position in
/// the zone, and answer 0 for an id that no listed zone holds.
///
/// A connectivity list holds the ids of all elements of a zone, one element after the other in
/// element order, without separators; the counts tell where each element's ids end.
class OrvProvider : public virtual OrvBase {
 public:
  // --- Queries, not virtual ---------------------------------------------------------------------

  /// Whether the file holds `category` for any of its meshes.
  bool hasTarget(OrvTargetCategory category) const;

  /// The entry at `path`, components joined by "/" ("boundaries/inlet/location"); an invalid
  /// variant if nothing stands there. With `flag` 1 the path is looked up below the case's solver
  /// type first ("VELTO_GENERIC/boundaries/inlet/location") and then as it stands; with 0 only as
  /// it stands.
  OrvVariant getSettings(OrvDataClass dataClass, const std::string& path, short flag) const;

  /// True, and the id, if the results hold a variable of that name.
  bool getVariableId(const std::string& name, int& id) const;

  // --- Settings as a list -----------------------------------------------------------------------

  /// Replaces `keys` by the keys of all settings, in the order of the file.
  virtual void getSettingsKeys(OrvDataClass dataClass, std::vector<std::string>& keys) = 0;

  /// The text of one setting in the store `path` (see OrvBase::_defaultSettingsPath); left alone if
  /// there is none.
  virtual void getSettingsValue(OrvDataClass dataClass, const std::string& key, std::string& value,
                                const std::string& path) = 0;

  // --- What the file holds ----------------------------------------------------------------------

  /// Replaces `ids` by the file's meshes.
  virtual void getMeshIds(std::vector<int>& ids, OrvDataClass dataClass) = 0;

  /// Replaces `categories` by the OrvTargetCategory values of a mesh.
  virtual void getTargets(std::vector<int>& categories, int meshId, OrvDataClass dataClass) = 0;

  /// Replaces `ids` by the partitions of a mesh; empty if it has none.
  virtual void getPartitionIds(std::vector<int>& ids, int meshId, OrvDataClass dataClass) = 0;

  // --- Node coordinates -------------------------------------------------------------------------
  // Cartesian, in the mesh's units, zoneDimension values a node (0 stands for 3), node after node.

  virtual void beginNodeCoordinates(std::vector<int>& zoneIds) = 0;
  /// Returns how many values it delivered, at most `n`.
  virtual std::size_t readNodeCoordinates(int zoneId, double* values, std::size_t n) = 0;
  virtual void endNodeCoordinates() = 0;

  // --- Face nodes -------------------------------------------------------------------------------
  // Node ids in loop order. By the right-hand rule over the loop a face's normal points from its
  // side-0 cell into its side-1 cell, and outwards on a boundary.

  virtual void beginFaceNodes(std::vector<int>& zoneIds) = 0;
  virtual void beginFaceNodeCounts() = 0;
  /// True, and the count, if all faces of the zone have one node count.
  virtual bool getUniformFaceNodeCount(int zoneId, short& count) = 0;
  /// One count a face; `n` is the zone's number of faces.
  virtual void readFaceNodeCounts(int zoneId, short* counts, std::size_t n) = 0;
  virtual void endFaceNodeCounts() = 0;
  virtual void beginFaceNodeIds() = 0;
  /// The zone's connectivity list; `n` is its length.
  virtual void readFaceNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) = 0;
  virtual void endFaceNodeIds() = 0;
  virtual void endFaceNodes() = 0;

  // --- The cells on the two sides of a face -----------------------------------------------------
  // 0 means that the face has no cell on that side. Boundary zones are not listed on side 1.

  virtual void beginFaceCell0(std::vector<int>& zoneIds) = 0;
  virtual std::uint64_t getFaceCell0(std::uint64_t faceId) = 0;
  /// One cell id a face; `n` is the zone's number of faces.
  virtual void readFaceCell0(int zoneId, std::uint64_t* cellIds, std::size_t n) = 0;
  virtual void endFaceCell0() = 0;
  virtual void beginFaceCell1(std::vector<int>& zoneIds) = 0;
  virtual std::uint64_t getFaceCell1(std::uint64_t faceId) = 0;
  virtual void readFaceCell1(int zoneId, std::uint64_t* cellIds, std::size_t n) = 0;
  virtual void endFaceCell1() = 0;

  // --- Shadow faces and the face tree -----------------------------------------------------------

  virtual void beginFaceShadows(std::vector<int>& zoneIds) = 0;
  /// The partner of a face in the shadow zone of its zone.
  virtual std::uint64_t getFaceShadow(std::uint64_t faceId) = 0;
  virtual void endFaceShadows() = 0;

  /// Lists the zones of faces that are cut into finer ones, and the zones of those finer faces.
  virtual void beginFaceTree(std::vector<int>& parentZoneIds, std::vector<int>& childZoneIds) = 0;
  virtual void endFaceTree() = 0;

  // --- Cell types -------------------------------------------------------------------------------

  virtual void beginCellTypes(std::vector<int>& zoneIds) = 0;
  /// True, and the type, if all cells of the zone have one type.
  virtual bool getUniformCellType(int zoneId, int& type) = 0;
  virtual int getCellType(std::uint64_t cellId) = 0;
  /// One type a cell; returns how many it delivered, at most `n`.
  virtual std::size_t readCellTypes(int zoneId, int* types, std::size_t n) = 0;
  virtual void endCellTypes() = 0;

  // --- Cell nodes -------------------------------------------------------------------------------

  virtual void beginCellNodes(std::vector<int>& zoneIds) = 0;
  virtual void beginCellNodeCounts() = 0;
  virtual bool getUniformCellNodeCount(int zoneId, short& count) = 0;
  virtual void readCellNodeCounts(int zoneId, short* counts, std::size_t n) = 0;
  virtual void endCellNodeCounts() = 0;
  virtual void beginCellNodeIds() = 0;
  virtual void readCellNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) = 0;
  virtual void endCellNodeIds() = 0;
  virtual void endCellNodes() = 0;

  // --- Cell faces -------------------------------------------------------------------------------

  virtual void beginCellFaces(std::vector<int>& zoneIds) = 0;
  virtual void beginCellFaceCounts() = 0;
  virtual bool getUniformCellFaceCount(int zoneId, short& count) = 0;
  virtual void readCellFaceCounts(int zoneId, short* counts, std::size_t n) = 0;
  virtual void endCellFaceCounts() = 0;
  virtual void beginCellFaceIds() = 0;
  virtual void readCellFaceIds(int zoneId, std::uint64_t* ids, std::size_t n) = 0;
  virtual void endCellFaceIds() = 0;
  virtual void endCellFaces() = 0;

  // --- Cell partitions --------------------------------------------------------------------------

  virtual void beginCellPartitions(std::vector<int>& zoneIds) = 0;
  /// One integer a zone, handed on to OrvConsumer::beginCellPartitions.
  virtual int getCellPartitionInfo(int zoneId) = 0;
  /// One integer a cell: the partition that it is meant for.
  virtual void readCellPartitions(int zoneId, int* partitions, std::size_t n) = 0;
  virtual void endCellPartitions() = 0;

  // --- Field data -------------------------------------------------------------------------------
  //
  //     beginPhase(phase)
  //       getVariableNames(category, names)
  //       beginVariable(category, name, zoneIds)
  //         readVariable(zone, ...)
  //       endVariable()
  //     endPhase()

  virtual void beginPhase(short phaseId) = 0;
  /// True, and the names of the phase's attributes in place of `names`, if it has any.
  virtual bool getPhaseAttributeNames(short phaseId, std::vector<std::string>& names) = 0;
  virtual bool getPhaseAttribute(short phaseId, const std::string& name, std::string& value) = 0;
  /// Replaces `names` by the variables of the current phase on zones of `category`.
  virtual void getVariableNames(OrvZoneCategory category, std::vector<std::string>& names) = 0;
  virtual bool getVariableAttributeNames(int variableId, std::vector<std::string>& names) = 0;
  virtual bool getVariableAttribute(int variableId, const std::string& name,
                                    std::string& value) = 0;
  /// Replaces `zoneIds` by the zones that hold the variable; returns its values per element.
  virtual std::size_t beginVariable(OrvZoneCategory category, const std::string& name,
                                    std::vector<int>& zoneIds) = 0;
  /// The values of a whole zone, element after element; returns how many it delivered, at most `n`.
  virtual std::size_t readVariable(int zoneId, double* values, std::size_t n) = 0;
  virtual void endVariable() = 0;
  virtual void endPhase() = 0;

 protected:
  OrvProvider() = default;
  ~OrvProvider() = default;
};

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_ORV_PROVIDER_H
