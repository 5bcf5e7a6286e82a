// SPDX-License-Identifier: Apache-2.0
//
// OrvUtilities: free functions that the data-access library offers beside its classes.

#ifndef VELTO_DATA_ACCESS_ORV_UTILITIES_H
#define VELTO_DATA_ACCESS_ORV_UTILITIES_H

#include <string>
#include <vector>

/// What a data-access library offers beside its classes.
namespace velto::OrvUtilities {  // NOLINT(readability-identifier-naming): given.

/// Splits `text` at each `separator` and appends the pieces to `parts`, in order. With `flag` true
/// blanks around a piece are cut off and empty pieces are left out, so that "a, b,,c" gives "a",
/// "b" and "c"; with false the pieces come as they stand. True if anything was appended.
bool splitString(const std::string& text, std::vector<std::string>& parts, bool flag,
                 char separator);

}  // namespace velto::OrvUtilities

#endif  // VELTO_DATA_ACCESS_ORV_UTILITIES_H
