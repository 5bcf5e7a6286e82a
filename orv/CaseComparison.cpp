// SPDX-License-Identifier: Apache-2.0
//
// CaseComparison: tables, coordinates and connectivity. Results are in compare_results.cpp.

#include "orv/CaseComparison.h"

#include <algorithm>
#include <map>

#include "data_access/location_models.h"

#include "factory/model_text.h"

namespace velto::orv {

namespace {

/// The lines of a text.
std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t begin = 0;
  while (begin < text.size()) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return lines;
}

}  // namespace

void CaseComparison::differs(const std::string& what) {
  ++count_;
  if (differences_.size() < kMostKept) {
    differences_.push_back(place_ + what);
  }
}

void CaseComparison::select(const Selection& inSource, const Selection& inCopy) {
  orv::select(source_, inSource);
  orv::select(copy_, inCopy);
  place_ = wordsOf(inSource) + ": ";
  known_.clear();
  for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
    std::vector<int> zones;
    source_.getZoneIds(category, zones);
    known_.insert(zones.begin(), zones.end());
  }
}

void CaseComparison::compareMesh(const Selection& inSource, const Selection& inCopy) {
  select(inSource, inCopy);
  compareSizes();
  for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
    compareZones(category);
  }
  compareCoordinates();
  compareCounted("cell", kCellNodes);
  compareCellTypes();
  comparePartitions();
  compareCounted("face", kFaceNodes);
  compareSide("cells on side 0", kFaceCell0);
  compareSide("cells on side 1", kFaceCell1);
}

// --- Tables --------------------------------------------------------------------------------------

void CaseComparison::compareSizes() {
  static const std::pair<OrvMeshSizeType, const char*> kSizes[] = {
      {meshDimension, "dimension"},
      {meshNodeCount, "nodes"},
      {meshOtherCount, "further count"},
      {meshFaceCount, "faces"},
      {meshCellCount, "cells"}};
  for (const auto& size : kSizes) {
    compare(size.second, both([&size](OrvProvider& provider) {
              std::uint64_t value = 0;
              provider.getMeshSize(size.first, value);
              return value;
            }));
  }
  compare("units", both([](OrvProvider& provider) {
            std::string units;
            provider.getMeshUnits(units);
            return units;
          }));
}

void CaseComparison::compareZones(OrvZoneCategory category) {
  const auto zones = both([category](OrvProvider& provider) {
    std::vector<int> ids;
    provider.getZoneIds(category, ids);
    return ids;
  });
  compare(fmt::format("{} zones", categoryWord(category)), zones);
  const std::set<int> inCopy(zones.second.begin(), zones.second.end());
  for (const int zone : zones.first) {
    if (inCopy.count(zone) > 0) {
      compareZone(category, zone);
    }
  }
}

void CaseComparison::compareZone(OrvZoneCategory category, int zone) {
  const std::string where = fmt::format("{} zone {}: ", categoryWord(category), zone);
  static const std::pair<OrvZoneSizeType, const char*> kSizes[] = {
      {zoneFirstId, "first id"}, {zoneLastId, "last id"}, {zoneDimension, "dimension"}};
  for (const auto& size : kSizes) {
    compare(where + size.second, both([&](OrvProvider& provider) {
              std::uint64_t value = 0;
              provider.getZoneSizeInfo(zone, size.first, value);
              return value;
            }));
  }
  compare(where + "name", both([zone](OrvProvider& provider) {
            std::string name;
            provider.getZoneStringInfo(zone, zoneName, name);
            return name;
          }));
  if (category == zoneCategoryCell) {
    compare(where + "shape", both([zone](OrvProvider& provider) {
              int shape = 0;
              provider.getCellZoneInfo(zone, cellZoneCellType, shape);
              return shape;
            }));
  } else if (category == zoneCategoryFace) {
    for (const OrvFaceZoneInfoType key : {faceZoneFaceType, faceZoneType}) {
      compare(where + (key == faceZoneType ? "type" : "shape"), both([&](OrvProvider& provider) {
                int value = 0;
                provider.getFaceZoneInfo(zone, key, value);
                return value;
              }));
    }
  }
}

// --- Arrays --------------------------------------------------------------------------------------

std::string CaseComparison::label(int zone) const {
  std::string name;
  source_.getZoneStringInfo(zone, zoneName, name);
  return fmt::format("zone {} '{}': ", zone, name);
}

std::vector<int> CaseComparison::zonesOf(const std::string& family,
                                         const Both<std::vector<int>>& listed) {
  Both<std::vector<int>> zones = {{}, listed.second};
  for (const int zone : listed.first) {
    if (known_.count(zone) != 0) {
      zones.first.push_back(zone);
    }
  }
  compare("zones with " + family, zones);
  if (zones.first != zones.second) {
    zones.first.clear();  // said, and what they hold cannot be matched
  }
  return zones.first;
}

void CaseComparison::arrayBegins() {
  if (hook_) {
    hook_();
  }
}

void CaseComparison::compareCoordinates() {
  const auto listed = both([](OrvProvider& provider) {
    std::vector<int> zones;
    provider.beginNodeCoordinates(zones);
    return std::set<int>(zones.begin(), zones.end());
  });
  const auto valuesOf = [](OrvProvider& provider, int zone, const std::set<int>& withValues) {
    std::uint64_t dimension = 0;
    provider.getZoneSizeInfo(zone, zoneDimension, dimension);
    std::vector<double> values(elementCount(provider, zone) * (dimension == 0 ? 3 : dimension));
    const bool isListed = withValues.count(zone) > 0;
    values.resize(isListed ? std::min(values.size(), provider.readNodeCoordinates(
                                                         zone, values.data(), values.size()))
                           : 0);
    return values;
  };
  // A zone without coordinates is as good as one that is not listed.
  std::vector<int> zones;
  source_.getZoneIds(zoneCategoryNode, zones);
  for (const int zone : zones) {
    arrayBegins();
    compareArrays("node " + label(zone), "coordinates",
                  Both<std::vector<double>>(valuesOf(source_, zone, listed.first),
                                            valuesOf(copy_, zone, listed.second)));
  }
  source_.endNodeCoordinates();
  copy_.endNodeCoordinates();
}

void CaseComparison::compareCounted(const std::string& element, const CountedReadFamily& family) {
  const auto call = [this](void (OrvProvider::*operation)()) {
    (source_.*operation)();
    (copy_.*operation)();
  };
  const std::vector<int> zones = zonesOf(element + " nodes", both([&family](OrvProvider& provider) {
                                           std::vector<int> listed;
                                           (provider.*family.begin)(listed);
                                           return listed;
                                         }));
  call(family.beginCounts);
  std::map<int, Both<std::int64_t>> lengths;
  for (const int zone : zones) {
    arrayBegins();
    auto counts = both([&](OrvProvider& provider) {
      std::vector<short> read(elementCount(provider, zone));
      short uniform = 0;
      if (!read.empty() && (provider.*family.getUniformCount)(zone, uniform)) {
        std::fill(read.begin(), read.end(), uniform);
      } else if (!read.empty()) {
        (provider.*family.readCounts)(zone, read.data(), read.size());
      }
      return read;
    });
    compareArrays(element + " " + label(zone), "counts of nodes", counts);
    lengths[zone] = {summedListLength(counts.first.data(), counts.first.size()),
                     summedListLength(counts.second.data(), counts.second.size())};
  }
  call(family.endCounts);
  call(family.beginIds);
  for (const int zone : zones) {
    arrayBegins();
    const auto idsOf = [&](OrvProvider& provider, std::int64_t length) {
      std::vector<std::uint64_t> ids(length < 0 ? 0 : static_cast<std::size_t>(length));
      (provider.*family.readIds)(zone, ids.data(), ids.size());
      return ids;
    };
    compareArrays(element + " " + label(zone), "node ids",
                  Both<std::vector<std::uint64_t>>(idsOf(source_, lengths[zone].first),
                                                   idsOf(copy_, lengths[zone].second)));
  }
  call(family.endIds);
  call(family.end);
}

void CaseComparison::compareSide(const std::string& what, const SideReadFamily& side) {
  const std::vector<int> zones = zonesOf(what, both([&side](OrvProvider& provider) {
                                           std::vector<int> listed;
                                           (provider.*side.begin)(listed);
                                           return listed;
                                         }));
  for (const int zone : zones) {
    arrayBegins();
    compareArrays("face " + label(zone), what, both([&](OrvProvider& provider) {
                    std::vector<std::uint64_t> cells(elementCount(provider, zone));
                    (provider.*side.readCells)(zone, cells.data(), cells.size());
                    return cells;
                  }));
  }
  (source_.*side.end)();
  (copy_.*side.end)();
}

void CaseComparison::compareCellTypes() {
  const std::vector<int> zones = zonesOf("cell types", both([](OrvProvider& provider) {
                                           std::vector<int> listed;
                                           provider.beginCellTypes(listed);
                                           return listed;
                                         }));
  for (const int zone : zones) {
    arrayBegins();
    compareArrays("cell " + label(zone), "cell types", both([zone](OrvProvider& provider) {
                    std::vector<int> types(elementCount(provider, zone));
                    int uniform = 0;
                    if (provider.getUniformCellType(zone, uniform)) {
                      std::fill(types.begin(), types.end(), uniform);
                    } else {
                      provider.readCellTypes(zone, types.data(), types.size());
                    }
                    return types;
                  }));
  }
  source_.endCellTypes();
  copy_.endCellTypes();
}

void CaseComparison::comparePartitions() {
  const std::vector<int> zones = zonesOf("cell partitions", both([](OrvProvider& provider) {
                                           std::vector<int> listed;
                                           provider.beginCellPartitions(listed);
                                           return listed;
                                         }));
  for (const int zone : zones) {
    arrayBegins();
    compareArrays("cell " + label(zone), "cell partitions", both([zone](OrvProvider& provider) {
                    std::vector<int> partitions(elementCount(provider, zone));
                    provider.readCellPartitions(zone, partitions.data(), partitions.size());
                    return partitions;
                  }));
  }
  source_.endCellPartitions();
  copy_.endCellPartitions();
}

// --- Location model and settings -----------------------------------------------------------------

void CaseComparison::compareModel(int mesh) {
  place_ = "location model: ";
  const OrvLocationModel* inSource = source_.getLocationModel();
  const OrvLocationModel* inCopy = copy_.getLocationModel();
  if (!hasParts(inSource)) {
    return;  // the copy has one that was built
  }
  const auto textOf = [mesh](const OrvLocationModel* model) {
    return linesOf(model == nullptr ? "" : factory::modelText(*model, mesh));
  };
  const std::vector<std::string> a = textOf(inSource);
  const std::vector<std::string> b = textOf(inCopy);
  for (std::size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
    const std::string& line = i < a.size() ? a[i] : "nothing";
    const std::string& lineOfCopy = i < b.size() ? b[i] : "nothing";
    if (line != lineOfCopy) {
      differs(fmt::format("{} and {}", line, lineOfCopy));
    }
  }
}

void CaseComparison::compareSettings() {
  place_ = "settings: ";
  const std::string solverType = copy_.getSolverType();
  std::vector<std::string> keys;
  source_.getSettingsKeys(dataClassCase, keys);
  for (const std::string& key : keys) {
    const bool isBelow = key.compare(0, solverType.size(), solverType) == 0;
    const auto valueOf = [](OrvProvider& provider, const std::string& asked) {
      std::string value = "nothing";
      provider.getSettingsValue(dataClassCase, asked, value, OrvBase::_defaultSettingsPath);
      return value;
    };
    const std::string keyOfCopy = isBelow ? key : fmt::format("{}/{}", solverType, key);
    compare(key, Both<std::string>(valueOf(source_, key), valueOf(copy_, keyOfCopy)));
  }
}

}  // namespace velto::orv
