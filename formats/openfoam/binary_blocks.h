// SPDX-License-Identifier: Apache-2.0
//
// Binary blocks: the bytes between the parentheses of a binary list.

#ifndef VELTO_FORMATS_OPENFOAM_BINARY_BLOCKS_H
#define VELTO_FORMATS_OPENFOAM_BINARY_BLOCKS_H

#include <cstdint>
#include <vector>

#include "formats/openfoam/FoamHeader.h"
#include "formats/openfoam/Scanner.h"
#include "formats/openfoam/read_lists.h"

namespace velto::openfoam {

// Each reads a block whose list was opened by openList(), the closing parenthesis included. The
// memory taken grows with the bytes that were really read, whatever the count says.
// Errors: ReadError if the file ends too early or the parenthesis is not where it should be.

/// Appends labels of form.labelBits to `ids`, as label + 1. Finds that width if it is 0, by where
/// the closing parenthesis lies, and keeps it in `form`.
void readLabelBlock(Scanner& scanner, FileForm& form, const EntryNames& names, const ListHead& head,
                    memory::IdList& ids);

/// Appends points of form.scalarBits to `coordinates`; finds that width as readLabelBlock() does.
void readPointBlock(Scanner& scanner, FileForm& form, const EntryNames& names, const ListHead& head,
                    std::vector<double>& coordinates);

/// Appends truth values of one byte each to `flags`, as 0 or 1.
void readFlagBlock(Scanner& scanner, const EntryNames& names, const ListHead& head,
                   std::vector<std::uint8_t>& flags);

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_BINARY_BLOCKS_H
