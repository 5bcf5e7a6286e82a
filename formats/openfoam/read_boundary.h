// SPDX-License-Identifier: Apache-2.0
//
// The patches of a mesh, from the file `boundary`.

#ifndef VELTO_FORMATS_OPENFOAM_READ_BOUNDARY_H
#define VELTO_FORMATS_OPENFOAM_READ_BOUNDARY_H

#include <vector>

#include "formats/openfoam/PolyMesh.h"
#include "formats/openfoam/Scanner.h"

namespace velto::openfoam {

/// Reads the list of patches behind the header; it is text whatever the header's format says.
/// Errors: ReadError if the list is broken or has another number of patches than it says, if a
/// patch has no type, or if its nFaces or startFace is missing or no number from 0 on.
std::vector<Patch> readPatches(Scanner& scanner);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_READ_BOUNDARY_H
