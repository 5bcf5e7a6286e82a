// SPDX-License-Identifier: Apache-2.0
//
// Folders as inputs of fuzz targets: there and back, and no way out.

#include "fuzz/folder_text.h"

#include <gtest/gtest.h>
#include <string>

#include "testing/TempFolder.h"

namespace velto::fuzzing {
namespace {

/// What stands in a folder after it was written from an input.
std::string written(const std::string& input) {
  const velto::testing::TempFolder folder;
  writeFolder(input, folder.path("in/case"));
  return readFolder(folder.path("in"));
}

TEST(FolderText, BringsFilesBackAsTheyWere) {
  const std::string zero(1, '\0');
  EXPECT_EQ(written("@@ b\nx@@ y\n\n@@ a/c.gz\n" + zero + "\xff\n"),
            "@@ case/a/c.gz\n" + zero + "\xff\n@@ case/b\nx@@ y\n\n");
}

TEST(FolderText, MakesFilesOfInputsThatEndAnywhere) {
  EXPECT_EQ(written(""), "");
  EXPECT_EQ(written("no path\n"), "");
  EXPECT_EQ(written("@@ "), "");
  EXPECT_EQ(written("@@ a"), "@@ case/a\n\n");
  EXPECT_EQ(written("@@ a\n@@ b\n"), "@@ case/a\n\n@@ case/b\n\n");
}

TEST(FolderText, LeavesOutWhatLeadsOutOfTheFolder) {
  EXPECT_EQ(written("@@ ../a\n1\n@@ /tmp/velto-folder-text\n2\n@@ b/../../c\n3\n@@ d e\n4\n"), "");
}

TEST(FolderText, ReplacesWhatWasThere) {
  const velto::testing::TempFolder folder;
  writeFolder("@@ a\n1\n", folder.path());
  writeFolder("@@ b\n2\n@@ b/c\n3\n", folder.path());
  EXPECT_EQ(readFolder(folder.path()), "@@ b\n2\n");
}

}  // namespace
}  // namespace velto::fuzzing
