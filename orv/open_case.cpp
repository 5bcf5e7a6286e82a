// SPDX-License-Identifier: Apache-2.0
//
// Opening of cases: through the factory, with a reason on standard error where it fails.

#include "orv/open_case.h"

#include <filesystem>
#include <iostream>
#include <system_error>
#include <utility>

#include "data_access/OrvFactory.h"

#include "factory/file_names.h"
#include "orv/hints.h"
#include "orv/shown_name.h"

namespace velto::orv {

namespace {

/// Says so of something that is.
void refuseOdd(const std::string& file) { tell(file, "is neither a file nor a folder"); }

}  // namespace

bool isOdd(const std::string& file) {
  std::error_code ignored;
  const std::filesystem::file_status status = std::filesystem::status(file, ignored);
  return std::filesystem::is_other(status);
}

ProviderOwner openCase(const std::string& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) {
    tell(file, error ? error.message() : "no such file or folder");
    return nullptr;
  }
  if (isOdd(file)) {
    refuseOdd(file);
    return nullptr;
  }
  ProviderOwner provider(getDataProvider(file));
  if (!provider) {
    hintAtFormats(file);
    return nullptr;
  }
  provider->setBaseOption(true);
  const bool opened = provider->startReading(file, dataClassCase);
  printMessages(*provider, file);
  return opened ? std::move(provider) : nullptr;
}

std::string resultsBeside(const std::string& file) {
  std::error_code ignored;
  const std::string beside = factory::resultsFileOf(file);
  return std::filesystem::is_regular_file(beside, ignored) ? beside : "";
}

bool openResults(const std::string& file, OrvFileProvider& provider) {
  if (file.empty()) {
    return true;
  }
  if (isOdd(file)) {
    refuseOdd(file);
    return false;
  }
  const bool opened = provider.startReading(file, dataClassResults);
  printMessages(provider, file);
  return opened;
}

void printMessages(OrvBase& side, const std::string& file) {
  const auto print = [&file](const char* kind, const std::string& text) {
    const std::size_t tab = text.find("\n\t");
    std::string words = " " + (tab == std::string::npos ? text : text.substr(tab + 2));
    const std::string name = " " + file + ":";  // once, in front, is enough
    for (std::size_t at = words.find(name); at != std::string::npos; at = words.find(name)) {
      words.erase(at, name.size());
    }
    std::cerr << kind << ": " << shownText(file) << ":" << shownText(words) << std::endl;
  };
  for (const std::string& text : side.getWarnings(true, true)) {
    print("Warning", text);
  }
  for (const std::string& text : side.getErrors(true, true)) {
    print("Error", text);
  }
}

}  // namespace velto::orv
