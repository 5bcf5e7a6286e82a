// SPDX-License-Identifier: Apache-2.0
//
// FolderSwap: an exchange of names or two renames a folder, and the way back.

#include "formats/openfoam/FolderSwap.h"

#include <algorithm>
#include <system_error>

#include "embedded/base/CaseError.h"
#include "embedded/base/RawFile.h"

namespace velto::openfoam {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const fs::path& path, const std::string& what, const std::error_code& why) {
  throw base::CaseError(path.string() + ": " + what + ": " + why.message());
}

}  // namespace

FolderSwap::~FolderSwap() {
  std::error_code ignored;
  for (const Folder& folder : folders_) {
    if (!folder.isPlaced) {
      fs::remove_all(folder.temporary, ignored);
    }
  }
  if (!isCommitted_) {
    for (auto made = made_.rbegin(); made != made_.rend(); ++made) {
      fs::remove(*made, ignored);  // only if it is empty
    }
  }
}

void FolderSwap::makeParents(const fs::path& folder) {
  std::vector<fs::path> missing;
  std::error_code failed;
  for (fs::path path = folder.parent_path();
       !path.empty() && !fs::exists(path, failed) && path != path.parent_path();
       path = path.parent_path()) {
    missing.push_back(path);
  }
  std::reverse(missing.begin(), missing.end());
  for (const fs::path& path : missing) {
    if (!fs::create_directory(path, failed) && failed) {
      fail(path, "cannot be made", failed);
    }
    made_.push_back(path);
  }
}

std::string FolderSwap::begin(const std::string& folder) {
  Folder begun;
  begun.final = folder;
  std::error_code failed;
  if (fs::exists(begun.final, failed)) {
    if (!fs::is_directory(begun.final, failed)) {
      throw base::CaseError(folder + ": is no folder");
    }
    if (fs::is_symlink(begun.final, failed)) {
      begun.final = fs::canonical(begun.final, failed);
    }
  }
  makeParents(begun.final);
  begun.temporary = base::nameBeside(begun.final, "part");
  if (!fs::create_directory(begun.temporary, failed)) {
    fail(begun.final, "cannot be made", failed);
  }
  folders_.push_back(begun);
  return begun.temporary.string();
}

void FolderSwap::place(Folder& folder) {
  std::error_code failed;
  base::syncFolder(folder.temporary);
  if (fs::exists(fs::symlink_status(folder.final, failed))) {
    if (base::exchangeNames(folder.temporary, folder.final)) {
      folder.aside = folder.temporary;
      folder.isPlaced = true;
      return;
    }
    const fs::path aside = base::nameBeside(folder.final, "old");
    fs::rename(folder.final, aside, failed);
    if (failed) {
      fail(folder.final, "cannot be replaced", failed);
    }
    folder.aside = aside;
  }
  fs::rename(folder.temporary, folder.final, failed);
  if (failed) {
    fail(folder.final, "cannot take its name", failed);
  }
  folder.isPlaced = true;
}

void FolderSwap::putBack(Folder& folder) {
  std::error_code ignored;
  if (folder.isPlaced && folder.aside == folder.temporary) {
    folder.isPlaced = !base::exchangeNames(folder.temporary, folder.final);
    return;
  }
  if (folder.isPlaced) {
    fs::rename(folder.final, folder.temporary, ignored);
    folder.isPlaced = static_cast<bool>(ignored);
  }
  if (!folder.aside.empty() && !folder.isPlaced) {
    fs::rename(folder.aside, folder.final, ignored);
    folder.aside.clear();
  }
}

void FolderSwap::commit() {
  try {
    for (Folder& folder : folders_) {
      place(folder);
    }
  } catch (...) {
    for (Folder& folder : folders_) {
      putBack(folder);
    }
    throw;
  }
  isCommitted_ = true;
  std::error_code ignored;
  for (const Folder& folder : folders_) {
    base::syncFolder(folder.final.parent_path());
    if (!folder.aside.empty()) {
      fs::remove_all(folder.aside, ignored);
    }
  }
}

}  // namespace velto::openfoam
