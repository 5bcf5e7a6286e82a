// SPDX-License-Identifier: Apache-2.0
//
// Small sound cases with names, shared by tests, benchmarks and fuzz seeds. Each call makes a case
// of its own, which a test may damage.

#ifndef VELTO_TESTING_CASES_H
#define VELTO_TESTING_CASES_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "embedded/memory/Case.h"

namespace velto::testing::cases {

using CasePtr = std::shared_ptr<memory::Case>;

/// Where postHex() and postPolyhedron() have their mesh.
inline const base::MeshKey kPostMesh = {1, targetPost, -1};

/// The unit cube as one hexahedron: nodes 1 "points" (8), face zone 2 "walls" (6), cell zone 3
/// "fluid" (1).
CasePtr oneHex();

/// A box of two hexahedra side by side in x: nodes 1 "points" (12), face zones 2 "inside" (1,
/// interior) and 3 "walls" (10), cell zone 4 "fluid" (2).
CasePtr twoHexes();

/// The same box as two bodies: face zones 2 "between" (1, two-sided), 3 "fluid walls" (5) and 4
/// "solid walls" (5), cell zones 5 "fluid" (1) and 6 "solid" (1).
CasePtr twoBodies();

/// A row of three hexahedra in x with a screen inside the flow: face zones 2 "inside" (1,
/// interior), 3 "screen" (1, interior too) and 4 "walls" (14), cell zone 5 "fluid" (3).
CasePtr screenInFlow();

/// A row of `count` hexahedra in x, each a body of its own whose bottom and top are a periodic
/// pair, for what must stay cheap with many zones. Zones count up from 2: one face zone between
/// each two neighbours, then three around each body (bottom, top, sides), then the cell zones.
CasePtr rowOfBodies(int count);

/// A plane mesh of two quadrilaterals: nodes 1 "points" (6), face zones 2 "inside" (1, interior)
/// and 3 "rim" (6) of lines, cell zone 4 "sheet" (2).
CasePtr quad2d();

/// The unit cube with two opposite faces as a periodic pair: face zones 2 "left" (periodic) and 3
/// "right" (its shadow) of one face each, 4 "walls" (4), cell zone 5 "fluid" (1).
CasePtr periodicPair();

/// The unit cube as a post target: cell zone 3 "fluid" has nodes of its own; no zone bounds
/// another, and no cell is known beside a face.
CasePtr postHex();

/// The unit cube as a post target whose cell zone 3 "fluid" is one polyhedron that lists its faces.
/// No face knows its cell, which a check at level 2 takes for a lack of faces.
CasePtr postPolyhedron();

/// oneHex() with the phases 1 "water" and 2 "air": temperature and velocity on the nodes, pressure
/// and fraction on the cell, with attributes and descriptions.
CasePtr withResults();

/// The box of twoHexes() as a partitioned post target: each hexahedron is a partition of its own, 0
/// and 1, with cell zone 3 "fluid", whose cells say which partition they are meant for.
CasePtr withPartitions();

/// A row of `count` such partitions, for what must stay cheap with many of them.
CasePtr rowOfPartitions(int count);

/// A row of three hexahedra with a location model and physics objects of every kind: face zones 2
/// "screen" (1, interior), 3 "contact" (1, two-sided), 4 "fluid walls" (9) and 5 "solid walls" (5),
/// cell zones 6 "fluid" (2) and 7 "solid" (1).
///
///     part "assembly" (1)
///       body 2 "channel"     zones 6 and 2; uses 5 "channel walls" (side 4) and 7 (side 3)
///       body 3 "heater"      zone 7; uses 8 "heater contact" (side -3) and 10 "heater walls"
///                            (side 5)
///       faces                4 "hull", 6 "contact", 9 "shell"; 7 is "contact@channel" only
///       composites           11 "metal" of body 3, 12 "wetted" of the uses 5 and 7
///     domains                "water" in channel, "steel" in metal
///     subdomains             "heating" in heater
///     boundaries             "screen", "friction" on wetted, "insulation" on heater walls,
///                            "water side" on contact@channel, "steel side" on heater contact
///     interfaces             "heat transfer" from water side to steel side
CasePtr withPhysics();

/// A case of this header by its name.
struct NamedCase {
  std::string name;
  std::function<CasePtr()> make;
};

/// All of them; rowOfBodies() with three.
const std::vector<NamedCase>& all();

}  // namespace velto::testing::cases

#endif  // VELTO_TESTING_CASES_H
