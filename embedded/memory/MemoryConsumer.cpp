// SPDX-License-Identifier: Apache-2.0
//
// MemoryConsumer: one sink a mesh.

#include "embedded/memory/MemoryConsumer.h"

#include "embedded/base/OrvBaseState.h"

namespace velto::memory {

base::MeshArraySink& MemoryConsumer::sink(const base::MeshKey& key) { return sinks_[key]; }

void MemoryConsumer::open(OrvDataClass) {}
void MemoryConsumer::finish(OrvDataClass) {}

std::shared_ptr<Case> MemoryConsumer::takeCase() const {
  auto taken = std::make_shared<Case>();
  taken->tables = base::coreOf(*this).tables;
  taken->tables.version = base::ownVersion();
  for (const auto& entry : sinks_) {
    taken->data[entry.first] = entry.second.data();
  }
  return taken;
}

}  // namespace velto::memory
