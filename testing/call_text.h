// SPDX-License-Identifier: Apache-2.0
//
// Transcripts: the calls that a double got, one line each.

#ifndef VELTO_TESTING_CALL_TEXT_H
#define VELTO_TESTING_CALL_TEXT_H

#include <string>
#include <vector>

#include "embedded/base/call_text.h"

namespace velto::testing {

using base::Buffer;
using base::bufferOf;
using base::callText;

/// What was called, oldest first.
using Transcript = std::vector<std::string>;

/// The operation of a call: what stands before its bracket.
inline std::string operationOf(const std::string& call) { return call.substr(0, call.find('(')); }

}  // namespace velto::testing

#endif  // VELTO_TESTING_CALL_TEXT_H
