// SPDX-License-Identifier: Apache-2.0
//
// saveCase and saveResults: arrays into a writer, mesh by mesh.

#include "embedded/store/save_case.h"

#include "embedded/base/copy_arrays.h"
#include "embedded/store/StoreWriter.h"

namespace velto::store {

namespace {

/// The arrays of the meshes that the tables know; nobody can select others.
base::CaseProvider::ArraysByMesh selectable(const base::CaseTables& tables,
                                            const base::CaseProvider::ArraysByMesh& arrays) {
  base::CaseProvider::ArraysByMesh known;
  for (const auto& mesh : arrays) {
    if (tables.meshes.count(mesh.first) != 0) {
      known.insert(mesh);
    }
  }
  return known;
}

}  // namespace

void saveCase(const base::CaseTables& tables, const base::CaseProvider::ArraysByMesh& arrays,
              const std::string& file, unsigned compression) {
  StoreWriter writer(file, dataClassCase, compression, tables);
  const base::CaseProvider::ArraysByMesh meshes = selectable(tables, arrays);
  std::uint64_t bytes = 0;
  for (const auto& mesh : meshes) {
    bytes += base::bytesOfMesh(*mesh.second);
  }
  writer.expect(bytes);
  for (const auto& mesh : meshes) {
    base::copyMesh(*mesh.second, writer.sink(mesh.first));
  }
  writer.finish();
}

void saveResults(const base::CaseTables& tables, const base::CaseProvider::ArraysByMesh& arrays,
                 const std::string& file, unsigned compression) {
  StoreWriter writer(file, dataClassResults, compression, tables);
  for (const auto& mesh : selectable(tables, arrays)) {
    base::copyResults(*mesh.second, tables.phases, writer.sink(mesh.first));
  }
  writer.finish();
}

}  // namespace velto::store
