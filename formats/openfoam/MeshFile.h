// SPDX-License-Identifier: Apache-2.0
//
// MeshFile: one file of a polyMesh folder that is being written: header, lists, end.

#ifndef VELTO_FORMATS_OPENFOAM_MESH_FILE_H
#define VELTO_FORMATS_OPENFOAM_MESH_FILE_H

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "formats/openfoam/OutputFile.h"
#include "formats/openfoam/write_poly_mesh.h"

namespace velto::openfoam {

/// Where the files of a folder go, and how.
struct FileSettings {
  std::string folder;
  std::string shown;  ///< The folder in messages.
  WriteForm form;
  int labelBits = 32;  ///< Of binary labels.
  WriteProgress progress;
};

/// Lists are given entry by entry: `at(i)` for i < count.
class MeshFile {
 public:
  MeshFile(const FileSettings& settings, const std::string& name);

  /// The header. `note` is left out where empty.
  void begin(const std::string& objectClass, const std::string& note = {});

  template <class LabelAt>
  void labels(std::uint64_t count, const LabelAt& at) {
    if (beginList(count)) {
      labelEntries(count, at);
      out_.put(')');
    }
  }

  /// Some of the entries of a list of labels. `at` is called once for each, in their order.
  template <class LabelAt>
  void labelEntries(std::uint64_t count, const LabelAt& at) {
    if (isText_) {
      for (std::uint64_t i = 0; i < count; ++i) {
        labelEntry(at(i));
      }
    } else if (settings_.labelBits == 64) {
      labelBlocks<std::int64_t>(count, at);
    } else {
      labelBlocks<std::int32_t>(count, at);
    }
  }

  void labelEntry(std::uint64_t value) {
    label(value);
    if (isText_) {
      out_.put('\n');
    }
    advance(1);
  }

  /// Some of the entries of a list of flags.
  template <class FlagAt>
  void flagEntries(std::uint64_t count, const FlagAt& at) {
    for (std::uint64_t i = 0; i < count; ++i) {
      if (isText_) {
        out_.text(at(i) ? "1\n" : "0\n");
      } else {
        out_.put(at(i) ? '\1' : '\0');
      }
    }
  }

  /// A list whose entries `write(i)` writes.
  template <class Write>
  void list(std::uint64_t count, const Write& write) {
    if (!beginList(count)) {
      return;
    }
    for (std::uint64_t i = 0; i < count; ++i) {
      write(i);
      if (isText_) {
        out_.put('\n');
      }
    }
    out_.put(')');
  }

  /// The size and the opening parenthesis of a list; false if that is all of it.
  bool beginList(std::uint64_t count);

  void label(std::uint64_t value) {
    if (isText_) {
      out_.label(value);
    } else if (settings_.labelBits == 64) {
      out_.raw(static_cast<std::int64_t>(value));
    } else {
      out_.raw(static_cast<std::int32_t>(value));
    }
  }

  bool isText() const { return isText_; }
  OutputFile& out() { return out_; }

  /// Counts values towards the progress, which is told of now and then.
  void advance(std::uint64_t values) {
    values_ += values;
    if (values_ >= kValuesBetween) {
      tell();
    }
  }

  /// The last line; returns when the file is on the disk.
  void close();

 private:
  static constexpr std::uint64_t kValuesBetween = 1U << 18U;
  static constexpr std::uint64_t kBlock = 4096;

  /// Labels that are made block by block, in a loop without branches.
  template <class Label, class LabelAt>
  void labelBlocks(std::uint64_t count, const LabelAt& at) {
    static_assert(kBlock * sizeof(Label) <= OutputFile::kLargestRoom);
    for (std::uint64_t begin = 0; begin < count; begin += kBlock) {
      const std::uint64_t n = std::min(kBlock, count - begin);
      char* const to = out_.reserve(static_cast<std::size_t>(n) * sizeof(Label));
      for (std::uint64_t i = 0; i < n; ++i) {
        const auto value = static_cast<Label>(at(begin + i));
        std::memcpy(to + i * sizeof(Label), &value, sizeof(Label));
      }
      out_.filled(static_cast<std::size_t>(n) * sizeof(Label));
      advance(n);
    }
  }

  void tell();

  const FileSettings& settings_;
  std::string name_;
  bool isText_;
  std::uint64_t values_ = 0;  // since progress was told
  OutputFile out_;
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_MESH_FILE_H
