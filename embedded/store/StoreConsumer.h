// SPDX-License-Identifier: Apache-2.0
//
// StoreConsumer: the write side of the case store.

#ifndef VELTO_EMBEDDED_STORE_STORE_CONSUMER_H
#define VELTO_EMBEDDED_STORE_STORE_CONSUMER_H

#include <memory>

#include "embedded/base/CaseConsumer.h"
#include "embedded/store/StoreWriter.h"

namespace velto::store {

/// Writes a case, and its results, into a file each. A file has its name when endWriting is
/// through; a consumer that is destroyed before leaves nothing behind. Levels of compression above
/// 9 are 9.
///
/// The arrays of a mesh are written before those of the next one.
class StoreConsumer : public base::CaseConsumer {
 protected:
  base::MeshArraySink& sink(const base::MeshKey& key) override;
  void open(OrvDataClass dataClass) override;
  void finish(OrvDataClass dataClass) override;
  void abandon() override;

 private:
  std::unique_ptr<StoreWriter> writer_;
};

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_STORE_CONSUMER_H
