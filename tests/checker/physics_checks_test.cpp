// SPDX-License-Identifier: Apache-2.0
//
// The physics objects: which attributes each kind needs, and where their values may lie.

#include <functional>

#include "testing/capture.h"
#include "testing/case_edits.h"
#include "tests/checker/CheckerFixture.h"
#include "tests/checker/checker_access.h"

namespace velto::testing {
namespace {

using Model = OrvLocationModel::State;

struct PhysicsRow {
  const char* name;
  std::function<void(memory::Case&)> damage;
  Texts errors;
  Texts warnings;
};

std::ostream& operator<<(std::ostream& out, const PhysicsRow& row) { return out << row.name; }

class PhysicsRows : public CheckerFixture, public ::testing::WithParamInterface<PhysicsRow> {};

TEST_P(PhysicsRows, Of) {
  const cases::CasePtr damaged = cases::withPhysics();
  GetParam().damage(*damaged);
  serve(damaged);
  const CheckResult result = check();
  EXPECT_EQ(result.good, GetParam().errors.empty());
  EXPECT_EQ(result.errors, GetParam().errors);
  EXPECT_EQ(result.warnings, GetParam().warnings);
  EXPECT_EQ(callsOf({"beginFaceTree"}), Transcript({"beginFaceTree()"})) << "the walk goes on";
}

/// Sets an entry to something else.
std::function<void(memory::Case&)> with(const std::string& path, const std::string& value) {
  return [=](memory::Case& c) { c.setSetting(path, value); };
}

/// Removes an entry, and keeps its object.
std::function<void(memory::Case&)> without(const std::string& path) {
  return [=](memory::Case& c) {
    c.setSetting(path.substr(0, path.rfind('/')) + "/kept", "here");
    removeSetting(c, path);
  };
}

const Texts kDomainError = {
    "checkDomain : The attribute 'location' of 'water' references locations that don't exist in the location model."};

const std::vector<PhysicsRow>& domainRows() {
  const std::string path = "domains/water/location";
  static const std::vector<PhysicsRow> kRows = {
      {"PassASoundCase", [](memory::Case&) {}, {}, {}},
      {"LieInABody", with(path, "heater"), {}, {}},
      {"LieInACompositeOfBodies", with(path, "metal"), {}, {}},
      {"LieInSeveral", with(path, "metal,heater,channel"), {}, {}},
      {"MayLieNowhere", with(path, ""), {}, {}},
      {"DoNotLieInACompositeOfUses", with(path, "wetted"), kDomainError, {}},
      {"DoNotLieOnAUse", with(path, "channel walls"), kDomainError, {}},
      {"DoNotLieOnAnInteriorZone", with(path, "screen"), kDomainError, {}},
      {"DoNotLieInACellZone", with(path, "fluid"), kDomainError, {}},
      {"DoNotLieOnAFace", with(path, "hull"), kDomainError, {}},
      {"DoNotLieInAPart", with(path, "assembly"), kDomainError, {}},
      {"DoNotLieInAnotherDomain", with(path, "steel"), kDomainError, {}},
      {"LieInExactlyThatName", with(path, "Channel"), kDomainError, {}},
      {"LieInTheWholeName", with(path, "chan"), kDomainError, {}},
      {"LieInNoMoreThanTheName", with(path, "channels"), kDomainError, {}},
      {"LieInNothingUnknownBesides", with(path, "channel,zzz"), kDomainError, {}},
      {"LieInNothingUnknownBefore", with(path, "aaa,channel"), kDomainError, {}},
      {"NameABodyOnce", with(path, "channel,channel"), kDomainError, {}},
      {"MayNameTwoBodiesOfOneName",
       [path](memory::Case& c) {
         changeModel(c, [](Model& m) {
           m.bodies[3].name = "channel";
           m.composites[11].name = "heater";
         });
         c.setSetting(path, "channel,channel");
         c.setSetting("domains/steel/location", "heater");
       },
       {},
       {}},
      {"DoNotLieInABodyWithoutPlaceInTheMesh",
       [](memory::Case& c) { changeModel(c, [](Model& m) { m.bodies[2].zones.clear(); }); },
       kDomainError,
       {}},
      {"MayLieInACompositeOfABodyWithoutPlaceInTheMesh",
       [](memory::Case& c) {
         changeModel(c, [](Model& m) { m.bodies[3].zones.clear(); });
         c.setSetting("subdomains/heating/location", "metal");
       },
       {},
       {}},
      {"AreToldByByteOrder",
       [path](memory::Case& c) {
         changeModel(c, [](Model& m) {
           m.bodies[2].name = "\xc3\xa9";
           m.composites[11].name = "Z";
         });
         c.setSetting("domains/steel/location", "Z");
         c.setSetting(path, "\xc3\xa9,Z,heater");
       },
       {},
       {}},
      {"NeedALocation",
       without(path),
       {},
       {"checkDomain : water' ORV physics model doesn't include required 'location' setting."}},
      {"AreCheckedInTheirOwnOrder",
       [path](memory::Case& c) {
         c.setSetting("domains/steel/location", "zzz");
         c.setSetting(path, "zzz");
       },
       kDomainError,
       {}},
      {"AreCheckedFirst",
       [path](memory::Case& c) {
         without("subdomains/heating/location")(c);
         without("interfaces/heat transfer/boundariesSide1")(c);
         c.setSetting("boundaries/screen/location", "zzz");
         c.setSetting(path, "zzz");
       },
       kDomainError,
       {}},
  };
  return kRows;
}

INSTANTIATE_TEST_SUITE_P(Domains, PhysicsRows, ::testing::ValuesIn(domainRows()),
                         [](const auto& row) { return std::string(row.param.name); });

const std::vector<PhysicsRow>& subdomainRows() {
  const std::string step = "checkSubdomain : ";
  const std::string error =
      " of 'heating' references locations that don't exist in the location model.";
  const std::string location = "subdomains/heating/location";
  const std::string domain = "subdomains/heating/domain";
  static const std::vector<PhysicsRow> kRows = {
      {"LieInAComposite", with(location, "metal"), {}, {}},
      {"NeedALocation",
       without(location),
       {},
       {step + "heating' ORV physics model doesn't include required 'location' setting."}},
      {"DoNotLieOnAUse",
       with(location, "heater walls"),
       {step + "The attribute 'location'" + error},
       {}},
      {"MayBelongToSeveralDomains", with(domain, "water,steel"), {}, {}},
      {"MayBelongToNoDomain", with(domain, ""), {}, {}},
      {"AreWarnedOfWithoutDomain",
       without(domain),
       {},
       {step + "heating' ORV physics model doesn't include optional 'domain' setting."}},
      {"GoOnAfterTheWarning",
       [domain](memory::Case& c) {
         without(domain)(c);
         c.setSetting("subdomains/cooling/location", "channel");
         c.setSetting("boundaries/screen/location", "zzz");
       },
       {"checkBoundary : The attribute 'location' of 'screen' references locations that don't exist in the location model."},
       {step + "heating' ORV physics model doesn't include optional 'domain' setting.",
        step + "cooling' ORV physics model doesn't include optional 'domain' setting."}},
      {"BelongToADomainAndNotToItsBody",
       with(domain, "heater"),
       {step + "The attribute 'domain'" + error},
       {}},
      {"DoNotBelongToASubdomain",
       with(domain, "heating"),
       {step + "The attribute 'domain'" + error},
       {}},
      {"BelongToExactlyThatDomain",
       with(domain, "Steel"),
       {step + "The attribute 'domain'" + error},
       {}},
      {"HaveTheirLocationCheckedFirst",
       [=](memory::Case& c) {
         c.setSetting(domain, "zzz");
         c.setSetting(location, "zzz");
       },
       {step + "The attribute 'location'" + error},
       {}},
      {"MayBeAbsent", [](memory::Case& c) { removeSetting(c, "subdomains"); }, {}, {}},
  };
  return kRows;
}

INSTANTIATE_TEST_SUITE_P(Subdomains, PhysicsRows, ::testing::ValuesIn(subdomainRows()),
                         [](const auto& row) { return std::string(row.param.name); });

const std::vector<PhysicsRow>& boundaryRows() {
  const std::string step = "checkBoundary : ";
  const std::string error =
      " of 'friction' references locations that don't exist in the location model.";
  const std::string location = "boundaries/friction/location";
  const std::string domain = "boundaries/friction/domain";
  static const std::vector<PhysicsRow> kRows = {
      {"LieOnAUse", with(location, "channel walls"), {}, {}},
      {"LieOnAUseOfARelativeName", with(location, "contact@channel"), {}, {}},
      {"LieOnAnInteriorZone", with(location, "screen"), {}, {}},
      {"LieOnACompositeOfUses", with(location, "wetted"), {}, {}},
      {"LieOnSeveral", with(location, "wetted,screen,heater walls,channel walls"), {}, {}},
      {"DoNotLieOnTheRelativeNameOfAUseThatHasAName",
       with(location, "hull@channel"),
       {step + "The attribute 'location'" + error},
       {}},
      {"DoNotLieOnAWallZone",
       with(location, "fluid walls"),
       {step + "The attribute 'location'" + error},
       {}},
      {"DoNotLieOnAnInteriorZoneThatNoBodyLists",
       [](memory::Case& c) {
         changeModel(c, [](Model& m) { m.bodies[2].zones[1] = {6}; });
         c.setSetting("boundaries/screen/location", "wetted");
         c.setSetting("boundaries/friction/location", "screen");
       },
       {step + "The attribute 'location'" + error},
       {}},
      {"MayNameAnInteriorZoneOnceForEachBodyThatListsIt",
       [location](memory::Case& c) {
         changeModel(c, [](Model& m) { m.bodies[3].zones[1] = {7, 2}; });
         c.setSetting(location, "screen,screen");
       },
       {},
       {}},
      {"DoNotLieInABody",
       with(location, "channel"),
       {step + "The attribute 'location'" + error},
       {}},
      {"DoNotLieInACompositeOfBodies",
       with(location, "metal"),
       {step + "The attribute 'location'" + error},
       {}},
      {"NeedALocation",
       without(location),
       {},
       {step + "friction' ORV physics model doesn't include required 'location' setting."}},
      {"AreWarnedOfWithoutDomain",
       without(domain),
       {},
       {step + "friction' ORV physics model doesn't include optional 'domain' setting."}},
      {"BelongToADomain", with(domain, "friction"), {step + "The attribute 'domain'" + error}, {}},
      {"BelongToNoDomainWhereThereIsNone",
       [](memory::Case& c) {
         removeSetting(c, "domains");
         removeSetting(c, "subdomains");
       },
       {step +
        "The attribute 'domain' of 'screen' references locations that don't exist in the location model."},
       {}},
      {"EndAtTheFirstFault",
       [=](memory::Case& c) {
         c.setSetting(location, "zzz");
         without("boundaries/insulation/location")(c);
       },
       {step + "The attribute 'location'" + error},
       {}},
  };
  return kRows;
}

INSTANTIATE_TEST_SUITE_P(Boundaries, PhysicsRows, ::testing::ValuesIn(boundaryRows()),
                         [](const auto& row) { return std::string(row.param.name); });

const std::vector<PhysicsRow>& interfaceRows() {
  const std::string step = "checkInterface : ";
  const std::string error =
      " of 'heat transfer' references locations that don't exist in the location model.";
  const std::string interface = "interfaces/heat transfer/";
  const std::string side1 = interface + "boundariesSide1";
  static const std::vector<PhysicsRow> kRows = {
      {"MayHaveSeveralBoundaries", with(side1, "water side,friction,insulation"), {}, {}},
      {"NeedBoundariesOnSideOneAndAreWarnedOfOnce",
       without(side1),
       {},
       {step +
        "heat transfer' ORV physics model doesn't include required 'boundariesSide1' setting."}},
      {"DoNotLieOnASubdomain",
       with(side1, "heating"),
       {step + "The attribute 'boundariesSide1'" + error},
       {}},
      {"DoNotLieOnAUse",
       with(side1, "channel walls"),
       {step + "The attribute 'boundariesSide1'" + error},
       {}},
      {"NeedNoBoundariesOnSideTwo", without(interface + "boundariesSide2"), {}, {}},
      {"AreNotJudgedBySideTwo", with(interface + "boundariesSide2", "zzz"), {}, {}},
      {"AreWarnedOfWithoutDomains",
       [interface](memory::Case& c) {
         without(interface + "domainsSide1")(c);
         without(interface + "domainsSide2")(c);
       },
       {},
       {step + "heat transfer' ORV physics model doesn't include optional 'domainsSide1' setting.",
        step +
            "heat transfer' ORV physics model doesn't include optional 'domainsSide2' setting."}},
      {"HaveDomainsOnSideOne",
       with(interface + "domainsSide1", "water side"),
       {step + "The attribute 'domainsSide1'" + error},
       {}},
      {"HaveDomainsOnSideTwo",
       with(interface + "domainsSide2", "steel,zzz"),
       {step + "The attribute 'domainsSide2'" + error},
       {}},
      {"MayBeAllThereIsButBoundaries",
       [](memory::Case& c) {
         for (const char* const kind : {"domains", "subdomains", "boundaries"}) {
           removeSetting(c, kind);
         }
       },
       {step + "The attribute 'boundariesSide1'" + error},
       {}},
      {"MayBeAbsent", [](memory::Case& c) { removeSetting(c, "interfaces"); }, {}, {}},
  };
  return kRows;
}

INSTANTIATE_TEST_SUITE_P(Interfaces, PhysicsRows, ::testing::ValuesIn(interfaceRows()),
                         [](const auto& row) { return std::string(row.param.name); });

// --- One attribute ------------------------------------------------------------------------------

struct AttributeRow {
  const char* name;
  const char* value;
  Texts validNames;
  bool passes;
};

std::ostream& operator<<(std::ostream& out, const AttributeRow& row) { return out << row.name; }

class PhysicsAttribute : public CheckerFixture,
                         public ::testing::WithParamInterface<AttributeRow> {};

TEST_P(PhysicsAttribute, Of) {
  const AttributeRow& row = GetParam();
  const cases::CasePtr served = cases::oneHex();
  served->setSetting("pipes/long one/ends", row.value);
  open(served);
  for (const bool optional : {false, true}) {
    const StreamCapture streams;
    EXPECT_EQ(checker_access::checkPhysicsObject(checker, "pipes", "long one", "ends",
                                                 row.validNames, optional),
              row.passes);
    EXPECT_EQ(streams.out(), "");
  }
  const std::string error =
      "checkCase : The attribute 'ends' of 'long one' references locations that don't exist in the location model.";
  EXPECT_EQ(checker.getErrors(), row.passes ? Texts() : Texts({error, error}));
  EXPECT_EQ(checker.getWarnings(), Texts());
  EXPECT_EQ(calls(), Transcript({"getSettings(0, pipes/long one/ends, 1)",
                                 "getSettings(0, pipes/long one/ends, 1)"}));
}

INSTANTIATE_TEST_SUITE_P(
    Physics, PhysicsAttribute,
    ::testing::Values(AttributeRow{"PassesWithOneName", "b", {"a", "b", "c"}, true},
                      AttributeRow{"PassesWithNamesInAnyOrder", "c,a,b", {"a", "b", "c"}, true},
                      AttributeRow{"PassesWithoutValues", "", {"a"}, true},
                      AttributeRow{"PassesWithoutValuesAndNames", "", {}, true},
                      AttributeRow{"PassesWithANameForEachOfTwo", "a,b,a", {"a", "a", "b"}, true},
                      AttributeRow{"PassesWithNamesThatAreThereMoreOften", "b", {"b", "b"}, true},
                      AttributeRow{"FailsWithoutNames", "a", {}, false},
                      AttributeRow{"FailsBetweenNames", "b", {"a", "c"}, false},
                      AttributeRow{"FailsBehindNames", "d", {"a", "c"}, false},
                      AttributeRow{"FailsWithOneNameForTwo", "a,a", {"a", "b"}, false},
                      AttributeRow{"FailsWithOneOfMany", "a,b,x,c", {"a", "b", "c"}, false}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace velto::testing
