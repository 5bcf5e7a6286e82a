// SPDX-License-Identifier: Apache-2.0
//
// Completion for zsh: what _arguments takes, for each subcommand.

#include <fmt/format.h>
#include <string>
#include <vector>

#include "orv/completion.h"

namespace velto::orv {

namespace {

using Words = std::vector<std::string>;

/// In single quotes, as every shell of this kind takes them.
std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char letter : text) {
    result += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
  }
  return result + "'";
}

/// With a backslash before what would end a part of a definition.
std::string escaped(const std::string& text) {
  std::string result;
  for (const char letter : text) {
    if (letter == '[' || letter == ']' || letter == ':' || letter == '\\') {
      result += '\\';
    }
    result += letter;
  }
  return result;
}

/// ":what is typed:how it is completed".
std::string valueOf(const Argument& argument) {
  const std::string words = fmt::format("{}", fmt::join(argument.words, " "));
  std::string action = " ";
  if (argument.kind == ValueKind::file) {
    action = "_files";
  } else if (!argument.wordsUnless.empty()) {
    action = fmt::format("{{if (( $words[(I)({})*] )); then _files; else compadd -- {}; fi}}",
                         fmt::join(argument.wordsUnless, "|"), words);
  } else if (!argument.words.empty()) {
    action = fmt::format("({})", words);
  }
  return fmt::format(":{}:{}", escaped(argument.placeholder), action);
}

/// One line an option; its names exclude each other, so that it is offered once.
std::string optionLine(const Command& command, const Argument& option) {
  const bool isFlag = option.kind == ValueKind::none;
  const std::string rest = quoted(
      fmt::format("[{}]{}", escaped(shellText(command, option)), isFlag ? "" : valueOf(option)));
  Words names;
  for (const std::string& name : option.names) {
    const bool isLong = name.compare(0, 2, "--") == 0;
    names.push_back(isFlag ? name : name + (isLong ? "=" : "+"));
  }
  return names.size() == 1
             ? names.front() + rest
             : fmt::format("{}{{{}}}{}", quoted(fmt::format("({})", fmt::join(option.names, " "))),
                           fmt::join(names, ","), rest);
}

std::string arguments(const Command& command) {
  std::string text;
  for (const Argument& option : command.options) {
    text += " \\\n    " + optionLine(command, option);
  }
  for (std::size_t i = 0; i < command.positionals.size(); ++i) {
    const Argument& positional = command.positionals[i];
    const std::string place = positional.repeats ? "*" : std::to_string(i + 1);
    text += " \\\n    " + quoted(place + valueOf(positional));
  }
  return text;
}

const char* const kEnd = R"sh(
if [[ $funcstack[1] == _orv ]]; then
  _orv "$@"  # found by its file name
else
  compdef _orv orv  # sourced
fi
)sh";

}  // namespace

std::string zshCompletion(const Command& program) {
  std::string text = "#compdef orv\n# zsh completion for orv, made by `orv completion zsh`\n";
  std::string names;
  std::string calls;
  for (const Command& command : program.commands) {
    text +=
        fmt::format("\n_orv_{}() {{\n  _arguments -s -S{}\n}}\n", command.name, arguments(command));
    names += fmt::format("\n        {}", quoted(command.name + ":" + command.title));
    calls += fmt::format("\n        {0}) _orv_{0} ;;", command.name);
  }
  text += fmt::format(
      "\n_orv() {{\n"
      "  local curcontext=$curcontext state line\n"
      "  typeset -A opt_args\n"
      "  _arguments -C{} \\\n    '1: :->command' '*:: :->argument'\n"
      "  case $state in\n"
      "    command)\n"
      "      local -a commands\n"
      "      commands=({}\n      )\n"
      "      _describe -t commands 'command of orv' commands ;;\n"
      "    argument)\n"
      "      case $line[1] in{}\n"
      "      esac ;;\n"
      "  esac\n"
      "}}\n",
      arguments(program), names, calls);
  return text + kEnd;
}

}  // namespace velto::orv
