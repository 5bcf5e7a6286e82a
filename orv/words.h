// SPDX-License-Identifier: Apache-2.0
//
// Words that several commands use: of targets, and for lists that are longer than a line.

#ifndef VELTO_ORV_WORDS_H
#define VELTO_ORV_WORDS_H

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "data_access/OrvTypes.h"

namespace velto::orv {

inline const char* targetWord(int target) {
  switch (target) {
    case targetRestart:
      return "restart";
    case targetPost:
      return "post";
    case targetPartitionedPost:
      return "partitioned post";
    default:
      return "unknown";
  }
}

/// "5 faces", "1 body".
inline std::string counted(std::size_t count, std::string_view one, std::string_view more) {
  return fmt::format("{} {}", count, count == 1 ? one : more);
}

/// The longest list that a table shows whole; --json gives them all.
inline constexpr std::size_t kListShown = 8;

/// "7,8,9", "-" for none, and "1,2,3,... of 100" for a list that is longer than a table can take;
/// each entry as `wordOf` gives it, which is asked for those that are shown.
template <class List, class WordOf>
std::string joined(const List& list, const char* separator, WordOf wordOf) {
  const bool isWhole = list.size() <= kListShown;
  const auto shownEnd = isWhole ? list.end() : std::next(list.begin(), 3);
  std::vector<std::string> words;
  std::transform(list.begin(), shownEnd, std::back_inserter(words), wordOf);
  if (words.empty()) {
    return "-";
  }
  return fmt::format("{}{}", fmt::join(words, separator),
                     isWhole ? "" : fmt::format("{}... of {}", separator, list.size()));
}

template <class List>
std::string joined(const List& list, const char* separator = ",") {
  return joined(list, separator, [](const auto& entry) { return fmt::format("{}", entry); });
}

}  // namespace velto::orv

#endif  // VELTO_ORV_WORDS_H
