// SPDX-License-Identifier: Apache-2.0
//
// The version of zlib.

#include "formats/openfoam/zlib_version.h"

#include <zlib.h>

namespace velto::openfoam {

base::LibraryVersion zlibLibraryVersion() { return {"zlib", ZLIB_VERSION, zlibVersion()}; }

}  // namespace velto::openfoam
