// SPDX-License-Identifier: Apache-2.0
//
// The entries of a dictionary: a keyword and what stands behind it, kept as text.

#ifndef VELTO_FORMATS_OPENFOAM_DICTIONARY_H
#define VELTO_FORMATS_OPENFOAM_DICTIONARY_H

#include <optional>
#include <string>

#include "formats/openfoam/Scanner.h"

namespace velto::openfoam {

/// A word or a string in quotes, which are dropped. A word goes on to the next blank, comment,
/// brace, quote or semicolon and may hold parentheses in pairs.
/// Errors: ReadError where neither stands (`expected` is its name in the message), where a string
/// has no end, and for a directive (#include) or a macro ($name), which are not expanded.
std::string readWord(Scanner& scanner, const std::string& expected);

/// The keyword of the next entry of a dictionary, as it stands; nothing at the closing brace, which
/// is consumed. Errors: as readWord().
std::optional<std::string> readKeyword(Scanner& scanner);

/// What stands behind `keyword` up to its semicolon, which is consumed, or a sub-dictionary with
/// its braces. Blanks and comments between words become one blank; strings stay as they stand.
/// Errors: ReadError if the semicolon or a bracket is missing, for more than 64 nested brackets,
/// more than 1 MiB of text, a string without an end, a directive or a macro.
std::string readEntryText(Scanner& scanner, const std::string& keyword);

/// `text` without the quotes around it, if it is one string.
std::string unquoted(const std::string& text);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_DICTIONARY_H
