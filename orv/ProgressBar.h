// SPDX-License-Identifier: Apache-2.0
//
// ProgressBar: one line on standard error that says how far long work has come.

#ifndef VELTO_ORV_PROGRESS_BAR_H
#define VELTO_ORV_PROGRESS_BAR_H

#include <chrono>
#include <cstdint>
#include <string>

#include "factory/progress.h"

namespace velto::orv {

/// Shows itself only on a terminal, and only for work that takes longer than half a second; it is
/// wiped away when the work is done.
class ProgressBar : public factory::ProgressListener {
 public:
  /// With `wanted` false it stays silent everywhere.
  explicit ProgressBar(bool wanted);
  ~ProgressBar() override;

  void onProgress(const std::string& what, std::uint64_t done, std::uint64_t total) override;

 private:
  using Clock = std::chrono::steady_clock;

  void wipe();

  const bool visible_;
  bool shown_ = false;
  std::string what_;
  Clock::time_point begin_;
  Clock::time_point drawn_;
};

}  // namespace velto::orv

#endif  // VELTO_ORV_PROGRESS_BAR_H
