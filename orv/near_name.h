// SPDX-License-Identifier: Apache-2.0
//
// nearName: the name that somebody meant who mistyped it.

#ifndef VELTO_ORV_NEAR_NAME_H
#define VELTO_ORV_NEAR_NAME_H

#include <string>
#include <vector>

namespace velto::orv {

/// The name of `names` that takes the fewest changes of a character to become `word`, the first of
/// several; empty if all of them take more than two and more than a third of its length.
std::string nearName(const std::string& word, const std::vector<std::string>& names);

}  // namespace velto::orv

#endif  // VELTO_ORV_NEAR_NAME_H
