// SPDX-License-Identifier: Apache-2.0
//
// A host program: checks a case file and prints what is wrong with it.

#include <iostream>

#include "velto/OrvChecker.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: host CASE\n";
    return 2;
  }
  velto::OrvChecker checker;
  checker.setVerbosity(0);
  checker.setCheckLevel(2);
  const bool sound = checker.checkCase(argv[1]);
  for (const std::string& error : checker.getErrors()) {
    std::cout << error << "\n";
  }
  return sound ? 0 : 1;
}
