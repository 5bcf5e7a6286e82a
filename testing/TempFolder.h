// SPDX-License-Identifier: Apache-2.0
//
// TempFolder: a folder of a test's own, gone when the test is.

#ifndef VELTO_TESTING_TEMP_FOLDER_H
#define VELTO_TESTING_TEMP_FOLDER_H

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace velto::testing {

class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velto-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
      throw std::runtime_error("no temporary folder: " + pattern);
    }
    path_ = pattern;
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  /// The folder's path, or that of something in it.
  std::string path(const std::string& name = "") const {
    return name.empty() ? path_ : path_ + "/" + name;
  }

 private:
  std::string path_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_TEMP_FOLDER_H
