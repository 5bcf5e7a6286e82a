// SPDX-License-Identifier: Apache-2.0
//
// InterruptWatch: Ctrl-C as a question that may be asked, so that what is half written goes away.

#ifndef VELTO_ORV_INTERRUPT_WATCH_H
#define VELTO_ORV_INTERRUPT_WATCH_H

#include <array>
#include <csignal>

namespace velto::orv {

/// Thrown through work that Ctrl-C ends.
struct Interrupted {};

/// While it lives, the first interrupt, hangup or request to terminate is remembered; a second one
/// ends the program at once. What is ignored stays ignored. That nobody reads what is printed is no
/// reason to end: the program would leave behind what is half written. One object at a time.
class InterruptWatch {
 public:
  InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;
  ~InterruptWatch();

  static bool isInterrupted();
  static void stopIfInterrupted();  ///< Throws Interrupted.

 private:
  static constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};

  std::array<struct sigaction, kSignals.size()> before_;
  struct sigaction beforePipe_ = {};
};

}  // namespace velto::orv

#endif  // VELTO_ORV_INTERRUPT_WATCH_H
