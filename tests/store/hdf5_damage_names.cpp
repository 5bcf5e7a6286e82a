// SPDX-License-Identifier: Apache-2.0
//
// What the kinds of damage to a store file are called.

#include "tests/store/hdf5_damage.h"

namespace velto::testing {

const std::vector<Named<Filling>>& fillings() {
  static const std::vector<Named<Filling>> kNames = {{"ones", Filling::ones},
                                                     {"zeros", Filling::zeros},
                                                     {"largest", Filling::largest},
                                                     {"millions", Filling::millions}};
  return kNames;
}

const std::vector<Named<DatasetDamage>>& datasetDamages() {
  static const std::vector<Named<DatasetDamage>> kNames = {
      {"removed", DatasetDamage::removed},
      {"group", DatasetDamage::group},
      {"other width", DatasetDamage::otherWidth},
      {"floats", DatasetDamage::floats},
      {"texts", DatasetDamage::texts},
      {"any texts", DatasetDamage::anyTexts},
      {"square", DatasetDamage::square},
      {"shorter", DatasetDamage::shorter},
      {"longer", DatasetDamage::longer},
      {"empty", DatasetDamage::empty},
      {"nothing", DatasetDamage::nothing},
      {"claims chunks", DatasetDamage::claimsChunks},
      {"claims one held", DatasetDamage::claimsOneHeld},
      {"claims room", DatasetDamage::claimsRoom},
      {"elsewhere", DatasetDamage::elsewhere}};
  return kNames;
}

const std::vector<Named<AttributeDamage>>& attributeDamages() {
  static const std::vector<Named<AttributeDamage>> kNames = {
      {"removed", AttributeDamage::removed},   {"integer", AttributeDamage::integer},
      {"integers", AttributeDamage::integers}, {"fraction", AttributeDamage::fraction},
      {"text", AttributeDamage::text},         {"any text", AttributeDamage::anyText},
      {"nothing", AttributeDamage::nothing},   {"largest", AttributeDamage::largest},
      {"negative", AttributeDamage::negative}};
  return kNames;
}

}  // namespace velto::testing
