// SPDX-License-Identifier: Apache-2.0
//
// loadCase: one sink a mesh.

#include "embedded/memory/load_case.h"

#include "embedded/base/copy_arrays.h"
#include "embedded/memory/MeshDataSink.h"

namespace velto::memory {

std::shared_ptr<Case> loadCase(const base::CaseTables& tables,
                               const base::CaseProvider::ArraysByMesh& arrays) {
  auto loaded = std::make_shared<Case>();
  loaded->tables = tables;
  for (const auto& mesh : arrays) {
    MeshDataSink sink;
    base::copyMesh(*mesh.second, sink);
    base::copyResults(*mesh.second, tables.phases, sink);
    loaded->data[mesh.first] = sink.data();
  }
  return loaded;
}

}  // namespace velto::memory
