// SPDX-License-Identifier: Apache-2.0
//
// TextTable: widths first, then lines.

#include "orv/TextTable.h"

#include <algorithm>
#include <cstddef>

namespace velto::orv {

namespace {

/// Code points of a UTF-8 text: all bytes but those that continue one.
std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

}  // namespace

std::string TextTable::text(const std::string& indent) const {
  std::vector<std::vector<std::string>> lines;
  const bool hasHeading = std::any_of(columns_.begin(), columns_.end(),
                                      [](const Column& column) { return !column.heading.empty(); });
  if (hasHeading) {
    lines.emplace_back();
    for (const Column& column : columns_) {
      lines.front().push_back(column.heading);
    }
  }
  lines.insert(lines.end(), rows_.begin(), rows_.end());

  std::vector<std::size_t> widths(columns_.size(), 0);
  for (const auto& line : lines) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      const std::size_t width = widthOf(line[i]);
      widths[i] = width > kMostAligned ? widths[i] : std::max(widths[i], width);
    }
  }
  std::string text;
  for (const auto& line : lines) {
    std::string row = indent;
    for (std::size_t i = 0; i < line.size(); ++i) {
      const std::string padding(widths[i] - std::min(widths[i], widthOf(line[i])), ' ');
      row += i == 0 ? "" : "  ";
      row += columns_[i].align == Align::right ? padding + line[i] : line[i] + padding;
    }
    row.erase(row.find_last_not_of(' ') + 1);
    text += row + "\n";
  }
  return text;
}

}  // namespace velto::orv
