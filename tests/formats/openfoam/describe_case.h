// SPDX-License-Identifier: Apache-2.0
//
// The selected mesh of a provider as text, one line a zone, for tests that compare it whole.

#ifndef VELTO_TESTS_FORMATS_OPENFOAM_DESCRIBE_CASE_H
#define VELTO_TESTS_FORMATS_OPENFOAM_DESCRIBE_CASE_H

#include <string>

#include "data_access/OrvFileProvider.h"

namespace velto::openfoam {

/// Sizes, then each zone:
///   "cell 9 'cells' [1, 2] 2: shape 4, bounded by 2 3"
///   "face 2 'interior' [1, 1] 1: type 2 'interior', shape 4, cells 9 | 9, shadow 0"
std::string describeTables(OrvFileProvider& provider);

/// The faces of a zone, one a line: "(1 2 3 4) 1 2" for nodes, cell 0 and cell 1.
std::string describeFaces(OrvFileProvider& provider, int zone);

/// The shadows of the faces of a zone: "7 8 9".
std::string describeShadows(OrvFileProvider& provider, int zone);

/// The cell types of a zone: "uniform 4", or "4 7 4".
std::string describeCellTypes(OrvFileProvider& provider, int zone);

}  // namespace velto::openfoam

#endif  // VELTO_TESTS_FORMATS_OPENFOAM_DESCRIBE_CASE_H
