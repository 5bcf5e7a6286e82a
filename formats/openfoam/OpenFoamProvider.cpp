// SPDX-License-Identifier: Apache-2.0
//
// OpenFoamProvider: locate, read, assemble, serve.

#include "formats/openfoam/OpenFoamProvider.h"

#include <memory>
#include <string>
#include <utility>

#include "embedded/base/CaseError.h"
#include "embedded/base/OrvBaseState.h"
#include "embedded/base/Progress.h"
#include "embedded/memory/MemoryProvider.h"
#include "formats/openfoam/case_from_poly_mesh.h"
#include "formats/openfoam/locate.h"
#include "formats/openfoam/read_poly_mesh.h"

namespace velto::openfoam {

namespace {

/// Whether a processor got nothing when the mesh was cut: no zones, and so no location model.
bool isEmptyPart(const MeshFolder& folder, const PolyMesh& mesh) {
  return folder.partition >= 0 && mesh.points.empty() && mesh.faceNodeCounts.empty() &&
         mesh.owner.empty();
}

}  // namespace

void OpenFoamProvider::open(const std::string& fileName, OrvDataClass dataClass) {
  if (dataClass != dataClassCase) {
    throw base::CaseError(fileName + ": results of OpenFOAM cases cannot be read, only the mesh");
  }
  auto opened = std::make_shared<memory::Case>();
  // The files carry no version of ours: what this library makes of them is of its own version.
  opened->tables.version = base::ownVersion();
  opened->tables.solverType = "VELTO_GENERIC";
  for (const MeshFolder& folder : meshFolders(fileName)) {
    const auto progress = [&](std::uint64_t done, std::uint64_t total) {
      base::reportProgress("reading " + folder.path, done, total);
    };
    PolyMesh mesh = readPolyMesh(folder.path, progress);
    if (isEmptyPart(folder, mesh)) {
      opened->setSetting("openfoam/processor" + std::to_string(folder.partition) + "/cells", "0");
      continue;
    }
    const base::MeshKey key{1, targetRestart, folder.partition};
    for (const std::string& warning : addPolyMesh(*opened, key, std::move(mesh))) {
      base::coreOf(*this).messages.addWarning(warning);
    }
  }
  if (opened->tables.meshes.empty()) {
    throw base::CaseError(fileName + ": expected cells in a processor folder, found none in all");
  }
  serve(opened->tables, memory::arraysOf(opened));
}

}  // namespace velto::openfoam
