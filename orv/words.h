// SPDX-License-Identifier: Apache-2.0
//
// Words that several commands use: of targets, and for lists that are longer than a line.

#ifndef VELTO_ORV_WORDS_H
#define VELTO_ORV_WORDS_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
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

inline const char* categoryWord(OrvZoneCategory category) {
  switch (category) {
    case zoneCategoryNode:
      return "node";
    case zoneCategoryFace:
      return "face";
    default:
      return "cell";
  }
}

/// The word for a target on a command line, "" for an unknown one.
inline const char* targetOption(int target) {
  switch (target) {
    case targetRestart:
      return "restart";
    case targetPost:
      return "post";
    case targetPartitionedPost:
      return "ppost";
    default:
      return "";
  }
}

/// "5 faces", "1 body".
inline std::string counted(std::size_t count, std::string_view one, std::string_view more) {
  return fmt::format("{} {}", count, count == 1 ? one : more);
}

/// The names of what has one, such as all samples.
template <class Info>
std::vector<std::string> namesOf(const std::vector<Info>& list) {
  std::vector<std::string> names;
  names.reserve(list.size());
  for (const Info& info : list) {
    names.emplace_back(info.name);
  }
  return names;
}

/// Bytes for people: "812 bytes", "1.2 MB".
inline std::string sizeText(std::uint64_t bytes) {
  if (bytes < 1000) {
    return fmt::format("{} bytes", bytes);
  }
  auto size = static_cast<double>(bytes);
  const char* unit = "";
  for (const char* next : {"kB", "MB", "GB", "TB"}) {
    if (size < 999.95) {
      break;
    }
    size /= 1000;
    unit = next;
  }
  return fmt::format("{:.1f} {}", size, unit);
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
