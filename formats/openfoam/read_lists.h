// SPDX-License-Identifier: Apache-2.0
//
// The lists of a mesh: labels, points, faces and flags, in text and binary.
//
// In text a list is one of
//   N ( a b ... )     N{a}     ( a b ... )     0
// and in binary
//   N ( raw )         0
// where N is text, and exactly the bytes of N entries lie between the parentheses.

#ifndef VELTO_FORMATS_OPENFOAM_READ_LISTS_H
#define VELTO_FORMATS_OPENFOAM_READ_LISTS_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "formats/openfoam/FoamHeader.h"
#include "formats/openfoam/Scanner.h"

namespace velto::openfoam {

/// What the messages call the entries of a list.
struct EntryNames {
  const char* one;
  const char* many;
};

/// The beginning of a list, up to its first entry.
struct ListHead {
  enum class Kind { kEntries, kUniform, kEmpty };
  Kind kind = Kind::kEntries;
  std::optional<std::uint64_t> count;  // as the file says, trusted by nobody
  Place place;                         // of the count
};

/// Reads the beginning of a list: its count and opening bracket, or all of an empty list.
/// `binary`: only the binary forms are taken.
ListHead openList(Scanner& scanner, bool binary, const EntryNames& names);

/// Reads the closing parenthesis of a list in text.
void closeList(Scanner& scanner, const EntryNames& names, const ListHead& head);

/// "cell label 7 of 9", or "cell label 7 or ")"" where there is no count. `index` is 0-based.
std::string entryName(const EntryNames& names, const ListHead& head, std::uint64_t index);

/// Appends a list of labels to `ids`, each as label + 1 in unsigned arithmetic.
/// `mostEqual`: the longest list of equal labels that is believed. Returns the kind of list it was.
/// Errors: ReadError if the list is broken, cut or has another number of entries than it says.
ListHead::Kind readLabels(Scanner& scanner, FileForm& form, const EntryNames& names,
                          std::uint64_t mostEqual, memory::IdList& ids);

/// Appends a list of points to `coordinates`, 3 values each. A list of equal points may have up to
/// 1,000,000 of them. Errors: as readLabels().
void readPoints(Scanner& scanner, FileForm& form, std::vector<double>& coordinates);

/// Appends a list of faces: to `counts` each one's number of nodes, to `ids` all node ids (label
/// + 1). Errors: as readLabels(), and for a face of more than 32767 nodes.
void readFaces(Scanner& scanner, FileForm& form, std::vector<std::int16_t>& counts,
               memory::IdList& ids);

/// Appends a list of truth values to `flags`, as 0 or 1. `mostEqual`: the longest list
/// of equal ones that is believed. Returns the kind of list it was. Errors: as readLabels().
ListHead::Kind readFlags(Scanner& scanner, bool binary, const EntryNames& names,
                         std::uint64_t mostEqual, std::vector<std::uint8_t>& flags);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_READ_LISTS_H
