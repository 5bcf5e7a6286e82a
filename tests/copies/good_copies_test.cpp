// SPDX-License-Identifier: Apache-2.0
//
// A good case that was copied is a good case, and holds what its source holds: each sample, each
// named case and each OpenFOAM mesh.

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

#include "embedded/memory/MemoryProvider.h"
#include "embedded/store/StoreConsumer.h"
#include "samples/SampleProvider.h"
#include "samples/save_sample.h"
#include "testing/PolyMeshWriter.h"
#include "testing/TempFolder.h"
#include "testing/cases.h"
#include "tests/copies/case_files.h"

namespace velto::testing {
namespace {

namespace fs = std::filesystem;

const char* const kNoPhysics =
    "checkPhysicsToMeshMapUsingTopologyModel : No Physics Model - skipped";

/// Copies into the store, reads the copy back, and expects it to be as good and to hold the same.
void expectGoodCopy(OrvFileProvider& source, unsigned compression, const Texts& findings = {}) {
  const TempFolder folder;
  const std::string file = folder.path("copy.orv");
  {
    store::StoreConsumer destination;
    destination.setFileName(file, dataClassCase);
    destination.setFileName(file + "r", dataClassResults);
    destination.setCompression(compression);
    copyWhole(source, destination);
    EXPECT_EQ(destination.getErrors(true, true), Texts());
    EXPECT_EQ(destination.getWarnings(true, true), Texts());
  }
  EXPECT_EQ(findingsOf(file), findings);
  const ProviderOwner copy = opened(file);
  EXPECT_EQ(differences(source, *copy), Texts());
  EXPECT_EQ(source.getErrors(true, true), Texts());
  EXPECT_EQ(copy->getErrors(true, true), Texts());
}

std::string testName(const ::testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

std::vector<std::string> sampleNames() {
  std::vector<std::string> names;
  for (const samples::SampleInfo& info : samples::samples()) {
    names.emplace_back(info.name);
  }
  return names;
}

class CopiedSamples : public ::testing::TestWithParam<std::string> {
 protected:
  samples::Sample sample = samples::findSample(GetParam())->make(300);
};

TEST_P(CopiedSamples, AreGoodFromMemory) {
  samples::SampleProvider source(sample);
  ASSERT_TRUE(source.startReading("", dataClassCase));
  expectGoodCopy(source, 0);
}

TEST_P(CopiedSamples, AreGoodFromTheStoreAtEachLevelOfCompression) {
  for (unsigned compression = 0; compression <= 9; ++compression) {
    SCOPED_TRACE(compression);
    const TempFolder folder;
    samples::saveSample(sample, folder.path("case.orv"), 9 - compression);
    expectGoodCopy(*opened(folder.path("case.orv")), compression);
  }
}

TEST_P(CopiedSamples, AreGoodInMemory) {
  samples::SampleProvider source(sample);
  ASSERT_TRUE(source.startReading("", dataClassCase));
  EXPECT_EQ(differencesInMemory(source), Texts());
}

INSTANTIATE_TEST_SUITE_P(, CopiedSamples, ::testing::ValuesIn(sampleNames()), testName);

TEST(CopiedCases, HoldWhatTheirSourcesHold) {
  for (const cases::NamedCase& named : cases::all()) {
    SCOPED_TRACE(named.name);
    memory::MemoryProvider source(named.make());
    ASSERT_TRUE(source.startReading("", dataClassCase));
    EXPECT_EQ(differencesInMemory(source), Texts());
  }
}

// A box in each form that such files have: with zones of cells and faces, and with a cyclic pair.
TEST(CopiedOpenFoamMeshes, AreGood) {
  BoxMesh plain = makeBox(4, 3, 2);
  BoxMesh zoned = plain;
  zoned.cellZones = {{"left", {0, 1, 4, 5, 8, 9, 12, 13, 16, 17, 20, 21}, {}, false},
                     {"right", {2, 3, 6, 7, 10, 11, 14, 15, 18, 19, 22, 23}, {}, false}};
  zoned.faceZones = {{"screen", {0, 5}, {}, false}};
  BoxMesh cyclic = plain;
  cyclic.patches[0].type = cyclic.patches[1].type = "cyclic";
  cyclic.patches[0].extra = {{"neighbourPatch", cyclic.patches[1].name}};
  cyclic.patches[1].extra = {{"neighbourPatch", cyclic.patches[0].name}};
  for (const BoxMesh& mesh : {plain, zoned, cyclic}) {
    const TempFolder folder;
    writePolyMesh(folder.path("constant/polyMesh"), mesh);
    expectGoodCopy(*opened(folder.path()), 1, findingsOf(folder.path()));
    EXPECT_EQ(findingsOf(folder.path()), Texts{kNoPhysics});
  }
}

TEST(CopiedOpenFoamMeshes, AreGoodWhenTheyAreReal) {
  const fs::path meshes = fs::path(VELTO_MESHES_DIR) / "openfoam";
  if (!fs::exists(meshes)) {
    GTEST_SKIP() << "no " << meshes;
  }
  for (const fs::directory_entry& mesh : fs::directory_iterator(meshes)) {
    SCOPED_TRACE(mesh.path());
    expectGoodCopy(*opened(mesh.path()), 1, findingsOf(mesh.path()));
  }
}

}  // namespace
}  // namespace velto::testing
