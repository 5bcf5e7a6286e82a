// SPDX-License-Identifier: Apache-2.0
//
// MemoryProvider: the read side of a case in memory.

#ifndef VELTO_EMBEDDED_MEMORY_MEMORY_PROVIDER_H
#define VELTO_EMBEDDED_MEMORY_MEMORY_PROVIDER_H

#include <memory>
#include <string>

#include "embedded/base/CaseProvider.h"
#include "embedded/memory/Case.h"

namespace velto::memory {

/// The arrays of all meshes of a case, each of which keeps the case alive.
base::CaseProvider::ArraysByMesh arraysOf(const std::shared_ptr<const Case>& source);

/// Serves a case that stands in memory. startReading takes any file name.
class MemoryProvider : public base::CaseProvider {
 public:
  /// Serves `source` once startReading was called, and keeps it alive.
  explicit MemoryProvider(std::shared_ptr<const Case> source);

 protected:
  void open(const std::string& fileName, OrvDataClass dataClass) override;

 private:
  std::shared_ptr<const Case> source_;
};

}  // namespace velto::memory

#endif  // VELTO_EMBEDDED_MEMORY_MEMORY_PROVIDER_H
