// SPDX-License-Identifier: Apache-2.0
//
// Random damage to cases that are written: either a mesh that can be read, or an error and nothing.

#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "formats/openfoam/read_poly_mesh.h"
#include "testing/Random.h"
#include "testing/TempFolder.h"
#include "testing/cases.h"
#include "testing/random_case.h"
#include "testing/random_seeds.h"
#include "tests/formats/openfoam/written_mesh.h"

namespace velto::openfoam {
namespace {

using memory::Case;
using memory::MeshData;
using memory::Slice;
using testing::Random;

/// Another value for one of the numbers, another length, or nothing.
template <class Value>
void damageNumbers(Slice<Value>& slice, Random& random, const std::vector<Value>& values) {
  std::vector<Value> changed(slice.begin(), slice.end());
  if (changed.empty() || random.chance(20)) {
    changed.resize(changed.size() + random.below(3));
  } else if (random.chance(20)) {
    changed.resize(random.below(changed.size()));
  } else {
    changed[random.below(changed.size())] = random.pick(values);
  }
  slice = Slice<Value>(changed);
}

void damageArrays(MeshData& data, Random& random) {
  const std::vector<std::uint64_t> ids = {0, 1, 2, 3, 8, 13, UINT64_MAX};
  if (random.chance(40) && !data.faceNodes.zones().empty()) {
    memory::CountedData& nodes = data.faceNodes[random.pick(data.faceNodes.zones())];
    if (random.chance(50)) {
      damageNumbers(nodes.ids, random, ids);
    } else if (nodes.uniform) {
      nodes.uniform = static_cast<short>(random.between(-2, 5));
    } else {
      damageNumbers(nodes.counts, random, {-1, 0, 2, 3, 5, 32767});
    }
  }
  for (auto* side : {&data.faceCell0, &data.faceCell1}) {
    if (random.chance(30) && !side->zones().empty()) {
      damageNumbers((*side)[random.pick(side->zones())], random, ids);
    }
  }
}

/// A sound case, often with damage; what it was.
std::string makeCase(Random& random, Case& made) {
  const auto& named = testing::cases::all();
  std::string story;
  if (random.chance(50)) {
    const testing::cases::NamedCase& chosen = random.pick(named);
    made = *chosen.make();
    story = chosen.name;
  } else {
    made = testing::randomSoundCase(random);
    story = "random case";
  }
  if (random.chance(40)) {
    story += "; " + testing::damage(made, random);
  }
  for (auto& data : made.data) {
    if (random.chance(60)) {
      damageArrays(data.second, random);
      story += "; arrays";
    }
  }
  return story;
}

/// Whether faces and patches of a mesh are in order.
bool isInOrder(const PolyMesh& mesh) {
  for (std::size_t face = 0; face < mesh.neighbour.size(); ++face) {
    const auto cells = [&](std::size_t i) {
      return std::make_pair(mesh.owner[i], mesh.neighbour[i]);
    };
    if (mesh.owner[face] >= mesh.neighbour[face] || (face > 0 && cells(face) < cells(face - 1))) {
      return false;
    }
  }
  std::uint64_t next = mesh.neighbour.size();
  for (const Patch& patch : mesh.patches) {
    if (patch.firstFace != next) {
      return false;
    }
    next += patch.faceCount;
  }
  return next == mesh.owner.size();
}

TEST(RandomCases, AreWrittenAsMeshesOrNotAtAll) {
  const testing::Seeds seeds = testing::seedsToTry(400);
  int written = 0;
  for (std::uint64_t seed = seeds.first; seed < seeds.first + seeds.count; ++seed) {
    Random random(seed);
    Case made;
    const std::string story = makeCase(random, made);
    SCOPED_TRACE("seed " + std::to_string(seed) + ": " + story);
    const testing::TempFolder temp;
    std::vector<std::string> messages;
    try {
      messages = writeInto(made, temp.path("polyMesh"), random.pick(writtenForms()));
    } catch (const std::out_of_range&) {
      continue;  // a zone without a record cannot be handed over
    }
    if (!messages.empty() &&
        messages.back() == "end of writing: nothing was written because of the error before") {
      EXPECT_EQ(namesIn(temp.path()), "");
      continue;
    }
    ASSERT_EQ(namesIn(temp.path()), "polyMesh");
    EXPECT_TRUE(isInOrder(readPolyMesh(temp.path("polyMesh"))));
    ++written;
  }
  if (seeds.count >= 400) {
    EXPECT_GT(written, 40);
  }
}

}  // namespace
}  // namespace velto::openfoam
