// SPDX-License-Identifier: Apache-2.0
//
// Shapes from counts, and words for shapes and zone types.

#include "embedded/base/shapes.h"

#include <map>

namespace velto::base {

int faceShapeOf(std::uint64_t nodeCount) {
  if (nodeCount >= 2 && nodeCount <= 4) {
    return static_cast<int>(nodeCount);
  }
  return faceShapePolygon;
}

int cellShapeOf(unsigned triangles, unsigned quadrilaterals, unsigned others) {
  if (others == 0) {
    if (triangles == 4 && quadrilaterals == 0) {
      return cellShapeTetrahedron;
    }
    if (triangles == 4 && quadrilaterals == 1) {
      return cellShapePyramid;
    }
    if (triangles == 2 && quadrilaterals == 3) {
      return cellShapeWedge;
    }
    if (triangles == 0 && quadrilaterals == 6) {
      return cellShapeHexahedron;
    }
  }
  return cellShapePolyhedron;
}

namespace {

std::string nameIn(const std::map<int, std::string>& names, int value) {
  const auto found = names.find(value);
  return found == names.end() ? std::to_string(value) : found->second;
}

}  // namespace

std::string cellShapeName(int shape) {
  static const std::map<int, std::string> kNames = {
      {-1, "not set"},
      {cellShapeMixed, "mixed"},
      {cellShapeTriangle, "triangle"},
      {cellShapeTetrahedron, "tetrahedron"},
      {cellShapeQuadrilateral, "quadrilateral"},
      {cellShapeHexahedron, "hexahedron"},
      {cellShapePyramid, "pyramid"},
      {cellShapeWedge, "wedge"},
      {cellShapePolyhedron, "polyhedron"},
  };
  return nameIn(kNames, shape);
}

std::string faceShapeName(int shape) {
  static const std::map<int, std::string> kNames = {
      {-1, "not set"},
      {faceShapeMixed, "mixed"},
      {faceShapeLine, "line"},
      {faceShapeTriangle, "triangle"},
      {faceShapeQuadrilateral, "quadrilateral"},
      {faceShapePolygon, "polygon"},
  };
  return nameIn(kNames, shape);
}

std::string faceZoneTypeName(int type) {
  static const std::map<int, std::string> kNames = {
      {faceZoneTypeNone, "none"},       {faceZoneTypeInterior, "interior"},
      {faceZoneType14, "two-sided"},    {boundaryWall, "wall"},
      {boundaryPeriodic, "periodic"},   {boundaryPeriodicShadow, "periodic shadow"},
      {boundaryPatch, "patch"},         {boundarySymmetry, "symmetry"},
      {boundaryEmpty, "empty"},         {boundaryWedge, "wedge"},
      {boundaryProcessor, "processor"}, {boundaryCoupled, "coupled"},
  };
  return nameIn(kNames, type);
}

}  // namespace velto::base
