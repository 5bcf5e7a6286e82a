// SPDX-License-Identifier: Apache-2.0
//
// The four tools over another data-access library: this program links them with the tiny library of
// this folder, which defines the whole contract over a state of its own, and with nothing of the
// embedded one.

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

#include "velto/OrvChecker.h"
#include "velto/OrvCopier.h"
#include "velto/PhysicsRegionResolver.h"

#include "data_access/OrvFactory.h"
#include "data_access/OrvFileProvider.h"
#include "data_access/OrvLocationModel.h"
#include "data_access/OrvVersion.h"

namespace {

using velto::OrvChecker;
using Texts = std::vector<std::string>;

/// A file of the tiny library's that lasts as long as this object. Tests may run at the same time.
class TinyFile {
 public:
  explicit TinyFile(const std::string& text)
      : name_(testing::TempDir() + "velto_second_library_" + std::to_string(getpid())) {
    std::ofstream(name_) << text << "\n";
  }
  TinyFile(const TinyFile&) = delete;
  TinyFile& operator=(const TinyFile&) = delete;
  ~TinyFile() { std::remove(name_.c_str()); }

  const std::string& name() const { return name_; }

 private:
  std::string name_;
};

OrvChecker quietChecker() {
  OrvChecker checker;
  checker.setVerbosity(0);
  checker.setCheckLevel(2);
  return checker;
}

TEST(SecondLibrary, IsTheOneThatIsLinked) {
  EXPECT_EQ(velto::OrvVersion::getMajor(), 7U);
  EXPECT_EQ(velto::OrvBase::_defaultSettingsPath, "tiny");
}

TEST(SecondLibrary, SoundCasePasses) {
  const TinyFile file("3");
  OrvChecker checker = quietChecker();
  EXPECT_TRUE(checker.checkCase(file.name()));
  EXPECT_EQ(checker.getErrors(), Texts{});
  EXPECT_EQ(checker.getWarnings(),
            Texts{"checkPhysicsToMeshMapUsingTopologyModel : No Physics Model - skipped"});
}

TEST(SecondLibrary, InvalidDimensionIsReported) {
  const TinyFile file("4");
  OrvChecker checker = quietChecker();
  EXPECT_FALSE(checker.checkCase(file.name()));
  EXPECT_EQ(checker.getErrors(), Texts{"checkMeshSize : Invalid mesh dimension"});
}

TEST(SecondLibrary, PendingErrorsReachTheChecker) {
  const TinyFile file("three");
  OrvChecker checker = quietChecker();
  EXPECT_FALSE(checker.checkCase(file.name()));
  EXPECT_EQ(checker.getErrors(),
            (Texts{" : Error reading ORV file",
                   " : ORV - " + file.name() + " does not begin with a number"}));
}

TEST(SecondLibrary, SettersReachItsTables) {
  const TinyFile file("3");
  velto::OrvFileProvider* provider = velto::getDataProvider(file.name());
  const std::unique_ptr<velto::OrvFileIO> owner(provider);
  ASSERT_TRUE(provider->startReading(file.name(), velto::dataClassCase));

  provider->setZoneStringInfo(2, velto::zoneName, "shell");
  std::string name;
  provider->getZoneStringInfo(2, velto::zoneName, name);
  EXPECT_EQ(name, "shell");

  std::uint64_t dimension = 0;
  provider->getMeshSize(velto::meshDimension, dimension);
  EXPECT_EQ(dimension, 3U);
  EXPECT_EQ(provider->getSettings(velto::dataClassCase, "library", 0).asString(), "tiny");
}

TEST(SecondLibrary, ResolverAsksIt) {
  const TinyFile file("3");
  velto::OrvFileProvider* provider = velto::getDataProvider(file.name());
  const std::unique_ptr<velto::OrvFileIO> owner(provider);
  ASSERT_TRUE(provider->startReading(file.name(), velto::dataClassCase));

  velto::PhysicsRegionResolver resolver(provider);
  EXPECT_FALSE(resolver.resolveUsing(provider));
  Texts regions;
  EXPECT_FALSE(resolver.regionsOfType(regions, ""));
  EXPECT_EQ(resolver.getErrors(),
            (Texts{"Location Model is not valid as it doesn't contain any parts.",
                   "This case doesn't contain any physics regions."}));

  velto::OrvLocationModel model;
  int part = 0;
  model.createPart(0, "part", part);
  EXPECT_TRUE(resolver.resolveUsing(&model, provider));
}

// It writes no format, so that its factory gives a copier no destination.
TEST(SecondLibrary, CopierAsksItsFactory) {
  const TinyFile file("3");
  velto::OrvFileProvider* provider = velto::getDataProvider(file.name());
  const std::unique_ptr<velto::OrvFileIO> owner(provider);

  velto::OrvCopier copier("");
  copier.setSource(provider);
  copier.setDestination(velto::fileFormatStore, "copy", "results");
  EXPECT_FALSE(copier.copy());
}

TEST(SecondLibrary, LocationModelKeepsItsObjects) {
  velto::OrvLocationModel model;
  int part = 0;
  int body = 0;
  int face = 0;
  int use = 0;
  model.createPart(0, "part", part);
  ASSERT_TRUE(model.createBody(part, "body", body));
  ASSERT_TRUE(model.createFace(part, "face", face));
  ASSERT_TRUE(model.createFaceUse(body, face, 0, use));
  EXPECT_FALSE(model.createFaceUse(body, face, 0, use));

  std::vector<int> boundary;
  ASSERT_TRUE(model.getBodyBoundary(body, boundary));
  EXPECT_EQ(boundary, std::vector<int>{use});
}

}  // namespace
