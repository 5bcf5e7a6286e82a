// SPDX-License-Identifier: Apache-2.0
//
// NewFile, and the file driver through which HDF5 writes it. Exceptions end here: HDF5 is C.

#include "embedded/store/NewFile.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <new>

#include "embedded/base/CaseError.h"
#include "embedded/store/hdf5_calls.h"

namespace velto::store {

using base::CaseError;

// --- The file -----------------------------------------------------------------------------------

void NewFile::requireWritten() const {
  if (!failure_.empty()) {
    throw CaseError(failure_);
  }
}

std::string NewFile::reason() const {
  const std::size_t before = failure_.rfind(": ");
  return before == std::string::npos ? failure_ : failure_.substr(before + 2);
}

template <class Change>
bool NewFile::change(const Change& change) {
  if (isDropped_) {
    return true;
  }
  try {
    change();
    return true;
  } catch (const std::exception& error) {
    failure_ = error.what();
    drop();
    return false;
  }
}

void NewFile::read(std::uint64_t offset, void* bytes, std::size_t size) const {
  const std::uint64_t end = raw_.size();
  const auto there =
      static_cast<std::size_t>(std::min<std::uint64_t>(size, end < offset ? 0 : end - offset));
  raw_.read(offset, bytes, there);
  std::memset(static_cast<char*>(bytes) + there, 0, size - there);
}

bool NewFile::write(std::uint64_t offset, const void* bytes, std::size_t size) {
  return change([&] { raw_.write(offset, bytes, size); });
}

bool NewFile::resize(std::uint64_t size) {
  return change([&] { raw_.resize(size); });
}

// --- The driver ---------------------------------------------------------------------------------

namespace {

constexpr const char* kDriver = "velto new file";

/// An open file as HDF5 knows it.
struct DriverFile : H5FD_t {
  std::shared_ptr<NewFile> file;
  haddr_t allocated = 0;
  haddr_t end = 0;
};

/// What goes from writeInto() to the driver.
struct DriverInfo {
  const std::shared_ptr<NewFile>* file;
};

DriverFile& of(H5FD_t* file) { return *static_cast<DriverFile*>(file); }
const DriverFile& of(const H5FD_t* file) { return *static_cast<const DriverFile*>(file); }

H5FD_t* openFile(const char*, unsigned, hid_t access, haddr_t) {
  const auto* info = static_cast<const DriverInfo*>(H5Pget_driver_info(access));
  auto* opened = new (std::nothrow) DriverFile();
  if (info != nullptr && opened != nullptr) {
    opened->file = *info->file;
  }
  return opened;
}

herr_t closeFile(H5FD_t* file) {
  delete &of(file);
  return 0;
}

int compareFiles(const H5FD_t* one, const H5FD_t* other) {
  const NewFile* a = of(one).file.get();
  const NewFile* b = of(other).file.get();
  return a == b ? 0 : std::less<const NewFile*>()(a, b) ? -1 : 1;
}

/// No sieve for values: they would be held back too.
herr_t features(const H5FD_t*, unsigned long* flags) {
  if (flags != nullptr) {
    *flags = H5FD_FEAT_AGGREGATE_METADATA | H5FD_FEAT_ACCUMULATE_METADATA |
             H5FD_FEAT_AGGREGATE_SMALLDATA | H5FD_FEAT_DEFAULT_VFD_COMPATIBLE;
  }
  return 0;
}

haddr_t allocated(const H5FD_t* file, H5FD_mem_t) { return of(file).allocated; }

herr_t allocate(H5FD_t* file, H5FD_mem_t, haddr_t end) {
  of(file).allocated = end;
  return 0;
}

haddr_t endOf(const H5FD_t* file, H5FD_mem_t) { return of(file).end; }

herr_t readBytes(H5FD_t* file, H5FD_mem_t, hid_t, haddr_t at, std::size_t size, void* bytes) {
  try {
    of(file).file->read(at, bytes, size);
    return 0;
  } catch (const std::exception&) {
    return -1;
  }
}

herr_t writeBytes(H5FD_t* file, H5FD_mem_t kind, hid_t, haddr_t at, std::size_t size,
                  const void* bytes) {
  DriverFile& written = of(file);
  const bool isWritten = written.file->write(at, bytes, size);
  written.end = std::max(written.end, at + size);
  if (isWritten || kind != H5FD_MEM_DRAW) {
    return 0;
  }
  H5Epush2(H5E_DEFAULT, __FILE__, __func__, __LINE__, H5E_ERR_CLS, H5E_IO, H5E_WRITEERROR, "%s",
           written.file->reason().c_str());
  return -1;
}

herr_t truncate(H5FD_t* file, hid_t, hbool_t) {
  DriverFile& written = of(file);
  if (written.end != written.allocated) {
    written.file->resize(written.allocated);
    written.end = written.allocated;
  }
  return 0;
}

Handle registerDriver() {
  constexpr H5FD_mem_t kDichotomy[] = H5FD_FLMAP_DICHOTOMY;
  H5FD_class_t driver = {};
  driver.name = kDriver;
  driver.maxaddr = static_cast<haddr_t>(std::numeric_limits<std::int64_t>::max());
  driver.fc_degree = H5F_CLOSE_WEAK;
  driver.fapl_size = sizeof(DriverInfo);
  driver.open = openFile;
  driver.close = closeFile;
  driver.cmp = compareFiles;
  driver.query = features;
  driver.get_eoa = allocated;
  driver.set_eoa = allocate;
  driver.get_eof = endOf;
  driver.read = readBytes;
  driver.write = writeBytes;
  driver.truncate = truncate;
  std::copy(std::begin(kDichotomy), std::end(kDichotomy), std::begin(driver.fl_map));
  return {H5FDregister(&driver), H5FDunregister};
}

}  // namespace

void writeInto(std::int64_t accessList, const std::shared_ptr<NewFile>& file) {
  file->driver_ = registerDriver();
  const DriverInfo info{&file};
  H5Pset_driver(accessList, file->driver_.id(), &info);
}

}  // namespace velto::store
