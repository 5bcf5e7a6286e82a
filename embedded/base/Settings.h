// SPDX-License-Identifier: Apache-2.0
//
// Settings: the keys and values of one store of settings, with lookup by path.

#ifndef VELTO_EMBEDDED_BASE_SETTINGS_H
#define VELTO_EMBEDDED_BASE_SETTINGS_H

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "data_access/OrvVariant.h"

namespace velto::base {

/// Entries in the order in which their keys were first set. A key is a path whose components are
/// joined by "/"; a path that is no key but the beginning of some ("domains" where
/// "domains/air/location" is set) stands for the list of the components that follow it.
class Settings {
 public:
  /// A key and its value.
  using Entry = std::pair<std::string, std::string>;

  /// Sets an entry; a key that is there keeps its place and gets the new value.
  void set(const std::string& key, const std::string& value);

  /// Removes an entry and all that stands below it.
  void remove(const std::string& path);

  /// All entries, in order.
  const std::vector<Entry>& entries() const { return entries_; }

  /// The value of a key, or null.
  const std::string* find(const std::string& key) const;

  /// What stands at `path`: the key's value, the list of names below it, or nothing.
  OrvVariant at(const std::string& path) const;

 private:
  std::vector<std::string> namesBelow(const std::string& path) const;

  std::vector<Entry> entries_;
  /// Places of the keys in the list. In byte order, so that what stands below a path is a range.
  std::map<std::string, std::size_t> positions_;
};

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_SETTINGS_H
