// SPDX-License-Identifier: Apache-2.0
//
// Shadow faces: which partners are in the range of the shadow zone, and what is asked for.

#include <functional>

#include "tests/checker/DeepChecksFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using base::boundaryPeriodic;
using base::boundaryPeriodicShadow;
using base::boundaryWall;
using checker_access::checkFacesShadowZones;
using memory::CaseBuilder;
using memory::FaceLine;
using memory::Slice;

const Texts kOutOfRange = {
    "checkFacesShadowZones : Face shadow facet ids are out of target shadow range"};

/// Face zones 2 (faces 1 to 3), 3 (its shadow, faces 4 to 6) and 4 (face 7).
cases::CasePtr pair() {
  return CaseBuilder()
      .faces(2, "left", boundaryPeriodic, std::vector<FaceLine>(3))
      .faces(3, "right", boundaryPeriodicShadow, std::vector<FaceLine>(3))
      .faces(4, "wall", boundaryWall, std::vector<FaceLine>(1))
      .shadows(2, 3)
      .build();
}

void setPartners(memory::Case& changed, int zone, const Ids& partners) {
  changed.arrays().faceShadows[zone] = Slice<std::uint64_t>(partners);
}

void setShadow(memory::Case& changed, int zone, int shadow) {
  changed.zone(zone).faceInfo[faceZoneShadow] = shadow;
}

struct ShadowRow {
  const char* name;
  std::function<void(memory::Case&)> damage;
  Texts errors;
  Transcript asked;  // for shadows
};

std::ostream& operator<<(std::ostream& out, const ShadowRow& row) { return out << row.name; }

const Transcript kOfBoth = {"getFaceShadow(1)", "getFaceShadow(2)", "getFaceShadow(3)",
                            "getFaceShadow(4)", "getFaceShadow(5)", "getFaceShadow(6)"};
const Transcript kOfTheFirst = {"getFaceShadow(1)", "getFaceShadow(2)", "getFaceShadow(3)"};
const Transcript kOfTheSecond = {"getFaceShadow(4)", "getFaceShadow(5)", "getFaceShadow(6)"};

const std::vector<ShadowRow>& partnerRows() {
  static const std::vector<ShadowRow> kRows = {
      {"Pass", [](memory::Case&) {}, {}, kOfBoth},
      {"PassThatDoNotNameBack",
       [](memory::Case& c) {
         setPartners(c, 2, {6, 5, 4});
       },
       {},
       kOfBoth},
      {"PassThatAreTheFirstIdForAll",
       [](memory::Case& c) {
         setPartners(c, 2, {4, 4, 4});
       },
       {},
       kOfBoth},
      {"PassThatAreTheLastIdForTwo",
       [](memory::Case& c) {
         setPartners(c, 2, {5, 6, 6});
       },
       {},
       kOfBoth},
      {"BelowTheFirstId",
       [](memory::Case& c) {
         setPartners(c, 2, {4, 3, 6});
       },
       kOutOfRange, kOfBoth},
      {"AboveTheLastId",
       [](memory::Case& c) {
         setPartners(c, 2, {4, 5, 7});
       },
       kOutOfRange, kOfBoth},
      {"Zero",
       [](memory::Case& c) {
         setPartners(c, 2, {0, 5, 6});
       },
       kOutOfRange, kOfBoth},
      {"TheLargestId",
       [](memory::Case& c) {
         setPartners(c, 2, {4, kLargestId, 6});
       },
       kOutOfRange, kOfBoth},
      {"Of32BitsThatWouldBeInRange",
       [](memory::Case& c) {
         setPartners(c, 2, {4, (std::uint64_t{1} << 32U) + 5, 6});
       },
       kOutOfRange, kOfBoth},
      {"AllOfThemOut",
       [](memory::Case& c) {
         setPartners(c, 2, {1, 2, 3});
         setPartners(c, 3, {4, 5, 6});
       },
       kOutOfRange, kOfBoth},
      {"OfTheSecondZoneOut",
       [](memory::Case& c) {
         setPartners(c, 3, {1, 2, 4});
       },
       kOutOfRange, kOfBoth},
      {"ThatAreNotStored", [](memory::Case& c) { setPartners(c, 3, {1}); }, kOutOfRange, kOfBoth},
  };
  return kRows;
}

const std::vector<ShadowRow>& zoneRows() {
  static const std::vector<ShadowRow> kRows = {
      {"WithoutShadowZoneIsPassedOver",
       [](memory::Case& c) {
         setPartners(c, 2, {0, 0, 0});
         setShadow(c, 2, 0);
       },
       {},
       kOfTheSecond},
      {"WhoseShadowZoneWasNeverSetIsPassedOver",
       [](memory::Case& c) {
         setPartners(c, 2, {0, 0, 0});
         c.zone(2).faceInfo[faceZoneShadow].reset();
       },
       {},
       kOfTheSecond},
      {"WithANegativeShadowZoneIsPassedOver",
       [](memory::Case& c) {
         setPartners(c, 2, {0, 0, 0});
         setShadow(c, 2, -3);
       },
       {},
       kOfTheSecond},
      {"WithoutShadowZoneBehindOneWithIsPassedOver",
       [](memory::Case& c) {
         setPartners(c, 3, {0, 0, 0});
         setShadow(c, 3, 0);
       },
       {},
       kOfTheFirst},
      {"WithoutShadowZoneBehindABadOneIsPassedOver",
       [](memory::Case& c) {
         setPartners(c, 2, {4, 0, 6});
         setShadow(c, 3, -1);
       },
       kOutOfRange, kOfTheFirst},
      {"WhoseShadowZoneDoesNotExistHasItFromZeroToZero",
       [](memory::Case& c) {
         setPartners(c, 2, {0, 0, 0});
         setShadow(c, 2, 77);
       },
       {},
       kOfBoth},
      {"WithPartnersInAShadowZoneThatDoesNotExist", [](memory::Case& c) { setShadow(c, 2, 77); },
       kOutOfRange, kOfBoth},
      {"WhoseShadowIsItself",
       [](memory::Case& c) {
         setPartners(c, 2, {1, 2, 3});
         setShadow(c, 2, 2);
       },
       {},
       kOfBoth},
      {"WhoseShadowIsNotLinkedInReturn",
       [](memory::Case& c) {
         setPartners(c, 2, {7, 7, 7});
         setShadow(c, 2, 4);
       },
       {},
       kOfBoth},
      {"WhoseShadowHasFirstAboveLast",
       [](memory::Case& c) {
         setRange(c, 4, 6, 4);
         setPartners(c, 2, {4, 5, 6});
         setShadow(c, 2, 4);
       },
       kOutOfRange, kOfBoth},
      {"WithFirstAboveLastReadsNothing",
       [](memory::Case& c) {
         setRange(c, 2, 3, 1);
         setShadow(c, 3, 0);
       },
       {},
       {}},
      {"ThatEndsAtTheLargestId",
       [](memory::Case& c) { setRange(c, 2, kLargestId - 1, kLargestId); },
       kOutOfRange,  // of zone 3, whose partners are not of zone 2 any more
       {"getFaceShadow(18446744073709551614)", "getFaceShadow(18446744073709551615)",
        "getFaceShadow(4)", "getFaceShadow(5)", "getFaceShadow(6)"}},
      {"WhoseShadowEndsAtTheLargestId",
       [](memory::Case& c) {
         setRange(c, 4, kLargestId - 1, kLargestId);
         setPartners(c, 2, {kLargestId, kLargestId - 1, kLargestId});
         setShadow(c, 2, 4);
       },
       {},
       kOfBoth},
      {"ThatIsNotListedReadsNothing",
       [](memory::Case& c) {
         setPartners(c, 2, {0, 0, 0});
         c.arrays().faceShadows.remove(2);
       },
       {},
       kOfTheSecond},
      {"ThatIsListedAndLinkedByHandIsReadLast",
       [](memory::Case& c) {
         setPartners(c, 4, {8});
         setShadow(c, 4, 2);
       },
       kOutOfRange,
       {"getFaceShadow(1)", "getFaceShadow(2)", "getFaceShadow(3)", "getFaceShadow(4)",
        "getFaceShadow(5)", "getFaceShadow(6)", "getFaceShadow(7)"}},
  };
  return kRows;
}

class ShadowRows : public DeepChecksFixture, public ::testing::WithParamInterface<ShadowRow> {};

TEST_P(ShadowRows, Of) {
  const cases::CasePtr served = pair();
  GetParam().damage(*served);
  const CheckResult result = run(served, checkFacesShadowZones);
  EXPECT_TRUE(result.good);
  EXPECT_EQ(result.errors, GetParam().errors);
  EXPECT_EQ(result.warnings, Texts());
  EXPECT_EQ(callsOf({"getFaceShadow"}), GetParam().asked);
}

INSTANTIATE_TEST_SUITE_P(ShadowPartners, ShadowRows, ::testing::ValuesIn(partnerRows()),
                         [](const auto& row) { return std::string(row.param.name); });
INSTANTIATE_TEST_SUITE_P(ShadowZone, ShadowRows, ::testing::ValuesIn(zoneRows()),
                         [](const auto& row) { return std::string(row.param.name); });

class ShadowFaces : public DeepChecksFixture {};

TEST_F(ShadowFaces, AsksInOrder) {
  const cases::CasePtr served = pair();
  setPartners(*served, 4, {1});
  run(served, checkFacesShadowZones);
  EXPECT_EQ(calls(),
            Transcript({"getZoneIds(2)",         "beginFaceShadows()",    "getZoneSizeInfo(2, 0)",
                        "getZoneSizeInfo(2, 1)", "getFaceZoneInfo(2, 4)", "getZoneSizeInfo(3, 0)",
                        "getZoneSizeInfo(3, 1)", "getFaceShadow(1)",      "getFaceShadow(2)",
                        "getFaceShadow(3)",      "getZoneSizeInfo(3, 0)", "getZoneSizeInfo(3, 1)",
                        "getFaceZoneInfo(3, 4)", "getZoneSizeInfo(2, 0)", "getZoneSizeInfo(2, 1)",
                        "getFaceShadow(4)",      "getFaceShadow(5)",      "getFaceShadow(6)",
                        "getZoneSizeInfo(4, 0)", "getZoneSizeInfo(4, 1)", "getFaceZoneInfo(4, 4)",
                        "endFaceShadows()"}));
}

TEST_F(ShadowFaces, ClosesAFamilyThatListsNothing) {
  const cases::CasePtr served = pair();
  served->arrays().faceShadows = {};
  EXPECT_TRUE(run(served, checkFacesShadowZones).good);
  EXPECT_EQ(calls(), Transcript({"getZoneIds(2)", "beginFaceShadows()", "endFaceShadows()"}));
  EXPECT_EQ(checker.getErrors(), Texts());
}

TEST_F(ShadowFaces, HandTheListOfAllZonesToTheFamily) {
  EXPECT_EQ(listsGiven(pair(), checkFacesShadowZones), Transcript({"beginFaceShadows [2, 3, 4]"}));
}

TEST_F(ShadowFaces, WriteNoLineForAFace) {
  const cases::CasePtr served = pair();
  setPartners(*served, 2, {0, 0, 0});
  checker.setVerbosity(5);
  const CheckResult result = run(served, checkFacesShadowZones);
  EXPECT_EQ(result.out, "- checkFacesShadowZones - shadow faces\n");
  EXPECT_EQ(result.err,
            "Error: checkFacesShadowZones: Face shadow facet ids are out of target shadow range\n");
}

TEST_F(ShadowFaces, AreSilentAtVerbosityZero) {
  const cases::CasePtr served = pair();
  setPartners(*served, 2, {0, 0, 0});
  checker.setVerbosity(0);
  const CheckResult result = run(served, checkFacesShadowZones);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.errors, kOutOfRange);
}

TEST_F(ShadowFaces, AreEchoedAtLevelOne) {
  const cases::CasePtr served = pair();
  setPartners(*served, 2, {0, 0, 0});
  checker.setVerbosity(1);
  const CheckResult result = run(served, checkFacesShadowZones);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err,
            "Error: checkFacesShadowZones: Face shadow facet ids are out of target shadow range\n");
}

TEST_F(ShadowFaces, LeaveTheLibrarysErrorsToTheWalk) {
  prepare([](ScriptedProvider& p) { failOn(p, "beginFaceShadows"); });
  EXPECT_TRUE(run(pair(), checkFacesShadowZones).good);
  EXPECT_EQ(checker.getErrors(), Texts());
  EXPECT_EQ(callsOf({"hasError", "hasWarning"}), Transcript());
}

}  // namespace
}  // namespace velto::testing
