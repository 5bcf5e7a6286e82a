// SPDX-License-Identifier: Apache-2.0
//
// The physics objects of restart samples refer to what is there, and the location model too.

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

#include "data_access/OrvLocationModel.h"

#include "samples/SampleProvider.h"
#include "samples/samples.h"

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
  EXPECT_EQ(settings.list("subdomains"), Names({"heating"}));
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

INSTANTIATE_TEST_SUITE_P(Sizes, Physics, ::testing::Values(1, 64),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace velto::testing
