// SPDX-License-Identifier: Apache-2.0
//
// Pattern: both ends first, which most messages of other entries fail.

#include "catalogue/Pattern.h"

#include <utility>

namespace velto::catalogue {

std::string squeezed(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (const char c : text) {
    const bool isWhite = c == ' ' || (c >= '\t' && c <= '\r');
    if (!isWhite) {
      out += c;
    } else if (out.empty() || out.back() != ' ') {
      out += ' ';
    }
  }
  return out;
}

Pattern::Pattern(std::string_view text) {
  std::size_t begin = 0;
  for (std::size_t end = 0; end != std::string_view::npos; begin = end + kValue.size()) {
    end = text.find(kValue, begin);
    pieces_.emplace_back(text.substr(begin, end - begin));
    weight_ += pieces_.back().size();
  }
}

bool Pattern::fits(std::string_view message, std::vector<std::string>* values) const {
  const std::string& head = pieces_.front();
  const std::string& tail = pieces_.back();
  if (!hasValues()) {
    if (message != head) {
      return false;
    }
    if (values != nullptr) {
      values->clear();
    }
    return true;
  }
  if (message.size() < weight_ || message.substr(0, head.size()) != head ||
      message.substr(message.size() - tail.size()) != tail) {
    return false;
  }
  const std::size_t end = message.size() - tail.size();
  const std::string_view open = message.substr(0, end);
  std::size_t at = head.size();
  std::vector<std::string> found;
  for (std::size_t i = 1; i + 1 < pieces_.size(); ++i) {
    const std::size_t next = open.find(pieces_[i], at);
    if (next == std::string_view::npos) {
      return false;
    }
    if (values != nullptr) {
      found.emplace_back(open.substr(at, next - at));
    }
    at = next + pieces_[i].size();
  }
  if (values != nullptr) {
    found.emplace_back(open.substr(at));
    *values = std::move(found);
  }
  return true;
}

}  // namespace velto::catalogue
