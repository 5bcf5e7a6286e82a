// SPDX-License-Identifier: Apache-2.0
//
// CaseComparison: in what a copy differs from its source, array by array.

#ifndef VELTO_ORV_CASE_COMPARISON_H
#define VELTO_ORV_CASE_COMPARISON_H

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "data_access/OrvFileProvider.h"
#include "data_access/families.h"

#include "orv/Selection.h"

namespace velto::orv {

/// Reads two cases side by side through the contract, one zone at a time, and keeps a line for each
/// difference:
///
///     mesh 1, restart: face zone 3 'walls': 2 of 96 node ids differ, the first at 17: 4 and 5
///
/// What a copy does not carry is not compared: links between zones, names of zone types, zone
/// properties, cell faces, shadow faces, the face tree, and zones of a family that the tables do
/// not know.
class CaseComparison {
 public:
  /// Both outlive the comparison; their selections are changed.
  CaseComparison(OrvFileProvider& source, OrvFileProvider& copy) : source_(source), copy_(copy) {}

  /// Has `hook` called before each array, for a program that wants to show how far it is, or stop.
  void onArray(std::function<void()> hook) { hook_ = std::move(hook); }

  /// Sizes, units, zone tables, coordinates and connectivity of a mesh, which the copy has as
  /// `inCopy`.
  void compareMesh(const Selection& inSource, const Selection& inCopy);

  /// The field data of all phases that have a name.
  void compareResults(const Selection& inSource, const Selection& inCopy);

  /// The location model, with the zones of one mesh. A source without one has nothing to compare.
  void compareModel(int mesh);

  /// The settings of the source, and what stands for them below the solver type of the copy.
  void compareSettings();

  /// The differences so far. The first kMostKept are kept, the others only counted.
  const std::vector<std::string>& differences() const { return differences_; }
  std::size_t differenceCount() const { return count_; }

  static constexpr std::size_t kMostKept = 100;

 private:
  /// A thing as the source has it, and as the copy has it.
  template <class Thing>
  using Both = std::pair<Thing, Thing>;

  void select(const Selection& inSource, const Selection& inCopy);
  void differs(const std::string& what);

  /// What an operation gives for both cases.
  template <class Operation>
  auto both(const Operation& operation);
  template <class Thing>
  void compare(const std::string& what, const Both<Thing>& things);
  template <class Value>
  void compareArrays(const std::string& where, const std::string& what,
                     const Both<std::vector<Value>>& arrays);

  /// The zones of both that a family lists, after comparing the lists.
  std::vector<int> zonesOf(const std::string& family, const Both<std::vector<int>>& listed);
  std::string label(int zone) const;
  void arrayBegins();

  void compareSizes();
  void compareZones(OrvZoneCategory category);
  void compareZone(OrvZoneCategory category, int zone);
  void compareCoordinates();
  void compareCounted(const std::string& element, const CountedReadFamily& family);
  void compareSide(const std::string& what, const SideReadFamily& side);
  void compareCellTypes();
  void comparePartitions();

  void comparePhaseTexts(short inSource, short inCopy);
  void compareVariables(OrvZoneCategory category);
  void compareVariableTexts(const std::string& name);
  void compareValues(OrvZoneCategory category, const std::string& name);

  OrvFileProvider& source_;
  OrvFileProvider& copy_;
  std::function<void()> hook_;
  std::string place_;    // stands before each line
  std::set<int> known_;  // the zones of the mesh that is being compared
  std::vector<std::string> differences_;
  std::size_t count_ = 0;
};

}  // namespace velto::orv

#include "orv/case_comparison_values.h"

#endif  // VELTO_ORV_CASE_COMPARISON_H
