// SPDX-License-Identifier: Apache-2.0
//
// Damage through the C interface of HDF5: what is damaged is read whole, deleted and made again.

#include "tests/store/hdf5_damage.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>

#include "embedded/store/hdf5_calls.h"

namespace velto::testing {

using store::Handle;
using store::hdf5;

namespace {

constexpr hsize_t kChunk = 1024;
constexpr std::size_t kMostRows = 1U << 20U;

Handle openFile(const std::string& file, unsigned mode) {
  return {hdf5(file, "cannot be opened", [&] { return H5Fopen(file.c_str(), mode, H5P_DEFAULT); }),
          H5Fclose};
}

Handle openDataset(const Handle& file, const std::string& path) {
  return {hdf5(path, "cannot be opened",
               [&] { return H5Dopen2(file.id(), path.c_str(), H5P_DEFAULT); }),
          H5Dclose};
}

Handle copyOf(hid_t type) { return {H5Tcopy(type), H5Tclose}; }

Handle textType(std::size_t size) {
  Handle type = copyOf(H5T_C_S1);
  H5Tset_size(type.id(), size);
  return type;
}

Handle extentOf(const std::vector<hsize_t>& extent) {
  return {extent.empty()
              ? H5Screate(H5S_SCALAR)
              : H5Screate_simple(static_cast<int>(extent.size()), extent.data(), nullptr),
          H5Sclose};
}

/// The name that a call of HDF5 writes into a buffer; empty if it fails.
std::string nameFrom(const std::function<ssize_t(char*, std::size_t)>& call) {
  const store::QuietErrors quiet;
  std::string name(256, '\0');
  const ssize_t size = call(name.data(), name.size());
  name.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  return name;
}

void makeGroup(const Handle& file, const std::string& path) {
  const Handle made(hdf5(path, "cannot be made",
                         [&] {
                           return H5Gcreate2(file.id(), path.c_str(), H5P_DEFAULT, H5P_DEFAULT,
                                             H5P_DEFAULT);
                         }),
                    H5Gclose);
}

/// Calls `use` with every object below a group: its path and its kind.
void walk(hid_t group, const std::string& path,
          const std::function<void(const std::string&, hid_t)>& use) {
  use(path, group);
  H5G_info_t info{};
  H5Gget_info(group, &info);
  for (hsize_t i = 0; i < info.nlinks; ++i) {
    const std::string name = nameFrom([&](char* text, std::size_t size) {
      return H5Lget_name_by_idx(group, ".", H5_INDEX_NAME, H5_ITER_INC, i, text, size, H5P_DEFAULT);
    });
    const Handle object(H5Oopen(group, name.c_str(), H5P_DEFAULT), H5Oclose);
    std::string below = path == "/" ? path : path + "/";
    below += name;
    if (H5Iget_type(object.id()) == H5I_GROUP) {
      walk(object.id(), below, use);
    } else {
      use(below, object.id());
    }
  }
}

void walkFile(const std::string& file, const std::function<void(const std::string&, hid_t)>& use) {
  const Handle opened = openFile(file, H5F_ACC_RDONLY);
  const Handle root(H5Gopen2(opened.id(), "/", H5P_DEFAULT), H5Gclose);
  walk(root.id(), "/", use);
}

/// A dataset as it is.
struct Whole {
  Handle type;
  std::vector<hsize_t> extent;
  std::size_t rows = 1;
  std::size_t rowSize = 0;
  std::vector<std::byte> bytes;  ///< Zeros where they are packed.
};

Whole readWhole(const Handle& file, const std::string& path) {
  const Handle dataset = openDataset(file, path);
  Whole whole;
  whole.type = Handle(H5Dget_type(dataset.id()), H5Tclose);
  whole.rowSize = H5Tget_size(whole.type.id());
  const Handle space(H5Dget_space(dataset.id()), H5Sclose);
  whole.extent.resize(static_cast<std::size_t>(H5Sget_simple_extent_ndims(space.id())));
  H5Sget_simple_extent_dims(space.id(), whole.extent.data(), nullptr);
  whole.rows = static_cast<std::size_t>(H5Sget_simple_extent_npoints(space.id()));
  const Handle creation(H5Dget_create_plist(dataset.id()), H5Pclose);
  const bool isElsewhere = H5Pget_external_count(creation.id()) > 0;
  if (whole.rows > kMostRows || H5Tis_variable_str(whole.type.id()) > 0 || isElsewhere) {
    throw std::length_error(path + " is damaged too much for more");
  }
  whole.bytes.resize(whole.rows * whole.rowSize);
  const store::QuietErrors quiet;  // nothing here unpacks
  H5Dread(dataset.id(), whole.type.id(), H5S_ALL, H5S_ALL, H5P_DEFAULT, whole.bytes.data());
  return whole;
}

void writeBack(const Handle& file, const std::string& path, const Whole& whole) {
  const Handle dataset = openDataset(file, path);
  hdf5(path, "cannot be written", [&] {
    return H5Dwrite(dataset.id(), whole.type.id(), H5S_ALL, H5S_ALL, H5P_DEFAULT,
                    whole.bytes.data());
  });
}

/// As readWhole(), of a dataset in which a number still has its place.
Whole readWhole(const Handle& file, const NumberPlace& place) {
  Whole whole = readWhole(file, place.dataset);
  if (place.offset + place.size > whole.rowSize) {
    throw std::length_error(place.dataset + " has no place for the number any more");
  }
  return whole;
}

/// Makes a dataset in place of another; without values it is not written.
void replace(const Handle& file, const std::string& path, const Handle& type, const Handle& space,
             const void* values, hid_t creation = H5P_DEFAULT) {
  H5Ldelete(file.id(), path.c_str(), H5P_DEFAULT);
  const Handle made(hdf5(path, "cannot be made",
                         [&] {
                           return H5Dcreate2(file.id(), path.c_str(), type.id(), space.id(),
                                             H5P_DEFAULT, creation, H5P_DEFAULT);
                         }),
                    H5Dclose);
  if (values != nullptr) {
    hdf5(path, "cannot be written",
         [&] { return H5Dwrite(made.id(), type.id(), H5S_ALL, H5S_ALL, H5P_DEFAULT, values); });
  }
}

void replaceByZeros(const Handle& file, const std::string& path, const Handle& type,
                    const Whole& whole) {
  const std::vector<std::byte> zeros(whole.rows * H5Tget_size(type.id()));
  replace(file, path, type, extentOf(whole.extent), zeros.data());
}

void replaceByTextsOfAnyLength(const Handle& file, const std::string& path, const Whole& whole) {
  const std::vector<const char*> texts(whole.rows, "damaged");
  replace(file, path, textType(H5T_VARIABLE), extentOf(whole.extent), texts.data());
}

/// Makes a dataset of other length that has the chunks of the one before, as they are.
void replaceChunks(const Handle& file, const std::string& path, const Whole& whole,
                   const Handle& from, const Handle& creation, hsize_t rows) {
  hsize_t chunk = 0;
  H5Pget_chunk(creation.id(), 1, &chunk);
  const hsize_t most = H5S_UNLIMITED;
  const Handle space(H5Screate_simple(1, &rows, &most), H5Sclose);
  replace(file, path, whole.type, space, nullptr, creation.id());
  const Handle to = openDataset(file, path);
  for (hsize_t first = 0; first < std::min<hsize_t>(rows, whole.rows); first += chunk) {
    hsize_t size = 0;
    std::uint32_t filters = 0;
    H5Dget_chunk_storage_size(from.id(), &first, &size);
    std::vector<std::byte> bytes(size);
    hdf5(path, "cannot be read",
         [&] { return H5Dread_chunk(from.id(), H5P_DEFAULT, &first, &filters, bytes.data()); });
    hdf5(path, "cannot be written", [&] {
      return H5Dwrite_chunk(to.id(), H5P_DEFAULT, filters, &first, bytes.size(), bytes.data());
    });
  }
}

/// Makes a dataset shorter, or longer: by a row, or by bytes if it is a text.
void resize(const Handle& file, const std::string& path, Whole& whole, bool shorter) {
  if (whole.extent.empty()) {
    const std::size_t size = shorter ? whole.rowSize / 2 : whole.rowSize + 8;
    whole.bytes.resize(size);
    replace(file, path, textType(size), extentOf({}), whole.bytes.data());
    return;
  }
  const hsize_t rows = shorter ? whole.rows - 1 : whole.rows + 1;
  const Handle dataset = openDataset(file, path);
  const Handle creation(H5Dget_create_plist(dataset.id()), H5Pclose);
  if (H5Pget_layout(creation.id()) == H5D_CHUNKED) {
    replaceChunks(file, path, whole, dataset, creation, rows);
    return;
  }
  whole.bytes.resize(static_cast<std::size_t>(rows) * whole.rowSize);
  replace(file, path, whole.type, extentOf({rows}), whole.bytes.data());
}

/// Claims rows in chunks, of which the first is written if `one`.
void claimChunks(const Handle& file, const std::string& path, const Whole& whole, hsize_t rows,
                 bool one) {
  const Handle creation(H5Pcreate(H5P_DATASET_CREATE), H5Pclose);
  H5Pset_chunk(creation.id(), 1, &kChunk);
  replace(file, path, whole.type, extentOf({rows}), nullptr, creation.id());
  if (one) {
    const std::vector<std::byte> zeros(kChunk * whole.rowSize);
    const Handle dataset = openDataset(file, path);
    const hsize_t first = 0;
    hdf5(path, "cannot be written", [&] {
      return H5Dwrite_chunk(dataset.id(), H5P_DEFAULT, 0, &first, zeros.size(), zeros.data());
    });
  }
}

void moveElsewhere(const Handle& file, const std::string& path, const Whole& whole) {
  const Handle creation(H5Pcreate(H5P_DATASET_CREATE), H5Pclose);
  H5Pset_external(creation.id(), "elsewhere", 0, std::max<hsize_t>(whole.bytes.size(), 1));
  replace(file, path, whole.type, extentOf(whole.extent), nullptr, creation.id());
}

Handle otherInteger(const Whole& whole) {
  const bool isLong = H5Tget_class(whole.type.id()) == H5T_INTEGER && whole.rowSize == 8;
  return copyOf(isLong ? H5T_STD_I32LE : H5T_STD_I64LE);
}

}  // namespace

// --- Looking around -----------------------------------------------------------------------------

void stripSeal(const std::string& file) {
  std::ifstream bytes(file, std::ios::binary);
  bytes.seekg(-24, std::ios::end);  // size, checksum, magic
  std::uint64_t size = 0;
  bytes.read(reinterpret_cast<char*>(&size), sizeof size);
  bytes.close();
  std::filesystem::resize_file(file, size);
}

std::vector<std::string> datasetsOf(const std::string& file) {
  std::vector<std::string> paths;
  walkFile(file, [&paths](const std::string& path, hid_t object) {
    if (H5Iget_type(object) == H5I_DATASET) {
      paths.push_back(path);
    }
  });
  return paths;
}

std::vector<AttributePlace> attributesOf(const std::string& file) {
  std::vector<AttributePlace> places;
  walkFile(file, [&places](const std::string& path, hid_t object) {
    std::string name;
    hsize_t next = 0;
    do {
      name = nameFrom([&](char* text, std::size_t size) {
        return H5Aget_name_by_idx(object, ".", H5_INDEX_NAME, H5_ITER_INC, next, text, size,
                                  H5P_DEFAULT);
      });
      if (!name.empty()) {
        places.push_back({path, name});
      }
      ++next;
    } while (!name.empty());
  });
  return places;
}

namespace {

void addNumbers(std::vector<NumberPlace>& places, const std::string& path, hid_t type,
                const std::string& column, std::size_t offset) {
  if (H5Tget_class(type) != H5T_COMPOUND) {
    places.push_back({path, column, offset, H5Tget_size(type)});
    return;
  }
  for (unsigned i = 0; i < static_cast<unsigned>(H5Tget_nmembers(type)); ++i) {
    const Handle member(H5Tget_member_type(type, i), H5Tclose);
    char* name = H5Tget_member_name(type, i);
    addNumbers(places, path, member.id(), column.empty() ? name : column + "." + name,
               offset + H5Tget_member_offset(type, i));
    H5free_memory(name);
  }
}

}  // namespace

std::vector<NumberPlace> numbersOf(const std::string& file) {
  std::vector<NumberPlace> places;
  walkFile(file, [&places](const std::string& path, hid_t object) {
    if (H5Iget_type(object) == H5I_DATASET) {
      const Handle type(H5Dget_type(object), H5Tclose);
      addNumbers(places, path, type.id(), "", 0);
    }
  });
  return places;
}

BytePlace valuesOf(const std::string& file, const std::string& path) {
  const Handle opened = openFile(file, H5F_ACC_RDONLY);
  const Handle dataset = openDataset(opened, path);
  const Handle creation(H5Dget_create_plist(dataset.id()), H5Pclose);
  if (H5Pget_layout(creation.id()) != H5D_CHUNKED) {
    return {H5Dget_offset(dataset.id()), H5Dget_storage_size(dataset.id())};
  }
  const hsize_t first = 0;
  unsigned filters = 0;
  haddr_t begin = 0;
  hsize_t size = 0;
  hdf5(path, "has no chunk",
       [&] { return H5Dget_chunk_info_by_coord(dataset.id(), &first, &filters, &begin, &size); });
  return {begin, size};
}

// --- Damage -------------------------------------------------------------------------------------

void fillNumbers(const std::string& file, const NumberPlace& place, Filling filling) {
  const Handle opened = openFile(file, H5F_ACC_RDWR);
  Whole whole = readWhole(opened, place);
  std::vector<std::byte> number(place.size,
                                filling == Filling::zeros ? std::byte{0} : std::byte{0xFF});
  if (filling == Filling::largest || filling == Filling::millions) {
    number.back() = std::byte{0x7F};
  }
  if (filling == Filling::millions && place.size >= 4) {
    std::fill(number.begin(), number.end(), std::byte{0});
    number[3] = std::byte{1};
  }
  for (std::size_t row = 0; row < whole.rows; ++row) {
    std::copy(
        number.begin(), number.end(),
        whole.bytes.begin() + static_cast<std::ptrdiff_t>(row * whole.rowSize + place.offset));
  }
  writeBack(opened, place.dataset, whole);
}

void setNumber(const std::string& file, const NumberPlace& place, std::uint64_t row,
               std::uint64_t value) {
  const Handle opened = openFile(file, H5F_ACC_RDWR);
  Whole whole = readWhole(opened, place);
  if (whole.rows == 0) {
    return;
  }
  std::byte* const number = whole.bytes.data() + row % whole.rows * whole.rowSize + place.offset;
  std::memcpy(number, &value, std::min(place.size, sizeof value));
  writeBack(opened, place.dataset, whole);
}

void damageDataset(const std::string& file, const std::string& path, DatasetDamage damage) {
  const Handle opened = openFile(file, H5F_ACC_RDWR);
  Whole whole = readWhole(opened, path);
  switch (damage) {
    case DatasetDamage::removed:
      H5Ldelete(opened.id(), path.c_str(), H5P_DEFAULT);
      break;
    case DatasetDamage::group:
      H5Ldelete(opened.id(), path.c_str(), H5P_DEFAULT);
      makeGroup(opened, path);
      break;
    case DatasetDamage::otherWidth:
      replaceByZeros(opened, path, otherInteger(whole), whole);
      break;
    case DatasetDamage::floats:
      replaceByZeros(opened, path, copyOf(H5T_IEEE_F32LE), whole);
      break;
    case DatasetDamage::texts:
      replaceByZeros(opened, path, textType(8), whole);
      break;
    case DatasetDamage::anyTexts:
      replaceByTextsOfAnyLength(opened, path, whole);
      break;
    case DatasetDamage::square:
      replace(opened, path, whole.type, extentOf({whole.rows, 1}), whole.bytes.data());
      break;
    case DatasetDamage::shorter:
    case DatasetDamage::longer:
      resize(opened, path, whole, damage == DatasetDamage::shorter);
      break;
    case DatasetDamage::empty:
      replace(opened, path, whole.type, extentOf({0}), nullptr);
      break;
    case DatasetDamage::nothing:
      replace(opened, path, whole.type, Handle(H5Screate(H5S_NULL), H5Sclose), nullptr);
      break;
    case DatasetDamage::claimsChunks:
      claimChunks(opened, path, whole, hsize_t{1} << 60U, false);
      break;
    case DatasetDamage::claimsOneHeld:
      claimChunks(opened, path, whole, hsize_t{1} << 40U, true);
      break;
    case DatasetDamage::claimsRoom:
      replace(opened, path, whole.type, extentOf({(hsize_t{1} << 62U) / whole.rowSize}), nullptr);
      break;
    case DatasetDamage::elsewhere:
      moveElsewhere(opened, path, whole);
      break;
  }
}

namespace {

/// Makes an attribute in place of another; without a value it is not written.
void replaceAttribute(const std::string& file, const AttributePlace& place, const Handle& type,
                      const Handle& space, const void* value) {
  const Handle opened = openFile(file, H5F_ACC_RDWR);
  const Handle group(H5Gopen2(opened.id(), place.group.c_str(), H5P_DEFAULT), H5Gclose);
  if (H5Aexists(group.id(), place.name.c_str()) > 0) {
    H5Adelete(group.id(), place.name.c_str());
  }
  if (type.id() < 0) {
    return;
  }
  const Handle made(hdf5(place.name, "cannot be made",
                         [&] {
                           return H5Acreate2(group.id(), place.name.c_str(), type.id(), space.id(),
                                             H5P_DEFAULT, H5P_DEFAULT);
                         }),
                    H5Aclose);
  if (value != nullptr) {
    hdf5(place.name, "cannot be written", [&] { return H5Awrite(made.id(), type.id(), value); });
  }
}

}  // namespace

void damageAttribute(const std::string& file, const AttributePlace& place, AttributeDamage damage) {
  const auto replaceBy = [&](const Handle& type, const std::vector<hsize_t>& extent,
                             const void* value) {
    replaceAttribute(file, place, type, extentOf(extent), value);
  };
  const std::int16_t small = 7;
  const std::vector<std::int64_t> five(5, 1);
  const double fraction = 1.5;
  const std::string text = "damaged";
  const char* anyText = text.c_str();
  const std::int64_t largest = INT64_MAX;
  const std::int64_t negative = -1;
  switch (damage) {
    case AttributeDamage::removed:
      return replaceBy(Handle(), {}, nullptr);
    case AttributeDamage::integer:
      return replaceBy(copyOf(H5T_STD_I16LE), {1}, &small);
    case AttributeDamage::integers:
      return replaceBy(copyOf(H5T_STD_I64LE), {5}, five.data());
    case AttributeDamage::fraction:
      return replaceBy(copyOf(H5T_IEEE_F64LE), {1}, &fraction);
    case AttributeDamage::text:
      return replaceBy(textType(text.size()), {}, text.data());
    case AttributeDamage::anyText:
      return replaceBy(textType(H5T_VARIABLE), {}, &anyText);
    case AttributeDamage::nothing:
      return replaceAttribute(file, place, copyOf(H5T_STD_I64LE),
                              Handle(H5Screate(H5S_NULL), H5Sclose), nullptr);
    case AttributeDamage::largest:
      return replaceBy(copyOf(H5T_STD_I64LE), {1}, &largest);
    case AttributeDamage::negative:
      return replaceBy(copyOf(H5T_STD_I64LE), {1}, &negative);
  }
}

void setRootNumbers(const std::string& file, const std::string& name,
                    const std::vector<std::int64_t>& values) {
  replaceAttribute(file, {"/", name}, copyOf(H5T_STD_I64LE), extentOf({values.size()}),
                   values.data());
}

void writeForeignFile(const std::string& file) {
  const Handle made(H5Fcreate(file.c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, H5P_DEFAULT), H5Fclose);
  makeGroup(made, "/somebody's");
}

}  // namespace velto::testing
