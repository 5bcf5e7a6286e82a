// SPDX-License-Identifier: Apache-2.0
//
// Opening of cases, and the messages that the data-access library has about them.

#ifndef VELTO_ORV_OPEN_CASE_H
#define VELTO_ORV_OPEN_CASE_H

#include <memory>
#include <string>

#include "data_access/OrvFileProvider.h"

namespace velto::orv {

/// A provider is deleted through its OrvFileIO part.
struct DeleteThroughFileIO {
  void operator()(OrvFileProvider* provider) const { delete static_cast<OrvFileIO*>(provider); }
};
using ProviderOwner = std::unique_ptr<OrvFileProvider, DeleteThroughFileIO>;

/// The open case, or null after saying why not.
ProviderOwner openCase(const std::string& file);

/// Prints the waiting messages on standard error, without their prefixes, each behind the name of
/// the file.
void printMessages(OrvFileProvider& provider, const std::string& file);

}  // namespace velto::orv

#endif  // VELTO_ORV_OPEN_CASE_H
