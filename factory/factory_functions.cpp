// SPDX-License-Identifier: Apache-2.0
//
// The two factory functions of the contract. They have a source of their own, so that a program
// that defines both does not get these out of a static library.

#include "data_access/OrvFactory.h"

#include "factory/makers.h"

namespace velto {

OrvFileProvider* getDataProvider(const std::string& fileName) {
  return factory::makeProvider(fileName);
}

OrvFileConsumer* getDataConsumer(OrvFileFormatType format) { return factory::makeConsumer(format); }

}  // namespace velto
