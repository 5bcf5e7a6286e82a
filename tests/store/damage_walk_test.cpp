// SPDX-License-Identifier: Apache-2.0
//
// Every dataset, every number in it and every attribute of small store files is damaged in every
// way, without a seal that would tell: nothing crashes, nobody is made to allocate what the file
// does not justify, and no bulk value is wrong in silence.

#include <filesystem>
#include <functional>
#include <set>

#include "velto/OrvChecker.h"

#include "testing/TestFactory.h"
#include "testing/capture.h"
#include "tests/store/hdf5_damage.h"
#include "tests/store/read_everything.h"
#include "tests/store/rich_cases.h"
#include "tests/store/store_files.h"

namespace velto::testing {
namespace {

using Texts = std::vector<std::string>;
using Names = std::set<std::string>;

/// What became of a damaged file.
enum class Outcome {
  refused,   ///< startReading says why.
  reported,  ///< A message waits after everything was read.
  harmless,  ///< It reads like the sound file.
  silent,    ///< It reads otherwise, and nobody said anything.
};

/// A sound file without its seal, and what comes out of copies of it that were damaged. A results
/// file is read behind its case.
class DamageWalk : public ::testing::Test {
 protected:
  void serve(const cases::CasePtr& source, unsigned compression, OrvDataClass dataClass) {
    dataClass_ = dataClass;
    save(*source, folder_.path(), compression);
    sound_ = folder_.path(dataClass == dataClassCase ? "case.orv" : "case.orvr");
    damaged_ = folder_.path("damaged.orv");
    stripSeal(sound_);
    std::filesystem::copy_file(sound_, damaged_);
    store::StoreProvider provider;
    EXPECT_TRUE(start(provider));
    const Reading reading = readEverything(provider);
    EXPECT_EQ(reading.errors, Texts());
    EXPECT_EQ(reading.warnings, Texts());
    soundLines_ = reading.lines;
  }

  const std::string& sound() const { return sound_; }

  Outcome outcomeOf(const std::function<void(const std::string&)>& damage) {
    std::filesystem::copy_file(sound_, damaged_, std::filesystem::copy_options::overwrite_existing);
    damage(damaged_);
    checkIt();
    readAlone();
    store::StoreProvider provider;
    if (!start(provider)) {
      expectOneReason(provider.getErrors(true, true));
      EXPECT_EQ(readEverything(provider).tooLarge, Texts());
      return Outcome::refused;
    }
    const Reading reading = readEverything(provider);
    EXPECT_EQ(reading.tooLarge, Texts());
    if (!reading.errors.empty() || !reading.warnings.empty()) {
      return Outcome::reported;
    }
    return reading.lines == soundLines_ ? Outcome::harmless : Outcome::silent;
  }

  /// Does all damage of a list to a place; the names of what stayed silent go into `silent`.
  template <class Damage>
  void damageAll(const std::vector<Named<Damage>>& damages, const std::string& place,
                 const std::function<void(const std::string&, Damage)>& apply, Names& silent) {
    for (const Named<Damage>& damage : damages) {
      SCOPED_TRACE(place + ": " + damage.name);
      const Outcome outcome =
          outcomeOf([&](const std::string& file) { apply(file, damage.damage); });
      if (outcome == Outcome::silent) {
        silent.insert(withoutMesh(place) + ": " + damage.name);
      }
    }
  }

  Names silentDamageOfDatasets() {
    Names silent;
    for (const std::string& path : datasetsOf(sound_)) {
      damageAll<DatasetDamage>(
          datasetDamages(), path,
          [&path](const std::string& file, DatasetDamage damage) {
            damageDataset(file, path, damage);
          },
          silent);
    }
    return silent;
  }

  Names silentDamageOfAttributes() {
    Names silent;
    for (const AttributePlace& place : attributesOf(sound_)) {
      damageAll<AttributeDamage>(
          attributeDamages(), place.group + "/@" + place.name,
          [&place](const std::string& file, AttributeDamage damage) {
            damageAttribute(file, place, damage);
          },
          silent);
    }
    return silent;
  }

  /// Numbers of tables may read otherwise, since nothing but the seal says how they were; those of
  /// arrays may not.
  Names silentDamageOfNumbers() {
    Names silent;
    Names ofTables;
    for (const NumberPlace& place : numbersOf(sound_)) {
      damageAll<Filling>(
          fillings(), place.dataset + "/" + place.column,
          [&place](const std::string& file, Filling filling) { fillNumbers(file, place, filling); },
          isOfTable(place) ? ofTables : silent);
    }
    return silent;
  }

 private:
  bool start(store::StoreProvider& provider) {
    if (dataClass_ == dataClassResults) {
      EXPECT_TRUE(provider.startReading(folder_.path("case.orv"), dataClassCase));
    }
    return provider.startReading(damaged_, dataClass_);
  }

  void expectOneReason(const Texts& errors) const {
    const std::string begin = "Error:\n\t" + damaged_ + ": ";
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors[0].substr(0, begin.size()), begin);
    EXPECT_GT(errors[0].size(), begin.size());
  }

  /// Results can be read without their case.
  void readAlone() const {
    if (dataClass_ == dataClassResults) {
      store::StoreProvider provider;
      provider.startReading(damaged_, dataClassResults);
      EXPECT_EQ(readEverything(provider).tooLarge, Texts());
    }
  }

  /// A checker has to survive it too.
  void checkIt() {
    const TestFactory factory([](const std::string&) { return new store::StoreProvider; });
    const StreamCapture streams;
    OrvChecker checker;
    checker.setCheckLevel(2);
    EXPECT_NO_THROW(checker.checkCase(damaged_));
  }

  static bool isOfTable(const NumberPlace& place) {
    const std::string name = place.dataset.substr(place.dataset.rfind('/') + 1);
    return !place.column.empty() || name == "texts" || name == "listValues";
  }

  /// "/meshes/0/zones" is "/meshes/zones", whichever mesh it is.
  static std::string withoutMesh(const std::string& place) {
    const std::string meshes = "/meshes/";
    if (place.compare(0, meshes.size(), meshes) != 0) {
      return place;
    }
    return "/meshes" + place.substr(place.find('/', meshes.size()));
  }

  TempFolder folder_;
  OrvDataClass dataClass_ = dataClassCase;
  std::string sound_;
  std::string damaged_;
  Texts soundLines_;
};

// Integers of any width are taken, and zeros stand in these: that numbers in lists are wrong, only
// the seal tells.
const Names kSilentDatasets = {"/locationModel/listValues: other width",
                               "/meshes/listValues: other width"};

TEST_F(DamageWalk, OfTheDatasetsOfACase) {
  serve(richCase(), 0, dataClassCase);
  EXPECT_EQ(silentDamageOfDatasets(), kSilentDatasets);
}

TEST_F(DamageWalk, OfTheDatasetsOfAPackedCase) {
  serve(longCase(), 9, dataClassCase);
  EXPECT_EQ(silentDamageOfDatasets(), kSilentDatasets);
}

TEST_F(DamageWalk, OfTheDatasetsOfResults) {
  serve(cases::withResults(), 0, dataClassResults);
  EXPECT_EQ(silentDamageOfDatasets(), Names());
}

TEST_F(DamageWalk, OfTheDatasetsOfPackedResults) {
  serve(longCase(), 9, dataClassResults);
  EXPECT_EQ(silentDamageOfDatasets(), Names());
}

TEST_F(DamageWalk, OfTheNumbersOfACase) {
  serve(richCase(), 0, dataClassCase);
  EXPECT_EQ(silentDamageOfNumbers(), Names());
}

TEST_F(DamageWalk, OfTheNumbersOfResults) {
  serve(cases::withResults(), 0, dataClassResults);
  EXPECT_EQ(silentDamageOfNumbers(), Names());
}

TEST_F(DamageWalk, OfTheAttributesOfACase) {
  serve(richCase(), 0, dataClassCase);
  EXPECT_EQ(silentDamageOfAttributes(),
            Names({"//@solverType: any text",      "//@solverType: removed",
                   "//@solverType: text",          "//@version: removed",
                   "/meshes/@cells: integer",      "/meshes/@cells: removed",
                   "/meshes/@dimension: integer",  "/meshes/@dimension: largest",
                   "/meshes/@dimension: removed",  "/meshes/@faces: integer",
                   "/meshes/@faces: removed",      "/meshes/@mesh: integer",
                   "/meshes/@mesh: negative",      "/meshes/@nodes: integer",
                   "/meshes/@nodes: removed",      "/meshes/@partition: integer",
                   "/meshes/@partition: negative", "/meshes/@target: integer",
                   "/meshes/@target: negative",    "/meshes/@units: any text",
                   "/meshes/@units: removed",      "/meshes/@units: text"}));
}

TEST_F(DamageWalk, OfTheAttributesOfResults) {
  serve(cases::withResults(), 0, dataClassResults);
  EXPECT_EQ(
      silentDamageOfAttributes(),
      Names({"/meshes/@mesh: integer", "/meshes/@mesh: negative", "/meshes/@partition: integer",
             "/meshes/@target: integer", "/meshes/@target: negative"}));
}

}  // namespace
}  // namespace velto::testing
