// SPDX-License-Identifier: Apache-2.0
//
// The case in memory keeps the contract: read from where a test built it, and from where a consumer
// wrote it.

#include "embedded/memory/MemoryConsumer.h"
#include "embedded/memory/MemoryProvider.h"
#include "testing/write_case.h"
#include "tests/embedded/contract_suite.h"

namespace velto::testing {
namespace {

std::unique_ptr<OrvFileProvider> served(const cases::CasePtr& source) {
  auto provider = std::make_unique<memory::MemoryProvider>(source);
  EXPECT_TRUE(provider->startReading("in memory", dataClassCase));
  return provider;
}

std::unique_ptr<OrvFileProvider> writtenAndServed(const cases::CasePtr& source) {
  memory::MemoryConsumer consumer;
  writeCase(*source, consumer);
  EXPECT_FALSE(consumer.hasError());
  return served(consumer.takeCase());
}

INSTANTIATE_TEST_SUITE_P(Memory, ProviderContract,
                         ::testing::ValuesIn(contractTests({"Memory", served, {}})),
                         contractTestName);
INSTANTIATE_TEST_SUITE_P(MemoryCopy, ProviderContract,
                         ::testing::ValuesIn(contractTests({"MemoryCopy", writtenAndServed,
                                                            ofACopy()})),
                         contractTestName);

}  // namespace
}  // namespace velto::testing
