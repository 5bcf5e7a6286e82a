// SPDX-License-Identifier: Apache-2.0
//
// CommandTable: read off what CLI11 knows, and off the list of suggestions for what it does not.

#include "orv/CommandTable.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fmt/format.h>
#include <set>
#include <stdexcept>

#include "orv/command_line.h"
#include "orv/suggestions.h"

namespace velto::orv {

namespace {

using Words = std::vector<std::string>;

/// Ranges up to this size are lists of words as well.
constexpr long long kWordsOfRange = 10;

/// Longer lists are too long for a placeholder.
constexpr std::size_t kWordsShown = 5;

Words split(const std::string& text, char separator) {
  Words parts;
  std::size_t begin = 0;
  while (begin <= text.size()) {
    const std::size_t end = std::min(text.find(separator, begin), text.size());
    parts.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return parts;
}

/// What stands between two marks, or nothing.
std::string between(const std::string& text, const std::string& begin, const std::string& end) {
  const std::size_t first = text.find(begin);
  const std::size_t last = text.find(end, first == std::string::npos ? first : first + 1);
  return last == std::string::npos ? ""
                                   : text.substr(first + begin.size(), last - first - begin.size());
}

Words namesOf(const CLI::Option& option) {
  Words names;
  for (const std::string& letter : option.get_snames()) {
    names.push_back("-" + letter);
  }
  for (const std::string& word : option.get_lnames()) {
    names.push_back("--" + word);
  }
  return names;
}

/// The last name of each option, which is the long one if there is one.
Words lastNamesOf(const std::set<CLI::Option*>& options) {
  Words names;
  for (const CLI::Option* option : options) {
    names.push_back(namesOf(*option).back());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// Numbers, and the words of a list: CLI11 tells them in the type that its help shows, such as
/// "UINT:UINT in [0 - 9]", "INT:POSITIVE" and "TEXT:{restart,post,ppost}".
void readType(const std::string& type, Argument& argument) {
  const std::string list = between(type, "{", "}");
  const std::string head = type.substr(0, type.find(':'));
  if (!list.empty()) {
    argument.kind = ValueKind::words;
    argument.words = split(list, ',');
  } else if (head == "INT" || head == "UINT" || head == "FLOAT") {
    argument.kind = ValueKind::number;
  } else {
    argument.kind = ValueKind::file;
  }
  const std::string range = between(type, "[", "]");
  const std::size_t middle = range.find(" - ");
  if (middle == std::string::npos) {
    if (type.find("POSITIVE") != std::string::npos) {
      argument.range = "at least 1";
    }
    return;
  }
  const std::string first = range.substr(0, middle);
  const std::string last = range.substr(middle + 3);
  argument.range = fmt::format("{} to {}", first, last);
  const long long begin = std::stoll(first);
  const long long end = std::stoll(last);
  if (head != "FLOAT" && end - begin < kWordsOfRange) {
    for (long long number = begin; number <= end; ++number) {
      argument.words.push_back(std::to_string(number));
    }
  }
}

std::string inCapitals(std::string name) {
  name.erase(0, name.find_first_not_of('-'));
  std::transform(name.begin(), name.end(), name.begin(), [](char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  });
  return name;
}

std::string placeholderOf(const Argument& option) {
  switch (option.kind) {
    case ValueKind::none:
      return "";
    case ValueKind::file:
      return "FILE";
    case ValueKind::number:
      return "N";
    default:
      return option.words.empty() || option.words.size() > kWordsShown
                 ? inCapitals(option.names.back())
                 : fmt::format("{}", fmt::join(option.words, "|"));
  }
}

/// As the help has them: groups in the order in which they first appear.
void sortByGroup(std::vector<Argument>& options) {
  Words groups;
  for (const Argument& option : options) {
    if (std::find(groups.begin(), groups.end(), option.group) == groups.end()) {
      groups.push_back(option.group);
    }
  }
  const auto rank = [&groups](const Argument& option) {
    return std::find(groups.begin(), groups.end(), option.group) - groups.begin();
  };
  std::stable_sort(options.begin(), options.end(),
                   [&rank](const Argument& a, const Argument& b) { return rank(a) < rank(b); });
}

/// Reads one command; suggestions that are found a use for are taken off the list.
class CommandReader {
 public:
  CommandReader(const CLI::App& app, std::vector<Suggestion>& suggestions)
      : app_(app), suggestions_(suggestions) {}

  Command read() {
    Command command;
    command.name = app_.get_name();
    command.title = app_.get_description();
    command.footer = app_.get_footer();
    const std::size_t end = command.footer.rfind(commonFooter());
    command.footer.erase(std::min(end, command.footer.size()));
    for (const CLI::Option* option : app_.get_options()) {
      if (option->get_group().empty()) {
        continue;  // hidden
      }
      if (option->nonpositional()) {
        command.options.push_back(readOption(*option));
      } else {
        readPositionals(*option, command.positionals);
      }
    }
    sortByGroup(command.options);
    for (const CLI::App* sub : app_.get_subcommands([](const CLI::App*) { return true; })) {
      if (!sub->get_group().empty()) {
        command.commands.push_back(CommandReader(*sub, suggestions_).read());
      }
    }
    return command;
  }

 private:
  Argument readOption(const CLI::Option& option) {
    Argument read = readAnything(option);
    read.names = namesOf(option);
    if (option.get_items_expected_max() != 0) {
      readType(option.get_type_name(), read);
      suggest(read.names.back(), read);
      read.usual = option.get_default_str();
    }
    read.placeholder = placeholderOf(read);
    return read;
  }

  /// CLI11 has one name for places that are filled in a row, such as "NAME FILE".
  void readPositionals(const CLI::Option& option, std::vector<Argument>& places) {
    for (const std::string& name : split(option.get_name(true), ' ')) {
      Argument place = readAnything(option);
      place.placeholder = name;
      readType(option.get_type_name(), place);
      suggest(name, place);
      places.push_back(place);
    }
    const int most = option.get_items_expected_max();
    places.back().repeats = most >= CLI::detail::expected_max_vector_size;
  }

  static Argument readAnything(const CLI::Option& option) {
    Argument read;
    read.description = option.get_description();
    read.group = option.get_group();
    read.needs = lastNamesOf(option.get_needs());
    read.excludes = lastNamesOf(option.get_excludes());
    read.isRequired = option.get_required();
    return read;
  }

  void suggest(const std::string& name, Argument& argument) {
    const auto row = std::find_if(
        suggestions_.begin(), suggestions_.end(), [this, &name](const Suggestion& suggestion) {
          return suggestion.command == app_.get_name() && suggestion.argument == name;
        });
    if (row == suggestions_.end()) {
      return;
    }
    argument.kind = row->words.empty() ? ValueKind::freeText : ValueKind::words;
    argument.words = row->words;
    if (!row->unless.empty()) {
      argument.wordsUnless = namesOf(*app_.get_option(row->unless));
    }
    suggestions_.erase(row);
  }

  const CLI::App& app_;
  std::vector<Suggestion>& suggestions_;
};

}  // namespace

Command readCommands(const CLI::App& app) {
  std::vector<Suggestion> unused = suggestions();
  Command command = CommandReader(app, unused).read();
  if (!unused.empty()) {
    throw std::logic_error(fmt::format("nothing is suggested for {} of {}, which is not there",
                                       unused.front().argument, unused.front().command));
  }
  return command;
}

}  // namespace velto::orv
