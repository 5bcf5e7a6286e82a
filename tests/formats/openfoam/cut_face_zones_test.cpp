// SPDX-License-Identifier: Apache-2.0
//
// How face zones are cut where several cell zones meet them.

#include "formats/openfoam/cut_face_zones.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velto::openfoam {
namespace {

/// Cell ids 1 to 10 are in zone a, 11 to 20 in b, 21 to 30 in c; others in none.
const std::vector<LayoutZone> kCells = {{"a", 0, 10}, {"b", 10, 10}, {"c", 20, 10}};

Patch patch(const std::string& name, std::uint64_t first, std::uint64_t count,
            const std::string& neighbour = "") {
  Patch made;
  made.name = name;
  made.type = neighbour.empty() ? "patch" : "cyclic";
  made.firstFace = first;
  made.faceCount = count;
  made.neighbourPatch = neighbour;
  return made;
}

/// What is cut: the cells beside the faces, of which the first ones are internal, and zones.
struct Faces {
  std::vector<std::uint64_t> owner;
  std::vector<std::uint64_t> neighbour;
  std::vector<Patch> patches;
  std::vector<std::vector<std::int64_t>> faceZones;  // f0, f1, ... of internal faces
};

/// One line a zone: "name [first +count] its faces", where "as they stand" means no copy.
std::string cut(const Faces& faces, const std::vector<LayoutZone>& cells = kCells) {
  PolyMesh mesh;
  mesh.owner = faces.owner;
  mesh.neighbour = faces.neighbour;
  mesh.faceNodeCounts.assign(faces.owner.size(), 3);
  mesh.patches = faces.patches;
  std::vector<ElementZone> zones(faces.faceZones.size());
  for (std::size_t i = 0; i < zones.size(); ++i) {
    zones[i].name = "f" + std::to_string(i);
    zones[i].labels = faces.faceZones[i];
  }
  std::string text;
  for (const FaceZone& zone :
       cutByCellZones(layOutFaceZones(mesh, faces.neighbour.size(), zones), mesh, cells)) {
    text += zone.name + " [" + std::to_string(zone.first) + " +" + std::to_string(zone.count) + "]";
    text += zone.gathered ? "" : " as they stand";
    for (std::size_t i = 0; zone.gathered && i < zone.gathered->size(); ++i) {
      const std::uint64_t face = (*zone.gathered)[i];
      text += face == ZoneLayout::kNothing ? " -" : " " + std::to_string(face);
    }
    text += zone.isPiece ? ", of " + zone.settings + "\n" : "\n";
  }
  return text;
}

struct Row {
  const char* name;
  Faces faces;
  const char* expected;
};

std::ostream& operator<<(std::ostream& out, const Row& row) { return out << row.name; }

const Row kRows[] = {
    {"ZonesBetweenTheSameTwoStay",
     {{1, 2, 3, 11, 12}, {11, 12}, {patch("p", 2, 1), patch("q", 3, 2)}, {}},
     "interior [0 +2] as they stand\np [2 +1] as they stand\nq [3 +2] as they stand\n"},
    {"APatchIsCutInTheOrderInWhichZonesAreMet",
     {{11, 1, 2, 12, 21, 3}, {}, {patch("p", 0, 6)}, {}},
     "p:b [0 +2] 0 3, of openfoam/boundary/p\np:a [2 +3] 1 2 5, of openfoam/boundary/p\np:c [5 +1] 4, of openfoam/boundary/p\n"},
    {"TheTwoDirectionsBetweenZonesAreTwoPieces",
     {{1, 2, 11, 3, 12}, {2, 11, 3, 12, 13}, {}, {}},
     "interior:a [0 +1] 0, of openfoam/interior\ninterior:a:b [1 +2] 1 3, of openfoam/interior\ninterior:b:a [3 +1] 2, of openfoam/interior\ninterior:b [4 +1] 4, of openfoam/interior\n"},
    {"AFaceZoneInsideTheFlowIsCutInItsOwnOrder",
     {{1, 2, 3, 11}, {2, 3, 11, 12}, {}, {{3, 0, 2}}},
     "interior [0 +1] 1\nf0:b [1 +1] 3, of openfoam/faceZones/f0\nf0:a [2 +1] 0, of openfoam/faceZones/f0\nf0:a:b [3 +1] 2, of openfoam/faceZones/f0\n"},
    {"ANameThatIsTakenGetsANumber",
     {{1, 11, 1, 1}, {}, {patch("p", 0, 2), patch("p:a", 2, 1), patch("p:b-2", 3, 1)}, {}},
     "p:a-2 [0 +1] 0, of openfoam/boundary/p\np:b [1 +1] 1, of openfoam/boundary/p\np:a [2 +1] as they stand\np:b-2 [3 +1] as they stand\n"},
    {"PatchesOfOneNameGiveDifferentNames",
     {{1, 11, 1, 11}, {}, {patch("p", 0, 2), patch("p", 2, 2)}, {}},
     "p:a [0 +1] 0, of openfoam/boundary/p\np:b [1 +1] 1, of openfoam/boundary/p\np:a-2 [2 +1] 2, of openfoam/boundary/p\np:b-2 [3 +1] 3, of openfoam/boundary/p\n"},
    {"AnEmptyPatchStays",
     {{1, 11}, {}, {patch("p", 0, 2), patch("none", 1, 0)}, {}},
     "p:a [0 +1] 0, of openfoam/boundary/p\np:b [1 +1] 1, of openfoam/boundary/p\nnone [1 +0] as they stand\n"},
    {"CyclicHalvesAreCutAlike",
     {{1, 2, 11, 12, 11, 3, 13, 4}, {}, {patch("p", 0, 4, "q"), patch("q", 4, 4, "p")}, {}},
     "p:a:b [0 +1] 0, of openfoam/boundary/p\np:a [1 +1] 1, of openfoam/boundary/p\np:b [2 +1] 2, of openfoam/boundary/p\np:b:a [3 +1] 3, of openfoam/boundary/p\nq:b:a [4 +1] 4, of openfoam/boundary/q\nq:a [5 +1] 5, of openfoam/boundary/q\nq:b [6 +1] 6, of openfoam/boundary/q\nq:a:b [7 +1] 7, of openfoam/boundary/q\n"},
    {"AHalfInOneZoneIsCutByThePartnersZones",
     {{1, 2, 11, 3}, {}, {patch("p", 0, 2, "q"), patch("q", 2, 2, "p")}, {}},
     "p:a:b [0 +1] 0, of openfoam/boundary/p\np:a [1 +1] 1, of openfoam/boundary/p\nq:b:a [2 +1] 2, of openfoam/boundary/q\nq:a [3 +1] 3, of openfoam/boundary/q\n"},
    {"APatchThatIsItsOwnPartnerIsCutByItsCells",
     {{1, 11}, {}, {patch("p", 0, 2, "p")}, {}},
     "p:a [0 +1] 0, of openfoam/boundary/p\np:b [1 +1] 1, of openfoam/boundary/p\n"},
    {"AHalfThatIsNotNamedInReturnIsCutByItsCells",
     {{1, 2, 11, 3}, {}, {patch("p", 0, 2, "q"), patch("q", 2, 2)}, {}},
     "p [0 +2] as they stand\nq:b [2 +1] 2, of openfoam/boundary/q\nq:a [3 +1] 3, of openfoam/boundary/q\n"},
    {"HalvesOfDifferentSizeAreCutByTheirCells",
     {{1, 11, 1, 2, 11}, {}, {patch("p", 0, 2, "q"), patch("q", 2, 3, "p")}, {}},
     "p:a [0 +1] 0, of openfoam/boundary/p\np:b [1 +1] 1, of openfoam/boundary/p\nq:a [2 +2] 2 3, of openfoam/boundary/q\nq:b [4 +1] 4, of openfoam/boundary/q\n"},
    {"AHalfWithoutAPartnerIsCutByItsCells",
     {{1, 11}, {}, {patch("p", 0, 2, "elsewhere")}, {}},
     "p:a [0 +1] 0, of openfoam/boundary/p\np:b [1 +1] 1, of openfoam/boundary/p\n"},
    {"AHalfPastTheLastFaceIsCutByItsCells",
     {{1, 11, 1}, {}, {patch("p", 0, 2, "q"), patch("q", 2, 2, "p")}, {}},
     "p:a [0 +1] 0, of openfoam/boundary/p\np:b [1 +1] 1, of openfoam/boundary/p\nq [2 +2] as they stand\n"},
    {"AFaceAtACellOfNoZoneGoesWithTheFirstPiece",
     {{99, 1, 0, 11}, {}, {patch("p", 0, 4)}, {}},
     "p:a [0 +3] 0 1 2, of openfoam/boundary/p\np:b [3 +1] 3, of openfoam/boundary/p\n"},
    {"WhatAgreesWithNoPieceIsOneOfItsOwn",
     {{99, 1, 2, 3}, {1, 0}, {patch("p", 1, 3)}, {}},
     "interior:none:a [0 +1] 0, of openfoam/interior\ninterior:a:none [1 +1] 1, of openfoam/interior\np [1 +3] as they stand\n"},
    {"AnInternalFaceAtACellOfNoZoneGoesWithTheFirstPieceOfItsOtherSide",
     {{1, 11, 2, 99, 0}, {2, 12, 0, 11, 99}, {}, {}},
     "interior:a [0 +3] 0 2 4, of openfoam/interior\ninterior:b [3 +2] 1 3, of openfoam/interior\n"},
    {"WhatAPatchClaimsPastTheLastFaceBelongsToItsLastPiece",
     {{1, 11}, {}, {patch("p", 0, 5), patch("q", 9, 3), patch("r", 1, UINT64_MAX)}, {}},
     "p:a [0 +1] 0, of openfoam/boundary/p\np:b [1 +4] 1, of openfoam/boundary/p\nq [9 +3] as they stand\nr [1 +18446744073709551615] as they stand\n"},
    {"PatchesThatOverlapAreCutEachByItself",
     {{1, 11, 2}, {}, {patch("p", 0, 2), patch("q", 1, 2)}, {}},
     "p:a [0 +1] 0, of openfoam/boundary/p\np:b [1 +1] 1, of openfoam/boundary/p\nq:b [1 +1] 1, of openfoam/boundary/q\nq:a [2 +1] 2, of openfoam/boundary/q\n"},
    {"AFaceZoneWithAnEntryThatIsNoFaceKeepsIt",
     {{1, 11, 1}, {2, 12, 11}, {}, {{1, -5, 0}}},
     "interior [0 +1] 2\nf0:b [1 +2] 1 -, of openfoam/faceZones/f0\nf0:a [3 +1] 0, of openfoam/faceZones/f0\n"},
};

class CutFaceZones : public ::testing::TestWithParam<Row> {};

TEST_P(CutFaceZones, HaveOneCellZoneOnEachSide) {
  EXPECT_EQ(cut(GetParam().faces), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, CutFaceZones, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(CutByOneCellZone, LeavesAllAsTheyAre) {
  const Faces faces = {{1, 99, 1, 11}, {11, 2}, {patch("p", 2, 2)}, {}};
  EXPECT_EQ(cut(faces, {{"a", 0, 10}}), "interior [0 +2] as they stand\np [2 +2] as they stand\n");
}

TEST(CutByOverlappingCellZones, GoesByTheLastZoneThatBeginsBeforeACell) {
  const Faces faces = {{1, 5, 6, 2}, {}, {patch("p", 0, 4)}, {}};
  EXPECT_EQ(cut(faces, {{"a", 0, 8}, {"b", 4, 4}}),
            "p:a [0 +2] 0 3, of openfoam/boundary/p\np:b [2 +2] 1 2, of openfoam/boundary/p\n");
}

}  // namespace
}  // namespace velto::openfoam
