// SPDX-License-Identifier: Apache-2.0
//
// KeptSettings: what the reader kept of a polyMesh that a case has no place for.

#ifndef VELTO_FORMATS_OPENFOAM_KEPT_SETTINGS_H
#define VELTO_FORMATS_OPENFOAM_KEPT_SETTINGS_H

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "embedded/base/Settings.h"

namespace velto::openfoam {

/// The settings "openfoam/..." of a case. A copy of a case has its solver type in front of them;
/// where both forms are there, that one counts.
class KeptSettings {
 public:
  using Entries = std::vector<std::pair<std::string, std::string>>;

  KeptSettings() = default;
  KeptSettings(const base::Settings& settings, const std::string& solverType);

  /// The entries of a patch: keywords and texts in their order.
  const Entries& patchEntries(const std::string& patch) const;
  /// The text of one of them, or null.
  const std::string* patchEntry(const std::string& patch, const std::string& keyword) const;

  /// The patch, or face zone, that a zone is a piece of; its own name if it is none.
  const std::string& patchOf(const std::string& zone) const { return wholeOf(patches_, zone); }
  const std::string& faceZoneOf(const std::string& zone) const { return wholeOf(faceZones_, zone); }

  /// Whether a zone holds, of the internal faces, those of no face zone.
  bool isInterior(const std::string& zone) const;

  /// Cell zones without cells, in their order.
  const std::vector<std::string>& emptyCellZones() const { return emptyCellZones_; }

  /// Partitions without cells, by number.
  const std::set<int>& emptyPartitions() const { return emptyPartitions_; }

  /// Face zones of which boundary faces are not in the case, with their number.
  const Entries& lostBoundaryFaces() const { return lostBoundaryFaces_; }

 private:
  using Wholes = std::map<std::string, std::string>;  // by the names of the pieces

  static const std::string& wholeOf(const Wholes& wholes, const std::string& zone);
  void take(const std::string& path, const std::string& value);

  std::map<std::string, Entries> entries_;  // by patch
  Wholes patches_;
  Wholes faceZones_;
  std::set<std::string> interior_;
  std::vector<std::string> emptyCellZones_;
  std::set<int> emptyPartitions_;
  Entries lostBoundaryFaces_;
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_KEPT_SETTINGS_H
