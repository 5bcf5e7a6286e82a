// SPDX-License-Identifier: Apache-2.0
//
// Writes a case of any source into store files, as it is.

#ifndef VELTO_EMBEDDED_STORE_SAVE_CASE_H
#define VELTO_EMBEDDED_STORE_SAVE_CASE_H

#include <string>

#include "embedded/base/CaseProvider.h"
#include "embedded/base/CaseTables.h"

namespace velto::store {

/// Writes meshes, settings and location model to a case file, right or wrong as they are: nothing
/// is derived. `compression` is 0 for none up to 9. Needs memory for the longest array of a zone.
/// The file has its name only when it is whole; throws CaseError if it could not be written.
void saveCase(const base::CaseTables& tables, const base::CaseProvider::ArraysByMesh& arrays,
              const std::string& file, unsigned compression);

/// Writes phases, variables and their values to a results file, in the same way.
void saveResults(const base::CaseTables& tables, const base::CaseProvider::ArraysByMesh& arrays,
                 const std::string& file, unsigned compression);

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_SAVE_CASE_H
