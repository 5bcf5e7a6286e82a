// SPDX-License-Identifier: Apache-2.0
//
// The values of random sound cases: what the families of a mesh hold for its faces and cells.

#ifndef VELTO_TESTING_RANDOM_VALUES_H
#define VELTO_TESTING_RANDOM_VALUES_H

#include "embedded/memory/Case.h"
#include "testing/Random.h"

namespace velto::testing {

/// Gives a mesh with zones, links and lists of cell nodes and cell faces the values of all families
/// that a check at level 2 reads, so that it has nothing to say. The mesh is no body that could be
/// drawn: faces name the cells that their types want, and cells have the nodes of their faces.
///
/// Where cells are told by their faces, the last face zone may grow, so that there are enough.
/// REQUIRES: a mesh with nodes; one with face zones unless all cell zones are listed by cell nodes.
void addSoundValues(base::MeshTables& mesh, memory::MeshData& data, Random& random);

}  // namespace velto::testing

#endif  // VELTO_TESTING_RANDOM_VALUES_H
