// SPDX-License-Identifier: Apache-2.0
//
// How many cells a polyMesh has and what shape each of them is: both stand in no file and are told
// from the faces.

#ifndef VELTO_FORMATS_OPENFOAM_CELL_SURVEY_H
#define VELTO_FORMATS_OPENFOAM_CELL_SURVEY_H

#include <cstdint>
#include <vector>

#include "formats/openfoam/PolyMesh.h"

namespace velto::openfoam {

/// How many triangles, quadrilaterals and other faces name a cell; each number stops at 255, which
/// is more than any cell with a name of its own has.
struct CellFaces {
  std::uint8_t triangles = 0;
  std::uint8_t quadrilaterals = 0;
  std::uint8_t others = 0;

  unsigned total() const { return 0U + triangles + quadrilaterals + others; }
};

struct CellSurvey {
  std::uint64_t internalFaces = 0;  ///< Faces with a neighbour; padding at the end is not counted.
  std::vector<CellFaces> cells;     ///< One entry a cell.

  std::uint64_t cellCount() const { return cells.size(); }
};

/// Walks over all faces once. The number of cells is the highest label that at least two face sides
/// name, plus 1: a closed cell needs four, so a wild label in the file does not make cells. Labels
/// beyond that are wrong, and named elsewhere. The memory taken is at most six bytes a face.
CellSurvey surveyCells(const PolyMesh& mesh);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_CELL_SURVEY_H
