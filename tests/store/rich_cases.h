// SPDX-License-Identifier: Apache-2.0
//
// Cases that use as much of a store file as small cases can.

#ifndef VELTO_TESTS_STORE_RICH_CASES_H
#define VELTO_TESTS_STORE_RICH_CASES_H

#include "testing/cases.h"

namespace velto::testing {

/// Every family, settings, a location model and results, in four meshes: the hexahedron of
/// withResults(), the polyhedron of postPolyhedron(), the first partition of withPartitions(), and
/// as mesh 2 the periodic pair.
cases::CasePtr richCase();

/// The same settings, location model and results, on a mesh whose coordinates, ids and values take
/// more than a packed array needs: a row of bodies.
cases::CasePtr longCase();

}  // namespace velto::testing

#endif  // VELTO_TESTS_STORE_RICH_CASES_H
