// SPDX-License-Identifier: Apache-2.0
//
// PlainCopier: zone tables, coordinates, and the families of cells and faces.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <map>
#include <memory>
#include <vector>

#include "tests/copier/PlainCopier.h"
#include "tests/copier/zeroed.h"

namespace velto::testing {

std::uint64_t PlainCopier::elementCount(int id) const {
  std::uint64_t count = 0;
  source_->getZoneSizeInfo(id, zoneElementCount, count);
  return count;
}

std::vector<int> PlainCopier::filter(std::vector<int>& ids) const {
  std::vector<int> mappedSource;
  std::vector<int> mappedDestination;
  for (const int id : ids) {
    if (isMapped(id)) {
      mappedSource.push_back(id);
      mappedDestination.push_back(zoneMap_.at(id));
    }
  }
  ids = mappedSource;
  return mappedDestination;
}

// --- Zone tables --------------------------------------------------------------------------------

void PlainCopier::copyZoneTopology() {
  for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
    std::vector<int> ids;
    source_->getZoneIds(category, ids);
    for (const int id : ids) {
      zoneMap_[id] = id;
    }
    destination_->setZoneIds(category, ids);
    copyZoneTable(category, ids);
  }
}

void PlainCopier::copyZoneTable(OrvZoneCategory category, const std::vector<int>& ids) {
  for (const int id : ids) {
    for (const OrvZoneSizeType key : {zoneFirstId, zoneLastId, zoneDimension}) {
      std::uint64_t value = 0;
      source_->getZoneSizeInfo(id, key, value);
      destination_->setZoneSizeInfo(id, key, value);
    }
    if (category == zoneCategoryCell) {
      int type = 0;
      source_->getCellZoneInfo(id, cellZoneCellType, type);
      destination_->setCellZoneInfo(id, cellZoneCellType, type);
    }
    if (category == zoneCategoryFace) {
      for (const OrvFaceZoneInfoType key : {faceZoneFaceType, faceZoneType}) {
        int type = 0;
        source_->getFaceZoneInfo(id, key, type);
        destination_->setFaceZoneInfo(id, key, type);
      }
    }
    std::string name;
    source_->getZoneStringInfo(id, zoneName, name);
    destination_->setZoneStringInfo(id, zoneName, name);
  }
}

// --- Coordinates --------------------------------------------------------------------------------

void PlainCopier::copyNodeCoordinates() {
  std::vector<int> coordinateZones;
  source_->beginNodeCoordinates(coordinateZones);
  if (!coordinateZones.empty()) {
    std::vector<int> nodeZones;
    source_->getZoneIds(zoneCategoryNode, nodeZones);
    filter(coordinateZones);
    destination_->beginNodes(nodeZones);
    copyElemIds(zoneCategoryNode);
    destination_->beginNodeCoordinates(nodeZones);
    for (const int id : nodeZones) {
      const bool isListed =
          std::find(coordinateZones.begin(), coordinateZones.end(), id) != coordinateZones.end();
      copyNodeZone(id, isListed);
    }
    destination_->endNodeCoordinates();
    destination_->endNodes();
  }
  source_->endNodeCoordinates();
}

namespace {

void settleDimension(int id, std::uint64_t dimension, std::uint64_t count,
                     std::uint64_t delivered) {
  if (dimension == 0) {
    if (delivered / 3 == count) {
      dimension = 3;
    } else if (delivered / 2 == count) {
      dimension = 2;
    } else {
      std::cerr << "Warning: Unable to read coordinates for node zone '" << id << "'" << std::endl;
      return;
    }
    std::cerr << "Warning: Assuming zone '" << id << "' has dimension " << dimension << std::endl;
  }
  if (dimension * count != delivered) {
    std::cerr << "Warning: Inconsistent size for node zone '" << id << "'" << std::endl;
  }
}

}  // namespace

void PlainCopier::copyNodeZone(int id, bool isListed) {
  if (!isListed) {
    if (isMapped(id)) {
      destination_->writeNodeCoordinates(zoneMap_.at(id), nullptr, 0);
    }
    return;
  }
  const std::uint64_t count = elementCount(id);
  std::uint64_t dimension = 0;
  source_->getZoneSizeInfo(id, zoneDimension, dimension);
  const std::uint64_t length = count * (dimension == 0 ? 3 : dimension);
  const std::unique_ptr<double[]> buffer = zeroed<double>(length);
  const std::uint64_t delivered = source_->readNodeCoordinates(id, buffer.get(), length);
  settleDimension(id, dimension, count, delivered);
  destination_->writeNodeCoordinates(zoneMap_.at(id), buffer.get(), std::min(delivered, length));
}

// --- Cells and faces ----------------------------------------------------------------------------

void PlainCopier::copyCellNodes() {
  std::vector<int> ids;
  source_->beginCellNodes(ids);
  if (!ids.empty()) {
    const std::vector<int> mapped = filter(ids);
    std::map<int, std::int64_t> listLengths;
    destination_->beginCellNodes(mapped);
    source_->beginCellNodeCounts();
    destination_->beginCellNodeCounts();
    for (std::size_t i = 0; i < ids.size(); ++i) {
      const std::uint64_t count = elementCount(ids[i]);
      if (count == 0) {
        continue;
      }
      short uniform = 0;
      if (source_->getUniformCellNodeCount(ids[i], uniform)) {
        destination_->writeUniformCellNodeCount(mapped[i], uniform);
        listLengths[ids[i]] = uniformLength(uniform, count);
      } else {
        const std::unique_ptr<short[]> counts = zeroed<short>(count);
        source_->readCellNodeCounts(ids[i], counts.get(), count);
        destination_->writeCellNodeCounts(mapped[i], counts.get(), count);
        listLengths[ids[i]] = sumOf(counts.get(), count);
      }
    }
    source_->endCellNodeCounts();
    destination_->endCellNodeCounts();
    source_->beginCellNodeIds();
    destination_->beginCellNodeIds();
    for (std::size_t i = 0; i < ids.size(); ++i) {
      const auto length = static_cast<std::uint64_t>(listLengths[ids[i]]);
      const std::unique_ptr<std::uint64_t[]> list = zeroed<std::uint64_t>(length);
      source_->readCellNodeIds(ids[i], list.get(), length);
      destination_->writeCellNodeIds(mapped[i], list.get(), length);
    }
    source_->endCellNodeIds();
    destination_->endCellNodeIds();
    destination_->endCellNodes();
  }
  source_->endCellNodes();
}

void PlainCopier::copyFaceNodes() {
  std::vector<int> ids;
  source_->beginFaceNodes(ids);
  if (!ids.empty()) {
    const std::vector<int> mapped = filter(ids);
    std::map<int, std::int64_t> listLengths;
    destination_->beginFaceNodes(mapped);
    source_->beginFaceNodeCounts();
    destination_->beginFaceNodeCounts();
    for (std::size_t i = 0; i < ids.size(); ++i) {
      const std::uint64_t count = elementCount(ids[i]);
      if (count == 0) {
        continue;
      }
      short uniform = 0;
      if (source_->getUniformFaceNodeCount(ids[i], uniform)) {
        destination_->writeUniformFaceNodeCount(ids[i], uniform);
        listLengths[ids[i]] = uniformLength(uniform, count);
      } else {
        const std::unique_ptr<short[]> counts = zeroed<short>(count);
        source_->readFaceNodeCounts(ids[i], counts.get(), count);
        destination_->writeFaceNodeCounts(mapped[i], counts.get(), count);
        listLengths[ids[i]] = sumOf(counts.get(), count);
      }
    }
    source_->endFaceNodeCounts();
    destination_->endFaceNodeCounts();
    source_->beginFaceNodeIds();
    destination_->beginFaceNodeIds();
    for (std::size_t i = 0; i < ids.size(); ++i) {
      const auto length = static_cast<std::uint64_t>(listLengths[ids[i]]);
      const std::unique_ptr<std::uint64_t[]> list = zeroed<std::uint64_t>(length);
      source_->readFaceNodeIds(ids[i], list.get(), length);
      destination_->writeFaceNodeIds(mapped[i], list.get(), length);
    }
    source_->endFaceNodeIds();
    destination_->endFaceNodeIds();
    destination_->endFaceNodes();
  }
  source_->endFaceNodes();
}

void PlainCopier::copyCellTypes() {
  std::vector<int> ids;
  source_->beginCellTypes(ids);
  if (!ids.empty()) {
    std::vector<int> uniformTypes(ids.size(), 0);
    for (std::size_t i = 0; i < ids.size(); ++i) {
      int type = 0;
      if (isMapped(ids[i]) && source_->getUniformCellType(ids[i], type)) {
        uniformTypes[i] = type;
      }
    }
    const std::vector<int> mapped = filter(ids);
    destination_->beginCellTypes(mapped, uniformTypes);
    for (std::size_t i = 0; i < ids.size(); ++i) {
      if (uniformTypes[i] != 0) {
        continue;
      }
      const std::uint64_t count = elementCount(ids[i]);
      if (count == 0) {
        continue;
      }
      const std::unique_ptr<int[]> types = zeroed<int>(count);
      if (source_->readCellTypes(ids[i], types.get(), count) != count) {
        std::cerr << "Warning: Inconsistent cell type size for zone '" << ids[i] << "'"
                  << std::endl;
        continue;
      }
      destination_->writeCellTypes(mapped[i], types.get(), count);
    }
    destination_->endCellTypes();
  }
  source_->endCellTypes();
}

void PlainCopier::copyCellPartitions() {
  std::vector<int> ids;
  source_->beginCellPartitions(ids);
  if (!ids.empty()) {
    const std::vector<int> mapped = filter(ids);
    std::vector<int> info;
    info.reserve(ids.size());
    for (const int id : ids) {
      info.push_back(source_->getCellPartitionInfo(id));
    }
    destination_->beginCellPartitions(mapped, info.empty() ? 0 : info.front());
    for (std::size_t i = 0; i < ids.size(); ++i) {
      const std::uint64_t count = elementCount(ids[i]);
      const std::unique_ptr<int[]> partitions = zeroed<int>(count);
      source_->readCellPartitions(ids[i], partitions.get(), count);
      destination_->writeCellPartitions(mapped[i], partitions.get(), count);
    }
    destination_->endCellPartitions();
  }
  source_->endCellPartitions();
}

void PlainCopier::copyFaceCell0() {
  std::vector<int> ids;
  source_->beginFaceCell0(ids);
  if (!ids.empty()) {
    const std::vector<int> mapped = filter(ids);
    destination_->beginFaceCell0(mapped);
    for (std::size_t i = 0; i < ids.size(); ++i) {
      const std::uint64_t count = elementCount(ids[i]);
      if (count == 0) {
        continue;
      }
      const std::unique_ptr<std::uint64_t[]> cells = zeroed<std::uint64_t>(count);
      source_->readFaceCell0(ids[i], cells.get(), count);
      destination_->writeFaceCell0(mapped[i], cells.get(), count);
    }
    destination_->endFaceCell0();
  }
  source_->endFaceCell0();
}

void PlainCopier::copyFaceCell1() {
  std::vector<int> ids;
  source_->beginFaceCell1(ids);
  if (!ids.empty()) {
    const std::vector<int> mapped = filter(ids);
    destination_->beginFaceCell1(mapped);
    for (std::size_t i = 0; i < ids.size(); ++i) {
      const std::uint64_t count = elementCount(ids[i]);
      if (count == 0) {
        continue;
      }
      const std::unique_ptr<std::uint64_t[]> cells = zeroed<std::uint64_t>(count);
      source_->readFaceCell1(ids[i], cells.get(), count);
      destination_->writeFaceCell1(mapped[i], cells.get(), count);
    }
    destination_->endFaceCell1();
  }
  source_->endFaceCell1();
}

}  // namespace velto::testing
