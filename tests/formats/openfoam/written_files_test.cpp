// SPDX-License-Identifier: Apache-2.0
//
// The files of written meshes byte by byte, and the classes that write them.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "embedded/base/CaseError.h"
#include "formats/openfoam/FolderSwap.h"
#include "formats/openfoam/OutputFile.h"
#include "testing/PolyMeshWriter.h"
#include "testing/TempFolder.h"
#include "testing/cases.h"
#include "tests/formats/openfoam/written_mesh.h"

namespace velto::openfoam {
namespace {

using testing::TempFolder;

/// What the CaseError says that `run` ends with, without the folder's path.
std::string errorOf(const TempFolder& temp, const std::function<void()>& run) {
  try {
    run();
  } catch (const base::CaseError& error) {
    std::string text = error.what();
    for (std::size_t at = text.find(temp.path()); at != std::string::npos;
         at = text.find(temp.path())) {
      text.replace(at, temp.path().size(), "TEMP");
    }
    return text;
  }
  return "no error";
}

// --- Whole files
// ----------------------------------------------------------------------------------

TEST(WrittenFiles, HaveHeadersInText) {
  const TempFolder temp;
  writeInto(*testing::cases::twoBodies(), temp.path("polyMesh"), {"Text", 1, 0});
  EXPECT_EQ(
      describeHeaders(temp.path("polyMesh")),
      "boundary: version 2.0, format ascii, class polyBoundaryMesh, arch '', location 'constant/polyMesh', object boundary, note ''\ncellZones: version 2.0, format ascii, class regIOobject, arch '', location 'constant/polyMesh', object cellZones, note ''\nfaceZones: version 2.0, format ascii, class regIOobject, arch '', location 'constant/polyMesh', object faceZones, note ''\nfaces: version 2.0, format ascii, class faceList, arch '', location 'constant/polyMesh', object faces, note ''\nneighbour: version 2.0, format ascii, class labelList, arch '', location 'constant/polyMesh', object neighbour, note 'nPoints:12  nCells:2  nFaces:11  nInternalFaces:1'\nowner: version 2.0, format ascii, class labelList, arch '', location 'constant/polyMesh', object owner, note 'nPoints:12  nCells:2  nFaces:11  nInternalFaces:1'\npoints: version 2.0, format ascii, class vectorField, arch '', location 'constant/polyMesh', object points, note ''\n");
}

TEST(WrittenFiles, HaveHeadersInBinaryAndGzipped) {
  const TempFolder temp;
  writeInto(*testing::cases::twoBodies(), temp.path("polyMesh"), {"BinaryGzipped", 0, 6});
  EXPECT_EQ(
      describeHeaders(temp.path("polyMesh")),
      "boundary: version 2.0, format ascii, class polyBoundaryMesh, arch '', location 'constant/polyMesh', object boundary, note ''\ncellZones.gz: version 2.0, format binary, class regIOobject, arch 'LSB;label=32;scalar=64', location 'constant/polyMesh', object cellZones, note ''\nfaceZones.gz: version 2.0, format binary, class regIOobject, arch 'LSB;label=32;scalar=64', location 'constant/polyMesh', object faceZones, note ''\nfaces.gz: version 2.0, format binary, class faceCompactList, arch 'LSB;label=32;scalar=64', location 'constant/polyMesh', object faces, note ''\nneighbour.gz: version 2.0, format binary, class labelList, arch 'LSB;label=32;scalar=64', location 'constant/polyMesh', object neighbour, note 'nPoints:12  nCells:2  nFaces:11  nInternalFaces:1'\nowner.gz: version 2.0, format binary, class labelList, arch 'LSB;label=32;scalar=64', location 'constant/polyMesh', object owner, note 'nPoints:12  nCells:2  nFaces:11  nInternalFaces:1'\npoints.gz: version 2.0, format binary, class vectorField, arch 'LSB;label=32;scalar=64', location 'constant/polyMesh', object points, note ''\n");
}

TEST(WrittenFiles, AreTextAsPeopleWriteIt) {
  const TempFolder temp;
  writeInto(*testing::cases::twoBodies(), temp.path("polyMesh"), {"Text", 1, 0});
  const auto behindHeader = [&](const std::string& name) {
    const std::string content = contentOf(temp.path("polyMesh/" + name));
    return content.substr(content.find("//\n\n") + 4);
  };
  EXPECT_EQ(
      behindHeader("neighbour"),
      "1\n(\n1\n)\n\n// ************************************************************************* //\n");
  EXPECT_EQ(
      behindHeader("faces"),
      "11\n(\n4(1 4 10 7)\n4(0 6 9 3)\n4(0 1 7 6)\n4(3 9 10 4)\n4(0 3 4 1)\n4(6 7 10 9)\n4(2 5 11 8)\n4(1 2 8 7)\n4(4 10 11 5)\n4(1 4 5 2)\n4(7 8 11 10)\n)\n\n// ************************************************************************* //\n");
  EXPECT_EQ(
      behindHeader("boundary"),
      "2\n(\n    fluid_walls\n    {\n        type            wall;\n        nFaces          5;\n        startFace       1;\n    }\n    solid_walls\n    {\n        type            wall;\n        nFaces          5;\n        startFace       6;\n    }\n)\n\n// ************************************************************************* //\n");
  EXPECT_EQ(
      behindHeader("cellZones"),
      "2\n(\nfluid\n{\n    type cellZone;\n    cellLabels      List<label> 1\n(\n0\n);\n}\nsolid\n{\n    type cellZone;\n    cellLabels      List<label> 1\n(\n1\n);\n}\n)\n\n// ************************************************************************* //\n");
  EXPECT_EQ(
      behindHeader("faceZones"),
      "1\n(\nbetween\n{\n    type faceZone;\n    faceLabels      List<label> 1\n(\n0\n);\n    flipMap         List<bool> 1\n(\n0\n);\n}\n)\n\n// ************************************************************************* //\n");
}

TEST(WrittenFiles, HaveListsInBinary) {
  const TempFolder temp;
  writeInto(*testing::cases::oneHex(), temp.path("polyMesh"));
  const auto behindHeader = [&](const std::string& name) {
    const std::string content = contentOf(temp.path("polyMesh/" + name));
    const std::size_t begin = content.find("//\n\n") + 4;
    return content.substr(begin, content.find("\n\n//", begin) - begin);
  };
  EXPECT_EQ(behindHeader("owner"), "6\n(" + std::string(24, '\0') + ")");
  EXPECT_EQ(behindHeader("neighbour"), "0\n");
  EXPECT_EQ(behindHeader("points").size(), 3U + 8 * 24 + 1);
  EXPECT_EQ(behindHeader("faces").substr(0, 11), std::string("7\n(\0\0\0\0\4\0\0\0", 11));
}

// --- OutputFile
// -----------------------------------------------------------------------------------

TEST(OutputFile, WritesNumbersSoThatTheyReadBackEqual) {
  const TempFolder temp;
  for (const unsigned level : {0U, 9U}) {
    OutputFile file(temp.path("file"), "file", level);
    for (const double value : {0.0, -0.0, 0.1, 1.0 / 3, 1e300, 5e-324, 123456789.0}) {
      file.real(value);
      file.put(' ');
    }
    file.label(std::numeric_limits<std::uint64_t>::max());
    file.text(" end\n");
    file.close();
    EXPECT_EQ(contentOf(temp.path("file")),
              "0 -0 0.1 0.3333333333333333 1e+300 5e-324 123456789 18446744073709551615 end\n");
  }
}

TEST(OutputFile, WritesMoreThanItsBufferHolds) {
  const TempFolder temp;
  std::string expected;
  for (const unsigned level : {0U, 1U}) {
    OutputFile file(temp.path("file"), "file", level);
    expected.clear();
    for (std::uint64_t i = 0; i < 200000; ++i) {
      file.label(i);
      file.put('\n');
      expected += std::to_string(i) + "\n";
    }
    const std::string block(1000000, 'x');
    file.text(block);
    file.close();
    EXPECT_TRUE(contentOf(temp.path("file")) == expected + block);
  }
}

TEST(OutputFile, SaysThatTheDiskIsFull) {
  if (!std::filesystem::exists("/dev/full")) {
    GTEST_SKIP() << "no /dev/full here";
  }
  const TempFolder temp;
  const auto write = [](unsigned level, std::size_t bytes) {
    OutputFile file("/dev/full", "mesh/points", level);
    file.text(std::string(bytes, 'x'));
    file.close();
  };
  EXPECT_EQ(errorOf(temp, [&] { write(0, 10); }),
            "mesh/points: cannot be written at byte 0: No space left on device");
  EXPECT_EQ(errorOf(temp, [&] { write(0, 1000000); }),
            "mesh/points: cannot be written at byte 0: No space left on device");
  EXPECT_EQ(errorOf(temp, [&] { write(6, 10); }),
            "mesh/points: cannot be written at byte 0: No space left on device");
}

TEST(OutputFile, SaysThatAFileCannotBeMade) {
  const TempFolder temp;
  EXPECT_EQ(errorOf(temp, [&] { OutputFile(temp.path("absent/file"), "mesh/points", 0); }),
            "mesh/points: cannot be made: No such file or directory");
}

// --- FolderSwap
// -----------------------------------------------------------------------------------

TEST(FolderSwap, GivesTheFolderItsNameAtTheEnd) {
  const TempFolder temp;
  testing::writePolyMesh(temp.path("case/constant/polyMesh"), testing::makeBox(1, 1, 1));
  testing::writeTextFile(temp.path("case/constant/other"), "kept\n");
  FolderSwap swap;
  const std::string written = swap.begin(temp.path("case/constant/polyMesh"));
  testing::writeTextFile(written + "/new", "new\n");
  EXPECT_EQ(namesIn(temp.path("case/constant/polyMesh")), "boundary faces neighbour owner points");
  swap.commit();
  EXPECT_EQ(namesIn(temp.path("case/constant/polyMesh")), "new");
  EXPECT_EQ(namesIn(temp.path("case/constant")), "other polyMesh");
}

TEST(FolderSwap, LeavesNothingWithoutACommit) {
  const TempFolder temp;
  testing::writeTextFile(temp.path("kept"), "kept\n");
  {
    FolderSwap swap;
    testing::writeTextFile(swap.begin(temp.path("case/constant/polyMesh")) + "/new", "new\n");
    swap.begin(temp.path("other/polyMesh"));
  }
  EXPECT_EQ(namesIn(temp.path()), "kept");
}

TEST(FolderSwap, PutsAllBackIfOneCannotHaveItsName) {
  const TempFolder temp;
  testing::writePolyMesh(temp.path("a/polyMesh"), testing::makeBox(1, 1, 1));
  testing::writePolyMesh(temp.path("b/polyMesh"), testing::makeBox(1, 1, 1));
  {
    FolderSwap swap;
    testing::writeTextFile(swap.begin(temp.path("a/polyMesh")) + "/new", "new\n");
    const std::string second = swap.begin(temp.path("b/polyMesh"));
    std::filesystem::remove(second);
    EXPECT_EQ(errorOf(temp, [&] { swap.commit(); }),
              "TEMP/b/polyMesh: cannot take its name: No such file or directory");
  }
  EXPECT_EQ(namesIn(temp.path("a")), "polyMesh");
  EXPECT_EQ(namesIn(temp.path("b")), "polyMesh");
  EXPECT_EQ(namesIn(temp.path("a/polyMesh")), "boundary faces neighbour owner points");
  EXPECT_EQ(namesIn(temp.path("b/polyMesh")), "boundary faces neighbour owner points");
}

TEST(FolderSwap, FollowsALink) {
  const TempFolder temp;
  testing::writePolyMesh(temp.path("far/polyMesh"), testing::makeBox(1, 1, 1));
  std::filesystem::create_directory_symlink(temp.path("far/polyMesh"), temp.path("polyMesh"));
  FolderSwap swap;
  testing::writeTextFile(swap.begin(temp.path("polyMesh")) + "/new", "new\n");
  swap.commit();
  EXPECT_TRUE(std::filesystem::is_symlink(temp.path("polyMesh")));
  EXPECT_EQ(namesIn(temp.path("far")), "polyMesh");
  EXPECT_EQ(namesIn(temp.path("far/polyMesh")), "new");
}

TEST(FolderSwap, SaysWhyAFolderCannotBeMade) {
  const TempFolder temp;
  testing::writeTextFile(temp.path("file"), "x\n");
  FolderSwap swap;
  EXPECT_EQ(errorOf(temp, [&] { swap.begin(temp.path("file/constant/polyMesh")); }),
            "TEMP/file/constant: cannot be made: Not a directory");
  EXPECT_EQ(errorOf(temp, [&] { swap.begin(temp.path("file")); }), "TEMP/file: is no folder");
}

}  // namespace
}  // namespace velto::openfoam
