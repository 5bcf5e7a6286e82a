// SPDX-License-Identifier: Apache-2.0
//
// Queries by the name of a region: before a resolving, after one, and after one that failed.

#include <gtest/gtest.h>
#include <type_traits>

#include "tests/physics_regions/region_answers.h"
#include "tests/physics_regions/region_rows.h"

namespace velto::testing {
namespace {

static_assert(!std::is_copy_constructible_v<PhysicsRegionResolver>);
static_assert(!std::is_copy_assignable_v<PhysicsRegionResolver>);
static_assert(!std::is_move_constructible_v<PhysicsRegionResolver>);
static_assert(!std::is_move_assignable_v<PhysicsRegionResolver>);
static_assert(!std::is_polymorphic_v<PhysicsRegionResolver>);

/// A case of every kind. Domain "oil" and boundary "rim" are nowhere.
class Queries : public ::testing::TestWithParam<QueryRow> {
 protected:
  /// Asks twice, since no answer changes the next one.
  void expectAnswer() const {
    const QueryRow& row = GetParam();
    EXPECT_EQ(row.ask(*run_.resolver, row.region), row.answer);
    EXPECT_EQ(run_.errors(), row.error.empty() ? Texts() : Texts({row.error}));
    EXPECT_EQ(row.ask(*run_.resolver, row.region), row.answer);
  }

  ResolverRun run_{R"(
    domains/water/location = channel, inlet
    domains/steel/location = heater
    domains/oil/location = nowhere
    subdomains/bed/location = channel
    subdomains/bed/domain = water
    subdomains/coil/location =  heater ,
    subdomains/coil/domain = steel
    boundaries/walls/location = hull, shell
    boundaries/walls/domain = water
    boundaries/screen/location = screen
    boundaries/screen/domain = water
    boundaries/rim/location = nowhere
    boundaries/cold/location = contact
    boundaries/hot/location = contact of heater
    interfaces/heat/boundariesSide1 = cold
    interfaces/heat/boundariesSide2 = hot
  )",
                   R"(
    part assembly
      body channel: 7
      body inlet: 9 2
      body heater: 8
      use hull of channel: 4
      use contact of channel: 6
      use shell of heater: 5
      use contact of heater of heater: -6
  )"};
};

class BeforeResolving : public Queries {};
class AfterResolving : public Queries {};
class AfterAResolvingThatFailed : public Queries {};

TEST_P(BeforeResolving, Answers) { expectAnswer(); }

TEST_P(AfterResolving, Answers) {
  ASSERT_TRUE(run_.resolve());
  expectAnswer();
}

TEST_P(AfterAResolvingThatFailed, Answers) {
  ASSERT_TRUE(run_.resolve());
  const StreamCapture streams;
  const auto model = modelOf("part assembly\n face channel");
  ASSERT_FALSE(run_.resolver->resolveUsing(model.get(), run_.provider.get()));
  expectAnswer();
}

// --- What the settings say, at any time ---------------------------------------------------------

const QueryRow kSettings[] = {
    {"LocationOfADomain", kLocation, "water", "true 'channel, inlet'", ""},
    {"LocationOfASubdomain", kLocation, "coil", "true ' heater ,'", ""},
    {"LocationOfABoundary", kLocation, "walls", "true 'hull, shell'", ""},
    {"LocationOfAnInterface", kLocation, "heat", "false ''",
     "Region 'heat' doesn't have a location."},
    {"LocationOfNobody", kLocation, "nobody", "false ''", "Region 'nobody' not found."},
    {"Side0OfAnInterface", side(0), "heat", "true 'cold'", ""},
    {"Side1OfAnInterface", side(1), "heat", "true 'hot'", ""},
    {"Side2OfAnInterface", side(2), "heat", "false ''", ""},
    {"Side65535OfAnInterface", side(65535), "heat", "false ''", ""},
    {"Side0OfABoundary", side(0), "cold", "false ''", "Region 'cold' is not a valid interface."},
    {"Side1OfADomain", side(1), "water", "false ''", "Region 'water' is not a valid interface."},
    {"Side0OfASubdomain", side(0), "bed", "false ''", "Region 'bed' is not a valid interface."},
    {"Side2OfABoundary", side(2), "cold", "false ''", ""},
    {"Side1OfNobody", side(1), "nobody", "false ''", "Region 'nobody' not found."},
    {"Side2OfNobody", side(2), "nobody", "false ''", ""},
    {"DomainAsADomain", isOfType("domain"), "water", "true", ""},
    {"SubdomainAsASubdomain", isOfType("subdomain"), "bed", "true", ""},
    {"BoundaryAsABoundary", isOfType("boundary"), "rim", "true", ""},
    {"InterfaceAsAnInterface", isOfType("interface"), "heat", "true", ""},
    {"DomainAsASubdomain", isOfType("subdomain"), "water", "false", ""},
    {"SubdomainAsADomain", isOfType("domain"), "bed", "false", ""},
    {"InterfaceAsABoundary", isOfType("boundary"), "heat", "false", ""},
    {"BoundaryAsAnInterface", isOfType("interface"), "rim", "false", ""},
    {"DomainInOtherLetters", isOfType("Domain"), "water", "false", "Type 'Domain' is invalid."},
    {"DomainInMoreLetters", isOfType("domains"), "water", "false", "Type 'domains' is invalid."},
    {"DomainWithABlank", isOfType(" domain"), "water", "false", "Type ' domain' is invalid."},
    {"RegionOfNoType", isOfType(""), "water", "false", "Type '' is invalid."},
    {"NobodyAsADomain", isOfType("domain"), "nobody", "false", "Region 'nobody' not found."},
    {"NobodyOfAnInvalidType", isOfType("blob"), "nobody", "false", "Type 'blob' is invalid."},
    {"NameInOtherLetters", isOfType("domain"), "Water", "false", "Region 'Water' not found."},
    {"NoName", isOfType("domain"), "", "false", "Region '' not found."},
};

INSTANTIATE_TEST_SUITE_P(Settings, BeforeResolving, ::testing::ValuesIn(kSettings),
                         nameOf<QueryRow>);
INSTANTIATE_TEST_SUITE_P(Settings, AfterResolving, ::testing::ValuesIn(kSettings),
                         nameOf<QueryRow>);
INSTANTIATE_TEST_SUITE_P(Settings, AfterAResolvingThatFailed, ::testing::ValuesIn(kSettings),
                         nameOf<QueryRow>);

// --- Where nothing is resolved ------------------------------------------------------------------

const QueryRow kUnresolved[] = {
    {"BodiesOfADomain", kBodies, "water", "false []", "Region 'water' is not defined by Bodies."},
    {"BodiesOfASubdomain", kBodies, "bed", "false []", "Region 'bed' is not defined by Bodies."},
    {"BodiesOfABoundary", kBodies, "walls", "false []", "Region 'walls' is not defined by Bodies."},
    {"BodiesOfNobody", kBodies, "nobody", "false []", "Region 'nobody' not found."},
    {"FaceUsesOfADomain", kFaceUses, "water", "false []",
     "Region 'water' is not defined by face uses."},
    {"FaceUsesOfABoundary", kFaceUses, "walls", "false []",
     "Region 'walls' is not defined by face uses."},
    {"FaceUsesOfNobody", kFaceUses, "nobody", "false []", "Region 'nobody' not found."},
    {"BulkZonesOfADomain", kBulkZones, "water", "false []",
     "Region 'water' does not require a bulk face zone."},
    {"BulkZonesOfABoundary", kBulkZones, "screen", "false []",
     "Region 'screen' does not require a bulk face zone."},
    {"BulkZonesOfNobody", kBulkZones, "nobody", "false []", "Region 'nobody' not found."},
    {"ZoneSidesOfADomain", kZoneSides, "water", "false []",
     "Region 'water' cannot be resolve to face zone sides."},
    {"ZoneSidesOfABoundary", kZoneSides, "walls", "false []",
     "Region 'walls' cannot be resolve to face zone sides."},
    {"ZoneSidesOfNobody", kZoneSides, "nobody", "false []", "Region 'nobody' not found."},
    {"CellZonesOfADomain", kCellZones, "water", "false [] []",
     "Region 'water' cannot be resolved to cell zones."},
    {"CellZonesOfABoundary", kCellZones, "walls", "false [] []",
     "Region 'walls' cannot be resolved to cell zones."},
    {"CellZonesOfNobody", kCellZones, "nobody", "false [] []", "Region 'nobody' not found."},
    {"BoundingOfASubdomain", kBounding, "bed", "false ''",
     "Region 'bed' is not associated with a domain."},
    {"BoundingOfABoundary", kBounding, "walls", "false ''",
     "Region 'walls' is not associated with a domain."},
    {"BoundingOfAnInterface", kBounding, "heat", "false ''",
     "Region 'heat' is not associated with a domain."},
    {"BoundingOfADomainThatNobodyNames", kBounding, "oil", "false ''",
     "Region 'oil' is not associated with a domain."},
    {"BoundingOfNobody", kBounding, "nobody", "false ''", "Region 'nobody' not found."},
    {"BoundedByOfADomain", kBoundedBy, "water", "false []", ""},
    {"BoundedByOfASubdomain", kBoundedBy, "coil", "false []", ""},
    {"BoundedByOfABoundary", kBoundedBy, "screen", "false []", ""},
    {"BoundedByOfNobody", kBoundedBy, "nobody", "false []", "Region 'nobody' not found."},
};

INSTANTIATE_TEST_SUITE_P(Unresolved, BeforeResolving, ::testing::ValuesIn(kUnresolved),
                         nameOf<QueryRow>);
INSTANTIATE_TEST_SUITE_P(Unresolved, AfterAResolvingThatFailed, ::testing::ValuesIn(kUnresolved),
                         nameOf<QueryRow>);

/// Regions by the domain that they name, the last of each.
const QueryRow kNamed[] = {
    {"BoundingOfADomainIsItsLastBoundary", kBounding, "water", "true 'screen'", ""},
    {"BoundingOfADomainIsItsLastSubdomain", kBounding, "steel", "true 'coil'", ""},
};
INSTANTIATE_TEST_SUITE_P(Named, BeforeResolving, ::testing::ValuesIn(kNamed), nameOf<QueryRow>);

const QueryRow kForgotten[] = {
    {"BoundingOfADomain", kBounding, "water", "false ''",
     "Region 'water' is not associated with a domain."},
};
INSTANTIATE_TEST_SUITE_P(Forgotten, AfterAResolvingThatFailed, ::testing::ValuesIn(kForgotten),
                         nameOf<QueryRow>);

// --- Where it is --------------------------------------------------------------------------------

const QueryRow kResolved[] = {
    {"BodiesOfADomain", kBodies, "water", "true [2, 3]", ""},
    {"BodiesOfADomainThatIsNowhere", kBodies, "oil", "true []", ""},
    {"BodiesOfASubdomain", kBodies, "coil", "true [4]", ""},
    {"BodiesOfABoundary", kBodies, "walls", "false []", "Region 'walls' is not defined by Bodies."},
    {"BodiesOfAnInterface", kBodies, "heat", "false []", "Region 'heat' is not defined by Bodies."},
    {"BodiesOfNobody", kBodies, "nobody", "false []", "Region 'nobody' not found."},
    {"FaceUsesOfADomain", kFaceUses, "water", "false []",
     "Region 'water' is not defined by face uses."},
    {"FaceUsesOfASubdomain", kFaceUses, "bed", "false []",
     "Region 'bed' is not defined by face uses."},
    {"FaceUsesOfABoundary", kFaceUses, "walls", "true [6, 10]", ""},
    {"FaceUsesOfABoundaryOnABulkZone", kFaceUses, "screen", "false []",
     "Region 'screen' is not defined by face uses."},
    {"FaceUsesOfABoundaryThatIsNowhere", kFaceUses, "rim", "false []",
     "Region 'rim' is not defined by face uses."},
    {"FaceUsesOfAnInterface", kFaceUses, "heat", "false []",
     "Region 'heat' is not defined by face uses."},
    {"BulkZonesOfADomain", kBulkZones, "water", "true [2]", ""},
    {"BulkZonesOfADomainWithout", kBulkZones, "steel", "true []", ""},
    {"BulkZonesOfADomainThatIsNowhere", kBulkZones, "oil", "true []", ""},
    {"BulkZonesOfASubdomain", kBulkZones, "bed", "true []", ""},
    {"BulkZonesOfABoundary", kBulkZones, "screen", "true [2]", ""},
    {"BulkZonesOfABoundaryWithout", kBulkZones, "walls", "false []",
     "Region 'walls' does not require a bulk face zone."},
    {"BulkZonesOfABoundaryThatIsNowhere", kBulkZones, "rim", "false []",
     "Region 'rim' does not require a bulk face zone."},
    {"BulkZonesOfAnInterface", kBulkZones, "heat", "false []",
     "Region 'heat' does not require a bulk face zone."},
    {"ZoneSidesOfADomain", kZoneSides, "steel", "true [5, -6]", ""},
    {"ZoneSidesOfADomainThatIsNowhere", kZoneSides, "oil", "false []",
     "Region 'oil' cannot be resolve to face zone sides."},
    {"ZoneSidesOfASubdomain", kZoneSides, "bed", "true [4, 6]", ""},
    {"ZoneSidesOfABoundary", kZoneSides, "walls", "true [4, 5]", ""},
    {"ZoneSidesOfABoundaryOnABulkZone", kZoneSides, "screen", "false []",
     "Region 'screen' cannot be resolve to face zone sides."},
    {"ZoneSidesOfABoundaryThatIsNowhere", kZoneSides, "rim", "false []",
     "Region 'rim' cannot be resolve to face zone sides."},
    {"ZoneSidesOfAnInterface", kZoneSides, "heat", "false []",
     "Region 'heat' cannot be resolve to face zone sides."},
    {"CellZonesOfADomain", kCellZones, "water", "true [7] [9]", ""},
    {"CellZonesOfADomainThatIsNowhere", kCellZones, "oil", "true [] []", ""},
    {"CellZonesOfASubdomain", kCellZones, "coil", "true [] [8]", ""},
    {"CellZonesOfABoundary", kCellZones, "walls", "false [] []",
     "Region 'walls' cannot be resolved to cell zones."},
    {"CellZonesOfAnInterface", kCellZones, "heat", "false [] []",
     "Region 'heat' cannot be resolved to cell zones."},
    {"CellZonesOfNobody", kCellZones, "nobody", "false [] []", "Region 'nobody' not found."},
    {"BoundingOfASubdomain", kBounding, "coil", "true 'steel'", ""},
    {"BoundingOfABoundary", kBounding, "hot", "true 'steel'", ""},
    {"BoundingOfABoundaryOnABulkZone", kBounding, "screen", "true 'water'", ""},
    {"BoundingOfABoundaryThatIsNowhere", kBounding, "rim", "false ''",
     "Region 'rim' is not associated with a domain."},
    {"BoundingOfADomain", kBounding, "water", "false ''",
     "Region 'water' is not associated with a domain."},
    {"BoundingOfAnInterface", kBounding, "heat", "false ''",
     "Region 'heat' is not associated with a domain."},
    {"BoundingOfNobody", kBounding, "nobody", "false ''", "Region 'nobody' not found."},
    {"BoundedByOfADomainByIdWithoutSubdomains", kBoundedBy, "water", "true [walls, screen, cold]",
     ""},
    {"BoundedByOfADomain", kBoundedBy, "steel", "true [hot]", ""},
    {"BoundedByOfADomainThatIsNowhere", kBoundedBy, "oil", "false []", ""},
    {"BoundedByOfASubdomain", kBoundedBy, "bed", "false []", ""},
    {"BoundedByOfABoundary", kBoundedBy, "walls", "false []", ""},
    {"BoundedByOfAnInterface", kBoundedBy, "heat", "false []", ""},
    {"BoundedByOfNobody", kBoundedBy, "nobody", "false []", "Region 'nobody' not found."},
};

INSTANTIATE_TEST_SUITE_P(Resolved, AfterResolving, ::testing::ValuesIn(kResolved),
                         nameOf<QueryRow>);

}  // namespace
}  // namespace velto::testing
