// SPDX-License-Identifier: Apache-2.0
//
// Which variables of the results become arrays, what these are called, and their values.

#ifndef VELTO_FORMATS_VTU_FIELDS_H
#define VELTO_FORMATS_VTU_FIELDS_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "embedded/base/CaseTables.h"
#include "embedded/base/MeshArrays.h"
#include "formats/vtu/ArrayEncoder.h"
#include "formats/vtu/PieceMesh.h"

namespace velto::vtu {

/// An array of the file: a variable of a phase, on nodes or on cells.
struct Field {
  base::VariableKey key;
  std::size_t components = 1;
  std::string name;  ///< That of the variable, behind its phase's and "/" if several have it.
};

using Pieces = std::vector<std::unique_ptr<PieceMesh>>;

/// The variables that have values on zones of a category of some piece, in their order. `taken` are
/// names that other arrays have.
///
/// Throws a CaseError if a list is too short, or if pieces disagree about a variable.
std::vector<Field> fieldsOf(const base::CaseTables& tables, const Pieces& pieces,
                            OrvZoneCategory category, const std::vector<std::string>& taken);

/// The names of the variables on faces, each once.
std::vector<std::string> faceVariables(const Pieces& pieces);

/// Writes the values on one piece; NaN where a zone has none.
void writeField(const Field& field, const PieceMesh& piece, ArrayEncoder& encoder);

}  // namespace velto::vtu

#endif  // VELTO_FORMATS_VTU_FIELDS_H
