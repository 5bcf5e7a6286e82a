// SPDX-License-Identifier: Apache-2.0
//
// The folders that a mesh, or each of its partitions, is written into.

#ifndef VELTO_FORMATS_OPENFOAM_TARGET_FOLDERS_H
#define VELTO_FORMATS_OPENFOAM_TARGET_FOLDERS_H

#include <set>
#include <string>

namespace velto::openfoam {

/// The polyMesh folder for a name: of a case folder, or a folder named polyMesh or constant.
/// Errors: base::CaseError if there is no name, or a file has it.
std::string polyMeshFolder(const std::string& path);

/// The polyMesh folder of a partition; `path` has to be a case folder.
/// Errors: base::CaseError, as above, or if `path` is named polyMesh or constant.
std::string polyMeshFolder(const std::string& path, int partition);

/// Judges whether the case folder `path` holds processor folders of other partitions than these,
/// which would be read as parts of the mesh. Errors: base::CaseError that names the first.
void refuseOtherProcessors(const std::string& path, const std::set<int>& partitions);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_TARGET_FOLDERS_H
