// SPDX-License-Identifier: Apache-2.0
//
// Cases into store files and providers over them, for the tests of the store.

#ifndef VELTO_TESTS_STORE_STORE_FILES_H
#define VELTO_TESTS_STORE_STORE_FILES_H

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "embedded/memory/MemoryProvider.h"
#include "embedded/store/StoreConsumer.h"
#include "embedded/store/StoreProvider.h"
#include "embedded/store/save_case.h"
#include "testing/TempFolder.h"
#include "testing/cases.h"
#include "testing/write_case.h"

namespace velto::testing {

/// Saves a case as it is, with its results beside it if it has any: "case.orv", "case.orvr".
inline void save(const memory::Case& source, const std::string& folder, unsigned compression) {
  const auto shared = std::make_shared<memory::Case>(source);
  store::saveCase(source.tables, memory::arraysOf(shared), folder + "/case.orv", compression);
  if (!source.tables.phases.empty()) {
    store::saveResults(source.tables, memory::arraysOf(shared), folder + "/case.orvr", compression);
  }
}

/// Writes a case through the contract, in the same way.
inline void write(const memory::Case& source, const std::string& folder, unsigned compression) {
  store::StoreConsumer consumer;
  consumer.setFileName(folder + "/case.orv", dataClassCase);
  consumer.setFileName(folder + "/case.orvr", dataClassResults);
  consumer.setCompression(compression);
  writeCase(source, consumer);
  EXPECT_EQ(consumer.getErrors(true, true), std::vector<std::string>());
}

/// A provider that has opened the case in a folder, and its results if there are any. The files may
/// be removed at once.
inline std::unique_ptr<OrvFileProvider> opened(const std::string& folder) {
  auto provider = std::make_unique<store::StoreProvider>();
  EXPECT_TRUE(provider->startReading(folder + "/case.orv", dataClassCase));
  if (std::filesystem::exists(folder + "/case.orvr")) {
    EXPECT_TRUE(provider->startReading(folder + "/case.orvr", dataClassResults));
  }
  for (const std::string& error : provider->getErrors(true, true)) {
    ADD_FAILURE() << error;
  }
  return provider;
}

}  // namespace velto::testing

#endif  // VELTO_TESTS_STORE_STORE_FILES_H
