// SPDX-License-Identifier: Apache-2.0
//
// Opening of cases, and the messages that the data-access library has about them.

#ifndef VELTO_ORV_OPEN_CASE_H
#define VELTO_ORV_OPEN_CASE_H

#include <memory>
#include <string>

#include "data_access/OrvFileConsumer.h"
#include "data_access/OrvFileProvider.h"

namespace velto::orv {

/// A provider or consumer is deleted through its OrvFileIO part.
struct DeleteThroughFileIO {
  void operator()(OrvFileIO* side) const { delete side; }
};
using ProviderOwner = std::unique_ptr<OrvFileProvider, DeleteThroughFileIO>;
using ConsumerOwner = std::unique_ptr<OrvFileConsumer, DeleteThroughFileIO>;

/// Whether something has that name and is neither a file nor a folder. Nothing of that kind is
/// opened: it might keep the program waiting.
bool isOdd(const std::string& file);

/// The open case, or null after saying why not.
ProviderOwner openCase(const std::string& file);

/// The results that lie beside a case file, "" for none.
std::string resultsBeside(const std::string& file);

/// Opens the results of a case, if `file` names any; false after saying why they cannot be read.
bool openResults(const std::string& file, OrvFileProvider& provider);

/// Prints the waiting messages on standard error, without their prefixes, each behind the name of
/// the file.
void printMessages(OrvBase& side, const std::string& file);

}  // namespace velto::orv

#endif  // VELTO_ORV_OPEN_CASE_H
