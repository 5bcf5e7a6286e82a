// SPDX-License-Identifier: Apache-2.0
//
// CopyFiles: names, and what must not be overwritten.

#include "orv/copy_files.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <stdexcept>

#include "factory/file_names.h"
#include "orv/near_name.h"
#include "orv/open_case.h"

namespace velto::orv {

namespace {

namespace fs = std::filesystem;

std::vector<const factory::Format*> writableFormats() {
  std::vector<const factory::Format*> writable;
  for (const factory::Format& format : factory::formats()) {
    if (format.makeConsumer != nullptr && format.written.ending != nullptr) {
      writable.push_back(&format);
    }
  }
  return writable;
}

const factory::Format* formatNamed(const std::string& name) {
  std::vector<std::string> names;
  for (const factory::Format* format : writableFormats()) {
    if (format->name == name) {
      return format;
    }
    names.emplace_back(format->name);
  }
  throw std::runtime_error(fmt::format("no format that can be written is named {}; {}{}", name,
                                       guessWords(name, names), "`orv formats` lists all"));
}

/// The format that the name of a destination tells: by its ending, or the one of folders.
const factory::Format* formatOf(const std::string& destination) {
  const fs::path path(destination);
  const bool isFolder = fs::is_directory(path) || !path.has_filename();
  for (const factory::Format* format : writableFormats()) {
    const std::string ending = format->written.ending;
    if (ending.empty() ? isFolder || path.filename() == "polyMesh"
                       : !isFolder && path.extension() == ending) {
      return format;
    }
  }
  throw std::runtime_error(destination +
                           ": its name tells no format that can be written; --to names one, and "
                           "`orv formats` lists them");
}

/// Whether both names stand for one file or folder, be it there or not.
bool isSame(const fs::path& a, const fs::path& b) {
  std::error_code ignored;
  return fs::equivalent(a, b, ignored) || fs::weakly_canonical(fs::absolute(a), ignored) ==
                                              fs::weakly_canonical(fs::absolute(b), ignored);
}

/// What writing replaces.
std::vector<fs::path> replaced(const CopyFiles& files) {
  const fs::path destination(files.destination);
  if (!std::string(files.format->written.ending).empty()) {
    return {destination, files.destinationResults};
  }
  return {destination.filename() == "polyMesh" ? destination
                                               : destination / "constant" / "polyMesh"};
}

/// What is read: for a folder, or a file in one, also what it stands for.
std::vector<fs::path> read(const CopyFiles& files) {
  const fs::path source(files.source);
  std::vector<fs::path> all = {source};
  if (fs::is_directory(source)) {
    all.push_back(source / "polyMesh");
    all.push_back(source / "constant" / "polyMesh");
  } else {
    all.push_back(fs::absolute(source).parent_path());
  }
  if (!files.sourceResults.empty()) {
    all.emplace_back(files.sourceResults);
  }
  return all;
}

void refuseToOverwrite(const CopyFiles& files, bool force) {
  if (isSame(files.destination, files.destinationResults)) {
    throw std::runtime_error(files.destination + ": cannot hold a case and its results both");
  }
  for (const fs::path& file : replaced(files)) {
    for (const fs::path& other : read(files)) {
      if (isSame(file, other)) {
        throw std::runtime_error(file.string() + ": is the source itself, which is never written");
      }
    }
    std::error_code ignored;
    if (!force && fs::exists(file, ignored)) {
      throw std::runtime_error(file.string() + ": is there already; --force replaces it");
    }
  }
}

}  // namespace

CopyFiles chooseFiles(const CopyOptions& options) {
  CopyFiles files;
  files.source = options.source;
  if (options.results) {
    files.sourceResults =
        options.sourceResults.empty() ? resultsBeside(options.source) : options.sourceResults;
  }
  files.destination = options.destination;
  files.destinationResults = options.destinationResults.empty()
                                 ? factory::resultsFileOf(options.destination)
                                 : options.destinationResults;
  files.format =
      options.format.empty() ? formatOf(options.destination) : formatNamed(options.format);
  const bool isWhole = options.meshSize && options.units && options.zones && options.nodes &&
                       options.cells && options.cellNodes && options.cellTypes &&
                       options.cellPartitions && options.faces && options.faceNodes &&
                       options.faceCells;
  if (options.verify && !isWhole) {
    throw std::runtime_error("--verify compares all of a mesh, and some of it would be left out");
  }
  if (options.verify &&
      !(files.format->written.keepsIds && files.format->makeProvider != nullptr)) {
    throw std::runtime_error(fmt::format(
        "--verify compares array by array, and the format {} numbers its elements in a way of its "
        "own, or cannot be read",
        files.format->name));
  }
  refuseToOverwrite(files, options.force);
  return files;
}

std::vector<std::string> writtenFiles(const CopyFiles& files, const CopyPlan& plan) {
  std::vector<std::string> written;
  for (const fs::path& file : replaced(files)) {
    std::error_code ignored;
    if ((file != files.destinationResults || plan.results.variables != 0) &&
        fs::exists(file, ignored)) {
      written.push_back(file.string());
    }
  }
  return written;
}

}  // namespace velto::orv
