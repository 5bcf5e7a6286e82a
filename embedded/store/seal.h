// SPDX-License-Identifier: Apache-2.0
//
// The seal of a store file: a checksum over its structure, looked at before HDF5 is.

#ifndef VELTO_EMBEDDED_STORE_SEAL_H
#define VELTO_EMBEDDED_STORE_SEAL_H

#include <vector>

#include "embedded/base/RawFile.h"
#include "embedded/store/Hdf5.h"

namespace velto::store {

/// What a file says of itself by its last bytes.
enum class SealState {
  none,    ///< There is no seal: the file is cut, or another program wrote it.
  intact,  ///< Structure and tables are as they were written.
  broken,  ///< They are not.
};

/// Puts a seal behind a closed HDF5 file. `values` are the parts that hold the numbers of arrays,
/// which have checksums of their own; the seal covers all the rest.
void writeSeal(base::RawFile& file, std::vector<FileRange> values);

/// Reads what the seal covers, a small part of a file with large arrays, and compares.
SealState examineSeal(const base::RawFile& file);

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_SEAL_H
