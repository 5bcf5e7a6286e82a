// SPDX-License-Identifier: Apache-2.0
//
// Which patches, cell zones and face zones a mesh is written with.

#ifndef VELTO_FORMATS_OPENFOAM_WRITTEN_ZONES_H
#define VELTO_FORMATS_OPENFOAM_WRITTEN_ZONES_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "embedded/base/CaseTables.h"
#include "formats/openfoam/KeptSettings.h"
#include "formats/openfoam/MeshToWrite.h"

namespace velto::openfoam {

/// A patch: boundary zones one behind the other.
struct WrittenPatch {
  std::string name;
  std::string type;
  std::vector<std::pair<std::string, std::string>> entries;  ///< But type, nFaces and startFace.
  std::vector<std::size_t> zones;                            ///< Places in the face zones.
  std::uint64_t faceCount = 0;
  bool isInOrderOfPoints = false;  ///< Its faces are sorted by the coordinates of their nodes.
};

/// A cell zone: the cells with the labels from `first` on.
struct WrittenCellZone {
  std::string name;
  std::uint64_t first = 0;
  std::uint64_t count = 0;
};

/// A face zone: the faces of internal zones, one zone behind the other.
struct WrittenFaceZone {
  std::string name;
  std::vector<std::size_t> zones;  ///< Places in the face zones of the mesh.
};

struct WrittenZones {
  std::vector<WrittenPatch> patches;
  std::vector<WrittenCellZone> cellZones;
  std::vector<WrittenFaceZone> faceZones;
  std::vector<std::string> warnings;  ///< What could not be written as it is.
};

/// Boundary zones become patches, the pieces of one patch that patch again; of internal zones those
/// that are not the reader's own "interior" become face zones; cell zones become cell zones, but
/// not the reader's "cells" and "default". Zones without elements that settings name come last.
WrittenZones zonesToWrite(const MeshToWrite& mesh, const base::MeshTables& tables,
                          const KeptSettings& settings);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_WRITTEN_ZONES_H
