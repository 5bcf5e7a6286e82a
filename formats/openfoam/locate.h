// SPDX-License-Identifier: Apache-2.0
//
// Finds the polyMesh folders that a name stands for.

#ifndef VELTO_FORMATS_OPENFOAM_LOCATE_H
#define VELTO_FORMATS_OPENFOAM_LOCATE_H

#include <string>
#include <vector>

namespace velto::openfoam {

/// A polyMesh folder, and the partition whose mesh lies in it (-1: the mesh is not cut).
struct MeshFolder {
  std::string path;
  int partition = -1;
};

/// Whether `path` is, or lies in, or holds an OpenFOAM mesh: a polyMesh folder, a file in it, its
/// `constant` folder, or a case folder with constant/polyMesh, with processorN folders, or with
/// regions. Judged by content: a folder counts if one of the mesh's files in it begins with a
/// FoamFile header. Silent and cheap; a mesh that is recognised may still be unreadable.
bool holdsMesh(const std::string& path);

/// The folders to read for `path`: one, or one for each processorN folder in the order of their
/// numbers where the case itself holds no mesh. Throws base::CaseError where the name is not
/// enough: a case of several regions, a collated case, a processor folder without a mesh.
std::vector<MeshFolder> meshFolders(const std::string& path);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_LOCATE_H
