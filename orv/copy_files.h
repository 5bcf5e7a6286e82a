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
  /// The files or mesh folders that the copy writes.
  std::vector<std::string> written;
};

/// The words for all formats that `orv copy` can write.
std::vector<std::string> writableFormatNames();

/// Decides on names and format, before anything is read. Throws std::runtime_error, with a reason
/// for the user, if the format is not known or cannot be written, or if a copy without partitions
/// would write onto its source or, without being told to, onto files that are there.
CopyFiles chooseFiles(const CopyOptions& options);

/// Judges the same of what the plan has written, and keeps it in `files.written`.
void settleFiles(CopyFiles& files, const CopyPlan& plan, const CopyOptions& options);

}  // namespace velto::orv

#endif  // VELTO_ORV_COPY_FILES_H
