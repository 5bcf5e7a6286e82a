// SPDX-License-Identifier: Apache-2.0
//
// Which words are meant where the command line takes any text.

#ifndef VELTO_ORV_SUGGESTIONS_H
#define VELTO_ORV_SUGGESTIONS_H

#include <string>
#include <vector>

namespace velto::orv {

/// Any text that has no row is the name of a file.
struct Suggestion {
  std::string command;
  std::string argument;            ///< "--to", or the name that stands for it in the help.
  std::vector<std::string> words;  ///< None if a text of the user's own is meant.
  std::string unless;              ///< The option beside which a file is meant after all, or "".
};

std::vector<Suggestion> suggestions();

}  // namespace velto::orv

#endif  // VELTO_ORV_SUGGESTIONS_H
