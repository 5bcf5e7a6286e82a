// SPDX-License-Identifier: Apache-2.0
//
// shownName, shownText: character by character through UTF-8.

#include "orv/shown_name.h"

#include <cstddef>
#include <cstdint>
#include <fmt/format.h>

namespace velto::orv {

namespace {

struct Character {
  std::uint32_t point = 0;
  std::size_t bytes = 0;  ///< 0 where no character of UTF-8 stands.
};

unsigned byteAt(const std::string& text, std::size_t at) {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
}

/// How many bytes the character takes that begins with this one; 0 if none does.
std::size_t lengthOf(unsigned first) {
  if (first < 0x80U) {
    return 1;
  }
  if (first < 0xC2U || first > 0xF4U) {
    return 0;
  }
  return first < 0xE0U ? 2 : first < 0xF0U ? 3 : 4;
}

Character characterAt(const std::string& text, std::size_t at) {
  const unsigned first = byteAt(text, at);
  const std::size_t length = lengthOf(first);
  if (length < 2) {
    return {first, length};
  }
  std::uint32_t point = first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned next = byteAt(text, at + i);
    if ((next & 0xC0U) != 0x80U) {
      return {};
    }
    point = (point << 6U) | (next & 0x3FU);
  }
  const bool isOverlong = (length == 3 && point < 0x800U) || (length == 4 && point < 0x10000U);
  const bool isSurrogate = point >= 0xD800U && point <= 0xDFFFU;
  return isOverlong || isSurrogate || point > 0x10FFFFU ? Character{} : Character{point, length};
}

/// Whether a terminal would do something else with it than to show it.
bool isControl(std::uint32_t point) {
  return point < 0x20U || (point >= 0x7FU && point <= 0x9FU) || point == 0x061CU ||
         (point >= 0x200BU && point <= 0x200FU) || (point >= 0x2028U && point <= 0x202EU) ||
         (point >= 0x2060U && point <= 0x206FU) || point == 0xFEFFU || point == 0xFFFEU ||
         point == 0xFFFFU;
}

std::string escaped(std::uint32_t point) {
  switch (point) {
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      return point < 0x80U ? fmt::format("\\x{:02x}", point) : fmt::format("\\u{:04x}", point);
  }
}

bool looksLikeSomethingElse(const std::string& name) {
  return name.empty() || name == "-" || name.find_first_of("([\"") == 0 || name.front() == ' ' ||
         name.back() == ' ' || name.find(", ") != std::string::npos;
}

/// The text with its escapes; `inQuotes` has quotes and backslashes escaped as well.
std::string withEscapes(const std::string& text, bool inQuotes, bool& hasEscapes) {
  std::string shown;
  hasEscapes = false;
  for (std::size_t at = 0; at < text.size();) {
    const Character character = characterAt(text, at);
    if (character.bytes == 0) {
      shown += fmt::format("\\x{:02x}", byteAt(text, at));
      hasEscapes = true;
      ++at;
      continue;
    }
    if (isControl(character.point)) {
      shown += escaped(character.point);
      hasEscapes = true;
    } else {
      shown += inQuotes && (text[at] == '"' || text[at] == '\\') ? "\\" : "";
      shown.append(text, at, character.bytes);
    }
    at += character.bytes;
  }
  return shown;
}

}  // namespace

std::string shownText(const std::string& text) {
  bool hasEscapes = false;
  return withEscapes(text, false, hasEscapes);
}

std::string shownName(const std::string& name) {
  bool hasEscapes = false;
  const std::string text = withEscapes(name, true, hasEscapes);
  return hasEscapes || looksLikeSomethingElse(name) ? "\"" + text + "\"" : name;
}

}  // namespace velto::orv
