// SPDX-License-Identifier: Apache-2.0
//
// writeVtu: the XML part with blanks for the places of the arrays, then the arrays, which fill the
// blanks.

#include "formats/vtu/write_vtu.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "embedded/base/CaseError.h"
#include "formats/vtu/ArrayEncoder.h"
#include "formats/vtu/OutputFile.h"
#include "formats/vtu/PieceCells.h"
#include "formats/vtu/PieceMesh.h"
#include "formats/vtu/fields.h"
#include "formats/vtu/xml_text.h"

namespace velto::vtu {

namespace {

/// An offset and its closing quote fit in.
constexpr std::size_t kBlank = 21;

const std::vector<std::string> kPointArrays = {"node id"};
const std::vector<std::string> kCellArrays = {"zone", "cell id", "partition"};

/// An array that is to be written behind the XML part.
struct Array {
  std::uint64_t bytes = 0;
  std::function<void(ArrayEncoder&)> write;
  std::size_t blank = 0;  // where its offset stands in the XML part
};

/// The XML part, and the arrays that it promises.
class Document {
 public:
  void text(const std::string& text) { xml_ += text; }
  void line(const std::string& text) { xml_ += text + "\n"; }

  /// An array of `count` elements of that many components.
  void array(const std::string& type, const std::string& name, std::size_t components,
             std::uint64_t count, std::function<void(ArrayEncoder&)> write) {
    xml_ += "        <DataArray type=\"" + type + "\" Name=\"" + xmlAttribute(name) + "\"";
    if (components != 1) {
      xml_ += " NumberOfComponents=\"" + std::to_string(components) + "\"";
    }
    xml_ += " format=\"appended\" offset=\"";
    const std::uint64_t bytes = count * components * sizeOf(type);
    arrays_.push_back({bytes, std::move(write), xml_.size()});
    xml_ += std::string(kBlank, ' ') + "/>\n";
  }

  void write(OutputFile& file, unsigned level) const {
    std::uint64_t total = 0;
    for (const Array& array : arrays_) {
      total += array.bytes;
    }
    file.append(xml_);
    const std::uint64_t base = file.position();
    ArrayEncoder encoder(file, level, total);
    for (const Array& array : arrays_) {
      const std::string offset = std::to_string(file.position() - base) + "\"";
      file.patch(array.blank, offset.data(), offset.size());
      encoder.begin(array.bytes);
      array.write(encoder);
      encoder.end();
    }
  }

 private:
  static std::uint64_t sizeOf(const std::string& type) {
    return type == "UInt8" ? 1 : type == "Int32" ? 4 : 8;
  }

  std::string xml_;
  std::vector<Array> arrays_;
};

/// What the file is made of.
struct Content {
  Pieces pieces;
  std::vector<std::unique_ptr<PieceCells>> cells;  // of each piece
  bool hasPartitions = false;
  std::vector<Field> pointFields;
  std::vector<Field> cellFields;
};

bool isLittleEndian() {
  const std::uint16_t one = 1;
  unsigned char first = 0;
  std::memcpy(&first, &one, 1);
  return first == 1;
}

// --- The content ---------------------------------------------------------------------------------

/// All partitions of the first mesh that has cells.
Pieces piecesOf(const memory::Case& source, const std::string& file) {
  static const memory::MeshData kNoData;
  Pieces pieces;
  for (const auto& mesh : source.tables.meshes) {
    const base::MeshKey& key = mesh.first;
    const bool isOther = !pieces.empty() && (key.mesh != pieces.front()->key().mesh ||
                                             key.target != pieces.front()->key().target);
    if (isOther || !hasCells(mesh.second)) {
      continue;
    }
    const auto data = source.data.find(key);
    pieces.push_back(std::make_unique<PieceMesh>(
        file, key, mesh.second, data == source.data.end() ? kNoData : data->second));
  }
  if (pieces.empty()) {
    throw base::CaseError(file + ": no mesh of the case has cells");
  }
  return pieces;
}

/// Whether there are cell partitions. Throws if a zone has them for some of its cells only.
bool checkPartitions(const PieceMesh& piece) {
  bool found = false;
  for (const ZoneSpan& zone : piece.cellZones()) {
    const memory::CellPartitionData* data = piece.data().cellPartitions.find(zone.zone);
    if (data != nullptr && data->partitions.size() < zone.count) {
      piece.fail(zone, "cell", data->partitions.size(), "has no partition");
    }
    found = found || data != nullptr;
  }
  return found;
}

Content contentOf(const memory::Case& source, const std::string& file, bool withFields) {
  Content content;
  content.pieces = piecesOf(source, file);
  for (const auto& piece : content.pieces) {
    content.cells.push_back(std::make_unique<PieceCells>(*piece));
    content.hasPartitions = checkPartitions(*piece) || content.hasPartitions;
  }
  if (withFields) {
    content.pointFields = fieldsOf(source.tables, content.pieces, zoneCategoryNode, kPointArrays);
    content.cellFields = fieldsOf(source.tables, content.pieces, zoneCategoryCell, kCellArrays);
  }
  return content;
}

// --- Arrays --------------------------------------------------------------------------------------

void writeIds(std::uint64_t count, ArrayEncoder& encoder) {
  for (std::uint64_t id = 1; id <= count; ++id) {
    encoder.put(static_cast<std::int64_t>(id));
  }
}

void writePoints(const PieceMesh& piece, ArrayEncoder& encoder) {
  for (const ZoneSpan& zone : piece.nodeZones()) {
    const double* values = piece.coordinates(zone);
    const std::size_t dimension = piece.dimension(zone);
    if (dimension == 3) {
      encoder.put(values, zone.count * 3 * sizeof(double));
      continue;
    }
    for (std::uint64_t i = 0; i < zone.count; ++i) {
      encoder.put(values + i * dimension, dimension * sizeof(double));
      encoder.put(0.0);
    }
  }
}

void writeZoneIds(const PieceMesh& piece, ArrayEncoder& encoder) {
  for (const ZoneSpan& zone : piece.cellZones()) {
    for (std::uint64_t i = 0; i < zone.count; ++i) {
      encoder.put(static_cast<std::int32_t>(zone.zone));
    }
  }
}

void writePartitions(const PieceMesh& piece, ArrayEncoder& encoder) {
  for (const ZoneSpan& zone : piece.cellZones()) {
    const memory::CellPartitionData* data = piece.data().cellPartitions.find(zone.zone);
    for (std::uint64_t i = 0; i < zone.count; ++i) {
      encoder.put(std::int32_t{data == nullptr ? -1 : data->partitions.data()[i]});
    }
  }
}

// --- The XML part --------------------------------------------------------------------------------

/// The ids and names of the cell zones, which the array "zone" refers to.
void addFieldData(const Content& content, Document& document) {
  std::map<int, std::string> names;
  for (const auto& piece : content.pieces) {
    for (const ZoneSpan& zone : piece->cellZones()) {
      names.emplace(zone.zone, piece->tables().zones.at(zone.zone).texts[zoneName].value_or(""));
    }
  }
  std::string ids;
  std::vector<std::string> texts;
  for (const auto& entry : names) {
    ids += (ids.empty() ? "" : " ") + std::to_string(entry.first);
    texts.push_back(entry.second);
  }
  const std::string tuples = "NumberOfTuples=\"" + std::to_string(names.size()) + "\"";
  document.line("    <FieldData>");
  document.line("      <DataArray type=\"Int32\" Name=\"zone ids\" " + tuples +
                " format=\"ascii\">" + ids + "</DataArray>");
  document.line("      <Array type=\"String\" Name=\"zone names\" " + tuples +
                " format=\"ascii\">" + stringCodes(texts) + "</Array>");
  document.line("    </FieldData>");
}

void addFields(const std::vector<Field>& fields, const PieceMesh& piece, std::uint64_t count,
               Document& document) {
  for (const Field& field : fields) {
    document.array("Float64", field.name, field.components, count,
                   [&](ArrayEncoder& encoder) { writeField(field, piece, encoder); });
  }
}

void addCells(const PieceCells& cells, std::uint64_t count, Document& document) {
  document.line("      <Cells>");
  document.array("Int64", "connectivity", 1, cells.connectivitySize(),
                 [&](ArrayEncoder& encoder) { cells.writeConnectivity(encoder); });
  document.array("Int64", "offsets", 1, count,
                 [&](ArrayEncoder& encoder) { cells.writeOffsets(encoder); });
  document.array("UInt8", "types", 1, count,
                 [&](ArrayEncoder& encoder) { cells.writeTypes(encoder); });
  if (cells.hasPolyhedra()) {
    document.array("Int64", "faces", 1, cells.facesSize(),
                   [&](ArrayEncoder& encoder) { cells.writeFaces(encoder); });
    document.array("Int64", "faceoffsets", 1, count,
                   [&](ArrayEncoder& encoder) { cells.writeFaceOffsets(encoder); });
  }
  document.line("      </Cells>");
}

void addPiece(const Content& content, std::size_t index, Document& document) {
  const PieceMesh& piece = *content.pieces[index];
  const std::uint64_t nodes = piece.nodeCount();
  const std::uint64_t cells = piece.cellCount();
  document.line("    <Piece NumberOfPoints=\"" + std::to_string(nodes) + "\" NumberOfCells=\"" +
                std::to_string(cells) + "\">");
  document.line("      <PointData>");
  document.array("Int64", kPointArrays[0], 1, nodes,
                 [nodes](ArrayEncoder& encoder) { writeIds(nodes, encoder); });
  addFields(content.pointFields, piece, nodes, document);
  document.line("      </PointData>");
  document.line("      <CellData>");
  document.array("Int32", kCellArrays[0], 1, cells,
                 [&piece](ArrayEncoder& encoder) { writeZoneIds(piece, encoder); });
  document.array("Int64", kCellArrays[1], 1, cells,
                 [cells](ArrayEncoder& encoder) { writeIds(cells, encoder); });
  if (content.hasPartitions) {
    document.array("Int32", kCellArrays[2], 1, cells,
                   [&piece](ArrayEncoder& encoder) { writePartitions(piece, encoder); });
  }
  addFields(content.cellFields, piece, cells, document);
  document.line("      </CellData>");
  document.line("      <Points>");
  document.array("Float64", "Points", 3, nodes,
                 [&piece](ArrayEncoder& encoder) { writePoints(piece, encoder); });
  document.line("      </Points>");
  addCells(*content.cells[index], cells, document);
  document.line("    </Piece>");
}

}  // namespace

std::vector<std::string> writeVtu(const memory::Case& source, const std::string& file,
                                  const WriteOptions& options) {
  const Content content = contentOf(source, file, options.withFields);
  const unsigned level = std::min(options.compression, 9U);
  Document document;
  document.line("<?xml version=\"1.0\"?>");
  document.line(std::string("<VTKFile type=\"UnstructuredGrid\" version=\"1.0\" byte_order=\"") +
                (isLittleEndian() ? "LittleEndian" : "BigEndian") + "\" header_type=\"UInt64\"" +
                (level == 0 ? "" : " compressor=\"vtkZLibDataCompressor\"") + ">");
  document.line("  <UnstructuredGrid>");
  addFieldData(content, document);
  for (std::size_t piece = 0; piece < content.pieces.size(); ++piece) {
    addPiece(content, piece, document);
  }
  document.line("  </UnstructuredGrid>");
  document.text("  <AppendedData encoding=\"raw\">\n   _");
  OutputFile output(file);
  document.write(output, level);
  output.append("\n  </AppendedData>\n</VTKFile>\n");
  output.finish();
  return options.withFields ? faceVariables(content.pieces) : std::vector<std::string>();
}

}  // namespace velto::vtu
