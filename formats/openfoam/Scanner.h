// SPDX-License-Identifier: Apache-2.0
//
// The text of a file: blanks and comments, punctuation, numbers, words, and where an error stands.

#ifndef VELTO_FORMATS_OPENFOAM_SCANNER_H
#define VELTO_FORMATS_OPENFOAM_SCANNER_H

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "formats/openfoam/ByteSource.h"
#include "formats/openfoam/ReadError.h"

namespace velto::openfoam {

/// Reads the text of one file from its beginning to its end.
///
/// An operation that reads a number leaves its position at the number's first character when there
/// is no number, so that the caller says what he expected with fail(). Every operation throws
/// ReadError for a comment without an end and for what ByteSource refuses.
class Scanner {
 public:
  /// What here() and next() return at the end of the file.
  static constexpr int kEnd = -1;

  explicit Scanner(const std::string& file, ByteSource::OnRead onRead = {},
                   std::uint64_t limit = std::numeric_limits<std::uint64_t>::max());

  /// The bytes from the present position on, for whoever reads them by himself.
  ByteSource& bytes() { return bytes_; }
  const std::string& file() const { return bytes_.file(); }

  // ---- Characters

  /// The character at the present position, 0 to 255, or kEnd.
  int here();

  /// Skips blanks and comments and returns here().
  int next();

  /// Whether `//` or `/*` begins at the present position.
  bool atComment();

  /// Skips the comment at the present position. REQUIRES: atComment().
  void skipComment();

  /// Consumes one character. REQUIRES: here() != kEnd.
  void advance() { bytes_.moveTo(bytes_.begin() + 1); }

  /// Skips blanks and comments, then consumes `c` if it comes next. Returns whether it did.
  bool accept(char c);

  /// As accept(); throws if `c` does not come next. `expected` is its name in the message.
  void expect(char c, const std::string& expected);

  /// Throws if anything but blanks and comments follows.
  void expectEnd(const std::string& expected);

  // ---- Numbers, blanks and comments before them skipped

  /// An integer of 64 bits, or nothing if the next token is not one.
  std::optional<std::int64_t> integer();

  /// As integer(), and nothing if it has a minus sign.
  std::optional<std::uint64_t> naturalNumber();

  /// A number; nan and inf in any spelling are numbers. What is too large for a double is an
  /// infinity, what is too small is zero. Nothing if the next token is no number.
  std::optional<double> real();

  /// The token at the present position: up to the next blank or punctuation, empty if one stands
  /// here or if it has 1024 characters or more. Void once anything else is read.
  std::string_view token();

  // ---- Errors

  /// The present position.
  Place place();

  /// Throws: behind the next blanks and comments `expected` should stand.
  [[noreturn]] void fail(const std::string& expected);

  /// Throws: right here `expected` should stand.
  [[noreturn]] void failHere(const std::string& expected);

  /// Throws: at `place`, `expected` should stand instead of `found`.
  [[noreturn]] void fail(const Place& place, const std::string& expected, const std::string& found);

 private:
  std::string found();

  ByteSource bytes_;
};

/// `text` in double quotes, control characters visible, cut behind 30 characters.
std::string quoted(std::string_view text);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_SCANNER_H
