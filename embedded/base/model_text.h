// SPDX-License-Identifier: Apache-2.0
//
// modelText: the whole of a location model as text, for those who compare it whole.

#ifndef VELTO_EMBEDDED_BASE_MODEL_TEXT_H
#define VELTO_EMBEDDED_BASE_MODEL_TEXT_H

#include <string>

#include "data_access/OrvLocationModel.h"

namespace velto::base {

/// The objects of each part in the order in which the model lists them, one a line, with their
/// zones and zone sides in one mesh; empty for a model without parts:
///
///     part 'P' (1)
///       body 2 'fluid': zones [4, 2], boundary [6, 7]
///       face 3 'F5': sides 6 | 0                           the uses that hold them
///       use 6 'inlet' or 'F5@fluid': zone sides [5]        name, and relative name
///       composite 8 'all': bodies [2], faces [3], uses [6]
///
/// "no zones" and "no zone sides" stand for objects that have no place in the mesh, "?" for what
/// the model does not tell.
std::string modelText(const OrvLocationModel& model, int meshId = 1);

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_MODEL_TEXT_H
