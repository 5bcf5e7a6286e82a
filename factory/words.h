// SPDX-License-Identifier: Apache-2.0
//
// Words for the integers of zone tables, as the embedded library uses them.

#ifndef VELTO_FACTORY_WORDS_H
#define VELTO_FACTORY_WORDS_H

#include "embedded/base/shapes.h"

namespace velto::factory {

using base::cellShapeName;
using base::faceShapeName;
using base::faceZoneTypeName;

}  // namespace velto::factory

#endif  // VELTO_FACTORY_WORDS_H
