// SPDX-License-Identifier: Apache-2.0
//
// What all fuzz targets share: their one function, and how a finding ends the program.

#ifndef VELTO_FUZZ_FUZZING_H
#define VELTO_FUZZ_FUZZING_H

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

/// Takes one input. Whatever its bytes are, it returns 0; a crash, a report of a sanitizer or
/// fuzzing::found() is a finding.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace velto::fuzzing {

/// Ends the program: the input showed something that should not be.
[[noreturn]] inline void found(const std::string& what) {
  std::cerr << "FOUND: " << what << '\n';
  std::abort();
}

/// Two accounts of the same thing, by the tool and by its plain twin.
inline void requireSame(const std::string& expected, const std::string& given) {
  if (expected != given) {
    found("another answer than the plain one\n--- expected\n" + expected + "--- found\n" + given);
  }
}

}  // namespace velto::fuzzing

#endif  // VELTO_FUZZ_FUZZING_H
