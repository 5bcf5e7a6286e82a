// SPDX-License-Identifier: Apache-2.0
//
// A small folder as one input of a fuzz target.

#ifndef VELTO_FUZZ_FOLDER_TEXT_H
#define VELTO_FUZZ_FOLDER_TEXT_H

#include <string>
#include <string_view>

namespace velto::fuzzing {

/// Writes a folder anew from an input: a line with its path in front of each file, then its bytes,
/// then a line break of no meaning.
///
///     @@ constant/polyMesh/points
///     FoamFile { ... }
///     @@ constant/polyMesh/faces
///
/// Paths that lead out of the folder, and what stands in front of the first of those lines, are
/// left out.
void writeFolder(std::string_view input, const std::string& folder);

/// The input that stands for a folder. Files stand in the order of their paths.
std::string readFolder(const std::string& folder);

}  // namespace velto::fuzzing

#endif  // VELTO_FUZZ_FOLDER_TEXT_H
