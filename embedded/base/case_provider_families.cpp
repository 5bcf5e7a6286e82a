// SPDX-License-Identifier: Apache-2.0
//
// CaseProvider: the families of bulk calls and the field data.

#include "embedded/base/CaseProvider.h"
#include "embedded/base/OrvBaseState.h"

namespace velto::base {

// --- Node coordinates ----------------------------------------------------------------------------

void CaseProvider::beginNodeCoordinates(std::vector<int>& zoneIds) {
  listZones(Family::nodeCoordinates, zoneIds);
}

std::size_t CaseProvider::readNodeCoordinates(int zoneId, double* values, std::size_t n) {
  std::size_t delivered = 0;
  guarded(*this, familyName(Family::nodeCoordinates, zoneId), [&] {
    if (MeshArrays* source = arrays()) {
      delivered = source->readCoordinates(zoneId, values, n);
    }
  });
  return delivered;
}

void CaseProvider::endNodeCoordinates() {}

// --- Face nodes ----------------------------------------------------------------------------------

void CaseProvider::beginFaceNodes(std::vector<int>& zoneIds) {
  listZones(Family::faceNodes, zoneIds);
}
void CaseProvider::beginFaceNodeCounts() {}

bool CaseProvider::getUniformFaceNodeCount(int zoneId, short& count) {
  return uniformCount(Family::faceNodes, zoneId, count);
}

void CaseProvider::readFaceNodeCounts(int zoneId, short* counts, std::size_t n) {
  readCounts(Family::faceNodes, zoneId, counts, n);
}

void CaseProvider::endFaceNodeCounts() {}
void CaseProvider::beginFaceNodeIds() {}

void CaseProvider::readFaceNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) {
  readIds(Family::faceNodes, zoneId, ids, n);
}

void CaseProvider::endFaceNodeIds() {}
void CaseProvider::endFaceNodes() {}

// --- Cell nodes ----------------------------------------------------------------------------------

void CaseProvider::beginCellNodes(std::vector<int>& zoneIds) {
  listZones(Family::cellNodes, zoneIds);
}
void CaseProvider::beginCellNodeCounts() {}

bool CaseProvider::getUniformCellNodeCount(int zoneId, short& count) {
  return uniformCount(Family::cellNodes, zoneId, count);
}

void CaseProvider::readCellNodeCounts(int zoneId, short* counts, std::size_t n) {
  readCounts(Family::cellNodes, zoneId, counts, n);
}

void CaseProvider::endCellNodeCounts() {}
void CaseProvider::beginCellNodeIds() {}

void CaseProvider::readCellNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) {
  readIds(Family::cellNodes, zoneId, ids, n);
}

void CaseProvider::endCellNodeIds() {}
void CaseProvider::endCellNodes() {}

// --- Cell faces ----------------------------------------------------------------------------------

void CaseProvider::beginCellFaces(std::vector<int>& zoneIds) {
  listZones(Family::cellFaces, zoneIds);
}
void CaseProvider::beginCellFaceCounts() {}

bool CaseProvider::getUniformCellFaceCount(int zoneId, short& count) {
  return uniformCount(Family::cellFaces, zoneId, count);
}

void CaseProvider::readCellFaceCounts(int zoneId, short* counts, std::size_t n) {
  readCounts(Family::cellFaces, zoneId, counts, n);
}

void CaseProvider::endCellFaceCounts() {}
void CaseProvider::beginCellFaceIds() {}

void CaseProvider::readCellFaceIds(int zoneId, std::uint64_t* ids, std::size_t n) {
  readIds(Family::cellFaces, zoneId, ids, n);
}

void CaseProvider::endCellFaceIds() {}
void CaseProvider::endCellFaces() {}

// --- Cells beside a face, shadow faces, face tree ------------------------------------------------

void CaseProvider::beginFaceCell0(std::vector<int>& zoneIds) {
  openElements(Family::faceCell0, zoneIds);
}

std::uint64_t CaseProvider::getFaceCell0(std::uint64_t faceId) { return elementIds_.get(faceId); }

void CaseProvider::readFaceCell0(int zoneId, std::uint64_t* cellIds, std::size_t n) {
  readIds(Family::faceCell0, zoneId, cellIds, n);
}

void CaseProvider::endFaceCell0() { elementIds_.close(); }

void CaseProvider::beginFaceCell1(std::vector<int>& zoneIds) {
  openElements(Family::faceCell1, zoneIds);
}

std::uint64_t CaseProvider::getFaceCell1(std::uint64_t faceId) { return elementIds_.get(faceId); }

void CaseProvider::readFaceCell1(int zoneId, std::uint64_t* cellIds, std::size_t n) {
  readIds(Family::faceCell1, zoneId, cellIds, n);
}

void CaseProvider::endFaceCell1() { elementIds_.close(); }

void CaseProvider::beginFaceShadows(std::vector<int>& zoneIds) {
  openElements(Family::faceShadows, zoneIds);
}

std::uint64_t CaseProvider::getFaceShadow(std::uint64_t faceId) { return elementIds_.get(faceId); }
void CaseProvider::endFaceShadows() { elementIds_.close(); }

void CaseProvider::beginFaceTree(std::vector<int>& parentZoneIds, std::vector<int>& childZoneIds) {
  listZones(Family::faceTree, parentZoneIds);
  childZoneIds.clear();
  guarded(*this, "face tree", [&] {
    if (MeshArrays* source = arrays()) {
      childZoneIds = source->treeChildZones();
    }
  });
}

void CaseProvider::endFaceTree() {}

// --- Cell types ----------------------------------------------------------------------------------

void CaseProvider::beginCellTypes(std::vector<int>& zoneIds) {
  listZones(Family::cellTypes, zoneIds);
  elementTypes_.open(rangesOf(zoneIds), [this](int zone, ZoneValues<int>& values) {
    MeshArrays* const source = arrays();
    if (source == nullptr) {  // another mesh was selected since
      return false;
    }
    guarded(*this, familyName(Family::cellTypes, zone), [&] {
      int type = 0;
      if (source->uniformCellType(zone, type)) {
        values.uniform = type;
        return;
      }
      const std::size_t n = source->valueCount(Family::cellTypes, zone);
      int* types = values.room.take(n);
      values.size = source->readCellTypes(zone, types, n);
      values.data = types;
    });
    return true;
  });
}

bool CaseProvider::getUniformCellType(int zoneId, int& type) {
  bool uniform = false;
  guarded(*this, familyName(Family::cellTypes, zoneId), [&] {
    MeshArrays* source = arrays();
    uniform = source != nullptr && source->uniformCellType(zoneId, type);
  });
  return uniform;
}

int CaseProvider::getCellType(std::uint64_t cellId) { return elementTypes_.get(cellId); }

std::size_t CaseProvider::readCellTypes(int zoneId, int* types, std::size_t n) {
  std::size_t delivered = 0;
  guarded(*this, familyName(Family::cellTypes, zoneId), [&] {
    if (MeshArrays* source = arrays()) {
      delivered = source->readCellTypes(zoneId, types, n);
    }
  });
  return delivered;
}

void CaseProvider::endCellTypes() { elementTypes_.close(); }

// --- Cell partitions -----------------------------------------------------------------------------

void CaseProvider::beginCellPartitions(std::vector<int>& zoneIds) {
  listZones(Family::cellPartitions, zoneIds);
}

int CaseProvider::getCellPartitionInfo(int zoneId) {
  int info = 0;
  guarded(*this, familyName(Family::cellPartitions, zoneId), [&] {
    if (MeshArrays* source = arrays()) {
      info = source->partitionInfo(zoneId);
    }
  });
  return info;
}

void CaseProvider::readCellPartitions(int zoneId, int* partitions, std::size_t n) {
  const std::string what = familyName(Family::cellPartitions, zoneId);
  guarded(*this, what, [&] {
    MeshArrays* source = arrays();
    const std::size_t delivered =
        source == nullptr ? 0 : source->readCellPartitions(zoneId, partitions, n);
    if (delivered < n) {
      warnOfShortRead(what, delivered, n);
    }
  });
}

void CaseProvider::endCellPartitions() {}

// --- Field data ----------------------------------------------------------------------------------

namespace {

/// True, and the names of `attributes` in place of `names`, if there are any.
bool copyNames(const Attributes& attributes, std::vector<std::string>& names) {
  if (attributes.empty()) {
    return false;
  }
  names.clear();
  for (const auto& attribute : attributes) {
    names.push_back(attribute.first);
  }
  return true;
}

/// True, and the text, if there is one.
bool copyText(const std::string* found, std::string& text) {
  if (found == nullptr) {
    return false;
  }
  text = *found;
  return true;
}

const std::string* textOf(const std::optional<std::string>& text) {
  return text ? &*text : nullptr;
}

}  // namespace

void CaseProvider::beginPhase(short phaseId) { variable_ = {phaseId, zoneCategoryNode, ""}; }

bool CaseProvider::getPhaseAttributeNames(short phaseId, std::vector<std::string>& names) {
  const Phase* phase = coreOf(*this).tables.findPhase(phaseId);
  return phase != nullptr && copyNames(phase->attributes, names);
}

bool CaseProvider::getPhaseAttribute(short phaseId, const std::string& name, std::string& value) {
  const Phase* phase = coreOf(*this).tables.findPhase(phaseId);
  return phase != nullptr && copyText(findAttribute(phase->attributes, name), value);
}

bool CaseProvider::getPhaseDescription(short phaseId, std::string& text) {
  const Phase* phase = coreOf(*this).tables.findPhase(phaseId);
  return phase != nullptr && copyText(textOf(phase->description), text);
}

bool CaseProvider::getVariableAttributeNames(int variableId, std::vector<std::string>& names) {
  const Variable* variable = coreOf(*this).tables.findVariable(variableId);
  return variable != nullptr && copyNames(variable->attributes, names);
}

bool CaseProvider::getVariableAttribute(int variableId, const std::string& name,
                                        std::string& value) {
  const Variable* variable = coreOf(*this).tables.findVariable(variableId);
  return variable != nullptr && copyText(findAttribute(variable->attributes, name), value);
}

bool CaseProvider::getVariableDescription(int variableId, std::string& text) {
  const Variable* variable = coreOf(*this).tables.findVariable(variableId);
  return variable != nullptr && copyText(textOf(variable->description), text);
}

void CaseProvider::getVariableNames(OrvZoneCategory category, std::vector<std::string>& names) {
  names.clear();
  guarded(*this, "variable names", [&] {
    if (MeshArrays* source = resultArrays()) {
      names = source->variableNames(variable_.phase, category);
    }
  });
}

std::size_t CaseProvider::beginVariable(OrvZoneCategory category, const std::string& name,
                                        std::vector<int>& zoneIds) {
  variable_.category = category;
  variable_.name = name;
  zoneIds.clear();
  std::size_t valuesPerEntity = 0;
  guarded(*this, "variable " + name, [&] {
    if (MeshArrays* source = resultArrays()) {
      valuesPerEntity = source->variableZones(variable_, zoneIds);
    }
  });
  return valuesPerEntity;
}

std::size_t CaseProvider::readVariable(int zoneId, double* values, std::size_t n) {
  std::size_t delivered = 0;
  guarded(*this, "variable " + variable_.name + " of zone " + std::to_string(zoneId), [&] {
    if (MeshArrays* source = resultArrays()) {
      delivered = source->readVariable(variable_, zoneId, values, n);
    }
  });
  return delivered;
}

void CaseProvider::endVariable() { variable_.name.clear(); }
void CaseProvider::endPhase() { variable_ = {}; }

}  // namespace velto::base
