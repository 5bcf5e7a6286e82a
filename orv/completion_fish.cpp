// SPDX-License-Identifier: Apache-2.0
//
// Completion for fish: one line for each option and each place of each subcommand.

#include <fmt/format.h>
#include <string>
#include <vector>

#include "orv/completion.h"

namespace velto::orv {

namespace {

using Words = std::vector<std::string>;

const char* const kBegin = R"sh(# fish completion for orv, made by `orv completion fish`

# __orv_at COMMAND                           whether it is an argument of COMMAND that is typed
# __orv_at COMMAND TEST NUMBER OPTION...     and whether the number of its place passes the test;
#                                            the OPTIONs take a value
function __orv_at
    set -l words (commandline -opc)
    set -l command ''
    set -l place 1
    set -l is_value no
    for word in $words[2..]
        if test $is_value = yes
            set is_value no
        else if string match -q -- '-*' $word
            contains -- $word $argv[4..]; and set is_value yes
        else if test -z "$command"
            set command $word
        else
            set place (math $place + 1)
        end
    end
    test "$command" = "$argv[1]"; or return 1
    test (count $argv) -lt 3; or test $place $argv[2] $argv[3]
end

complete -c orv -f
)sh";

/// In single quotes.
std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char letter : text) {
    if (letter == '\'' || letter == '\\') {
      result += '\\';
    }
    result += letter;
  }
  return result + "'";
}

std::string wordsOf(const Argument& argument) {
  return argument.words.empty()
             ? ""
             : " -a " + quoted(fmt::format("{}", fmt::join(argument.words, " ")));
}

std::string line(const std::string& condition, const std::string& rest) {
  return fmt::format("complete -c orv -n {}{}\n", quoted(condition), rest);
}

std::string optionLine(const std::string& condition, const Command& command,
                       const Argument& option) {
  std::string rest;
  for (const std::string& name : option.names) {
    const bool isLong = name.compare(0, 2, "--") == 0;
    rest += isLong ? " -l " + name.substr(2) : " -s " + name.substr(1);
  }
  if (option.kind == ValueKind::file) {
    rest += " -r -F";
  } else if (option.kind != ValueKind::none) {
    rest += " -x" + wordsOf(option);
  }
  return line(condition, rest + " -d " + quoted(shellText(command, option)));
}

/// Whether one of these names of an option was typed, with its value behind it or in one word.
std::string wasSeen(const Words& names) {
  return fmt::format("string match -qr -- \"^({})\" (commandline -opc)", fmt::join(names, "|"));
}

std::string placeLines(const std::string& condition, const Argument& place) {
  switch (place.kind) {
    case ValueKind::file:
      return line(condition, " -F");
    case ValueKind::words:
      return place.wordsUnless.empty()
                 ? line(condition, wordsOf(place))
                 : line(condition + "; and not " + wasSeen(place.wordsUnless), wordsOf(place)) +
                       line(condition + "; and " + wasSeen(place.wordsUnless), " -F");
    default:
      return "";
  }
}

std::string linesOf(const Command& command) {
  const std::string condition = "__orv_at " + command.name;
  std::string text = "\n";
  std::string valueOptions;
  for (const Argument& option : command.options) {
    text += optionLine(condition, command, option);
    if (option.kind != ValueKind::none) {
      valueOptions += fmt::format(" {}", fmt::join(option.names, " "));
    }
  }
  for (std::size_t i = 0; i < command.positionals.size(); ++i) {
    const Argument& place = command.positionals[i];
    text += placeLines(
        fmt::format("{} {} {}{}", condition, place.repeats ? "-ge" : "-eq", i + 1, valueOptions),
        place);
  }
  return text;
}

}  // namespace

std::string fishCompletion(const Command& program) {
  std::string text = kBegin;
  Command outside = program;  // before the subcommand
  outside.name = "\"\"";
  text += linesOf(outside);
  for (const Command& command : program.commands) {
    text += line("__orv_at \"\"", " -a " + command.name + " -d " + quoted(command.title));
  }
  for (const Command& command : program.commands) {
    text += linesOf(command);
  }
  return text;
}

}  // namespace velto::orv
