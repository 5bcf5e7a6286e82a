// SPDX-License-Identifier: Apache-2.0
//
// Cuts face zones where several cell zones meet them.

#ifndef VELTO_FORMATS_OPENFOAM_CUT_FACE_ZONES_H
#define VELTO_FORMATS_OPENFOAM_CUT_FACE_ZONES_H

#include <vector>

#include "formats/openfoam/PolyMesh.h"
#include "formats/openfoam/face_zones.h"
#include "formats/openfoam/zone_layout.h"

namespace velto::openfoam {

/// A face zone of a case has at most one cell zone on each side; patches and faces inside the flow
/// know nothing of cell zones. A zone whose faces all lie between the same two cell zones (of a
/// boundary face that is one) stays as it is. Another is cut into one piece for each two, with the
/// numbers of the zone between them, in the order in which they are met; within a piece the faces
/// keep their order and their direction, so that "a to b" and "b to a" are two pieces:
///
///     walls     ->  walls:rotor, walls:stator
///     interior  ->  interior:rotor, interior:rotor:stator, interior:stator, ...
///
/// The halves of a cyclic pair are cut alike, by the cell zone of a face and that of its partner:
/// piece k of one half is the shadow of piece k of the other, face by face. A half that is not
/// named in return, or has another number of faces, is cut by its own cells.
///
/// In a damaged mesh a face may lie at a cell of no zone, or be no face at all: it goes with the
/// first piece that its other side, if any, allows. What a patch claims behind the last face of the
/// mesh belongs to its last piece. Zones that overlap are cut each by itself.
///
/// `cells` are the zones of the cells as `mesh` numbers them now. Costs a pass over the faces, and
/// 8 bytes for each face of a zone that is cut.
std::vector<FaceZone> cutByCellZones(std::vector<FaceZone> zones, const PolyMesh& mesh,
                                     const std::vector<LayoutZone>& cells);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_CUT_FACE_ZONES_H
