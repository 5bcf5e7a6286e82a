// SPDX-License-Identifier: Apache-2.0
//
// Changes to a location model, which is shared and never changed itself, and to settings.

#include "testing/case_edits.h"

#include <utility>

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

void removeSetting(memory::Case& changed, const std::string& path) {
  changed.tables.defaultSettings().remove(path);
}

}  // namespace velto::testing
