// SPDX-License-Identifier: Apache-2.0
//
// guessWords, nearNames: names that somebody may have meant who mistyped one.

#ifndef VELTO_ORV_NEAR_NAME_H
#define VELTO_ORV_NEAR_NAME_H

#include <string>
#include <vector>

namespace velto::orv {

/// "did you mean inflow? ", to stand before more words: the name of `names` that takes the fewest
/// changes of a character to become `word`, the first of several. Nothing if all of them take more
/// than two and more than a third of its length.
std::string guessWords(const std::string& word, const std::vector<std::string>& names);

/// The names of `names` that differ from `word` in case, or in a character or two besides: the
/// nearest first, no more than three. Short words take fewer changes, so that "in" is not near
/// "at".
std::vector<std::string> nearNames(const std::string& word, const std::vector<std::string>& names);

}  // namespace velto::orv

#endif  // VELTO_ORV_NEAR_NAME_H
