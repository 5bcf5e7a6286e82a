// SPDX-License-Identifier: Apache-2.0
//
// Copies all that a case holds, as a host program would, and compares the copy with its source.

#ifndef VELTO_TESTS_COPIES_COPY_WHOLE_H
#define VELTO_TESTS_COPIES_COPY_WHOLE_H

#include <string>
#include <vector>

#include "data_access/OrvFileConsumer.h"
#include "data_access/OrvFileProvider.h"

#include "orv/Selection.h"

namespace velto::testing {

using Texts = std::vector<std::string>;

/// All targets and partitions of the first mesh.
std::vector<orv::Selection> selectionsOf(OrvFileProvider& source);

/// Copies them with partitions and settings, and the results of the first. A location model is
/// written if the source has one, or if there is one restart mesh to build it from.
void copyWhole(OrvFileProvider& source, OrvFileConsumer& destination);

/// In what a copy made by copyWhole() differs from its source.
Texts differences(OrvFileProvider& source, OrvFileProvider& copy);

/// In what a copy in memory differs from its source.
Texts differencesInMemory(OrvFileProvider& source);

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIES_COPY_WHOLE_H
