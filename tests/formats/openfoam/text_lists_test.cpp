// SPDX-License-Identifier: Apache-2.0
//
// Lists in text: their forms, the numbers in them, and what is refused.

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "formats/openfoam/read_poly_mesh.h"
#include "tests/formats/openfoam/FolderTest.h"

namespace velto::openfoam {
namespace {

struct TextList {
  const char* name;
  const char* file;
  const char* text;  // on line 2
  const char* message;
};

template <class Row>
std::string rowName(const ::testing::TestParamInfo<Row>& info) {
  return info.param.name;
}

// ---- The same list in many forms

class GoodOwner : public FolderTest, public ::testing::WithParamInterface<TextList> {};

TEST_P(GoodOwner, HasSixEqualLabels) {
  writeList("owner", GetParam().text);
  EXPECT_EQ(read().owner, std::vector<std::uint64_t>(6, 8));
}

INSTANTIATE_TEST_SUITE_P(
    Forms, GoodOwner,
    ::testing::Values(
        TextList{"OneLine", "", "6(7 7 7 7 7 7)", ""},
        TextList{"Lines", "", "6\n(\n7\n7\n7\n7\n7\n7\n)\n", ""},
        TextList{"CarriageReturns", "", "6\r\n(\r\n7\r\n7\r\n7\r\n7\r\n7\r\n7\r\n)\r\n", ""},
        TextList{"OddBlanks", "", "\t6 \f ( 7\v7\t\t7 7 7 7\n\n) \n \n", ""},
        TextList{"Braces", "", "6{7}", ""}, TextList{"BracesWithBlanks", "", "6 {\n7 }\n", ""},
        TextList{"NoCount", "", "(7 7 7 7 7 7)", ""},
        TextList{"NoCountLines", "", "\n(\n7\n7\n7\n7\n7\n7\n)", ""},
        TextList{"Comments", "", "/**/6//6\n(7/*8*/7//9)\n7 7 // \n 7 /* ( / * **/7) // end", ""},
        TextList{"CommentAtTheEndWithoutNewline", "", "6(7 7 7 7 7 7)//", ""},
        TextList{"SignsAndZeros", "", "6(+7 07 007 7 0000000000000000000000000007 +0007)", ""}),
    rowName<TextList>);

class EmptyNeighbour : public FolderTest, public ::testing::WithParamInterface<TextList> {};

TEST_P(EmptyNeighbour, HasNoLabels) {
  writeList("neighbour", GetParam().text);
  EXPECT_EQ(read().neighbour, std::vector<std::uint64_t>());
}

INSTANTIATE_TEST_SUITE_P(Forms, EmptyNeighbour,
                         ::testing::Values(TextList{"Parentheses", "", "0()", ""},
                                           TextList{"Blank", "", "0 ( )", ""},
                                           TextList{"Lines", "", "0\n(\n)\n", ""},
                                           TextList{"Zero", "", "0", ""},
                                           TextList{"ZeroAndComment", "", "0\n// end\n", ""},
                                           TextList{"NoCount", "", "()", ""}),
                         rowName<TextList>);

using TextLists = FolderTest;

TEST_F(TextLists, KeepNegativeAndLargeLabels) {
  writeList("owner", "6(-1 -2 -0 9223372036854775807 -9223372036854775808 999999999999999999)");
  const std::vector<std::uint64_t> expected = {0,
                                               std::numeric_limits<std::uint64_t>::max(),
                                               1,
                                               0x8000000000000000U,
                                               0x8000000000000001U,
                                               1000000000000000000U};
  EXPECT_EQ(read().owner, expected);
}

TEST_F(TextLists, KeepNodeIdsOutOfRange) {
  writeList("faces", "6(3(0 1 99) 3(-1 1 2) 3{5} (1 2 3 4) 0() 1(7))");
  const PolyMesh mesh = read();
  EXPECT_EQ(mesh.faceNodeCounts, (std::vector<std::int16_t>{3, 3, 3, 4, 0, 1}));
  EXPECT_EQ(mesh.faceNodeIds,
            (std::vector<std::uint64_t>{1, 2, 100, 0, 2, 3, 6, 6, 6, 2, 3, 4, 5, 8}));
}

TEST_F(TextLists, ReadFacesInOddForms) {
  writeList(
      "faces",
      "(\n4 ( 0 1\n2 3 ) 4/**/(0 1 2 3)\n\n4(0 1 2 3) //\n 4(0 /*9*/ 1 2 3) 4\n(\n0\n1\n2\n3\n)\n(0 1 2 3))");
  const PolyMesh mesh = read();
  EXPECT_EQ(mesh.faceNodeCounts, std::vector<std::int16_t>(6, 4));
  for (std::size_t i = 0; i < mesh.faceNodeIds.size(); ++i) {
    EXPECT_EQ(mesh.faceNodeIds[i], i % 4 + 1);
  }
}

TEST_F(TextLists, ReadCompactFacesInText) {
  write("faces", textHeader("faceCompactList") + "7(0 3 6 6 7 8 9) 9(0 1 2 3 4 5 6 7 99)");
  const PolyMesh mesh = read();
  EXPECT_EQ(mesh.faceNodeCounts, (std::vector<std::int16_t>{3, 3, 0, 1, 1, 1}));
  EXPECT_EQ(mesh.faceNodeIds, (std::vector<std::uint64_t>{1, 2, 3, 4, 5, 6, 7, 8, 100}));
}

TEST_F(TextLists, ReadCoordinatesInAllSpellings) {
  writeList("points", "4((1 -2.5 +3e2) ( .5 5. 1E-3 )\n(0 -0 1e5)(+1.5 /*x*/ 2 //\n 3))");
  EXPECT_EQ(read().points,
            (std::vector<double>{1, -2.5, 300, 0.5, 5, 0.001, 0, 0, 1e5, 1.5, 2, 3}));
}

TEST_F(TextLists, KeepCoordinatesThatAreNoNumbers) {
  writeList("points", "2((nan -nan NaN)(inf -INF Infinity))");
  const PolyMesh mesh = read();
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(std::isnan(mesh.points[0]) && std::isnan(mesh.points[1]) &&
              std::isnan(mesh.points[2]));
  EXPECT_EQ(mesh.points[3], infinity);
  EXPECT_EQ(mesh.points[4], -infinity);
  EXPECT_EQ(mesh.points[5], infinity);
}

TEST_F(TextLists, RoundCoordinatesBeyondDoubleToInfinityAndZero) {
  const std::string zeros(400, '0');
  writeList("points", "2((1e400 -1e999 1" + zeros + ")(1e-400 -1e-999 0." + zeros + "1))");
  const PolyMesh mesh = read();
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(mesh.points, (std::vector<double>{infinity, -infinity, infinity, 0, 0, 0}));
}

TEST_F(TextLists, KeepTheSmallestDoubles) {
  writeList("points", "1((4.9406564584124654e-324 2.2250738585072011e-308 1e-310))");
  EXPECT_EQ(read().points,
            (std::vector<double>{4.9406564584124654e-324, 2.2250738585072011e-308, 1e-310}));
}

TEST_F(TextLists, ReadEqualPoints) {
  writeList("points", "3{(1 2 3)}");
  EXPECT_EQ(read().points, (std::vector<double>{1, 2, 3, 1, 2, 3, 1, 2, 3}));
}

TEST_F(TextLists, AreReadAcrossWindowsWhereverACommentOrANumberIsCut) {
  for (int shift = 0; shift < 24; ++shift) {
    const std::string blanks(static_cast<std::size_t>(256 * 1024 - 75 + shift), ' ');
    writeList("owner", blanks + "6(-123 /* 1 **/ 456 //2\n 789 1 2 3)");
    EXPECT_EQ(read().owner,
              (std::vector<std::uint64_t>{static_cast<std::uint64_t>(-122), 457, 790, 2, 3, 4}));
  }
}

TEST_F(TextLists, MayHaveCommentsOfManyWindows) {
  const std::string stars(300000, '*');
  const std::string slashes(600000, '/');
  writeList("owner", "6(1 /* " + slashes + stars + "/ 2 //" + stars + "\n3 4 5 6)");
  EXPECT_EQ(read().owner, (std::vector<std::uint64_t>{2, 3, 4, 5, 6, 7}));
}

TEST_F(TextLists, CountLinesAcrossWindows) {
  writeList("owner", "6(1 2 3 4" + std::string(600000, '\n') + "x");
  EXPECT_EQ(error(), "owner: line 600002: expected cell label 5 of 6, found \"x\"");
}

// ---- Refused

class BadText : public FolderTest, public ::testing::WithParamInterface<TextList> {};

TEST_P(BadText, IsRefused) {
  writeList(GetParam().file, GetParam().text);
  EXPECT_EQ(error(), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Labels, BadText,
    ::testing::Values(
        TextList{"Nothing", "owner", "",
                 "owner: line 2: expected the number of cell labels, found the end of the file"},
        TextList{"NoBracket", "owner", "6 7 7",
                 "owner: line 2: expected \"(\" before 6 cell labels, found \"7\""},
        TextList{"NoBracketAtTheEnd", "owner", "6",
                 "owner: line 2: expected \"(\" before 6 cell labels, found the end of the file"},
        TextList{"TooFew", "owner", "6\n(\n7\n7\n7\n7\n)\n",
                 "owner: line 8: expected cell label 5 of 6, found \")\""},
        TextList{"TooMany", "owner", "6(7 7 7 7 7 7 8)",
                 "owner: line 2: expected \")\" behind 6 cell labels, found \"8\""},
        TextList{"Cut", "owner", "6(7 7 7 7",
                 "owner: line 2: expected cell label 5 of 6, found the end of the file"},
        TextList{"CutBehindTheLast", "owner", "6(7 7 7 7 7 7",
                 "owner: line 2: expected \")\" behind 6 cell labels, found the end of the file"},
        TextList{"CutWithoutCount", "owner", "(7 7",
                 "owner: line 2: expected cell label 3 or \")\", found the end of the file"},
        TextList{"Word", "owner", "6(7 7 7 seven 7 7)",
                 "owner: line 2: expected cell label 4 of 6, found \"seven\""},
        TextList{"WordInLabel", "owner", "6(7 7 7 7x 7 7)",
                 "owner: line 2: expected cell label 4 of 6, found \"7x\""},
        TextList{
            "LongWord", "owner", "6(7 a23456789b123456789c123456789d)",
            "owner: line 2: expected cell label 2 of 6, found \"a23456789b123456789c123456789d\""},
        TextList{
            "LongerWord", "owner", "6(7 a23456789b123456789c123456789de)",
            "owner: line 2: expected cell label 2 of 6, found \"a23456789b123456789c123456789d\"..."},
        TextList{"ControlCharacters", "owner", "6(7 a\x01\x7f\xff\\b)",
                 "owner: line 2: expected cell label 2 of 6, found \"a\\x01\\x7f\\xff\\\\b\""},
        TextList{"Fraction", "owner", "6(7 7 1.5 7 7 7)",
                 "owner: line 2: expected cell label 3 of 6, found \"1.5\""},
        TextList{
            "TooLarge", "owner", "6(7 9223372036854775808 7 7 7 7)",
            "owner: line 2: expected cell label 2 of 6, found \"9223372036854775808\", which does not fit into 64 bits"},
        TextList{
            "TooSmall", "owner", "6(7 -9223372036854775809 7 7 7 7)",
            "owner: line 2: expected cell label 2 of 6, found \"-9223372036854775809\", which does not fit into 64 bits"},
        TextList{"BareSign", "owner", "6(7 - 7 7 7 7)",
                 "owner: line 2: expected cell label 2 of 6, found \"-\""},
        TextList{"TwoSigns", "owner", "6(7 +-7 7 7 7 7)",
                 "owner: line 2: expected cell label 2 of 6, found \"+-7\""},
        TextList{"NegativeCount", "owner", "-6(7 7 7 7 7 7)",
                 "owner: line 2: expected the number of cell labels, found \"-6\""},
        TextList{
            "CountTooLarge", "owner", "99999999999999999999(7 7)",
            "owner: line 2: expected the number of cell labels, found \"99999999999999999999\", which does not fit into 64 bits"},
        TextList{"HugeCount", "owner", "9000000000000000000(7 7)",
                 "owner: line 2: expected cell label 3 of 9000000000000000000, found \")\""},
        TextList{"WrongBracket", "owner", "6(7 7 7 7 7 7}",
                 "owner: line 2: expected \")\" behind 6 cell labels, found \"}\""},
        TextList{"TrailingText", "owner", "6(7 7 7 7 7 7) 1",
                 "owner: line 2: expected nothing but comments behind the list, found \"1\""},
        TextList{"TrailingBracket", "owner", "6(7 7 7 7 7 7)\n)",
                 "owner: line 3: expected nothing but comments behind the list, found \")\""},
        TextList{"OpenComment", "owner", "6(7 7\n/* 7 7 7 7)",
                 "owner: line 3: expected a comment that ends with */, found the end of the file"},
        TextList{"OpenCommentOfThree", "owner", "6(7 7\n/*/",
                 "owner: line 3: expected a comment that ends with */, found the end of the file"},
        TextList{"Slash", "owner", "6(7 7 / 7)",
                 "owner: line 2: expected cell label 3 of 6, found \"/\""},
        TextList{"BracesWithoutValue", "owner", "6{}",
                 "owner: line 2: expected one value for all cell labels, found \"}\""},
        TextList{
            "BracesWithTwoValues", "owner", "6{7 7}",
            "owner: line 2: expected \"}\" behind the one value of all cell labels, found \"7\""},
        TextList{"BracesTooLong", "owner", "7{7}",
                 "owner: line 2: expected at most 6 equal cell labels, found \"7\""},
        TextList{"BracesMuchTooLong", "owner", "4000000000000{7}",
                 "owner: line 2: expected at most 6 equal cell labels, found \"4000000000000\""},
        TextList{"EmptyWithContent", "owner", "0(7)",
                 "owner: line 2: expected \")\" behind 0 cell labels, found \"7\""}),
    rowName<TextList>);

INSTANTIATE_TEST_SUITE_P(
    Faces, BadText,
    ::testing::Values(
        TextList{"TooFewNodes", "faces", "6(4(0 1 2)4(1 3 7 5))",
                 "faces: line 2: expected node label 4 of 4, found \")\""},
        TextList{"TooManyNodes", "faces", "6(4(0 1 2 3 4)4(1 3 7 5))",
                 "faces: line 2: expected \")\" behind 4 node labels, found \"4\""},
        TextList{"TooFewFaces", "faces", "6(4(0 1 2 3)4(1 3 7 5))",
                 "faces: line 2: expected face 3 of 6, found \")\""},
        TextList{"TooManyFaces", "faces", "1(4(0 1 2 3)4(1 3 7 5))",
                 "faces: line 2: expected \")\" behind 1 faces, found \"4\""},
        TextList{"NegativeSize", "faces", "6(4(0 1 2 3)\n-4(1 3 7 5))",
                 "faces: line 3: expected the number of node labels, found \"-4\""},
        TextList{"EqualNodesTooMany", "faces", "6(4(0 1 2 3)\n17{1})",
                 "faces: line 3: expected at most 16 equal node labels, found \"17\""},
        TextList{"EqualFaces", "faces", "6{4(0 1 2 3)}",
                 "faces: line 2: expected faces one by one, found a list of equal faces"},
        TextList{"NoNodes", "faces", "6(4 4)",
                 "faces: line 2: expected \"(\" before 4 node labels, found \"4\""},
        TextList{"Cut", "faces", "6(4(0 1 2 3)4(1 3",
                 "faces: line 2: expected node label 3 of 4, found the end of the file"},
        TextList{"Word", "faces", "6(4(0 1 2 3) face)",
                 "faces: line 2: expected face 2 of 6, found \"face\""},
        TextList{"NodeNotAnInteger", "faces", "6(4(0 1 2 x))",
                 "faces: line 2: expected node label 4 of 4, found \"x\""}),
    rowName<TextList>);

INSTANTIATE_TEST_SUITE_P(
    Points, BadText,
    ::testing::Values(
        TextList{"TwoCoordinates", "points", "1((1 2))",
                 "points: line 2: expected a coordinate of point 1 of 1, found \")\""},
        TextList{
            "FourCoordinates", "points", "1((1 2 3 4))",
            "points: line 2: expected \")\" behind the coordinates of point 1 of 1, found \"4\""},
        TextList{"Word", "points", "2((1 2 3)(1 two 3))",
                 "points: line 2: expected a coordinate of point 2 of 2, found \"two\""},
        TextList{"WordInNumber", "points", "1((1 2 3m))",
                 "points: line 2: expected a coordinate of point 1 of 1, found \"3m\""},
        TextList{"TooFew", "points", "3((1 2 3)\n(1 2 3))",
                 "points: line 3: expected point 3 of 3, found \")\""},
        TextList{"TooMany", "points", "1((1 2 3)\n(1 2 3))",
                 "points: line 3: expected \")\" behind 1 points, found \"(\""},
        TextList{"Bare", "points", "3(1 2 3)",
                 "points: line 2: expected point 1 of 3, found \"1\""},
        TextList{
            "Cut", "points", "2((1 2 3)(1 2",
            "points: line 2: expected a coordinate of point 2 of 2, found the end of the file"},
        TextList{"EqualTooMany", "points", "1000001{(0 0 0)}",
                 "points: line 2: expected at most 1000000 equal points, found \"1000001\""}),
    rowName<TextList>);

TEST_F(TextLists, RefuseAFaceOfTooManyNodes) {
  std::string face = "32768(0";
  for (int i = 1; i < 32768; ++i) {
    face += " 1";
  }
  writeList("faces", "2(4(0 1 2 3)\n" + face + "))");
  EXPECT_EQ(error(), "faces: line 3: expected a face of at most 32767 nodes, found one of 32768");
}

TEST_F(TextLists, RefuseANumberOfEndlessDigits) {
  writeList("owner", "6(7 " + std::string(5000, '0') + "1 7 7 7 7)");
  EXPECT_EQ(
      error(),
      "owner: line 2: expected cell label 2 of 6, found \"000000000000000000000000000000\"...");
}

TEST_F(TextLists, RefuseANulCharacter) {
  writeList("owner", std::string("6(7 7\0 7 7 7 7)", 15));
  EXPECT_EQ(error(), "owner: line 2: expected cell label 2 of 6, found \"7\\x00\"");
}

TEST_F(TextLists, RefuseCompactFacesWhoseOffsetsAreOdd) {
  const std::string header = textHeader("faceCompactList");
  write("faces", header + "2(1 3) 3(0 1 2)");
  EXPECT_EQ(error(), "faces: line 2: expected start offset 1 to be 0, found \"1\"");
  write("faces", header + "3(0 3 2) 3(0 1 2)");
  EXPECT_EQ(error(), "faces: line 2: expected start offset 3 to be at least 3, found \"2\"");
  write("faces", header + "2(0 4) 3(0 1 2)");
  EXPECT_EQ(
      error(),
      "faces: line 2: expected start offset 2 to be 3, the number of node labels behind the start offsets, found \"4\"");
  write("faces", header + "2(0 32768) 3(0 1 2)");
  EXPECT_EQ(
      error(),
      "faces: line 2: expected start offset 2 to be at most 32767 more than 0, found \"32768\"");
  write("faces", header + "3(0 9223372036854775807 -9223372036854775808) 3(0 1 2)");
  EXPECT_EQ(
      error(),
      "faces: line 2: expected start offset 2 to be at most 32767 more than 0, found \"9223372036854775807\"");
  write("faces", header + "0() 3(0 1 2)");
  EXPECT_EQ(error(), "faces: line 2: expected start offset 1 to be 0, found none");
}

}  // namespace
}  // namespace velto::openfoam
