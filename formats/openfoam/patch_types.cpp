// SPDX-License-Identifier: Apache-2.0
//
// Types of patches: from settings, type names, types and links, in this order.

#include "formats/openfoam/patch_types.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <unordered_map>
#include <utility>

#include "embedded/base/shapes.h"
#include "formats/openfoam/case_from_poly_mesh.h"
#include "formats/openfoam/characters.h"
#include "formats/openfoam/dictionary.h"
#include "formats/openfoam/foam_words.h"

namespace velto::openfoam {

namespace {

constexpr const char* kNeighbourPatch = "neighbourPatch";

bool isTypeWord(const std::string& text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c);
  });
}

/// The numbers in "procBoundary0to1".
std::optional<std::pair<int, int>> processorsIn(const std::string& name) {
  static const std::string kPrefix = "procBoundary";
  static const std::string kBetween = "to";
  if (name.compare(0, kPrefix.size(), kPrefix) != 0) {
    return std::nullopt;
  }
  const char* const end = name.data() + name.size();
  std::pair<int, int> numbers;
  const auto own = std::from_chars(name.data() + kPrefix.size(), end, numbers.first);
  if (own.ec != std::errc() || static_cast<std::size_t>(end - own.ptr) <= kBetween.size() ||
      kBetween.compare(0, kBetween.size(), own.ptr, kBetween.size()) != 0) {
    return std::nullopt;
  }
  const auto other = std::from_chars(own.ptr + kBetween.size(), end, numbers.second);
  const bool isWhole = other.ec == std::errc() && other.ptr == end;
  return isWhole && numbers.first >= 0 && numbers.second >= 0 ? std::make_optional(numbers)
                                                              : std::nullopt;
}

class Typist {
 public:
  Typist(const std::vector<PatchToType>& patches, const base::MeshTables& tables,
         const KeptSettings& settings, WrittenZones& result)
      : patches_(patches), tables_(tables), settings_(settings), result_(result) {
    for (std::size_t i = 0; i < patches.size(); ++i) {
      patchOfName_.emplace(patches[i].keptName, i);
      for (const int zone : patches[i].zones) {
        patchOfZone_[zone] = i;
      }
    }
  }

  void run() {
    for (std::size_t i = 0; i < patches_.size(); ++i) {
      takeEntries(i);
      result_.patches[i].type = typeOf(i);
    }
    for (std::size_t i = 0; i < patches_.size(); ++i) {
      couple(i);
    }
  }

 private:
  const base::ZoneRecord& record(std::size_t i) const {
    return tables_.zones.at(patches_[i].zones.front());
  }

  int zoneType(std::size_t i) const {
    return record(i).faceInfo[faceZoneType].value_or(faceZoneTypeNone);
  }

  void warn(std::size_t i, const std::string& text) {
    result_.warnings.push_back("patch '" + result_.patches[i].name + "': " + text);
  }

  void takeEntries(std::size_t i) {
    for (const auto& [keyword, text] : settings_.patchEntries(patches_[i].keptName)) {
      if (keyword == "type" || keyword == "nFaces" || keyword == "startFace") {
        continue;
      }
      const bool isWord =
          foamWord(keyword) == keyword || (unquoted(keyword) != keyword && isEntryText(keyword));
      if (!isWord || !isEntryText(text)) {
        warn(i, "the setting '" + keyword + "' is no entry of a patch, left out");
        continue;
      }
      result_.patches[i].entries.emplace_back(keyword, text);
    }
  }

  std::string typeOf(std::size_t i) const {
    const std::string* const kept = settings_.patchEntry(patches_[i].keptName, "type");
    if (kept != nullptr && isTypeWord(unquoted(*kept))) {
      return unquoted(*kept);
    }
    const int type = zoneType(i);
    const std::string name = record(i).texts[zoneTypeName].value_or("");
    const int asRead = type == base::boundaryPeriodicShadow ? base::boundaryPeriodic : type;
    return isTypeWord(name) && boundaryTypeOf(name) == asRead ? name : plainTypeOf(type);
  }

  /// The patch that holds the shadow of a patch's zones, if they link to each other throughout.
  std::optional<std::size_t> linked(std::size_t i) const {
    std::optional<std::size_t> found;
    for (const int zone : patches_[i].zones) {
      const int shadow = shadowOf(zone);
      const auto patch = patchOfZone_.find(shadow);
      if (patch == patchOfZone_.end() || shadowOf(shadow) != zone ||
          (found && *found != patch->second)) {
        return std::nullopt;
      }
      found = patch->second;
    }
    const bool fits =
        found && *found != i && result_.patches[*found].faceCount == result_.patches[i].faceCount;
    return fits ? found : std::nullopt;
  }

  int shadowOf(int zone) const {
    return tables_.zones.at(zone).faceInfo[faceZoneShadow].value_or(0);
  }

  void couple(std::size_t i) {
    WrittenPatch& patch = result_.patches[i];
    renameNeighbour(i);
    if (patch.type == "cyclic") {
      coupleHalf(i);
    } else if (patch.type.compare(0, 9, "processor") == 0) {
      coupleProcessor(i);
    } else if (boundaryTypeOf(patch.type) == base::boundaryCoupled && patch.entries.empty()) {
      makePlain(i, "what it is coupled to is not known");
    } else if (linked(i)) {
      warn(i, "written without its link to patch '" + result_.patches[*linked(i)].name + "'");
    }
  }

  /// Puts the name that the other half has now where its old one stands.
  void renameNeighbour(std::size_t i) {
    for (auto& [keyword, text] : result_.patches[i].entries) {
      const auto other = patchOfName_.find(unquoted(text));
      if (keyword == kNeighbourPatch && other != patchOfName_.end() &&
          result_.patches[other->second].name != other->first) {
        text = result_.patches[other->second].name;
      }
    }
  }

  const std::string* entry(std::size_t i, const std::string& keyword) const {
    const auto& entries = result_.patches[i].entries;
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const auto& entry) { return entry.first == keyword; });
    return found == entries.end() ? nullptr : &found->second;
  }

  void coupleHalf(std::size_t i) {
    if (entry(i, kNeighbourPatch) != nullptr) {
      return;
    }
    const std::optional<std::size_t> other = linked(i);
    if (other) {
      result_.patches[i].entries.emplace_back(kNeighbourPatch, result_.patches[*other].name);
    } else {
      makePlain(i, "its other half is not known");
    }
  }

  void coupleProcessor(std::size_t i) {
    if (entry(i, "myProcNo") != nullptr && entry(i, "neighbProcNo") != nullptr) {
      return;
    }
    const auto numbers = processorsIn(patches_[i].keptName);
    if (numbers && result_.patches[i].entries.empty()) {
      auto& entries = result_.patches[i].entries;
      entries.emplace_back("myProcNo", std::to_string(numbers->first));
      entries.emplace_back("neighbProcNo", std::to_string(numbers->second));
      result_.patches[i].type = "processor";
    } else {
      makePlain(i, "which processors it lies between is not known");
    }
  }

  void makePlain(std::size_t i, const std::string& reason) {
    result_.patches[i].type = "patch";
    warn(i, reason + ", written with type patch");
  }

  const std::vector<PatchToType>& patches_;
  const base::MeshTables& tables_;
  const KeptSettings& settings_;
  WrittenZones& result_;
  std::unordered_map<int, std::size_t> patchOfZone_;
  std::unordered_map<std::string, std::size_t> patchOfName_;  // by the name in settings
};

}  // namespace

void findTypes(const std::vector<PatchToType>& patches, const base::MeshTables& tables,
               const KeptSettings& settings, WrittenZones& result) {
  Typist(patches, tables, settings, result).run();
}

}  // namespace velto::openfoam
