// SPDX-License-Identifier: Apache-2.0
//
// MemoryConsumer: the write side of a case in memory.

#ifndef VELTO_EMBEDDED_MEMORY_MEMORY_CONSUMER_H
#define VELTO_EMBEDDED_MEMORY_MEMORY_CONSUMER_H

#include <map>
#include <memory>

#include "embedded/base/CaseConsumer.h"
#include "embedded/memory/Case.h"
#include "embedded/memory/MeshDataSink.h"

namespace velto::memory {

/// Takes a case into memory; file names, compression and mode mean nothing to it.
class MemoryConsumer : public base::CaseConsumer {
 public:
  /// What was written so far, ready for a MemoryProvider. Later writes do not change it.
  std::shared_ptr<Case> takeCase() const;

 protected:
  base::MeshArraySink& sink(const base::MeshKey& key) override;
  void open(OrvDataClass dataClass) override;
  void finish(OrvDataClass dataClass) override;

 private:
  std::map<base::MeshKey, MeshDataSink> sinks_;
};

}  // namespace velto::memory

#endif  // VELTO_EMBEDDED_MEMORY_MEMORY_CONSUMER_H
