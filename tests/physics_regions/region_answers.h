// SPDX-License-Identifier: Apache-2.0
//
// What a resolver answers to a query, as text, so that rows of tests can hold it.

#ifndef VELTO_TESTS_PHYSICS_REGIONS_REGION_ANSWERS_H
#define VELTO_TESTS_PHYSICS_REGIONS_REGION_ANSWERS_H

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "velto/PhysicsRegionResolver.h"

#include "embedded/base/call_text.h"

namespace velto::testing {

/// Asks something of a region: "true [2, 3]", "true 'water'", "false ''". Outputs hold something
/// before, so that an answer shows whether they were emptied.
using Ask =
    std::function<std::string(const PhysicsRegionResolver& resolver, const std::string& region)>;

struct QueryRow {
  std::string name;
  Ask ask;
  std::string region;
  std::string answer;
  /// What is recorded; empty for nothing.
  std::string error;

  friend std::ostream& operator<<(std::ostream& out, const QueryRow& row) {
    return out << row.name;
  }
};

namespace answers {

inline void fill(std::string& output) { output = "left over"; }
inline void fill(std::vector<int>& output) { output = {-1, -1}; }
inline void fill(std::vector<std::string>& output) { output = {"left over"}; }

inline std::string textOf(const std::string& output) { return " '" + output + "'"; }
template <class Value>
std::string textOf(const std::vector<Value>& output) {
  return " " + base::argumentText(output);
}

template <class... Outputs>
std::string answerText(bool good, const Outputs&... outputs) {
  return (good ? "true" : "false") + (std::string() + ... + textOf(outputs));
}

template <class Output>
Ask query(bool (PhysicsRegionResolver::*operation)(const std::string&, Output&) const) {
  return [operation](const PhysicsRegionResolver& resolver, const std::string& region) {
    Output output;
    fill(output);
    const bool good = (resolver.*operation)(region, output);
    return answerText(good, output);
  };
}

}  // namespace answers

inline const Ask kBodies = answers::query(&PhysicsRegionResolver::bodies);
inline const Ask kFaceUses = answers::query(&PhysicsRegionResolver::faceUses);
inline const Ask kBulkZones = answers::query(&PhysicsRegionResolver::bulkZones);
inline const Ask kZoneSides = answers::query(&PhysicsRegionResolver::zoneSides);
inline const Ask kLocation = answers::query(&PhysicsRegionResolver::regionLocation);
inline const Ask kBounding = answers::query(&PhysicsRegionResolver::bounding);
inline const Ask kBoundedBy = answers::query(&PhysicsRegionResolver::boundedBy);

inline const Ask kCellZones = [](const PhysicsRegionResolver& resolver, const std::string& region) {
  std::vector<int> cellNodeZones = {-1};
  std::vector<int> otherZones = {-1, -1};
  const bool good = resolver.cellZones(region, cellNodeZones, otherZones);
  return answers::answerText(good, cellNodeZones, otherZones);
};

inline Ask side(unsigned short side) {
  return [side](const PhysicsRegionResolver& resolver, const std::string& region) {
    std::string boundary = "left over";
    const bool good = resolver.sideOf(region, side, boundary);
    return answers::answerText(good, boundary);
  };
}

inline Ask isOfType(const std::string& type) {
  return [type](const PhysicsRegionResolver& resolver, const std::string& region) {
    return answers::answerText(resolver.regionIsOfType(region, type));
  };
}

/// Where the region stands for the type.
inline const Ask kRegionsOfType = [](const PhysicsRegionResolver& resolver,
                                     const std::string& type) {
  std::vector<std::string> regions = {"left over"};
  const bool good = resolver.regionsOfType(regions, type);
  return answers::answerText(good, regions);
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_PHYSICS_REGIONS_REGION_ANSWERS_H
