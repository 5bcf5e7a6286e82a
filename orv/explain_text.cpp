// SPDX-License-Identifier: Apache-2.0
//
// Explanations as text, wrapped to lines that fit a terminal.

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>
#include <map>
#include <string>
#include <vector>

#include "orv/TextTable.h"
#include "orv/explain_views.h"
#include "orv/shown_name.h"
#include "orv/words.h"

namespace velto::orv {

namespace {

using catalogue::Entry;
using catalogue::Level;
using Values = std::vector<std::vector<std::string>>;

constexpr std::size_t kColumns = 100;
constexpr std::size_t kLabelColumns = 9;

std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

/// Words in lines of kColumns, a label before the first; a longer word has a line to itself.
std::string wrapped(const std::string& label, const std::string& words) {
  const std::string indent(kLabelColumns, ' ');
  std::string line = fmt::format("{:<{}}", label, kLabelColumns);
  std::string lines;
  bool isEmpty = true;
  for (std::size_t at = 0; at < words.size();) {
    const std::size_t end = std::min(words.find(' ', at), words.size());
    const std::string word = words.substr(at, end - at);
    at = end + 1;
    if (!isEmpty && widthOf(line) + 1 + widthOf(word) > kColumns) {
      lines += line + "\n";
      line = indent;
      isEmpty = true;
    }
    line += (isEmpty ? "" : " ") + word;
    isEmpty = false;
  }
  return lines + line + "\n";
}

constexpr std::size_t kMostOfValue = 200;

/// A value of a message: as much of it as helps to find it.
std::string shownValue(const std::string& value) {
  if (value.size() <= kMostOfValue) {
    return shownName(value);
  }
  std::size_t end = kMostOfValue;
  while (end > 0 && (static_cast<unsigned char>(value[end]) & 0xC0U) == 0x80U) {
    --end;
  }
  return shownName(value.substr(0, end)) + "...";
}

/// A single value stands as it is where it can, several must be told apart.
std::string shownValues(const std::vector<std::string>& values) {
  const bool isPlain =
      values.size() == 1 && !values.front().empty() && shownText(values.front()) == values.front();
  const bool isShort = values.front().size() <= kMostOfValue;
  return isPlain && isShort ? values.front() : joined(values, ", ", shownValue);
}

/// Whether "See it" says more than which commands to give.
bool hasProse(const std::string& seeIt) {
  bool isCode = false;
  std::string outside;
  for (const char c : seeIt) {
    if (c == '`') {
      isCode = !isCode;
    } else if (!isCode) {
      outside += c;
    }
  }
  return outside.find_first_not_of(" ,.;") != std::string::npos;
}

std::string seeItText(const Entry& entry) {
  if (hasProse(entry.seeIt)) {
    return wrapped("see it", entry.seeIt);
  }
  std::string text;
  for (const std::string& command : commandsOf(entry)) {
    text += fmt::format("{:<{}}{}\n", text.empty() ? "see it" : "", kLabelColumns, command);
  }
  return text;
}

/// An entry, with the values that it has in one or several lines.
std::string entryText(const Entry& entry, const std::string& lines, const Values& values,
                      bool hasMore) {
  const std::string tool = toolOf(entry);
  std::string text = fmt::format("{}: {}{}{}\n  {}\n", entry.id, levelWord(entry.level),
                                 tool.empty() ? "" : " of " + tool, lines, entry.text);
  for (const std::vector<std::string>& one : values) {
    if (!one.empty()) {
      text += fmt::format("  here: {}\n", shownValues(one));
    }
  }
  text += hasMore ? "  and others\n" : "";
  text += "\n" + wrapped("means", entry.means) + wrapped("cause", entry.cause) +
          wrapped("remedy", entry.remedy) + seeItText(entry);
  if (entry.never.empty()) {
    return text;
  }
  const bool goesOn = entry.never.front() >= 'a' && entry.never.front() <= 'z';
  return text + wrapped("given", (goesOn ? "Never " : "Never. ") + entry.never);
}

}  // namespace

const char* levelWord(Level level) {
  switch (level) {
    case Level::error:
      return "error";
    case Level::warning:
      return "warning";
    default:
      return "line";
  }
}

std::string toolOf(const Entry& entry) {
  static const std::map<std::string, std::string> kTools = {
      {"checker", "OrvChecker"},
      {"copier", "OrvCopier"},
      {"location_model", "LocationModelBuilder"},
      {"orv", "orv"},
      {"physics_regions", "PhysicsRegionResolver"}};
  const auto tool = kTools.find(entry.source.substr(0, entry.source.find('/')));
  return tool == kTools.end() ? "" : tool->second;
}

std::vector<std::string> commandsOf(const Entry& entry) {
  std::vector<std::string> commands;
  std::size_t begin = entry.seeIt.find('`');
  while (begin != std::string::npos) {
    const std::size_t end = entry.seeIt.find('`', begin + 1);
    if (end == std::string::npos) {
      break;
    }
    commands.push_back(entry.seeIt.substr(begin + 1, end - begin - 1));
    begin = entry.seeIt.find('`', end + 1);
  }
  return commands;
}

std::string listText() {
  TextTable table({{"id"}, {"level"}, {"text"}});
  for (const Entry& entry : catalogue::entries()) {
    table.addRow({entry.id, levelWord(entry.level), entry.text});
  }
  return table.text("");
}

std::string explanationText(const Explanation& explanation) {
  std::string text;
  const auto add = [&text](const std::string& entry) {
    text += (text.empty() ? "" : "\n") + entry;
  };
  for (const ExplainedText& one : explanation.texts()) {
    for (const catalogue::Match& match : one.matches) {
      add(entryText(*match.entry, "", {match.values}, false));
    }
  }
  for (const LoggedEntry& one : explanation.logged()) {
    add(entryText(*one.entry, ", " + counted(one.lines, "line", "lines"), one.values,
                  one.hasMoreValues));
  }
  return text;
}

}  // namespace velto::orv
