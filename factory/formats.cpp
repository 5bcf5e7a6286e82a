// SPDX-License-Identifier: Apache-2.0
//
// The list of formats, and the two factory functions that go by it.

#include "factory/formats.h"

#include "data_access/OrvFactory.h"

#include "embedded/memory/MemoryConsumer.h"
#include "embedded/store/StoreConsumer.h"
#include "embedded/store/StoreProvider.h"
#include "embedded/store/file_names.h"
#include "formats/openfoam/OpenFoamConsumer.h"
#include "formats/openfoam/OpenFoamProvider.h"
#include "formats/openfoam/locate.h"
#include "formats/vtu/VtuConsumer.h"

namespace velto {

namespace factory {

namespace {

template <class Object, class Interface>
Interface* make() {
  return new Object;
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
       make<openfoam::OpenFoamProvider, OrvFileProvider>,
       make<openfoam::OpenFoamConsumer, OrvFileConsumer>,
       {"",
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
       make<store::StoreProvider, OrvFileProvider>,
       make<store::StoreConsumer, OrvFileConsumer>,
       {store::kCaseEnding, {}, "", true}},
      {fileFormatVtu,
       "vtu",
       "VTK unstructured grid, for ParaView and PyVista",
       ".vtu",
       "",
       "mesh, zones, results",
       nullptr,
       nullptr,
       make<vtu::VtuConsumer, OrvFileConsumer>,
       {".vtu", {Content::faces, Content::locationModel, Content::settings}, "", false}},
      {fileFormatMemory, "memory", "a case in memory, for programs", "none", "", "everything",
       nullptr, nullptr, make<memory::MemoryConsumer, OrvFileConsumer>},
  };
  return kFormats;
}

}  // namespace factory

OrvFileProvider* getDataProvider(const std::string& fileName) {
  for (const factory::Format& format : factory::formats()) {
    if (format.recognises != nullptr && format.recognises(fileName)) {
      return format.makeProvider();
    }
  }
  return nullptr;
}

OrvFileConsumer* getDataConsumer(OrvFileFormatType format) {
  for (const factory::Format& candidate : factory::formats()) {
    if (candidate.type == format && candidate.makeConsumer != nullptr) {
      return candidate.makeConsumer();
    }
  }
  return nullptr;
}

}  // namespace velto
