// SPDX-License-Identifier: Apache-2.0
//
// make-named-case: writes a case in which everything has one name, for the tests of names.

#include <exception>
#include <iostream>
#include <string>

#include "embedded/memory/CaseBuilder.h"
#include "embedded/memory/LocationModelWriter.h"
#include "embedded/memory/MemoryProvider.h"
#include "embedded/store/save_case.h"
#include "testing/Row.h"

namespace velto {
namespace {

/// A hexahedron with a model, physics and results. The cell zone, the part, its body, the domain,
/// the phase and the variable have the name; faces and what lies on them have an "F" in front.
std::shared_ptr<memory::Case> makeNamedCase(const std::string& name) {
  const std::string ofFaces = "F" + name;
  const testing::cases::Row row(1);
  auto made = memory::CaseBuilder()
                  .units("m")
                  .nodes(1, name, row.points())
                  .faces(2, ofFaces, base::boundaryWall, row.walls(1, 1))
                  .cells(3, name, base::cellShapeHexahedron, 1)
                  .phase(1, name)
                  .variable(1, zoneCategoryCell, name, 3, 1, {1.5})
                  .setting("domains/" + name + "/location", name)
                  .setting("boundaries/" + ofFaces + "/location", ofFaces)
                  .setting("boundaries/" + ofFaces + "/domain", name)
                  .build();
  memory::LocationModelWriter model;
  model.part(name);
  const int body = model.body(name, {3});
  model.use(body, model.face(ofFaces), 0, {2}, ofFaces);
  model.composite({"C" + name, {body}, {}, {}});
  made->tables.locationModel = model.take();
  return made;
}

}  // namespace
}  // namespace velto

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: make-named-case FILE NAME\n";
    return 2;
  }
  try {
    const std::string file = argv[1];
    const auto made = velto::makeNamedCase(argv[2]);
    velto::store::saveCase(made->tables, velto::memory::arraysOf(made), file, 0);
    velto::store::saveResults(made->tables, velto::memory::arraysOf(made), file + "r", 0);
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
  return 0;
}
