// SPDX-License-Identifier: Apache-2.0
//
// loadCase: a case of any source, taken into memory whole.

#ifndef VELTO_EMBEDDED_MEMORY_LOAD_CASE_H
#define VELTO_EMBEDDED_MEMORY_LOAD_CASE_H

#include <memory>

#include "embedded/base/CaseProvider.h"
#include "embedded/memory/Case.h"

/// Cases in memory, and the languages in which samples and tests write them.
namespace velto::memory {

/// Copies tables and arrays as they are, field data included. Throws CaseError if a source fails.
std::shared_ptr<Case> loadCase(const base::CaseTables& tables,
                               const base::CaseProvider::ArraysByMesh& arrays);

}  // namespace velto::memory

#endif  // VELTO_EMBEDDED_MEMORY_LOAD_CASE_H
