// SPDX-License-Identifier: Apache-2.0
//
// Files, groups, attributes and small datasets. Large datasets stand in hdf5_dataset.cpp.

#include "embedded/store/Hdf5.h"

#include <algorithm>
#include <cstring>

#include "embedded/store/NewFile.h"
#include "embedded/store/hdf5_calls.h"

namespace velto::store {

using base::CaseError;

namespace {

/// The most that a small dataset may take in memory for each byte of the file: what zlib, which
/// other programs may pack it with, can reach.
constexpr std::uint64_t kMostBytesPerFileByte = 1032;

Handle handleOf(hid_t id, Handle::Closer closer) { return {id, closer}; }

Handle scalarSpace() { return handleOf(H5Screate(H5S_SCALAR), H5Sclose); }

Handle rowSpace(std::uint64_t rows) {
  const hsize_t extent = rows;
  return handleOf(H5Screate_simple(1, &extent, nullptr), H5Sclose);
}

/// Strings of one fixed length, filled with zeros.
Handle stringType(std::size_t length) {
  Handle type = handleOf(H5Tcopy(H5T_C_S1), H5Tclose);
  H5Tset_size(type.id(), std::max<std::size_t>(length, 1));
  H5Tset_strpad(type.id(), H5T_STR_NULLPAD);
  H5Tset_cset(type.id(), H5T_CSET_UTF8);
  return type;
}

Handle columnType(const Column& column) {
  switch (column.type) {
    case Column::Type::int32:
      return handleOf(H5Tcopy(H5T_STD_I32LE), H5Tclose);
    case Column::Type::int64:
      return handleOf(H5Tcopy(H5T_STD_I64LE), H5Tclose);
    case Column::Type::uint64:
      return handleOf(H5Tcopy(H5T_STD_U64LE), H5Tclose);
    case Column::Type::text: {
      Handle text = handleOf(H5Tcreate(H5T_COMPOUND, 16), H5Tclose);
      H5Tinsert(text.id(), "first", 0, H5T_STD_U64LE);
      H5Tinsert(text.id(), "length", 8, H5T_STD_I64LE);
      return text;
    }
    case Column::Type::enumeration: {
      Handle names = handleOf(H5Tenum_create(H5T_STD_I32LE), H5Tclose);
      for (std::int32_t value = 0; column.names[value] != nullptr; ++value) {
        H5Tenum_insert(names.id(), column.names[value], &value);
      }
      return names;
    }
  }
  return {};
}

Handle rowType(const TableType& table) {
  Handle row = handleOf(H5Tcreate(H5T_COMPOUND, table.rowSize), H5Tclose);
  for (const Column& column : table.columns) {
    H5Tinsert(row.id(), column.name, column.offset, columnType(column).id());
  }
  return row;
}

/// Throws unless the table in the file has every column, with its type. It may have others.
void requireColumns(const std::string& where, hid_t fileType, const TableType& table) {
  if (H5Tget_class(fileType) != H5T_COMPOUND) {
    throw CaseError(where + ": a table is expected");
  }
  const QuietErrors quiet;
  for (const Column& column : table.columns) {
    const int index = H5Tget_member_index(fileType, column.name);
    if (index < 0) {
      throw CaseError(where + ": the column " + column.name + " is missing");
    }
    const Handle found =
        handleOf(H5Tget_member_type(fileType, static_cast<unsigned>(index)), H5Tclose);
    if (H5Tequal(found.id(), columnType(column).id()) <= 0) {
      throw CaseError(where + ": the column " + column.name + " has another type");
    }
  }
}

}  // namespace

Handle::~Handle() { close(); }

bool Handle::close() {
  const Hdf5Turn turn;
  const std::int64_t id = std::exchange(id_, -1);
  const QuietErrors quiet;
  return id < 0 || closer_(id) >= 0;
}

// --- Files --------------------------------------------------------------------------------------

Hdf5File Hdf5File::open(const std::string& file, std::uint64_t size) {
  const Hdf5Turn turn;
  const Handle access = handleOf(H5Pcreate(H5P_FILE_ACCESS), H5Pclose);
  // A store file has its name only when it is whole: readers need no lock, and not every file
  // system has them.
  H5Pset_file_locking(access.id(), false, true);
  const hid_t id = hdf5(file, "cannot be opened as an HDF5 file",
                        [&] { return H5Fopen(file.c_str(), H5F_ACC_RDONLY, access.id()); });
  return {handleOf(id, H5Fclose), file, size};
}

Hdf5File Hdf5File::create(const std::string& file, const std::string& shown) {
  const Hdf5Turn turn;
  const Handle access = handleOf(H5Pcreate(H5P_FILE_ACCESS), H5Pclose);
  auto made = std::make_shared<NewFile>(file, shown);
  writeInto(access.id(), made);
  const hid_t id = hdf5(shown, "cannot be made", [&] {
    return H5Fcreate(file.c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, access.id());
  });
  return {handleOf(id, H5Fclose), shown, 0, std::move(made)};
}

Group Hdf5File::root() const {
  const Hdf5Turn turn;
  const hid_t id =
      hdf5(shown_, "has no root group", [&] { return H5Gopen2(handle_.id(), "/", H5P_DEFAULT); });
  return {handleOf(id, H5Gclose), shown_ + ": ", size_};
}

void Hdf5File::close() {
  const Hdf5Turn turn;
  hdf5(shown_, "cannot be written out", [&] { return H5Fflush(handle_.id(), H5F_SCOPE_LOCAL); });
  new_->requireWritten();
  hdf5(shown_, "cannot be closed", [&] { return handle_.close() ? 0 : -1; });
  new_->requireWritten();
}

void Hdf5File::drop() { new_->drop(); }

// --- Groups -------------------------------------------------------------------------------------

std::string Group::where(const std::string& name) const { return where_ + "/" + name; }

bool Group::has(const std::string& name) const {
  const Hdf5Turn turn;
  return hdf5(where(name), "cannot be looked up",
              [&] { return H5Lexists(handle_.id(), name.c_str(), H5P_DEFAULT); }) > 0;
}

Group Group::makeGroup(const std::string& name) {
  const Hdf5Turn turn;
  const hid_t id = hdf5(where(name), "cannot be made", [&] {
    return H5Gcreate2(handle_.id(), name.c_str(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
  });
  return {handleOf(id, H5Gclose), where(name), fileSize_};
}

Group Group::openGroup(const std::string& name) const {
  const Hdf5Turn turn;
  const hid_t id = hdf5(where(name), "cannot be opened as a group",
                        [&] { return H5Gopen2(handle_.id(), name.c_str(), H5P_DEFAULT); });
  return {handleOf(id, H5Gclose), where(name), fileSize_};
}

void Group::remove(const std::string& name) {
  const Hdf5Turn turn;
  hdf5(where(name), "cannot be removed",
       [&] { return H5Ldelete(handle_.id(), name.c_str(), H5P_DEFAULT); });
}

void Group::rename(const std::string& from, const std::string& to) {
  const Hdf5Turn turn;
  hdf5(where(from), "cannot be renamed", [&] {
    return H5Lmove(handle_.id(), from.c_str(), handle_.id(), to.c_str(), H5P_DEFAULT, H5P_DEFAULT);
  });
}

// --- Attributes ---------------------------------------------------------------------------------

namespace {

void setAttribute(hid_t group, const std::string& where, const char* name, hid_t type,
                  const Handle& space, const void* value) {
  const hid_t id = hdf5(where, "cannot be made", [&] {
    return H5Acreate2(group, name, type, space.id(), H5P_DEFAULT, H5P_DEFAULT);
  });
  const Handle attribute = handleOf(id, H5Aclose);
  hdf5(where, "cannot be written", [&] { return H5Awrite(attribute.id(), type, value); });
}

/// An open attribute with its type and extent.
struct OpenAttribute {
  Handle attribute;
  Handle type;
  std::uint64_t values = 0;
};

std::optional<OpenAttribute> openAttribute(hid_t group, const std::string& where,
                                           const char* name) {
  const bool there = hdf5(where, "cannot be looked up", [&] { return H5Aexists(group, name); }) > 0;
  if (!there) {
    return std::nullopt;
  }
  OpenAttribute opened;
  opened.attribute = handleOf(
      hdf5(where, "cannot be opened", [&] { return H5Aopen(group, name, H5P_DEFAULT); }), H5Aclose);
  opened.type = handleOf(H5Aget_type(opened.attribute.id()), H5Tclose);
  const Handle space = handleOf(H5Aget_space(opened.attribute.id()), H5Sclose);
  const hssize_t points = H5Sget_simple_extent_npoints(space.id());
  opened.values = points < 0 ? 0 : static_cast<std::uint64_t>(points);
  return opened;
}

}  // namespace

void Group::setNumbers(const std::string& name, const std::vector<std::int64_t>& values) {
  const Hdf5Turn turn;
  setAttribute(handle_.id(), where(name), name.c_str(), H5T_STD_I64LE, rowSpace(values.size()),
               values.data());
}

void Group::setCount(const std::string& name, std::uint64_t value) {
  const Hdf5Turn turn;
  setAttribute(handle_.id(), where(name), name.c_str(), H5T_STD_U64LE, scalarSpace(), &value);
}

void Group::setText(const std::string& name, const std::string& text) {
  const Hdf5Turn turn;
  setAttribute(handle_.id(), where(name), name.c_str(), stringType(text.size()).id(), scalarSpace(),
               text.c_str());
}

std::optional<std::vector<std::int64_t>> Group::numbers(const std::string& name) const {
  const Hdf5Turn turn;
  const auto opened = openAttribute(handle_.id(), where(name), name.c_str());
  if (!opened) {
    return std::nullopt;
  }
  if (H5Tget_class(opened->type.id()) != H5T_INTEGER || opened->values > fileSize_) {
    throw CaseError(where(name) + ": integers are expected");
  }
  std::vector<std::int64_t> values(opened->values);
  hdf5(where(name), "cannot be read",
       [&] { return H5Aread(opened->attribute.id(), H5T_NATIVE_INT64, values.data()); });
  return values;
}

std::optional<std::uint64_t> Group::count(const std::string& name) const {
  const Hdf5Turn turn;
  const auto opened = openAttribute(handle_.id(), where(name), name.c_str());
  if (!opened) {
    return std::nullopt;
  }
  if (H5Tget_class(opened->type.id()) != H5T_INTEGER || opened->values != 1) {
    throw CaseError(where(name) + ": one integer is expected");
  }
  std::uint64_t value = 0;
  hdf5(where(name), "cannot be read",
       [&] { return H5Aread(opened->attribute.id(), H5T_NATIVE_UINT64, &value); });
  if (value == 0 && H5Tget_sign(opened->type.id()) == H5T_SGN_2) {  // HDF5 makes 0 of less
    std::int64_t exact = 0;
    hdf5(where(name), "cannot be read",
         [&] { return H5Aread(opened->attribute.id(), H5T_NATIVE_INT64, &exact); });
    if (exact < 0) {
      throw CaseError(where(name) + ": a number below zero");
    }
  }
  return value;
}

std::optional<std::string> Group::text(const std::string& name) const {
  const Hdf5Turn turn;
  const auto opened = openAttribute(handle_.id(), where(name), name.c_str());
  if (!opened) {
    return std::nullopt;
  }
  if (H5Tget_class(opened->type.id()) != H5T_STRING || opened->values != 1) {
    throw CaseError(where(name) + ": one text is expected");
  }
  if (H5Tis_variable_str(opened->type.id()) > 0) {  // as other programs write them
    char* value = nullptr;
    hdf5(where(name), "cannot be read",
         [&] { return H5Aread(opened->attribute.id(), opened->type.id(), &value); });
    const std::string text = value == nullptr ? "" : value;
    H5free_memory(value);
    return text;
  }
  std::string text(H5Tget_size(opened->type.id()), '\0');
  hdf5(where(name), "cannot be read",
       [&] { return H5Aread(opened->attribute.id(), opened->type.id(), text.data()); });
  text.resize(std::strlen(text.c_str()));
  return text;
}

// --- Small datasets -----------------------------------------------------------------------------

namespace {

void writeSmall(hid_t group, const std::string& where, const char* name, hid_t type,
                const Handle& space, const void* data) {
  const Handle creation = datasetCreation();
  const hid_t id = hdf5(where, "cannot be made", [&] {
    return H5Dcreate2(group, name, type, space.id(), H5P_DEFAULT, creation.id(), H5P_DEFAULT);
  });
  const Handle dataset = handleOf(id, H5Dclose);
  hdf5(where, "cannot be written",
       [&] { return H5Dwrite(dataset.id(), type, H5S_ALL, H5S_ALL, H5P_DEFAULT, data); });
}

}  // namespace

void Group::writeTable(const std::string& name, const TableType& type, const void* rows,
                       std::size_t count) {
  const Hdf5Turn turn;
  if (count > 0) {
    writeSmall(handle_.id(), where(name), name.c_str(), rowType(type).id(), rowSpace(count), rows);
  }
}

void Group::writeIntegers(const std::string& name, const std::vector<std::int32_t>& values) {
  const Hdf5Turn turn;
  if (!values.empty()) {
    writeSmall(handle_.id(), where(name), name.c_str(), H5T_STD_I32LE, rowSpace(values.size()),
               values.data());
  }
}

void Group::writeString(const std::string& name, const std::string& text) {
  const Hdf5Turn turn;
  if (!text.empty()) {
    writeSmall(handle_.id(), where(name), name.c_str(), stringType(text.size()).id(), scalarSpace(),
               text.data());
  }
}

namespace {

/// Throws unless the file can hold what a dataset claims.
void requireHeld(const std::string& where, hid_t dataset, hssize_t rows, std::uint64_t rowSize,
                 std::uint64_t fileSize) {
  const Handle creation = handleOf(H5Dget_create_plist(dataset), H5Pclose);
  const std::uint64_t most = fileSize * kMostBytesPerFileByte;
  if (rows < 0 || static_cast<std::uint64_t>(rows) > most / rowSize ||
      (rows > 0 && H5Dget_storage_size(dataset) == 0) ||
      H5Pget_external_count(creation.id()) != 0) {
    throw CaseError(where + ": " + std::to_string(rows) + " rows of " + std::to_string(rowSize) +
                    " bytes are claimed, which the file does not hold");
  }
}

}  // namespace

template <class TypeFor>
std::vector<std::byte> Group::readSmall(const std::string& name, const TypeFor& typeFor) const {
  const Hdf5Turn turn;
  if (!has(name)) {
    return {};
  }
  const std::string place = where(name);
  const Handle dataset =
      handleOf(hdf5(place, "cannot be opened as a dataset",
                    [&] { return H5Dopen2(handle_.id(), name.c_str(), H5P_DEFAULT); }),
               H5Dclose);
  const Handle fileType = handleOf(H5Dget_type(dataset.id()), H5Tclose);
  const Handle space = handleOf(H5Dget_space(dataset.id()), H5Sclose);
  const Handle type = typeFor(place, fileType.id());
  const hssize_t rows = H5Sget_simple_extent_npoints(space.id());
  const std::uint64_t rowSize = H5Tget_size(type.id());
  requireHeld(place, dataset.id(), rows, rowSize, fileSize_);
  std::vector<std::byte> bytes(static_cast<std::size_t>(rows) * rowSize);
  hdf5(place, "cannot be read", [&] {
    return H5Dread(dataset.id(), type.id(), H5S_ALL, H5S_ALL, H5P_DEFAULT, bytes.data());
  });
  return bytes;
}

std::vector<std::byte> Group::readTable(const std::string& name, const TableType& type) const {
  return readSmall(name, [&type](const std::string& place, hid_t fileType) {
    Handle row = rowType(type);
    if (H5Tequal(fileType, row.id()) <= 0) {  // our own writer's are, and that is quick to see
      requireColumns(place, fileType, type);
    }
    return row;
  });
}

std::vector<std::int32_t> Group::readIntegers(const std::string& name) const {
  const std::vector<std::byte> bytes =
      readSmall(name, [](const std::string& place, hid_t fileType) {
        if (H5Tget_class(fileType) != H5T_INTEGER) {
          throw CaseError(place + ": integers are expected");
        }
        return handleOf(H5Tcopy(H5T_STD_I32LE), H5Tclose);
      });
  std::vector<std::int32_t> values(bytes.size() / sizeof(std::int32_t));
  if (!values.empty()) {
    std::memcpy(values.data(), bytes.data(), bytes.size());
  }
  return values;
}

std::string Group::readString(const std::string& name) const {
  const std::vector<std::byte> bytes =
      readSmall(name, [](const std::string& place, hid_t fileType) {
        if (H5Tget_class(fileType) != H5T_STRING || H5Tis_variable_str(fileType) != 0) {
          throw CaseError(place + ": a text of fixed length is expected");
        }
        return handleOf(H5Tcopy(fileType), H5Tclose);
      });
  std::string text(bytes.size(), '\0');
  if (!text.empty()) {
    std::memcpy(text.data(), bytes.data(), bytes.size());
  }
  return text;
}

}  // namespace velto::store
