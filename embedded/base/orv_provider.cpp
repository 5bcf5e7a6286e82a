// SPDX-License-Identifier: Apache-2.0
//
// The operations of OrvProvider and OrvConsumer that are not virtual.

#include "data_access/OrvConsumer.h"
#include "data_access/OrvProvider.h"

#include "embedded/base/OrvBaseState.h"
#include "embedded/base/OrvLocationModelState.h"

namespace velto {

using base::observe;

bool OrvProvider::hasTarget(OrvTargetCategory category) const {
  observe(*this, "hasTarget", category);
  for (const auto& mesh : base::coreOf(*this).tables.meshes) {
    if (mesh.first.target == category) {
      return true;
    }
  }
  return false;
}

OrvVariant OrvProvider::getSettings(OrvDataClass dataClass, const std::string& path,
                                    short flag) const {
  observe(*this, "getSettings", dataClass, path, flag);
  const base::CaseTables& tables = base::coreOf(*this).tables;
  const auto store = tables.settings.find({dataClass, _defaultSettingsPath});
  if (store == tables.settings.end()) {
    return {};
  }
  if (flag != 0 && !tables.solverType.empty()) {
    OrvVariant below = store->second.at(tables.solverType + "/" + path);
    if (below.isValid()) {
      return below;
    }
  }
  return store->second.at(path);
}

bool OrvProvider::getVariableId(const std::string& name, int& id) const {
  observe(*this, "getVariableId", name);
  const base::Variable* variable = base::coreOf(*this).tables.findVariable(name);
  if (variable == nullptr) {
    return false;
  }
  id = variable->id;
  return true;
}

void OrvConsumer::setLocationModel(const OrvLocationModel* model) const {
  observe(*this, "setLocationModel", std::string(model == nullptr ? "null" : "model"));
  std::shared_ptr<const OrvLocationModel> taken;
  if (model != nullptr) {
    taken = OrvLocationModel::State::copy(*model);
  }
  base::coreOf(*this).tables.locationModel = std::move(taken);
}

}  // namespace velto
