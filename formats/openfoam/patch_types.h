// SPDX-License-Identifier: Apache-2.0
//
// Types and entries of the patches that a mesh is written with.

#ifndef VELTO_FORMATS_OPENFOAM_PATCH_TYPES_H
#define VELTO_FORMATS_OPENFOAM_PATCH_TYPES_H

#include <string>
#include <vector>

#include "embedded/base/CaseTables.h"
#include "formats/openfoam/KeptSettings.h"
#include "formats/openfoam/written_zones.h"

namespace velto::openfoam {

/// What a patch was in the case.
struct PatchToType {
  std::string keptName;    ///< The name under which settings about it are kept.
  std::vector<int> zones;  ///< The ids of its zones, at least one.
};

/// Sets type and entries of `result.patches`, to which `patches` belong one to one.
///
/// The type is the one in the settings, the type name of the zone where that is a word of OpenFOAM
/// for the zone's type, or the plainest word for that type. A coupled patch keeps its type only if
/// what it is coupled to is known too: by the link of the zones, by its entries, or of a processor
/// patch by its name ("procBoundary0to1"). Otherwise it becomes a "patch", with a warning.
void findTypes(const std::vector<PatchToType>& patches, const base::MeshTables& tables,
               const KeptSettings& settings, WrittenZones& result);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_PATCH_TYPES_H
