// SPDX-License-Identifier: Apache-2.0
//
// Checks a plain mesh and prints what is wrong with it.

#include <iostream>

#include "velto/OrvChecker.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: check_plain_mesh FILE\n";
    return 2;
  }
  velto::OrvChecker checker;
  checker.setVerbosity(0);
  checker.setCheckLevel(2);
  const bool sound = checker.checkCase(argv[1]);
  for (const std::string& warning : checker.getWarnings()) {
    std::cout << "Warning: " << warning << "\n";
  }
  for (const std::string& error : checker.getErrors()) {
    std::cout << "Error: " << error << "\n";
  }
  std::cout << argv[1] << (sound ? ": sound\n" : ": not sound\n");
  return sound ? 0 : 1;
}
