// SPDX-License-Identifier: Apache-2.0
//
// What can be said on the command line: the one table of subcommands, options and their help.

#ifndef VELTO_ORV_COMMAND_LINE_H
#define VELTO_ORV_COMMAND_LINE_H

#include <CLI/CLI.hpp>
#include <string>

#include "orv/commands.h"

namespace velto::orv {

/// What a command line said, for all subcommands.
struct CommandLine {
  CheckOptions check;
  InfoOptions info;
  ModelOptions model;
  RegionsOptions regions;
  CopyOptions copy;
  ExplainOptions explain;
  FormatsOptions formats;
  SampleOptions sample;
  CompletionOptions completion;
};

/// An exit status in words.
struct ExitMeaning {
  ExitStatus status;
  const char* meaning;
};

inline constexpr ExitMeaning kExitMeanings[] = {
    {exitSound, "sound or done"},
    {exitErrors, "the case has errors"},
    {exitNotDone, "the command could not be carried out"},
};

inline constexpr const char* kStreams =
    "Results go to standard output, messages to standard error.";

/// What the help of each subcommand ends with: streams and exit statuses.
std::string commonFooter();

/// Adds all subcommands and options to `app`, which writes what it parses into `line`.
void addCommands(CLI::App& app, CommandLine& line);

/// Parses the arguments of a program into the structures that `app` was given by addCommands.
/// Throws CLI::ParseError; one that names no command, or one that there is not, says so.
void parse(CLI::App& app, CommandLine& line, int argc, char** argv);

}  // namespace velto::orv

#endif  // VELTO_ORV_COMMAND_LINE_H
