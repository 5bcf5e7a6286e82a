// SPDX-License-Identifier: Apache-2.0
//
// A mesh with cells of every shape, and what becomes of a case that is written.

#ifndef VELTO_TESTS_FORMATS_VTU_VTU_CASES_H
#define VELTO_TESTS_FORMATS_VTU_VTU_CASES_H

#include <string>
#include <vector>

#include "formats/vtu/VtuConsumer.h"
#include "testing/TempFolder.h"
#include "testing/cases.h"
#include "tests/formats/vtu/VtuFile.h"

namespace velto::testing {

using Texts = std::vector<std::string>;

/// A hexahedron (cell 1) with a pyramid (2) on it, a wedge (3) at its right, a tetrahedron (4)
/// between these and a prism over a pentagon (5) at its left: face zones 2 "inside" (4) and 3
/// "walls" (19), cell zones 4 "solids" (4, mixed) and 5 "prism" (1). Cells are known by their
/// faces.
cases::CasePtr allShapes();

/// The same, of which the cells of zone 4 have nodes of their own, and the faces know the prism
/// only.
cases::CasePtr allShapesByNodes();

/// Adds a phase to the results of a case.
void addPhase(memory::Case& target, short id, const std::string& name);

/// A case through the contract into a file of a folder.
class Written {
 public:
  explicit Written(const memory::Case& source, unsigned compression = 0);

  std::string path() const { return folder_.path("case.vtu"); }
  VtuFile file() const { return readVtu(path()); }
  Texts lines() const { return describe(file()); }

  /// Messages that are pending, the folder's name left out.
  const Texts& errors() const { return errors_; }
  const Texts& warnings() const { return warnings_; }

  /// The names of all that is in the folder.
  Texts names() const;

 private:
  TempFolder folder_;
  Texts errors_;
  Texts warnings_;
};

/// Texts with a folder's name left out.
Texts without(const std::string& folder, Texts texts);

}  // namespace velto::testing

#endif  // VELTO_TESTS_FORMATS_VTU_VTU_CASES_H
