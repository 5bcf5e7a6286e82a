// SPDX-License-Identifier: Apache-2.0
//
// Settings: keys and values, and what stands at a path below the solver type and at the path
// itself.

#include <gtest/gtest.h>

#include "embedded/memory/MemoryProvider.h"
#include "testing/cases.h"

namespace velto::testing {
namespace {

using Texts = std::vector<std::string>;

class SettingsTest : public ::testing::Test {
 protected:
  OrvVariant at(const std::string& path, short flag = 1) {
    memory::MemoryProvider provider(source_);
    provider.startReading("", dataClassCase);
    return provider.getSettings(dataClassCase, path, flag);
  }

  cases::CasePtr source_ = cases::oneHex();  // of solver type VELTO_GENERIC
};

TEST_F(SettingsTest, GiveTheValueOfAKey) {
  source_->setSetting("domains/air/location", "fluid");
  EXPECT_TRUE(at("domains/air/location").isValid());
  EXPECT_EQ(at("domains/air/location").asString(), "fluid");
}

TEST_F(SettingsTest, LoseAnEntryAndAllBelowIt) {
  source_->setSetting("domains/air/location", "fluid");
  source_->setSetting("domains", "both");
  source_->setSetting("domains2/air", "kept");
  source_->setSetting("Time", "now");
  source_->tables.defaultSettings().remove("domains");
  source_->tables.defaultSettings().remove("nothing");
  EXPECT_FALSE(at("domains").isValid());
  EXPECT_FALSE(at("domains/air/location").isValid());
  using Entries = std::vector<base::Settings::Entry>;
  EXPECT_EQ(source_->tables.defaultSettings().entries(),
            Entries({{"domains2/air", "kept"}, {"Time", "now"}}));
}

TEST_F(SettingsTest, GiveNothingWhereNothingStands) {
  EXPECT_FALSE(at("domains").isValid());
  source_->setSetting("domains/air/location", "fluid");
  EXPECT_FALSE(at("boundaries").isValid());
  EXPECT_FALSE(at("domains/air/loc").isValid());
  EXPECT_FALSE(at("domains/air/location/more").isValid());
  EXPECT_FALSE(at("").isValid());
}

TEST_F(SettingsTest, GiveAnEmptyValueAsValid) {
  source_->setSetting("domains/air/location", "");
  EXPECT_TRUE(at("domains/air/location").isValid());
  EXPECT_EQ(at("domains/air/location").asStringVector(), Texts());
}

TEST_F(SettingsTest, LookBelowTheSolverTypeFirst) {
  source_->setSetting("domains/air/location", "plain");
  source_->setSetting("VELTO_GENERIC/domains/air/location", "below");
  EXPECT_EQ(at("domains/air/location", 1).asString(), "below");
  EXPECT_EQ(at("domains/air/location", 0).asString(), "plain");
}

TEST_F(SettingsTest, FallBackToThePlainPath) {
  source_->setSetting("domains/air/location", "plain");
  source_->setSetting("VELTO_GENERIC/domains/water/location", "below");
  EXPECT_EQ(at("domains/air/location", 1).asString(), "plain");
}

TEST_F(SettingsTest, LookAtThePlainPathOnlyWithFlagZero) {
  source_->setSetting("VELTO_GENERIC/domains/air/location", "below");
  EXPECT_FALSE(at("domains/air/location", 0).isValid());
  EXPECT_TRUE(at("VELTO_GENERIC/domains/air/location", 0).isValid());
}

TEST_F(SettingsTest, LookAtThePlainPathOnlyWithoutSolverType) {
  source_->tables.solverType = "";
  source_->setSetting("/domains/air/location", "odd");
  EXPECT_FALSE(at("domains/air/location", 1).isValid());
}

TEST_F(SettingsTest, GiveTheNamesBelowAPathInOrderAndOnce) {
  source_->setSetting("domains/water/location", "fluid");
  source_->setSetting("domains/air/location", "fluid");
  source_->setSetting("domains/water/material", "H2O");
  source_->setSetting("domainsOfOther/x", "y");
  EXPECT_EQ(at("domains").asStringVector(), Texts({"water", "air"}));
  EXPECT_EQ(at("domains/water").asStringVector(), Texts({"location", "material"}));
}

TEST_F(SettingsTest, PreferAnExplicitListToTheNamesBelow) {
  source_->setSetting("domains/water/location", "fluid");
  source_->setSetting("domains", "air, oil");
  EXPECT_EQ(at("domains").asStringVector(), Texts({"air", "oil"}));
}

TEST_F(SettingsTest, PreferNamesBelowTheSolverTypeToAPlainList) {
  source_->setSetting("domains", "air");
  source_->setSetting("VELTO_GENERIC/domains/water/location", "fluid");
  EXPECT_EQ(at("domains", 1).asStringVector(), Texts({"water"}));
}

TEST_F(SettingsTest, KeepTheFirstPlaceAndTheLastValueOfAKey) {
  source_->setSetting("b", "1");
  source_->setSetting("a", "2");
  source_->setSetting("b", "3");
  memory::MemoryProvider provider(source_);
  provider.startReading("", dataClassCase);
  Texts keys = {"old"};
  provider.getSettingsKeys(dataClassCase, keys);
  EXPECT_EQ(keys, Texts({"b", "a"}));
  std::string value;
  provider.getSettingsValue(dataClassCase, "b", value, OrvBase::_defaultSettingsPath);
  EXPECT_EQ(value, "3");
}

TEST_F(SettingsTest, AreApartByDataClass) {
  source_->setSetting("Time", "now");
  memory::MemoryProvider provider(source_);
  provider.startReading("", dataClassCase);
  Texts keys = {"old"};
  provider.getSettingsKeys(dataClassResults, keys);
  EXPECT_EQ(keys, Texts());
  EXPECT_FALSE(provider.getSettings(dataClassResults, "Time", 0).isValid());
}

TEST_F(SettingsTest, OutliveTheirProvider) {
  source_->setSetting("domains", "air, water");
  const OrvVariant value = at("domains");
  EXPECT_EQ(value.asStringVector(), Texts({"air", "water"}));
}

}  // namespace
}  // namespace velto::testing
