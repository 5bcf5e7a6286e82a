// SPDX-License-Identifier: Apache-2.0
//
// How the cells of a zone are described, and what form a mesh has by its zones.

#ifndef VELTO_CHECKER_CONNECTIVITY_KINDS_H
#define VELTO_CHECKER_CONNECTIVITY_KINDS_H

namespace velto {

/// The kind of a cell zone, as OrvChecker keeps it for each.
enum CellZoneConnectivity : int {
  connectivityNone = 0,          ///< Not classified.
  connectivityInconsistent = 1,  ///< The zone contradicts itself or the target.
  connectivityFaceNode = 2,      ///< Cells are known by the faces that name them; restart only.
  connectivityCellNode = 3,      ///< The zone lists the nodes of its cells.
  connectivityCellFace = 4,      ///< The zone lists the faces of its cells, which are polyhedra.
};

/// The form of a mesh, by the kinds of its cell zones.
enum CellsFromFacesMode : int {
  modeUnset = 0,     ///< No mesh with cell zones was seen yet.
  modeGeneral = 1,   ///< Some zone lists the faces of its cells, or is of no sound kind.
  modeFaceNode = 2,  ///< All zones are known by their faces.
  modeCellNode = 3,  ///< All zones list the nodes of their cells.
  modeMixed = 4,     ///< Zones of these two kinds and no other.
};

}  // namespace velto

#endif  // VELTO_CHECKER_CONNECTIVITY_KINDS_H
