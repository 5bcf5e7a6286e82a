// SPDX-License-Identifier: Apache-2.0
//
// shownName, shownText: what comes from a file, fit for a line of text.

#ifndef VELTO_ORV_SHOWN_NAME_H
#define VELTO_ORV_SHOWN_NAME_H

#include <string>

namespace velto::orv {

/// A text on one line: as it is, but for what is no printable UTF-8, which is escaped ("\n",
/// "\x1b", "\u202e"). For texts that stand between words of ours, such as messages and the names of
/// files.
std::string shownText(const std::string& text);

/// The name as it is, if it cannot be mistaken for anything else. Otherwise in quotes, with
/// escapes for what is no printable UTF-8: control characters, marks that turn the direction of
/// writing, and bytes that are no character ("\n", "\x1b", "\u202e"). Quoted are names that need
/// an escape, are empty or "-", begin with a bracket or a quote, begin or end with a blank, or hold
/// ", ", which separates names in a list.
std::string shownName(const std::string& name);

}  // namespace velto::orv

#endif  // VELTO_ORV_SHOWN_NAME_H
