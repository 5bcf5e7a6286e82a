// SPDX-License-Identifier: Apache-2.0
//
// The files of a folder: which are found, gzip streams, lengths that must agree, progress.

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "formats/openfoam/read_poly_mesh.h"
#include "testing/PolyMeshWriter.h"
#include "tests/formats/openfoam/FolderTest.h"

namespace velto::openfoam {
namespace {

class Files : public FolderTest {
 protected:
  std::string content(const std::string& name) const {
    std::ifstream in(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

  // Replaces owner by a gzipped one and returns its bytes.
  std::string gzippedOwner() const {
    write("owner", textHeader("labelList") + "6{0}", true);
    return content("owner.gz");
  }
};

TEST_F(Files, AreNamedInTheMesh) {
  write("owner", textHeader("labelList") + "6{0}", true);
  writeList("cellZones", "0()");
  const PolyMesh mesh = read();
  EXPECT_EQ(mesh.folder, folder_);
  EXPECT_EQ(mesh.pointsFile, path("points"));
  EXPECT_EQ(mesh.facesFile, path("faces"));
  EXPECT_EQ(mesh.ownerFile, path("owner.gz"));
  EXPECT_EQ(mesh.neighbourFile, path("neighbour"));
  EXPECT_EQ(mesh.boundaryFile, path("boundary"));
  EXPECT_EQ(mesh.cellZonesFile, path("cellZones"));
  EXPECT_EQ(mesh.faceZonesFile, "");
}

TEST_F(Files, ThatAreMissingAreNamed) {
  remove("boundary");
  EXPECT_EQ(
      error(),
      "boundary: no such file (nor boundary.gz); a polyMesh folder holds points, faces, owner, neighbour and boundary");
  remove("neighbour");
  EXPECT_EQ(
      error(),
      "neighbour: no such file (nor neighbour.gz); a polyMesh folder holds points, faces, owner, neighbour and boundary");
  remove("owner");
  EXPECT_EQ(
      error(),
      "owner: no such file (nor owner.gz); a polyMesh folder holds points, faces, owner, neighbour and boundary");
  remove("faces");
  EXPECT_EQ(
      error(),
      "faces: no such file (nor faces.gz); a polyMesh folder holds points, faces, owner, neighbour and boundary");
  remove("points");
  EXPECT_EQ(
      error(),
      "points: no such file (nor points.gz); a polyMesh folder holds points, faces, owner, neighbour and boundary");
  std::filesystem::remove(folder_);
  EXPECT_EQ(
      error(),
      "points: no such file (nor points.gz); a polyMesh folder holds points, faces, owner, neighbour and boundary");
}

TEST_F(Files, ThatAreFoldersAreRefused) {
  remove("owner");
  std::filesystem::create_directory(path("owner"));
  EXPECT_EQ(error(), "owner: expected a file, found a folder or a device");
}

TEST_F(Files, ArePreferredPlain) {
  const std::string packed = gzippedOwner();
  writeList("owner", "6{4}");
  std::ofstream(path("owner.gz"), std::ios::binary) << packed;
  const PolyMesh mesh = read();
  EXPECT_EQ(mesh.ownerFile, path("owner"));
  EXPECT_EQ(mesh.owner.front(), 5U);
}

TEST_F(Files, AreToldToBeGzippedByTheirContent) {
  const std::string packed = gzippedOwner();
  remove("owner.gz");
  write("owner", packed);
  EXPECT_EQ(read().owner.size(), 6U);
}

TEST_F(Files, MayBeGzippedInSeveralMembersAndPadded) {
  write("owner", textHeader("labelList") + "6(0 0 ", true);
  const std::string first = content("owner.gz");
  write("owner", "0 0 0 0)", true);
  const std::string second = content("owner.gz");
  remove("owner.gz");
  write("owner", first + second + std::string(512, '\0'));
  EXPECT_EQ(read().owner.size(), 6U);
}

TEST_F(Files, AreRefusedWhereTheGzipStreamIsCut) {
  const std::string packed = gzippedOwner();
  remove("owner.gz");
  write("owner", packed.substr(0, packed.size() - 1));
  EXPECT_EQ(error(), "owner: byte 48: expected more gzip data, found the end of the file");
}

TEST_F(Files, AreRefusedWhereTheGzipStreamIsCorrupt) {
  std::string packed = gzippedOwner();
  remove("owner.gz");
  packed[packed.size() - 5] = static_cast<char>(packed[packed.size() - 5] ^ 1);
  write("owner", packed);
  EXPECT_EQ(error(), "owner: byte 48: expected sound gzip data, found \"incorrect data check\"");
}

TEST_F(Files, AreRefusedForWhatFollowsTheGzipStream) {
  const std::string packed = gzippedOwner();
  remove("owner.gz");
  write("owner", packed + "more");
  EXPECT_EQ(error(), "owner: byte 48: expected sound gzip data, found \"incorrect header check\"");
}

TEST_F(Files, AreRefusedWhereOwnerIsNotAsLongAsTheFaces) {
  writeList("owner", "5(0 0 0 0 0)");
  EXPECT_EQ(error(), "owner: expected 6 cell labels, one for each face of faces, found 5");
  writeList("owner", "7(0 0 0 0 0 0 0)");
  EXPECT_EQ(error(), "owner: expected 6 cell labels, one for each face of faces, found 7");
}

TEST_F(Files, AreRefusedWhereNeighbourIsLongerThanTheFaces) {
  writeList("neighbour", "7(0 0 0 0 0 0 0)");
  EXPECT_EQ(error(),
            "neighbour: expected at most 6 cell labels, one for each face of faces, found 7");
  writeList("neighbour", "6{-1}");
  EXPECT_EQ(read().neighbour, std::vector<std::uint64_t>(6, 0));
}

TEST_F(Files, TellTheirProgressUpToTheSumOfTheirSizes) {
  testing::writePolyMesh(folder_, testing::makeBox(20, 20, 20), {});
  std::uint64_t size = 0;
  for (const char* const name : {"points", "faces", "owner", "neighbour", "boundary"}) {
    size += std::filesystem::file_size(path(name));
  }
  std::vector<std::uint64_t> calls = {0};
  readPolyMesh(folder_, [&](std::uint64_t done, std::uint64_t total) {
    EXPECT_EQ(total, size);
    EXPECT_GT(done, calls.back());
    calls.push_back(done);
  });
  EXPECT_EQ(calls.back(), size);
  EXPECT_GT(calls.size(), 6U);
}

TEST_F(Files, AreLeftWhereTheProgressThrows) {
  const auto stop = [](std::uint64_t, std::uint64_t) { throw std::logic_error("stop"); };
  EXPECT_THROW(readPolyMesh(folder_, stop), std::logic_error);
}

}  // namespace
}  // namespace velto::openfoam
