// SPDX-License-Identifier: Apache-2.0
//
// The contract's read side: phases, variables and their values.

#include "tests/embedded/contract_suite.h"

namespace velto::testing {
namespace {

using base::MeshTables;
using memory::MeshData;

class ResultsReader {
 public:
  explicit ResultsReader(OrvFileProvider& provider) : provider_(provider) {}

  /// Compares what one phase holds on zones of a category.
  void expectVariables(OrvZoneCategory category, const MeshData::VariableList& expected) {
    std::vector<std::string> names = {"old"};
    provider_.getVariableNames(category, names);
    std::vector<std::string> expectedNames;
    for (const auto& variable : expected) {
      expectedNames.push_back(variable.first);
    }
    EXPECT_EQ(names, expectedNames);
    for (const auto& variable : expected) {
      expectValues(category, variable.first, variable.second);
    }
  }

 private:
  void expectValues(OrvZoneCategory category, const std::string& name,
                    const memory::VariableData& expected) {
    std::vector<int> zones = {99};
    EXPECT_EQ(provider_.beginVariable(category, name, zones), expected.valuesPerEntity) << name;
    EXPECT_EQ(zones, expected.zones.zones()) << name;
    for (const int zone : zones) {
      const auto& held = *expected.zones.find(zone);
      std::vector<double> values(held.size(), -1);
      EXPECT_EQ(provider_.readVariable(zone, values.data(), values.size()), values.size()) << name;
      EXPECT_EQ(values, std::vector<double>(held.begin(), held.end())) << name;
    }
    provider_.endVariable();
  }

  OrvFileProvider& provider_;
};

TEST_P(ProviderContract, ReadsFieldData) {
  forEachMesh([this](const MeshTables&, const MeshData& data) {
    for (const base::Phase& phase : source->tables.phases) {
      provider().beginPhase(phase.id);
      for (const OrvZoneCategory category :
           {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
        const auto found = data.variables.find({phase.id, category});
        ResultsReader(provider())
            .expectVariables(
                category, found == data.variables.end() ? MeshData::VariableList() : found->second);
      }
      provider().endPhase();
    }
  });
  expectNoMessages();
}

TEST_P(ProviderContract, DescribesPhases) {
  if (deviations().withoutResults) {
    GTEST_SKIP() << "results are not carried";
  }
  std::vector<short> ids = {99};
  std::vector<short> expectedIds;
  provider().getPhaseIds(ids);
  for (const base::Phase& phase : source->tables.phases) {
    expectedIds.push_back(phase.id);
    std::string text = "untouched";
    EXPECT_EQ(provider().getPhaseName(phase.id, text), phase.name.has_value());
    EXPECT_EQ(text, phase.name.value_or("untouched"));
    text = "untouched";
    EXPECT_EQ(provider().getPhaseDescription(phase.id, text), phase.description.has_value());
    EXPECT_EQ(text, phase.description.value_or("untouched"));
    std::vector<std::string> names;
    EXPECT_EQ(provider().getPhaseAttributeNames(phase.id, names), !phase.attributes.empty());
    EXPECT_EQ(names.size(), phase.attributes.size());
    for (const auto& attribute : phase.attributes) {
      EXPECT_TRUE(provider().getPhaseAttribute(phase.id, attribute.first, text));
      EXPECT_EQ(text, attribute.second);
    }
  }
  EXPECT_EQ(ids, expectedIds);
}

TEST_P(ProviderContract, DescribesVariables) {
  if (deviations().withoutResults) {
    GTEST_SKIP() << "results are not carried";
  }
  for (const base::Variable& variable : source->tables.variables) {
    int id = 0;
    ASSERT_TRUE(provider().getVariableId(variable.name, id)) << variable.name;
    std::string text = "untouched";
    EXPECT_EQ(provider().getVariableDescription(id, text), variable.description.has_value());
    EXPECT_EQ(text, variable.description.value_or("untouched"));
    std::vector<std::string> names;
    EXPECT_EQ(provider().getVariableAttributeNames(id, names), !variable.attributes.empty());
    EXPECT_EQ(names.size(), variable.attributes.size());
    for (const auto& attribute : variable.attributes) {
      EXPECT_TRUE(provider().getVariableAttribute(id, attribute.first, text));
      EXPECT_EQ(text, attribute.second);
    }
  }
}

TEST_P(ProviderContract, AnswersFalseForUnknownPhasesAndVariables) {
  std::string text = "untouched";
  std::vector<std::string> names = {"untouched"};
  std::vector<int> zones = {99};
  int id = -99;
  EXPECT_FALSE(provider().getPhaseName(99, text));
  EXPECT_FALSE(provider().getPhaseDescription(99, text));
  EXPECT_FALSE(provider().getPhaseAttributeNames(99, names));
  EXPECT_FALSE(provider().getPhaseAttribute(99, "density", text));
  EXPECT_FALSE(provider().getPhaseAttribute(1, "absent", text));
  EXPECT_FALSE(provider().getVariableId("absent", id));
  EXPECT_FALSE(provider().getVariableDescription(99, text));
  EXPECT_FALSE(provider().getVariableAttributeNames(99, names));
  EXPECT_FALSE(provider().getVariableAttribute(99, "units", text));
  EXPECT_FALSE(provider().getVariableAttribute(1, "absent", text));
  EXPECT_EQ(text, "untouched");
  EXPECT_EQ(names, std::vector<std::string>({"untouched"}));
  EXPECT_EQ(id, -99);
  provider().beginPhase(99);
  provider().getVariableNames(zoneCategoryNode, names);
  EXPECT_EQ(names, std::vector<std::string>());
  EXPECT_EQ(provider().beginVariable(zoneCategoryNode, "absent", zones), 0U);
  EXPECT_EQ(zones, std::vector<int>());
  provider().endVariable();
  provider().endPhase();
  expectNoMessages();
}

}  // namespace
}  // namespace velto::testing
