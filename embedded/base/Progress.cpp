// SPDX-License-Identifier: Apache-2.0
//
// Progress: one listener a thread.

#include "embedded/base/Progress.h"

namespace velto::base {

namespace {

thread_local ProgressListener* current = nullptr;

}  // namespace

ProgressListener::ProgressListener() : before_(current) { current = this; }
ProgressListener::~ProgressListener() { current = before_; }

void reportProgress(const std::string& what, std::uint64_t done, std::uint64_t total) {
  if (current != nullptr) {
    current->onProgress(what, done, total);
  }
}

void reportCheckpoint() {
  if (current != nullptr) {
    current->onCheckpoint();
  }
}

}  // namespace velto::base
