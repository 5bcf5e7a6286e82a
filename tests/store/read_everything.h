// SPDX-License-Identifier: Apache-2.0
//
// Reads all that a provider has to give, by the protocol, as any caller does.

#ifndef VELTO_TESTS_STORE_READ_EVERYTHING_H
#define VELTO_TESTS_STORE_READ_EVERYTHING_H

#include <string>
#include <vector>

#include "data_access/OrvFileProvider.h"

namespace velto::testing {

/// What came out of a provider.
struct Reading {
  /// Every answer in one line, of an array its length and checksum: equal lines, equal contents.
  std::vector<std::string> lines;
  std::vector<std::string> errors;
  std::vector<std::string> warnings;
  /// Arrays for which a caller would have had to allocate too much, going by what the provider
  /// said. They were not read.
  std::vector<std::string> tooLarge;
};

/// Reads header, settings, location model, and of every mesh, target and partition the tables and
/// all families, the field data too.
Reading readEverything(OrvFileProvider& provider);

}  // namespace velto::testing

#endif  // VELTO_TESTS_STORE_READ_EVERYTHING_H
