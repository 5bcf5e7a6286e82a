// SPDX-License-Identifier: Apache-2.0
//
// The parts of the list of defects, one source file each, and how damage finds its place.

#ifndef VELTO_SAMPLES_DEFECT_LISTS_H
#define VELTO_SAMPLES_DEFECT_LISTS_H

#include <string>
#include <vector>

#include "samples/defects.h"

namespace velto::samples {

const std::vector<Defect>& defectsOfFiles();      ///< Version, solver type, targets, mesh sizes.
const std::vector<Defect>& defectsOfRelations();  ///< Which zones bound which, how cells are told.
const std::vector<Defect>& defectsOfZones();      ///< Counts, ranges, names.
const std::vector<Defect>& defectsOfFaceZones();  ///< Types and links of face and cell zones.
const std::vector<Defect>& defectsOfConnectivity();  ///< Ids of nodes, faces and cells.
const std::vector<Defect>& defectsOfModels();        ///< Location models, in files and to be built.
const std::vector<Defect>& defectsOfPhysics();       ///< Physics objects of the settings.

/// An id that no zone of a sample has, and no object of a location model.
inline constexpr int kNoSuchZone = 99;
inline constexpr int kNoSuchObject = 99;

/// A type that no cell has.
inline constexpr int kNoSuchType = 99;

/// The tables of the one mesh of a case, and its arrays.
base::MeshTables& onlyMesh(memory::Case& damaged);
memory::MeshData& onlyArrays(memory::Case& damaged);

/// Removes the zones of a kind from it, with all that they hold. The mesh counts their elements as
/// before.
void dropZones(memory::Case& damaged, OrvZoneCategory category);

/// The id of a zone of that mesh by its name, and what the tables say of it. Throws
/// std::logic_error if there is none.
int zoneNamed(const base::MeshTables& mesh, const std::string& name);
base::ZoneRecord& recordOf(memory::Case& damaged, const std::string& name);

}  // namespace velto::samples

#endif  // VELTO_SAMPLES_DEFECT_LISTS_H
