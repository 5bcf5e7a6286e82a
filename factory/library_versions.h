// SPDX-License-Identifier: Apache-2.0
//
// The libraries of other projects that the formats go by.

#ifndef VELTO_FACTORY_LIBRARY_VERSIONS_H
#define VELTO_FACTORY_LIBRARY_VERSIONS_H

#include <vector>

#include "embedded/base/LibraryVersion.h"

namespace velto::factory {

using base::LibraryVersion;

/// All of them, each once.
std::vector<LibraryVersion> libraryVersions();

}  // namespace velto::factory

#endif  // VELTO_FACTORY_LIBRARY_VERSIONS_H
