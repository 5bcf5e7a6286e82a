// SPDX-License-Identifier: Apache-2.0
//
// TestFactory: what getDataProvider and getDataConsumer give while a test runs.

#ifndef VELTO_TESTING_TEST_FACTORY_H
#define VELTO_TESTING_TEST_FACTORY_H

#include <functional>
#include <string>

#include "data_access/OrvTypes.h"
#include "data_access/fwd.h"

namespace velto::testing {

/// Stands in for the list of formats: link velto_test_factory in place of velto::factory. While an
/// object lives the two factory functions call its makers; before and after, what was there before.
/// Without a maker they give null.
class TestFactory {
 public:
  /// The caller of the factory function owns what a maker gives.
  using ProviderMaker = std::function<OrvFileProvider*(const std::string& fileName)>;
  using ConsumerMaker = std::function<OrvFileConsumer*(OrvFileFormatType format)>;

  explicit TestFactory(ProviderMaker makeProvider, ConsumerMaker makeConsumer = {});
  TestFactory(const TestFactory&) = delete;
  TestFactory& operator=(const TestFactory&) = delete;
  ~TestFactory();

  OrvFileProvider* makeProvider(const std::string& fileName) const;
  OrvFileConsumer* makeConsumer(OrvFileFormatType format) const;

 private:
  ProviderMaker makeProvider_;
  ConsumerMaker makeConsumer_;
  TestFactory* before_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_TEST_FACTORY_H
