// SPDX-License-Identifier: Apache-2.0
//
// The enumerations of the contract: kinds of data, meshes and zones, and the keys of zone queries.
//
// Identifiers, the same everywhere in the contract:
//
//   mesh id, partition id   int             a partition id of -1 stands for "no partition"
//   zone id                 int             one id space for zones of all categories of a mesh;
//                                           in a link (child, parent, shadow) 0 means "no zone"
//   node, face, cell id     std::uint64_t   1-based, without gaps over the zones of a category;
//                                           a cell id of 0 on a face means "no cell on that side"
//   per-element count       short           nodes of a face, nodes of a cell, faces of a cell
//   phase id                short
//   variable id             int
//
// Values cross a library boundary: they are stored in files and compared as integers, and are never
// renumbered. A data-access library may know more values than are named here, so a value without a
// name is legal input to every operation that takes one of these types.

#ifndef VELTO_DATA_ACCESS_ORV_TYPES_H
#define VELTO_DATA_ACCESS_ORV_TYPES_H

namespace velto {

/// What a file or a request is about.
enum OrvDataClass : int {
  dataClassCase = 0,     ///< The case: meshes, zones, settings, location model.
  dataClassResults = 1,  ///< The results: field data of phases, in a file of their own.
};

/// Kinds of mesh in a file. A mesh may come in several of them.
enum OrvTargetCategory : int {
  targetRestart = 0,          ///< What a solver starts from: faces with the cells beside them.
  targetPost = 1,             ///< What a viewer shows: cells with nodes or faces of their own.
  targetPartitionedPost = 2,  ///< The same, cut into partitions.
};

/// Kinds of zone. The value 1 is not in use.
enum OrvZoneCategory : int {
  zoneCategoryNode = 0,  ///< Nodes, with their coordinates.
  zoneCategoryFace = 2,  ///< Faces: inside a body, between bodies, or on the boundary.
  zoneCategoryCell = 3,  ///< Cells: what the faces enclose, areas in two dimensions.
};

/// Keys of OrvBase::getMeshSize and setMeshSize.
enum OrvMeshSizeType : int {
  meshDimension = 0,   ///< Dimension of space: 2 or 3.
  meshNodeCount = 1,   ///< Nodes of all node zones.
  meshOtherCount = 2,  ///< A further count, carried along and not interpreted.
  meshFaceCount = 3,   ///< Faces of all face zones.
  meshCellCount = 4,   ///< Cells of all cell zones.
};

/// Keys of OrvBase::getZoneSizeInfo and setZoneSizeInfo. A zone covers one contiguous id range; its
/// three numbers are kept apart, so a bad file can hold three that disagree.
enum OrvZoneSizeType : int {
  zoneFirstId = 0,       ///< Id of the zone's first element.
  zoneLastId = 1,        ///< Id of its last element.
  zoneElementCount = 2,  ///< Number of elements.
  zoneDimension = 3,     ///< Dimension of space, as meshDimension. 0 on a node zone stands for 3.
};

/// Keys of OrvBase::getFaceZoneInfo and setFaceZoneInfo.
enum OrvFaceZoneInfoType : int {
  faceZoneFaceType = 0,  ///< Shape of the zone's faces; -1 means "not set", less is invalid.
  faceZoneChild = 1,     ///< Child zone id, 0 for none.
  faceZoneParent0 = 2,   ///< First parent zone id, 0 for none.
  faceZoneParent1 = 3,   ///< Second parent zone id, 0 for none.
  faceZoneShadow = 4,    ///< Shadow zone id, 0 for none.
  faceZoneType = 5,      ///< An OrvFaceZoneType; below -1 is invalid.
};

/// Keys of OrvBase::getCellZoneInfo and setCellZoneInfo.
enum OrvCellZoneInfoType : int {
  cellZoneCellType = 0,  ///< Shape of the zone's cells; -1 means "not set", less is invalid.
  cellZoneChild = 1,     ///< Child zone id, 0 for none.
};

/// Keys of OrvBase::getFaceZoneProp.
enum OrvFaceZonePropType : int {
  faceZonePeriodic = 4,  ///< Stands in for faceZoneType12 on a zone that has no type.
};

/// Types of face zones, as far as they are told apart. Walls, inlets and all other boundary zones
/// carry values of the data-access library's own.
enum OrvFaceZoneType : int {
  faceZoneTypeNone = -1,     ///< The zone has no type.
  faceZoneTypeInterior = 2,  ///< Inside a body, with cells on both sides.
  faceZoneType3 = 3,         ///< One-sided; half of a pair where its shadow is of type 3 or 8.
  faceZoneType8 = 8,         ///< As type 3; periodic where its shadow is of type 12.
  faceZoneType12 = 12,       ///< Periodic.
  faceZoneType14 = 14,       ///< Two-sided like interior.
};

/// Keys of OrvBase::getZoneStringInfo and setZoneStringInfo.
enum OrvZoneStringInfoType : int {
  zoneName = 0,      ///< The zone's name; may be empty.
  zoneTypeName = 1,  ///< The name of the zone's type.
};

/// Formats that a destination can be written in. The values are the data-access library's; the
/// tools hand on what they get.
enum OrvFileFormatType : int {
  fileFormatMemory = 0,    ///< A case in memory; nothing reaches the disk.
  fileFormatOpenFoam = 1,  ///< An OpenFOAM polyMesh folder.
  fileFormatStore = 2,     ///< The case store: a file for the case and one for its results.
  fileFormatVtu = 3,       ///< A VTK unstructured grid, for viewers.
};

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_ORV_TYPES_H
