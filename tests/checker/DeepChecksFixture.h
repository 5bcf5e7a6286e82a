// SPDX-License-Identifier: Apache-2.0
//
// DeepChecksFixture: single deep checks on meshes that a test writes down by what they look at.

#ifndef VELTO_TESTS_CHECKER_DEEP_CHECKS_FIXTURE_H
#define VELTO_TESTS_CHECKER_DEEP_CHECKS_FIXTURE_H

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "embedded/memory/CaseBuilder.h"
#include "tests/checker/CheckerFixture.h"

namespace velto::testing {

using memory::Ids;

constexpr std::uint64_t kLargestId = std::numeric_limits<std::uint64_t>::max();

/// A mesh that is known by the types of its cells (zone 3) and by the cells beside its faces (zone
/// 2) alone; side 1 is stored if it is not empty.
cases::CasePtr facesAndTypes(int dimension, const std::vector<int>& types, const Ids& side0,
                             const Ids& side1 = {});

/// A cell of a type and the nodes of its faces, the nodes counted from 1.
struct CellForm {
  const char* name;
  int type;
  std::uint64_t nodeCount;
  std::vector<Ids> faces;
};

/// A face zone and a cell zone for each form, one cell each with nodes of its own: the face zones
/// 11, 12, ..., the cell zones 31, 32, ...
cases::CasePtr cellsOfForms(int dimension, const std::vector<CellForm>& forms, bool withCellNodes);

/// Puts the cells beside the faces of a zone in the place of those that were there.
void setCells(memory::Case& changed, int side, int zone, const Ids& cells);

/// Gives a zone another range of ids.
void setRange(memory::Case& changed, int zone, std::uint64_t first, std::uint64_t last);

/// Tells of each family that is opened what stood in the list that it got: "beginFaceCell1 [2, 3]".
/// The second list of the face tree has a line of its own.
class ListWatch : public ScriptedProvider {
 public:
  /// `given` outlives the last call.
  ListWatch(cases::CasePtr served, Transcript& given);

  void beginFaceNodes(std::vector<int>& zoneIds) override;
  void beginFaceCell0(std::vector<int>& zoneIds) override;
  void beginFaceCell1(std::vector<int>& zoneIds) override;
  void beginFaceShadows(std::vector<int>& zoneIds) override;
  void beginFaceTree(std::vector<int>& parentZoneIds, std::vector<int>& childZoneIds) override;
  void beginCellTypes(std::vector<int>& zoneIds) override;
  void beginCellNodes(std::vector<int>& zoneIds) override;

 private:
  void tell(const std::string& operation, const std::vector<int>& list);

  Transcript& given_;
};

class DeepChecksFixture : public ZoneChecksFixture {
 protected:
  /// What one step gives on a case: its answer, and both streams while it runs.
  CheckResult run(const cases::CasePtr& served, Step step);

  /// The lists that the families of a step get.
  Transcript listsGiven(const cases::CasePtr& served, Step step);
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_CHECKER_DEEP_CHECKS_FIXTURE_H
