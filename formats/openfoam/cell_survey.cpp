// SPDX-License-Identifier: Apache-2.0
//
// Survey of cells: one pass over the faces, three small counters a cell.

#include "formats/openfoam/cell_survey.h"

#include <algorithm>
#include <cstddef>

namespace velto::openfoam {

namespace {

void countOne(std::uint8_t& counter) {
  if (counter != UINT8_MAX) {
    ++counter;
  }
}

void countFace(std::vector<CellFaces>& cells, std::uint64_t cellId, std::int16_t nodes) {
  const std::uint64_t cell = cellId - 1;
  if (cell >= cells.size()) {
    return;
  }
  if (nodes == 4) {
    countOne(cells[cell].quadrilaterals);
  } else if (nodes == 3) {
    countOne(cells[cell].triangles);
  } else {
    countOne(cells[cell].others);
  }
}

std::uint64_t withoutPadding(const std::vector<std::uint64_t>& neighbour) {
  std::size_t count = neighbour.size();
  while (count > 0 && neighbour[count - 1] == 0) {
    --count;
  }
  return count;
}

}  // namespace

CellSurvey surveyCells(const PolyMesh& mesh) {
  CellSurvey survey;
  survey.internalFaces = withoutPadding(mesh.neighbour);
  const std::uint64_t sides = mesh.owner.size() + survey.internalFaces;
  std::uint64_t highest = 0;
  for (const std::uint64_t cell : mesh.owner) {
    highest = std::max(highest, cell);
  }
  for (std::size_t i = 0; i < survey.internalFaces; ++i) {
    highest = std::max(highest, mesh.neighbour[i]);
  }
  survey.cells.resize(std::min(highest, sides));
  for (std::size_t i = 0; i < mesh.owner.size(); ++i) {
    countFace(survey.cells, mesh.owner[i], mesh.faceNodeCounts[i]);
  }
  for (std::size_t i = 0; i < survey.internalFaces; ++i) {
    countFace(survey.cells, mesh.neighbour[i], mesh.faceNodeCounts[i]);
  }
  while (!survey.cells.empty() && survey.cells.back().total() < 2) {
    survey.cells.pop_back();
  }
  return survey;
}

}  // namespace velto::openfoam
