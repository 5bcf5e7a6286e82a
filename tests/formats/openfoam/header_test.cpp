// SPDX-License-Identifier: Apache-2.0
//
// The FoamFile header: peeked at, and judged before a file is read.

#include <gtest/gtest.h>
#include <string>

#include "formats/openfoam/read_poly_mesh.h"
#include "tests/formats/openfoam/FolderTest.h"

namespace velto::openfoam {
namespace {

using Header = FolderTest;

constexpr const char* kFull =
    "/*---*- C++ -*---*\\\n| \\\\ / |\n\\*---*/\nFoamFile\n{\n    version     2.0;\n    format      binary;\n    class       labelList;\n    arch        \"LSB;label=32;scalar=64\";\n    note        \"nPoints:882  nCells:400  nFaces:1640  nInternalFaces:760\";\n    location    \"constant/polyMesh\";\n    object      owner;\n}\n// * //\n\n";

TEST_F(Header, IsPeekedAt) {
  for (const bool gzip : {false, true}) {
    write("file", kFull, gzip);
    const auto header = peekHeader(path(gzip ? "file.gz" : "file"));
    ASSERT_TRUE(header.has_value());
    EXPECT_EQ(header->version, "2.0");
    EXPECT_EQ(header->format, "binary");
    EXPECT_EQ(header->objectClass, "labelList");
    EXPECT_EQ(header->arch, "LSB;label=32;scalar=64");
    EXPECT_EQ(header->note, "nPoints:882  nCells:400  nFaces:1640  nInternalFaces:760");
    EXPECT_EQ(header->location, "constant/polyMesh");
    EXPECT_EQ(header->object, "owner");
  }
}

TEST_F(Header, IsPeekedAtWithoutEntries) {
  write("file", "FoamFile{}");
  const auto header = peekHeader(path("file"));
  ASSERT_TRUE(header.has_value());
  EXPECT_EQ(header->objectClass, "");
}

TEST_F(Header, IsNotFoundWhereThereIsNone) {
  EXPECT_FALSE(peekHeader(path("absent")).has_value());
  EXPECT_FALSE(peekHeader(folder_).has_value());
  for (const char* const content :
       {"", "x", "\x1f\x8b", "\x1f\x8b\x08garbage", "FoamFile", "FoamFile {", "FoamFiles {}",
        "foamFile {}", "/* FoamFile {}", "FoamFile { format ascii }", "FoamFile { #include \"x\" }",
        "6(1 2 3 4 5 6)", "{ FoamFile {} }"}) {
    write("file", content);
    EXPECT_FALSE(peekHeader(path("file")).has_value()) << content;
  }
}

TEST_F(Header, IsPeekedAtWithinTheFirstSixteenKibibytesOnly) {
  write("file", "//" + std::string(16384, '*') + "\nFoamFile {}");
  EXPECT_FALSE(peekHeader(path("file")).has_value());
  write("file", "//" + std::string(8192, '*') + "\nFoamFile {}\n" + std::string(100000, '7'));
  EXPECT_TRUE(peekHeader(path("file")).has_value());
}

TEST_F(Header, WithoutAFormatMeansText) {
  write("owner", "FoamFile { class labelList; }\n6{0}");
  EXPECT_EQ(read().owner.size(), 6U);
}

TEST_F(Header, GivesTheNoteOfOwnerOrElseOfNeighbour) {
  write("neighbour", "FoamFile { class labelList; note \"nCells: 7 nInternalFaces:9\"; }\n0()");
  PolyMesh mesh = read();
  ASSERT_TRUE(mesh.note.has_value());
  EXPECT_EQ(mesh.note->cells, 7U);
  EXPECT_EQ(mesh.note->internalFaces, 9U);
  EXPECT_FALSE(mesh.note->nodes.has_value());
  EXPECT_FALSE(mesh.note->faces.has_value());
  write(
      "owner",
      "FoamFile { class labelList; note \"nPoints: 8 nCells: 1 nFaces: 6 nInternalFaces: 0\"; }\n6{0}");
  mesh = read();
  EXPECT_EQ(mesh.note->nodes, 8U);
  EXPECT_EQ(mesh.note->cells, 1U);
  EXPECT_EQ(mesh.note->faces, 6U);
  EXPECT_EQ(mesh.note->internalFaces, 0U);
}

TEST_F(Header, MayHaveAnOddNote) {
  for (const char* const note :
       {"", "a mesh", "nPoints:", "nPoints 5", "nCells:x", "nFaces:99999999999999999999999"}) {
    write("owner", std::string("FoamFile { class labelList; note \"") + note + "\"; }\n6{0}");
    EXPECT_FALSE(read().note.has_value()) << note;
  }
}

struct BadHeader {
  const char* name;
  const char* file;
  const char* text;
  const char* message;
};

class BadHeaders : public FolderTest, public ::testing::WithParamInterface<BadHeader> {};

TEST_P(BadHeaders, AreRefused) {
  write(GetParam().file, GetParam().text);
  EXPECT_EQ(error(), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Header, BadHeaders,
    ::testing::Values(
        BadHeader{"Empty", "points", "",
                  "points: line 1: expected the header FoamFile, found the end of the file"},
        BadHeader{"None", "points", "// a list\n8((0 0 0))",
                  "points: line 2: expected the header FoamFile, found \"8\""},
        BadHeader{"NoBrace", "points", "FoamFile format ascii;",
                  "points: line 1: expected \"{\" behind FoamFile, found \"format\""},
        BadHeader{"Open", "points", "FoamFile {\nformat ascii;\nclass vectorField;\n8((0 0 0)",
                  "points: line 4: expected \";\" in the entry 8((0, found \")\""},
        BadHeader{"OpenAtTheEnd", "points", "FoamFile {\nformat ascii;\n",
                  "points: line 3: expected a keyword or \"}\", found the end of the file"},
        BadHeader{"NoClass", "faces", "\nFoamFile { format ascii; }\n0()",
                  "faces: line 2: expected the entry class in FoamFile, found none"},
        BadHeader{"OddFormat", "owner", "FoamFile { class labelList;\nformat text; }",
                  "owner: line 2: expected the format ascii or binary, found \"text\""},
        BadHeader{
            "Collated", "owner", "FoamFile { format binary;\nclass decomposedBlockData; }",
            "owner: line 2: expected a file of one piece (collated files are not read), found \"decomposedBlockData\""},
        BadHeader{
            "CollatedBoundary", "boundary", "FoamFile { class decomposedBlockData; }",
            "boundary: line 1: expected a file of one piece (collated files are not read), found \"decomposedBlockData\""}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace velto::openfoam
