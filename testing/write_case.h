// SPDX-License-Identifier: Apache-2.0
//
// writeCase: hands a case from memory to any consumer.

#ifndef VELTO_TESTING_WRITE_CASE_H
#define VELTO_TESTING_WRITE_CASE_H

#include "data_access/OrvFileConsumer.h"

#include "embedded/memory/Case.h"

namespace velto::testing {

/// Writes all that a consumer can take, in the order of the contract: dataClassCase with every
/// mesh, settings and location model, then dataClassResults if there are phases. What a consumer
/// has to derive is not written (element counts, which zones bound which), and what it has no
/// operation for is left out (cell faces, shadow faces, the face tree, zone properties).
void writeCase(const memory::Case& source, OrvFileConsumer& consumer);

}  // namespace velto::testing

#endif  // VELTO_TESTING_WRITE_CASE_H
