// SPDX-License-Identifier: Apache-2.0
//
// Random physics objects written out.

#include "data_access/OrvBase.h"

#include "embedded/base/call_text.h"
#include "testing/model_text.h"
#include "tests/physics_regions/random_regions.h"

namespace velto::testing {

namespace {

std::string textOf(const memory::Case& drawn) {
  std::string text;
  const auto& stores = drawn.tables.settings;
  const auto store = stores.find({dataClassCase, OrvBase::_defaultSettingsPath});
  if (store != stores.end()) {
    for (const auto& [key, value] : store->second.entries()) {
      text.append("  ").append(key).append(" = '").append(value).append("'\n");
    }
  }
  for (const auto& [key, mesh] : drawn.tables.meshes) {
    text += "  mesh " + std::to_string(key.mesh) + "\n";
    for (const OrvZoneCategory category : {zoneCategoryFace, zoneCategoryCell}) {
      for (const int zone : mesh.idsOf(category)) {
        const auto name = mesh.zones.at(zone).texts[zoneName];
        text += std::string("    ") + (category == zoneCategoryFace ? "face" : "cell") + " zone " +
                std::to_string(zone) + (name ? " '" + *name + "'" : " without a name") + "\n";
      }
    }
    const std::vector<int>& withNodes = drawn.data.at(key).cellNodes.zones();
    text += "    with cell nodes " + base::argumentText(withNodes) + "\n";
    if (drawn.tables.locationModel != nullptr) {
      text += modelText(*drawn.tables.locationModel, key.mesh);
    }
  }
  return text + (drawn.tables.locationModel == nullptr ? "  without a model\n" : "");
}

std::string numberOf(const std::optional<std::size_t>& number) {
  return number ? std::to_string(*number) : "null";
}

std::string textOf(const RandomResolving& drawn) {
  using Arguments = RandomResolving::Arguments;
  std::string text = "resolve with ";
  if (drawn.arguments != Arguments::oneProvider) {
    text += drawn.arguments == Arguments::twoProviders ? "provider " : "the model of ";
    text += numberOf(drawn.model) + " and ";
  }
  text += "provider " + numberOf(drawn.zones) + ", mesh " + std::to_string(drawn.mesh) + "\n";
  if (drawn.move) {
    text += "  mesh " + std::to_string(drawn.move->mesh) + " from getMeshId number " +
            std::to_string(drawn.move->nth) + " on\n";
  }
  for (const ModelRefusal& refusal : drawn.refusals) {
    text += "  " + refusal.call + " number " + std::to_string(refusal.nth) +
            (refusal.isDenied ? " is denied\n" : " is refused\n");
  }
  return text;
}

}  // namespace

std::string textOf(const RandomRegions& drawn) {
  std::string text = drawn.hasSettings ? "" : "resolver of a null pointer\n";
  for (std::size_t i = 0; i < drawn.cases.size(); ++i) {
    text += "case " + std::to_string(i) + "\n" + textOf(*drawn.cases.at(i));
  }
  for (const auto& [call, list] : drawn.lists) {
    text += call + " answers " + base::argumentText(list) + "\n";
  }
  for (const RandomResolving& resolving : drawn.resolvings) {
    text += textOf(resolving);
  }
  return text;
}

}  // namespace velto::testing
