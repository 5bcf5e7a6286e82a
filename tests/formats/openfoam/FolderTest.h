// SPDX-License-Identifier: Apache-2.0
//
// A polyMesh folder for one test: one cube in text, of which a test replaces what it is about.

#ifndef VELTO_TESTS_FORMATS_OPENFOAM_FOLDER_TEST_H
#define VELTO_TESTS_FORMATS_OPENFOAM_FOLDER_TEST_H

#include <cstdint>
#include <gtest/gtest.h>
#include <initializer_list>
#include <string>

#include "formats/openfoam/PolyMesh.h"
#include "testing/TempFolder.h"

namespace velto::openfoam {

/// A header of one line, so that what follows it begins on line 2.
std::string textHeader(const std::string& objectClass);
/// The same of a binary file. `arch` is left out where empty.
std::string binaryHeader(const std::string& objectClass, const std::string& arch);

/// The bytes of numbers, least significant first.
std::string bytes32(std::initializer_list<std::int32_t> labels);
std::string bytes64(std::initializer_list<std::int64_t> labels);
std::string bytesOf(std::initializer_list<float> values);
std::string bytesOf(std::initializer_list<double> values);

/// Everything a mesh holds on one line a member, to compare two of them; files left out.
std::string describe(const PolyMesh& mesh);

/// Gives each test a folder of its own with a sound mesh: one cube, one patch. All lists stand on
/// line 2 of their files.
class FolderTest : public ::testing::Test {
 public:
  FolderTest();
  ~FolderTest() override;

 protected:
  std::string path(const std::string& name) const { return folder_ + "/" + name; }
  void write(const std::string& name, const std::string& content, bool gzip = false) const;
  void remove(const std::string& name) const;

  /// Writes a text file with its usual header and `list` behind it.
  void writeList(const std::string& name, const std::string& list) const;

  PolyMesh read() const;

  /// What the ReadError says that reading ends with, without the folder's path; "no error" if it
  /// does not end with one.
  std::string error() const;

  const testing::TempFolder temp_;
  const std::string folder_;
};

}  // namespace velto::openfoam

#endif  // VELTO_TESTS_FORMATS_OPENFOAM_FOLDER_TEST_H
