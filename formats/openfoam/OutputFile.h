// SPDX-License-Identifier: Apache-2.0
//
// OutputFile: a file of a polyMesh folder while it is written, plain or gzipped.

#ifndef VELTO_FORMATS_OPENFOAM_OUTPUT_FILE_H
#define VELTO_FORMATS_OPENFOAM_OUTPUT_FILE_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/base/RawFile.h"

namespace velto::openfoam {

/// Writes through one buffer. A file is complete only after close(); the destructor leaves behind
/// what had been written by then.
///
/// Errors: base::CaseError with the path that is shown and the reason, from any operation, since a
/// full disk may show at any time. Nothing can be written after one.
class OutputFile {
 public:
  /// Makes the file `path`, or opens it where it is there and cuts it to nothing. `level`: of zlib,
  /// 0 to 9; 0 writes plain bytes.
  OutputFile(const std::string& path, std::string shown, unsigned level);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile();

  void text(std::string_view text) { bytes(text.data(), text.size()); }
  void put(char c) {
    *reserve(1) = c;
    ++used_;
  }

  /// A number as text; a real one in the shortest form that reads back equal.
  void label(std::uint64_t value);
  void real(double value);

  /// The bytes of a number as this machine holds it.
  template <class Number>
  void raw(Number value) {
    std::memcpy(reserve(sizeof(value)), &value, sizeof(value));
    used_ += sizeof(value);
  }

  void bytes(const char* data, std::size_t size);

  /// Where at least `size` more bytes have room, at most kLargestRoom; filled() says that they are
  /// there.
  char* reserve(std::size_t size) {
    if (buffer_.size() - used_ < size) {
      flush();
    }
    return buffer_.data() + used_;
  }
  void filled(std::size_t size) { used_ += size; }
  static constexpr std::size_t kLargestRoom = 64 * std::size_t{1024};

  /// Returns when all is on the disk.
  void close();

 private:
  class Packer;

  void flush();
  void writeOut(const char* data, std::size_t size);

  base::RawFile file_;
  std::uint64_t written_ = 0;  // bytes of the file
  std::vector<char> buffer_;
  std::size_t used_ = 0;
  std::unique_ptr<Packer> packer_;  // null for a plain file
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_OUTPUT_FILE_H
