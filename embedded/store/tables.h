// SPDX-License-Identifier: Apache-2.0
//
// Rows and texts of a group: how small tables get into a file and out of it.

#ifndef VELTO_EMBEDDED_STORE_TABLES_H
#define VELTO_EMBEDDED_STORE_TABLES_H

#include <cstring>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "embedded/base/CaseError.h"
#include "embedded/store/Hdf5.h"
#include "embedded/store/Layout.h"

namespace velto::store {

/// A number that has to be there.
inline std::uint64_t requireCount(const Group& group, const std::string& attribute) {
  const auto count = group.count(attribute);
  if (!count) {
    throw base::CaseError(group.where(attribute) + ": the attribute is missing");
  }
  return *count;
}

/// The attribute beside a table that says how many rows it has.
inline std::string rowsAttribute(const std::string& table) { return table + ".rows"; }

template <class Row>
void writeRows(Group& group, const std::string& name, const TableType& type,
               const std::vector<Row>& rows) {
  group.setCount(rowsAttribute(name), rows.size());
  group.writeTable(name, type, rows.data(), rows.size());
}

/// Throws CaseError if there are not as many rows as were written.
template <class Row>
std::vector<Row> readRows(const Group& group, const std::string& name, const TableType& type) {
  const std::vector<std::byte> bytes = group.readTable(name, type);
  std::vector<Row> rows(bytes.size() / sizeof(Row));
  if (!rows.empty()) {
    std::memcpy(rows.data(), bytes.data(), bytes.size());
  }
  const std::uint64_t written = requireCount(group, rowsAttribute(name));
  if (rows.size() != written) {
    throw base::CaseError(group.where(name) + ": " + std::to_string(rows.size()) +
                          " rows are there, " + std::to_string(written) + " were written");
  }
  return rows;
}

/// The value as an int. Throws if it is none.
inline int toInt(std::int64_t value, const std::string& where) {
  if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max()) {
    throw base::CaseError(where + ": " + std::to_string(value) + " is out of range");
  }
  return static_cast<int>(value);
}

/// Collects the texts of a group, which are written one after the other as "texts".
class TextWriter {
 public:
  layout::TextRef add(const std::string& text) {
    const layout::TextRef at{all_.size(), static_cast<std::int64_t>(text.size())};
    all_ += text;
    return at;
  }

  layout::TextRef add(const std::optional<std::string>& text) {
    return text ? add(*text) : layout::TextRef{};
  }

  void write(Group& group) const { group.writeString("texts", all_); }

 private:
  std::string all_;
};

/// Finds them again.
class TextReader {
 public:
  explicit TextReader(const Group& group)
      : where_(group.where("texts")), all_(group.readString("texts")) {}

  std::optional<std::string> optional(const layout::TextRef& at) const {
    if (at.length == -1) {
      return std::nullopt;
    }
    const auto length = static_cast<std::uint64_t>(at.length);
    if (at.length < 0 || at.first > all_.size() || length > all_.size() - at.first) {
      throw base::CaseError(where_ + ": a text of length " + std::to_string(at.length) + " at " +
                            std::to_string(at.first) + " is not there");
    }
    return all_.substr(static_cast<std::size_t>(at.first), static_cast<std::size_t>(length));
  }

  std::string text(const layout::TextRef& at) const { return optional(at).value_or(""); }

 private:
  std::string where_;
  std::string all_;
};

/// Collects lists of integers, which are written one after the other as "listValues".
class ListWriter {
 public:
  /// Adds a list; `Row` has a `first` and a `count`, which are filled.
  template <class Row>
  void add(std::vector<Row>& rows, Row row, const std::vector<int>& values) {
    row.first = all_.size();
    row.count = values.size();
    all_.insert(all_.end(), values.begin(), values.end());
    rows.push_back(row);
  }

  void write(Group& group) const { group.writeIntegers("listValues", all_); }

 private:
  std::vector<std::int32_t> all_;
};

class ListReader {
 public:
  explicit ListReader(const Group& group)
      : where_(group.where("listValues")), all_(group.readIntegers("listValues")) {}

  template <class Row>
  std::vector<int> list(const Row& row) const {
    if (row.first > all_.size() || row.count > all_.size() - row.first) {
      throw base::CaseError(where_ + ": a list of " + std::to_string(row.count) + " integers at " +
                            std::to_string(row.first) + " is not there");
    }
    const auto begin = all_.begin() + static_cast<std::ptrdiff_t>(row.first);
    return {begin, begin + static_cast<std::ptrdiff_t>(row.count)};
  }

 private:
  std::string where_;
  std::vector<std::int32_t> all_;
};

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_TABLES_H
