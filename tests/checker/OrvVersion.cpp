// SPDX-License-Identifier: Apache-2.0
//
// The version that the library has in this program, 3.4.5: in place of the embedded library's, so
// that there are older and newer versions in every one of the three numbers.

#include "data_access/OrvVersion.h"

namespace velto {

unsigned int OrvVersion::getMajor() { return 3; }
unsigned int OrvVersion::getMinor() { return 4; }
unsigned int OrvVersion::getPatch() { return 5; }

}  // namespace velto
