// SPDX-License-Identifier: Apache-2.0
//
// Writes polyMesh folders: an output file with a buffer, the forms of a list, and the files.

#include "testing/PolyMeshWriter.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <zlib.h>

namespace velto::testing {

namespace {

constexpr std::size_t kBufferBytes = 1024 * std::size_t{1024};

// A file that is written from its beginning to its end, gzipped if so wished.
class OutputFile {
 public:
  OutputFile(const std::string& path, bool gzip) : path_(path) {
    std::filesystem::remove(path);
    std::filesystem::remove(path + ".gz");
    path_ += gzip ? ".gz" : "";
    if (gzip) {
      packed_.reset(gzopen(path_.c_str(), "wb1"));
    } else {
      plain_.open(path_, std::ios::binary);
    }
    if (gzip ? packed_ == nullptr : !plain_) {
      fail();
    }
    buffer_.reserve(kBufferBytes + 256);
  }

  void text(std::string_view text) {
    buffer_ += text;
    flushIfFull();
  }

  void label(std::int64_t value) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
    text({digits, static_cast<std::size_t>(end - digits)});
  }

  void real(double value, int precision) {
    char digits[64];
    char* const last = digits + sizeof(digits);
    const auto end =
        precision == 0
            ? std::to_chars(digits, last, value).ptr
            : std::to_chars(digits, last, value, std::chars_format::general, precision).ptr;
    text({digits, static_cast<std::size_t>(end - digits)});
  }

  // The bytes of a number, least significant first like those of this machine.
  template <class Number>
  void raw(Number value) {
    text({reinterpret_cast<const char*>(&value), sizeof(value)});
  }

  void close() {
    flush();
    if (packed_ != nullptr && gzclose(packed_.release()) != Z_OK) {
      fail();
    }
    plain_.flush();
    if (!plain_) {
      fail();
    }
  }

 private:
  struct ClosePacked {
    void operator()(gzFile file) const { gzclose(file); }
  };

  void flushIfFull() {
    if (buffer_.size() >= kBufferBytes) {
      flush();
    }
  }

  void flush() {
    const auto size = static_cast<unsigned>(buffer_.size());
    if (packed_ == nullptr) {
      plain_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    } else if (size > 0 && gzwrite(packed_.get(), buffer_.data(), size) == 0) {
      fail();
    }
    buffer_.clear();
  }

  [[noreturn]] void fail() const { throw std::runtime_error(path_ + ": cannot be written"); }

  std::string path_;
  std::ofstream plain_;
  std::unique_ptr<gzFile_s, ClosePacked> packed_;
  std::string buffer_;
};

// One file of the folder: its header, and lists in the form that the options ask for.
class MeshFile {
 public:
  MeshFile(const std::string& folder, const std::string& name, const WriteOptions& options)
      : options_(options), name_(name), out_(folder + "/" + name, isGzipped(name, options)) {}

  OutputFile& out() { return out_; }

  void header(const std::string& objectClass, bool binary, const std::string& note = {}) {
    out_.text("/* A mesh for tests. */\nFoamFile\n{\n");
    if (options_.version) {
      out_.text("    version     2.0;\n");
    }
    out_.text(binary ? "    format      binary;\n" : "    format      ascii;\n");
    comment();
    out_.text("    class       " + objectClass + ";\n");
    if (binary && options_.arch) {
      out_.text("    arch        \"LSB;label=" + std::to_string(options_.labelBits) +
                ";scalar=" + std::to_string(options_.scalarBits) + "\";\n");
    }
    if (options_.note && !note.empty()) {
      out_.text("    note        \"" + note + "\";\n");
    }
    out_.text("    location    \"constant/polyMesh\";\n    object      " + name_ + ";\n}\n");
    out_.text("// * * * //\n\n");
  }

  // Labels given one by one: `labelAt(i)` for i < count.
  template <class LabelAt>
  void labels(std::size_t count, LabelAt labelAt) {
    bool equal = !options_.binary && options_.equalInBraces && count > 1;
    for (std::size_t i = 1; equal && i < count; ++i) {
      equal = labelAt(i) == labelAt(0);
    }
    if (equal) {
      out_.label(static_cast<std::int64_t>(count));
      out_.text("{");
      out_.label(labelAt(0));
      return out_.text("}");
    }
    list(count, [&](std::size_t i) { label(labelAt(i)); });
  }

  void labels(const std::vector<std::int64_t>& values) {
    labels(values.size(), [&](std::size_t i) { return values[i]; });
  }

  // A list whose entries `write(i)` writes, binary if the options say so.
  template <class Write>
  void list(std::size_t count, Write write) {
    if (!options_.binary) {
      return textList(count, write);
    }
    out_.label(static_cast<std::int64_t>(count));
    if (count == 0 && options_.emptyAsZero) {
      return out_.text("\n");
    }
    out_.text("\n(");
    for (std::size_t i = 0; i < count; ++i) {
      write(i);
    }
    out_.text(")");
  }

  template <class Write>
  void textList(std::size_t count, Write write) {
    if (options_.counts || count == 0) {
      out_.label(static_cast<std::int64_t>(count));
    }
    if (count == 0) {
      return out_.text(options_.emptyAsZero ? "" : "()");
    }
    const char* const separator = options_.oneLine ? " " : "\n";
    out_.text(options_.oneLine ? "(" : "\n(\n");
    for (std::size_t i = 0; i < count; ++i) {
      if (i % 3 == 1) {
        comment();
      }
      write(i);
      out_.text(i + 1 < count || !options_.oneLine ? separator : "");
    }
    out_.text(")");
  }

  void label(std::int64_t value) {
    if (!options_.binary) {
      out_.label(value);
    } else if (options_.labelBits == 64) {
      out_.raw(value);
    } else {
      out_.raw(static_cast<std::int32_t>(value));
    }
  }

  void scalar(double value) {
    if (!options_.binary) {
      out_.real(value, options_.digits);
    } else if (options_.scalarBits == 64) {
      out_.raw(value);
    } else {
      out_.raw(static_cast<float>(value));
    }
  }

  void close() {
    out_.text("\n\n// *** //\n");
    out_.close();
  }

 private:
  static bool isGzipped(const std::string& name, const WriteOptions& options) {
    const auto& some = options.gzipFiles;
    return (options.gzip && name != "boundary") ||
           std::find(some.begin(), some.end(), name) != some.end();
  }

  void comment() {
    if (options_.comments) {
      out_.text(++comments_ % 2 == 0 ? " // one ) of ( two\n" : " /* 1 ** ( / */ ");
    }
  }

  const WriteOptions& options_;
  std::string name_;
  OutputFile out_;
  int comments_ = 0;
};

void writePoints(const std::string& folder, const BoxMesh& mesh, const WriteOptions& options) {
  MeshFile file(folder, "points", options);
  file.header("vectorField", options.binary);
  file.list(mesh.points.size() / 3, [&](std::size_t i) {
    const char* separator = "(";
    for (std::size_t k = 3 * i; k < 3 * i + 3; ++k) {
      file.out().text(options.binary ? "" : separator);
      file.scalar(mesh.points[k]);
      separator = " ";
    }
    file.out().text(options.binary ? "" : ")");
  });
  file.close();
}

void writeFaceList(MeshFile& file, const BoxMesh& mesh, const WriteOptions& options) {
  file.textList(mesh.faceOffsets.size() - 1, [&](std::size_t i) {
    const auto first = static_cast<std::size_t>(mesh.faceOffsets[i]);
    const auto last = static_cast<std::size_t>(mesh.faceOffsets[i + 1]);
    if (options.counts || options.binary) {
      file.out().label(static_cast<std::int64_t>(last - first));
    }
    file.out().text("(");
    for (std::size_t k = first; k < last; ++k) {
      file.out().text(k == first || options.binary ? "" : " ");
      file.label(mesh.faceNodes[k]);
    }
    file.out().text(")");
  });
}

void writeFaces(const std::string& folder, const BoxMesh& mesh, const WriteOptions& options) {
  MeshFile file(folder, "faces", options);
  const bool compact = options.binary && options.compactFaces;
  file.header(compact ? "faceCompactList" : "faceList", options.binary);
  if (compact) {
    file.labels(mesh.faceOffsets);
    file.out().text("\n\n");
    file.labels(mesh.faceNodes);
  } else {
    writeFaceList(file, mesh, options);
  }
  file.close();
}

void writeSides(const std::string& folder, const BoxMesh& mesh, const WriteOptions& options) {
  const std::string note = "nPoints:" + std::to_string(mesh.pointCount()) +
                           "  nCells:" + std::to_string(mesh.cellCount) +
                           "  nFaces:" + std::to_string(mesh.faceCount()) +
                           "  nInternalFaces:" + std::to_string(mesh.neighbour.size());
  MeshFile owner(folder, "owner", options);
  owner.header("labelList", options.binary, note);
  owner.labels(mesh.owner);
  owner.close();

  MeshFile neighbour(folder, "neighbour", options);
  neighbour.header("labelList", options.binary, note);
  const std::size_t internal = mesh.neighbour.size();
  const std::size_t count = options.padNeighbour ? mesh.owner.size() : internal;
  neighbour.labels(count, [&](std::size_t i) { return i < internal ? mesh.neighbour[i] : -1; });
  neighbour.close();
}

void writeBoundary(const std::string& folder, const BoxMesh& mesh, const WriteOptions& options) {
  MeshFile file(folder, "boundary", options);
  file.header("polyBoundaryMesh", options.binary);
  file.textList(mesh.patches.size(), [&](std::size_t i) {
    const BoxPatch& patch = mesh.patches[i];
    std::string text = patch.name + " { type " + patch.type + "; ";
    for (const auto& [keyword, value] : patch.extra) {
      text.append(keyword).append(" ").append(value);
      text += value.back() == '}' ? " " : "; ";
    }
    file.out().text(text + "nFaces " + std::to_string(patch.faceCount) + "; startFace " +
                    std::to_string(patch.firstFace) + "; }");
  });
  file.close();
}

void writeFlips(MeshFile& file, const std::vector<bool>& flips, const WriteOptions& options) {
  file.out().text("flipMap List<bool> ");
  file.list(flips.size(), [&](std::size_t i) {
    if (options.binary) {
      file.out().raw(static_cast<char>(flips[i] ? 1 : 0));
    } else if (options.flipsAsWords) {
      file.out().text(flips[i] ? "true" : "false");
    } else {
      file.out().text(flips[i] ? "1" : "0");
    }
  });
  file.out().text(";\n");
}

void writeZones(const std::string& folder, const std::string& name, const std::string& element,
                const std::vector<BoxZone>& zones, const WriteOptions& options) {
  if (zones.empty()) {
    return;
  }
  MeshFile file(folder, name, options);
  file.header("regIOobject", options.binary);
  file.textList(zones.size(), [&](std::size_t i) {
    file.out().text(zones[i].name + "\n{\ntype " + element + "Zone;\n");
    file.out().text(element + "Labels List<label> ");
    file.labels(zones[i].labels);
    file.out().text(";\n");
    if (zones[i].oriented) {
      writeFlips(file, zones[i].flipMap, options);
    }
    file.out().text("}");
  });
  file.close();
}

}  // namespace

void writePolyMesh(const std::string& folder, const BoxMesh& mesh, const WriteOptions& options) {
  std::filesystem::create_directories(folder);
  writePoints(folder, mesh, options);
  writeFaces(folder, mesh, options);
  writeSides(folder, mesh, options);
  writeBoundary(folder, mesh, options);
  writeZones(folder, "cellZones", "cell", mesh.cellZones, options);
  writeZones(folder, "faceZones", "face", mesh.faceZones, options);
}

void writeTextFile(const std::string& file, const std::string& text, bool gzip) {
  OutputFile out(file, gzip);
  out.text(text);
  out.close();
}

}  // namespace velto::testing
