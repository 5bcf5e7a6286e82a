// SPDX-License-Identifier: Apache-2.0
//
// The case store keeps the contract: cases that were saved as they are, and cases that a consumer
// wrote, contiguous and packed.

#include "tests/embedded/contract_suite.h"
#include "tests/store/store_files.h"

namespace velto::testing {
namespace {

template <unsigned compression>
std::unique_ptr<OrvFileProvider> savedAndOpened(const cases::CasePtr& source) {
  const TempFolder folder;
  save(*source, folder.path(), compression);
  return opened(folder.path());
}

template <unsigned compression>
std::unique_ptr<OrvFileProvider> writtenAndOpened(const cases::CasePtr& source) {
  const TempFolder folder;
  write(*source, folder.path(), compression);
  return opened(folder.path());
}

INSTANTIATE_TEST_SUITE_P(Saved, ProviderContract,
                         ::testing::ValuesIn(contractTests({"Saved", savedAndOpened<0>, {}})),
                         contractTestName);
INSTANTIATE_TEST_SUITE_P(SavedPacked, ProviderContract,
                         ::testing::ValuesIn(contractTests({"SavedPacked", savedAndOpened<3>, {}})),
                         contractTestName);
INSTANTIATE_TEST_SUITE_P(Written, ProviderContract,
                         ::testing::ValuesIn(contractTests({"Written", writtenAndOpened<0>,
                                                            ofACopy()})),
                         contractTestName);
INSTANTIATE_TEST_SUITE_P(WrittenPacked, ProviderContract,
                         ::testing::ValuesIn(contractTests({"WrittenPacked", writtenAndOpened<5>,
                                                            ofACopy()})),
                         contractTestName);

}  // namespace
}  // namespace velto::testing
