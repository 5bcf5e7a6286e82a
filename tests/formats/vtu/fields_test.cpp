// SPDX-License-Identifier: Apache-2.0
//
// Variables of the results as arrays, and the names that arrays get.

#include <gtest/gtest.h>

#include "embedded/memory/CaseBuilder.h"
#include "tests/formats/vtu/vtu_cases.h"

namespace velto::testing {
namespace {

using Values = std::vector<double>;
using memory::CaseBuilder;
using memory::Slice;

/// The arrays of point and cell data that are not of the mesh.
Texts fieldsOf(const Written& written) {
  EXPECT_EQ(written.errors(), Texts());
  Texts lines;
  for (const std::string& line : written.lines()) {
    const bool isData = line.find("Data ") != std::string::npos;
    if (isData && line.find(" Float64") != std::string::npos) {
      lines.push_back(line);
    }
  }
  return lines;
}

/// twoBodies() with phases "water" (1) and "air" (2).
cases::CasePtr twoPhases() {
  cases::CasePtr made = cases::twoBodies();
  addPhase(*made, 1, "water");
  addPhase(*made, 2, "air");
  return made;
}

void setVariable(memory::Case& made, short phase, OrvZoneCategory category, const std::string& name,
                 int zone, const Values& values, const base::MeshKey& key = {}) {
  made.arrays(key).variable({phase, category, name}).zones[zone] = Slice<double>(values);
}

TEST(FieldsInVtu, AreNotANumberWhereAZoneHasNone) {
  const cases::CasePtr made = twoPhases();
  setVariable(*made, 1, zoneCategoryCell, "heat", 6, {7});
  EXPECT_EQ(fieldsOf(Written(*made)), Texts({"CellData heat Float64: nan 7"}));
}

TEST(FieldsInVtu, AreNamedAfterThePhaseIfSeveralHaveThem) {
  const cases::CasePtr made = twoPhases();
  setVariable(*made, 1, zoneCategoryCell, "heat", 5, {1});
  setVariable(*made, 1, zoneCategoryCell, "speed", 5, {2});
  setVariable(*made, 2, zoneCategoryCell, "heat", 6, {3});
  setVariable(*made, 2, zoneCategoryNode, "heat", 1, Values(12, 4));
  EXPECT_EQ(fieldsOf(Written(*made)),
            Texts({"PointData heat Float64: 4 4 4 4 4 4 4 4 4 4 4 4",
                   "CellData water/heat Float64: 1 nan", "CellData speed Float64: 2 nan",
                   "CellData air/heat Float64: nan 3"}));
}

TEST(FieldsInVtu, DoNotTakeTheNamesOfOtherArrays) {
  const cases::CasePtr made = twoPhases();
  setVariable(*made, 1, zoneCategoryCell, "zone", 5, {1});
  setVariable(*made, 2, zoneCategoryNode, "node id", 1, Values(12, 4));
  EXPECT_EQ(fieldsOf(Written(*made)),
            Texts({"PointData air/node id Float64: 4 4 4 4 4 4 4 4 4 4 4 4",
                   "CellData water/zone Float64: 1 nan"}));
}

TEST(FieldsInVtu, AreLeftOutIfNoZoneHasThem) {
  const cases::CasePtr made = twoPhases();
  made->arrays().variable({1, zoneCategoryCell, "heat"});
  made->arrays().variable({1, zoneCategoryCell, "nothing"}).valuesPerEntity = 0;
  made->arrays().variable({1, zoneCategoryCell, "nothing"}).zones[5];
  EXPECT_EQ(fieldsOf(Written(*made)), Texts());
}

TEST(FieldsInVtu, AreThereInEachPiece) {
  const cases::CasePtr made = cases::withPartitions();
  addPhase(*made, 1, "water");
  const base::MeshKey second = {1, targetPartitionedPost, 1};
  setVariable(*made, 1, zoneCategoryCell, "heat", 3, {1, 2}, second);
  made->arrays(second).variable({1, zoneCategoryCell, "heat"}).valuesPerEntity = 2;
  EXPECT_EQ(fieldsOf(Written(*made)),
            Texts({"CellData heat Float64 x 2: nan nan", "CellData heat Float64 x 2: 1 2"}));
}

TEST(FieldsInVtu, AreNotOfFaces) {
  const cases::CasePtr made = twoPhases();
  setVariable(*made, 1, zoneCategoryFace, "wall heat", 3, Values(5, 1));
  setVariable(*made, 2, zoneCategoryFace, "shear", 3, Values(5, 1));
  setVariable(*made, 2, zoneCategoryFace, "wall heat", 3, Values(5, 1));
  setVariable(*made, 2, zoneCategoryCell, "heat", 5, {1});
  const Written written(*made);
  EXPECT_EQ(fieldsOf(written), Texts({"CellData heat Float64: 1 nan"}));
  EXPECT_EQ(written.warnings(), Texts({"Warning:\n\tend of writing: case.vtu: variables of faces "
                                       "are left out: wall heat, shear"}));
}

TEST(NamesInVtu, AreEscaped) {
  const cases::CasePtr made = twoPhases();
  made->tables.phases[0].name = "\"a\" & <b>";
  const std::string strange = "tab\tline\nreturn\r bell\a zero" + std::string(1, '\0') +
                              " \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x8C\x8A bad \xC3( \xFF \xED\xA0\x80";
  setVariable(*made, 1, zoneCategoryCell, "heat", 5, {1});
  setVariable(*made, 2, zoneCategoryCell, "heat", 5, {2});
  setVariable(*made, 2, zoneCategoryCell, strange, 5, {3});
  made->zone(5).texts[zoneName] = "\xC3\xA9<" + std::string(1, '\0') + "&";
  made->zone(6).texts[zoneName] = "";
  const Written written(*made);
  EXPECT_EQ(fieldsOf(written),
            Texts({"CellData &quot;a&quot; &amp; &lt;b&gt;/heat Float64: 1 nan",
                   "CellData air/heat Float64: 2 nan",
                   "CellData tab&#9;line&#10;return&#13; bell? zero? \xC3\xA9 \xE2\x82\xAC "
                   "\xF0\x9F\x8C\x8A bad ?( ? ??? Float64: 3 nan"}));
  EXPECT_EQ(written.file().fieldData, Texts({"zone ids: 5 6", "zone names: 195 169 60 63 38 0 0"}));
}

TEST(PartitionsInVtu, AreMinusOneWhereAZoneHasNone) {
  const cases::CasePtr made = cases::twoBodies();
  made->arrays().cellPartitions[6].partitions = Slice<int>(std::vector<int>{4});
  EXPECT_EQ(Written(*made).file().pieces.at(0).values("partition"), Values({-1, 4}));
}

}  // namespace
}  // namespace velto::testing
