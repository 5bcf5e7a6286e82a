// SPDX-License-Identifier: Apache-2.0
//
// CopyWatch: shows how far a copy is, and stops it where going on would be of no use.

#ifndef VELTO_ORV_COPY_WATCH_H
#define VELTO_ORV_COPY_WATCH_H

#include <cstdint>
#include <string>

#include "data_access/OrvBase.h"

#include "factory/progress.h"
#include "orv/InterruptWatch.h"
#include "orv/ProgressBar.h"

namespace velto::orv {

/// Thrown through a copy that stops; whoever asked for it asks the watch why.
struct CopyStopped {};

/// Lives as long as the copy. Stops it on Ctrl-C, and when one side has an error: what is written
/// after that would look whole and would not be.
class CopyWatch : public factory::ProgressListener {
 public:
  /// `expectedBytes` is what writing counts up to where the library does not know. With
  /// `goOnWithErrors` errors of the source do not stop the copy. Bar and sides outlive the watch.
  CopyWatch(ProgressBar& bar, const OrvBase& source, const OrvBase& destination,
            std::uint64_t expectedBytes, bool goOnWithErrors)
      : bar_(bar),
        source_(source),
        destination_(destination),
        expected_(expectedBytes),
        goOnWithErrors_(goOnWithErrors) {}

  void onProgress(const std::string& what, std::uint64_t done, std::uint64_t total) override {
    onCheckpoint();
    bar_.onProgress(what, done, total == 0 ? expected_ : total);
  }

  void onCheckpoint() override {
    if (InterruptWatch::isInterrupted() || destination_.hasError() ||
        (source_.hasError() && !goOnWithErrors_)) {
      throw CopyStopped();
    }
  }

 private:
  ProgressBar& bar_;
  const OrvBase& source_;
  const OrvBase& destination_;
  const std::uint64_t expected_;
  const bool goOnWithErrors_;
};

}  // namespace velto::orv

#endif  // VELTO_ORV_COPY_WATCH_H
