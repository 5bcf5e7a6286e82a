// SPDX-License-Identifier: Apache-2.0
//
// VtuFile: tags by searching for "<", arrays from where their offset says.

#include "tests/formats/vtu/VtuFile.h"

#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <zlib.h>

namespace velto::testing {

namespace {

void require(bool holds, const std::string& what) {
  if (!holds) {
    throw std::runtime_error("bad VTU file: " + what);
  }
}

/// The value of an attribute in a tag, without blanks around it; "" if it is not there.
std::string attribute(const std::string& tag, const std::string& name) {
  const std::size_t at = tag.find(" " + name + "=\"");
  if (at == std::string::npos) {
    return "";
  }
  const std::size_t begin = at + name.size() + 3;
  return tag.substr(begin, tag.find('"', begin) - begin);
}

std::size_t number(const std::string& text) { return std::stoul(text); }

/// The appended part of a file.
class Appended {
 public:
  Appended(std::string bytes, bool isPacked) : bytes_(std::move(bytes)), isPacked_(isPacked) {}

  std::string arrayAt(std::size_t offset) const {
    return isPacked_ ? packedAt(offset) : plainAt(offset);
  }

 private:
  std::uint64_t numberAt(std::size_t offset) const {
    require(offset + 8 <= bytes_.size(), "an array ends early");
    std::uint64_t value = 0;
    std::memcpy(&value, bytes_.data() + offset, 8);
    return value;
  }

  std::string plainAt(std::size_t offset) const {
    const std::uint64_t size = numberAt(offset);
    require(size <= bytes_.size() - offset - 8, "an array ends early");
    return bytes_.substr(offset + 8, size);
  }

  std::string packedAt(std::size_t offset) const {
    const std::uint64_t blocks = numberAt(offset);
    const std::uint64_t blockSize = numberAt(offset + 8);
    const std::uint64_t lastSize = numberAt(offset + 16);
    std::size_t next = offset + 24 + 8 * blocks;
    std::string values;
    for (std::uint64_t i = 0; i < blocks; ++i) {
      const std::uint64_t size = numberAt(offset + 24 + 8 * i);
      require(next + size <= bytes_.size(), "a block ends early");
      std::string block(blockSize, '\0');
      uLongf got = block.size();
      const int result = ::uncompress(reinterpret_cast<Bytef*>(block.data()), &got,
                                      reinterpret_cast<const Bytef*>(bytes_.data() + next), size);
      const bool isShort = i + 1 == blocks && lastSize != 0;
      require(result == Z_OK && got == (isShort ? lastSize : blockSize), "a block is wrong");
      values += block.substr(0, got);
      next += size;
    }
    return values;
  }

  std::string bytes_;
  bool isPacked_;
};

template <class Value>
std::vector<double> numbersIn(const std::string& bytes) {
  std::vector<double> values(bytes.size() / sizeof(Value));
  for (std::size_t i = 0; i < values.size(); ++i) {
    Value value{};
    std::memcpy(&value, bytes.data() + i * sizeof(Value), sizeof(Value));
    values[i] = static_cast<double>(value);
  }
  return values;
}

std::vector<double> valuesIn(const std::string& bytes, const std::string& type) {
  if (type == "UInt8") {
    return numbersIn<std::uint8_t>(bytes);
  }
  if (type == "Int32") {
    return numbersIn<std::int32_t>(bytes);
  }
  require(type == "Int64" || type == "Float64", "type " + type);
  return type == "Int64" ? numbersIn<std::int64_t>(bytes) : numbersIn<double>(bytes);
}

VtuArray arrayOf(const std::string& tag, const std::string& section, const Appended& appended) {
  VtuArray array;
  array.section = section;
  array.type = attribute(tag, "type");
  array.name = attribute(tag, "Name");
  const std::string components = attribute(tag, "NumberOfComponents");
  array.components = components.empty() ? 1 : number(components);
  require(attribute(tag, "format") == "appended", "format of " + array.name);
  array.values = valuesIn(appended.arrayAt(number(attribute(tag, "offset"))), array.type);
  return array;
}

}  // namespace

std::vector<double> VtuPiece::values(const std::string& name) const {
  for (const VtuArray& array : arrays) {
    if (array.name == name) {
      return array.values;
    }
  }
  return {};
}

VtuFile readVtu(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  std::stringstream all;
  all << stream.rdbuf();
  const std::string text = all.str();
  const std::size_t end = text.find("<AppendedData encoding=\"raw\">\n   _");
  const std::string tail = "\n  </AppendedData>\n</VTKFile>\n";
  require(end != std::string::npos && text.size() > tail.size() &&
              text.compare(text.size() - tail.size(), tail.size(), tail) == 0,
          "its frame");
  const std::size_t first = text.find('_', end) + 1;
  const Appended appended(text.substr(first, text.size() - tail.size() - first),
                          text.find(" compressor=\"vtkZLibDataCompressor\"") < end);
  VtuFile result;
  std::string section;
  for (std::size_t at = text.find('<'); at < end; at = text.find('<', at + 1)) {
    const std::string tag = text.substr(at + 1, text.find('>', at) - at - 1);
    const std::string word = tag.substr(0, tag.find_first_of(" /"));
    if (word == "VTKFile") {
      result.head = tag;
    } else if (word == "Piece") {
      result.pieces.emplace_back();
      result.pieces.back().points = number(attribute(tag, "NumberOfPoints"));
      result.pieces.back().cells = number(attribute(tag, "NumberOfCells"));
    } else if (section == "FieldData" && !word.empty()) {
      const std::size_t values = text.find('>', at) + 1;
      result.fieldData.push_back(attribute(tag, "Name") + ": " +
                                 text.substr(values, text.find('<', values) - values));
    } else if (word == "DataArray") {
      result.pieces.back().arrays.push_back(arrayOf(tag, section, appended));
    }
    if (word != "DataArray" && word != "Array" && !word.empty()) {
      section = word;
    } else if (word.empty() && tag == "/FieldData") {
      section.clear();
    }
  }
  return result;
}

std::vector<std::string> describe(const VtuFile& file) {
  std::vector<std::string> lines = file.fieldData;
  for (const VtuPiece& piece : file.pieces) {
    lines.push_back("piece of " + std::to_string(piece.points) + " points and " +
                    std::to_string(piece.cells) + " cells");
    for (const VtuArray& array : piece.arrays) {
      std::ostringstream line;
      line << array.section << " " << array.name << " " << array.type;
      if (array.components != 1) {
        line << " x " << array.components;
      }
      line << ":";
      for (const double value : array.values) {
        line << " " << value;
      }
      lines.push_back(line.str());
    }
  }
  return lines;
}

// --- Volumes -------------------------------------------------------------------------------------

namespace {

using Loop = std::vector<std::size_t>;

/// The faces that VTK gives a cell of a type, outwards.
const std::vector<Loop>& facesOf(int type) {
  static const std::map<int, std::vector<Loop>> kFaces = {
      {10, {{0, 1, 3}, {1, 2, 3}, {2, 0, 3}, {0, 2, 1}}},
      {12, {{0, 4, 7, 3}, {1, 2, 6, 5}, {0, 1, 5, 4}, {3, 7, 6, 2}, {0, 3, 2, 1}, {4, 5, 6, 7}}},
      {13, {{0, 1, 2}, {3, 5, 4}, {0, 3, 4, 1}, {1, 4, 5, 2}, {2, 5, 3, 0}}},
      {14, {{0, 3, 2, 1}, {0, 1, 4}, {1, 2, 4}, {2, 3, 4}, {3, 0, 4}}}};
  return kFaces.at(type);
}

/// Points of a piece by index.
class Points {
 public:
  explicit Points(std::vector<double> values) : values_(std::move(values)) {}

  /// Six times the volume under a loop of points, seen from the origin.
  double under(const Loop& loop) const {
    double sum = 0;
    for (std::size_t i = 2; i < loop.size(); ++i) {
      const double* a = at(loop[0]);
      const double* b = at(loop[i - 1]);
      const double* c = at(loop[i]);
      sum += a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
             a[2] * (b[0] * c[1] - b[1] * c[0]);
    }
    return sum;
  }

  double area(const Loop& loop) const {
    double sum = 0;
    for (std::size_t i = 0; i < loop.size(); ++i) {
      const double* a = at(loop[i]);
      const double* b = at(loop[(i + 1) % loop.size()]);
      sum += a[0] * b[1] - a[1] * b[0];
    }
    return sum / 2;
  }

 private:
  const double* at(std::size_t point) const { return values_.data() + 3 * point; }

  std::vector<double> values_;
};

/// The faces of a polyhedron, which begin at an index of the list.
std::vector<Loop> loopsAt(const std::vector<double>& faces, std::size_t next) {
  std::vector<Loop> loops(static_cast<std::size_t>(faces.at(next++)));
  for (Loop& loop : loops) {
    loop.resize(static_cast<std::size_t>(faces.at(next++)));
    for (std::size_t& point : loop) {
      point = static_cast<std::size_t>(faces.at(next++));
    }
  }
  return loops;
}

}  // namespace

std::vector<double> volumes(const VtuPiece& piece) {
  const Points points(piece.values("Points"));
  const std::vector<double> types = piece.values("types");
  const std::vector<double> offsets = piece.values("offsets");
  const std::vector<double> connectivity = piece.values("connectivity");
  const std::vector<double> faceOffsets = piece.values("faceoffsets");
  std::vector<double> volumes;
  std::size_t begin = 0;
  std::size_t facesBegin = 0;
  for (std::size_t cell = 0; cell < types.size(); ++cell) {
    const auto end = static_cast<std::size_t>(offsets.at(cell));
    Loop nodes;
    for (; begin < end; ++begin) {
      nodes.push_back(static_cast<std::size_t>(connectivity.at(begin)));
    }
    const int type = static_cast<int>(types[cell]);
    if (type < 10) {
      volumes.push_back(points.area(nodes));
      continue;
    }
    double sum = 0;
    if (type == 42) {
      for (const Loop& loop : loopsAt(piece.values("faces"), facesBegin)) {
        sum += points.under(loop);
      }
      facesBegin = static_cast<std::size_t>(faceOffsets.at(cell));
    } else {
      for (const Loop& face : facesOf(type)) {
        Loop loop;
        for (const std::size_t corner : face) {
          loop.push_back(nodes.at(corner));
        }
        sum += points.under(loop);
      }
    }
    volumes.push_back(sum / 6);
  }
  return volumes;
}

}  // namespace velto::testing
