// SPDX-License-Identifier: Apache-2.0
//
// saveSample: one file a data class.

#include "samples/save_sample.h"

#include <filesystem>

#include "embedded/store/save_case.h"

namespace velto::samples {

bool isCaseFile(const std::string& file) {
  return std::filesystem::path(file).extension() == kCaseEnding;
}

std::vector<std::string> filesOf(const Sample& sample, const std::string& file) {
  std::vector<std::string> files = {file};
  if (!sample.tables.phases.empty()) {
    files.push_back(store::resultsFileOf(file));
  }
  return files;
}

void saveSample(const Sample& sample, const std::string& file, unsigned compression,
                const std::function<void()>& onCase) {
  const std::vector<std::string> files = filesOf(sample, file);
  store::saveCase(sample.tables, sample.arrays, files.front(), compression);
  onCase();
  if (files.size() > 1) {
    store::saveResults(sample.tables, sample.arrays, files.back(), compression);
  }
}

}  // namespace velto::samples
