// SPDX-License-Identifier: Apache-2.0
//
// Binary lists: their widths, and what is refused.

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "formats/openfoam/read_poly_mesh.h"
#include "tests/formats/openfoam/FolderTest.h"

namespace velto::openfoam {
namespace {

constexpr const char* kArch = "LSB;label=32;scalar=64";
constexpr const char* kArch64 = "LSB;label=64;scalar=32";

class BinaryLists : public FolderTest {
 protected:
  void writeOwner(const std::string& arch, const std::string& list) const {
    write("owner", binaryHeader("labelList", arch) + list);
  }
  void writeFaces(const std::string& arch, const std::string& lists) const {
    write("faces", binaryHeader("faceCompactList", arch) + lists);
  }
};

TEST_F(BinaryLists, KeepLabelsOutOfRange) {
  const std::vector<std::uint64_t> expected = {
      0, std::numeric_limits<std::uint64_t>::max(), 1, 2147483648U, 3, 41};
  writeOwner(kArch, "6\n(" + bytes32({-1, -2, 0, 2147483647, 2, 40}) + ")");
  EXPECT_EQ(read().owner, expected);
  writeOwner(kArch64, "6\n(" + bytes64({-1, -2, 0, 2147483647, 2, 40}) + ")");
  EXPECT_EQ(read().owner, expected);
}

TEST_F(BinaryLists, FindTheWidthByTheClosingParenthesis) {
  const std::vector<std::uint64_t> expected = {1, 2, 3, 42, 42, 42};
  writeOwner("", "6\n(" + bytes32({0, 1, 2, 41, 41, 41}) + ")");
  EXPECT_EQ(read().owner, expected);
  writeOwner("", "6\n(" + bytes64({0, 1, 2, 41, 41, 41}) + ")\n\n// end\n");
  EXPECT_EQ(read().owner, expected);
}

// The byte of a parenthesis stands among the labels just where the narrower list would end.
TEST_F(BinaryLists, AreNotDeceivedByAParenthesisAmongTheLabels) {
  writeOwner("", "6\n(" + bytes64({0, 1, 2, ')', 0x0a29, 0x2829}) + ")\n");
  EXPECT_EQ(read().owner, (std::vector<std::uint64_t>{1, 2, 3, 42, 0x0a2a, 0x282a}));
}

TEST_F(BinaryLists, FindTheWidthOfPoints) {
  const std::vector<double> expected = {1, 2, 3, 0.5, -0.25, 1e10};
  const std::string header = binaryHeader("vectorField", "");
  write("points", header + "2\n(" + bytesOf({1.0F, 2.0F, 3.0F, 0.5F, -0.25F, 1e10F}) + ")");
  EXPECT_EQ(read().points, expected);
  write("points", header + "2\n(" + bytesOf({1.0, 2.0, 3.0, 0.5, -0.25, 1e10}) + ")");
  EXPECT_EQ(read().points, expected);
}

TEST_F(BinaryLists, KeepCoordinatesThatAreNoNumbers) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  write("points",
        binaryHeader("vectorField", kArch) + "1\n(" + bytesOf({nan, infinity, -infinity}) + ")");
  const PolyMesh mesh = read();
  EXPECT_TRUE(std::isnan(mesh.points[0]));
  EXPECT_EQ(mesh.points[1], infinity);
  EXPECT_EQ(mesh.points[2], -infinity);
}

TEST_F(BinaryLists, AllowCommentsInTheirText) {
  writeOwner(kArch, "/* six */ 6 // (\n(" + bytes32({0, 0, 0, 0, 0, 0}) + ") /* end */");
  EXPECT_EQ(read().owner, std::vector<std::uint64_t>(6, 1));
}

TEST_F(BinaryLists, MayBeGzipped) {
  const std::string list = "6\n(" + bytes64({1, 2, 3, 4, 5, 6}) + ")";
  for (const char* const arch : {kArch64, ""}) {
    write("owner", binaryHeader("labelList", arch) + list, true);
    EXPECT_EQ(read().owner, (std::vector<std::uint64_t>{2, 3, 4, 5, 6, 7}));
  }
}

TEST_F(BinaryLists, MayBeEmptyWithoutParentheses) {
  write("neighbour", binaryHeader("labelList", kArch) + "0\n\n// end\n");
  EXPECT_EQ(read().neighbour, std::vector<std::uint64_t>());
}

TEST_F(BinaryLists, IgnoreTheByteOrderOfText) {
  write("owner",
        "FoamFile { format ascii; arch \"MSB;label=32;scalar=64\"; class labelList; }\n6{0}");
  EXPECT_EQ(read().owner, std::vector<std::uint64_t>(6, 1));
}

// ---- Refused. The header of owner is 76 bytes long with an arch and 45 without, that of faces 82;
// labels begin 3 bytes behind it where their count has one digit.

TEST_F(BinaryLists, RefuseTheOtherByteOrder) {
  writeOwner("MSB;label=32;scalar=64", "0()");
  EXPECT_EQ(
      error(),
      "owner: line 1: expected binary content of a little-endian machine (LSB), found \"MSB;label=32;scalar=64\"");
}

TEST_F(BinaryLists, RefuseOddWidths) {
  writeOwner("LSB;label=16;scalar=64", "0()");
  EXPECT_EQ(
      error(),
      "owner: line 1: expected labels and scalars of 32 or 64 bits, found \"LSB;label=16;scalar=64\"");
}

TEST_F(BinaryLists, RefuseABlockThatIsCut) {
  writeOwner(kArch, "6\n(" + bytes32({0, 0, 0}) + "ab");
  EXPECT_EQ(error(), "owner: byte 91: expected cell label 4 of 6, found the end of the file");
  writeOwner(kArch, "6\n(" + bytes32({0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(
      error(),
      "owner: byte 103: expected \")\" behind 6 cell labels of 32 bits, found the end of the file");
}

TEST_F(BinaryLists, RefuseABlockOfAnotherWidthThanTheHeaderSays) {
  writeOwner(kArch, "6\n(" + bytes64({0, 0, 0, 1, 2, 3}) + ")");
  EXPECT_EQ(
      error(),
      "owner: byte 103: expected \")\" behind 6 cell labels of 32 bits, found \"\\x01\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x02\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x03\\x00\\x00\\x00\\x00\\x00\\x00\\x00\"");
}

TEST_F(BinaryLists, RefuseABlockOfNoWidth) {
  writeOwner("", "6\n(" + bytes32({0, 0, 0, 0, 0}) + ")");
  EXPECT_EQ(
      error(),
      "owner: byte 48: expected \")\" behind 6 cell labels of 32 or 64 bits, found none there");
}

TEST_F(BinaryLists, RefuseAHugeCount) {
  writeOwner("", "9000000000000000000\n(" + bytes32({0, 0, 0, 0, 0}) + ")");
  EXPECT_EQ(
      error(),
      "owner: byte 66: expected \")\" behind 9000000000000000000 cell labels of 32 or 64 bits, found none there");
  writeOwner(kArch, "9000000000000000000\n(" + bytes32({0, 0, 0, 0, 0}) + ")");
  EXPECT_EQ(
      error(),
      "owner: byte 117: expected cell label 6 of 9000000000000000000, found the end of the file");
}

TEST_F(BinaryLists, RefuseFormsOfText) {
  writeOwner(kArch, "6{0}");
  EXPECT_EQ(error(), "owner: line 2: expected \"(\" before 6 cell labels, found \"{\"");
  writeOwner(kArch, "(0 0 0)");
  EXPECT_EQ(error(), "owner: line 2: expected the number of cell labels, found \"(\"");
}

TEST_F(BinaryLists, RefuseWhatFollowsThem) {
  writeOwner(kArch, "6\n(" + bytes32({0, 0, 0, 0, 0, 0}) + ")\nmore");
  EXPECT_EQ(error(),
            "owner: byte 105: expected nothing but comments behind the list, found \"more\"");
}

TEST_F(BinaryLists, RefuseFacesWhoseOffsetsAreOdd) {
  const std::string nodes = "3\n(" + bytes32({0, 1, 2}) + ")";
  writeFaces(kArch, "2\n(" + bytes32({1, 3}) + ")" + nodes);
  EXPECT_EQ(error(), "faces: byte 85: expected start offset 1 to be 0, found \"1\"");
  writeFaces(kArch, "3\n(" + bytes32({0, 3, 2}) + ")" + nodes);
  EXPECT_EQ(error(), "faces: byte 93: expected start offset 3 to be at least 3, found \"2\"");
  writeFaces(kArch, "3\n(" + bytes32({0, -1, 3}) + ")" + nodes);
  EXPECT_EQ(error(), "faces: byte 89: expected start offset 2 to be at least 0, found \"-1\"");
  writeFaces(kArch, "2\n(" + bytes32({0, 2}) + ")" + nodes);
  EXPECT_EQ(
      error(),
      "faces: byte 89: expected start offset 2 to be 3, the number of node labels behind the start offsets, found \"2\"");
  writeFaces(kArch64, "2\n(" + bytes64({0, 40000}) + ")" + "3\n(" + bytes64({0, 1, 2}) + ")");
  EXPECT_EQ(
      error(),
      "faces: byte 93: expected start offset 2 to be at most 32767 more than 0, found \"40000\"");
}

TEST_F(BinaryLists, RefuseFacesWithoutNodeLabels) {
  writeFaces(kArch, "2\n(" + bytes32({0, 3}) + ")\n");
  EXPECT_EQ(error(),
            "faces: byte 95: expected the number of node labels, found the end of the file");
}

}  // namespace
}  // namespace velto::openfoam
