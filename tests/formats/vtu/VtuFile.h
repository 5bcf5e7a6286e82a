// SPDX-License-Identifier: Apache-2.0
//
// VtuFile: reads the VTU files of the tests on its own terms, arrays plain or packed.

#ifndef VELTO_TESTS_FORMATS_VTU_VTU_FILE_H
#define VELTO_TESTS_FORMATS_VTU_VTU_FILE_H

#include <string>
#include <vector>

namespace velto::testing {

/// An array of a file, its values as numbers whatever their type.
struct VtuArray {
  std::string section;  // "Cells", "PointData" ..
  std::string type;
  std::string name;  // as it stands in the file, escaped
  std::size_t components = 1;
  std::vector<double> values;
};

struct VtuPiece {
  std::size_t points = 0;
  std::size_t cells = 0;
  std::vector<VtuArray> arrays;

  /// The values of an array; none if there is no such array.
  std::vector<double> values(const std::string& name) const;
};

struct VtuFile {
  std::string head;  // the tag VTKFile
  std::vector<std::string> fieldData;
  std::vector<VtuPiece> pieces;
};

/// Reads a file; throws std::runtime_error if it is not put together as it should be.
VtuFile readVtu(const std::string& file);

/// What a file holds, a line for each piece and each array: "Cells types UInt8: 12 12".
std::vector<std::string> describe(const VtuFile& file);

/// The volume of each cell of a piece, as VTK's faces of its type bound it. Cells of a plane have
/// areas.
std::vector<double> volumes(const VtuPiece& piece);

}  // namespace velto::testing

#endif  // VELTO_TESTS_FORMATS_VTU_VTU_FILE_H
