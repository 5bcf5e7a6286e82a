// SPDX-License-Identifier: Apache-2.0
//
// Damage to a store file that needs HDF5: its datasets, the columns of its tables, its attributes.
//
// A file that was changed counts as damaged as a whole as long as its seal is there: strip it, and
// the reader has to find out by itself. Failures of these helpers are thrown.

#ifndef VELTO_TESTS_STORE_HDF5_DAMAGE_H
#define VELTO_TESTS_STORE_HDF5_DAMAGE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace velto::testing {

/// Cuts off what stands behind the end of the HDF5 file.
void stripSeal(const std::string& file);

/// The paths of all datasets, such as "/meshes/0/zones", in the order of their names.
std::vector<std::string> datasetsOf(const std::string& file);

/// An attribute of a group.
struct AttributePlace {
  std::string group;
  std::string name;
};
std::vector<AttributePlace> attributesOf(const std::string& file);

/// A number in each row of a dataset: a column of a table with its path ("name.first"), or the row
/// itself, which has no name, of what is no table.
struct NumberPlace {
  std::string dataset;
  std::string column;
  std::size_t offset = 0;
  std::size_t size = 0;
};
std::vector<NumberPlace> numbersOf(const std::string& file);

/// The bytes that take the place of a number.
enum class Filling {
  ones,      ///< All bits are set.
  zeros,     ///< None is.
  largest,   ///< The largest that there is with a sign.
  millions,  ///< 2^24, or the largest where that is too much.
};

/// Puts a filling in place of a number, in each row.
void fillNumbers(const std::string& file, const NumberPlace& place, Filling filling);

/// Puts `value`, or as many of its low bytes as there are, in place of a number in one row, counted
/// round and round; nothing where there is no row.
void setNumber(const std::string& file, const NumberPlace& place, std::uint64_t row,
               std::uint64_t value);

/// What is done to a dataset, which has numbers, rows of a table or one text.
enum class DatasetDamage {
  removed,
  group,          ///< A group takes the name.
  otherWidth,     ///< Integers of a width that it did not have.
  floats,         ///< Numbers with 32 bits and a fraction.
  texts,          ///< Texts of eight bytes.
  anyTexts,       ///< Texts of any length.
  square,         ///< The same in two dimensions.
  shorter,        ///< One row, or half of a text, less.
  longer,         ///< One row, or eight bytes of a text, more.
  empty,          ///< No rows.
  nothing,        ///< The extent of nothing at all.
  claimsChunks,   ///< 2^60 rows in chunks of which none is there.
  claimsOneHeld,  ///< 2^40 rows in chunks of which one is there.
  claimsRoom,     ///< 2^62 bytes of rows in one piece that has no place.
  elsewhere,      ///< The rows stand in another file, "elsewhere", beside this one.
};

/// What is done to an attribute.
enum class AttributeDamage {
  removed,
  integer,   ///< One integer of 16 bits, 7.
  integers,  ///< Five integers.
  fraction,  ///< One number with a fraction.
  text,      ///< One text, "damaged".
  anyText,   ///< The same, of any length.
  nothing,   ///< The extent of nothing at all.
  largest,   ///< One integer, the largest with a sign.
  negative,  ///< One integer, -1.
};

/// A damage with its name for messages.
template <class Damage>
struct Named {
  std::string name;
  Damage damage;
};
const std::vector<Named<DatasetDamage>>& datasetDamages();
const std::vector<Named<AttributeDamage>>& attributeDamages();
const std::vector<Named<Filling>>& fillings();

void damageDataset(const std::string& file, const std::string& path, DatasetDamage damage);
void damageAttribute(const std::string& file, const AttributePlace& place, AttributeDamage damage);

/// Puts `count` 64-bit integers in place of an attribute of the root, such as the layout's version.
void setRootNumbers(const std::string& file, const std::string& name,
                    const std::vector<std::int64_t>& values);

/// Where the values of a dataset stand in the file: of one in chunks, those of its first chunk.
struct BytePlace {
  std::uint64_t begin = 0;
  std::uint64_t size = 0;
};
BytePlace valuesOf(const std::string& file, const std::string& path);

/// Makes an HDF5 file that is no store file.
void writeForeignFile(const std::string& file);

}  // namespace velto::testing

#endif  // VELTO_TESTS_STORE_HDF5_DAMAGE_H
