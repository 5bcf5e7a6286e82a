// SPDX-License-Identifier: Apache-2.0
//
// A case of thousands of partitions in one file: each is checked and copied, at a cost that does
// not grow with the others, and without a file or a dataset that stays open for each.

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

#include "embedded/memory/MemoryProvider.h"
#include "embedded/store/StoreConsumer.h"
#include "embedded/store/save_case.h"
#include "testing/TempFolder.h"
#include "testing/cases.h"
#include "tests/copies/case_files.h"

namespace velto::testing {
namespace {

/// 10,000 where large tests are wanted: in a debug build they take a minute.
int partitionCount() { return std::getenv("VELTO_LARGE_TESTS") == nullptr ? 1'000 : 10'000; }

TEST(ManyPartitions, AreGoodInAFileAndWhenTheyAreCopied) {
  const TempFolder folder;
  const std::string file = folder.path("row.orv");
  const cases::CasePtr row = cases::rowOfPartitions(partitionCount());
  store::saveCase(row->tables, memory::arraysOf(row), file, 0);
  EXPECT_EQ(findingsOf(file), Texts());
  const ProviderOwner source = opened(file);
  const std::string copy = folder.path("copy.orv");
  {
    store::StoreConsumer destination;
    destination.setFileName(copy, dataClassCase);
    copyWhole(*source, destination);
    EXPECT_EQ(destination.getErrors(true, true), Texts());
  }
  EXPECT_EQ(findingsOf(copy), Texts());
  EXPECT_EQ(differences(*source, *opened(copy)), Texts());
}

}  // namespace
}  // namespace velto::testing
