// SPDX-License-Identifier: Apache-2.0
//
// The streams that a program is started with, by their numbers 0 to 2.

#include "orv/standard_streams.h"

#include <csignal>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace velto::orv {

void prepareStreams() {
  std::signal(SIGXFSZ, SIG_IGN);
  for (int number = STDIN_FILENO; number <= STDERR_FILENO; ++number) {
    if (::fcntl(number, F_GETFD) < 0) {
      // For reading alone: what is printed there fails as it did before.
      ::open("/dev/null", O_RDONLY);  // gets the lowest number that is free, this one
    }
  }
}

bool finishOutput() {
  std::cout.flush();
  if (std::cout) {
    return true;
  }
  std::cerr << "orv: standard output: not all of it could be written" << std::endl;
  return false;
}

}  // namespace velto::orv
