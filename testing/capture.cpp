// SPDX-License-Identifier: Apache-2.0
//
// StreamCapture: swaps the buffers of the two streams.

#include "testing/capture.h"

#include <iostream>

namespace velto::testing {

StreamCapture::StreamCapture()
    : outBefore_(std::cout.rdbuf(out_.rdbuf())), errBefore_(std::cerr.rdbuf(err_.rdbuf())) {}

StreamCapture::~StreamCapture() {
  std::cout.rdbuf(outBefore_);
  std::cerr.rdbuf(errBefore_);
}

}  // namespace velto::testing
