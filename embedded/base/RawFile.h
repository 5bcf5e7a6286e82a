// SPDX-License-Identifier: Apache-2.0
//
// RawFile: the bytes of a file; and how files and folders are written beside their final names.

#ifndef VELTO_EMBEDDED_BASE_RAW_FILE_H
#define VELTO_EMBEDDED_BASE_RAW_FILE_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace velto::base {

/// An open file. Errors are CaseErrors that name it by `shown`.
class RawFile {
 public:
  enum class Mode {
    read,
    readAndWrite,
    create,  ///< To write from the start, in place of what it held.
  };

  RawFile(const std::string& file, Mode mode, std::string shown);
  RawFile(const RawFile&) = delete;
  RawFile& operator=(const RawFile&) = delete;
  ~RawFile();

  /// Number of bytes when it was asked.
  std::uint64_t size() const;

  /// Copies bytes from and to a place in the file. The disk begins with what is written one after
  /// the other a few megabytes behind, so that less is left for sync().
  void read(std::uint64_t offset, void* bytes, std::size_t size) const;
  void write(std::uint64_t offset, const void* bytes, std::size_t size);

  /// Cuts the file, or makes it longer by zeros.
  void resize(std::uint64_t size);

  /// Returns when all that was written is on the disk.
  void sync();

  /// Tells of errors that only come up then; the destructor closes without a word.
  void close();

 private:
  [[noreturn]] void fail(const std::string& what) const;
  void startSync(std::uint64_t begin, std::uint64_t end);

  std::string shown_;
  int descriptor_;
  // What was written last, one after the other, and is not given to the disk yet.
  std::uint64_t runBegin_ = 0;
  std::uint64_t runEnd_ = 0;
};

/// Throws CaseError unless a file may be written under that name: it is free or that of a file,
/// and no folder's or device's.
void requireFileName(const std::string& file);

/// A name beside a file or folder that nothing has: "case.orv.part-1234-1" for "case.orv" and the
/// kind "part". Two writers of one process never get the same.
std::string nameBeside(const std::string& path, const std::string& kind);

/// Brings the entries of a folder to the disk, where the file system can do that; "" is the current
/// one.
void syncFolder(const std::string& folder);

/// Gives a file another name, in place of what has that name, and returns when the folder is on the
/// disk too.
void renameDurably(const std::string& from, const std::string& to);

/// Gives two files or folders each other's name, at once. False, and nothing was done, if that
/// failed or the file system cannot do it.
bool exchangeNames(const std::string& one, const std::string& other);

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_RAW_FILE_H
