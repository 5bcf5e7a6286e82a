// SPDX-License-Identifier: Apache-2.0
//
// The two factory functions, by which the tools get at plain meshes and at nothing else.

#include "data_access/OrvFactory.h"

#include "PlainMeshProvider.h"

namespace velto {

OrvFileProvider* getDataProvider(const std::string& fileName) {
  return plain_mesh::isPlainMesh(fileName) ? new plain_mesh::PlainMeshProvider : nullptr;
}

OrvFileConsumer* getDataConsumer(OrvFileFormatType /*format*/) { return nullptr; }

}  // namespace velto
