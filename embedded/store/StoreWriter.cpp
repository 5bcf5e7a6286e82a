// SPDX-License-Identifier: Apache-2.0
//
// StoreWriter: first the arrays, then the tables, then the seal, then the name.

#include "embedded/store/StoreWriter.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "embedded/base/CaseError.h"
#include "embedded/store/case_tables.h"
#include "embedded/store/seal.h"

namespace velto::store {

using base::CaseError;

namespace {

namespace fs = std::filesystem;

/// Free bytes on the disk of a file; none if that cannot be told, so that nothing is planned.
std::uint64_t roomBeside(const std::string& file) {
  std::error_code failed;
  const fs::path folder = fs::path(file).parent_path();
  const fs::space_info space = fs::space(folder.empty() ? fs::path(".") : folder, failed);
  return failed ? 0 : space.available;
}

}  // namespace

StoreWriter::StoreWriter(std::string file, OrvDataClass dataClass, unsigned compression,
                         const base::CaseTables& tables)
    : file_(std::move(file)), dataClass_(dataClass), tables_(tables) {
  base::requireFileName(file_);
  settings_.compression = compression;
  settings_.room = roomBeside(file_);
  settings_.progress.what = "writing " + file_;
  temporary_ = base::nameBeside(file_, "part");
  try {
    hdf5_ = Hdf5File::create(temporary_, file_);
  } catch (...) {  // HDF5 may have made the file before it failed
    std::error_code ignored;
    fs::remove(temporary_, ignored);
    throw;
  }
}

StoreWriter::~StoreWriter() {
  if (hdf5_) {
    hdf5_->drop();
  }
  sinks_.clear();
  hdf5_.reset();
  if (!temporary_.empty()) {
    std::error_code ignored;
    fs::remove(temporary_, ignored);
  }
}

StoreSink& StoreWriter::sinkOf(const base::MeshKey& key) {
  std::unique_ptr<StoreSink>& held = sinks_[key];
  if (held == nullptr) {
    Group root = hdf5_->root();
    Group meshes = root.has("meshes") ? root.openGroup("meshes") : root.makeGroup("meshes");
    held = std::make_unique<StoreSink>(meshes.makeGroup(std::to_string(sinks_.size() - 1)), key,
                                       tables_, settings_);
  }
  return *held;
}

base::MeshArraySink& StoreWriter::sink(const base::MeshKey& key) {
  StoreSink& wanted = sinkOf(key);
  if (current_ != nullptr && current_ != &wanted) {
    current_->closeArrays();
  }
  current_ = &wanted;
  return wanted;
}

std::vector<FileRange> StoreWriter::writeTables() {
  for (const auto& mesh : tables_.meshes) {
    sinkOf(mesh.first);
  }
  std::vector<FileRange> values;
  for (auto& sink : sinks_) {
    if (dataClass_ == dataClassCase) {
      sink.second->requireJustified();
    }
    const std::vector<FileRange>& ranges = sink.second->finish();
    values.insert(values.end(), ranges.begin(), ranges.end());
  }
  Group root = hdf5_->root();
  writeHeader(root, tables_, dataClass_);
  root.setCount("meshes", sinks_.size());
  writeSettings(root, tables_, dataClass_);
  if (dataClass_ == dataClassResults) {
    writeResultTables(root, tables_);
  } else {
    writeLocationModel(root, tables_.locationModel.get());
  }
  return values;
}

void StoreWriter::finish() {
  const std::vector<FileRange> values = writeTables();
  sinks_.clear();
  current_ = nullptr;
  hdf5_->close();
  base::RawFile raw(temporary_, base::RawFile::Mode::readAndWrite, file_);
  writeSeal(raw, values);
  raw.sync();
  base::renameDurably(temporary_, file_);
  temporary_.clear();
}

}  // namespace velto::store
