// SPDX-License-Identifier: Apache-2.0
//
// OrvVersion: the version of the case format that the linked data-access library supports.

#ifndef VELTO_DATA_ACCESS_ORV_VERSION_H
#define VELTO_DATA_ACCESS_ORV_VERSION_H

namespace velto {

/// A file of a higher major version cannot be read; one of a higher minor or patch version can, and
/// may hold things that the library does not know. Defined by the data-access library.
class OrvVersion {
 public:
  /// @name The version that is supported
  /// @{

  /// One of its three numbers, in the order of OrvFileIO::getFileVersion.
  static unsigned int getMajor();
  static unsigned int getMinor();
  static unsigned int getPatch();

  /// @}
};

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_ORV_VERSION_H
