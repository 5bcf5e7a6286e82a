// SPDX-License-Identifier: Apache-2.0
//
// What the files of the case store are called.

#ifndef VELTO_EMBEDDED_STORE_FILE_NAMES_H
#define VELTO_EMBEDDED_STORE_FILE_NAMES_H

#include <string>

namespace velto::store {

/// What the name of a case file ends in.
inline constexpr const char* kCaseEnding = ".orv";

/// The file beside a case file that its results are in by custom: "duct.orvr" for "duct.orv".
inline std::string resultsFileOf(const std::string& caseFile) { return caseFile + "r"; }

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_FILE_NAMES_H
