// SPDX-License-Identifier: Apache-2.0
//
// ConnectivityFixture: lists of nodes and faces that a test writes down, and one step over them.

#ifndef VELTO_TESTS_CHECKER_CONNECTIVITY_FIXTURE_H
#define VELTO_TESTS_CHECKER_CONNECTIVITY_FIXTURE_H

#include <cstdint>
#include <optional>
#include <vector>

#include "embedded/base/Family.h"
#include "embedded/memory/CaseBuilder.h"
#include "tests/checker/CheckerFixture.h"

namespace velto::testing {

/// What a zone says of its elements, true or not.
struct ZoneLists {
  int zone = 0;
  std::uint64_t elements = 0;
  std::optional<short> uniform;
  std::vector<short> counts;
  memory::Ids ids;
};

/// Lists the faces or cells of a case as these zones have them; those of the family's kind that the
/// case had are gone. The sizes of the mesh stay as they are.
void setLists(memory::Case& changed, base::Family family, const std::vector<ZoneLists>& zones);

/// oneHex() with other lists of nodes of its faces, all of them zones of the mesh.
cases::CasePtr withFaceNodes(const std::vector<ZoneLists>& zones);

/// Lists whose length no memory suffices for: a negative count of all elements, counts with a
/// negative sum, and counts whose sum wraps to a negative one.
std::vector<ZoneLists> listsThatCannotBeHad(int zone);

/// The rows of two tables as one.
template <class Row>
std::vector<Row> joined(std::vector<Row> first, const std::vector<Row>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

class ConnectivityFixture : public CheckerFixture {
 protected:
  /// Opens a case and runs one step at a verbosity, with both streams captured.
  CheckResult run(const cases::CasePtr& opened, Step step, int verbosity = 1);

  /// Whether a step on what is open ends in an exception for want of memory.
  bool wantsMemory(Step step);

  /// Checks a sound case at level 2, and expects that no error stands in the list.
  void expectToBeUsable();
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_CHECKER_CONNECTIVITY_FIXTURE_H
