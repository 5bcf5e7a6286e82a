// SPDX-License-Identifier: Apache-2.0
//
// The file `boundary`: what is kept of a patch, and what is refused.

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "formats/openfoam/read_poly_mesh.h"
#include "tests/formats/openfoam/FolderTest.h"

namespace velto::openfoam {
namespace {

using Entries = std::vector<std::pair<std::string, std::string>>;

using Boundary = FolderTest;

TEST_F(Boundary, KeepsPatchesWithTheirLines) {
  writeList(
      "boundary",
      "2\n(\n    inlet\n    {\n        type            patch;\n        nFaces 2;\n        startFace       4;\n    }\n    \"two words\" { type \"wall\"; nFaces 4; startFace 0; }\n)\n");
  const PolyMesh mesh = read();
  ASSERT_EQ(mesh.patches.size(), 2U);
  EXPECT_EQ(mesh.patches[0].name, "inlet");
  EXPECT_EQ(mesh.patches[0].type, "patch");
  EXPECT_EQ(mesh.patches[0].faceCount, 2U);
  EXPECT_EQ(mesh.patches[0].firstFace, 4U);
  EXPECT_EQ(mesh.patches[0].neighbourPatch, "");
  EXPECT_EQ(mesh.patches[0].line, 4U);
  EXPECT_EQ(mesh.patches[1].name, "two words");
  EXPECT_EQ(mesh.patches[1].type, "wall");
  EXPECT_EQ(mesh.patches[1].line, 10U);
}

TEST_F(Boundary, KeepsEveryEntryAsItStands) {
  writeList(
      "boundary",
      "1(half { type cyclic; inGroups 1(wall); groups List<word>  2 ( a\n\tb ) ;\nneighbourPatch other; matchTolerance 0.0001 /* of what */ ; rotationAxis (0 0 1);\nfile \"a \\\"b\\\";  c\"; nFaces 3; // three\nstartFace 6; flag; sub { a 1; deep { b (1 2); } } ; dimensions [0 1 -1 0 0 0 0]; path a/b; })");
  const PolyMesh mesh = read();
  ASSERT_EQ(mesh.patches.size(), 1U);
  EXPECT_EQ(mesh.patches[0].neighbourPatch, "other");
  EXPECT_EQ(mesh.patches[0].entries, (Entries{{"type", "cyclic"},
                                              {"inGroups", "1(wall)"},
                                              {"groups", "List<word> 2 ( a b )"},
                                              {"neighbourPatch", "other"},
                                              {"matchTolerance", "0.0001"},
                                              {"rotationAxis", "(0 0 1)"},
                                              {"file", "\"a \\\"b\\\";  c\""},
                                              {"nFaces", "3"},
                                              {"startFace", "6"},
                                              {"flag", ""},
                                              {"sub", "{ a 1; deep { b (1 2); } }"},
                                              {"dimensions", "[0 1 -1 0 0 0 0]"},
                                              {"path", "a/b"}}));
}

TEST_F(Boundary, IsTextInABinaryMesh) {
  write("boundary", binaryHeader("polyBoundaryMesh", "LSB;label=32;scalar=64") +
                        "1(walls { type wall; nFaces 6; startFace 0; })");
  EXPECT_EQ(read().patches.size(), 1U);
}

TEST_F(Boundary, MayHaveNoCountAndNoPatches) {
  writeList("boundary",
            "(a { type wall; nFaces 1; startFace 0; } b(1) { type wall; nFaces 1; startFace 1; })");
  const PolyMesh mesh = read();
  ASSERT_EQ(mesh.patches.size(), 2U);
  EXPECT_EQ(mesh.patches[1].name, "b(1)");
  for (const char* const empty : {"0()", "0", "()"}) {
    writeList("boundary", empty);
    EXPECT_EQ(read().patches.size(), 0U);
  }
}

TEST_F(Boundary, HandsOnPatchesThatOverlapOrLieOutside) {
  writeList(
      "boundary",
      "2(a { type wall; nFaces 6; startFace 0; } a { type wall; nFaces 16777210; startFace 9223372036854775807; })");
  const PolyMesh mesh = read();
  EXPECT_EQ(mesh.patches[1].faceCount, 16777210U);
  EXPECT_EQ(mesh.patches[1].firstFace, 9223372036854775807U);
}

TEST_F(Boundary, TakesTheLastOfEntriesOfTheSameName) {
  writeList("boundary", "1(a { type wall; nFaces 6; nFaces 5; startFace 0; type patch; })");
  const PolyMesh mesh = read();
  EXPECT_EQ(mesh.patches[0].faceCount, 5U);
  EXPECT_EQ(mesh.patches[0].type, "patch");
  EXPECT_EQ(mesh.patches[0].entries.size(), 5U);
}

struct BadBoundary {
  const char* name;
  const char* text;  // on line 2
  const char* message;
};

class BadPatches : public FolderTest, public ::testing::WithParamInterface<BadBoundary> {};

TEST_P(BadPatches, AreRefused) {
  writeList("boundary", GetParam().text);
  EXPECT_EQ(error(), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Boundary, BadPatches,
    ::testing::Values(
        BadBoundary{"TooFew", "2(a { type wall; nFaces 1; startFace 0; })",
                    "boundary: line 2: expected patch 2 of 2, found \")\""},
        BadBoundary{"TooMany", "1(a { type wall; nFaces 1; startFace 0; } b { })",
                    "boundary: line 2: expected \")\" behind 1 patches, found \"b\""},
        BadBoundary{
            "FacesThatNoFileHolds",
            "2(a { type wall; nFaces 6; startFace 0; }\nb { type wall; nFaces 16777211; startFace 6; })",
            "boundary: line 3: expected patches of 6 faces in all, found nFaces 16777211 in patch \"b\""},
        BadBoundary{"Equal", "2{a}",
                    "boundary: line 2: expected patches one by one, found a list of equal patches"},
        BadBoundary{
            "NoBrace", "1(a type wall;)",
            "boundary: line 2: expected \"{\" behind the name of patch \"a\", found \"type\""},
        BadBoundary{"CutInPatch", "1(a { type wall;\n",
                    "boundary: line 3: expected a keyword or \"}\", found the end of the file"},
        BadBoundary{
            "CutInEntry", "1(a { type wall",
            "boundary: line 2: expected \";\" in the entry type, found the end of the file"},
        BadBoundary{"NoType", "1(\na { nFaces 1; startFace 0; })",
                    "boundary: line 3: expected the entry type of patch \"a\", found none"},
        BadBoundary{"NoFaceCount", "1(\na { type wall; startFace 0; })",
                    "boundary: line 3: expected the entry nFaces of patch \"a\", found none"},
        BadBoundary{"NoFirstFace", "1(\na { type wall; nFaces 0; })",
                    "boundary: line 3: expected the entry startFace of patch \"a\", found none"},
        BadBoundary{
            "NegativeFaceCount", "1(a { type wall;\nnFaces -1; startFace 0; })",
            "boundary: line 3: expected a number of faces as nFaces of patch \"a\", found \"-1\""},
        BadBoundary{
            "WordAsFirstFace", "1(a { type wall;\nnFaces 1; startFace none; })",
            "boundary: line 3: expected a number of faces as startFace of patch \"a\", found \"none\""},
        BadBoundary{
            "FractionAsFaceCount", "1(a { type wall; nFaces 1.5; startFace 0; })",
            "boundary: line 2: expected a number of faces as nFaces of patch \"a\", found \"1.5\""},
        BadBoundary{
            "FaceCountTooLarge", "1(a { type wall; nFaces 9223372036854775808; startFace 0; })",
            "boundary: line 2: expected a number of faces as nFaces of patch \"a\", found \"9223372036854775808\""},
        BadBoundary{
            "NoSemicolon", "1(a { type wall; nFaces 1 startFace 0; })",
            "boundary: line 2: expected a number of faces as nFaces of patch \"a\", found \"1 startFace 0\""},
        BadBoundary{"NoSemicolonBeforeBrace", "1(a { type wall; nFaces 1; startFace 0 })",
                    "boundary: line 2: expected \";\" in the entry startFace, found \"}\""},
        BadBoundary{"OpenParenthesis", "1(a { type wall; inGroups 1(wall; nFaces 1; })",
                    "boundary: line 2: expected \")\" in the entry inGroups, found \";\""},
        BadBoundary{"WrongBracket", "1(a { type wall; inGroups 1(wall]; nFaces 1; })",
                    "boundary: line 2: expected \")\" in the entry inGroups, found \"]\""},
        BadBoundary{"OpenSubDictionary", "1(a { type wall; sub { x 1; })",
                    "boundary: line 2: expected a keyword or \"}\", found \")\""},
        BadBoundary{
            "OpenString", "1(a { type \"wall;\nnFaces 1; })",
            "boundary: line 2: expected a string that ends with \" on its line, found the end of the line"},
        BadBoundary{
            "OpenStringAtTheEnd", "1(a { type \"wall;",
            "boundary: line 2: expected a string that ends with \" on its line, found the end of the file"},
        BadBoundary{
            "Include", "1(\n#include \"patches\"\n)",
            "boundary: line 3: expected entries without directives and macros, which are not expanded, found \"#include\""},
        BadBoundary{
            "IncludeInPatch", "1(a {\n#includeEtc \"x\"\n})",
            "boundary: line 3: expected entries without directives and macros, which are not expanded, found \"#includeEtc\""},
        BadBoundary{
            "Macro", "1(a { $walls; })",
            "boundary: line 2: expected entries without directives and macros, which are not expanded, found \"$walls\""},
        BadBoundary{
            "MacroAsValue", "1(a { type wall; nFaces $n; })",
            "boundary: line 2: expected entries without directives and macros, which are not expanded, found \"$n\""},
        BadBoundary{
            "CalculatedValue", "1(a { type wall; nFaces #calc \"1+1\"; })",
            "boundary: line 2: expected entries without directives and macros, which are not expanded, found \"#calc\""},
        BadBoundary{"Trailing", "0() x",
                    "boundary: line 2: expected nothing but comments behind the list, found \"x\""},
        BadBoundary{
            "OpenComment", "0() /* x",
            "boundary: line 2: expected a comment that ends with */, found the end of the file"}),
    [](const auto& row) { return row.param.name; });

TEST_F(Boundary, IsRefusedForTooDeepNesting) {
  const std::string open(65, '(');
  writeList("boundary", "1(a { x " + open + "; })");
  EXPECT_EQ(error(), "boundary: line 2: expected at most 64 nested brackets, found \"(\"");
  const std::string deep = std::string(64, '(') + std::string(64, ')');
  writeList("boundary", "1(a { type wall; nFaces 1; startFace 0; x " + deep + "; })");
  EXPECT_EQ(read().patches[0].entries.back().second, deep);
}

TEST_F(Boundary, IsRefusedForAnEndlessEntry) {
  writeList("boundary", "1(a { x " + std::string(1024 * 1024 + 1, 'y') + "; })");
  EXPECT_EQ(error(), "boundary: line 2: expected at most 1048576 characters of text, found \"y\"");
}

}  // namespace
}  // namespace velto::openfoam
