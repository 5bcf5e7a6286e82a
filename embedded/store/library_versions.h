// SPDX-License-Identifier: Apache-2.0
//
// The libraries that store files are read and written with.

#ifndef VELTO_EMBEDDED_STORE_LIBRARY_VERSIONS_H
#define VELTO_EMBEDDED_STORE_LIBRARY_VERSIONS_H

#include <vector>

#include "embedded/base/LibraryVersion.h"

namespace velto::store {

/// HDF5, zstd and xxHash.
std::vector<base::LibraryVersion> libraryVersions();

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_LIBRARY_VERSIONS_H
