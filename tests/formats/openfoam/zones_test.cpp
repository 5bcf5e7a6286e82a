// SPDX-License-Identifier: Apache-2.0
//
// The files `cellZones` and `faceZones`.

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "formats/openfoam/read_poly_mesh.h"
#include "tests/formats/openfoam/FolderTest.h"

namespace velto::openfoam {
namespace {

using Labels = std::vector<std::int64_t>;
using Flips = std::vector<std::uint8_t>;

constexpr const char* kArch = "LSB;label=32;scalar=64";

using Zones = FolderTest;

TEST_F(Zones, AreKeptWithLabelsAsTheyStand) {
  writeList(
      "cellZones",
      "2\n(\nc0\n{\n    type cellZone;\ncellLabels      List<label> 3(0 -1 99 );\n}\nc1 { type cellZone; cellLabels (5 6); }\n)\n");
  const PolyMesh mesh = read();
  ASSERT_EQ(mesh.cellZones.size(), 2U);
  EXPECT_EQ(mesh.cellZonesFile, path("cellZones"));
  EXPECT_EQ(mesh.faceZonesFile, "");
  EXPECT_EQ(mesh.cellZones[0].name, "c0");
  EXPECT_EQ(mesh.cellZones[0].labels, (Labels{0, -1, 99}));
  EXPECT_EQ(mesh.cellZones[0].oriented, false);
  EXPECT_EQ(mesh.cellZones[0].line, 4U);
  EXPECT_EQ(mesh.cellZones[1].labels, (Labels{5, 6}));
  EXPECT_EQ(mesh.cellZones[1].line, 9U);
}

TEST_F(Zones, KeepFlipsInAllSpellings) {
  writeList(
      "faceZones",
      "1(f { type faceZone; faceLabels List<label> 8{2}; flipMap List<bool> 8(0 1 true false on off yes no); })");
  EXPECT_EQ(error(), "faceZones: line 2: expected at most 6 equal labels, found \"8\"");
  writeList(
      "faceZones",
      "1(f { type faceZone; flipMap 8(0 1 true false on off yes no); faceLabels 8(0 1 2 3 4 5 6 7); })");
  const PolyMesh mesh = read();
  EXPECT_EQ(mesh.faceZones[0].flipMap, (Flips{0, 1, 1, 0, 1, 0, 1, 0}));
  EXPECT_EQ(mesh.faceZones[0].oriented, true);
}

TEST_F(Zones, WithoutAFlipMapAreNotOriented) {
  writeList("faceZones", "1(f { type faceZone; faceLabels List<label> 2(1 2); })");
  const PolyMesh mesh = read();
  EXPECT_EQ(mesh.faceZones[0].oriented, false);
  EXPECT_EQ(mesh.faceZones[0].flipMap, Flips());
}

TEST_F(Zones, MayHaveEqualFlips) {
  writeList(
      "faceZones",
      "2(f { type faceZone; faceLabels List<label> 3(0 1 2); flipMap List<bool> 3{1}; } g { type faceZone; flipMap List<bool> 2{0}; faceLabels List<label> 2(0 1); })");
  const PolyMesh mesh = read();
  EXPECT_EQ(mesh.faceZones[0].flipMap, (Flips{1, 1, 1}));
  EXPECT_EQ(mesh.faceZones[1].flipMap, (Flips{0, 0}));
}

TEST_F(Zones, MayBeEmpty) {
  for (const char* const empty : {"0()", "0", "()", "0\n(\n)\n"}) {
    writeList("cellZones", empty);
    EXPECT_EQ(read().cellZones.size(), 0U);
  }
  writeList("faceZones",
            "1(f { type faceZone; faceLabels List<label> 0(); flipMap List<bool> 0; })");
  EXPECT_EQ(read().faceZones[0].oriented, true);
}

TEST_F(Zones, MayHaveOtherEntries) {
  writeList(
      "cellZones",
      "1(c { type cellZone; inGroups 1(x); sub { a \"}\"; } other List<label> 2(8 9); flags List<bool> 2(0 1); cellLabels List<label> 1(0); })");
  EXPECT_EQ(read().cellZones[0].labels, (Labels{0}));
  writeList("cellZones", "1(c { flags List<bool> 4{0}; cellLabels 1(0); more List<label> 3{0}; })");
  EXPECT_EQ(error(), "cellZones: line 2: expected at most 2 equal labels, found \"3\"");
}

TEST_F(Zones, AreReadInBinary) {
  write("faceZones", binaryHeader("regIOobject", kArch) +
                         "2\n(\nf\n{\ntype faceZone;\nfaceLabels List<label> \n3\n(" +
                         bytes32({0, -1, 41}) + ");\nflipMap List<bool> \n3\n(" +
                         std::string("\x00\x01\x7f", 3) + ");\nother List<label> 1(" +
                         bytes32({';'}) +
                         ");\n}\ng { faceLabels List<label> 0; flipMap List<bool> 0(); }\n)\n");
  const PolyMesh mesh = read();
  ASSERT_EQ(mesh.faceZones.size(), 2U);
  EXPECT_EQ(mesh.faceZones[0].labels, (Labels{0, -1, 41}));
  EXPECT_EQ(mesh.faceZones[0].flipMap, (Flips{0, 1, 1}));
  EXPECT_EQ(mesh.faceZones[0].line, 4U);
  EXPECT_EQ(mesh.faceZones[1].name, "g");
  EXPECT_EQ(mesh.faceZones[1].oriented, true);
  EXPECT_EQ(mesh.faceZones[1].line, 0U);
}

TEST_F(Zones, FindTheWidthOfBinaryLabels) {
  const std::string begin =
      binaryHeader("regIOobject", "") + "1(c { type cellZone; cellLabels List<label> 2(";
  write("cellZones", begin + bytes32({3, 4}) + ");\n}\n)\n");
  EXPECT_EQ(read().cellZones[0].labels, (Labels{3, 4}));
  write("cellZones", begin + bytes64({3, 4}) + ");\n}\n)\n");
  EXPECT_EQ(read().cellZones[0].labels, (Labels{3, 4}));
}

TEST_F(Zones, InABinaryFileAreTextWhereNoTypeStandsBefore) {
  write("cellZones", binaryHeader("regIOobject", kArch) + "1(c { cellLabels 2(3 4); })");
  EXPECT_EQ(read().cellZones[0].labels, (Labels{3, 4}));
}

struct BadZone {
  const char* name;
  const char* text;  // on line 2
  const char* message;
};

class BadZones : public FolderTest, public ::testing::WithParamInterface<BadZone> {};

TEST_P(BadZones, AreRefused) {
  writeList("faceZones", GetParam().text);
  EXPECT_EQ(error(), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Zones, BadZones,
    ::testing::Values(
        BadZone{"TooFew", "2(f { faceLabels 1(0); })",
                "faceZones: line 2: expected zone 2 of 2, found \")\""},
        BadZone{"NoLabels", "1(\nf { type faceZone; })",
                "faceZones: line 3: expected the entry faceLabels of zone \"f\", found none"},
        BadZone{"TooFewLabels", "1(f { faceLabels List<label> 3(0 1); })",
                "faceZones: line 2: expected label 3 of 3, found \")\""},
        BadZone{
            "NoSemicolon", "1(f { faceLabels List<label> 1(0) })",
            "faceZones: line 2: expected \";\" behind the list of the entry faceLabels, found \"}\""},
        BadZone{"OtherType", "1(f { faceLabels List<word> 1(0); })",
                "faceZones: line 2: expected the number of labels, found \"List<word>\""},
        BadZone{
            "TooFewFlips", "1(\nf { faceLabels 2(0 1); flipMap 1(0); })",
            "faceZones: line 3: expected 2 flips in the flipMap of zone \"f\", one for each label, found 1"},
        BadZone{"TooManyEqualFlips", "1(f { faceLabels 2(0 1); flipMap 3{0}; })",
                "faceZones: line 2: expected at most 2 equal flips, found \"3\""},
        BadZone{
            "LabelsTwice", "1(f { faceLabels 1(0);\nfaceLabels 1(1); })",
            "faceZones: line 3: expected one entry faceLabels in zone \"f\", found a second one"},
        BadZone{"FlipsTwice", "1(f { faceLabels 1(0); flipMap 1{0};\nflipMap 1{0}; })",
                "faceZones: line 3: expected one entry flipMap in zone \"f\", found a second one"},
        BadZone{"FlipOfTwo", "1(f { faceLabels 2(0 1); flipMap 2(0 2); })",
                "faceZones: line 2: expected flip 2 of 2, found \"2\""},
        BadZone{"EqualLabelsInAll", "2(f { faceLabels 4{0}; } g { faceLabels 3{0}; })",
                "faceZones: line 2: expected at most 2 equal labels, found \"3\""},
        BadZone{
            "NoBrace", "1(f faceLabels 2(0 1);)",
            "faceZones: line 2: expected \"{\" behind the name of zone \"f\", found \"faceLabels\""},
        BadZone{"Cut", "1(f { faceLabels 2(0 1);",
                "faceZones: line 2: expected a keyword or \"}\", found the end of the file"},
        BadZone{
            "Directive", "1(f { #include \"x\" })",
            "faceZones: line 2: expected entries without directives and macros, which are not expanded, found \"#include\""}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace velto::openfoam
