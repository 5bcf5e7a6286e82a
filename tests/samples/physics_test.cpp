// SPDX-License-Identifier: Apache-2.0
//
// The physics objects of restart samples refer to what is there, and the location model too.

#include <algorithm>
#include <gtest/gtest.h>

#include "data_access/OrvLocationModel.h"

#include "samples/SampleProvider.h"
#include "samples/samples.h"
#include "tests/samples/run_checker.h"

namespace velto::testing {
namespace {

using Names = std::vector<std::string>;
using samples::Sample;

/// Reads settings as the tools do.
class Settings {
 public:
  explicit Settings(const Sample& sample) : provider_(sample) {
    provider_.startReading("any", dataClassCase);
  }

  Names list(const std::string& path) const {
    return provider_.getSettings(dataClassCase, path, 1).asStringVector();
  }

 private:
  samples::SampleProvider provider_;
};

void append(Names& names, const Names& more) {
  names.insert(names.end(), more.begin(), more.end());
}

/// Expects that each object of a kind has the attribute, and that its values are all in `known`.
void expectKnown(const Settings& settings, const std::string& kind, const std::string& attribute,
                 const Names& known) {
  for (const std::string& object : settings.list(kind)) {
    std::string path = kind;
    path.append("/").append(object).append("/").append(attribute);
    const Names values = settings.list(path);
    EXPECT_FALSE(values.empty()) << path;
    for (const std::string& value : values) {
      EXPECT_EQ(std::count(known.begin(), known.end(), value), 1) << path << ": " << value;
    }
  }
}

/// Names of the zones of the first mesh that `fits`.
template <class Fits>
Names zoneNames(const Sample& sample, OrvZoneCategory category, Fits fits) {
  const base::MeshTables& mesh = sample.tables.meshes.begin()->second;
  Names names;
  for (const int zone : mesh.idsOf(category)) {
    const base::ZoneRecord& record = mesh.zones.at(zone);
    if (fits(record)) {
      names.push_back(*record.texts[zoneName]);
    }
  }
  return names;
}

TEST(RestartSamples, HaveADomainForEachBodyAndABoundaryForEachOutsideZone) {
  for (const samples::SampleInfo& info : samples::samples()) {
    const Sample sample = info.make(30);
    if (sample.tables.meshes.begin()->first.target != targetRestart ||
        sample.tables.locationModel != nullptr) {
      continue;
    }
    SCOPED_TRACE(info.name);
    const Settings settings(sample);
    const Names bodies =
        zoneNames(sample, zoneCategoryCell, [](const base::ZoneRecord&) { return true; });
    const Names outside = zoneNames(sample, zoneCategoryFace, [](const base::ZoneRecord& zone) {
      return zone.sideCellZones[1].empty();
    });
    EXPECT_EQ(settings.list("domains"), bodies);
    EXPECT_EQ(settings.list("boundaries"), outside);
    expectKnown(settings, "domains", "location", bodies);
    expectKnown(settings, "boundaries", "location", outside);
    expectKnown(settings, "boundaries", "domain", bodies);
  }
}

/// The names that the location model knows, as places of volumes and of surfaces.
struct Places {
  Names volumes;
  Names surfaces;
};

void addComposites(const OrvLocationModel& model, int part, Places& places) {
  std::vector<int> composites;
  model.getPartComposites(part, composites);
  for (const int composite : composites) {
    std::string name;
    std::vector<int> bodies;
    std::vector<int> faces;
    std::vector<int> uses;
    EXPECT_TRUE(model.getCompositeName(composite, name));
    EXPECT_TRUE(model.resolveComposite(composite, bodies, faces, uses));
    EXPECT_FALSE(bodies.empty() && uses.empty()) << name;
    append(places.volumes, bodies.empty() ? Names() : Names{name});
    append(places.surfaces, uses.empty() ? Names() : Names{name});
  }
}

/// Walks the model of the first part, and expects that each zone it names is there.
Places placesOf(const Sample& sample) {
  const base::MeshTables& mesh = sample.tables.meshes.begin()->second;
  const OrvLocationModel& model = *sample.tables.locationModel;
  std::vector<int> parts;
  std::vector<int> bodies;
  std::vector<int> uses;
  model.getParts(parts);
  model.getPartBodies(parts.at(0), bodies);
  model.getPartFaceUses(parts.at(0), uses);
  Places places;
  for (const int body : bodies) {
    std::string name;
    std::vector<int> zones;
    EXPECT_TRUE(model.getBodyName(body, name));
    EXPECT_TRUE(model.getBodyZones(body, 1, zones));
    EXPECT_EQ(mesh.zones.at(zones.at(0)).cellInfo[cellZoneCellType], 4) << name;
    for (std::size_t i = 1; i < zones.size(); ++i) {
      const base::ZoneRecord& zone = mesh.zones.at(zones[i]);
      EXPECT_EQ(zone.faceInfo[faceZoneType], faceZoneTypeInterior);
      places.surfaces.push_back(*zone.texts[zoneName]);
    }
    places.volumes.push_back(name);
  }
  for (const int use : uses) {
    std::string name;
    std::vector<int> sides;
    EXPECT_TRUE(model.getFaceUseName(use, name));
    EXPECT_TRUE(model.getFaceUseZoneSides(use, 1, sides));
    const auto& cells = mesh.zones.at(std::abs(sides.at(0))).sideCellZones;
    EXPECT_EQ(cells.at(sides[0] > 0 ? 0 : 1).size(), 1U) << name;
    places.surfaces.push_back(name);
  }
  addComposites(model, parts.at(0), places);
  return places;
}

class Physics : public ::testing::TestWithParam<int> {};

TEST_P(Physics, RefersToWhatItsLocationModelHolds) {
  const Sample sample =
      samples::findSample("physics")->make(static_cast<std::uint64_t>(GetParam()));
  const Places places = placesOf(sample);
  const Settings settings(sample);
  const Names domains = settings.list("domains");
  const Names boundaries = settings.list("boundaries");
  EXPECT_EQ(domains, Names({"water", "steel"}));
  EXPECT_EQ(settings.list("subdomains"), Names({"heating", "expansion"}));
  EXPECT_EQ(settings.list("interfaces"), Names({"heat transfer"}));
  expectKnown(settings, "domains", "location", places.volumes);
  expectKnown(settings, "subdomains", "location", places.volumes);
  expectKnown(settings, "subdomains", "domain", domains);
  expectKnown(settings, "boundaries", "location", places.surfaces);
  expectKnown(settings, "boundaries", "domain", domains);
  expectKnown(settings, "interfaces", "boundariesSide1", boundaries);
  expectKnown(settings, "interfaces", "boundariesSide2", boundaries);
  expectKnown(settings, "interfaces", "domainsSide1", domains);
  expectKnown(settings, "interfaces", "domainsSide2", domains);
}

TEST_P(Physics, IsSound) {
  const Sample sample =
      samples::findSample("physics")->make(static_cast<std::uint64_t>(GetParam()));
  const Findings findings = runChecker([&] { return new samples::SampleProvider(sample); }, 1);
  EXPECT_TRUE(findings.isSound);
  EXPECT_EQ(findings.errors, Texts());
  EXPECT_EQ(findings.warnings, Texts());
}

/// The composites of the sample with what they group: bodies, face uses, both.
TEST_P(Physics, HasCompositesOfEachKind) {
  const Sample sample =
      samples::findSample("physics")->make(static_cast<std::uint64_t>(GetParam()));
  const OrvLocationModel& model = *sample.tables.locationModel;
  std::vector<int> parts;
  std::vector<int> composites;
  model.getParts(parts);
  ASSERT_EQ(parts.size(), 1U);
  model.getPartComposites(parts[0], composites);
  std::vector<std::string> lines;
  for (const int composite : composites) {
    std::string line;
    std::vector<int> bodies;
    std::vector<int> faces;
    std::vector<int> uses;
    ASSERT_TRUE(model.getCompositeName(composite, line));
    ASSERT_TRUE(model.resolveComposite(composite, bodies, faces, uses));
    EXPECT_EQ(faces, std::vector<int>());
    for (const int body : bodies) {
      std::string name;
      ASSERT_TRUE(model.getBodyName(body, name));
      line += ", body " + name;
    }
    for (const int use : uses) {
      std::string name;
      ASSERT_TRUE(model.getFaceUseName(use, name));
      line += ", face use " + name;
    }
    lines.push_back(line);
  }
  EXPECT_EQ(lines, Names({"metal, body heater",
                          "wetted, face use channel walls, face use contact of channel",
                          "heater unit, body heater, face use heater end, face use heater walls"}));
}

INSTANTIATE_TEST_SUITE_P(Sizes, Physics, ::testing::Values(1, 8, 64, 8000, 1000000),
                         ::testing::PrintToStringParamName());

/// A setting of one kind of physics object, and what becomes of the case with another value.
struct Setting {
  const char* name;
  const char* key;
  const char* value;
  Texts errors;
};

class PhysicsSettings : public ::testing::TestWithParam<Setting> {};

/// An empty list of errors: the value is as good as that of the sample.
TEST_P(PhysicsSettings, AreHeldAgainstTheirLocations) {
  Sample sample = samples::findSample("physics")->make(64);
  sample.tables.settings.begin()->second.set(GetParam().key, GetParam().value);
  const Findings findings = runChecker([&] { return new samples::SampleProvider(sample); }, 1);
  EXPECT_EQ(findings.errors, GetParam().errors);
  EXPECT_EQ(findings.warnings, Texts());
}

const std::vector<Setting>& settingsOfEachKind() {
  static const std::vector<Setting> kSettings = {
      {"domain_in_a_composite_of_both", "domains/steel/location", "heater unit", {}},
      {"domain_in_several_places", "domains/steel/location", "heater unit,metal,channel", {}},
      {"domain_in_a_face_use",
       "domains/steel/location",
       "heater walls",
       {"checkDomain : The attribute 'location' of 'steel' references locations that don't exist in the location model."}},
      {"domain_in_a_composite_of_face_uses",
       "domains/steel/location",
       "wetted",
       {"checkDomain : The attribute 'location' of 'steel' references locations that don't exist in the location model."}},
      {"subdomain_in_a_zone",
       "subdomains/heating/location",
       "solid",
       {"checkSubdomain : The attribute 'location' of 'heating' references locations that don't exist in the location model."}},
      {"subdomain_of_a_subdomain",
       "subdomains/heating/domain",
       "expansion",
       {"checkSubdomain : The attribute 'domain' of 'heating' references locations that don't exist in the location model."}},
      {"boundary_in_a_composite_of_both", "boundaries/friction/location", "heater unit", {}},
      {"boundary_in_a_composite_of_bodies",
       "boundaries/friction/location",
       "metal",
       {"checkBoundary : The attribute 'location' of 'friction' references locations that don't exist in the location model."}},
      {"boundary_twice_in_one_place",
       "boundaries/insulation/location",
       "heater end,heater end",
       {"checkBoundary : The attribute 'location' of 'insulation' references locations that don't exist in the location model."}},
      {"boundary_of_no_domain",
       "boundaries/insulation/domain",
       "air",
       {"checkBoundary : The attribute 'domain' of 'insulation' references locations that don't exist in the location model."}},
      {"interface_of_a_subdomain",
       "interfaces/heat transfer/boundariesSide1",
       "heating",
       {"checkInterface : The attribute 'boundariesSide1' of 'heat transfer' references locations that don't exist in the location model."}},
      {"interface_with_a_bad_second_side",
       "interfaces/heat transfer/boundariesSide2",
       "heating",
       {}},
      {"interface_of_no_domain",
       "interfaces/heat transfer/domainsSide1",
       "air",
       {"checkInterface : The attribute 'domainsSide1' of 'heat transfer' references locations that don't exist in the location model."}},
      {"interface_to_no_domain",
       "interfaces/heat transfer/domainsSide2",
       "air",
       {"checkInterface : The attribute 'domainsSide2' of 'heat transfer' references locations that don't exist in the location model."}},
  };
  return kSettings;
}

std::string settingName(const ::testing::TestParamInfo<Setting>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(EachKind, PhysicsSettings, ::testing::ValuesIn(settingsOfEachKind()),
                         settingName);

}  // namespace
}  // namespace velto::testing
