// SPDX-License-Identifier: Apache-2.0
//
// The free functions of the embedded library.

#include "data_access/OrvUtilities.h"

namespace velto {

namespace {

std::string withoutBlanksAround(const std::string& text) {
  const char* const blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace

bool OrvUtilities::splitString(const std::string& text, std::vector<std::string>& parts, bool flag,
                               char separator) {
  const std::size_t before = parts.size();
  std::size_t begin = 0;
  while (begin <= text.size()) {
    std::size_t end = text.find(separator, begin);
    if (end == std::string::npos) {
      end = text.size();
    }
    std::string piece = text.substr(begin, end - begin);
    if (flag) {
      piece = withoutBlanksAround(piece);
    }
    if (!flag || !piece.empty()) {
      parts.push_back(std::move(piece));
    }
    begin = end + 1;
  }
  return parts.size() > before;
}

}  // namespace velto
