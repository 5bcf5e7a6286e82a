// SPDX-License-Identifier: Apache-2.0
//
// Meshes of more faces than a block holds: the files are the same, byte by byte, in whatever order
// and whichever way round the case has its faces.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "testing/PolyMeshWriter.h"
#include "testing/Random.h"
#include "testing/TempFolder.h"
#include "tests/formats/openfoam/written_mesh.h"

namespace velto::openfoam {
namespace {

using memory::Slice;
using Ids = std::vector<std::uint64_t>;

Ids idsOf(const Slice<std::uint64_t>& slice) {
  Ids ids(slice.size());
  slice.copyTo(ids.data(), ids.size());
  return ids;
}

struct Face {
  Ids nodes;
  std::uint64_t cell0 = 0;
  std::uint64_t cell1 = 0;
};

/// Swaps the cells; the loop goes the other way and keeps its first node.
void turn(Face& face) {
  std::swap(face.cell0, face.cell1);
  std::reverse(face.nodes.begin() + 1, face.nodes.end());
}

std::vector<Face> facesOf(memory::MeshData& arrays, int zone) {
  const memory::CountedData& data = arrays.faceNodes[zone];
  const Ids nodes = idsOf(data.ids);
  const Ids cells0 = idsOf(arrays.faceCell0[zone]);
  const Ids cells1 = idsOf(arrays.faceCell1[zone]);
  std::vector<Face> faces;
  auto first = nodes.begin();
  for (std::size_t i = 0; i < cells0.size(); ++i) {
    const auto end = first + (data.uniform ? *data.uniform : data.counts.data()[i]);
    faces.push_back({Ids(first, end), cells0[i], cells1.empty() ? 0 : cells1[i]});
    first = end;
  }
  return faces;
}

void setFaces(memory::MeshData& arrays, int zone, const std::vector<Face>& faces) {
  Ids nodes;
  Ids cells0;
  Ids cells1;
  std::vector<short> counts;
  for (const Face& face : faces) {
    nodes.insert(nodes.end(), face.nodes.begin(), face.nodes.end());
    counts.push_back(static_cast<short>(face.nodes.size()));
    cells0.push_back(face.cell0);
    cells1.push_back(face.cell1);
  }
  const bool isUniform = std::all_of(counts.begin(), counts.end(), [](short n) { return n == 4; });
  if (!isUniform) {
    arrays.faceNodes[zone].uniform.reset();
    arrays.faceNodes[zone].counts = Slice<short>(counts);
  }
  arrays.faceNodes[zone].ids = Slice<std::uint64_t>(nodes);
  arrays.faceCell0[zone] = Slice<std::uint64_t>(cells0);
  arrays.faceCell1[zone] = Slice<std::uint64_t>(cells1);
}

/// All files of a case as it is written in a form.
std::string filesOf(const memory::Case& source, const Form& form) {
  const testing::TempFolder temp;
  std::string text;
  EXPECT_EQ(writeInto(source, temp.path("polyMesh"), form), std::vector<std::string>());
  std::istringstream names(namesIn(temp.path("polyMesh")));
  for (std::string name; names >> name;) {
    text += name + ": " + contentOf(temp.path("polyMesh/" + name)) + "\n";
  }
  return text;
}

/// A box of 5120 cells: face zone 2 is the interior, the others are patches.
struct LargeBox : ::testing::TestWithParam<bool> {
  LargeBox() {
    const testing::TempFolder temp;
    testing::writePolyMesh(temp.path("polyMesh"), testing::makeBox(20, 16, 16));
    made = readCase(temp.path("polyMesh"));
    for (const int zone : made.arrays().faceNodes.zones()) {
      std::vector<Face> faces = facesOf(made.arrays(), zone);
      for (std::size_t i = 0; GetParam() && i < faces.size(); i += 5) {
        faces[i].nodes.push_back(faces[i].nodes.front() + 1);
      }
      setFaces(made.arrays(), zone, faces);
    }
  }

  memory::Case made;
};

TEST_P(LargeBox, HasTheSameFilesInWhateverOrderItsFacesAre) {
  memory::Case changed = made;
  testing::Random random(1);
  bool isInterior = true;
  for (const int zone : made.arrays().faceNodes.zones()) {
    std::vector<Face> faces = facesOf(changed.arrays(), zone);
    if (isInterior) {
      random.shuffle(faces);
    }
    for (Face& face : faces) {
      if (random.chance(50)) {
        turn(face);
      }
    }
    setFaces(changed.arrays(), zone, faces);
    isInterior = false;
  }
  for (const Form& form : writtenForms()) {
    SCOPED_TRACE(form.name);
    EXPECT_TRUE(filesOf(made, form) == filesOf(changed, form));
  }
}

INSTANTIATE_TEST_SUITE_P(All, LargeBox, ::testing::Bool(), [](const auto& row) {
  return std::string(row.param ? "FacesOfFourAndFiveNodes" : "FacesOfFourNodes");
});

}  // namespace
}  // namespace velto::openfoam
