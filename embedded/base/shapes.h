// SPDX-License-Identifier: Apache-2.0
//
// What the integers of zone types and of face and cell shapes stand for in the embedded library.

#ifndef VELTO_EMBEDDED_BASE_SHAPES_H
#define VELTO_EMBEDDED_BASE_SHAPES_H

#include <cstdint>
#include <string>

#include "data_access/OrvTypes.h"

namespace velto::base {

/// Values of cellZoneCellType and of the cell types family. They stand in files and are never
/// renumbered.
enum CellShape : int {
  cellShapeMixed = 0,  ///< Of a zone only: its cells are of several shapes.
  cellShapeTriangle = 1,
  cellShapeTetrahedron = 2,
  cellShapeQuadrilateral = 3,
  cellShapeHexahedron = 4,
  cellShapePyramid = 5,
  cellShapeWedge = 6,
  cellShapePolyhedron = 7,
};

/// Values of faceZoneFaceType: the number of nodes up to 4. They are never renumbered.
enum FaceShape : int {
  faceShapeMixed = 0,  ///< The zone's faces are of several shapes.
  faceShapeLine = 2,
  faceShapeTriangle = 3,
  faceShapeQuadrilateral = 4,
  faceShapePolygon = 5,
};

/// Values of faceZoneType for boundary zones. A wall and the two halves of a periodic pair take
/// values that the tools tell apart; the others are the embedded library's own. Never renumbered.
enum BoundaryType : int {
  boundaryWall = faceZoneType3,
  boundaryPeriodic = faceZoneType12,
  boundaryPeriodicShadow = faceZoneType8,
  boundaryPatch = 100,  ///< Inlets, outlets and all that has no type of its own.
  boundarySymmetry = 101,
  boundaryEmpty = 102,  ///< The front and back of a two-dimensional mesh that is one cell thick.
  boundaryWedge = 103,
  boundaryProcessor = 104,  ///< Where another partition continues the mesh.
  boundaryCoupled = 105,    ///< Joined to another boundary face by face or by interpolation.
};

/// The shape of a face with that many nodes.
int faceShapeOf(std::uint64_t nodeCount);

/// The shape of a closed cell, told from how many triangles, quadrilaterals and other faces it has.
/// These numbers tell tetrahedra, pyramids, wedges and hexahedra from each other and from all other
/// convex polyhedra.
int cellShapeOf(unsigned triangles, unsigned quadrilaterals, unsigned others);

/// Words for these values, for people: "hexahedron", "wall". Other values come as a number.
std::string cellShapeName(int shape);
std::string faceShapeName(int shape);
std::string faceZoneTypeName(int type);

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_SHAPES_H
