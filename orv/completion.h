// SPDX-License-Identifier: Apache-2.0
//
// Scripts by which a shell completes command lines of orv.

#ifndef VELTO_ORV_COMPLETION_H
#define VELTO_ORV_COMPLETION_H

#include <string>

#include "orv/CommandTable.h"

namespace velto::orv {

/// The script for "bash", "zsh" or "fish".
std::string completionScript(const std::string& shell, const Command& program);

/// What a shell shows beside an option: there are no headings in its list, so that all but the
/// first one stand before the text.
std::string shellText(const Command& command, const Argument& option);

std::string bashCompletion(const Command& program);
std::string zshCompletion(const Command& program);
std::string fishCompletion(const Command& program);

}  // namespace velto::orv

#endif  // VELTO_ORV_COMPLETION_H
