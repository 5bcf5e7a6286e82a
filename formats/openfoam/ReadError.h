// SPDX-License-Identifier: Apache-2.0
//
// What is thrown when a file of a polyMesh folder cannot be read.

#ifndef VELTO_FORMATS_OPENFOAM_READ_ERROR_H
#define VELTO_FORMATS_OPENFOAM_READ_ERROR_H

#include <cstdint>
#include <stdexcept>
#include <string>

namespace velto::openfoam {

/// A place in a file: a line of text, or a byte where binary content makes lines meaningless.
struct Place {
  std::uint64_t line = 0;  // 1-based; 0: the byte counts
  std::uint64_t byte = 0;  // 0-based, in the uncompressed content
};

/// One reason why a folder was refused, on one line:
///   "<file>: line <n>: expected <what>, found <text>"   in text
///   "<file>: byte <n>: expected <what>, found <text>"   from the first binary block on
///   "<file>: expected <what>, found <text>"             where a file as a whole is meant
class ReadError : public std::runtime_error {
 public:
  explicit ReadError(const std::string& message) : std::runtime_error(message) {}

  ReadError(const std::string& file, const std::string& expected, const std::string& found)
      : ReadError(file + ": expected " + expected + ", found " + found) {}

  ReadError(const std::string& file, const Place& place, const std::string& expected,
            const std::string& found)
      : ReadError(file + ": " + text(place), expected, found) {}

 private:
  static std::string text(const Place& place) {
    return place.line != 0 ? "line " + std::to_string(place.line)
                           : "byte " + std::to_string(place.byte);
  }
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_READ_ERROR_H
