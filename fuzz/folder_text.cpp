// SPDX-License-Identifier: Apache-2.0
//
// Folders as one input, and back.

#include "fuzz/folder_text.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

namespace velto::fuzzing {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kMark = "@@ ";
constexpr std::size_t kLongestPath = 64;

bool isInside(std::string_view path) {
  const bool isPlain = std::all_of(path.begin(), path.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '/' ||
           c == '.';
  });
  return isPlain && !path.empty() && path.size() <= kLongestPath && path.front() != '/' &&
         path.find("..") == std::string_view::npos;
}

void writeFile(const fs::path& path, std::string_view content) {
  std::error_code failed;  // a file may stand where another needs a folder
  fs::create_directories(path.parent_path(), failed);
  std::ofstream out(path, std::ios::binary);
  out.write(content.data(), static_cast<std::streamsize>(content.size()));
}

/// Where the next line begins that tells a path.
std::size_t nextMark(std::string_view input, std::size_t from) {
  while (from < input.size()) {
    const std::size_t found = input.find(kMark, from);
    if (found == std::string_view::npos || found == 0 || input[found - 1] == '\n') {
      return found;
    }
    from = found + 1;
  }
  return std::string_view::npos;
}

}  // namespace

void writeFolder(std::string_view input, const std::string& folder) {
  fs::remove_all(folder);
  fs::create_directories(folder);
  for (std::size_t mark = nextMark(input, 0); mark != std::string_view::npos;) {
    const std::size_t path = mark + kMark.size();
    const std::size_t endOfPath = std::min(input.find('\n', path), input.size());
    const std::size_t content = std::min(endOfPath + 1, input.size());
    mark = nextMark(input, content);
    std::string_view bytes = input.substr(content, mark - content);
    if (!bytes.empty() && bytes.back() == '\n') {
      bytes.remove_suffix(1);
    }
    const std::string_view name = input.substr(path, endOfPath - path);
    if (isInside(name)) {
      writeFile(fs::path(folder) / name, bytes);
    }
  }
}

std::string readFolder(const std::string& folder) {
  std::map<std::string, std::string> files;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) {
      std::ifstream in(entry.path(), std::ios::binary);
      files[fs::relative(entry.path(), folder).string()] =
          std::string(std::istreambuf_iterator<char>(in), {});
    }
  }
  std::string input;
  for (const auto& [path, content] : files) {
    input.append(kMark).append(path).append("\n").append(content).append("\n");
  }
  return input;
}

}  // namespace velto::fuzzing
