// SPDX-License-Identifier: Apache-2.0
//
// CopyFiles: names, and what must not be overwritten.

#include "orv/copy_files.h"

#include <filesystem>
#include <fmt/format.h>
#include <set>
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
  for (const factory::Format* format : writableFormats()) {
    if (format->name == name) {
      return format;
    }
  }
  throw std::runtime_error(fmt::format("no format that can be written is named {}; {}{}", name,
                                       guessWords(name, writableFormatNames()),
                                       "`orv formats` lists all"));
}

/// The format that the name of a destination tells: by its ending, or the one of folders.
const factory::Format* formatToWrite(const std::string& destination) {
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

/// What is read for a source, which need not be there.
std::vector<std::string> placesRead(const CopyFiles& files) {
  const factory::Format* format = factory::formatOf(files.source);
  std::vector<std::string> places;
  if (format == nullptr) {
    places.push_back(files.source);
  } else {
    places = format->placesOf(files.source);
  }
  if (!files.sourceResults.empty()) {
    places.push_back(files.sourceResults);
  }
  return places;
}

/// Refuses to write onto the source and, without being told to, onto what is there.
void judgePlaces(const CopyFiles& files, const std::vector<std::string>& places, bool force) {
  const std::vector<std::string> source = placesRead(files);
  for (const std::string& place : places) {
    for (const std::string& read : source) {
      if (isSame(place, read)) {
        throw std::runtime_error(place + ": is the source itself, which is never written");
      }
    }
    std::error_code ignored;
    if (!force && fs::exists(place, ignored)) {
      throw std::runtime_error(place + ": is there already; --force replaces it");
    }
  }
}

std::vector<std::string> placesWritten(const CopyFiles& files, const std::set<int>& partitions,
                                       bool withResults) {
  std::vector<std::string> places = files.format->written.placesOf(files.destination, partitions);
  if (withResults && files.format->written.hasResultsFile) {
    places.push_back(files.destinationResults);
  }
  return places;
}

}  // namespace

std::vector<std::string> writableFormatNames() {
  std::vector<std::string> names;
  for (const factory::Format* format : writableFormats()) {
    names.emplace_back(format->name);
  }
  return names;
}

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
      options.format.empty() ? formatToWrite(options.destination) : formatNamed(options.format);
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
  if (isSame(files.destination, files.destinationResults)) {
    throw std::runtime_error(files.destination + ": cannot hold a case and its results both");
  }
  judgePlaces(files, placesWritten(files, {-1}, true), options.force);
  return files;
}

void settleFiles(CopyFiles& files, const CopyPlan& plan, const CopyOptions& options) {
  std::set<int> partitions;
  for (const PlannedMesh& mesh : plan.meshes) {
    partitions.insert(mesh.inCopy.partition);
  }
  files.written = placesWritten(files, partitions, plan.results.variables != 0);
  judgePlaces(files, files.written, options.force);
}

}  // namespace velto::orv
