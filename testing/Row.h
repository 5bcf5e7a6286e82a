// SPDX-License-Identifier: Apache-2.0
//
// Row: the nodes and faces of a row of hexahedra, of which named cases are made.

#ifndef VELTO_TESTING_ROW_H
#define VELTO_TESTING_ROW_H

#include <cstdint>
#include <vector>

#include "embedded/memory/CaseBuilder.h"

namespace velto::testing::cases {

using Points = std::vector<std::vector<double>>;

/// A row of unit cubes along x, numbered layer by layer as the box of two in cases.cpp.
class Row {
 public:
  explicit Row(std::uint64_t cells) : cells_(cells) {}

  Points points() const {
    Points points;
    for (const double z : {0, 1}) {
      for (const double y : {0, 1}) {
        for (std::uint64_t x = 0; x <= cells_; ++x) {
          points.push_back({static_cast<double>(x), y, z});
        }
      }
    }
    return points;
  }

  /// The faces of a cell, counted from 1; `after` is the one between it and the next.
  memory::FaceLine after(std::uint64_t cell) const { return {across(cell), cell, cell + 1}; }
  memory::FaceLine bottom(std::uint64_t cell) const {
    return {{at(cell - 1, 0, 0), at(cell - 1, 1, 0), at(cell, 1, 0), at(cell, 0, 0)}, cell};
  }
  memory::FaceLine top(std::uint64_t cell) const {
    return {{at(cell - 1, 0, 1), at(cell, 0, 1), at(cell, 1, 1), at(cell - 1, 1, 1)}, cell};
  }

  /// Front and back of a cell, and the end of the row where it is there.
  std::vector<memory::FaceLine> sides(std::uint64_t cell) const {
    std::vector<memory::FaceLine> faces;
    if (cell == 1) {
      faces.push_back({{at(0, 0, 0), at(0, 0, 1), at(0, 1, 1), at(0, 1, 0)}, cell});
    }
    if (cell == cells_) {
      faces.push_back({across(cell), cell});
    }
    faces.push_back(
        {{at(cell - 1, 0, 0), at(cell, 0, 0), at(cell, 0, 1), at(cell - 1, 0, 1)}, cell});
    faces.push_back(
        {{at(cell - 1, 1, 0), at(cell - 1, 1, 1), at(cell, 1, 1), at(cell, 1, 0)}, cell});
    return faces;
  }

  /// The boundary faces of the cells from `first` to `last`.
  std::vector<memory::FaceLine> walls(std::uint64_t first, std::uint64_t last) const {
    std::vector<memory::FaceLine> faces;
    for (std::uint64_t cell = first; cell <= last; ++cell) {
      for (const memory::FaceLine& side : sides(cell)) {
        faces.push_back(side);
      }
      faces.push_back(bottom(cell));
      faces.push_back(top(cell));
    }
    return faces;
  }

 private:
  std::uint64_t at(std::uint64_t x, std::uint64_t y, std::uint64_t z) const {
    return 1 + x + (cells_ + 1) * (y + 2 * z);
  }

  memory::Ids across(std::uint64_t x) const {
    return {at(x, 0, 0), at(x, 1, 0), at(x, 1, 1), at(x, 0, 1)};
  }

  std::uint64_t cells_;
};

}  // namespace velto::testing::cases

#endif  // VELTO_TESTING_ROW_H
