// SPDX-License-Identifier: Apache-2.0
//
// What the files of a written mesh have to be like, told from the files alone.

#ifndef VELTO_TESTS_FORMATS_OPENFOAM_WRITTEN_MESH_H
#define VELTO_TESTS_FORMATS_OPENFOAM_WRITTEN_MESH_H

#include <string>
#include <vector>

#include "embedded/memory/Case.h"
#include "formats/openfoam/PolyMesh.h"

namespace velto::openfoam {

/// How a case is written: mode and compression.
struct Form {
  const char* name;
  int mode = 0;
  unsigned compression = 0;
};

/// Binary, text, and both gzipped.
const std::vector<Form>& writtenForms();

/// Writes a case into `path` and returns what waits behind it, warnings first, without the words in
/// front of each.
std::vector<std::string> writeInto(const memory::Case& source, const std::string& path,
                                   const Form& form = {"Binary"});

/// The mesh in a folder as a case, as the reader makes it.
memory::Case readCase(const std::string& folder);

/// A case as a copy of it holds it: no type names, no shadow links, and settings behind the solver
/// type.
memory::Case asCopied(memory::Case source);

/// What breaks the rules of the format in a mesh: order of faces, ranges of patches, directions of
/// normals, cells that are not closed. Nothing of a sound mesh.
std::vector<std::string> brokenRules(const PolyMesh& mesh);

/// The entries of a patch in their order: " type wall; nFaces 5;".
std::string describeEntries(const Patch& patch);

/// The files of a folder, each with the entries of its header:
/// "points: version 2.0, format binary, class vectorField, ...".
std::string describeHeaders(const std::string& folder);

/// The content of a file, unpacked.
std::string contentOf(const std::string& file);

/// The names in a folder, in byte order, with blanks between them.
std::string namesIn(const std::string& folder);

}  // namespace velto::openfoam

#endif  // VELTO_TESTS_FORMATS_OPENFOAM_WRITTEN_MESH_H
