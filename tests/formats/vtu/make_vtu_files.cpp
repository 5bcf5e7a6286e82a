// SPDX-License-Identifier: Apache-2.0
//
// make-vtu-files FOLDER: the files that vtk_test.py reads, each plain and packed.

#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "embedded/memory/load_case.h"
#include "samples/samples.h"
#include "testing/write_case.h"
#include "tests/formats/vtu/vtu_cases.h"

namespace velto::testing {
namespace {

cases::CasePtr sample(const std::string& name, std::uint64_t cells) {
  const samples::Sample made = samples::findSample(name)->make(cells);
  return memory::loadCase(made.tables, made.arrays);
}

/// Names with characters that mean something in XML, and a variable that both phases have.
cases::CasePtr strangeNames() {
  cases::CasePtr made = cases::withResults();
  made->zone(3).texts[zoneName] = "a<b> & \"c\" \xC3\xA9";
  made->tables.phases[0].name = "w&<ter>";
  made->arrays().variable({2, zoneCategoryCell, "pressure"}).zones[3] =
      memory::Slice<double>(std::vector<double>{7});
  return made;
}

/// Three partitions, of which only the one between has polyhedra.
cases::CasePtr mixedPieces() {
  auto made = std::make_shared<memory::Case>();
  int partition = 0;
  for (const cases::CasePtr& source : {cases::oneHex(), allShapes(), cases::oneHex()}) {
    const base::MeshKey key = {1, targetRestart, partition++};
    made->tables.meshes[key] = source->mesh();
    made->data[key] = source->arrays();
  }
  return made;
}

/// Each case with the name of its files.
std::vector<std::pair<std::string, cases::CasePtr>> allCases() {
  return {{"shapes", allShapes()},
          {"shapes-by-nodes", allShapesByNodes()},
          {"results", cases::withResults()},
          {"two-partitions", cases::withPartitions()},
          {"mixed-pieces", mixedPieces()},
          {"quads", cases::quad2d()},
          {"names", strangeNames()},
          {"box", sample("box", 30000)},
          {"polyhedra", sample("polyhedra", 1000)},
          {"partitions", sample("partitions", 1000)}};
}

/// Writes a case; false with the errors on the standard error if it could not be written.
bool write(const memory::Case& source, const std::string& file, unsigned compression) {
  vtu::VtuConsumer consumer;
  consumer.setFileName(file, dataClassCase);
  consumer.setCompression(compression);
  writeCase(source, consumer);
  const Texts errors = consumer.getErrors(true, true);
  for (const std::string& error : errors) {
    std::cerr << error << "\n";
  }
  return errors.empty();
}

}  // namespace
}  // namespace velto::testing

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make-vtu-files FOLDER\n";
    return 2;
  }
  bool isDone = true;
  for (const auto& entry : velto::testing::allCases()) {
    const std::string file = std::string(argv[1]) + "/" + entry.first;
    isDone = velto::testing::write(*entry.second, file + ".vtu", 0) && isDone;
    isDone = velto::testing::write(*entry.second, file + "-packed.vtu", 6) && isDone;
  }
  return isDone ? 0 : 1;
}
