// SPDX-License-Identifier: Apache-2.0
//
// OpenFoamConsumer: collect, judge, plan, write beside the final folders, swap.

#include "formats/openfoam/OpenFoamConsumer.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <utility>

#include "embedded/base/CaseError.h"
#include "embedded/base/OrvBaseState.h"
#include "embedded/base/Progress.h"
#include "formats/openfoam/FolderSwap.h"
#include "formats/openfoam/KeptSettings.h"
#include "formats/openfoam/MeshToWrite.h"
#include "formats/openfoam/processor_patches.h"
#include "formats/openfoam/target_folders.h"
#include "formats/openfoam/write_poly_mesh.h"

namespace velto::openfoam {

using base::CaseError;
using base::Family;
using base::MeshKey;

namespace {

bool isBlank(const base::MeshTables& mesh) {
  const auto isEmpty = [](const auto& ids) { return ids.second.empty(); };
  return mesh.zones.empty() && std::all_of(mesh.zoneIds.begin(), mesh.zoneIds.end(), isEmpty);
}

/// The restart meshes that can be written together: one, or its partitions.
std::vector<MeshKey> keysToWrite(const base::CaseTables& tables, base::Messages& messages) {
  std::vector<MeshKey> keys;
  bool hasOthers = false;
  for (const auto& [key, mesh] : tables.meshes) {
    if (key.target != targetRestart) {
      hasOthers = hasOthers || !isBlank(mesh);
    } else if (!isBlank(mesh)) {
      keys.push_back(key);
    }
  }
  if (keys.empty()) {
    throw CaseError("there is no restart mesh, which is what an OpenFOAM folder holds");
  }
  if (keys.front().mesh != keys.back().mesh) {
    throw CaseError("there are several meshes, an OpenFOAM folder holds one");
  }
  if (keys.size() > 1 && keys.front().partition < 0) {
    throw CaseError("mesh " + std::to_string(keys.front().mesh) +
                    ": is there as a whole and in partitions");
  }
  if (hasOthers) {
    messages.addWarning("meshes for viewing are not written to an OpenFOAM folder");
  }
  return keys;
}

std::string shownMesh(const MeshKey& key) {
  return "mesh " + std::to_string(key.mesh) +
         (key.partition < 0 ? "" : ", partition " + std::to_string(key.partition));
}

}  // namespace

// --- The arrays that are kept -------------------------------------------------------------------

void PolyMeshSink::writeUniformCount(Family family, int zone, short count) {
  if (family == Family::faceNodes) {
    arrays_.faceNodes[zone].uniform = count;
  }
}

void PolyMeshSink::writeCounts(Family family, int zone, const short* counts, std::size_t n) {
  if (family == Family::faceNodes) {
    arrays_.faceNodes[zone].counts.assign(counts, counts + n);
  }
}

void PolyMeshSink::writeIds(Family family, int zone, const std::uint64_t* ids, std::size_t n) {
  if (family == Family::faceNodes) {
    arrays_.faceNodes[zone].ids = KeptIds(ids, n);
  } else if (family == Family::faceCell0) {
    arrays_.faceCell0[zone] = KeptIds(ids, n);
  } else if (family == Family::faceCell1) {
    arrays_.faceCell1[zone] = KeptIds(ids, n);
  }
}

void PolyMeshSink::writeCoordinates(int zone, const double* values, std::size_t n) {
  arrays_.nodeCoordinates[zone].assign(values, values + n);
}

// --- Parts --------------------------------------------------------------------------------------

/// A mesh, and the folder that it is written into.
struct OpenFoamConsumer::Part {
  int partition = -1;
  std::string folder;
  MeshToWrite mesh;
  WrittenZones zones;
};

std::vector<WrittenPatch> OpenFoamConsumer::patchesOfAll(const std::vector<Part>& parts) {
  std::vector<WrittenPatch> patches;
  std::set<std::string> names;
  for (const Part& part : parts) {
    for (const WrittenPatch& patch : part.zones.patches) {
      if (patch.type.compare(0, 9, "processor") != 0 && names.insert(patch.name).second) {
        patches.push_back({patch.name, patch.type, patch.entries, {}, 0, false});
      }
    }
  }
  return patches;
}

// --- Writing ------------------------------------------------------------------------------------

base::MeshArraySink& OpenFoamConsumer::sink(const MeshKey& key) { return sinks_[key]; }

void OpenFoamConsumer::open(OrvDataClass dataClass) {
  sinks_.clear();
  if (dataClass == dataClassCase) {
    polyMeshFolder(fileName(dataClass));
  }
}

void OpenFoamConsumer::finish(OrvDataClass dataClass) {
  if (dataClass == dataClassCase) {
    writeMeshes();
  } else {
    finishResults();
  }
  sinks_.clear();
}

void OpenFoamConsumer::abandon() { sinks_.clear(); }

void OpenFoamConsumer::finishResults() {
  if (!base::coreOf(*this).tables.variables.empty()) {
    base::coreOf(*this).messages.addWarning("results are not written to an OpenFOAM folder");
  }
}

void OpenFoamConsumer::writeMeshes() {
  std::vector<Part> parts = judgedParts();
  writeParts(parts);
  std::set<std::string> told;
  for (const Part& part : parts) {
    for (const std::string& warning : part.zones.warnings) {
      if (told.insert(warning).second) {
        base::coreOf(*this).messages.addWarning(warning);
      }
    }
  }
}

std::vector<OpenFoamConsumer::Part> OpenFoamConsumer::judgedParts() {
  base::CaseCore& core = base::coreOf(*this);
  const std::string& path = fileName(dataClassCase);
  const KeptSettings settings(core.tables.defaultSettings(), getSolverType());
  const std::vector<MeshKey> keys = keysToWrite(core.tables, core.messages);
  const bool isCut = keys.front().partition >= 0;
  std::vector<Part> parts;
  std::set<int> partitions;
  for (const MeshKey& key : keys) {
    const base::MeshTables& tables = core.tables.meshes.at(key);
    Part part;
    part.partition = key.partition;
    part.folder = isCut ? polyMeshFolder(path, key.partition) : polyMeshFolder(path);
    part.mesh = judgeMesh(shownMesh(key), tables, sinks_[key].arrays());
    part.zones = zonesToWrite(part.mesh, tables, settings);
    partitions.insert(key.partition);
    parts.push_back(std::move(part));
  }
  std::map<int, WrittenZones*> zones;
  for (Part& part : parts) {
    zones[part.partition] = &part.zones;
  }
  alignProcessorPatches(zones);
  if (isCut) {
    const std::vector<WrittenPatch> patches = patchesOfAll(parts);
    for (const int partition : settings.emptyPartitions()) {
      if (partitions.insert(partition).second) {
        Part part;
        part.partition = partition;
        part.folder = polyMeshFolder(path, partition);
        part.zones.patches = patches;
        parts.push_back(std::move(part));
      }
    }
    refuseOtherProcessors(path, partitions);
  }
  return parts;
}

void OpenFoamConsumer::writeParts(const std::vector<Part>& parts) {
  const WriteForm form{mode() == 1, std::min(compression(), 9U)};
  std::uint64_t total = 0;
  for (const Part& part : parts) {
    total += valueBytes(part.mesh, part.zones);
  }
  std::uint64_t done = 0;
  const auto progress = [&](std::uint64_t bytes) {
    done = std::min(done + bytes, total);
    base::reportProgress("writing " + fileName(dataClassCase), done, total);
  };
  FolderSwap folders;
  for (const Part& part : parts) {
    writePolyMesh(folders.begin(part.folder), part.folder, part.mesh, part.zones, form, progress);
  }
  folders.commit();
}

}  // namespace velto::openfoam
