// SPDX-License-Identifier: Apache-2.0
//
// Settings: keys, values, and the names that stand below a path.

#include "embedded/base/Settings.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

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

void Settings::remove(const std::string& path) {
  Settings left;
  for (const auto& [key, value] : entries_) {
    if (key != path && key.compare(0, path.size() + 1, path + "/") != 0) {
      left.set(key, value);
    }
  }
  *this = std::move(left);
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
  std::vector<std::size_t> places;
  for (auto next = positions_.upper_bound(prefix);
       next != positions_.end() && next->first.compare(0, prefix.size(), prefix) == 0; ++next) {
    places.push_back(next->second);
  }
  std::sort(places.begin(), places.end());
  std::vector<std::string> names;
  std::unordered_set<std::string> known;
  for (const std::size_t place : places) {
    const std::string& key = entries_[place].first;
    std::string name = key.substr(prefix.size(), key.find('/', prefix.size()) - prefix.size());
    if (known.insert(name).second) {
      names.push_back(std::move(name));
    }
  }
  return names;
}

}  // namespace velto::base
