// SPDX-License-Identifier: Apache-2.0
//
// NewFile: the bytes of a file that HDF5 makes, on a disk that may refuse them.

#ifndef VELTO_EMBEDDED_STORE_NEW_FILE_H
#define VELTO_EMBEDDED_STORE_NEW_FILE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "embedded/base/RawFile.h"
#include "embedded/store/Hdf5.h"

namespace velto::store {

/// HDF5 holds structure back until it closes things, and what it could not write then makes the
/// program crash at its end. So it is told of refused values alone, which it writes at once; what
/// else was refused comes up in requireWritten(). After the first refusal nothing more is written.
class NewFile {
 public:
  /// Makes the file; throws CaseError if it cannot be made.
  NewFile(const std::string& file, const std::string& shown)
      : raw_(file, base::RawFile::Mode::create, shown) {}

  /// Lets nothing more be written: the file is going to be removed.
  void drop() { isDropped_ = true; }

  /// Throws CaseError if some bytes did not go where they belong.
  void requireWritten() const;

  /// Reads zeros where nothing was written yet.
  void read(std::uint64_t offset, void* bytes, std::size_t size) const;

  /// False if the disk refused.
  bool write(std::uint64_t offset, const void* bytes, std::size_t size);
  bool resize(std::uint64_t size);

  /// Why the disk refused, in the system's words.
  std::string reason() const;

 private:
  template <class Change>
  bool change(const Change& change);

  friend void writeInto(std::int64_t accessList, const std::shared_ptr<NewFile>& file);

  Handle driver_;  ///< HDF5 uses it until the file is closed, and keeps it not quite as long.
  base::RawFile raw_;
  bool isDropped_ = false;
  std::string failure_;
};

/// Lets what is created with a list of access properties be `file`, which has to be there until
/// then and is kept for as long as HDF5 needs it.
void writeInto(std::int64_t accessList, const std::shared_ptr<NewFile>& file);

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_NEW_FILE_H
