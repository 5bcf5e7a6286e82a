// SPDX-License-Identifier: Apache-2.0
//
// OrvCopier: carries the first mesh of a case into a case store.

#include <iostream>
#include <memory>
#include <vector>

#include "velto/OrvCopier.h"

#include "data_access/OrvFactory.h"
#include "data_access/OrvFileConsumer.h"
#include "data_access/OrvFileProvider.h"

namespace {

/// Prints what a side has to say, and tells whether there was an error.
bool printMessages(const velto::OrvBase& side) {
  for (const std::string& warning : side.getWarnings(true, true)) {
    std::cerr << warning << "\n";
  }
  const std::vector<std::string> errors = side.getErrors(true, true);
  for (const std::string& error : errors) {
    std::cerr << error << "\n";
  }
  return !errors.empty();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: copy_case SOURCE DESTINATION.orv\n";
    return 2;
  }
  const std::unique_ptr<velto::OrvFileProvider> source(velto::getDataProvider(argv[1]));
  if (!source) {
    std::cerr << argv[1] << ": not a case that can be read\n";
    return 2;
  }
  source->setBaseOption(true);
  const bool isOpen = source->startReading(argv[1], velto::dataClassCase);
  if (printMessages(*source) || !isOpen) {
    return 1;
  }
  // The first mesh, target and partition are selected. setMeshId, setTarget and setPartitionId
  // select another.
  const std::unique_ptr<velto::OrvFileConsumer> destination(
      velto::getDataConsumer(velto::fileFormatStore));
  destination->setFileName(argv[2], velto::dataClassCase);

  velto::OrvCopier copier("copy_case");
  copier.setSource(source.get());
  copier.setDestination(destination.get());
  copier.copySettingsToDestination(true);
  copier.copyCase(true);

  // Whether all went well is for the two sides to tell.
  const bool sourceFailed = printMessages(*source);
  const bool destinationFailed = printMessages(*destination);
  return sourceFailed || destinationFailed ? 1 : 0;
}
