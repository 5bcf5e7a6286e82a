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

  /// `what` is under way and has come to `done` of `total` bytes; a total of 0 is not known.
  virtual void onProgress(const std::string& what, std::uint64_t done, std::uint64_t total) = 0;

  /// Writing has come to a place where it can be stopped: before each array, and before a file gets
  /// its final name. A listener stops it, here or in onProgress, by throwing an object of a type of
  /// its own that is no std::exception: the object passes through the library, and what was being
  /// written is dropped with its consumer.
  virtual void onCheckpoint() {}

 private:
  ProgressListener* before_;
};

/// Tells the listener of this thread, if there is one, how far `what` has come. Cheap without one.
void reportProgress(const std::string& what, std::uint64_t done, std::uint64_t total);
/// Tells the listener of this thread, if there is one, that writing can be stopped here.
void reportCheckpoint();

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_PROGRESS_H
