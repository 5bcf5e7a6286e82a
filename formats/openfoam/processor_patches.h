// SPDX-License-Identifier: Apache-2.0
//
// The order of faces in patches between processors, on which both sides have to agree.

#ifndef VELTO_FORMATS_OPENFOAM_PROCESSOR_PATCHES_H
#define VELTO_FORMATS_OPENFOAM_PROCESSOR_PATCHES_H

#include <map>

#include "formats/openfoam/written_zones.h"

namespace velto::openfoam {

/// Face i of a processor patch lies on face i of the patch on the other side. Where cell zones cut
/// a patch into pieces that order is lost; both sides then come in the order of their points. A
/// patch whose other side is not among the partitions, or lies elsewhere (processorCyclic), gets a
/// warning. `partitions`: by number.
void alignProcessorPatches(const std::map<int, WrittenZones*>& partitions);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_PROCESSOR_PATCHES_H
