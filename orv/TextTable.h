// SPDX-License-Identifier: Apache-2.0
//
// TextTable: columns of text, aligned.

#ifndef VELTO_ORV_TEXT_TABLE_H
#define VELTO_ORV_TEXT_TABLE_H

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace velto::orv {

/// Rows of cells under a heading, or without one where no column has any. Widths count code points
/// of UTF-8, so that names in any language keep the columns straight. A cell that is wider than
/// kMostAligned pushes aside what follows in its own row, not in all of them.
class TextTable {
 public:
  enum class Align { left, right };

  struct Column {
    std::string heading;
    Align align = Align::left;
  };

  explicit TextTable(std::vector<Column> columns) : columns_(std::move(columns)) {}

  void addRow(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

  /// The table as lines, each behind `indent`; nothing stands behind the last word of a line.
  std::string text(const std::string& indent) const;

  static constexpr std::size_t kMostAligned = 100;

 private:
  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace velto::orv

#endif  // VELTO_ORV_TEXT_TABLE_H
