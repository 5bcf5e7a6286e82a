// SPDX-License-Identifier: Apache-2.0
//
// Words that several commands use: of targets, and for lists that are longer than a line.

#ifndef VELTO_ORV_WORDS_H
#define VELTO_ORV_WORDS_H

#include <cstddef>
#include <fmt/format.h>
#include <iterator>
#include <string>
#include <string_view>

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

/// "7,8,9", "-" for none, and "1,2,3,... of 100" for a list that is longer than a table can take.
template <class List>
std::string joined(const List& list, const char* separator = ",") {
  if (list.empty()) {
    return "-";
  }
  if (list.size() <= kListShown) {
    return fmt::format("{}", fmt::join(list, separator));
  }
  return fmt::format("{}{}... of {}",
                     fmt::join(list.begin(), std::next(list.begin(), 3), separator), separator,
                     list.size());
}

}  // namespace velto::orv

#endif  // VELTO_ORV_WORDS_H
