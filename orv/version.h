// SPDX-License-Identifier: Apache-2.0
//
// What `orv --version` prints.

#ifndef VELTO_ORV_VERSION_H
#define VELTO_ORV_VERSION_H

#include <string>

namespace velto::orv {

/// "orv 0.1.0".
std::string versionName();

/// The same, and below it the compiler, the build type and the libraries, one a line. No line break
/// behind the last.
std::string versionText();

}  // namespace velto::orv

#endif  // VELTO_ORV_VERSION_H
