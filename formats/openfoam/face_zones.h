// SPDX-License-Identifier: Apache-2.0
//
// Which face zones a case has of a mesh, and which faces of the files are in each.

#ifndef VELTO_FORMATS_OPENFOAM_FACE_ZONES_H
#define VELTO_FORMATS_OPENFOAM_FACE_ZONES_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "formats/openfoam/PolyMesh.h"

namespace velto::openfoam {

/// A face zone of the case: `count` faces with the numbers from `first` on (0-based).
struct FaceZone {
  std::string name;
  std::string settings;              ///< Where settings about the zone of the files are kept.
  std::optional<std::size_t> patch;  ///< The place of its patch; none for faces inside the flow.
  std::uint64_t first = 0;
  std::uint64_t count = 0;  ///< Faces that it claims; the mesh may have fewer.
  /// The faces of the files that it is made of; nothing where they have its numbers already.
  std::optional<std::vector<std::uint64_t>> gathered;
  bool isPiece = false;  ///< Of a zone of the files that several cell zones share.

  bool isInternal() const { return !patch; }

  /// The face of the files that is the zone's face `i`; it may be none of the mesh.
  std::uint64_t faceAt(std::uint64_t i) const { return gathered ? (*gathered)[i] : first + i; }
};

/// The zones of a mesh in the order of their numbers: "interior" for the internal faces of no face
/// zone, each of `internalZones`, each patch. An empty patch of a mesh without faces is left out.
std::vector<FaceZone> layOutFaceZones(const PolyMesh& mesh, std::uint64_t internalFaces,
                                      const std::vector<ElementZone>& internalZones);

/// For each patch the place of the patch that it names as its other half; nothing for a patch that
/// is no cyclic half, or names no patch of the mesh.
std::vector<std::optional<std::size_t>> cyclicPartners(const std::vector<Patch>& patches);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_FACE_ZONES_H
