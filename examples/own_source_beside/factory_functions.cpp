// SPDX-License-Identifier: Apache-2.0
//
// The two factory functions, by which the tools get at plain meshes and at all formats of velto.

#include "data_access/OrvFactory.h"

#include "PlainMeshProvider.h"
#include "factory/makers.h"

namespace velto {

OrvFileProvider* getDataProvider(const std::string& fileName) {
  return plain_mesh::isPlainMesh(fileName) ? new plain_mesh::PlainMeshProvider
                                           : factory::makeProvider(fileName);
}

OrvFileConsumer* getDataConsumer(OrvFileFormatType format) { return factory::makeConsumer(format); }

}  // namespace velto
