// SPDX-License-Identifier: Apache-2.0
//
// Settings: keys, values, and the names that stand below a path.

#include "embedded/base/Settings.h"

#include <unordered_set>

#include "embedded/base/OrvVariantState.h"

namespace velto::base {

void Settings::set(const std::string& key, const std::string& value) {
  const auto [found, isNew] = positions_.emplace(key, entries_.size());
  if (isNew) {
    entries_.emplace_back(key, value);
  } else {
    entries_[found->second].second = value;
  }
}

const std::string* Settings::find(const std::string& key) const {
  const auto found = positions_.find(key);
  return found == positions_.end() ? nullptr : &entries_[found->second].second;
}

OrvVariant Settings::at(const std::string& path) const {
  if (const std::string* value = find(path)) {
    return OrvVariant::State::makeString(*value);
  }
  std::vector<std::string> names = namesBelow(path);
  return names.empty() ? OrvVariant() : OrvVariant::State::makeList(std::move(names));
}

std::vector<std::string> Settings::namesBelow(const std::string& path) const {
  const std::string prefix = path + "/";
  std::vector<std::string> names;
  std::unordered_set<std::string> known;
  for (const auto& entry : entries_) {
    const std::string& key = entry.first;
    if (key.size() > prefix.size() && key.compare(0, prefix.size(), prefix) == 0) {
      std::string name = key.substr(prefix.size(), key.find('/', prefix.size()) - prefix.size());
      if (known.insert(name).second) {
        names.push_back(std::move(name));
      }
    }
  }
  return names;
}

}  // namespace velto::base
