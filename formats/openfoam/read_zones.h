// SPDX-License-Identifier: Apache-2.0
//
// The zones of a mesh, from the files `cellZones` and `faceZones`.

#ifndef VELTO_FORMATS_OPENFOAM_READ_ZONES_H
#define VELTO_FORMATS_OPENFOAM_READ_ZONES_H

#include <cstdint>
#include <vector>

#include "formats/openfoam/FoamHeader.h"
#include "formats/openfoam/PolyMesh.h"
#include "formats/openfoam/Scanner.h"

namespace velto::openfoam {

/// Reads the list of zones behind the header. Labels are kept under `labelsKeyword` ("cellLabels"
/// or "faceLabels"), text or binary; entries of other names are skipped.
/// `elementCount`: lists of equal labels may not have more entries than this in all.
/// Errors: ReadError if the list is broken or has another number of zones than it says, if a zone
/// has no labels or labels twice, or if it has a flipMap of another length than its labels.
std::vector<ElementZone> readZones(Scanner& scanner, FileForm form, const char* labelsKeyword,
                                   std::uint64_t elementCount);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_READ_ZONES_H
