// SPDX-License-Identifier: Apache-2.0
//
// Names of folders to write into, told from the last part of the name that was given.

#include "formats/openfoam/target_folders.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <system_error>
#include <vector>

#include "embedded/base/CaseError.h"

namespace velto::openfoam {

namespace fs = std::filesystem;

namespace {

constexpr const char* kPolyMesh = "polyMesh";
constexpr const char* kConstant = "constant";
const std::string kProcessor = "processor";  // NOLINT(cert-err58-cpp): short, it cannot throw.

/// The name without slashes at its end.
fs::path folderOf(const std::string& path) {
  if (path.empty()) {
    throw base::CaseError("no file name was given for what is to be written");
  }
  fs::path folder = fs::path(path).lexically_normal();
  if (!folder.has_filename()) {
    folder = folder.parent_path();
  }
  std::error_code ignored;
  if (folder.filename() == "." || folder.filename() == "..") {
    folder = fs::weakly_canonical(folder, ignored);
  }
  if (fs::exists(folder, ignored) && !fs::is_directory(folder, ignored)) {
    throw base::CaseError(path + ": is a file, a case folder is expected");
  }
  return folder;
}

/// The number of a folder "processorN", -1 for other names.
int processorNumber(const std::string& name) {
  int number = -1;
  if (name.compare(0, kProcessor.size(), kProcessor) == 0) {
    const char* const end = name.data() + name.size();
    const auto parsed = std::from_chars(name.data() + kProcessor.size(), end, number);
    number = parsed.ec == std::errc() && parsed.ptr == end ? number : -1;
  }
  return number;
}

}  // namespace

std::string polyMeshFolder(const std::string& path) {
  const fs::path folder = folderOf(path);
  if (folder.filename() == kPolyMesh) {
    return folder.string();
  }
  if (folder.filename() == kConstant) {
    return (folder / kPolyMesh).string();
  }
  return (folder / kConstant / kPolyMesh).string();
}

std::string polyMeshFolder(const std::string& path, int partition) {
  const fs::path folder = folderOf(path);
  if (folder.filename() == kPolyMesh || folder.filename() == kConstant) {
    throw base::CaseError(path + ": a mesh in partitions is written into a case folder");
  }
  return (folder / (kProcessor + std::to_string(partition)) / kConstant / kPolyMesh).string();
}

void refuseOtherProcessors(const std::string& path, const std::set<int>& partitions) {
  std::vector<fs::path> others;
  std::error_code failed;
  for (fs::directory_iterator next(folderOf(path), failed), end; !failed && next != end;
       next.increment(failed)) {
    const int number = processorNumber(next->path().filename().string());
    if (number >= 0 && partitions.count(number) == 0) {
      others.push_back(next->path());
    }
  }
  if (!others.empty()) {
    throw base::CaseError(std::min_element(others.begin(), others.end())->string() +
                          ": is of a mesh with other partitions; remove it first");
  }
}

}  // namespace velto::openfoam
