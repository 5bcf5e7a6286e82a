// SPDX-License-Identifier: Apache-2.0
//
// OutputFile: a file that is written beside its final name.

#ifndef VELTO_FORMATS_VTU_OUTPUT_FILE_H
#define VELTO_FORMATS_VTU_OUTPUT_FILE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "embedded/base/RawFile.h"

namespace velto::vtu {

/// Writes "case.vtu.part-1234-1" and gives it the name "case.vtu" when all is done and on the disk.
/// Until then, and for good if finish() is never called, whatever had the name keeps it; the
/// destructor removes what was written.
///
/// Failures are CaseErrors that name the file and the reason.
class OutputFile {
 public:
  explicit OutputFile(std::string file);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile();

  const std::string& name() const { return file_; }

  /// Where the next byte goes that is appended.
  std::uint64_t position() const { return written_ + buffer_.size(); }

  void append(const void* bytes, std::size_t size);
  void append(const std::string& text) { append(text.data(), text.size()); }

  /// Writes over bytes that were appended before.
  void patch(std::uint64_t offset, const void* bytes, std::size_t size);

  /// Brings the file to the disk and gives it its name.
  void finish();

 private:
  void flush();

  std::string file_;
  std::string temporary_;  // empty once it has the final name
  std::unique_ptr<base::RawFile> raw_;
  std::uint64_t written_ = 0;
  std::vector<char> buffer_;
};

}  // namespace velto::vtu

#endif  // VELTO_FORMATS_VTU_OUTPUT_FILE_H
