// SPDX-License-Identifier: Apache-2.0
//
// Checks of the file as a whole (version, solver type) and of the sizes of the selected mesh.

#include <iostream>

#include "velto/OrvChecker.h"

#include "data_access/OrvFileProvider.h"
#include "data_access/OrvVersion.h"

namespace velto {

bool OrvChecker::checkVersion(OrvDataClass dataClass) {
  int major = 0;
  int minor = 0;
  int patch = 0;
  OrvFileIO* file = openProvider();
  displayStep("checkVersion", "getFileVersion");
  if (file == nullptr) {
    addWarning(1, "Not a OrvFileIO source - cannot check version number");
    return true;
  }
  file->getFileVersion(dataClass, major, minor, patch);
  if (verbosity > 1) {
    std::cout << "Version: " << major << "." << minor << "." << patch << std::endl;
  }
  if (major <= 0) {
    addError(1, "ORV version number invalid");
    return false;
  }
  const int ownMajor = static_cast<int>(OrvVersion::getMajor());
  if (major > ownMajor) {
    // Kept: only a warning, and yet the run ends here with no error.
    addWarning(1, "ORV Major version number is newer - compatibility might be limited");
    return false;
  }
  // Kept: of an older major version the other two numbers may be anything.
  if (major == ownMajor) {
    const int ownMinor = static_cast<int>(OrvVersion::getMinor());
    if (minor > ownMinor) {
      addWarning(1, "ORV Minor version number is newer - compatibility might be limited");
    } else if (minor == ownMinor && patch > static_cast<int>(OrvVersion::getPatch())) {
      addWarning(1, "ORV patch version number is newer - compatibility might be limited");
    }
  }
  return checkORVErrors();
}

bool OrvChecker::checkSolverType() {
  displayStep("checkSolverType", "getSolverType");
  const std::string solverType = openProvider()->getSolverType();
  if (solverType == "ORV_GENERIC") {
    addWarning(1, "File with undefined / ORV_GENERIC solver type");
  } else if (solverType.empty()) {
    addError(1, "Empty solver type");
  } else if (solverType.rfind("VELTO_", 0) != 0) {
    addWarning(1, "File with unknown solver type");
  }
  return true;
}

bool OrvChecker::checkMeshSize() {
  displayStep("checkMeshSize", "getMeshSize");
  OrvFileProvider* source = openProvider();
  std::uint64_t dimension = 0;
  source->getMeshSize(meshDimension, dimension);
  if (dimension != 2 && dimension != 3) {
    addError(1, "Invalid mesh dimension");
    return false;
  }
  std::uint64_t nodes = 0;
  std::uint64_t faces = 0;
  std::uint64_t cells = 0;
  source->getMeshSize(meshNodeCount, nodes);
  source->getMeshSize(meshFaceCount, faces);
  source->getMeshSize(meshCellCount, cells);
  if (verbosity > 1) {
    std::cout << "Size: nodes " << nodes << " faces " << faces << " cells " << cells << std::endl;
  }
  if (nodes == 0 && (faces != 0 || cells != 0)) {
    addError(1, "The mesh has cell/faces but no nodes");
  }
  return true;
}

}  // namespace velto
