// SPDX-License-Identifier: Apache-2.0
//
// Which provider a file gets, and which consumer a format.

#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>

#include "data_access/OrvFactory.h"
#include "data_access/OrvFileConsumer.h"
#include "data_access/OrvFileProvider.h"

#include "embedded/memory/MemoryConsumer.h"
#include "factory/formats.h"
#include "formats/openfoam/OpenFoamConsumer.h"
#include "formats/openfoam/OpenFoamProvider.h"
#include "formats/vtu/VtuConsumer.h"
#include "testing/PolyMeshWriter.h"
#include "testing/TempFolder.h"

namespace velto {
namespace {

/// What the factory makes is deleted through its OrvFileIO part.
template <class Object>
std::unique_ptr<OrvFileIO> owned(Object* made) {
  return std::unique_ptr<OrvFileIO>(made);
}

TEST(GetDataProvider, RecognisesAMeshByItsContent) {
  const testing::TempFolder temp;
  testing::writePolyMesh(temp.path("mesh"), testing::makeBox(1, 1, 1));
  OrvFileProvider* made = getDataProvider(temp.path("mesh"));
  const auto owner = owned(made);
  EXPECT_NE(dynamic_cast<openfoam::OpenFoamProvider*>(made), nullptr);
}

TEST(GetDataProvider, GivesAProviderOfItsOwnEachTime) {
  const testing::TempFolder temp;
  testing::writePolyMesh(temp.path("mesh"), testing::makeBox(1, 1, 1));
  const auto first = owned(getDataProvider(temp.path("mesh")));
  const auto second = owned(getDataProvider(temp.path("mesh")));
  EXPECT_NE(first, second);
}

TEST(GetDataProvider, GivesNoneForWhatNoFormatKnows) {
  const testing::TempFolder temp;
  testing::writeTextFile(temp.path("points"), "1 2 3\n");
  EXPECT_EQ(getDataProvider(temp.path("points")), nullptr);
  EXPECT_EQ(getDataProvider(temp.path()), nullptr);
  EXPECT_EQ(getDataProvider(temp.path("absent")), nullptr);
  EXPECT_EQ(getDataProvider(""), nullptr);
}

TEST(GetDataConsumer, GoesByTheFormatsValue) {
  OrvFileConsumer* made = getDataConsumer(fileFormatMemory);
  const auto owner = owned(made);
  EXPECT_NE(dynamic_cast<memory::MemoryConsumer*>(made), nullptr);
}

TEST(GetDataConsumer, WritesFilesForViewers) {
  OrvFileConsumer* made = getDataConsumer(fileFormatVtu);
  const auto owner = owned(made);
  EXPECT_NE(dynamic_cast<vtu::VtuConsumer*>(made), nullptr);
}

TEST(GetDataConsumer, MakesOneForOpenFoam) {
  OrvFileConsumer* made = getDataConsumer(fileFormatOpenFoam);
  const auto owner = owned(made);
  EXPECT_NE(dynamic_cast<openfoam::OpenFoamConsumer*>(made), nullptr);
}

TEST(GetDataConsumer, GivesNoneForAFormatThatIsNotKnown) {
  EXPECT_EQ(getDataConsumer(static_cast<OrvFileFormatType>(77)), nullptr);
}

TEST(Formats, HaveNamesAndValuesOfTheirOwn) {
  std::set<std::string> names;
  std::set<int> values;
  for (const factory::Format& format : factory::formats()) {
    EXPECT_TRUE(names.insert(format.name).second) << format.name;
    EXPECT_TRUE(values.insert(format.type).second) << format.name;
  }
}

TEST(Formats, SayThatTheyReadAndWriteWhatTheyCanBeMadeFor) {
  for (const factory::Format& format : factory::formats()) {
    EXPECT_EQ(format.recognises != nullptr, format.makeProvider != nullptr) << format.name;
    EXPECT_EQ(format.makeProvider != nullptr, *format.reads != '\0') << format.name;
    EXPECT_EQ(format.makeConsumer != nullptr, *format.writes != '\0') << format.name;
  }
}

}  // namespace
}  // namespace velto
