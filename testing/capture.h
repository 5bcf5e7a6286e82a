// SPDX-License-Identifier: Apache-2.0
//
// StreamCapture: what is written to standard output and standard error while it lives.

#ifndef VELTO_TESTING_CAPTURE_H
#define VELTO_TESTING_CAPTURE_H

#include <sstream>
#include <streambuf>
#include <string>

namespace velto::testing {

/// Takes the place of the buffers of std::cout and std::cerr until it is destroyed.
class StreamCapture {
 public:
  StreamCapture();
  StreamCapture(const StreamCapture&) = delete;
  StreamCapture& operator=(const StreamCapture&) = delete;
  ~StreamCapture();

  /// Everything so far.
  std::string out() const { return out_.str(); }
  std::string err() const { return err_.str(); }

 private:
  std::ostringstream out_;
  std::ostringstream err_;
  std::streambuf* outBefore_;
  std::streambuf* errBefore_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_CAPTURE_H
