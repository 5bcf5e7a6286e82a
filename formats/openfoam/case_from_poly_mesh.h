// SPDX-License-Identifier: Apache-2.0
//
// Turns the content of a polyMesh folder into a mesh of a case.

#ifndef VELTO_FORMATS_OPENFOAM_CASE_FROM_POLY_MESH_H
#define VELTO_FORMATS_OPENFOAM_CASE_FROM_POLY_MESH_H

#include <string>
#include <vector>

#include "embedded/base/CaseTables.h"
#include "embedded/memory/Case.h"
#include "formats/openfoam/PolyMesh.h"

namespace velto::openfoam {

/// Adds a mesh to `target` under `key` and takes over the arrays of `mesh`. Returns the texts of
/// findCulprits, which may be pending warnings.
///
/// The points become one node zone; the internal faces a face zone "interior" and one for each face
/// zone that holds internal faces; each patch a face zone; the cells a zone "cells", or one for
/// each cell zone and "default" for the cells of none. A face zone that several cell zones meet is
/// cut into one for each two of them (see cut_face_zones.h). Side 0 of a face is its owner, side 1
/// its neighbour. A label n of the files is the id n + 1, unless zones that are no ranges, or are
/// cut, make it necessary to renumber (see zone_layout.h).
///
/// The type of a patch is kept as the zone's type name, and the other entries of a patch as
/// settings "openfoam/boundary/<patch>/<keyword>"; there the type too if the zone's type does not
/// tell it.
std::vector<std::string> addPolyMesh(memory::Case& target, const base::MeshKey& key, PolyMesh mesh);

/// The boundary type of a patch by the word in `boundary`.
int boundaryTypeOf(const std::string& patchType);

/// The plainest word for a boundary type; "patch" for coupled and unknown ones.
std::string plainTypeOf(int boundaryType);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_CASE_FROM_POLY_MESH_H
