// SPDX-License-Identifier: Apache-2.0
//
// TinyProvider, and the factory that makes it.

#include "tests/project/second_library/TinyProvider.h"

#include <algorithm>
#include <array>
#include <fstream>

#include "data_access/OrvFactory.h"
#include "data_access/OrvVersion.h"

#include "tests/project/second_library/TinyState.h"

namespace velto::tiny {

namespace {

constexpr int kTetrahedron = 2;

constexpr std::array<double, 12> kCoordinates = {0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1};

// Outwards by the right-hand rule.
constexpr std::array<std::uint64_t, 12> kFaceNodes = {1, 3, 2, 1, 2, 4, 2, 3, 4, 3, 1, 4};

template <class Values, class Value>
std::size_t copyFirst(const Values& values, Value* out, std::size_t n) {
  const std::size_t copied = std::min(n, values.size());
  std::copy_n(values.begin(), copied, out);
  return copied;
}

void declareZone(OrvBase& object, OrvZoneCategory category, int zone, const std::string& name,
                 OrvMeshSizeType total, std::uint64_t count, std::uint64_t dimension) {
  object.setMeshSize(total, count);
  object.setZoneIds(category, {zone});
  object.setZoneSizeInfo(zone, zoneFirstId, 1);
  object.setZoneSizeInfo(zone, zoneLastId, count);
  object.setZoneSizeInfo(zone, zoneElementCount, count);
  object.setZoneSizeInfo(zone, zoneDimension, dimension);
  object.setZoneStringInfo(zone, zoneName, name);
}

}  // namespace

bool TinyProvider::startReading(const std::string& fileName, OrvDataClass /*dataClass*/) {
  State& state = State::of(*this);
  std::ifstream file(fileName);
  std::uint64_t dimension = 0;
  if (!(file >> dimension)) {
    state.errors.push_back("Error:\n\t" + fileName + " does not begin with a number");
    return false;
  }
  setMeshSize(meshDimension, dimension);
  declareZone(*this, zoneCategoryNode, kNodeZone, "points", meshNodeCount, 4, dimension);
  declareZone(*this, zoneCategoryFace, kFaceZone, "walls", meshFaceCount, 4, dimension);
  declareZone(*this, zoneCategoryCell, kCellZone, "body", meshCellCount, 1, dimension);
  setFaceZoneInfo(kFaceZone, faceZoneFaceType, 3);
  setFaceZoneInfo(kFaceZone, faceZoneType, faceZoneType3);
  setCellZoneInfo(kCellZone, cellZoneCellType, kTetrahedron);
  state.boundingFaceZones[kCellZone] = {kFaceZone};
  state.cellZones0[kFaceZone] = {kCellZone};
  return true;
}

void TinyProvider::getFileVersion(OrvDataClass, int& major, int& minor, int& patch) {
  major = static_cast<int>(OrvVersion::getMajor());
  minor = static_cast<int>(OrvVersion::getMinor());
  patch = static_cast<int>(OrvVersion::getPatch());
}

std::size_t TinyProvider::readNodeCoordinates(int zoneId, double* values, std::size_t n) {
  return zoneId == kNodeZone ? copyFirst(kCoordinates, values, n) : 0;
}

bool TinyProvider::getUniformFaceNodeCount(int zoneId, short& count) {
  if (zoneId != kFaceZone) {
    return false;
  }
  count = 3;
  return true;
}

void TinyProvider::readFaceNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) {
  if (zoneId == kFaceZone) {
    copyFirst(kFaceNodes, ids, n);
  }
}

void TinyProvider::readFaceCell0(int zoneId, std::uint64_t* cellIds, std::size_t n) {
  if (zoneId == kFaceZone) {
    std::fill_n(cellIds, std::min<std::size_t>(n, 4), 1);
  }
}

void TinyProvider::beginFaceTree(std::vector<int>& parentZoneIds, std::vector<int>& childZoneIds) {
  parentZoneIds.clear();
  childZoneIds.clear();
}

bool TinyProvider::getUniformCellType(int zoneId, int& type) {
  if (zoneId != kCellZone) {
    return false;
  }
  type = kTetrahedron;
  return true;
}

int TinyProvider::getCellType(std::uint64_t cellId) { return cellId == 1 ? kTetrahedron : 0; }

std::size_t TinyProvider::beginVariable(OrvZoneCategory, const std::string&,
                                        std::vector<int>& zoneIds) {
  zoneIds.clear();
  return 0;
}

}  // namespace velto::tiny

namespace velto {

OrvFileProvider* getDataProvider(const std::string& /*fileName*/) {
  return new tiny::TinyProvider();
}

OrvFileConsumer* getDataConsumer(OrvFileFormatType /*format*/) { return nullptr; }

}  // namespace velto
