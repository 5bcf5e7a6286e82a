// SPDX-License-Identifier: Apache-2.0
//
// StoreConsumer: a writer between startWriting and endWriting.

#include "embedded/store/StoreConsumer.h"

#include <algorithm>

#include "embedded/base/CaseError.h"
#include "embedded/base/OrvBaseState.h"

namespace velto::store {

base::MeshArraySink& StoreConsumer::sink(const base::MeshKey& key) {
  if (writer_ == nullptr) {
    throw base::CaseError("nothing is being written, startWriting comes first");
  }
  return writer_->sink(key);
}

void StoreConsumer::open(OrvDataClass dataClass) {
  writer_.reset();  // what was begun and never ended is dropped
  base::coreOf(*this).tables.version = base::ownVersion();
  writer_ = std::make_unique<StoreWriter>(fileName(dataClass), dataClass,
                                          std::min(compression(), 9U), base::coreOf(*this).tables);
}

void StoreConsumer::finish(OrvDataClass dataClass) {
  if (writer_ == nullptr || writer_->dataClass() != dataClass) {
    throw base::CaseError("this class is not being written, startWriting comes first");
  }
  writer_->finish();
  writer_.reset();
}

void StoreConsumer::abandon() { writer_.reset(); }

}  // namespace velto::store
