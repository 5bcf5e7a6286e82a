// SPDX-License-Identifier: Apache-2.0
//
// Progress: how far long work in the data-access library has come, for a host that wants to show
// it.

#ifndef VELTO_EMBEDDED_BASE_PROGRESS_H
#define VELTO_EMBEDDED_BASE_PROGRESS_H

#include <cstdint>
#include <string>

namespace velto::base {

/// Hears of progress on its own thread, while it is installed there.
class ProgressListener {
 public:
  /// Listens from now on; the listener before it is heard again when this one is destroyed.
  ProgressListener();
  ProgressListener(const ProgressListener&) = delete;
  ProgressListener& operator=(const ProgressListener&) = delete;
  virtual ~ProgressListener();

  /// `what` is under way and has come to `done` of `total` (bytes or elements).
  virtual void onProgress(const std::string& what, std::uint64_t done, std::uint64_t total) = 0;

 private:
  ProgressListener* before_;
};

/// Tells the listener of this thread, if there is one. Cheap without one.
void reportProgress(const std::string& what, std::uint64_t done, std::uint64_t total);

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_PROGRESS_H
