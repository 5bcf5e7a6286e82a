// SPDX-License-Identifier: Apache-2.0
//
// LineLimit: keeps what a tool writes by itself within what a person reads.

#ifndef VELTO_ORV_LINE_LIMIT_H
#define VELTO_ORV_LINE_LIMIT_H

#include <cstddef>
#include <cstdint>
#include <limits>
#include <ostream>
#include <streambuf>
#include <string>
#include <unordered_map>
#include <vector>

namespace velto::orv {

/// While it lives, a stream shows at most so many lines of a kind and counts the others. Lines are
/// of one kind if they differ in their numbers alone: a checker writes a line for each face beside
/// a cell that is not there, and there may be millions.
class LineLimit {
 public:
  static constexpr std::uint64_t kNone = std::numeric_limits<std::uint64_t>::max();

  LineLimit(std::ostream& stream, std::uint64_t most);
  LineLimit(const LineLimit&) = delete;
  LineLimit& operator=(const LineLimit&) = delete;
  ~LineLimit();

  /// Lines that were not shown: how many of a kind, and the last that was shown or, with a limit of
  /// 0, the first.
  struct LeftOut {
    std::string like;
    std::uint64_t count = 0;
  };

  /// In the order in which the kinds came up.
  std::vector<LeftOut> leftOut() const;

 private:
  class Buffer : public std::streambuf {
   public:
    Buffer(std::streambuf* target, std::uint64_t most) : target_(target), most_(most) {}

    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;
    int sync() override;

    void pass();
    std::vector<LeftOut> leftOut() const;

   private:
    struct Kind {
      LeftOut hidden;
      std::uint64_t shown = 0;
    };

    void endLine();

    std::streambuf* target_;
    std::uint64_t most_;
    std::string line_;
    std::unordered_map<std::string, std::size_t> positions_;
    std::vector<Kind> kinds_;
  };

  std::ostream& stream_;
  std::streambuf* before_;
  Buffer buffer_;
};

}  // namespace velto::orv

#endif  // VELTO_ORV_LINE_LIMIT_H
