// SPDX-License-Identifier: Apache-2.0
//
// The files of the named cases, array by array.

#include <gtest/gtest.h>

#include "tests/formats/vtu/vtu_cases.h"

namespace velto::testing {
namespace {

const std::string kTwoBodiesPoints =
    "Points Points Float64 x 3: 0 0 0 1 0 0 2 0 0 0 1 0 1 1 0 2 1 0 0 0 1 1 0 1 2 0 1 0 1 1 1 1 1 "
    "2 1 1";

struct Row {
  std::string name;
  Texts expected;
};

const std::vector<Row>& rows() {
  static const std::vector<Row> kRows = {
      {"OneHex",
       {"zone ids: 3", "zone names: 102 108 117 105 100 0", "piece of 8 points and 1 cells",
        "PointData node id Int64: 1 2 3 4 5 6 7 8", "CellData zone Int32: 3",
        "CellData cell id Int64: 1",
        "Points Points Float64 x 3: 0 0 0 1 0 0 1 1 0 0 1 0 0 0 1 1 0 1 1 1 1 0 1 1",
        "Cells connectivity Int64: 0 3 7 4 1 2 6 5", "Cells offsets Int64: 8",
        "Cells types UInt8: 12"}},
      {"TwoBodies",
       {"zone ids: 5 6", "zone names: 102 108 117 105 100 0 115 111 108 105 100 0",
        "piece of 12 points and 2 cells", "PointData node id Int64: 1 2 3 4 5 6 7 8 9 10 11 12",
        "CellData zone Int32: 5 6", "CellData cell id Int64: 1 2", kTwoBodiesPoints,
        "Cells connectivity Int64: 1 7 10 4 0 6 9 3 7 1 4 10 8 2 5 11", "Cells offsets Int64: 8 16",
        "Cells types UInt8: 12 12"}},
      {"Quad2d",
       {"zone ids: 4", "zone names: 115 104 101 101 116 0", "piece of 6 points and 2 cells",
        "PointData node id Int64: 1 2 3 4 5 6", "CellData zone Int32: 4 4",
        "CellData cell id Int64: 1 2",
        "Points Points Float64 x 3: 0 0 0 1 0 0 2 0 0 0 1 0 1 1 0 2 1 0",
        "Cells connectivity Int64: 1 4 3 0 4 1 2 5", "Cells offsets Int64: 4 8",
        "Cells types UInt8: 9 9"}},
      {"PostHex",
       {"zone ids: 3", "zone names: 102 108 117 105 100 0", "piece of 8 points and 1 cells",
        "PointData node id Int64: 1 2 3 4 5 6 7 8", "CellData zone Int32: 3",
        "CellData cell id Int64: 1",
        "Points Points Float64 x 3: 0 0 0 1 0 0 1 1 0 0 1 0 0 0 1 1 0 1 1 1 1 0 1 1",
        "Cells connectivity Int64: 0 1 2 3 4 5 6 7", "Cells offsets Int64: 8",
        "Cells types UInt8: 12"}},
      {"WithResults",
       {"zone ids: 3", "zone names: 102 108 117 105 100 0", "piece of 8 points and 1 cells",
        "PointData node id Int64: 1 2 3 4 5 6 7 8",
        "PointData temperature Float64: 280 281 282 283 284 285 286 287",
        "PointData velocity Float64 x 3: 1 0 0 2 0 0 3 0 0 4 0 0 5 0 0 6 0 0 7 0 0 8 0 0",
        "CellData zone Int32: 3", "CellData cell id Int64: 1", "CellData pressure Float64: 101325",
        "CellData fraction Float64: 0.25",
        "Points Points Float64 x 3: 0 0 0 1 0 0 1 1 0 0 1 0 0 0 1 1 0 1 1 1 1 0 1 1",
        "Cells connectivity Int64: 0 3 7 4 1 2 6 5", "Cells offsets Int64: 8",
        "Cells types UInt8: 12"}},
      {"WithPartitions",
       {"zone ids: 3",
        "zone names: 102 108 117 105 100 0",
        "piece of 8 points and 1 cells",
        "PointData node id Int64: 1 2 3 4 5 6 7 8",
        "CellData zone Int32: 3",
        "CellData cell id Int64: 1",
        "CellData partition Int32: 0",
        "Points Points Float64 x 3: 0 0 0 1 0 0 1 1 0 0 1 0 0 0 1 1 0 1 1 1 1 0 1 1",
        "Cells connectivity Int64: 0 1 2 3 4 5 6 7",
        "Cells offsets Int64: 8",
        "Cells types UInt8: 12",
        "piece of 8 points and 1 cells",
        "PointData node id Int64: 1 2 3 4 5 6 7 8",
        "CellData zone Int32: 3",
        "CellData cell id Int64: 1",
        "CellData partition Int32: 1",
        "Points Points Float64 x 3: 1 0 0 2 0 0 2 1 0 1 1 0 1 0 1 2 0 1 2 1 1 1 1 1",
        "Cells connectivity Int64: 0 1 2 3 4 5 6 7",
        "Cells offsets Int64: 8",
        "Cells types UInt8: 12"}},
  };
  return kRows;
}

cases::CasePtr caseOf(const std::string& name) {
  for (const cases::NamedCase& candidate : cases::all()) {
    if (candidate.name == name) {
      return candidate.make();
    }
  }
  return nullptr;
}

TEST(NamedCasesInVtu, AreWrittenPlainAndPacked) {
  for (const Row& row : rows()) {
    SCOPED_TRACE(row.name);
    for (const unsigned compression : {0U, 1U, 9U, 100U}) {
      const Written written(*caseOf(row.name), compression);
      EXPECT_EQ(written.errors(), Texts());
      EXPECT_EQ(written.warnings(), Texts());
      EXPECT_EQ(written.names(), Texts({"case.vtu"}));
      EXPECT_EQ(written.lines(), row.expected);
    }
  }
}

TEST(NamedCasesInVtu, HaveCellsOfPositiveVolume) {
  for (const cases::NamedCase& named : cases::all()) {
    if (named.name == "PostPolyhedron") {
      continue;
    }
    SCOPED_TRACE(named.name);
    const Written written(*named.make());
    EXPECT_EQ(written.errors(), Texts());
    for (const VtuPiece& piece : written.file().pieces) {
      EXPECT_EQ(volumes(piece), std::vector<double>(piece.cells, 1));
    }
  }
}

TEST(NamedCasesInVtu, CannotHoldCellsThatListTheirFaces) {
  const Written written(*cases::postPolyhedron());
  EXPECT_EQ(written.errors(),
            Texts({"Error:\n\tend of writing: case.vtu: mesh 1: zone 3, cell 1: has no nodes, and "
                   "no face knows it",
                   "Error:\n\tend of writing: nothing was written because of the error before"}));
  EXPECT_EQ(written.names(), Texts());
}

TEST(NamedCasesInVtu, AreAFileOfVtk) {
  EXPECT_EQ(Written(*cases::oneHex()).file().head,
            "VTKFile type=\"UnstructuredGrid\" version=\"1.0\" byte_order=\"LittleEndian\" "
            "header_type=\"UInt64\"");
  EXPECT_EQ(Written(*cases::oneHex(), 1).file().head,
            "VTKFile type=\"UnstructuredGrid\" version=\"1.0\" byte_order=\"LittleEndian\" "
            "header_type=\"UInt64\" compressor=\"vtkZLibDataCompressor\"");
}

}  // namespace
}  // namespace velto::testing
