// SPDX-License-Identifier: Apache-2.0
//
// PlainMeshProvider: a plain mesh behind the contract.

#ifndef PLAIN_MESH_PLAIN_MESH_PROVIDER_H
#define PLAIN_MESH_PLAIN_MESH_PROVIDER_H

#include <string>

#include "embedded/base/CaseError.h"
#include "embedded/base/CaseProvider.h"
#include "embedded/memory/MemoryProvider.h"
#include "read_plain_mesh.h"

namespace plain_mesh {

/// Opens plain meshes. All else that the contract asks for, CaseProvider does.
class PlainMeshProvider : public velto::base::CaseProvider {
 protected:
  void open(const std::string& fileName, velto::OrvDataClass dataClass) override {
    if (dataClass != velto::dataClassCase) {
      throw velto::base::CaseError(fileName + ": a plain mesh has no results");
    }
    const auto opened = readPlainMesh(fileName);
    serve(opened->tables, velto::memory::arraysOf(opened));
  }
};

}  // namespace plain_mesh

#endif  // PLAIN_MESH_PLAIN_MESH_PROVIDER_H
