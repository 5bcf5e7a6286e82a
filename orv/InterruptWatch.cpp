// SPDX-License-Identifier: Apache-2.0
//
// InterruptWatch: a flag that a signal handler sets.

#include "orv/InterruptWatch.h"

namespace velto::orv {

namespace {

volatile std::sig_atomic_t interrupted = 0;

extern "C" void rememberInterrupt(int) { interrupted = 1; }

}  // namespace

InterruptWatch::InterruptWatch() {
  interrupted = 0;
  struct sigaction action = {};
  action.sa_handler = rememberInterrupt;
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals[i], &action, &before_[i]);
    if (before_[i].sa_handler == SIG_IGN) {
      sigaction(kSignals[i], &before_[i], nullptr);  // as under nohup
    }
  }
  struct sigaction ignored = {};
  ignored.sa_handler = SIG_IGN;
  sigaction(SIGPIPE, &ignored, &beforePipe_);
}

InterruptWatch::~InterruptWatch() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals[i], &before_[i], nullptr);
  }
  sigaction(SIGPIPE, &beforePipe_, nullptr);
}

bool InterruptWatch::isInterrupted() { return interrupted != 0; }

void InterruptWatch::stopIfInterrupted() {
  if (isInterrupted()) {
    throw Interrupted();
  }
}

}  // namespace velto::orv
