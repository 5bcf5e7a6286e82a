// SPDX-License-Identifier: Apache-2.0
//
// Grid: how the nodes, cells and faces of a regular box are numbered.

#ifndef VELTO_SAMPLES_GRID_H
#define VELTO_SAMPLES_GRID_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace velto::samples {

enum Axis : std::size_t { axisX, axisY, axisZ };

/// A triple by axis.
using Index = std::array<std::uint64_t, 3>;

/// Numbers from `first` up to, and without, `last`.
struct Range {
  std::uint64_t first = 0;
  std::uint64_t last = 0;

  std::uint64_t size() const { return last > first ? last - first : 0; }
};

/// A range along each axis.
using Block = std::array<Range, 3>;

inline std::uint64_t sizeOf(const Block& block) {
  return block[axisX].size() * block[axisY].size() * block[axisZ].size();
}

/// A box of cells in rows, columns and layers. Nodes and cells count up from 1, along z first and
/// along x last, so that a slab of layers in x is one run of cell ids. A plane grid has no z: one
/// layer of cells, and one of nodes.
struct Grid {
  unsigned dimension = 3;
  Index cells = {1, 1, 1};
  std::array<double, 3> origin = {0, 0, 0};
  std::array<double, 3> spacing = {1, 1, 1};

  /// Lines of nodes along an axis.
  std::uint64_t lines(std::size_t axis) const { return axis < dimension ? cells.at(axis) + 1 : 1; }

  std::uint64_t nodeCount() const { return lines(axisX) * lines(axisY) * lines(axisZ); }
  std::uint64_t cellCount() const { return cells[axisX] * cells[axisY] * cells[axisZ]; }

  /// By how much an id grows from one node, or cell, to the next along each axis.
  Index nodeStrides() const { return {lines(axisY) * lines(axisZ), lines(axisZ), 1}; }
  Index cellStrides() const { return {cells[axisY] * cells[axisZ], cells[axisZ], 1}; }

  Block allNodes() const {
    return {Range{0, lines(axisX)}, Range{0, lines(axisY)}, Range{0, lines(axisZ)}};
  }

  /// The cells of some layers in x.
  Block cellsOf(const Range& layers) const {
    return {layers, Range{0, cells[axisY]}, Range{0, cells[axisZ]}};
  }

  /// Those layers as a grid of their own, in their place.
  Grid slab(const Range& layers) const;
};

/// A grid over the unit cube, or the unit square, with about `cellCount` cells: as near to a cube
/// as that allows, with `leastLayers` layers in x or more. The count that comes out is off by at
/// most half a layer in the last direction, and never below one cell.
Grid makeGrid(unsigned dimension, std::uint64_t cellCount, std::uint64_t leastLayers);

/// Splits about `count` into as many nearly equal factors as `parts`, each at least 1, the first at
/// least `leastFirst`. Factors that are not asked for are 1.
Index nearCube(double count, unsigned parts, std::uint64_t leastFirst);

/// Calls `each` with the id of every element of a block, along z first. `strides` are those of the
/// kind of element.
template <class Each>
void forEachId(const Block& block, const Index strides, Each each) {
  const std::uint64_t step = strides[axisZ];
  const std::uint64_t rows = block[axisZ].size();
  for (std::uint64_t i = block[axisX].first; i < block[axisX].last; ++i) {
    for (std::uint64_t j = block[axisY].first; j < block[axisY].last; ++j) {
      std::uint64_t id = 1 + i * strides[axisX] + j * strides[axisY] + block[axisZ].first * step;
      for (std::uint64_t k = 0; k < rows; ++k, id += step) {
        each(id);
      }
    }
  }
}

}  // namespace velto::samples

#endif  // VELTO_SAMPLES_GRID_H
