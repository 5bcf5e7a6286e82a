// SPDX-License-Identifier: Apache-2.0
//
// From a name to polyMesh folders, first match wins:
//
//   a mesh file               the folder it lies in
//   a folder of mesh files    itself
//   .../polyMesh              as in `constant`, or a time folder of a moving mesh
//   .../constant/polyMesh     as in a case folder, or a processor folder
//   .../processorN            one partition each
//   .../constant/*/polyMesh   regions: the user has to name one

#include "formats/openfoam/locate.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "embedded/base/CaseError.h"
#include "formats/openfoam/FoamHeader.h"

namespace velto::openfoam {

namespace fs = std::filesystem;

namespace {

const std::vector<std::string>& meshFileNames() {
  static const std::vector<std::string> kNames = {
      "points", "faces", "owner", "neighbour", "boundary", "cellZones", "faceZones", "pointZones"};
  return kNames;
}

bool isFolder(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

bool isMeshFile(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error) && peekHeader(path.string()).has_value();
}

/// The name without an ending ".gz".
std::string plainName(const fs::path& file) {
  return file.extension() == ".gz" ? file.stem().string() : file.filename().string();
}

bool isPolyMesh(const fs::path& folder) {
  const auto& names = meshFileNames();
  return isFolder(folder) && std::any_of(names.begin(), names.end(), [&](const std::string& name) {
           return isMeshFile(folder / name) || isMeshFile(folder / (name + ".gz"));
         });
}

/// The folders in `folder`, in byte order of their names.
std::vector<fs::path> foldersIn(const fs::path& folder) {
  std::vector<fs::path> folders;
  std::error_code error;
  for (fs::directory_iterator next(folder, error), end; !error && next != end;
       next.increment(error)) {
    if (isFolder(next->path())) {
      folders.push_back(next->path());
    }
  }
  std::sort(folders.begin(), folders.end());
  return folders;
}

bool isNumber(const std::string& text) {
  return !text.empty() && text.size() <= 9 &&
         text.find_first_not_of("0123456789") == std::string::npos;
}

/// The processorN folders of a case, by number.
std::vector<MeshFolder> processorFolders(const fs::path& folder) {
  static const std::string kPrefix = "processor";
  std::vector<MeshFolder> found;
  for (const fs::path& entry : foldersIn(folder)) {
    const std::string name = entry.filename().string();
    if (name.compare(0, kPrefix.size(), kPrefix) == 0 && isNumber(name.substr(kPrefix.size()))) {
      found.push_back({entry.string(), std::stoi(name.substr(kPrefix.size()))});
    }
  }
  std::sort(found.begin(), found.end(),
            [](const MeshFolder& a, const MeshFolder& b) { return a.partition < b.partition; });
  return found;
}

/// The folder of a collated case, such as "processors4", or an empty path.
fs::path collatedFolder(const fs::path& folder) {
  for (const fs::path& entry : foldersIn(folder)) {
    const std::string name = entry.filename().string();
    if (name.compare(0, 10, "processors") == 0) {
      return entry;
    }
  }
  return {};
}

std::vector<fs::path> regionFolders(const fs::path& folder) {
  std::vector<fs::path> regions;
  for (const fs::path& entry : foldersIn(folder / "constant")) {
    if (isPolyMesh(entry / "polyMesh")) {
      regions.push_back(entry);
    }
  }
  return regions;
}

/// The one polyMesh folder that `path` names, or an empty path.
fs::path singleFolder(const fs::path& path) {
  if (!isFolder(path)) {
    const auto& names = meshFileNames();
    const bool isNamed = std::count(names.begin(), names.end(), plainName(path)) > 0;
    if (!isNamed || !isMeshFile(path)) {
      return {};
    }
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
  }
  for (const fs::path& folder : {path, path / "polyMesh", path / "constant" / "polyMesh"}) {
    if (isPolyMesh(folder)) {
      return folder;
    }
  }
  return {};
}

}  // namespace

bool holdsMesh(const std::string& path) {
  return !singleFolder(path).empty() || !processorFolders(path).empty() ||
         !collatedFolder(path).empty() || !regionFolders(path).empty();
}

std::vector<MeshFolder> meshFolders(const std::string& path) {
  const fs::path single = singleFolder(path);
  if (!single.empty()) {
    return {{single.string(), -1}};
  }
  std::vector<MeshFolder> partitions = processorFolders(path);
  for (MeshFolder& partition : partitions) {
    const fs::path folder = singleFolder(partition.path);
    if (folder.empty()) {
      throw base::CaseError(partition.path +
                            ": expected constant/polyMesh with a mesh in it, found none");
    }
    partition.path = folder.string();
  }
  if (!partitions.empty()) {
    return partitions;
  }
  const fs::path collated = collatedFolder(path);
  if (!collated.empty()) {
    throw base::CaseError(collated.string() +
                          ": a collated case cannot be read; expected processor0, processor1, ... "
                          "as decomposePar -fileHandler uncollated writes them");
  }
  const std::vector<fs::path> regions = regionFolders(path);
  if (!regions.empty()) {
    std::string names;
    for (const fs::path& region : regions) {
      names += (names.empty() ? "" : ", ") + region.filename().string();
    }
    throw base::CaseError(path + ": holds the regions " + names + "; name one of them, such as " +
                          regions.front().string());
  }
  throw base::CaseError(path + ": expected an OpenFOAM mesh, found none");
}

}  // namespace velto::openfoam
