// SPDX-License-Identifier: Apache-2.0
//
// Reads an OpenFOAM polyMesh folder.

#ifndef VELTO_FORMATS_OPENFOAM_READ_POLY_MESH_H
#define VELTO_FORMATS_OPENFOAM_READ_POLY_MESH_H

#include <cstdint>
#include <functional>
#include <string>

#include "formats/openfoam/FoamHeader.h"
#include "formats/openfoam/PolyMesh.h"
#include "formats/openfoam/ReadError.h"

namespace velto::openfoam {

/// Called now and then with the bytes read so far of all files, and with their sum: sizes on disk,
/// so compressed ones of gzipped files. What it throws ends the reading and reaches the caller.
using ReadProgress = std::function<void(std::uint64_t done, std::uint64_t total)>;

/// Reads the files points, faces, owner, neighbour and boundary of `folder`, and cellZones and
/// faceZones if they are there. Each may be gzipped, under its name with .gz; where both are
/// there, the plain one is read. Text and binary, labels and scalars of 32 or 64 bits.
///
/// What is well formed is handed on as it stands, wrong as it may be: labels out of range,
/// overlapping patches, coordinates that are no numbers. The memory taken is in proportion to what
/// the files hold; a count in a file is never believed by itself.
///
/// Errors: ReadError, for the first thing found that cannot be read: a file that is missing, cut or
/// of another form, a count that does not match, an owner list that is not as long as the faces, a
/// neighbour list that is longer. std::bad_alloc where the memory does not suffice.
PolyMesh readPolyMesh(const std::string& folder, const ReadProgress& progress = {});

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_READ_POLY_MESH_H
