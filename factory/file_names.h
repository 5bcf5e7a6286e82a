// SPDX-License-Identifier: Apache-2.0
//
// What the files of a case are called, for host programs.

#ifndef VELTO_FACTORY_FILE_NAMES_H
#define VELTO_FACTORY_FILE_NAMES_H

#include "embedded/store/file_names.h"

namespace velto::factory {

using store::resultsFileOf;

}  // namespace velto::factory

#endif  // VELTO_FACTORY_FILE_NAMES_H
