// SPDX-License-Identifier: Apache-2.0
//
// Single steps of OrvChecker, for what a whole run does not show of them: their result, and what
// they do where a run would not call them.

#ifndef VELTO_TESTS_CHECKER_CHECKER_ACCESS_H
#define VELTO_TESTS_CHECKER_CHECKER_ACCESS_H

#include <cstdint>
#include <string>
#include <vector>

#include "velto/OrvChecker.h"

namespace velto::testing::checker_access {

void displayStep(OrvChecker& checker, const std::string& step, const std::string& detail);
void addError(OrvChecker& checker, int level, const std::string& message);
void addWarning(OrvChecker& checker, int level, const std::string& message);
bool checkORVErrors(OrvChecker& checker);
std::string targetName(int category);
std::string describeLocation(const OrvChecker& checker);
bool checkVersion(OrvChecker& checker, OrvDataClass dataClass);
bool checkSolverType(OrvChecker& checker);
bool checkMeshSize(OrvChecker& checker);
bool checkMeshConnectivity(OrvChecker& checker);
bool checkCellZoneConnectivityTypes(OrvChecker& checker);
int judgeConnectivity(OrvChecker& checker, int zone, int kind, bool restart);
bool checkTopologyModel(OrvChecker& checker);
bool checkPhysicsToMeshMapUsingTopologyModel(OrvChecker& checker);

/// The names that checkLocationModel appends to, each list in the place of its argument.
struct LocationNames {
  std::vector<std::string> bodies;
  std::vector<std::string> faceUses;
  std::vector<std::string> bulkZones;
  std::vector<std::string> bodyComposites;
  std::vector<std::string> faceUseComposites;

  friend bool operator==(const LocationNames& a, const LocationNames& b) {
    return a.bodies == b.bodies && a.faceUses == b.faceUses && a.bulkZones == b.bulkZones &&
           a.bodyComposites == b.bodyComposites && a.faceUseComposites == b.faceUseComposites;
  }
};

bool checkLocationModel(OrvChecker& checker, const OrvLocationModel& model, LocationNames& names);
bool checkPhysicsModel(OrvChecker& checker, const LocationNames& names);
bool checkPhysicsObject(OrvChecker& checker, const std::string& kind, const std::string& name,
                        const std::string& attribute, const std::vector<std::string>& validNames,
                        bool optional);
bool checkNodeZones(OrvChecker& checker);
bool checkFaceZones(OrvChecker& checker);
bool checkCellZones(OrvChecker& checker);
bool checkZoneCommonAttributes(OrvChecker& checker, const std::vector<int>& zoneIds,
                               std::uint64_t nmax, const std::string& kind);

/// What one walk leaves for the next.
std::vector<int>& cellZoneConnectivityTypes(OrvChecker& checker);
int& cellsFromFacesMode(OrvChecker& checker);

// --- The nodes and faces that zones list ---

bool checkFaceConnectivity(OrvChecker& checker);
bool checkCellConnectivity(OrvChecker& checker);
bool readFaceNodes(OrvChecker& checker);
bool readCellNodes(OrvChecker& checker);

/// The nodes of all faces, or of all cells, as a checker keeps them.
struct NodeTables {
  std::vector<std::vector<std::uint64_t>>& ids;
  std::vector<std::uint64_t*>& pointers;
  std::vector<int>& counts;
};

NodeTables faceNodeTables(OrvChecker& checker);
NodeTables cellNodeTables(OrvChecker& checker);

// --- Cells from faces, shadow faces ---

bool checkCellsFromFaces(OrvChecker& checker);
bool checkFaceCounts(OrvChecker& checker);  ///< checkCellsFromFaces_facenode
bool checkFaceNodes(OrvChecker& checker);   ///< checkCellsFromFaces_cellnode
bool checkCellFaceOwnership(OrvChecker& checker, int cellNodeCount, std::uint64_t* cellNodes,
                            int faceNodeCount, std::uint64_t* faceNodes);
bool checkFacesShadowZones(OrvChecker& checker);

}  // namespace velto::testing::checker_access

#endif  // VELTO_TESTS_CHECKER_CHECKER_ACCESS_H
