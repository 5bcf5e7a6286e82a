// SPDX-License-Identifier: Apache-2.0
//
// StoreWriter: a store file that is being written.

#ifndef VELTO_EMBEDDED_STORE_STORE_WRITER_H
#define VELTO_EMBEDDED_STORE_STORE_WRITER_H

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "embedded/base/CaseTables.h"
#include "embedded/store/Hdf5.h"
#include "embedded/store/StoreSink.h"

namespace velto::store {

/// Writes beside the final name, "case.orv.part-1234-1" for "case.orv", and takes that name when
/// all is done and on the disk. Until then, and for good if finish() is never called, whatever had
/// the name keeps it; the destructor removes what was written.
///
/// Failures are CaseErrors. After one the file cannot be finished.
class StoreWriter {
 public:
  /// `tables` outlive the writer; they are written by finish() as they are then.
  StoreWriter(std::string file, OrvDataClass dataClass, unsigned compression,
              const base::CaseTables& tables);
  StoreWriter(const StoreWriter&) = delete;
  StoreWriter& operator=(const StoreWriter&) = delete;
  ~StoreWriter();

  OrvDataClass dataClass() const { return dataClass_; }
  const std::string& file() const { return file_; }

  /// Says how many bytes of values will come in all, so that progress can be reported.
  void expect(std::uint64_t bytes) { settings_.progress.expected = bytes; }

  /// Where the arrays of a mesh go. Those of the mesh before are closed.
  base::MeshArraySink& sink(const base::MeshKey& key);

  /// Writes the tables and gives the file its name.
  void finish();

 private:
  StoreSink& sinkOf(const base::MeshKey& key);
  std::vector<FileRange> writeTables();

  std::string file_;
  OrvDataClass dataClass_;
  const base::CaseTables& tables_;
  std::string temporary_;  // empty once it has the final name
  std::optional<Hdf5File> hdf5_;
  WriteSettings settings_;
  std::map<base::MeshKey, std::unique_ptr<StoreSink>> sinks_;
  StoreSink* current_ = nullptr;
};

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_STORE_WRITER_H
