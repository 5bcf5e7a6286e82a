// SPDX-License-Identifier: Apache-2.0
//
// What the tiny data-access library keeps behind the contract's opaque pointers: one mesh, and
// tables by key.

#ifndef VELTO_TESTS_PROJECT_SECOND_LIBRARY_TINY_STATE_H
#define VELTO_TESTS_PROJECT_SECOND_LIBRARY_TINY_STATE_H

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data_access/OrvBase.h"
#include "data_access/OrvLocationModel.h"
#include "data_access/OrvVariant.h"

namespace velto {

struct OrvBase::State {
  template <class Value>
  using ByZoneAndKey = std::map<std::pair<int, int>, Value>;

  int mesh = 1;
  OrvTargetCategory target = targetRestart;
  int partition = -1;
  std::string solverType = "VELTO_TINY";
  std::string applicationName;
  std::string units = "m";
  std::map<int, std::uint64_t> meshSizes;
  std::map<int, std::vector<int>> zoneIds;  ///< By category.
  ByZoneAndKey<std::uint64_t> zoneSizes;
  ByZoneAndKey<std::string> zoneTexts;
  ByZoneAndKey<int> faceZoneInfos;
  ByZoneAndKey<int> cellZoneInfos;
  std::map<int, std::list<int>> boundingFaceZones;  ///< By cell zone.
  std::map<int, std::list<int>> cellZones0;         ///< By face zone.
  std::vector<std::string> errors;
  std::shared_ptr<const OrvLocationModel> locationModel;

  static State& of(const OrvBase& object) { return *object.state_; }
};

struct OrvLocationModel::State {
  /// An object of any kind. `members` are a part's bodies and faces, a body's face uses, and the
  /// two sides of a face.
  struct Object {
    char kind = ' ';
    int part = 0;
    std::string name;
    std::vector<int> members;
    std::map<int, std::vector<int>> zones;  ///< By mesh: a body's zones, a face use's sides.
  };

  std::vector<Object> objects;  ///< Id 1 stands at 0.

  int add(char kind, int part, const std::string& name);
  Object* find(int id, char kind);
  std::vector<int> idsOf(char kind, int part) const;
  bool findByName(char kind, int part, const std::string& name, int& id) const;

  static std::shared_ptr<const OrvLocationModel> copy(const OrvLocationModel& model);
};

struct OrvVariant::State {
  std::string text;

  static OrvVariant make(const std::string& text);
};

}  // namespace velto

#endif  // VELTO_TESTS_PROJECT_SECOND_LIBRARY_TINY_STATE_H
