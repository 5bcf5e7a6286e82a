// SPDX-License-Identifier: Apache-2.0
//
// KeptSettings: one pass over the settings, by the beginnings and ends of their keys.

#include "formats/openfoam/KeptSettings.h"

#include <algorithm>
#include <charconv>

#include "data_access/OrvUtilities.h"

namespace velto::openfoam {

namespace {

/// What stands between two texts, if `text` begins and ends with them and more is there.
bool isBetween(const std::string& text, const std::string& begin, const std::string& end,
               std::string& middle) {
  if (text.size() <= begin.size() + end.size() || text.compare(0, begin.size(), begin) != 0 ||
      text.compare(text.size() - end.size(), end.size(), end) != 0) {
    return false;
  }
  middle = text.substr(begin.size(), text.size() - begin.size() - end.size());
  return true;
}

std::vector<std::string> namesIn(const std::string& list) {
  std::vector<std::string> names;
  OrvUtilities::splitString(list, names, true, ',');
  return names;
}

}  // namespace

KeptSettings::KeptSettings(const base::Settings& settings, const std::string& solverType) {
  std::set<std::string> inCopy;
  std::string path;
  for (const auto& [key, value] : settings.entries()) {
    if (!solverType.empty() && isBetween(key, solverType + "/openfoam/", "", path)) {
      inCopy.insert(path);
      take(path, value);
    }
  }
  for (const auto& [key, value] : settings.entries()) {
    if (isBetween(key, "openfoam/", "", path) && inCopy.count(path) == 0) {
      take(path, value);
    }
  }
}

void KeptSettings::take(const std::string& path, const std::string& value) {
  std::string name;
  if (isBetween(path, "boundary/", "/pieces", name)) {
    for (const std::string& piece : namesIn(value)) {
      patches_[piece] = name;
    }
  } else if (isBetween(path, "faceZones/", "/pieces", name)) {
    for (const std::string& piece : namesIn(value)) {
      faceZones_[piece] = name;
    }
  } else if (path == "interior/pieces") {
    for (const std::string& piece : namesIn(value)) {
      interior_.insert(piece);
    }
  } else if (isBetween(path, "cellZones/", "/cells", name)) {
    emptyCellZones_.push_back(name);
  } else if (isBetween(path, "faceZones/", "/boundaryFaces", name)) {
    lostBoundaryFaces_.emplace_back(name, value);
  } else if (isBetween(path, "processor", "/cells", name)) {
    int number = -1;
    const auto end = std::from_chars(name.data(), name.data() + name.size(), number).ptr;
    if (end == name.data() + name.size() && number >= 0) {
      emptyPartitions_.insert(number);
    }
  } else if (isBetween(path, "boundary/", "", name)) {
    const std::size_t slash = name.find('/');
    if (slash != std::string::npos && slash > 0 && slash + 1 < name.size()) {
      entries_[name.substr(0, slash)].emplace_back(name.substr(slash + 1), value);
    }
  }
}

const KeptSettings::Entries& KeptSettings::patchEntries(const std::string& patch) const {
  static const Entries kNone;
  const auto found = entries_.find(patch);
  return found == entries_.end() ? kNone : found->second;
}

const std::string* KeptSettings::patchEntry(const std::string& patch,
                                            const std::string& keyword) const {
  const Entries& entries = patchEntries(patch);
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [&](const auto& entry) { return entry.first == keyword; });
  return found == entries.end() ? nullptr : &found->second;
}

const std::string& KeptSettings::wholeOf(const Wholes& wholes, const std::string& zone) {
  const auto found = wholes.find(zone);
  return found == wholes.end() ? zone : found->second;
}

bool KeptSettings::isInterior(const std::string& zone) const {
  static const std::string kName = "interior";
  return zone == kName || zone.compare(0, kName.size() + 1, kName + ":") == 0 ||
         interior_.count(zone) > 0;
}

}  // namespace velto::openfoam
