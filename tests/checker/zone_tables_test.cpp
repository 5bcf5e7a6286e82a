// SPDX-License-Identifier: Apache-2.0
//
// The rules for face zones and for cell zones, and that no sound case breaks any.

#include <algorithm>
#include <functional>

#include "embedded/memory/MemoryConsumer.h"
#include "testing/write_case.h"
#include "tests/checker/ZoneTablesFixture.h"

namespace velto::testing {
namespace {

using ZoneTables = ZoneTablesFixture;

// --- Face zones ---------------------------------------------------------------------------------

struct ZoneRow {
  const char* name;
  std::function<void(memory::Case&)> damage;
  Texts errors;
  Texts warnings;
};

std::ostream& operator<<(std::ostream& out, const ZoneRow& row) { return out << row.name; }

/// periodicPair() has the face zones 2 and 3, each other's shadow, and 4.
const std::vector<ZoneRow>& faceZoneRows() {
  const std::string step = "checkFaceZones : ";
  static const std::vector<ZoneRow> kRows = {
      {"PassesAPair", [](memory::Case&) {}, {}, {}},
      {"ReportsAnotherDimension",
       [](memory::Case& c) { c.zone(4).sizes[zoneDimension] = 2; },
       {step + "Zone dimension inconsistent with mesh dimension"},
       {}},
      {"ReportsADimensionThatWasNotSet",
       [](memory::Case& c) { c.zone(4).sizes[zoneDimension].reset(); },
       {step + "Zone dimension inconsistent with mesh dimension"},
       {}},
      {"ReportsADimensionThatFitsInItsLowBits",
       [](memory::Case& c) { c.zone(4).sizes[zoneDimension] = kTwoTo32 + 3; },
       {step + "Zone dimension inconsistent with mesh dimension"},
       {}},
      {"PassesAZoneWithoutType",
       [](memory::Case& c) { c.zone(4).faceInfo[faceZoneType] = -1; },
       {},
       {}},
      {"PassesAZoneTypeThatWasNotSet",
       [](memory::Case& c) { c.zone(4).faceInfo[faceZoneType].reset(); },
       {},
       {}},
      {"PassesAnUnknownZoneType",
       [](memory::Case& c) { c.zone(4).faceInfo[faceZoneType] = 12345; },
       {},
       {}},
      {"ReportsAZoneTypeBelowMinusOne",
       [](memory::Case& c) { c.zone(4).faceInfo[faceZoneType] = -2; },
       {step + "Invalid face zone type"},
       {}},
      {"WarnsOfAFaceTypeOfMinusOne",
       [](memory::Case& c) { c.zone(4).faceInfo[faceZoneFaceType] = -1; },
       {},
       {step + "Face type was not set"}},
      {"PassesAFaceTypeThatTheLibraryLeftAlone",
       [](memory::Case& c) { c.zone(4).faceInfo[faceZoneFaceType].reset(); },
       {},
       {}},
      {"ReportsAFaceTypeBelowMinusOne",
       [](memory::Case& c) { c.zone(4).faceInfo[faceZoneFaceType] = -2; },
       {step + "Invalid face type"},
       {}},
      {"PassesLinksToFaceZones",
       [](memory::Case& c) {
         c.zone(4).faceInfo[faceZoneChild] = 2;
         c.zone(4).faceInfo[faceZoneParent0] = 3;
         c.zone(4).faceInfo[faceZoneParent1] = 4;
       },
       {},
       {}},
      {"ReportsAChildThatIsNoFaceZone",
       [](memory::Case& c) { c.zone(4).faceInfo[faceZoneChild] = 5; },
       {step + "Face zone child zone id invalid"},
       {}},
      {"ReportsAFirstParentThatIsNoFaceZone",
       [](memory::Case& c) { c.zone(4).faceInfo[faceZoneParent0] = 5; },
       {step + "Face zone parent0 zone id invalid"},
       {}},
      {"ExcusesTheFirstParentOfAZoneOfTheFaceTree",
       [](memory::Case& c) {
         c.zone(4).faceInfo[faceZoneParent0] = 5;
         c.arrays().treeParentZones = {9, 4, 2};
       },
       {},
       {}},
      {"DoesNotExcuseAFirstParentByItsOwnPlaceInTheFaceTree",
       [](memory::Case& c) {
         c.zone(4).faceInfo[faceZoneParent0] = 5;
         c.arrays().treeParentZones = {5};
         c.arrays().treeChildZones = {4};
       },
       {step + "Face zone parent0 zone id invalid"},
       {}},
      {"ReportsASecondParentThatIsNoFaceZone",
       [](memory::Case& c) { c.zone(4).faceInfo[faceZoneParent1] = -7; },
       {step + "Face zone parent1 zone id invalid"},
       {}},
      {"DoesNotExcuseTheSecondParentOfAZoneOfTheFaceTree",
       [](memory::Case& c) {
         c.zone(4).faceInfo[faceZoneParent0] = 5;
         c.zone(4).faceInfo[faceZoneParent1] = 5;
         c.arrays().treeParentZones = {4};
       },
       {step + "Face zone parent1 zone id invalid"},
       {}},
      {"ReportsAShadowThatIsNoFaceZone",
       [](memory::Case& c) { c.zone(4).faceInfo[faceZoneShadow] = 5; },
       {step + "Face zone shadow zone id invalid"},
       {}},
      {"ReportsALinkToAZoneWithoutShadow",
       [](memory::Case& c) { c.zone(3).faceInfo[faceZoneShadow] = 0; },
       {step + "Face zone shadow link is not bilateral"},
       {}},
      {"ReportsALinkToAZoneWhoseShadowWasNotSet",
       [](memory::Case& c) { c.zone(3).faceInfo[faceZoneShadow].reset(); },
       {step + "Face zone shadow link is not bilateral"},
       {}},
      {"ReportsEachLinkOfACircle",
       [](memory::Case& c) {
         c.zone(2).faceInfo[faceZoneShadow] = 3;
         c.zone(3).faceInfo[faceZoneShadow] = 4;
         c.zone(4).faceInfo[faceZoneShadow] = 2;
       },
       {step + "Face zone shadow link is not bilateral",
        step + "Face zone shadow link is not bilateral",
        step + "Face zone shadow link is not bilateral"},
       {}},
      {"PassesAZoneThatIsItsOwnShadow",
       [](memory::Case& c) { c.zone(4).faceInfo[faceZoneShadow] = 4; },
       {},
       {}},
      {"ReportsEveryRuleOfEveryZone",
       [](memory::Case& c) {
         for (const int zone : {3, 4}) {
           c.zone(zone).sizes[zoneDimension] = 2;
           c.zone(zone).faceInfo = {-3, 11, 12, 13, 14, -2};
         }
       },
       {step + "Face zone shadow link is not bilateral",
        step + "Zone dimension inconsistent with mesh dimension", step + "Invalid face zone type",
        step + "Invalid face type", step + "Face zone child zone id invalid",
        step + "Face zone parent0 zone id invalid", step + "Face zone parent1 zone id invalid",
        step + "Face zone shadow zone id invalid",
        step + "Zone dimension inconsistent with mesh dimension", step + "Invalid face zone type",
        step + "Invalid face type", step + "Face zone child zone id invalid",
        step + "Face zone parent0 zone id invalid", step + "Face zone parent1 zone id invalid",
        step + "Face zone shadow zone id invalid"},
       {}},
      {"GoesThroughItsZonesAfterAWrongRange",
       [](memory::Case& c) {
         c.zone(3).sizes[zoneElementCount] = 7;
         c.zone(4).faceInfo[faceZoneType] = -5;
       },
       {step + "Error in zone size / start / end", step + "Invalid face zone type"},
       {}},
  };
  return kRows;
}

class FaceZoneRows : public ZoneTables, public ::testing::WithParamInterface<ZoneRow> {};

TEST_P(FaceZoneRows, Of) {
  const cases::CasePtr damaged = cases::periodicPair();
  GetParam().damage(*damaged);
  const CheckResult result = run(damaged);
  EXPECT_EQ(result.good, GetParam().errors.empty());
  EXPECT_EQ(result.errors, GetParam().errors);
  EXPECT_EQ(result.warnings, GetParam().warnings);
}

INSTANTIATE_TEST_SUITE_P(FaceZones, FaceZoneRows, ::testing::ValuesIn(faceZoneRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(ZoneTables, ComparesFaceZonesWithTheDimensionOfTheMesh) {
  const cases::CasePtr damaged = cases::quad2d();
  EXPECT_EQ(run(damaged).errors, Texts());
  for (const int zone : {2, 4}) {
    damaged->zone(zone).sizes[zoneDimension] = 3;
  }
  EXPECT_EQ(run(damaged).errors,
            Texts({"checkFaceZones : Zone dimension inconsistent with mesh dimension",
                   "checkCellZones : Zone dimension inconsistent with mesh dimension"}));
}

TEST_F(ZoneTables, DoNotCompareTheDimensionOfNodeZones) {
  const cases::CasePtr changed = cases::oneHex();
  changed->zone(1).sizes[zoneDimension] = 0;
  EXPECT_TRUE(run(changed).good);
}

// --- Cell zones ---------------------------------------------------------------------------------

/// twoBodies() has the cell zones 5 and 6; nothing lists the nodes of their cells.
const std::vector<ZoneRow>& cellZoneRows() {
  const std::string step = "checkCellZones : ";
  static const std::vector<ZoneRow> kRows = {
      {"PassesTwoBodies", [](memory::Case&) {}, {}, {}},
      {"ReportsAnotherDimension",
       [](memory::Case& c) { c.zone(6).sizes[zoneDimension] = 2; },
       {step + "Zone dimension inconsistent with mesh dimension"},
       {}},
      {"PassesACellTypeOfZero",
       [](memory::Case& c) { c.zone(6).cellInfo[cellZoneCellType] = 0; },
       {},
       {}},
      {"ReportsACellTypeOfMinusOneInAFaceNodeZone",
       [](memory::Case& c) { c.zone(6).cellInfo[cellZoneCellType] = -1; },
       {step + "Cell type was not set - mandatory for a face-node zone"},
       {}},
      {"ReportsACellTypeThatTheLibraryLeftAloneInAFaceNodeZone",
       [](memory::Case& c) { c.zone(5).cellInfo[cellZoneCellType].reset(); },
       {step + "Cell type was not set - mandatory for a face-node zone"},
       {}},
      {"WarnsOfACellTypeOfMinusOneInAZoneThatListsNodes",
       [](memory::Case& c) {
         c.zone(5).cellInfo[cellZoneCellType] = -1;
         c.zone(6).cellInfo[cellZoneCellType] = -1;
         c.arrays().cellNodes[6] = {};
       },
       {step + "Cell type was not set - mandatory for a face-node zone"},
       {step + "Cell type was not set"}},
      {"WarnsOfACellTypeOfMinusOneInAnInconsistentZone",
       [](memory::Case& c) {
         c.zone(6).cellInfo[cellZoneCellType] = -1;
         c.arrays().cellFaces[6] = {};
       },
       {},
       {step + "Cell type was not set"}},
      {"ReportsACellTypeBelowMinusOne",
       [](memory::Case& c) { c.zone(6).cellInfo[cellZoneCellType] = -2; },
       {step + "Invalid cell type"},
       {}},
      {"PassesAChildThatIsACellZone",
       [](memory::Case& c) { c.zone(6).cellInfo[cellZoneChild] = 5; },
       {},
       {}},
      {"ReportsAChildThatIsNoCellZone",
       [](memory::Case& c) { c.zone(6).cellInfo[cellZoneChild] = 4; },
       {step + "Cell zone child zone id invalid"},
       {}},
      {"ReportsEveryRuleOfEveryZone",
       [](memory::Case& c) {
         for (const int zone : {5, 6}) {
           c.zone(zone).sizes[zoneDimension] = 7;
           c.zone(zone).cellInfo = {-9, -1};
         }
       },
       {step + "Zone dimension inconsistent with mesh dimension", step + "Invalid cell type",
        step + "Cell zone child zone id invalid",
        step + "Zone dimension inconsistent with mesh dimension", step + "Invalid cell type",
        step + "Cell zone child zone id invalid"},
       {}},
      {"GoesThroughItsZonesAfterAWrongRange",
       [](memory::Case& c) {
         c.zone(5).sizes[zoneLastId] = 2;
         c.zone(6).cellInfo[cellZoneChild] = 9;
       },
       {step + "Error in zone size / start / end", step + "Cell zone child zone id invalid"},
       {}},
  };
  return kRows;
}

class CellZoneRows : public ZoneTables, public ::testing::WithParamInterface<ZoneRow> {};

TEST_P(CellZoneRows, Of) {
  const cases::CasePtr damaged = cases::twoBodies();
  GetParam().damage(*damaged);
  const CheckResult result = run(damaged);
  EXPECT_EQ(result.good, GetParam().errors.empty());
  EXPECT_EQ(result.errors, GetParam().errors);
  EXPECT_EQ(result.warnings, GetParam().warnings);
}

INSTANTIATE_TEST_SUITE_P(CellZones, CellZoneRows, ::testing::ValuesIn(cellZoneRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(ZoneTables, GoByThePositionOfACellZoneAndNotByItsId) {
  const cases::CasePtr changed = cases::twoBodies();
  changed->mesh().zoneIds[zoneCategoryCell] = {6, 5};
  changed->zone(6).cellInfo[cellZoneCellType] = -1;
  changed->arrays().cellNodes[6] = {};
  const CheckResult result = run(changed);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(result.warnings, Texts({"checkCellZones : Cell type was not set"}));
}

TEST_F(ZoneTables, TakeACellZoneThatWasNeverClassifiedAsNoFaceNodeZone) {
  // The library lists one zone more once the zones were classified.
  const cases::CasePtr grown = cases::twoBodies();
  grown->zone(6).cellInfo[cellZoneCellType] = -1;
  serve(grown);
  prepare([](ScriptedProvider& p) {
    p.on("getZoneIds(3)", 2, [](base::CaseCore& core) {
      core.tables.meshes.begin()->second.zoneIds[zoneCategoryCell] = {5};
    });
    p.on("getZoneIds(3)", 3, [](base::CaseCore& core) {
      core.tables.meshes.begin()->second.zoneIds[zoneCategoryCell] = {5, 6};
    });
  });
  const CheckResult result = check();
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(result.warnings, Texts({"checkCellZones : Cell type was not set"}));
}

// --- Sound cases --------------------------------------------------------------------------------

/// A restart mesh without physics objects is told of; there is nothing else to say.
Texts warningsOf(const cases::NamedCase& sound) {
  const cases::CasePtr made = sound.make();
  const bool isTold =
      made->tables.meshes.begin()->first.target == targetRestart && made->tables.settings.empty();
  return isTold ? Texts({"checkPhysicsToMeshMapUsingTopologyModel : No Physics Model - skipped"})
                : Texts();
}

class SoundCases : public CheckerFixture, public ::testing::WithParamInterface<cases::NamedCase> {};

TEST_P(SoundCases, GiveNoMessage) {
  serve(GetParam().make());
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(result.warnings, warningsOf(GetParam()));
  EXPECT_EQ(result.out, "");
}

INSTANTIATE_TEST_SUITE_P(ZoneTables, SoundCases, ::testing::ValuesIn(cases::all()),
                         [](const auto& row) { return row.param.name; });

/// All but the case whose cells list their faces, for which a consumer has no operation.
std::vector<cases::NamedCase> writableCases() {
  std::vector<cases::NamedCase> writable = cases::all();
  writable.erase(std::remove_if(writable.begin(), writable.end(),
                                [](const auto& one) { return one.name == "PostPolyhedron"; }),
                 writable.end());
  return writable;
}

class WrittenCases : public CheckerFixture,
                     public ::testing::WithParamInterface<cases::NamedCase> {};

TEST_P(WrittenCases, StaySound) {
  memory::MemoryConsumer consumer;
  writeCase(*GetParam().make(), consumer);
  serve(consumer.takeCase());
  prepare([](ScriptedProvider& p) { p.answerVersion(3, 4, 5); });
  const CheckResult result = check();
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, Texts());
  EXPECT_EQ(result.warnings, warningsOf(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(ZoneTables, WrittenCases, ::testing::ValuesIn(writableCases()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace velto::testing
