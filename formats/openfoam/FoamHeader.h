// SPDX-License-Identifier: Apache-2.0
//
// The FoamFile dictionary at the head of a file, and what it says about the form of the content.

#ifndef VELTO_FORMATS_OPENFOAM_FOAM_HEADER_H
#define VELTO_FORMATS_OPENFOAM_FOAM_HEADER_H

#include <optional>
#include <string>

#include "formats/openfoam/PolyMesh.h"

namespace velto::openfoam {

class Scanner;

/// The entries of the FoamFile dictionary, without quotes; empty where absent.
struct FoamHeader {
  std::string version;
  std::string format;       // "ascii" or "binary"
  std::string objectClass;  // "vectorField", "faceList", "labelList", "polyBoundaryMesh", ...
  std::string arch;         // "LSB;label=32;scalar=64", in binary files of one branch only
  std::string location;
  std::string object;
  std::string note;
};

/// The header of a plain or gzipped file, or nothing if it does not begin with a FoamFile
/// dictionary that ends within its first 16 KiB; comments may precede it. Never throws: what
/// cannot be opened has no header.
std::optional<FoamHeader> peekHeader(const std::string& file) noexcept;

/// What a reader has to know about the content of a file.
struct FileForm {
  bool binary = false;
  bool compact = false;  // class faceCompactList: start offsets, then all node labels
  int labelBits = 0;     // 32 or 64; 0: not said. Found out by the first binary list.
  int scalarBits = 0;    // 32 or 64; 0: not said
  std::optional<Note> note;
};

/// Reads the header and judges whether what follows can be read. A file without `format` is text.
/// `classRequired`: whether a header without `class` is refused.
/// Errors: ReadError for no header, a broken one, an unknown format, binary content of big-endian
/// machines or of odd widths, and collated files.
FileForm readHeader(Scanner& scanner, bool classRequired);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_FOAM_HEADER_H
