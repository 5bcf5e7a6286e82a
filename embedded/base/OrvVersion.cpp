// SPDX-License-Identifier: Apache-2.0
//
// OrvVersion: the version of the case format. In a file of its own, so that a test can put another
// version in its place.

#include "data_access/OrvVersion.h"

namespace velto {

unsigned int OrvVersion::getMajor() { return 1; }
unsigned int OrvVersion::getMinor() { return 0; }
unsigned int OrvVersion::getPatch() { return 0; }

}  // namespace velto
