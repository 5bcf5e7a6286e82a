// SPDX-License-Identifier: Apache-2.0
//
// Changes to a location model, which is shared and never changed itself, and to settings.

#include "testing/case_edits.h"

#include <utility>

#include "data_access/OrvBase.h"

namespace velto::testing {

void changeModel(memory::Case& changed,
                 const std::function<void(OrvLocationModel::State&)>& change) {
  auto model = std::make_unique<OrvLocationModel>();
  if (const OrvLocationModel* const before = changed.tables.locationModel.get()) {
    model = OrvLocationModel::State::copy(*before);
  }
  change(OrvLocationModel::State::of(*model));
  changed.tables.locationModel = std::move(model);
}

base::Settings& settingsOf(memory::Case& served) {
  return served.tables.settings[{dataClassCase, OrvBase::_defaultSettingsPath}];
}

void removeSetting(memory::Case& changed, const std::string& path) {
  base::Settings left;
  for (const auto& [key, value] : settingsOf(changed).entries()) {
    if (key != path && key.compare(0, path.size() + 1, path + "/") != 0) {
      left.set(key, value);
    }
  }
  settingsOf(changed) = left;
}

}  // namespace velto::testing
