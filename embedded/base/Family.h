// SPDX-License-Identifier: Apache-2.0
//
// Family: the kinds of bulk arrays that a mesh has.

#ifndef VELTO_EMBEDDED_BASE_FAMILY_H
#define VELTO_EMBEDDED_BASE_FAMILY_H

#include <string>

namespace velto::base {

/// One value for each family of bulk calls of OrvProvider. The first three are counted families: a
/// count and a list of ids for each element.
enum class Family {
  faceNodes,        ///< OrvProvider::beginFaceNodes.
  cellNodes,        ///< OrvProvider::beginCellNodes.
  cellFaces,        ///< OrvProvider::beginCellFaces.
  nodeCoordinates,  ///< OrvProvider::beginNodeCoordinates.
  faceCell0,        ///< OrvProvider::beginFaceCell0.
  faceCell1,        ///< OrvProvider::beginFaceCell1.
  faceShadows,      ///< OrvProvider::beginFaceShadows.
  faceTree,         ///< OrvProvider::beginFaceTree.
  cellTypes,        ///< OrvProvider::beginCellTypes.
  cellPartitions,   ///< OrvProvider::beginCellPartitions.
};

/// Name of a family for messages: "face nodes".
inline const char* familyName(Family family) {
  switch (family) {
    case Family::faceNodes:
      return "face nodes";
    case Family::cellNodes:
      return "cell nodes";
    case Family::cellFaces:
      return "cell faces";
    case Family::nodeCoordinates:
      return "node coordinates";
    case Family::faceCell0:
      return "side-0 cells";
    case Family::faceCell1:
      return "side-1 cells";
    case Family::faceShadows:
      return "shadow faces";
    case Family::faceTree:
      return "face tree";
    case Family::cellTypes:
      return "cell types";
    case Family::cellPartitions:
      return "cell partitions";
  }
  return "unknown";
}

/// "face nodes of zone 7", for messages.
inline std::string familyName(Family family, int zone) {
  return std::string(familyName(family)) + " of zone " + std::to_string(zone);
}

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_FAMILY_H
