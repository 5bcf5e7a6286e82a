// SPDX-License-Identifier: Apache-2.0
//
// Which folders a name stands for.

#include "formats/openfoam/locate.h"

#include <gtest/gtest.h>

#include "embedded/base/CaseError.h"
#include "testing/PolyMeshWriter.h"
#include "testing/TempFolder.h"

namespace velto::openfoam {
namespace {

using testing::makeBox;
using testing::writePolyMesh;
using testing::writeTextFile;

std::string errorOf(const std::string& path) {
  try {
    meshFolders(path);
  } catch (const base::CaseError& error) {
    return error.what();
  }
  return "no error";
}

struct Locate : ::testing::Test {
  Locate() { writePolyMesh(temp.path("case/constant/polyMesh"), makeBox(1, 1, 1)); }

  void expectMesh(const std::string& name) const {
    const std::string path = temp.path(name);
    EXPECT_TRUE(holdsMesh(path)) << name;
    const std::vector<MeshFolder> folders = meshFolders(path);
    ASSERT_EQ(folders.size(), 1U) << name;
    EXPECT_EQ(folders.front().path, temp.path("case/constant/polyMesh")) << name;
    EXPECT_EQ(folders.front().partition, -1) << name;
  }

  testing::TempFolder temp;
};

TEST_F(Locate, FindsTheMeshByItsFolderItsFilesItsConstantFolderAndItsCase) {
  expectMesh("case/constant/polyMesh");
  expectMesh("case/constant/polyMesh/points");
  expectMesh("case/constant/polyMesh/boundary");
  expectMesh("case/constant");
  expectMesh("case");
}

TEST_F(Locate, FindsAGzippedFile) {
  testing::WriteOptions options;
  options.gzip = true;
  writePolyMesh(temp.path("packed"), makeBox(1, 1, 1), options);
  EXPECT_TRUE(holdsMesh(temp.path("packed")));
  EXPECT_TRUE(holdsMesh(temp.path("packed/faces.gz")));
}

TEST_F(Locate, JudgesByContent) {
  writeTextFile(temp.path("case/constant/polyMesh/points"), "x y z\n");
  EXPECT_FALSE(holdsMesh(temp.path("case/constant/polyMesh/points")));
  EXPECT_TRUE(holdsMesh(temp.path("case/constant/polyMesh"))) << "the other files tell";
}

TEST_F(Locate, IgnoresFilesOfACaseThatAreNoMesh) {
  writeTextFile(temp.path("case/controlDict"),
                "FoamFile\n{\n    format ascii;\n    class dictionary;\n}\n");
  EXPECT_FALSE(holdsMesh(temp.path("case/controlDict")));
}

TEST_F(Locate, IgnoresEmptyFoldersAndMissingNames) {
  EXPECT_FALSE(holdsMesh(temp.path()));
  EXPECT_FALSE(holdsMesh(temp.path("nothing")));
  EXPECT_EQ(errorOf(temp.path("nothing")),
            temp.path("nothing") + ": expected an OpenFOAM mesh, found none");
}

TEST_F(Locate, TakesProcessorFoldersAsPartitionsInTheOrderOfTheirNumbers) {
  for (const char* name : {"processor0", "processor2", "processor10"}) {
    writePolyMesh(temp.path(std::string("cut/") + name + "/constant/polyMesh"), makeBox(1, 1, 1));
  }
  const std::vector<MeshFolder> folders = meshFolders(temp.path("cut"));
  ASSERT_EQ(folders.size(), 3U);
  EXPECT_EQ(folders[0].partition, 0);
  EXPECT_EQ(folders[1].partition, 2);
  EXPECT_EQ(folders[2].partition, 10);
  EXPECT_EQ(folders[2].path, temp.path("cut/processor10/constant/polyMesh"));
}

TEST_F(Locate, PrefersTheWholeMeshToItsPartitions) {
  writePolyMesh(temp.path("case/processor0/constant/polyMesh"), makeBox(1, 1, 1));
  expectMesh("case");
}

TEST_F(Locate, RefusesAProcessorFolderWithoutAMesh) {
  writePolyMesh(temp.path("cut/processor0/constant/polyMesh"), makeBox(1, 1, 1));
  std::filesystem::create_directories(temp.path("cut/processor1"));
  EXPECT_EQ(
      errorOf(temp.path("cut")),
      temp.path("cut/processor1") + ": expected constant/polyMesh with a mesh in it, found none");
}

TEST_F(Locate, RefusesACollatedCase) {
  std::filesystem::create_directories(temp.path("collated/processors4/constant/polyMesh"));
  EXPECT_TRUE(holdsMesh(temp.path("collated")));
  EXPECT_EQ(
      errorOf(temp.path("collated")),
      temp.path("collated/processors4") +
          ": a collated case cannot be read; expected processor0, processor1, ... as decomposePar -fileHandler uncollated writes them");
}

TEST_F(Locate, AsksForOneOfSeveralRegions) {
  writePolyMesh(temp.path("regions/constant/solid/polyMesh"), makeBox(1, 1, 1));
  writePolyMesh(temp.path("regions/constant/air/polyMesh"), makeBox(1, 1, 1));
  EXPECT_EQ(errorOf(temp.path("regions")),
            temp.path("regions") + ": holds the regions air, solid; name one of them, such as " +
                temp.path("regions/constant/air"));
  EXPECT_TRUE(holdsMesh(temp.path("regions/constant/air")));
}

}  // namespace
}  // namespace velto::openfoam
