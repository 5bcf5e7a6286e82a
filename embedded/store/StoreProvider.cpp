// SPDX-License-Identifier: Apache-2.0
//
// StoreProvider: the seal first, then HDF5, then tables and arrays mesh by mesh.

#include "embedded/store/StoreProvider.h"

#include <array>
#include <filesystem>
#include <memory>
#include <system_error>

#include "embedded/base/CaseError.h"
#include "embedded/base/OrvBaseState.h"
#include "embedded/store/StoreArrays.h"
#include "embedded/store/case_tables.h"
#include "embedded/store/seal.h"

namespace velto::store {

using base::CaseError;

namespace {

namespace fs = std::filesystem;

/// How every HDF5 file begins.
constexpr std::array<unsigned char, 8> kSignature = {0x89, 'H', 'D', 'F', '\r', '\n', 0x1a, '\n'};

bool isHdf5(const base::RawFile& raw) {
  std::array<unsigned char, 8> begin{};
  if (raw.size() <= begin.size()) {
    return false;
  }
  raw.read(0, begin.data(), begin.size());
  return begin == kSignature;
}

/// Throws if a file ends before the end that HDF5 has noted in its head, which is the first thing
/// that HDF5 looks at too, but tells in words of its own.
void requireWhole(const std::string& name, const base::RawFile& raw) {
  constexpr std::uint64_t kVersionAt = 8;
  constexpr std::uint64_t kEndAt = 40;  // in the versions 0 and 1, with addresses of 8 bytes
  std::uint8_t version = 0;
  std::uint64_t end = 0;
  const std::uint64_t size = raw.size();
  raw.read(kVersionAt, &version, sizeof version);
  if (version <= 1 && size >= kEndAt + sizeof end) {
    raw.read(kEndAt, &end, sizeof end);
    if (size < end) {
      throw CaseError(name + ": the file is cut, it has " + std::to_string(size) + " of " +
                      std::to_string(end) + " bytes");
    }
  }
}

/// Looks at the format's name in the file itself.
bool hasFormat(const std::string& file, const base::RawFile& raw) {
  if (!isHdf5(raw) || examineSeal(raw) == SealState::broken) {
    return false;
  }
  return Hdf5File::open(file, raw.size()).root().text("format") == layout::kFormat;
}

struct OpenedStore {
  base::CaseTables tables;
  base::CaseProvider::ArraysByMesh arrays;
};

void openMesh(const Group& group, OrvDataClass dataClass, const std::shared_ptr<OpenFile>& file,
              OpenedStore& opened) {
  const base::MeshKey key = readMeshKey(group);
  const TextReader texts(group);
  base::MeshTables tables = readMeshTables(group, texts);
  auto arrays = std::make_shared<StoreArrays>(group, texts, file);
  if (dataClass == dataClassCase) {
    arrays->requireJustified(tables);
  }
  arrays->requireJustifiedFields(tables);
  if (!opened.tables.meshes.emplace(key, std::move(tables)).second) {
    throw CaseError(group.where() + ": another mesh has the same id, target and partition");
  }
  opened.arrays[key] = std::move(arrays);
}

OpenedStore openStore(const std::string& name, OrvDataClass dataClass) {
  const auto file = std::make_shared<OpenFile>(name);
  if (!isHdf5(file->raw)) {
    throw CaseError(name + ": is no HDF5 file");
  }
  if (examineSeal(file->raw) == SealState::broken) {
    throw CaseError(name + ": the structure of the file was changed after it was written, the " +
                    "file is damaged");
  }
  requireWhole(name, file->raw);
  const Hdf5File hdf5 = Hdf5File::open(name, file->raw.size());
  const Group root = hdf5.root();
  OpenedStore opened;
  readHeader(root, dataClass, opened.tables);
  readSettings(root, dataClass, opened.tables);
  if (dataClass == dataClassResults) {
    readResultTables(root, opened.tables);
  } else {
    opened.tables.locationModel = readLocationModel(root);
  }
  const std::uint64_t meshes = requireCount(root, "meshes");
  for (std::uint64_t i = 0; i < meshes; ++i) {
    openMesh(root.openGroup("meshes/" + std::to_string(i)), dataClass, file, opened);
  }
  return opened;
}

/// Throws if the zones of results have other sizes than those of the case that they are opened
/// behind: callers go by the case.
void requireSameZones(const std::string& name, const base::CaseTables& results,
                      const base::CaseTables& served) {
  for (const auto& mesh : results.meshes) {
    const auto found = served.meshes.find(mesh.first);
    for (const int zone : mesh.second.sortedZones()) {
      const std::uint64_t elements = mesh.second.zoneSize(zone, zoneElementCount);
      const std::uint64_t there =
          found == served.meshes.end() ? elements : found->second.zoneSize(zone, zoneElementCount);
      if (elements != there) {
        throw CaseError(name + ": the results belong to another case, zone " +
                        std::to_string(zone) + " has " + std::to_string(elements) +
                        " elements there and " + std::to_string(there) + " here");
      }
    }
  }
}

}  // namespace

bool isStore(const std::string& file) {
  std::error_code failed;
  if (!fs::is_regular_file(file, failed)) {
    return false;
  }
  const std::string ending = fs::path(file).extension().string();
  if (ending == ".orv" || ending == ".orvr") {
    return true;
  }
  try {
    return hasFormat(file, base::RawFile(file, base::RawFile::Mode::read, file));
  } catch (const std::exception&) {
    return false;
  }
}

void StoreProvider::open(const std::string& fileName, OrvDataClass dataClass) {
  OpenedStore opened = openStore(fileName, dataClass);
  if (dataClass == dataClassResults) {
    requireSameZones(fileName, opened.tables, base::coreOf(*this).tables);
    serveResults(std::move(opened.tables), std::move(opened.arrays));
  } else {
    serve(std::move(opened.tables), std::move(opened.arrays));
  }
}

}  // namespace velto::store
