// SPDX-License-Identifier: Apache-2.0
//
// What is lost in a copy, in words.

#ifndef VELTO_ORV_COPY_LOSSES_H
#define VELTO_ORV_COPY_LOSSES_H

#include <string>
#include <vector>

#include "orv/CopyPlan.h"

namespace velto::orv {

/// Whether a format has a place for a part of a case.
bool holds(const factory::Format& format, factory::Content content);

/// What no copy carries of the planned meshes, and which meshes and results are not planned. The
/// selection of `source` changes.
std::vector<std::string> whatIsLeftBehind(OrvFileProvider& source, const CaseSummary& summary,
                                          const CopyPlan& plan, const CopyOptions& options);

/// What the copy would carry and the destination cannot hold.
std::vector<std::string> whatHasNoPlace(const CaseSummary& summary, const CopyOptions& options,
                                        const factory::Format& format);

}  // namespace velto::orv

#endif  // VELTO_ORV_COPY_LOSSES_H
