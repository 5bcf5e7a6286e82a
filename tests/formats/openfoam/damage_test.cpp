// SPDX-License-Identifier: Apache-2.0
//
// Files that were cut or flipped at every byte: they are read or refused, and nothing else happens.

#include <exception>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

#include "formats/openfoam/read_poly_mesh.h"
#include "testing/PolyMeshWriter.h"
#include "tests/formats/openfoam/FolderTest.h"

namespace velto::openfoam {
namespace {

struct Form {
  const char* name;
  bool binary;
  bool gzip;
  bool arch;
  int labelBits;
};

class Damage : public FolderTest, public ::testing::WithParamInterface<Form> {
 protected:
  Damage() {
    testing::BoxMesh mesh = testing::makeBox(2, 1, 1);
    mesh.cellZones = {{"c", {0, 1}, {}, false}};
    mesh.faceZones = {{"f", {0, 3, 4}, {true, false, true}, true}};
    testing::WriteOptions options;
    options.binary = GetParam().binary;
    options.gzip = GetParam().gzip;
    options.arch = GetParam().arch;
    options.labelBits = GetParam().labelBits;
    options.version = false;
    for (const char* const name :
         {"points", "faces", "owner", "neighbour", "boundary", "cellZones", "faceZones"}) {
      files_.push_back(path(name) + (options.gzip && std::string(name) != "boundary" ? ".gz" : ""));
    }
    testing::writePolyMesh(folder_, mesh, options);
  }

  static std::string content(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

  // A new file each time: a file that is overwritten is slow to close on some file systems.
  static void put(const std::string& file, const std::string& content) {
    std::filesystem::remove(file);
    std::ofstream(file, std::ios::binary) << content;
  }

  // Any other exception than ReadError fails the test.
  void readOrRefuse(const std::string& what) const {
    try {
      readPolyMesh(folder_);
      peekHeader(path("owner"));
    } catch (const ReadError& error) {
      EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos) << what;
    } catch (const std::exception& error) {
      ADD_FAILURE() << what << ": " << error.what();
    }
  }

  std::vector<std::string> files_;
};

TEST_P(Damage, ByCuttingIsNoDanger) {
  for (const std::string& file : files_) {
    const std::string sound = content(file);
    ASSERT_FALSE(sound.empty()) << file;
    for (std::size_t size = 0; size < sound.size(); ++size) {
      put(file, sound.substr(0, size));
      readOrRefuse(file + " cut at " + std::to_string(size));
    }
    put(file, sound);
  }
}

TEST_P(Damage, ByFlippingIsNoDanger) {
  for (const std::string& file : files_) {
    const std::string sound = content(file);
    for (std::size_t at = 0; at < sound.size(); ++at) {
      for (const int mask : {0x01, 0x10, 0x80}) {
        std::string damaged = sound;
        damaged[at] = static_cast<char>(damaged[at] ^ mask);
        put(file, damaged);
        readOrRefuse(file + " flipped at " + std::to_string(at));
      }
    }
    put(file, sound);
  }
}

using PlainDamage = Damage;

TEST_P(PlainDamage, ByPuttingACharacterInItsPlaceIsNoDanger) {
  for (const std::string& file : files_) {
    const std::string sound = content(file);
    for (std::size_t at = 0; at < sound.size(); ++at) {
      for (const char c : std::string("(){};\"/*9-#\n\0", 13)) {
        std::string damaged = sound;
        damaged[at] = c;
        put(file, damaged);
        readOrRefuse(file + " replaced at " + std::to_string(at));
      }
    }
    put(file, sound);
  }
}

std::string formName(const ::testing::TestParamInfo<Form>& row) { return row.param.name; }

INSTANTIATE_TEST_SUITE_P(Forms, Damage,
                         ::testing::Values(Form{"Text", false, false, true, 32},
                                           Form{"Binary", true, false, true, 32},
                                           Form{"BinaryWithoutArch", true, false, false, 64},
                                           Form{"GzippedText", false, true, true, 32},
                                           Form{"GzippedBinary", true, true, false, 32}),
                         formName);

INSTANTIATE_TEST_SUITE_P(Forms, PlainDamage,
                         ::testing::Values(Form{"Text", false, false, true, 32},
                                           Form{"BinaryWithoutArch", true, false, false, 32}),
                         formName);

}  // namespace
}  // namespace velto::openfoam
