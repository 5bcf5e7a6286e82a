// SPDX-License-Identifier: Apache-2.0
//
// How many facets cells have: faces that must reach a cell, by its type.

#ifndef VELTO_CHECKER_FACETS_H
#define VELTO_CHECKER_FACETS_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace velto {

/// What the number of faces of a cell is held against.
struct FacetRule {
  enum Kind {
    unsupported,  ///< The type is unknown, and no number can be wrong.
    exactly,
    atLeast,
    anyNumber,
  };
  Kind kind = unsupported;
  int facets = 0;
};

/// The type of cells that have any number of facets, but for a least one.
inline constexpr int kPolyhedral = 7;

/// The rules of a mesh, by the type of its cells.
class FacetRules {
 public:
  explicit FacetRules(std::uint64_t meshDimension) {
    if (meshDimension == 2) {
      rules_[kPolyhedral] = {FacetRule::atLeast, 3};
    } else if (meshDimension == 3) {
      rules_[kPolyhedral] = {FacetRule::atLeast, 4};
    } else {
      rules_[kPolyhedral] = {FacetRule::anyNumber, 0};
    }
  }

  FacetRule of(int type) const {
    const auto row = static_cast<std::size_t>(type);
    return row < rules_.size() ? rules_[row] : FacetRule{};
  }

 private:
  std::array<FacetRule, 10> rules_ = {{
      {FacetRule::unsupported, 0},
      {FacetRule::exactly, 3},  // 1: triangle
      {FacetRule::exactly, 4},  // 2: tetrahedron
      {FacetRule::exactly, 4},  // 3: quadrilateral
      {FacetRule::exactly, 6},  // 4: hexahedron
      {FacetRule::exactly, 5},  // 5: pyramid
      {FacetRule::exactly, 5},  // 6: wedge
      {},                       // 7: polyhedron, by the dimension
      {FacetRule::exactly, 1},  // 8
      {FacetRule::exactly, 4},  // 9
  }};
};

}  // namespace velto

#endif  // VELTO_CHECKER_FACETS_H
