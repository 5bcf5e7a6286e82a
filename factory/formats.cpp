// SPDX-License-Identifier: Apache-2.0
//
// The list of formats, and the makers that go by it.

#include "factory/formats.h"

#include <algorithm>

#include "embedded/memory/MemoryConsumer.h"
#include "embedded/store/StoreConsumer.h"
#include "embedded/store/StoreProvider.h"
#include "embedded/store/file_names.h"
#include "factory/makers.h"
#include "formats/openfoam/OpenFoamConsumer.h"
#include "formats/openfoam/OpenFoamProvider.h"
#include "formats/openfoam/locate.h"
#include "formats/openfoam/target_folders.h"
#include "formats/vtu/VtuConsumer.h"

namespace velto {

namespace factory {

namespace {

template <class Object, class Interface>
Interface* make() {
  return new Object;
}

// --- What names stand for: a file itself, or the mesh folders of a case
// ----------------------------

std::vector<std::string> fileRead(const std::string& name) { return {name}; }

std::vector<std::string> fileWritten(const std::string& name, const std::set<int>& /*partitions*/) {
  return {name};
}

std::vector<std::string> foamFoldersRead(const std::string& name) {
  const std::vector<openfoam::MeshFolder> found = openfoam::meshFolders(name);
  std::vector<std::string> folders(found.size());
  std::transform(found.begin(), found.end(), folders.begin(),
                 [](const openfoam::MeshFolder& folder) { return folder.path; });
  return folders;
}

std::vector<std::string> foamFoldersWritten(const std::string& name,
                                            const std::set<int>& partitions) {
  std::vector<std::string> folders;
  folders.reserve(partitions.size());
  for (const int partition : partitions) {
    folders.push_back(partition < 0 ? openfoam::polyMeshFolder(name)
                                    : openfoam::polyMeshFolder(name, partition));
  }
  return folders;
}

}  // namespace

const std::vector<Format>& formats() {
  static const std::vector<Format> kFormats = {
      {fileFormatOpenFoam,
       "openfoam",
       "OpenFOAM polyMesh",
       "a folder constant/polyMesh, a file in it, or a case folder",
       "mesh, zones, partitions",
       "mesh, zones, partitions",
       openfoam::holdsMesh,
       foamFoldersRead,
       make<openfoam::OpenFoamProvider, OrvFileProvider>,
       make<openfoam::OpenFoamConsumer, OrvFileConsumer>,
       {"",
        foamFoldersWritten,
        false,
        {Content::postTargets, Content::locationModel, Content::settings, Content::results},
        "openfoam/",
        false}},
      {fileFormatStore,
       "store",
       "the case store of this library, on HDF5",
       ".orv for a case, .orvr for results",
       "everything",
       "everything",
       store::isStore,
       fileRead,
       make<store::StoreProvider, OrvFileProvider>,
       make<store::StoreConsumer, OrvFileConsumer>,
       {store::kCaseEnding, fileWritten, true, {}, "", true}},
      {fileFormatVtu,
       "vtu",
       "VTK unstructured grid, for ParaView and PyVista",
       ".vtu",
       "",
       "mesh, zones, results",
       nullptr,
       nullptr,
       nullptr,
       make<vtu::VtuConsumer, OrvFileConsumer>,
       {".vtu",
        fileWritten,
        false,
        {Content::faces, Content::locationModel, Content::settings},
        "",
        false}},
      {fileFormatMemory, "memory", "a case in memory, for programs", "none", "", "everything",
       nullptr, nullptr, nullptr, make<memory::MemoryConsumer, OrvFileConsumer>},
  };
  return kFormats;
}

const Format* formatOf(const std::string& fileName) {
  for (const Format& format : formats()) {
    if (format.recognises != nullptr && format.recognises(fileName)) {
      return &format;
    }
  }
  return nullptr;
}

OrvFileProvider* makeProvider(const std::string& fileName) {
  const Format* format = formatOf(fileName);
  return format == nullptr ? nullptr : format->makeProvider();
}

OrvFileConsumer* makeConsumer(OrvFileFormatType type) {
  for (const Format& candidate : formats()) {
    if (candidate.type == type && candidate.makeConsumer != nullptr) {
      return candidate.makeConsumer();
    }
  }
  return nullptr;
}

}  // namespace factory

}  // namespace velto
