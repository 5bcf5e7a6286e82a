// SPDX-License-Identifier: Apache-2.0
//
// OrvFileIO: the part of a provider or consumer that knows of files.

#ifndef VELTO_DATA_ACCESS_ORV_FILE_IO_H
#define VELTO_DATA_ACCESS_ORV_FILE_IO_H

#include <string>

#include "data_access/OrvTypes.h"

namespace velto {

/// File names and versions of a file-backed object, and its destruction: what the factory made is
/// deleted through this class.
class OrvFileIO {
 public:
  OrvFileIO() = default;
  OrvFileIO(const OrvFileIO&) = delete;
  OrvFileIO& operator=(const OrvFileIO&) = delete;
  virtual ~OrvFileIO() = default;

  /// Names the file that writing of `dataClass` will go to. On a consumer this comes before every
  /// other call but setApplicationName.
  virtual void setFileName(const std::string& path, OrvDataClass dataClass) = 0;

  /// Version of the format that the file of `dataClass` was written in, as major.minor.patch; left
  /// alone if there is no such file. OrvVersion tells the version that the library supports.
  virtual void getFileVersion(OrvDataClass dataClass, int& major, int& minor, int& patch) = 0;
};

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_ORV_FILE_IO_H
