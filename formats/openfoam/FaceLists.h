// SPDX-License-Identifier: Apache-2.0
//
// FaceLists: the node lists of all faces of a mesh, cut into zones.

#ifndef VELTO_FORMATS_OPENFOAM_FACE_LISTS_H
#define VELTO_FORMATS_OPENFOAM_FACE_LISTS_H

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "embedded/memory/Case.h"

namespace velto::openfoam {

/// Holds counts and ids of all faces, one after the other, and gives zones a share in them. A zone
/// that is a range costs no copy; one that collects faces from all over does.
class FaceLists {
 public:
  struct Zone {
    std::uint64_t count = 0;  ///< Faces that the zone claims; its lists may end earlier.
    memory::CountedData nodes;
  };

  /// `places` are the face numbers at which ranges will begin and end, in any order. With
  /// `allPlaces` every face can be found, as gather() needs it, for 8 bytes a face.
  FaceLists(std::vector<short> counts, memory::IdList ids, std::vector<std::uint64_t> places,
            bool allPlaces);

  /// The faces from `first` on. What lies past the last face is not there.
  Zone range(std::uint64_t first, std::uint64_t count) const;

  /// The faces of those numbers, of a zone that claims `count`. A number that is no face gives a
  /// face without nodes.
  Zone gather(const std::vector<std::uint64_t>& faces, std::uint64_t count) const;

 private:
  std::uint64_t faceCount() const { return counts_->size(); }

  std::shared_ptr<const std::vector<short>> counts_;
  std::shared_ptr<const memory::IdList> ids_;
  std::unordered_map<std::uint64_t, std::uint64_t> offsets_;  // of the places
  std::vector<std::uint64_t> allOffsets_;                     // of every face, if asked for
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_FACE_LISTS_H
