// SPDX-License-Identifier: Apache-2.0
//
// writeVtu: a case as one file of an unstructured grid.

#ifndef VELTO_FORMATS_VTU_WRITE_VTU_H
#define VELTO_FORMATS_VTU_WRITE_VTU_H

#include <string>
#include <vector>

#include "embedded/memory/Case.h"

namespace velto::vtu {

struct WriteOptions {
  unsigned compression = 0;  ///< 0 for plain arrays, up to 9.
  bool withFields = false;   ///< Whether the variables of the results are written.
};

/// Writes the first mesh that has cells, each partition as a piece. Gives the names of variables
/// that were left out because they are of faces.
///
/// Throws a CaseError if the mesh cannot be written; what had the name keeps it then.
std::vector<std::string> writeVtu(const memory::Case& source, const std::string& file,
                                  const WriteOptions& options);

}  // namespace velto::vtu

#endif  // VELTO_FORMATS_VTU_WRITE_VTU_H
