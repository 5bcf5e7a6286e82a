// SPDX-License-Identifier: Apache-2.0
//
// The command line as data: what completion scripts and the manual page are made of.

#ifndef VELTO_ORV_COMMAND_TABLE_H
#define VELTO_ORV_COMMAND_TABLE_H

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace velto::orv {

/// What is typed for an argument.
enum class ValueKind {
  none,  ///< Nothing: a flag.
  file,
  number,
  words,     ///< One of a list.
  freeText,  ///< Anything, and no file.
};

/// An option, a flag, or an argument that is known by its place.
struct Argument {
  std::vector<std::string> names;  ///< "-l", "--level"; empty if it is known by its place.
  std::string placeholder;         ///< What stands for its value: "FILE", "N", "post|ppost".
  std::string description;
  std::string group;  ///< The heading that its help stands under.
  ValueKind kind = ValueKind::none;
  std::vector<std::string> words;  ///< All that can be typed, where these are few.
  /// Names of an option beside which the words do not apply, and a file is typed.
  std::vector<std::string> wordsUnless;
  std::string range;                  ///< "1 to 9", or empty.
  std::string usual;                  ///< The value where none is given, or empty.
  std::vector<std::string> needs;     ///< Names of options that it does not go without.
  std::vector<std::string> excludes;  ///< Names of options that it does not go with.
  bool isRequired = false;
  bool repeats = false;
};

/// A subcommand, or the program with all of them. Hidden ones are left out.
struct Command {
  std::string name;
  std::string title;
  std::string footer;  ///< Without what all footers end with.
  std::vector<Argument> options;
  std::vector<Argument> positionals;  ///< By their places; the last may repeat.
  std::vector<Command> commands;
};

Command readCommands(const CLI::App& app);

}  // namespace velto::orv

#endif  // VELTO_ORV_COMMAND_TABLE_H
