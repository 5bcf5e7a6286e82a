// SPDX-License-Identifier: Apache-2.0
//
// Text of tables, faces and cell types, read through the contract.

#include "tests/formats/openfoam/describe_case.h"

#include <algorithm>
#include <list>
#include <numeric>
#include <vector>

namespace velto::openfoam {

namespace {

std::uint64_t sizeOf(OrvProvider& provider, int zone, OrvZoneSizeType key) {
  std::uint64_t value = 0;
  provider.getZoneSizeInfo(zone, key, value);
  return value;
}

std::string head(OrvProvider& provider, const char* kind, int zone) {
  std::string name;
  provider.getZoneStringInfo(zone, zoneName, name);
  return std::string(kind) + " " + std::to_string(zone) + " '" + name + "' [" +
         std::to_string(sizeOf(provider, zone, zoneFirstId)) + ", " +
         std::to_string(sizeOf(provider, zone, zoneLastId)) + "] " +
         std::to_string(sizeOf(provider, zone, zoneElementCount));
}

std::string joined(const std::list<int>& ids) {
  std::string text;
  for (const int id : ids) {
    text += (text.empty() ? "" : " ") + std::to_string(id);
  }
  return text.empty() ? "-" : text;
}

std::string faceZone(OrvProvider& provider, int zone) {
  int type = -1;
  int shape = -1;
  int shadow = 0;
  std::string typeName;
  std::list<int> side0;
  std::list<int> side1;
  provider.getFaceZoneInfo(zone, faceZoneType, type);
  provider.getFaceZoneInfo(zone, faceZoneFaceType, shape);
  provider.getFaceZoneInfo(zone, faceZoneShadow, shadow);
  provider.getZoneStringInfo(zone, zoneTypeName, typeName);
  provider.getFaceCellZone0Ids(zone, side0);
  provider.getFaceCellZone1Ids(zone, side1);
  return head(provider, "face", zone) + ": type " + std::to_string(type) + " '" + typeName +
         "', shape " + std::to_string(shape) + ", cells " + joined(side0) + " | " + joined(side1) +
         ", shadow " + std::to_string(shadow) + "\n";
}

std::string cellZone(OrvProvider& provider, int zone) {
  int shape = -1;
  std::list<int> faces;
  provider.getCellZoneInfo(zone, cellZoneCellType, shape);
  provider.getCellFaceZoneIds(zone, faces);
  return head(provider, "cell", zone) + ": shape " + std::to_string(shape) + ", bounded by " +
         joined(faces) + "\n";
}

}  // namespace

std::string describeTables(OrvFileProvider& provider) {
  std::string text;
  for (const OrvMeshSizeType key : {meshDimension, meshNodeCount, meshFaceCount, meshCellCount}) {
    std::uint64_t value = 0;
    provider.getMeshSize(key, value);
    text += (text.empty() ? "sizes " : " ") + std::to_string(value);
  }
  text += "\n";
  std::vector<int> ids;
  provider.getZoneIds(zoneCategoryNode, ids);
  for (const int zone : ids) {
    text += head(provider, "node", zone) + "\n";
  }
  provider.getZoneIds(zoneCategoryFace, ids);
  for (const int zone : ids) {
    text += faceZone(provider, zone);
  }
  provider.getZoneIds(zoneCategoryCell, ids);
  for (const int zone : ids) {
    text += cellZone(provider, zone);
  }
  return text;
}

std::string describeFaces(OrvFileProvider& provider, int zone) {
  const auto count = static_cast<std::size_t>(sizeOf(provider, zone, zoneElementCount));
  std::vector<int> listed;
  std::vector<short> counts(count, 0);
  provider.beginFaceNodes(listed);
  short uniform = 0;
  if (provider.getUniformFaceNodeCount(zone, uniform)) {
    std::fill(counts.begin(), counts.end(), uniform);
  } else {
    provider.readFaceNodeCounts(zone, counts.data(), count);
  }
  std::vector<std::uint64_t> nodes(
      static_cast<std::size_t>(std::accumulate(counts.begin(), counts.end(), 0)));
  provider.readFaceNodeIds(zone, nodes.data(), nodes.size());
  provider.endFaceNodes();

  std::vector<std::uint64_t> side0(count, 0);
  std::vector<std::uint64_t> side1(count, 0);
  provider.beginFaceCell0(listed);
  provider.readFaceCell0(zone, side0.data(), count);
  provider.endFaceCell0();
  provider.beginFaceCell1(listed);
  if (std::count(listed.begin(), listed.end(), zone) > 0) {
    provider.readFaceCell1(zone, side1.data(), count);
  }
  provider.endFaceCell1();

  std::string text;
  std::size_t next = 0;
  for (std::size_t i = 0; i < count; ++i) {
    std::string loop;
    for (short k = 0; k < counts[i]; ++k) {
      loop += (loop.empty() ? "" : " ") + std::to_string(nodes[next++]);
    }
    text += "(" + loop + ") " + std::to_string(side0[i]) + " " + std::to_string(side1[i]) + "\n";
  }
  return text;
}

std::string describeShadows(OrvFileProvider& provider, int zone) {
  std::vector<int> listed;
  provider.beginFaceShadows(listed);
  std::string text;
  if (std::count(listed.begin(), listed.end(), zone) > 0) {
    const std::uint64_t last = sizeOf(provider, zone, zoneLastId);
    for (std::uint64_t face = sizeOf(provider, zone, zoneFirstId); face <= last; ++face) {
      text += (text.empty() ? "" : " ") + std::to_string(provider.getFaceShadow(face));
    }
  }
  provider.endFaceShadows();
  return text;
}

std::string describeCellTypes(OrvFileProvider& provider, int zone) {
  std::vector<int> listed;
  provider.beginCellTypes(listed);
  int type = 0;
  std::string text;
  if (provider.getUniformCellType(zone, type)) {
    text = "uniform " + std::to_string(type);
  } else {
    std::vector<int> types(static_cast<std::size_t>(sizeOf(provider, zone, zoneElementCount)), 0);
    types.resize(provider.readCellTypes(zone, types.data(), types.size()));
    for (const int one : types) {
      text += (text.empty() ? "" : " ") + std::to_string(one);
    }
  }
  provider.endCellTypes();
  return text;
}

}  // namespace velto::openfoam
