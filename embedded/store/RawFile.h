// SPDX-License-Identifier: Apache-2.0
//
// RawFile: the bytes of a file, without HDF5.

#ifndef VELTO_EMBEDDED_STORE_RAW_FILE_H
#define VELTO_EMBEDDED_STORE_RAW_FILE_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace velto::store {

/// An open file. Errors are CaseErrors that name it by `shown`.
class RawFile {
 public:
  enum class Mode { read, readAndWrite };

  RawFile(const std::string& file, Mode mode, std::string shown);
  RawFile(const RawFile&) = delete;
  RawFile& operator=(const RawFile&) = delete;
  ~RawFile();

  /// Number of bytes when it was asked.
  std::uint64_t size() const;

  /// Copies bytes from and to a place in the file.
  void read(std::uint64_t offset, void* bytes, std::size_t size) const;
  void write(std::uint64_t offset, const void* bytes, std::size_t size);

  /// Returns when all that was written is on the disk.
  void sync();

 private:
  [[noreturn]] void fail(const std::string& what) const;

  std::string shown_;
  int descriptor_;
};

/// Gives a file another name, in place of what has that name, and returns when the folder is on the
/// disk too, where the file system can do that.
void renameDurably(const std::string& from, const std::string& to);

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_RAW_FILE_H
