// SPDX-License-Identifier: Apache-2.0
//
// Case files by their names: what a checker has to say of one, and one that is open.

#ifndef VELTO_TESTS_COPIES_CASE_FILES_H
#define VELTO_TESTS_COPIES_CASE_FILES_H

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "velto/OrvChecker.h"

#include "data_access/OrvFactory.h"
#include "data_access/OrvFileProvider.h"

#include "orv/open_case.h"
#include "tests/copies/copy_whole.h"

namespace velto::testing {

using orv::ConsumerOwner;
using orv::ProviderOwner;

/// All that a checker has to say of a file at level 2, errors first.
inline Texts findingsOf(const std::string& file) {
  OrvChecker checker;
  checker.setVerbosity(0);
  checker.setCheckLevel(2);
  checker.checkCase(file);
  Texts findings = checker.getErrors();
  findings.insert(findings.end(), checker.getWarnings().begin(), checker.getWarnings().end());
  return findings;
}

/// A case file that is open, with the results beside it if there are any.
inline ProviderOwner opened(const std::string& file) {
  ProviderOwner provider(getDataProvider(file));
  EXPECT_TRUE(provider && provider->startReading(file, dataClassCase)) << file;
  if (std::filesystem::exists(file + "r")) {
    EXPECT_TRUE(provider->startReading(file + "r", dataClassResults)) << file;
  }
  return provider;
}

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIES_CASE_FILES_H
