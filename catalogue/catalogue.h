// SPDX-License-Identifier: Apache-2.0
//
// The catalogue of messages: each message of the tools with what it means, as docs/MESSAGES.md
// tells it.

#ifndef VELTO_CATALOGUE_CATALOGUE_H
#define VELTO_CATALOGUE_CATALOGUE_H

#include <string>
#include <string_view>
#include <vector>

namespace velto::catalogue {

enum class Level {
  error,    ///< Kept in a tool's list of errors.
  warning,  ///< Kept in its list of warnings.
  line,     ///< Written to a stream and kept nowhere.
};

/// One message. Its text together with its level is unique, the text alone is not.
struct Entry {
  std::string id;    ///< Stable, in kebab-case.
  std::string text;  ///< With "<...>" for each value.
  Level level = Level::error;
  std::string source;   ///< The file that raises it, from the root of the project.
  std::string section;  ///< The heading below which it stands.
  std::string means;
  std::string cause;
  std::string remedy;
  std::string seeIt;  ///< Commands that show it, as they stand on the page, or "".
  std::string never;  ///< Why it is never given, or "".
};

/// The entries of the page, in its order. The page is part of the library and parsed once.
const std::vector<Entry>& entries();

/// The entries of a page in the grammar of docs/MESSAGES.md. Throws std::runtime_error, with the
/// number of the line, where it does not keep to that.
std::vector<Entry> parsePage(std::string_view page);

/// The entry of a message as a tool recorded it, without its step; null if there is none.
const Entry* entryOf(Level level, std::string_view message);

/// The entry with this id; null if there is none.
const Entry* entryOfId(std::string_view id);

struct Match {
  const Entry* entry = nullptr;
  std::vector<std::string> values;  ///< What stands in place of each "<...>".
};

/// The entries that fit a line which somebody pasted, best first: those with the most characters
/// that are no values. The line may be a message alone, `step : message`, `Error: step: message` or
/// `Warning: step: message`, with blanks or quotes around it. Only if nothing fits, runs of white
/// space count as one blank, and then a message may have anything in front of it. "Error:" and
/// "Warning:" decide between entries of the same text; without them all of these are there.
std::vector<Match> matchesOf(std::string_view line);

}  // namespace velto::catalogue

#endif  // VELTO_CATALOGUE_CATALOGUE_H
