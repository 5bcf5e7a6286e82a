// SPDX-License-Identifier: Apache-2.0
//
// FolderSwap: folders that are written beside their final names and take them together.

#ifndef VELTO_FORMATS_OPENFOAM_FOLDER_SWAP_H
#define VELTO_FORMATS_OPENFOAM_FOLDER_SWAP_H

#include <filesystem>
#include <string>
#include <vector>

namespace velto::openfoam {

/// Each folder is "polyMesh.part-1234-1" while it is written. Until commit(), and for good if it is
/// never called, whatever has the final name keeps it; the destructor removes what was made, the
/// folders above it included where they had not been there. Where the file system can exchange two
/// names, an older folder is replaced in one step.
///
/// Errors: base::CaseError that names the folder and the reason.
class FolderSwap {
 public:
  FolderSwap() = default;
  FolderSwap(const FolderSwap&) = delete;
  FolderSwap& operator=(const FolderSwap&) = delete;
  ~FolderSwap();

  /// Makes an empty folder that shall become `folder`, and the folders above it. Returns its path.
  /// A symbolic link is followed: what it leads to is replaced.
  std::string begin(const std::string& folder);

  /// Gives all folders their names, in place of what had them. If one cannot have its name, all
  /// that was there is put back.
  void commit();

 private:
  struct Folder {
    std::filesystem::path final;
    std::filesystem::path temporary;
    std::filesystem::path aside;  // where what had the name waits; empty if nothing had it
    bool isPlaced = false;
  };

  void makeParents(const std::filesystem::path& folder);
  static void place(Folder& folder);
  static void putBack(Folder& folder);

  std::vector<Folder> folders_;
  std::vector<std::filesystem::path> made_;  // parents, outermost first
  bool isCommitted_ = false;
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_FOLDER_SWAP_H
