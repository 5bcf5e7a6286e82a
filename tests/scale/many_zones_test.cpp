// SPDX-License-Identifier: Apache-2.0
//
// A case of 100,000 zones: what each tool does with it stays a matter of seconds. Where large tests
// are not wanted (VELTO_LARGE_TESTS), what takes long in a debug build has a fifth of them.

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "velto/LocationModelBuilder.h"
#include "velto/PhysicsRegionResolver.h"

#include "data_access/OrvFactory.h"
#include "data_access/OrvLocationModel.h"

#include "embedded/memory/MemoryProvider.h"
#include "embedded/store/StoreConsumer.h"
#include "testing/TempFolder.h"
#include "testing/cases.h"
#include "tests/copies/case_files.h"

namespace velto::testing {
namespace {

constexpr int kManyBodies = 20'000;  // of five zones each, the nodes among them

int usualBodies() {
  return std::getenv("VELTO_LARGE_TESTS") == nullptr ? kManyBodies / 5 : kManyBodies;
}

/// A row of bodies with a domain in each, and a boundary on its sides.
cases::CasePtr rowWithPhysics(int bodies) {
  cases::CasePtr row = cases::rowOfBodies(bodies);
  for (int body = 1; body <= bodies; ++body) {
    const std::string number = std::to_string(body);
    row->setSetting("domains/domain " + number + "/location", "body " + number);
    row->setSetting("boundaries/wall " + number + "/location", "sides of " + number);
    row->setSetting("boundaries/wall " + number + "/domain", "domain " + number);
  }
  return row;
}

TEST(ManyZones, AreGoodInACopy) {
  const cases::CasePtr row = rowWithPhysics(kManyBodies);
  ASSERT_EQ(row->mesh().zones.size(), std::size_t{100'000});
  const TempFolder folder;
  const std::string file = folder.path("row.orv");
  memory::MemoryProvider source(row);
  ASSERT_TRUE(source.startReading("", dataClassCase));
  {
    store::StoreConsumer destination;
    destination.setFileName(file, dataClassCase);
    copyWhole(source, destination);
    EXPECT_EQ(destination.getErrors(true, true), Texts());
  }
  EXPECT_EQ(findingsOf(file), Texts());
}

TEST(ManyZones, AreTheSameInACopyInMemory) {
  memory::MemoryProvider source(rowWithPhysics(usualBodies()));
  ASSERT_TRUE(source.startReading("", dataClassCase));
  EXPECT_EQ(differencesInMemory(source), Texts());
}

// What stands between two bodies is a face zone of its own, what bounds them a patch.
TEST(ManyZones, AreAnOpenFoamMesh) {
  memory::MemoryProvider source(cases::rowOfBodies(kManyBodies));
  ASSERT_TRUE(source.startReading("", dataClassCase));
  const TempFolder folder;
  const ConsumerOwner destination(getDataConsumer(fileFormatOpenFoam));
  destination->setFileName(folder.path("row"), dataClassCase);
  copyWhole(source, *destination);
  EXPECT_EQ(destination->getErrors(true, true), Texts());
  const ProviderOwner copy = opened(folder.path("row"));
  EXPECT_EQ(copy->getErrors(true, true), Texts());
  for (const OrvZoneCategory category : {zoneCategoryFace, zoneCategoryCell}) {
    EXPECT_EQ(copy->getZoneCount(category), source.getZoneCount(category));
  }
}

TEST(ManyZones, GiveALocationModelThatPhysicsLiesIn) {
  const int count = usualBodies();
  memory::MemoryProvider source(rowWithPhysics(count));
  ASSERT_TRUE(source.startReading("", dataClassCase));
  OrvLocationModel model;
  const LocationModelBuilder builder;
  ASSERT_TRUE(builder.build(&source, &model));
  EXPECT_EQ(builder.getErrors(), Texts());
  std::vector<int> parts;
  model.getParts(parts);
  ASSERT_EQ(parts.size(), std::size_t{1});
  std::vector<int> bodies;
  model.getPartBodies(parts.front(), bodies);
  EXPECT_EQ(bodies.size(), static_cast<std::size_t>(count));

  PhysicsRegionResolver resolver(&source);
  ASSERT_TRUE(resolver.resolveUsing(&model, &source));
  EXPECT_EQ(resolver.getErrors(), Texts());
  const int firstSides = count + 3;  // behind the nodes, what is between bodies and a pair
  for (int body = 1; body <= count; ++body) {
    std::vector<int> sides;
    ASSERT_TRUE(resolver.zoneSides("wall " + std::to_string(body), sides));
    ASSERT_EQ(sides, std::vector<int>{firstSides + 3 * (body - 1)});
  }
}

}  // namespace
}  // namespace velto::testing
