// SPDX-License-Identifier: Apache-2.0
//
// nearName: edit distances, row by row.

#include "orv/near_name.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace velto::orv {

namespace {

/// Characters to insert, remove or replace on the way from one text to the other.
std::size_t distance(const std::string& from, const std::string& to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < from.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    for (std::size_t j = 0; j < to.size(); ++j) {
      const std::size_t replaced = diagonal + (from[i] == to[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string nearName(const std::string& word, const std::vector<std::string>& names) {
  std::string nearest;
  std::size_t least = std::max<std::size_t>(2, word.size() / 3) + 1;
  for (const std::string& name : names) {
    const std::size_t changes = distance(word, name);
    if (changes < least) {
      least = changes;
      nearest = name;
    }
  }
  return nearest;
}

}  // namespace velto::orv
