// SPDX-License-Identifier: Apache-2.0
//
// make-region-case: writes a case of a few zones with settings and a location model that are given
// as text, for the tests of orv regions.

#include <exception>
#include <iostream>

#include "embedded/memory/MemoryProvider.h"
#include "embedded/store/save_case.h"
#include "tests/physics_regions/region_texts.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: make-region-case FILE SETTINGS MODEL\n";
    return 2;
  }
  try {
    const auto made = velto::testing::regionCase(argv[2], argv[3]);
    velto::store::saveCase(made->tables, velto::memory::arraysOf(made), argv[1], 0);
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
  return 0;
}
