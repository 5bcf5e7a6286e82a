// SPDX-License-Identifier: Apache-2.0
//
// TestFactory: the two factory functions of the contract, as tests want them.

#include "testing/TestFactory.h"

#include <utility>

#include "data_access/OrvFactory.h"

namespace velto {

namespace testing {

namespace {

TestFactory* current = nullptr;

}  // namespace

TestFactory::TestFactory(ProviderMaker makeProvider, ConsumerMaker makeConsumer)
    : makeProvider_(std::move(makeProvider)),
      makeConsumer_(std::move(makeConsumer)),
      before_(current) {
  current = this;
}

TestFactory::~TestFactory() { current = before_; }

OrvFileProvider* TestFactory::makeProvider(const std::string& fileName) const {
  return makeProvider_ ? makeProvider_(fileName) : nullptr;
}

OrvFileConsumer* TestFactory::makeConsumer(OrvFileFormatType format) const {
  return makeConsumer_ ? makeConsumer_(format) : nullptr;
}

}  // namespace testing

OrvFileProvider* getDataProvider(const std::string& fileName) {
  return testing::current == nullptr ? nullptr : testing::current->makeProvider(fileName);
}

OrvFileConsumer* getDataConsumer(OrvFileFormatType format) {
  return testing::current == nullptr ? nullptr : testing::current->makeConsumer(format);
}

}  // namespace velto
