// SPDX-License-Identifier: Apache-2.0
//
// Writes the files of a polyMesh folder.

#ifndef VELTO_FORMATS_OPENFOAM_WRITE_POLY_MESH_H
#define VELTO_FORMATS_OPENFOAM_WRITE_POLY_MESH_H

#include <cstdint>
#include <functional>
#include <string>

#include "formats/openfoam/MeshToWrite.h"
#include "formats/openfoam/written_zones.h"

namespace velto::openfoam {

/// How the files are written, `boundary` always as plain text.
struct WriteForm {
  bool isText = false;       ///< Else binary; labels have 64 bits only where a count needs them.
  unsigned compression = 0;  ///< Level of zlib, at most 9; 0 for plain files, else NAME.gz.
};

/// Called now and then with the bytes of values written since the last call.
using WriteProgress = std::function<void(std::uint64_t bytes)>;

/// Bytes of values that the files of a mesh hold, each number counted as 8.
std::uint64_t valueBytes(const MeshToWrite& mesh, const WrittenZones& zones);

/// Writes points, faces, owner, neighbour, boundary and, where there are such zones, cellZones and
/// faceZones into the folder `folder`, which is there and empty. `shown` is its name in messages.
/// All files are on the disk at the end. Errors: base::CaseError.
void writePolyMesh(const std::string& folder, const std::string& shown, const MeshToWrite& mesh,
                   const WrittenZones& zones, const WriteForm& form,
                   const WriteProgress& progress = {});

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_WRITE_POLY_MESH_H
