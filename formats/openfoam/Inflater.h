// SPDX-License-Identifier: Apache-2.0
//
// Unpacks a gzip stream, several members in a row included.

#ifndef VELTO_FORMATS_OPENFOAM_INFLATER_H
#define VELTO_FORMATS_OPENFOAM_INFLATER_H

#include <cstddef>
#include <functional>
#include <vector>
#include <zlib.h>

namespace velto::openfoam {

/// Unpacks what it is fed. A gzip file is one member or several in a row; zeros may pad its end.
class Inflater {
 public:
  /// Puts up to `count` packed bytes at `to` and returns how many; 0 at the end of the file.
  using Feed = std::function<std::size_t(char* to, std::size_t count)>;

  /// How a read ended.
  enum class State { kOpen, kEnded, kCut, kCorrupt };

  /// Errors: std::bad_alloc.
  explicit Inflater(Feed feed);
  ~Inflater();
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;

  /// Unpacks up to `count` bytes to `to` and returns how many; fewer only if state() is no longer
  /// kOpen.
  std::size_t read(char* to, std::size_t count);

  State state() const { return state_; }

  /// Why the stream is corrupt, in zlib's words.
  const char* reason() const;

  /// Packed bytes that were fed and not unpacked yet.
  std::size_t pending() const { return stream_.avail_in; }

 private:
  bool feed();
  void beginNextMember();

  Feed feed_;
  std::vector<char> packed_;
  z_stream stream_ = {};
  State state_ = State::kOpen;
  bool betweenMembers_ = false;
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_INFLATER_H
