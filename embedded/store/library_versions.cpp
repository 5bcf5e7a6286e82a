// SPDX-License-Identifier: Apache-2.0
//
// The versions of HDF5, zstd and xxHash.

#include "embedded/store/library_versions.h"

#include <hdf5.h>
#include <string>
#include <xxhash.h>
#include <zstd.h>

#include "embedded/store/hdf5_calls.h"

namespace velto::store {

namespace {

std::string dotted(unsigned first, unsigned second, unsigned third) {
  return std::to_string(first) + "." + std::to_string(second) + "." + std::to_string(third);
}

base::LibraryVersion hdf5Version() {
  unsigned major = 0;
  unsigned minor = 0;
  unsigned release = 0;
  hdf5("HDF5", "cannot tell its version",
       [&] { return H5get_libversion(&major, &minor, &release); });
  return {"HDF5", dotted(H5_VERS_MAJOR, H5_VERS_MINOR, H5_VERS_RELEASE),
          dotted(major, minor, release)};
}

/// xxHash keeps its version in one number, 100 for each of the two lower parts.
std::string xxHashVersion(unsigned number) {
  return dotted(number / 10000, number / 100 % 100, number % 100);
}

}  // namespace

std::vector<base::LibraryVersion> libraryVersions() {
  return {hdf5Version(),
          {"zstd", ZSTD_VERSION_STRING, ZSTD_versionString()},
          {"xxHash", xxHashVersion(XXH_VERSION_NUMBER), xxHashVersion(XXH_versionNumber())}};
}

}  // namespace velto::store
