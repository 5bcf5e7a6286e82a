// SPDX-License-Identifier: Apache-2.0
//
// CaseComparison: how single things and whole arrays are compared.

#ifndef VELTO_ORV_CASE_COMPARISON_VALUES_H
#define VELTO_ORV_CASE_COMPARISON_VALUES_H

#include <cstring>
#include <fmt/format.h>

#include "orv/CaseComparison.h"
#include "orv/words.h"

namespace velto::orv {

inline std::string textOf(const std::string& text) { return "'" + text + "'"; }
inline std::string textOf(const std::vector<int>& list) { return joined(list); }
template <class Number>
std::string textOf(const Number& number) {
  return fmt::format("{}", number);
}

template <class Operation>
auto CaseComparison::both(const Operation& operation) {
  auto inSource = operation(source_);
  auto inCopy = operation(copy_);
  return std::make_pair(std::move(inSource), std::move(inCopy));
}

template <class Thing>
void CaseComparison::compare(const std::string& what, const Both<Thing>& things) {
  if (!(things.first == things.second)) {
    differs(fmt::format("{}: {} and {}", what, textOf(things.first), textOf(things.second)));
  }
}

/// Bit by bit, so that a value that is no number equals itself.
template <class Value>
void CaseComparison::compareArrays(const std::string& where, const std::string& what,
                                   const Both<std::vector<Value>>& arrays) {
  const std::vector<Value>& a = arrays.first;
  const std::vector<Value>& b = arrays.second;
  if (a.size() != b.size()) {
    differs(fmt::format("{}{} {} and {}", where, a.size(), what, b.size()));
    return;
  }
  if (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(Value)) == 0) {
    return;
  }
  const auto bitsOf = [](const std::vector<Value>& values, std::size_t i) {
    return reinterpret_cast<const unsigned char*>(values.data()) + i * sizeof(Value);
  };
  std::size_t count = 0;
  std::size_t first = 0;
  for (std::size_t i = a.size(); i-- > 0;) {
    if (std::memcmp(bitsOf(a, i), bitsOf(b, i), sizeof(Value)) != 0) {
      ++count;
      first = i;
    }
  }
  differs(fmt::format("{}{} of {} {} differ, the first at {}: {} and {}", where, count, a.size(),
                      what, first + 1, a[first], b[first]));
}

}  // namespace velto::orv

#endif  // VELTO_ORV_CASE_COMPARISON_VALUES_H
