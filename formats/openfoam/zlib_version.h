// SPDX-License-Identifier: Apache-2.0
//
// The zlib that gzipped files are read and written with.

#ifndef VELTO_FORMATS_OPENFOAM_ZLIB_VERSION_H
#define VELTO_FORMATS_OPENFOAM_ZLIB_VERSION_H

#include "embedded/base/LibraryVersion.h"

namespace velto::openfoam {

base::LibraryVersion zlibLibraryVersion();

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_ZLIB_VERSION_H
