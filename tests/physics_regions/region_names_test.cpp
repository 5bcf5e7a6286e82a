// SPDX-License-Identifier: Apache-2.0
//
// Lists of names, names that several regions share, and the errors of queries.

#include <gtest/gtest.h>
#include <string>

#include "tests/physics_regions/region_answers.h"
#include "tests/physics_regions/region_rows.h"

namespace velto::testing {
namespace {

/// Answer and error of one query, which must be the first of a resolver.
void expectAnswer(const ResolverRun& run, const QueryRow& row) {
  EXPECT_EQ(row.ask(*run.resolver, row.region), row.answer);
  EXPECT_EQ(run.errors(), row.error.empty() ? Texts() : Texts({row.error}));
}

// --- Names by type ------------------------------------------------------------------------------

class RegionsOfType : public ::testing::TestWithParam<QueryRow> {};

TEST_P(RegionsOfType, InByteOrder) {
  expectAnswer(ResolverRun("domains/zinc/location = a\n"
                           "domains/air/location = b\n"
                           "domains/Zinc/location = c\n"
                           "domains/\xC3\xA4ther/location = d\n"
                           "boundaries/walls/location = e\n"
                           "boundaries/lid/location = f\n"
                           "subdomains/bed/location = g\n"
                           "interfaces/heat/boundariesSide1 = walls\n"
                           "interfaces/heat/boundariesSide2 = lid\n"),
               GetParam());
}

const QueryRow kTypes[] = {
    {"All", kRegionsOfType, "", "true [Zinc, air, bed, heat, lid, walls, zinc, \xC3\xA4ther]", ""},
    {"Domains", kRegionsOfType, "domain", "true [Zinc, air, zinc, \xC3\xA4ther]", ""},
    {"Boundaries", kRegionsOfType, "boundary", "true [lid, walls]", ""},
    {"Subdomains", kRegionsOfType, "subdomain", "true [bed]", ""},
    {"Interfaces", kRegionsOfType, "interface", "true [heat]", ""},
    {"AnInvalidType", kRegionsOfType, "blob", "false []", "Type 'blob' is invalid."},
    {"ATypeInOtherLetters", kRegionsOfType, "Boundary", "false []", "Type 'Boundary' is invalid."},
    {"ABlank", kRegionsOfType, " ", "false []", "Type ' ' is invalid."},
};

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, RegionsOfType, ::testing::ValuesIn(kTypes),
                         nameOf<QueryRow>);

class RegionsOfTypeWithoutRegions : public ::testing::TestWithParam<QueryRow> {};

TEST_P(RegionsOfTypeWithoutRegions, TellThatAlone) { expectAnswer(ResolverRun(""), GetParam()); }

const QueryRow kNoRegions[] = {
    {"All", kRegionsOfType, "", "false []", "This case doesn't contain any physics regions."},
    {"Domains", kRegionsOfType, "domain", "false []",
     "This case doesn't contain any physics regions."},
    {"AnInvalidType", kRegionsOfType, "blob", "false []",
     "This case doesn't contain any physics regions."},
};

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, RegionsOfTypeWithoutRegions,
                         ::testing::ValuesIn(kNoRegions), nameOf<QueryRow>);

TEST(RegionsOfOneType, AreTheOnlyOnes) {
  const ResolverRun run("domains/water/location = channel");
  for (const char* type : {"interface", "boundary", "subdomain"}) {
    EXPECT_EQ(kRegionsOfType(*run.resolver, type), "true []");
  }
  EXPECT_EQ(run.errors(), Texts());
}

// --- Names that several regions share -----------------------------------------------------------

struct SharedNameRow {
  std::string settings;
  QueryRow query;
  bool resolved = true;

  friend std::ostream& operator<<(std::ostream& out, const SharedNameRow& row) {
    return out << row.query;
  }
};

class SharedNames : public ::testing::TestWithParam<SharedNameRow> {};

TEST_P(SharedNames, StandForTheRegionThatWasReadLast) {
  ResolverRun run(GetParam().settings, R"(
    part assembly
      body channel: 7
      use hull of channel: 4
  )");
  if (GetParam().resolved) {
    ASSERT_TRUE(run.resolve());
  }
  expectAnswer(run, GetParam().query);
}

const char* const kDomainAndBoundary = R"(
  domains/x/location = channel
  boundaries/x/location = hull
)";
const char* const kSubdomainAndBoundary = R"(
  domains/water/location = channel
  subdomains/x/location = channel
  boundaries/x/location = hull
)";
const char* const kBoundaryAndInterface = R"(
  domains/water/location = channel
  boundaries/x/location = hull
  boundaries/lid/location = hull
  interfaces/x/boundariesSide1 = x
  interfaces/x/boundariesSide2 = lid
)";
const char* const kNamedDomainAndBoundary = R"(
  domains/x/location = channel
  subdomains/bed/location = channel
  subdomains/bed/domain = x
  boundaries/x/location = hull
)";

const SharedNameRow kShared[] = {
    {kDomainAndBoundary,
     {"BodiesOfADomainAndABoundary", kBodies, "x", "false []",
      "Region 'x' is not defined by Bodies."}},
    {kDomainAndBoundary, {"FaceUsesOfADomainAndABoundary", kFaceUses, "x", "true [4]", ""}},
    {kDomainAndBoundary, {"LocationOfADomainAndABoundary", kLocation, "x", "true 'hull'", ""}},
    {kDomainAndBoundary, {"BoundingOfADomainAndABoundary", kBounding, "x", "true 'x'", ""}},
    {kDomainAndBoundary, {"BoundedByOfADomainAndABoundary", kBoundedBy, "x", "false []", ""}},
    {kDomainAndBoundary, {"DomainAndBoundaryAsADomain", isOfType("domain"), "x", "false", ""}},
    {kDomainAndBoundary, {"DomainAndBoundaryAsABoundary", isOfType("boundary"), "x", "true", ""}},
    {kDomainAndBoundary, {"DomainsBesideABoundary", kRegionsOfType, "domain", "true []", ""}},
    {kDomainAndBoundary, {"BoundariesBesideADomain", kRegionsOfType, "boundary", "true [x]", ""}},
    {kDomainAndBoundary, {"RegionsOfOneName", kRegionsOfType, "", "true [x]", ""}},
    {kSubdomainAndBoundary,
     {"BoundedByASubdomainAndABoundary", kBoundedBy, "water", "true [x, x]", ""}},
    {kBoundaryAndInterface,
     {"BoundedByABoundaryAndAnInterface", kBoundedBy, "water", "true [lid]", ""}},
    {kBoundaryAndInterface, {"Side0OfABoundaryAndAnInterface", side(0), "x", "true 'x'", ""}},
    {kBoundaryAndInterface, {"Side1OfABoundaryAndAnInterface", side(1), "x", "true 'lid'", ""}},
    {kBoundaryAndInterface,
     {"FaceUsesOfABoundaryAndAnInterface", kFaceUses, "x", "false []",
      "Region 'x' is not defined by face uses."}},
    {kNamedDomainAndBoundary,
     {"BoundingOfANamedDomainBeforeResolving", kBounding, "x", "false ''",
      "Region 'x' is not associated with a domain."},
     false},
    {kNamedDomainAndBoundary,
     {"BoundedByOfASubdomainBeforeResolving", kBoundedBy, "bed", "true [x]", ""},
     false},
};

INSTANTIATE_TEST_SUITE_P(PhysicsRegions, SharedNames, ::testing::ValuesIn(kShared),
                         [](const auto& row) { return row.param.query.name; });

// --- Errors -------------------------------------------------------------------------------------

TEST(ErrorsOfAResolver, AreKeptInTheirOrderUntilTheyAreCleared) {
  const ResolverRun run("boundaries/walls/location = hull");
  const PhysicsRegionResolver& resolver = *run.resolver;
  const Texts& errors = resolver.getErrors();
  kBodies(resolver, "walls");
  kBodies(resolver, "nobody");
  EXPECT_FALSE(run.resolver->resolveUsing(nullptr));
  kBodies(resolver, "walls");
  EXPECT_EQ(errors, Texts({"Region 'walls' is not defined by Bodies.", "Region 'nobody' not found.",
                           "Mesh Model is not valid as it doesn't contain any zones.",
                           "Region 'walls' is not defined by Bodies."}));
  resolver.clearErrors();
  EXPECT_EQ(errors, Texts());
  kRegionsOfType(resolver, "blob");
  EXPECT_EQ(errors, Texts({"Type 'blob' is invalid."}));
  EXPECT_EQ(&resolver.getErrors(), &errors);
}

TEST(ErrorsOfAResolver, StayThroughAResolving) {
  ResolverRun run("domains/water/location = channel", "part assembly\n body channel: 7");
  kBodies(*run.resolver, "water");
  EXPECT_TRUE(run.resolve());
  EXPECT_EQ(kBodies(*run.resolver, "water"), "true [2]");
  EXPECT_EQ(run.errors(), Texts({"Region 'water' is not defined by Bodies."}));
}

// --- Tables with gaps ---------------------------------------------------------------------------

/// Domain 0 "water", boundaries 1 "walls" and 2 "lid" of it, interface 3 "heat" between them.
class TableWithGaps : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(run_.resolve()); }

  void expect(const QueryRow& row) {
    SCOPED_TRACE(row.name);
    run_.resolver->clearErrors();
    expectAnswer(run_, row);
  }

  /// No call of a resolver leaves such gaps, so they are made past it.
  RegionTable& table() { return const_cast<RegionTable&>(tableOf(*run_.resolver)); }

  ResolverRun run_{R"(
    domains/water/location = channel
    boundaries/walls/location = hull
    boundaries/lid/location = hull
    interfaces/heat/boundariesSide1 = walls
    interfaces/heat/boundariesSide2 = lid
  )",
                   R"(
    part assembly
      body channel: 7
      use hull of channel: 4
  )"};
};

TEST_F(TableWithGaps, GiveNoNameWithoutAWord) {
  table().regionNames.erase(0);
  table().regionNames.erase(2);
  expect({"Domain", kBounding, "walls", "false ''", ""});
  expect({"Boundaries", kBoundedBy, "water", "true [walls]", ""});
  expect({"Side1", side(1), "heat", "false ''", ""});
  expect({"Side0", side(0), "heat", "true 'walls'", ""});
}

TEST_F(TableWithGaps, GiveNoTypeWithoutAWord) {
  table().regionKinds.erase(1);
  expect({"Type", isOfType("boundary"), "walls", "false", ""});
  expect({"Boundaries", kRegionsOfType, "boundary", "true [lid]", ""});
  expect({"All", kRegionsOfType, "", "true [heat, lid, walls, water]", ""});
  expect({"BoundedBy", kBoundedBy, "water", "true [lid]", ""});
}

TEST_F(TableWithGaps, AreNotResolvedThere) {
  table().regionNames.erase(1);
  table().regionLocations.erase(2);
  EXPECT_TRUE(run_.resolve());
  EXPECT_EQ(
      run_.table(),
      "0 domain water at 'channel': bodies [2], cell zones [7] [], bulk zones [], zone sides [4]\n"
      "2 boundary lid\n"
      "3 interface heat: sides 1 2\n"
      "ids: heat 3, lid 2, walls 1, water 0\n");
  EXPECT_EQ(table().regionFaceUses, (std::map<int, std::vector<int>>()));
}

// --- Names out of the output --------------------------------------------------------------------

/// A text that does not fit into a string itself.
const std::string kLongName = "a domain with a name of some length";

TEST(NameInTheOutput, OfAListIsAskedFor) {
  ResolverRun run("domains/" + kLongName +
                      "/location = channel\n"
                      "boundaries/walls/location = hull\n",
                  "part assembly\n body channel: 7\n use hull of channel: 4");
  ASSERT_TRUE(run.resolve());
  Texts names = {kLongName};
  EXPECT_TRUE(run.resolver->boundedBy(names.front(), names));
  EXPECT_EQ(names, Texts({"walls"}));
  names = {"domain"};
  EXPECT_TRUE(run.resolver->regionsOfType(names, names.front()));
  EXPECT_EQ(names, Texts({kLongName}));
}

/// Emptied first, and then asked for.
TEST(NameInTheOutput, OfATextIsGone) {
  const ResolverRun run("domains/" + kLongName + "/location = channel");
  std::string name = kLongName;
  EXPECT_FALSE(run.resolver->regionLocation(name, name));
  EXPECT_EQ(name, "");
  EXPECT_EQ(run.errors(), Texts({"Region '' not found."}));
}

}  // namespace
}  // namespace velto::testing
