// SPDX-License-Identifier: Apache-2.0
//
// StoppableBar: a progress bar under which Ctrl-C ends the work.

#ifndef VELTO_ORV_STOPPABLE_BAR_H
#define VELTO_ORV_STOPPABLE_BAR_H

#include <cstdint>
#include <string>

#include "orv/InterruptWatch.h"
#include "orv/ProgressBar.h"

namespace velto::orv {

/// Throws Interrupted through what reads or writes, while there is an InterruptWatch.
class StoppableBar : public ProgressBar {
 public:
  using ProgressBar::ProgressBar;

  void onProgress(const std::string& what, std::uint64_t done, std::uint64_t total) override {
    onCheckpoint();
    ProgressBar::onProgress(what, done, total);
  }

  void onCheckpoint() override { InterruptWatch::stopIfInterrupted(); }
};

}  // namespace velto::orv

#endif  // VELTO_ORV_STOPPABLE_BAR_H
