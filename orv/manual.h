// SPDX-License-Identifier: Apache-2.0
//
// The manual page.

#ifndef VELTO_ORV_MANUAL_H
#define VELTO_ORV_MANUAL_H

#include <string>

#include "orv/CommandTable.h"

namespace velto::orv {

/// orv(1) in the macros of man(7). Its date is that of $SOURCE_DATE_EPOCH, or today.
std::string manualPage(const Command& program);

}  // namespace velto::orv

#endif  // VELTO_ORV_MANUAL_H
