// SPDX-License-Identifier: Apache-2.0
//
// What orv copy prints on standard output.

#ifndef VELTO_ORV_COPY_REPORT_H
#define VELTO_ORV_COPY_REPORT_H

#include "orv/CopyPlan.h"
#include "orv/copy_files.h"

namespace velto::orv {

struct CopyOutcome {
  bool isWritten = false;
  bool isWhole = false;  ///< Nothing of the source was unreadable.
  bool isVerified = false;
};

/// The plan of a dry run, or the files that were written. What is lost goes to standard error where
/// something was written.
void printCopyText(const CopyFiles& files, const CopyPlan& plan, const CopyOptions& options,
                   const CopyOutcome& outcome);
void printCopyJson(const CopyFiles& files, const CopyPlan& plan, const CopyOptions& options,
                   const CopyOutcome& outcome);

}  // namespace velto::orv

#endif  // VELTO_ORV_COPY_REPORT_H
