// SPDX-License-Identifier: Apache-2.0
//
// CopyFiles: from where to where a copy goes, and in which format.

#ifndef VELTO_ORV_COPY_FILES_H
#define VELTO_ORV_COPY_FILES_H

#include <string>
#include <vector>

#include "factory/formats.h"
#include "orv/CopyPlan.h"
#include "orv/commands.h"

namespace velto::orv {

struct CopyFiles {
  std::string source;
  std::string sourceResults;  ///< "" for none.
  std::string destination;
  std::string destinationResults;
  const factory::Format* format = nullptr;
};

/// Decides on all of it. Throws std::runtime_error, with a reason for the user, if the format is
/// not known or cannot be written, or if the copy would write onto its source or, without being
/// told to, onto files that are there.
CopyFiles chooseFiles(const CopyOptions& options);

/// The files or the folder that a copy wrote.
std::vector<std::string> writtenFiles(const CopyFiles& files, const CopyPlan& plan);

}  // namespace velto::orv

#endif  // VELTO_ORV_COPY_FILES_H
