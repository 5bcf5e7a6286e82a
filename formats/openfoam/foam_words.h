// SPDX-License-Identifier: Apache-2.0
//
// Names and texts that can stand in an OpenFOAM dictionary.

#ifndef VELTO_FORMATS_OPENFOAM_FOAM_WORDS_H
#define VELTO_FORMATS_OPENFOAM_FOAM_WORDS_H

#include <string>
#include <vector>

namespace velto::openfoam {

/// The name with "_" in place of each character that no word may hold (blanks, control characters,
/// quotes, slashes, semicolons, braces, brackets, "#" and "$") and before a beginning that would be
/// read as a number; "_" for none.
std::string foamWord(const std::string& name);

/// A word for each name, all different: names that are words keep to themselves, others get a
/// number behind them where the word is taken.
std::vector<std::string> foamWords(const std::vector<std::string>& names);

/// Whether `text` can stand between a keyword and its semicolon, or is a sub-dictionary: brackets
/// in pairs, strings closed, and no semicolon but in a sub-dictionary.
bool isEntryText(const std::string& text);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_FOAM_WORDS_H
