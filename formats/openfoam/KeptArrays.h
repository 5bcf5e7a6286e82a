// SPDX-License-Identifier: Apache-2.0
//
// KeptArrays: the arrays of a mesh that a polyMesh is made of, kept until it is written.

#ifndef VELTO_FORMATS_OPENFOAM_KEPT_ARRAYS_H
#define VELTO_FORMATS_OPENFOAM_KEPT_ARRAYS_H

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "embedded/memory/IdList.h"
#include "embedded/memory/ZoneList.h"

namespace velto::openfoam {

/// Ids of one zone, whose range is known.
class KeptIds {
 public:
  KeptIds() = default;
  KeptIds(const std::uint64_t* ids, std::size_t n);

  std::size_t size() const { return ids_.size(); }
  std::uint64_t operator[](std::uint64_t i) const { return ids_[static_cast<std::size_t>(i)]; }

  /// Calls `use` with the ids as they are kept: const std::uint32_t* or const std::uint64_t*.
  template <class Use>
  auto with(const Use& use) const {
    return ids_.visit([&use](const auto* ids, std::size_t) { return use(ids); });
  }

  /// Without ids the least one is above the greatest.
  std::uint64_t least() const { return least_; }
  std::uint64_t greatest() const { return greatest_; }

 private:
  memory::IdList ids_;
  std::uint64_t least_ = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t greatest_ = 0;
};

/// The nodes of the faces of a zone. With a uniform count the list of counts stays empty.
struct KeptFaceNodes {
  std::optional<short> uniform;
  std::vector<short> counts;
  KeptIds ids;
};

/// The arrays of a mesh, by zone. Nothing here is checked.
struct KeptArrays {
  memory::ZoneList<std::vector<double>> nodeCoordinates;
  memory::ZoneList<KeptFaceNodes> faceNodes;
  memory::ZoneList<KeptIds> faceCell0;
  memory::ZoneList<KeptIds> faceCell1;
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_KEPT_ARRAYS_H
