// SPDX-License-Identifier: Apache-2.0
//
// Names the entries of a polyMesh that can be read and are wrong.

#ifndef VELTO_FORMATS_OPENFOAM_FIND_CULPRITS_H
#define VELTO_FORMATS_OPENFOAM_FIND_CULPRITS_H

#include <string>
#include <vector>

#include "formats/openfoam/PolyMesh.h"
#include "formats/openfoam/cell_survey.h"

namespace velto::openfoam {

/// One text for each wrong entry, with its file, index, value and what is allowed, at most ten of a
/// kind and then their number; indices and labels are 0-based as in the files. The checker judges
/// the case as a whole; these texts tell it apart where its words cannot.
///
/// Looked for: coordinates that are no finite numbers, faces of fewer than three nodes, node, owner
/// and neighbour labels out of range, faces with one cell on both sides, cells of fewer than four
/// faces, patches that overlap, leave a gap, or reach past the last face, cyclic patches without
/// their other half, zone labels out of range or in two zones, counts that differ from the note.
std::vector<std::string> findCulprits(const PolyMesh& mesh, const CellSurvey& survey);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_FIND_CULPRITS_H
