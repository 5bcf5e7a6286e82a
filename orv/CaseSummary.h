// SPDX-License-Identifier: Apache-2.0
//
// CaseSummary: what a case holds, read through the contract alone.

#ifndef VELTO_ORV_CASE_SUMMARY_H
#define VELTO_ORV_CASE_SUMMARY_H

#include <cstdint>
#include <list>
#include <string>
#include <utility>
#include <vector>

#include "data_access/OrvTypes.h"
#include "data_access/fwd.h"

#include "orv/Selection.h"

namespace velto::orv {

struct ZoneSummary {
  int id = 0;
  OrvZoneCategory category = zoneCategoryNode;
  std::string name;
  std::string typeName;
  int type = faceZoneTypeNone;  ///< Of a face zone.
  int shape = -1;               ///< Of the faces or cells.
  int shadow = 0;
  std::uint64_t first = 0;
  std::uint64_t last = 0;
  std::uint64_t count = 0;
  std::list<int> side0;  ///< Cell zones beside a face zone.
  std::list<int> side1;
};

struct VariableSummary {
  std::string phase;
  OrvZoneCategory category = zoneCategoryNode;
  std::string name;
  std::size_t valuesPerEntity = 0;
  std::vector<int> zones;
};

/// One mesh, target and partition.
struct MeshSummary {
  Selection at;
  std::uint64_t dimension = 0;
  std::uint64_t nodes = 0;
  std::uint64_t faces = 0;
  std::uint64_t cells = 0;
  std::string units;
  std::vector<ZoneSummary> zones;
  std::vector<VariableSummary> variables;
};

struct CaseSummary {
  std::string file;
  std::string results;  ///< The file that the field data come from; "" if the case holds its own.
  std::string solverType;
  int major = 0;
  int minor = 0;
  int patch = 0;
  bool hasLocationModel = false;
  std::vector<MeshSummary> meshes;
  std::vector<std::string> phases;
  std::vector<std::pair<std::string, std::string>> settings;
};

/// Reads all tables of an open case; the selection of `provider` is changed.
CaseSummary summarise(const std::string& file, OrvFileProvider& provider);

}  // namespace velto::orv

#endif  // VELTO_ORV_CASE_SUMMARY_H
