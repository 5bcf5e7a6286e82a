// SPDX-License-Identifier: Apache-2.0
//
// Completion: one function for each shell.

#include "orv/completion.h"

namespace velto::orv {

std::string completionScript(const std::string& shell, const Command& program) {
  if (shell == "bash") {
    return bashCompletion(program);
  }
  return shell == "zsh" ? zshCompletion(program) : fishCompletion(program);
}

std::string shellText(const Command& command, const Argument& option) {
  const bool hasHeading = option.group != command.options.front().group;
  return (hasHeading ? option.group + ": " : "") + option.description;
}

}  // namespace velto::orv
