// SPDX-License-Identifier: Apache-2.0
//
// Completion for bash: one function that finds out which argument is typed, and a list of words for
// each that has any.

#include <fmt/format.h>
#include <string>
#include <vector>

#include "orv/completion.h"

namespace velto::orv {

namespace {

using Words = std::vector<std::string>;

const char* const kBegin = R"sh(# bash completion for orv, made by `orv completion bash`

_orv() {
  local IFS=$' \t\n'
  local cur=${COMP_WORDS[COMP_CWORD]}
  local command= option= place=0 only_places= seen=' ' words= files= i word

  for ((i = 1; i < COMP_CWORD; i++)); do
    word=${COMP_WORDS[i]}
    if [[ -n $option ]]; then
      [[ $word == '=' ]] || option=
    elif [[ -n $only_places || $word != -* ]]; then
      if [[ -n $command ]]; then
        place=$((place + 1))
      else
        command=$word
      fi
    elif [[ $word == -- ]]; then
      only_places=yes
    else
      seen+="$word "
      case "$command $word" in
)sh";

const char* const kMiddle = R"sh(      esac
    fi
  done

  if [[ -n $option ]]; then
    place=$option
    [[ $cur != '=' ]] || cur=
  elif [[ -z $only_places && $cur == -* ]]; then
    place=-
  elif [[ -n $command ]]; then
    place=$((place + 1))
  else
    place=command
  fi

  case "$command $place" in
)sh";

// Where there are no candidates, readline puts names of files, and quotes them as they are typed.
const char* const kEnd = R"sh(  esac

  COMPREPLY=()
  if [[ -z $files ]]; then
    compopt +o default 2>/dev/null
    COMPREPLY=($(compgen -W "$words" -- "$cur"))
  fi
}

complete -o default -F _orv orv
)sh";

std::string joined(const Words& words) { return fmt::format("{}", fmt::join(words, " ")); }

/// The patterns of a case for one place of a command.
std::string patterns(const Command& command, const Words& places) {
  Words quoted;
  for (const std::string& place : places) {
    quoted.push_back(fmt::format("'{} {}'", command.name, place));
  }
  return fmt::format("{}", fmt::join(quoted, " | "));
}

std::string valueOf(const Argument& argument) {
  if (argument.kind == ValueKind::file) {
    return "files=yes";
  }
  std::string words = fmt::format("words='{}'", joined(argument.words));
  if (argument.wordsUnless.empty()) {
    return words;
  }
  Words seen;
  for (const std::string& name : argument.wordsUnless) {
    seen.push_back(fmt::format("*' {} '*", name));
  }
  return fmt::format("case $seen in {}) files=yes ;; *) {} ;; esac", fmt::join(seen, " | "), words);
}

/// The options of a command that take a value.
std::string valueOptions(const Command& command) {
  Words names;
  for (const Argument& option : command.options) {
    if (option.kind != ValueKind::none) {
      names.insert(names.end(), option.names.begin(), option.names.end());
    }
  }
  return names.empty() ? ""
                       : fmt::format("        {}) option=$word ;;\n", patterns(command, names));
}

std::string cases(const Command& command) {
  std::string text;
  const auto add = [&text](const std::string& pattern, const std::string& action) {
    text += fmt::format("    {}) {} ;;\n", pattern, action);
  };
  Words names;
  for (const Argument& option : command.options) {
    names.insert(names.end(), option.names.begin(), option.names.end());
    if (option.kind == ValueKind::file || !option.words.empty()) {
      add(patterns(command, option.names), valueOf(option));
    }
  }
  add(patterns(command, {"-"}), fmt::format("words='{}'", joined(names)));
  for (std::size_t i = 0; i < command.positionals.size(); ++i) {
    const Argument& positional = command.positionals[i];
    add(positional.repeats ? fmt::format("'{} '[0-9]*", command.name)
                           : patterns(command, {std::to_string(i + 1)}),
        valueOf(positional));
  }
  return text;
}

}  // namespace

std::string bashCompletion(const Command& program) {
  Command outside = program;  // before the subcommand, whose name is empty there
  outside.name = "";
  Words names;
  std::string options = valueOptions(outside);
  std::string places = cases(outside);
  for (const Command& command : program.commands) {
    names.push_back(command.name);
    options += valueOptions(command);
    places += cases(command);
  }
  places += fmt::format("    ' command') words='{}' ;;\n", joined(names));
  return kBegin + options + kMiddle + places + kEnd;
}

}  // namespace velto::orv
