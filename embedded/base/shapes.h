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
  cellShapeMixed = 0,          ///< Of a zone only: its cells are of several shapes.
  cellShapeTriangle = 1,       ///< In two dimensions: 3 nodes, 3 faces.
  cellShapeTetrahedron = 2,    ///< 4 nodes, 4 faces.
  cellShapeQuadrilateral = 3,  ///< In two dimensions: 4 nodes, 4 faces.
  cellShapeHexahedron = 4,     ///< 8 nodes, 6 faces.
  cellShapePyramid = 5,        ///< 5 nodes, 5 faces, one of them a quadrilateral.
  cellShapeWedge = 6,          ///< 6 nodes, 5 faces, three of them quadrilaterals.
  cellShapePolyhedron = 7,     ///< Any other.
};

/// Values of faceZoneFaceType: the number of nodes up to 4. They are never renumbered.
enum FaceShape : int {
  faceShapeMixed = 0,          ///< The zone's faces are of several shapes.
  faceShapeLine = 2,           ///< 2 nodes: a face in two dimensions.
  faceShapeTriangle = 3,       ///< 3 nodes.
  faceShapeQuadrilateral = 4,  ///< 4 nodes.
  faceShapePolygon = 5,        ///< 5 nodes or more.
};

/// Values of faceZoneType for boundary zones. A wall and the two halves of a periodic pair take
/// values that the tools tell apart; the others are the embedded library's own. Never renumbered.
enum BoundaryType : int {
  boundaryWall = faceZoneType3,            ///< A solid wall.
  boundaryPeriodic = faceZoneType12,       ///< One half of a periodic pair.
  boundaryPeriodicShadow = faceZoneType8,  ///< The other half, the shadow of the first.
  boundaryPatch = 100,                     ///< Inlets, outlets and all that has no type of its own.
  boundarySymmetry = 101,                  ///< A plane of symmetry.
  boundaryEmpty = 102,  ///< The front and back of a two-dimensional mesh that is one cell thick.
  boundaryWedge = 103,  ///< A side of a mesh that is a thin wedge around an axis.
  boundaryProcessor = 104,  ///< Where another partition continues the mesh.
  boundaryCoupled = 105,    ///< Joined to another boundary face by face or by interpolation.
};

/// The shape of a face with that many nodes.
int faceShapeOf(std::uint64_t nodeCount);

/// The shape of a closed cell, told from how many triangles, quadrilaterals and other faces it has.
/// These numbers tell tetrahedra, pyramids, wedges and hexahedra from each other and from all other
/// convex polyhedra.
int cellShapeOf(unsigned triangles, unsigned quadrilaterals, unsigned others);

/// The word for a CellShape, for people: "hexahedron". Other values come as a number.
std::string cellShapeName(int shape);
/// The word for a FaceShape in the same way.
std::string faceShapeName(int shape);
/// The word for an OrvFaceZoneType or a BoundaryType in the same way: "wall".
std::string faceZoneTypeName(int type);

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_SHAPES_H
