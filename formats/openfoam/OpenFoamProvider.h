// SPDX-License-Identifier: Apache-2.0
//
// OpenFoamProvider: the read side of an OpenFOAM mesh.

#ifndef VELTO_FORMATS_OPENFOAM_OPEN_FOAM_PROVIDER_H
#define VELTO_FORMATS_OPENFOAM_OPEN_FOAM_PROVIDER_H

#include <string>

#include "embedded/base/CaseProvider.h"

namespace velto::openfoam {

/// Reads a polyMesh folder, or the processorN folders of a case as partitions of one mesh, and
/// serves it as a restart target of mesh 1. What is wrong with single entries waits as pending
/// warnings that name them.
class OpenFoamProvider : public base::CaseProvider {
 protected:
  void open(const std::string& fileName, OrvDataClass dataClass) override;
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_OPEN_FOAM_PROVIDER_H
