// SPDX-License-Identifier: Apache-2.0
//
// Names as XML can hold them: UTF-8 is told from other bytes, five characters are escaped.

#include "formats/vtu/xml_text.h"

#include <cstddef>

namespace velto::vtu {

namespace {

/// The number of bytes of the character that begins here; 0 if no character of XML does.
std::size_t characterAt(const std::string& text, std::size_t at) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
  };
  const unsigned first = byte(at);
  if (first < 0x80) {
    return first >= 0x20 || first == '\t' || first == '\n' || first == '\r' ? 1 : 0;
  }
  const std::size_t size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  unsigned code = first & (0x7FU >> size);
  for (std::size_t i = 1; i < size; ++i) {
    if ((byte(at + i) & 0xC0U) != 0x80U) {
      return 0;
    }
    code = code << 6U | (byte(at + i) & 0x3FU);
  }
  static constexpr unsigned kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool isCharacter = first >= 0xC0 && first < 0xF8 && code >= kLeast[size] &&
                           code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF) && code != 0xFFFE &&
                           code != 0xFFFF;
  return isCharacter ? size : 0;
}

std::string escaped(char character) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    default:
      return {character};
  }
}

}  // namespace

std::string xmlAttribute(const std::string& text) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t size = characterAt(text, at);
    if (size == 0) {
      result += '?';
      ++at;
    } else if (size == 1) {
      result += escaped(text[at++]);
    } else {
      result += text.substr(at, size);
      at += size;
    }
  }
  return result;
}

std::string stringCodes(const std::vector<std::string>& texts) {
  std::string codes;
  for (const std::string& text : texts) {
    for (const char character : text) {
      // A 0 would end the text.
      const unsigned code = character == '\0' ? '?' : static_cast<unsigned char>(character);
      codes += std::to_string(code) + " ";
    }
    codes += "0 ";
  }
  if (!codes.empty()) {
    codes.pop_back();
  }
  return codes;
}

}  // namespace velto::vtu
