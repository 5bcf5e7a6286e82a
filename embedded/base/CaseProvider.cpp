// SPDX-License-Identifier: Apache-2.0
//
// CaseProvider: opening, what the file holds, and the shared steps of all families. The families
// themselves stand in case_provider_families.cpp.

#include "embedded/base/CaseProvider.h"

#include <new>
#include <set>

#include "embedded/base/OrvBaseState.h"

namespace velto::base {

bool CaseProvider::startReading(const std::string& fileName, OrvDataClass dataClass) {
  Messages& messages = coreOf(*this).messages;
  try {
    open(fileName, dataClass);
    return true;
  } catch (const std::bad_alloc&) {
    messages.addError(fileName + ": not enough memory to read it");
  } catch (const std::exception& error) {
    messages.addError(error.what());
  }
  if (dataClass == dataClassCase) {
    serve({}, {});
  }
  return false;
}

void CaseProvider::serve(CaseTables tables, ArraysByMesh arrays) {
  CaseCore& core = coreOf(*this);
  core.tables = std::move(tables);
  core.selection = core.tables.meshes.empty() ? MeshKey{} : core.tables.meshes.begin()->first;
  arrays_ = std::move(arrays);
  resultArrays_.clear();
  elementIds_.close();
  elementTypes_.close();
}

void CaseProvider::serveResults(CaseTables tables, ArraysByMesh arrays) {
  CaseTables& served = coreOf(*this).tables;
  if (served.meshes.empty()) {
    serve(std::move(tables), std::move(arrays));
    return;
  }
  served.phases = std::move(tables.phases);
  served.variables = std::move(tables.variables);
  for (auto& store : tables.settings) {
    served.settings[store.first] = std::move(store.second);
  }
  resultArrays_ = std::move(arrays);
}

void CaseProvider::setFileName(const std::string&, OrvDataClass) {}

void CaseProvider::getFileVersion(OrvDataClass, int& major, int& minor, int& patch) {
  if (const auto& version = coreOf(*this).tables.version) {
    major = version->major;
    minor = version->minor;
    patch = version->patch;
  }
}

// --- Settings -----------------------------------------------------------------------------------

void CaseProvider::getSettingsKeys(OrvDataClass dataClass, std::vector<std::string>& keys) {
  keys.clear();
  const auto& stores = coreOf(*this).tables.settings;
  const auto store = stores.find({dataClass, _defaultSettingsPath});
  if (store != stores.end()) {
    for (const Settings::Entry& entry : store->second.entries()) {
      keys.push_back(entry.first);
    }
  }
}

void CaseProvider::getSettingsValue(OrvDataClass dataClass, const std::string& key,
                                    std::string& value, const std::string& path) {
  const auto& stores = coreOf(*this).tables.settings;
  const auto store = stores.find({dataClass, path});
  if (store != stores.end()) {
    if (const std::string* found = store->second.find(key)) {
      value = *found;
    }
  }
}

// --- What the file holds ------------------------------------------------------------------------

void CaseProvider::getMeshIds(std::vector<int>& ids, OrvDataClass) {
  ids.clear();
  for (const auto& mesh : coreOf(*this).tables.meshes) {
    if (ids.empty() || ids.back() != mesh.first.mesh) {
      ids.push_back(mesh.first.mesh);
    }
  }
}

void CaseProvider::getTargets(std::vector<int>& categories, int meshId, OrvDataClass) {
  categories.clear();
  for (const auto& mesh : coreOf(*this).tables.meshes) {
    const bool known = !categories.empty() && categories.back() == mesh.first.target;
    if (mesh.first.mesh == meshId && !known) {
      categories.push_back(mesh.first.target);
    }
  }
}

void CaseProvider::getPartitionIds(std::vector<int>& ids, int meshId, OrvDataClass) {
  std::set<int> partitions;
  for (const auto& mesh : coreOf(*this).tables.meshes) {
    if (mesh.first.mesh == meshId && mesh.first.partition != -1) {
      partitions.insert(mesh.first.partition);
    }
  }
  ids.assign(partitions.begin(), partitions.end());
}

// --- Shared steps of the families ---------------------------------------------------------------

namespace {

MeshArrays* find(const CaseProvider::ArraysByMesh& arrays, const MeshKey& key) {
  const auto found = arrays.find(key);
  return found == arrays.end() ? nullptr : found->second.get();
}

}  // namespace

MeshArrays* CaseProvider::arrays() { return find(arrays_, coreOf(*this).selection); }

MeshArrays* CaseProvider::resultArrays() {
  return resultArrays_.empty() ? arrays() : find(resultArrays_, coreOf(*this).selection);
}

void CaseProvider::listZones(Family family, std::vector<int>& zoneIds) {
  zoneIds.clear();
  guarded(*this, familyName(family), [&] {
    if (MeshArrays* source = arrays()) {
      zoneIds = source->zones(family);
    }
  });
}

void CaseProvider::warnOfShortRead(const std::string& what, std::size_t delivered, std::size_t n) {
  coreOf(*this).messages.addWarning(what + ": " + std::to_string(delivered) +
                                    " values are there, " + std::to_string(n) + " were expected");
}

bool CaseProvider::uniformCount(Family family, int zoneId, short& count) {
  bool uniform = false;
  guarded(*this, familyName(family, zoneId), [&] {
    MeshArrays* source = arrays();
    uniform = source != nullptr && source->uniformCount(family, zoneId, count);
  });
  return uniform;
}

void CaseProvider::readCounts(Family family, int zoneId, short* counts, std::size_t n) {
  guarded(*this, familyName(family, zoneId), [&] {
    MeshArrays* source = arrays();
    const std::size_t delivered =
        source == nullptr ? 0 : source->readCounts(family, zoneId, counts, n);
    if (delivered < n) {
      warnOfShortRead(familyName(family, zoneId), delivered, n);
    }
  });
}

void CaseProvider::readIds(Family family, int zoneId, std::uint64_t* ids, std::size_t n) {
  guarded(*this, familyName(family, zoneId), [&] {
    MeshArrays* source = arrays();
    const std::size_t delivered = source == nullptr ? 0 : source->readIds(family, zoneId, ids, n);
    if (delivered < n) {
      warnOfShortRead(familyName(family, zoneId), delivered, n);
    }
  });
}

std::vector<ZoneRange> CaseProvider::rangesOf(const std::vector<int>& zoneIds) {
  std::vector<ZoneRange> ranges;
  if (const MeshTables* mesh = coreOf(*this).mesh()) {
    for (const int zone : zoneIds) {
      ranges.push_back({zone, mesh->zoneSize(zone, zoneFirstId), mesh->zoneSize(zone, zoneLastId)});
    }
  }
  return ranges;
}

void CaseProvider::openElements(Family family, std::vector<int>& zoneIds) {
  listZones(family, zoneIds);
  elementIds_.open(rangesOf(zoneIds), [this, family](int zone, ZoneValues<std::uint64_t>& values) {
    MeshArrays* const source = arrays();
    if (source == nullptr) {  // another mesh was selected since
      return false;
    }
    guarded(*this, familyName(family, zone), [&] {
      const IdView view = source->viewIds(family, zone);
      if (view.size > 0) {
        values.data = view.data;
        values.narrow = view.narrow;
        values.size = view.size;
        return;
      }
      const std::size_t n = source->valueCount(family, zone);
      std::uint32_t* narrow = values.narrowRoom.take(n);
      values.size = source->readNarrowIds(family, zone, narrow, n);
      if (values.size > 0) {
        values.narrow = narrow;
        return;
      }
      values.narrowRoom.release();
      std::uint64_t* ids = values.room.take(n);
      values.size = source->readIds(family, zone, ids, n);
      values.data = ids;
    });
    return true;
  });
}

}  // namespace velto::base
