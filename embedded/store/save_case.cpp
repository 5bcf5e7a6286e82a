// SPDX-License-Identifier: Apache-2.0
//
// saveCase and saveResults: arrays into a writer, mesh by mesh.

#include "embedded/store/save_case.h"

#include "embedded/base/copy_arrays.h"
#include "embedded/store/StoreWriter.h"

namespace velto::store {

void saveCase(const base::CaseTables& tables, const base::CaseProvider::ArraysByMesh& arrays,
              const std::string& file, unsigned compression) {
  StoreWriter writer(file, dataClassCase, compression, tables);
  for (const auto& mesh : arrays) {
    base::copyMesh(*mesh.second, writer.sink(mesh.first));
  }
  writer.finish();
}

void saveResults(const base::CaseTables& tables, const base::CaseProvider::ArraysByMesh& arrays,
                 const std::string& file, unsigned compression) {
  StoreWriter writer(file, dataClassResults, compression, tables);
  for (const auto& mesh : arrays) {
    base::copyResults(*mesh.second, tables.phases, writer.sink(mesh.first));
  }
  writer.finish();
}

}  // namespace velto::store
