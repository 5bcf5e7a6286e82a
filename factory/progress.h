// SPDX-License-Identifier: Apache-2.0
//
// Progress of long work in the data-access library, as a host program hears of it.

#ifndef VELTO_FACTORY_PROGRESS_H
#define VELTO_FACTORY_PROGRESS_H

#include "embedded/base/Progress.h"

namespace velto::factory {

/// Derive from it to hear of progress on the thread that made the object, as long as it lives.
using ProgressListener = base::ProgressListener;

}  // namespace velto::factory

#endif  // VELTO_FACTORY_PROGRESS_H
