// SPDX-License-Identifier: Apache-2.0
//
// Silence: keeps standard output free of what a tool writes there by itself.

#ifndef VELTO_ORV_SILENCE_H
#define VELTO_ORV_SILENCE_H

#include <iostream>
#include <optional>
#include <streambuf>

namespace velto::orv {

/// While it lives, what is written to std::cout is lost. A checker writes a line for each face with
/// the nodes of another cell, whatever its verbosity; a JSON document, or a verdict that nobody
/// wants to read, must stand alone.
class Silence {
 public:
  explicit Silence(bool isWanted) {
    if (isWanted) {
      before_ = std::cout.rdbuf(&nothing_);
    }
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;
  ~Silence() {
    if (before_) {
      std::cout.rdbuf(*before_);
    }
  }

 private:
  class Nothing : public std::streambuf {
    int_type overflow(int_type character) override { return traits_type::not_eof(character); }
  };

  Nothing nothing_;
  std::optional<std::streambuf*> before_;
};

}  // namespace velto::orv

#endif  // VELTO_ORV_SILENCE_H
