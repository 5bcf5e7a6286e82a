// SPDX-License-Identifier: Apache-2.0
//
// The bytes of a plain or gzipped file, one window after the other, in constant memory.

#ifndef VELTO_FORMATS_OPENFOAM_BYTE_SOURCE_H
#define VELTO_FORMATS_OPENFOAM_BYTE_SOURCE_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace velto::openfoam {

class Inflater;

/// Reads a file from its beginning to its end. Whether it is gzipped is told by its first two
/// bytes, not by its name. All offsets are those of the uncompressed content.
///
///   window:  consumed ... | begin() ... unread ... end() | NUL
///
/// The NUL behind the window lets a loop over characters run without a check for the end: whoever
/// meets a NUL compares his position with end().
class ByteSource {
 public:
  /// Told how many more bytes of the file (compressed, if it is) were taken from the disk.
  using OnRead = std::function<void(std::uint64_t bytes)>;

  /// Opens `file` and reads at most its first `limit` bytes (uncompressed).
  /// Errors: ReadError if it cannot be opened or is no regular file.
  explicit ByteSource(std::string file, OnRead onRead = {},
                      std::uint64_t limit = std::numeric_limits<std::uint64_t>::max());
  ~ByteSource();
  ByteSource(const ByteSource&) = delete;
  ByteSource& operator=(const ByteSource&) = delete;

  const std::string& file() const { return file_; }

  const char* begin() const { return begin_; }
  const char* end() const { return end_; }

  /// Consumes the bytes before `position`, which lies in [begin(), end()].
  void moveTo(const char* position) { begin_ = position; }

  /// Keeps the unread bytes and puts as many as fit behind them. Pointers into the window are void
  /// afterwards. Returns whether there is now more than before: false at the end of the file, and
  /// where the window is full of unread bytes.
  /// Errors: ReadError if the disk fails or the gzip stream is corrupt or cut.
  bool refill();

  /// Takes up to `count` bytes, past the window where it is empty. Returns how many; fewer than
  /// `count` at the end of the file only. Lines are not counted any more. Errors: as refill().
  std::size_t take(char* to, std::size_t count);

  /// Moves forward to `offset`, or to the end of the file if that comes first. Lines may not be
  /// counted any more. Errors: as refill().
  void skipTo(std::uint64_t offset);

  /// Offset of begin().
  std::uint64_t offset() const {
    return windowOffset_ + static_cast<std::uint64_t>(begin_ - window_.data());
  }

  /// 1-based line of begin(), or 0 after stopCountingLines().
  std::uint64_t line();

  /// For binary content, in which lines mean nothing.
  void stopCountingLines() { line_ = 0; }

  /// No fewer bytes than are left, as far as the file's size tells: exact for a plain file, the
  /// most that can be packed into the rest of a gzipped one.
  std::uint64_t mostBytesLeft() const;

  /// A guess at the bytes left on which memory may be reserved: exact for a plain file, a usual
  /// packing of the rest of a gzipped one.
  std::uint64_t likelyBytesLeft() const;

 private:
  std::size_t readFile(char* to, std::size_t count);
  std::size_t readContent(char* to, std::size_t count);
  void emptyWindow();
  std::uint64_t contentLeft(std::uint64_t packing) const;

  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  std::string file_;
  OnRead onRead_;
  std::unique_ptr<std::FILE, CloseFile> handle_;
  std::unique_ptr<Inflater> inflater_;  // of a gzipped file
  std::uint64_t fileLeft_ = 0;          // bytes of the file not taken from the disk yet
  std::uint64_t contentRead_ = 0;       // bytes of content so far
  std::uint64_t limit_;                 // and their greatest number

  std::vector<char> window_;
  std::uint64_t windowOffset_ = 0;  // offset of the window's first byte
  const char* begin_ = nullptr;
  const char* end_ = nullptr;
  const char* counted_ = nullptr;  // lines are counted up to here
  std::uint64_t line_ = 1;         // 0: not counted
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_BYTE_SOURCE_H
