// SPDX-License-Identifier: Apache-2.0
//
// Grid: choosing dimensions.

#include "samples/Grid.h"

#include <algorithm>
#include <cmath>

namespace velto::samples {

namespace {

/// The whole number nearest to `value`, at least `least`.
std::uint64_t rounded(double value, std::uint64_t least) {
  return std::max(least, static_cast<std::uint64_t>(std::llround(value)));
}

}  // namespace

Index nearCube(double count, unsigned parts, std::uint64_t leastFirst) {
  Index factors = {1, 1, 1};
  double left = std::max(count, 1.0);
  for (unsigned part = 0; part < parts; ++part) {
    const double edge = std::pow(left, 1.0 / static_cast<double>(parts - part));
    factors.at(part) = rounded(edge, part == 0 ? leastFirst : 1);
    left /= static_cast<double>(factors.at(part));
  }
  return factors;
}

Grid makeGrid(unsigned dimension, std::uint64_t cellCount, std::uint64_t leastLayers) {
  Grid grid;
  grid.dimension = dimension;
  grid.cells = nearCube(static_cast<double>(cellCount), dimension, leastLayers);
  for (const Axis axis : {axisX, axisY, axisZ}) {
    grid.spacing.at(axis) = 1.0 / static_cast<double>(grid.cells.at(axis));
  }
  return grid;
}

Grid Grid::slab(const Range& layers) const {
  Grid part = *this;
  part.cells[axisX] = layers.size();
  part.origin[axisX] += static_cast<double>(layers.first) * spacing[axisX];
  return part;
}

}  // namespace velto::samples
