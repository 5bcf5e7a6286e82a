// SPDX-License-Identifier: Apache-2.0
//
// What the single characters of a text file mean, and the shortest way to a label.

#ifndef VELTO_FORMATS_OPENFOAM_CHARACTERS_H
#define VELTO_FORMATS_OPENFOAM_CHARACTERS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace velto::openfoam {

inline constexpr std::string_view kBlanks = " \t\n\v\f\r";
inline constexpr std::string_view kPunctuation = "(){}[];\"/";

using CharacterSet = std::array<bool, 256>;

constexpr CharacterSet makeTokenEnds() {
  CharacterSet set = {};
  for (const std::string_view group : {kBlanks, kPunctuation}) {
    for (const char c : group) {
      set[static_cast<unsigned char>(c)] = true;
    }
  }
  return set;
}

inline constexpr CharacterSet kTokenEnds = makeTokenEnds();

constexpr bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

constexpr bool isPrintable(char c) { return c >= ' ' && c <= '~'; }

/// Whether `c` cannot be part of a number or a word and so ends one.
constexpr bool endsToken(char c) { return kTokenEnds[static_cast<unsigned char>(c)]; }

/// Reads the label at `p`, blanks before it skipped, in its common form: at most 18 digits, and
/// the character that ends it in sight. The text goes on to a NUL.
/// `id`: label + 1, in unsigned arithmetic. Returns where the label ends, or nullptr (and `id` left
/// alone) for any other form, the end of the text included.
inline const char* commonLabel(const char* p, std::uint64_t& id) {
  constexpr std::ptrdiff_t kSafeDigits = 18;  // cannot overflow
  while (isBlank(*p)) {
    ++p;
  }
  const bool negative = *p == '-';
  p += negative ? 1 : 0;
  const char* const first = p;
  std::uint64_t value = 0;
  for (; isDigit(*p); ++p) {
    value = value * 10 + static_cast<std::uint64_t>(*p - '0');
  }
  if (p == first || p - first > kSafeDigits || !endsToken(*p)) {
    return nullptr;
  }
  id = (negative ? 0 - value : value) + 1;
  return p;
}

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_CHARACTERS_H
