// SPDX-License-Identifier: Apache-2.0
//
// The libraries of the store, and zlib, which both other file formats pack with.

#include "factory/library_versions.h"

#include "embedded/store/library_versions.h"
#include "formats/openfoam/zlib_version.h"

namespace velto::factory {

std::vector<LibraryVersion> libraryVersions() {
  std::vector<LibraryVersion> versions = store::libraryVersions();
  versions.push_back(openfoam::zlibLibraryVersion());
  return versions;
}

}  // namespace velto::factory
