// SPDX-License-Identifier: Apache-2.0
//
// Survey of cells: one pass over the faces, three small counters a cell.

#include "formats/openfoam/cell_survey.h"

#include <algorithm>
#include <cstddef>
#include <type_traits>

namespace velto::openfoam {

namespace {

/// The counter of a cell for faces of so many nodes.
std::uint8_t& counterOf(CellFaces& cell, std::int16_t nodes) {
  return nodes == 4 ? cell.quadrilaterals : nodes == 3 ? cell.triangles : cell.others;
}

void countFace(std::vector<CellFaces>& cells, std::uint64_t cellId, std::int16_t nodes) {
  const std::uint64_t cell = cellId - 1;
  if (cell < cells.size()) {
    std::uint8_t& counter = counterOf(cells[cell], nodes);
    counter = static_cast<std::uint8_t>(counter + (counter == UINT8_MAX ? 0 : 1));
  }
}

std::uint64_t withoutPadding(const memory::IdList& neighbour) {
  std::size_t count = neighbour.size();
  while (count > 0 && neighbour[count - 1] == 0) {
    --count;
  }
  return count;
}

std::uint64_t highestOf(const memory::IdList& cells, std::size_t count) {
  return cells.visit([&](const auto* held, std::size_t) {
    std::decay_t<decltype(*held)> highest = 0;
    for (std::size_t i = 0; i < count; ++i) {
      highest = std::max(highest, held[i]);
    }
    return std::uint64_t{highest};
  });
}

/// Counts the faces of both sides in one pass: what is counted for one cell and then for another
/// does not wait for each other.
void countFaces(const PolyMesh& mesh, CellSurvey& survey) {
  mesh.owner.visit([&](const auto* owner, std::size_t faces) {
    mesh.neighbour.visit([&](const auto* neighbour, std::size_t) {
      for (std::size_t i = 0; i < survey.internalFaces; ++i) {
        countFace(survey.cells, owner[i], mesh.faceNodeCounts[i]);
        countFace(survey.cells, neighbour[i], mesh.faceNodeCounts[i]);
      }
    });
    for (std::size_t i = survey.internalFaces; i < faces; ++i) {
      countFace(survey.cells, owner[i], mesh.faceNodeCounts[i]);
    }
  });
}

}  // namespace

CellSurvey surveyCells(const PolyMesh& mesh) {
  CellSurvey survey;
  survey.internalFaces = withoutPadding(mesh.neighbour);
  const std::uint64_t sides = mesh.owner.size() + survey.internalFaces;
  const std::uint64_t highest = std::max(highestOf(mesh.owner, mesh.owner.size()),
                                         highestOf(mesh.neighbour, survey.internalFaces));
  survey.cells.resize(std::min(highest, sides));
  countFaces(mesh, survey);
  while (!survey.cells.empty() && survey.cells.back().total() < 2) {
    survey.cells.pop_back();
  }
  return survey;
}

}  // namespace velto::openfoam
