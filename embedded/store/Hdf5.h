// SPDX-License-Identifier: Apache-2.0
//
// The store's whole knowledge of HDF5: handles that close themselves and thin functions over them.
//
//     Hdf5File     a file that is read or made
//       Group      attributes, tables, texts, other groups
//         Dataset  one row of numbers, contiguous or in chunks
//
// Every function throws base::CaseError with the file, the place and HDF5's own reason. HDF5 itself
// never prints, and is never called by two threads at a time. Objects may outlive the file object
// they came from; HDF5 closes the file with the last of them.

#ifndef VELTO_EMBEDDED_STORE_HDF5_H
#define VELTO_EMBEDDED_STORE_HDF5_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace velto::store {

class NewFile;

/// Owns an HDF5 identifier. 64 bits wide, as hid_t is; negative for none.
class Handle {
 public:
  using Closer = int (*)(std::int64_t id);

  Handle() = default;
  Handle(std::int64_t id, Closer closer) : id_(id), closer_(closer) {}
  Handle(Handle&& other) noexcept
      : id_(std::exchange(other.id_, -1)), closer_(std::exchange(other.closer_, nullptr)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(id_, other.id_);
    std::swap(closer_, other.closer_);
    return *this;
  }
  ~Handle();

  std::int64_t id() const { return id_; }

  /// Closes now; false if HDF5 could not.
  bool close();

 private:
  std::int64_t id_ = -1;
  Closer closer_ = nullptr;
};

/// Types of numbers, all little-endian in the file.
enum class NumberType { int16, int32, uint64, float64 };

std::size_t sizeOf(NumberType type);

/// One column of a table: its name, its place in the row, and its type. A text column is a
/// TextRef; a column with names is an int32 whose values are their positions.
struct Column {
  enum class Type { int32, int64, uint64, text, enumeration };
  const char* name;
  std::size_t offset;
  Type type;
  const char* const* names = nullptr;  ///< Of an enumeration, closed by a null pointer.
};

/// The rows of a table as they lie in memory and in the file, without gaps.
struct TableType {
  std::vector<Column> columns;
  std::size_t rowSize;
};

/// Part of a file: from `begin` up to, not including, `end`.
struct FileRange {
  std::uint64_t begin = 0;
  std::uint64_t end = 0;
};

/// How a dataset's numbers lie in the file.
enum class Storage {
  contiguous,  ///< In one piece: they can be read from the file itself.
  packed,      ///< In chunks, each of them shuffled bytes in one zstd frame.
  other,       ///< In another way that HDF5 knows: only HDF5 reads them.
};

/// Numbers in a row.
class Dataset {
 public:
  /// `rows` numbers, whether or not they are written yet.
  std::uint64_t rows() const { return rows_; }
  Storage storage() const { return storage_; }
  const std::string& where() const { return where_; }

  /// Contiguous: where the first number lies in the file.
  std::uint64_t offset() const { return offset_; }

  /// Chunked: numbers in a chunk, of which the last may be used in part.
  std::uint64_t chunkRows() const { return chunkRows_; }

  /// The parts of the file that hold the numbers.
  std::vector<FileRange> ranges() const;

  /// Copies numbers from and to the file through HDF5.
  void read(std::uint64_t first, std::uint64_t count, void* values) const;
  void write(std::uint64_t first, std::uint64_t count, const void* values);

  /// Chunked: makes it longer; writes and reads the stored bytes of the chunk that begins at a row.
  void extend(std::uint64_t rows);
  void writeChunk(std::uint64_t firstRow, const void* bytes, std::size_t size);
  std::size_t chunkSize(std::uint64_t firstRow) const;
  void readChunk(std::uint64_t firstRow, void* bytes) const;

 private:
  friend class Group;
  Dataset(Handle handle, NumberType type, std::string where)
      : handle_(std::move(handle)), type_(type), where_(std::move(where)) {}

  /// Finds out about extent and storage; refuses what the file cannot hold.
  void examine(std::uint64_t fileSize);
  void examineChunks();

  Handle handle_;
  NumberType type_;
  std::string where_;
  std::uint64_t rows_ = 0;
  Storage storage_ = Storage::other;
  std::uint64_t offset_ = 0;
  std::uint64_t chunkRows_ = 0;
};

/// A folder in a file.
class Group {
 public:
  /// The file and the path: "box.orv: /meshes/0".
  const std::string& where() const { return where_; }
  std::string where(const std::string& name) const;

  bool has(const std::string& name) const;
  Group makeGroup(const std::string& name);
  Group openGroup(const std::string& name) const;
  void remove(const std::string& name);
  void rename(const std::string& from, const std::string& to);

  // Attributes. Numbers are kept as 64-bit integers.
  void setNumbers(const std::string& name, const std::vector<std::int64_t>& values);
  void setCount(const std::string& name, std::uint64_t value);
  void setText(const std::string& name, const std::string& text);
  /// Empty if there is none; throws if it is of another kind.
  std::optional<std::vector<std::int64_t>> numbers(const std::string& name) const;
  std::optional<std::uint64_t> count(const std::string& name) const;
  std::optional<std::string> text(const std::string& name) const;

  // Small datasets, read and written whole. What is empty is not written, and what is not there
  // reads as empty.
  void writeTable(const std::string& name, const TableType& type, const void* rows,
                  std::size_t count);
  std::vector<std::byte> readTable(const std::string& name, const TableType& type) const;
  void writeIntegers(const std::string& name, const std::vector<std::int32_t>& values);
  std::vector<std::int32_t> readIntegers(const std::string& name) const;
  void writeString(const std::string& name, const std::string& text);
  std::string readString(const std::string& name) const;

  // Large ones. `chunkRows` of 0 makes a contiguous dataset of fixed length, whose place in the
  // file is taken at once; otherwise it is packed, starts empty and can be extended.
  Dataset makeDataset(const std::string& name, NumberType type, std::uint64_t rows,
                      std::uint64_t chunkRows);
  Dataset openDataset(const std::string& name, NumberType type) const;

 private:
  friend class Hdf5File;
  Group(Handle handle, std::string where, std::uint64_t fileSize)
      : handle_(std::move(handle)), where_(std::move(where)), fileSize_(fileSize) {}

  /// Reads a small dataset in the type that `typeFor(place, type in the file)` chooses.
  template <class TypeFor>
  std::vector<std::byte> readSmall(const std::string& name, const TypeFor& typeFor) const;

  Handle handle_;
  std::string where_;
  std::uint64_t fileSize_ = 0;  ///< 0 while it is written.
};

/// An HDF5 file.
class Hdf5File {
 public:
  /// Opens for reading. `shown` is the file's name for messages.
  static Hdf5File open(const std::string& file, std::uint64_t size);

  /// Makes a new file in place of what has that name; `shown` is its name for messages.
  static Hdf5File create(const std::string& file, const std::string& shown);

  Group root() const;

  /// Writes out what HDF5 still holds back, and closes. Everything that came from the file has to
  /// be gone.
  void close();

  /// Lets nothing more be written of a new file: it is going to be removed.
  void drop();

 private:
  Hdf5File(Handle handle, std::string shown, std::uint64_t size,
           std::shared_ptr<NewFile> made = nullptr)
      : new_(std::move(made)), handle_(std::move(handle)), shown_(std::move(shown)), size_(size) {}

  std::shared_ptr<NewFile> new_;  ///< Null for a file that is read.
  Handle handle_;
  std::string shown_;
  std::uint64_t size_;
};

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_HDF5_H
