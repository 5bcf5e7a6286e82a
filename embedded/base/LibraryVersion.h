// SPDX-License-Identifier: Apache-2.0
//
// LibraryVersion: which release of another project's library is at work.

#ifndef VELTO_EMBEDDED_BASE_LIBRARY_VERSION_H
#define VELTO_EMBEDDED_BASE_LIBRARY_VERSION_H

#include <string>

namespace velto::base {

struct LibraryVersion {
  std::string name;
  std::string built;    ///< That of the headers.
  std::string running;  ///< That of the library itself, which may be another one if it is shared.
};

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_LIBRARY_VERSION_H
