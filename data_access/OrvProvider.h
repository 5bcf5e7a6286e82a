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
/// is, so callers zero it first; a read that returns how many it delivered leaves it at that, any
/// other leaves a pending warning. Where the file could not be read, an error waits. Per-element
/// getters take an id of the mesh, not a position in the zone, and answer 0 for an id that no
/// listed zone holds.
///
/// A connectivity list holds the ids of all elements of a zone, one element after the other in
/// element order, without separators; the counts tell where each element's ids end.
class OrvProvider : public virtual OrvBase {
 public:
  /// @name Queries, not virtual
  /// @{

  /// Whether the file holds `category` for any of its meshes.
  bool hasTarget(OrvTargetCategory category) const;

  /// The entry at `path`, components joined by "/" ("boundaries/inlet/location"); an invalid
  /// variant if nothing stands there. With `flag` 1 the path is looked up below the case's solver
  /// type first ("VELTO_GENERIC/boundaries/inlet/location") and then as it stands; with 0 only as
  /// it stands.
  OrvVariant getSettings(OrvDataClass dataClass, const std::string& path, short flag) const;

  /// True, and the id, if the results hold a variable of that name.
  bool getVariableId(const std::string& name, int& id) const;

  /// @}
  /// @name Settings as a list
  /// @{

  /// Replaces `keys` by the keys of all settings, in the order of the file.
  virtual void getSettingsKeys(OrvDataClass dataClass, std::vector<std::string>& keys) = 0;

  /// The text of one setting in the store `path` (see OrvBase::_defaultSettingsPath); left alone if
  /// there is none.
  virtual void getSettingsValue(OrvDataClass dataClass, const std::string& key, std::string& value,
                                const std::string& path) = 0;

  /// @}
  /// @name What the file holds
  /// @{

  /// Replaces `ids` by the file's meshes.
  virtual void getMeshIds(std::vector<int>& ids, OrvDataClass dataClass) = 0;

  /// Replaces `categories` by the OrvTargetCategory values of a mesh.
  virtual void getTargets(std::vector<int>& categories, int meshId, OrvDataClass dataClass) = 0;

  /// Replaces `ids` by the partitions of a mesh; empty if it has none.
  virtual void getPartitionIds(std::vector<int>& ids, int meshId, OrvDataClass dataClass) = 0;

  /// @}
  /// @name Node coordinates
  /// Cartesian, in the mesh's units, zoneDimension values a node (0 stands for 3), node after node.
  /// @{

  /// A bracket of the family: opens or closes it. To begin lists the node zones
  /// that have coordinates.
  virtual void beginNodeCoordinates(std::vector<int>& zoneIds) = 0;
  /// The coordinates of a whole zone; returns how many values it delivered, at most `n`.
  virtual std::size_t readNodeCoordinates(int zoneId, double* values, std::size_t n) = 0;
  virtual void endNodeCoordinates() = 0;

  /// @}
  /// @name Face nodes
  /// Node ids in loop order. By the right-hand rule over the loop a face's normal points from its
  /// side-0 cell into its side-1 cell, and outwards on a boundary.
  /// @{

  /// A bracket: opens or closes the family, its counts or its ids. To begin lists the face zones
  /// whose faces have nodes.
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

  /// @}
  /// @name The cells on the two sides of a face
  /// 0 means that the face has no cell on that side. Boundary zones are not listed on side 1.
  /// @{

  /// A bracket: opens or closes the family of side 0 or of side 1. To begin lists the face zones
  /// that store cells on that side.
  virtual void beginFaceCell0(std::vector<int>& zoneIds) = 0;
  /// The cell on side 0 of one face, by the id of the face.
  virtual std::uint64_t getFaceCell0(std::uint64_t faceId) = 0;
  /// One cell id a face; `n` is the zone's number of faces.
  virtual void readFaceCell0(int zoneId, std::uint64_t* cellIds, std::size_t n) = 0;
  virtual void endFaceCell0() = 0;
  virtual void beginFaceCell1(std::vector<int>& zoneIds) = 0;
  /// The cell on side 1 of one face, by the id of the face.
  virtual std::uint64_t getFaceCell1(std::uint64_t faceId) = 0;
  /// As readFaceCell0, of side 1.
  virtual void readFaceCell1(int zoneId, std::uint64_t* cellIds, std::size_t n) = 0;
  virtual void endFaceCell1() = 0;

  /// @}
  /// @name Shadow faces
  /// Faces that are one and the same place of the mesh, such as the two halves of a periodic pair.
  /// The partners of a zone's faces lie in the zone that its faceZoneShadow names.
  /// @{

  /// A bracket of the family: opens or closes it. To begin lists the face zones whose faces have
  /// partners.
  virtual void beginFaceShadows(std::vector<int>& zoneIds) = 0;
  /// The partner of a face in the shadow zone of its zone.
  virtual std::uint64_t getFaceShadow(std::uint64_t faceId) = 0;
  virtual void endFaceShadows() = 0;

  /// @}
  /// @name The face tree
  /// @{

  /// Lists the zones of faces that are cut into finer ones, and the zones of those finer faces.
  virtual void beginFaceTree(std::vector<int>& parentZoneIds, std::vector<int>& childZoneIds) = 0;
  /// Closes the family, which has nothing to read.
  virtual void endFaceTree() = 0;

  /// @}
  /// @name Cell types
  /// The shapes of cells: 1 triangle, 2 tetrahedron, 3 quadrilateral, 4 hexahedron, 5 pyramid,
  /// 6 wedge, 7 polyhedron. Further values are the data-access library's own.
  /// @{

  /// A bracket of the family: opens or closes it. To begin lists the cell zones
  /// whose types are known.
  virtual void beginCellTypes(std::vector<int>& zoneIds) = 0;
  /// True, and the type, if all cells of the zone have one type.
  virtual bool getUniformCellType(int zoneId, int& type) = 0;
  /// The type of one cell, by its id; of a zone with one type that one.
  virtual int getCellType(std::uint64_t cellId) = 0;
  /// One type a cell; returns how many it delivered, at most `n`.
  virtual std::size_t readCellTypes(int zoneId, int* types, std::size_t n) = 0;
  virtual void endCellTypes() = 0;

  /// @}
  /// @name Cell nodes
  /// The nodes of each cell. Zones whose cells are known by the faces around them alone are not
  /// listed, which on a restart target may be all.
  /// @{

  /// A bracket: opens or closes the family, its counts or its ids. To begin lists the cell zones
  /// whose cells have nodes.
  virtual void beginCellNodes(std::vector<int>& zoneIds) = 0;
  virtual void beginCellNodeCounts() = 0;
  /// True, and the count, if all cells of the zone have one node count.
  virtual bool getUniformCellNodeCount(int zoneId, short& count) = 0;
  /// One count a cell; `n` is the zone's number of cells.
  virtual void readCellNodeCounts(int zoneId, short* counts, std::size_t n) = 0;
  virtual void endCellNodeCounts() = 0;
  virtual void beginCellNodeIds() = 0;
  /// The zone's connectivity list; `n` is its length.
  virtual void readCellNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) = 0;
  virtual void endCellNodeIds() = 0;
  virtual void endCellNodes() = 0;

  /// @}
  /// @name Cell faces
  /// The ids of the faces around each cell, which polyhedra of a target for viewers list.
  /// @{

  /// A bracket: opens or closes the family, its counts or its ids. To begin lists the cell zones
  /// whose cells have faces of their own.
  virtual void beginCellFaces(std::vector<int>& zoneIds) = 0;
  virtual void beginCellFaceCounts() = 0;
  /// True, and the count, if all cells of the zone have one face count.
  virtual bool getUniformCellFaceCount(int zoneId, short& count) = 0;
  /// One count a cell; `n` is the zone's number of cells.
  virtual void readCellFaceCounts(int zoneId, short* counts, std::size_t n) = 0;
  virtual void endCellFaceCounts() = 0;
  virtual void beginCellFaceIds() = 0;
  /// The zone's connectivity list; `n` is its length.
  virtual void readCellFaceIds(int zoneId, std::uint64_t* ids, std::size_t n) = 0;
  virtual void endCellFaceIds() = 0;
  virtual void endCellFaces() = 0;

  /// @}
  /// @name Cell partitions
  /// @{

  /// A bracket of the family: opens or closes it. To begin lists the cell zones whose cells are
  /// meant for partitions.
  virtual void beginCellPartitions(std::vector<int>& zoneIds) = 0;
  /// One integer a zone, handed on to OrvConsumer::beginCellPartitions.
  virtual int getCellPartitionInfo(int zoneId) = 0;
  /// One integer a cell: the partition that it is meant for.
  virtual void readCellPartitions(int zoneId, int* partitions, std::size_t n) = 0;
  virtual void endCellPartitions() = 0;

  /// @}
  /// @name Field data
  /// Phases come from OrvBase::getPhaseIds; a variable may have values on zones of several
  /// categories.
  ///
  ///     beginPhase(phase)
  ///       getVariableNames(category, names)
  ///       beginVariable(category, name, zoneIds)
  ///         readVariable(zone, ...)
  ///       endVariable()
  ///     endPhase()
  ///
  /// @{

  /// A bracket: opens or closes a phase, or closes a variable.
  virtual void beginPhase(short phaseId) = 0;
  /// True, and the names of the phase's attributes in place of `names`, if it has any.
  virtual bool getPhaseAttributeNames(short phaseId, std::vector<std::string>& names) = 0;
  /// True, and the text of the attribute, if the phase has it.
  virtual bool getPhaseAttribute(short phaseId, const std::string& name, std::string& value) = 0;
  /// Replaces `names` by the variables of the current phase on zones of `category`.
  virtual void getVariableNames(OrvZoneCategory category, std::vector<std::string>& names) = 0;
  /// True, and the names of the variable's attributes in place of `names`, if it has any. Its id is
  /// what getVariableId gives.
  virtual bool getVariableAttributeNames(int variableId, std::vector<std::string>& names) = 0;
  /// True, and the text of the attribute, if the variable has it.
  virtual bool getVariableAttribute(int variableId, const std::string& name,
                                    std::string& value) = 0;
  /// Opens a variable of the current phase: replaces `zoneIds` by the zones that hold it, and
  /// returns its values per element, 1 for a scalar and 3 for a vector in space; 0 for none.
  virtual std::size_t beginVariable(OrvZoneCategory category, const std::string& name,
                                    std::vector<int>& zoneIds) = 0;
  /// The values of a whole zone, element after element; returns how many it delivered, at most `n`.
  virtual std::size_t readVariable(int zoneId, double* values, std::size_t n) = 0;
  virtual void endVariable() = 0;
  virtual void endPhase() = 0;

  /// @}

 protected:
  OrvProvider() = default;
  ~OrvProvider() = default;
};

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_ORV_PROVIDER_H
