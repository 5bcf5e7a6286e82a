// SPDX-License-Identifier: Apache-2.0
//
// Writes the inputs that fuzzing begins with: make-seeds FOLDER, which gets a folder a target.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "fuzz/folder_text.h"
#include "testing/PolyMeshWriter.h"
#include "testing/Random.h"
#include "testing/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using velto::testing::BoxMesh;
using velto::testing::WriteOptions;

void writeSeed(const fs::path& file, const std::string& bytes) {
  fs::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// --- OpenFOAM: small boxes in every form --------------------------------------------------------

std::vector<WriteOptions> forms() {
  std::vector<WriteOptions> forms(8);
  forms[1].binary = true;
  forms[2].binary = true;
  forms[2].labelBits = 64;
  forms[2].scalarBits = 32;
  forms[3].gzip = true;
  forms[4].binary = true;
  forms[4].compactFaces = false;
  forms[5].counts = false;
  forms[5].comments = true;
  forms[5].flipsAsWords = true;
  forms[6].oneLine = true;
  forms[6].padNeighbour = true;
  forms[6].version = false;
  forms[7].emptyAsZero = true;
  forms[7].equalInBraces = false;
  return forms;
}

std::vector<BoxMesh> boxes() {
  std::vector<BoxMesh> boxes = {velto::testing::makeBox(1, 1, 1), velto::testing::makeBox(2, 1, 1)};
  boxes.push_back(boxes.back());
  boxes.back().cellZones = {{"left", {0}, {}, false}, {"right", {1}, {}, false}};
  boxes.back().faceZones = {{"middle", {0}, {true}, true}};
  boxes.back().patches.front().type = "cyclic";
  boxes.back().patches.front().extra = {{"neighbourPatch", "xMax"}};
  return boxes;
}

void writeOpenFoamSeeds(const fs::path& folder) {
  const velto::testing::TempFolder made;
  int number = 0;
  for (const BoxMesh& box : boxes()) {
    for (const WriteOptions& form : forms()) {
      velto::fuzzing::writeFolder({}, made.path());
      velto::testing::writePolyMesh(made.path("constant/polyMesh"), box, form);
      writeSeed(folder / ("box" + std::to_string(number++)),
                velto::fuzzing::readFolder(made.path()));
    }
  }
  velto::fuzzing::writeFolder({}, made.path());
  velto::testing::writePolyMesh(made.path("processor0/constant/polyMesh"), boxes().front());
  velto::testing::writePolyMesh(made.path("processor1/constant/polyMesh"), boxes().back());
  writeSeed(folder / "processors", velto::fuzzing::readFolder(made.path()));
}

// --- Settings -----------------------------------------------------------------------------------

void writeSettingsSeeds(const fs::path& folder) {
  writeSeed(folder / "generic", R"(domains/water/location = channel
subdomains/porous/location = both
subdomains/porous/domain = water
boundaries/walls/location = hull, shell
boundaries/walls/domain = water
interfaces/heat/boundariesSide1 = walls
interfaces/heat/boundariesSide2 = screen
interfaces/heat/domainsSide1 = water
)");
  writeSeed(folder / "solver", R"(@ VELTO_FLOW
VELTO_FLOW/domains/air/location = channel
VELTO_FLOW/boundaries/inlet/location = inlet
)");
  writeSeed(folder / "odd", "domains\ndomains/ = , ,\n/domains/a/location = \n = \n");
}

// --- Bytes that choices are drawn from ----------------------------------------------------------

void writeRandomSeeds(const fs::path& folder) {
  constexpr int kSeeds = 32;
  velto::testing::Random random(1);
  for (int number = 0; number < kSeeds; ++number) {
    std::string bytes(256 + random.below(1024), '\0');
    for (char& byte : bytes) {
      byte = static_cast<char>(random.below(256));
    }
    writeSeed(folder / ("random" + std::to_string(number)), bytes);
  }
}

void writeSeeds(const fs::path& folder) {
  writeOpenFoamSeeds(folder / "openfoam");
  writeSettingsSeeds(folder / "settings");
  for (const char* const target : {"store", "checker", "builder", "resolver", "copier"}) {
    writeRandomSeeds(folder / target);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make-seeds FOLDER\n";
    return 2;
  }
  try {
    writeSeeds(argv[1]);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "make-seeds: " << error.what() << "\n";
    return 1;
  }
}
