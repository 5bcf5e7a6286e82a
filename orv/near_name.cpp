// SPDX-License-Identifier: Apache-2.0
//
// guessWords, nearNames: edit distances, row by row.

#include "orv/near_name.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "orv/shown_name.h"

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

/// Letters of ASCII in lower case; all else is left as it is.
std::string lowered(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return text;
}

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

}  // namespace

std::string guessWords(const std::string& word, const std::vector<std::string>& names) {
  const std::string near = nearName(word, names);
  return near.empty() ? "" : "did you mean " + shownName(near) + "? ";
}

std::vector<std::string> nearNames(const std::string& word, const std::vector<std::string>& names) {
  constexpr std::size_t kMostNames = 3;
  const std::size_t allowed = std::min<std::size_t>(2, word.size() / 2);
  const std::string wanted = lowered(word);
  std::vector<std::pair<std::size_t, std::string>> found;
  for (const std::string& name : names) {
    const bool isOfLength =
        name.size() <= word.size() + allowed && word.size() <= name.size() + allowed;
    const std::size_t changes = isOfLength ? distance(wanted, lowered(name)) : allowed + 1;
    if (changes <= allowed) {
      found.emplace_back(changes, name);
    }
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> nearest;
  for (auto one = found.begin(); one != found.end() && nearest.size() < kMostNames; ++one) {
    nearest.push_back(std::move(one->second));
  }
  return nearest;
}

}  // namespace velto::orv
