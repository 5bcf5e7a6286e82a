// SPDX-License-Identifier: Apache-2.0
//
// Takes the place of a fuzzer where there is none: gives a target each file of some folders.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/fuzzing.h"

namespace {

namespace fs = std::filesystem;

/// The files of a folder in the order of their names, or the one file.
std::vector<fs::path> inputsIn(const fs::path& path) {
  if (!fs::is_directory(path)) {
    return {path};
  }
  std::vector<fs::path> inputs;
  for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
    inputs.push_back(entry.path());
  }
  std::sort(inputs.begin(), inputs.end());
  return inputs;
}

void replay(const fs::path& input) {
  std::ifstream in(input, std::ios::binary);
  const std::vector<char> read{std::istreambuf_iterator<char>(in), {}};
  const std::vector<std::uint8_t> bytes(read.begin(), read.end());
  std::cout << input.string() << std::endl;  // before it may crash
  LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t count = 0;
  for (const char* const* path = argv + 1; path != argv + argc; ++path) {
    for (const fs::path& input : inputsIn(*path)) {
      replay(input);
      ++count;
    }
  }
  std::cout << count << " inputs\n";
  return count == 0 ? 1 : 0;
}
