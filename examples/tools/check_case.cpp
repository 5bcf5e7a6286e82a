// SPDX-License-Identifier: Apache-2.0
//
// OrvChecker: checks cases one after the other, each with a checker of its own.

#include <exception>
#include <iostream>
#include <string>

#include "velto/OrvChecker.h"

namespace {

bool check(const std::string& file) {
  velto::OrvChecker checker;
  checker.setVerbosity(0);  // prints nothing; messages are recorded all the same
  checker.setCheckLevel(2);
  const bool isSound = checker.checkCase(file);
  for (const std::string& warning : checker.getWarnings()) {
    std::cout << file << ": warning: " << warning << "\n";
  }
  for (const std::string& error : checker.getErrors()) {
    std::cout << file << ": error: " << error << "\n";
  }
  return isSound;
}

}  // namespace

int main(int argc, char** argv) {
  int status = 0;
  for (int i = 1; i < argc; ++i) {
    try {
      status = check(argv[i]) ? status : 1;
    } catch (const std::exception& error) {  // such as std::bad_alloc, of the data-access library
      std::cerr << argv[i] << ": " << error.what() << "\n";
      status = 2;
    }
  }
  return status;
}
