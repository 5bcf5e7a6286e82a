// SPDX-License-Identifier: Apache-2.0
//
// Carries the arrays of a mesh from where they are to where they go, as they are.

#ifndef VELTO_EMBEDDED_BASE_COPY_ARRAYS_H
#define VELTO_EMBEDDED_BASE_COPY_ARRAYS_H

#include <cstdint>
#include <vector>

#include "embedded/base/CaseTables.h"
#include "embedded/base/MeshArrays.h"

namespace velto::base {

/// Copies all families of a mesh, zone by zone, right or wrong as they are: nothing is derived and
/// nothing is judged. Needs memory for the longest array of a zone. A failure of either side is an
/// exception (CaseError).
void copyMesh(MeshArrays& from, MeshArraySink& to);

/// Bytes of all arrays that copyMesh() would carry, for progress.
std::uint64_t bytesOfMesh(MeshArrays& from);

/// Copies the field data of a mesh, for these phases, in the same way.
void copyResults(MeshArrays& from, const std::vector<Phase>& phases, MeshArraySink& to);

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_COPY_ARRAYS_H
