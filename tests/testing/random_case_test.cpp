// SPDX-License-Identifier: Apache-2.0
//
// Random cases: how different the sound ones are, and that small damage stays small.

#include "testing/random_case.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace velto::testing {
namespace {

using base::Family;

constexpr std::uint64_t kCases = 400;

using Kinds = std::set<std::string>;

void noteCounted(const memory::MeshData& data, Family family, Kinds& met) {
  for (const int zone : data.counted(family).zones()) {
    const memory::CountedData& held = *data.counted(family).find(zone);
    met.insert(std::string(familyName(family)) + (held.uniform ? ", uniform" : ""));
  }
}

void noteTypes(const memory::MeshData& data, Kinds& met) {
  for (const int zone : data.cellTypes.zones()) {
    const memory::CellTypeData& held = *data.cellTypes.find(zone);
    met.insert(held.uniform ? "cell types, uniform" : "cell types");
    for (const int type : held.types) {
      met.insert("type " + std::to_string(type));
    }
  }
}

/// What can be told apart in the values of a mesh.
Kinds kindsIn(const base::MeshTables& mesh, const memory::MeshData& data) {
  Kinds met;
  for (const Family family : {Family::faceNodes, Family::cellNodes, Family::cellFaces}) {
    noteCounted(data, family, met);
  }
  for (const Family family : {Family::faceCell0, Family::faceCell1, Family::faceShadows}) {
    for (const int zone : data.faceIds(family).zones()) {
      met.insert(familyName(family));
      EXPECT_EQ(data.faceIds(family).find(zone)->size(), mesh.zoneSize(zone, zoneElementCount));
    }
  }
  noteTypes(data, met);
  return met;
}

TEST(RandomCase, HasValuesOfEveryKind) {
  Kinds met;
  for (std::uint64_t seed = 1; seed <= kCases; ++seed) {
    Random random(seed);
    const memory::Case made = randomSoundCase(random);
    for (const auto& [key, data] : made.data) {
      met.merge(kindsIn(made.tables.meshes.at(key), data));
    }
  }
  EXPECT_EQ(met, Kinds({"cell faces",   "cell faces, uniform",
                        "cell nodes",   "cell nodes, uniform",
                        "cell types",   "cell types, uniform",
                        "face nodes",   "face nodes, uniform",
                        "shadow faces", "side-0 cells",
                        "side-1 cells", "type -1",
                        "type 0",       "type 1",
                        "type 10",      "type 2",
                        "type 3",       "type 4",
                        "type 5",       "type 6",
                        "type 7",       "type 8",
                        "type 9"}));
}

TEST(RandomCase, StaysSmallUnderSmallDamage) {
  bool hasLargeBeenMet = false;
  for (std::uint64_t seed = 1; seed <= kCases; ++seed) {
    Random random(seed);
    memory::Case damaged = randomSoundCase(random);
    ASSERT_TRUE(isSmall(damaged)) << "seed " << seed;
    for (int left = 5; left > 0; --left) {
      const std::string text = damage(damaged, random, Sizes::small);
      ASSERT_TRUE(isSmall(damaged)) << "seed " << seed << ": " << text;
    }
    damage(damaged, random);
    hasLargeBeenMet = hasLargeBeenMet || !isSmall(damaged);
  }
  EXPECT_TRUE(hasLargeBeenMet);
}

}  // namespace
}  // namespace velto::testing
