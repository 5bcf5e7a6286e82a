// SPDX-License-Identifier: Apache-2.0
//
// Single steps of OrvChecker. An explicit instantiation may name private members: each Grant hands
// one of them out through a function that its tag declares.

#include "tests/checker/checker_access.h"

namespace velto::testing::checker_access {

namespace {

using Step = bool (OrvChecker::*)();
using VersionStep = bool (OrvChecker::*)(OrvDataClass);
using Display = void (OrvChecker::*)(const std::string&, const std::string&);
using Names = std::vector<std::string>;
using Log = void (OrvChecker::*)(int, const std::string&);

template <class Tag, typename Tag::Member kMember>
struct Grant {
  friend typename Tag::Member memberOf(Tag) { return kMember; }
};

struct DisplayStep {
  using Member = Display;
  friend Display memberOf(DisplayStep);
};
struct AddError {
  using Member = Log;
  friend Log memberOf(AddError);
};
struct AddWarning {
  using Member = Log;
  friend Log memberOf(AddWarning);
};
struct CheckORVErrors {
  using Member = Step;
  friend Step memberOf(CheckORVErrors);
};
struct TargetName {
  using Member = std::string (*)(int);
  friend Member memberOf(TargetName);
};
struct DescribeLocation {
  using Member = std::string (OrvChecker::*)() const;
  friend Member memberOf(DescribeLocation);
};
struct CheckVersion {
  using Member = VersionStep;
  friend VersionStep memberOf(CheckVersion);
};
struct CheckSolverType {
  using Member = Step;
  friend Step memberOf(CheckSolverType);
};
struct CheckMeshSize {
  using Member = Step;
  friend Step memberOf(CheckMeshSize);
};
struct CheckMeshConnectivity {
  using Member = Step;
  friend Step memberOf(CheckMeshConnectivity);
};
struct CheckCellZoneConnectivityTypes {
  using Member = Step;
  friend Step memberOf(CheckCellZoneConnectivityTypes);
};
struct CheckTopologyModel {
  using Member = Step;
  friend Step memberOf(CheckTopologyModel);
};
struct CheckPhysicsToMeshMap {
  using Member = Step;
  friend Step memberOf(CheckPhysicsToMeshMap);
};
struct CheckLocationModel {
  using Member = bool (OrvChecker::*)(const OrvLocationModel*, Names&, Names&, Names&, Names&,
                                      Names&);
  friend Member memberOf(CheckLocationModel);
};
struct CheckPhysicsModel {
  using Member = bool (OrvChecker::*)(const Names&, const Names&, const Names&, const Names&,
                                      const Names&);
  friend Member memberOf(CheckPhysicsModel);
};
struct CheckPhysicsObject {
  using Member = bool (OrvChecker::*)(const std::string&, const std::string&, const std::string&,
                                      const Names&, bool);
  friend Member memberOf(CheckPhysicsObject);
};
struct CheckNodeZones {
  using Member = Step;
  friend Step memberOf(CheckNodeZones);
};
struct CheckFaceZones {
  using Member = Step;
  friend Step memberOf(CheckFaceZones);
};
struct CheckCellZones {
  using Member = Step;
  friend Step memberOf(CheckCellZones);
};
struct JudgeConnectivity {
  using Member = int (OrvChecker::*)(int, int, bool);
  friend Member memberOf(JudgeConnectivity);
};
struct CheckZoneCommonAttributes {
  using Member = bool (OrvChecker::*)(std::vector<int>, std::uint64_t, const std::string&);
  friend Member memberOf(CheckZoneCommonAttributes);
};
struct CellZoneConnectivityTypes {
  using Member = std::vector<int> OrvChecker::*;
  friend Member memberOf(CellZoneConnectivityTypes);
};
struct CellsFromFacesMode {
  using Member = int OrvChecker::*;
  friend Member memberOf(CellsFromFacesMode);
};

template struct Grant<DisplayStep, &OrvChecker::displayStep>;
template struct Grant<AddError, &OrvChecker::addError>;
template struct Grant<AddWarning, &OrvChecker::addWarning>;
template struct Grant<CheckORVErrors, &OrvChecker::checkORVErrors>;
template struct Grant<TargetName, &OrvChecker::targetName>;
template struct Grant<DescribeLocation, &OrvChecker::describeLocation>;
template struct Grant<CheckVersion, &OrvChecker::checkVersion>;
template struct Grant<CheckSolverType, &OrvChecker::checkSolverType>;
template struct Grant<CheckMeshSize, &OrvChecker::checkMeshSize>;
template struct Grant<CheckMeshConnectivity, &OrvChecker::checkMeshConnectivity>;
template struct Grant<CheckCellZoneConnectivityTypes, &OrvChecker::checkCellZoneConnectivityTypes>;
template struct Grant<CheckTopologyModel, &OrvChecker::checkTopologyModel>;
template struct Grant<CheckPhysicsToMeshMap, &OrvChecker::checkPhysicsToMeshMapUsingTopologyModel>;
template struct Grant<CheckLocationModel, &OrvChecker::checkLocationModel>;
template struct Grant<CheckPhysicsModel, &OrvChecker::checkPhysicsModel>;
template struct Grant<CheckPhysicsObject, &OrvChecker::checkPhysicsObject>;
template struct Grant<CheckNodeZones, &OrvChecker::checkNodeZones>;
template struct Grant<CheckFaceZones, &OrvChecker::checkFaceZones>;
template struct Grant<CheckCellZones, &OrvChecker::checkCellZones>;
template struct Grant<JudgeConnectivity, &OrvChecker::judgeConnectivity>;
template struct Grant<CheckZoneCommonAttributes, &OrvChecker::checkZoneCommonAttributes>;
template struct Grant<CellZoneConnectivityTypes, &OrvChecker::cellZoneConnectivityTypes>;
template struct Grant<CellsFromFacesMode, &OrvChecker::cellsFromFacesMode>;

}  // namespace

void displayStep(OrvChecker& checker, const std::string& step, const std::string& detail) {
  (checker.*memberOf(DisplayStep{}))(step, detail);
}

void addError(OrvChecker& checker, int level, const std::string& message) {
  (checker.*memberOf(AddError{}))(level, message);
}

void addWarning(OrvChecker& checker, int level, const std::string& message) {
  (checker.*memberOf(AddWarning{}))(level, message);
}

bool checkORVErrors(OrvChecker& checker) { return (checker.*memberOf(CheckORVErrors{}))(); }

std::string targetName(int category) { return memberOf(TargetName{})(category); }

std::string describeLocation(const OrvChecker& checker) {
  return (checker.*memberOf(DescribeLocation{}))();
}

bool checkVersion(OrvChecker& checker, OrvDataClass dataClass) {
  return (checker.*memberOf(CheckVersion{}))(dataClass);
}

bool checkSolverType(OrvChecker& checker) { return (checker.*memberOf(CheckSolverType{}))(); }

bool checkMeshSize(OrvChecker& checker) { return (checker.*memberOf(CheckMeshSize{}))(); }

bool checkMeshConnectivity(OrvChecker& checker) {
  return (checker.*memberOf(CheckMeshConnectivity{}))();
}

bool checkCellZoneConnectivityTypes(OrvChecker& checker) {
  return (checker.*memberOf(CheckCellZoneConnectivityTypes{}))();
}

bool checkTopologyModel(OrvChecker& checker) { return (checker.*memberOf(CheckTopologyModel{}))(); }

bool checkPhysicsToMeshMapUsingTopologyModel(OrvChecker& checker) {
  return (checker.*memberOf(CheckPhysicsToMeshMap{}))();
}

bool checkLocationModel(OrvChecker& checker, const OrvLocationModel& model, LocationNames& names) {
  return (checker.*memberOf(CheckLocationModel{}))(&model, names.bodies, names.faceUses,
                                                   names.bulkZones, names.bodyComposites,
                                                   names.faceUseComposites);
}

bool checkPhysicsModel(OrvChecker& checker, const LocationNames& names) {
  return (checker.*memberOf(CheckPhysicsModel{}))(names.bodies, names.faceUses, names.bulkZones,
                                                  names.bodyComposites, names.faceUseComposites);
}

bool checkPhysicsObject(OrvChecker& checker, const std::string& kind, const std::string& name,
                        const std::string& attribute, const std::vector<std::string>& validNames,
                        bool optional) {
  return (checker.*memberOf(CheckPhysicsObject{}))(kind, name, attribute, validNames, optional);
}

bool checkNodeZones(OrvChecker& checker) { return (checker.*memberOf(CheckNodeZones{}))(); }

bool checkFaceZones(OrvChecker& checker) { return (checker.*memberOf(CheckFaceZones{}))(); }

bool checkCellZones(OrvChecker& checker) { return (checker.*memberOf(CheckCellZones{}))(); }

int judgeConnectivity(OrvChecker& checker, int zone, int kind, bool restart) {
  return (checker.*memberOf(JudgeConnectivity{}))(zone, kind, restart);
}

bool checkZoneCommonAttributes(OrvChecker& checker, const std::vector<int>& zoneIds,
                               std::uint64_t nmax, const std::string& kind) {
  return (checker.*memberOf(CheckZoneCommonAttributes{}))(zoneIds, nmax, kind);
}

std::vector<int>& cellZoneConnectivityTypes(OrvChecker& checker) {
  return checker.*memberOf(CellZoneConnectivityTypes{});
}

int& cellsFromFacesMode(OrvChecker& checker) { return checker.*memberOf(CellsFromFacesMode{}); }

// --- The nodes and faces that zones list ---------------------------------------------------------

namespace {

using Lists = std::vector<std::vector<std::uint64_t>> OrvChecker::*;
using Places = std::vector<std::uint64_t*> OrvChecker::*;
using Counts = std::vector<int> OrvChecker::*;

struct CheckFaceConnectivity {
  using Member = Step;
  friend Step memberOf(CheckFaceConnectivity);
};
struct CheckCellConnectivity {
  using Member = Step;
  friend Step memberOf(CheckCellConnectivity);
};
struct ReadFaceNodes {
  using Member = Step;
  friend Step memberOf(ReadFaceNodes);
};
struct ReadCellNodes {
  using Member = Step;
  friend Step memberOf(ReadCellNodes);
};
struct FaceNodeIds {
  using Member = Lists;
  friend Lists memberOf(FaceNodeIds);
};
struct FaceNodePointers {
  using Member = Places;
  friend Places memberOf(FaceNodePointers);
};
struct FaceNodeCounts {
  using Member = Counts;
  friend Counts memberOf(FaceNodeCounts);
};
struct CellNodeIds {
  using Member = Lists;
  friend Lists memberOf(CellNodeIds);
};
struct CellNodePointers {
  using Member = Places;
  friend Places memberOf(CellNodePointers);
};
struct CellNodeCounts {
  using Member = Counts;
  friend Counts memberOf(CellNodeCounts);
};

template struct Grant<CheckFaceConnectivity, &OrvChecker::checkFaceConnectivity>;
template struct Grant<CheckCellConnectivity, &OrvChecker::checkCellConnectivity>;
template struct Grant<ReadFaceNodes, &OrvChecker::readFaceNodes>;
template struct Grant<ReadCellNodes, &OrvChecker::readCellNodes>;
template struct Grant<FaceNodeIds, &OrvChecker::faceNodeIds>;
template struct Grant<FaceNodePointers, &OrvChecker::faceNodePointers>;
template struct Grant<FaceNodeCounts, &OrvChecker::faceNodeCounts>;
template struct Grant<CellNodeIds, &OrvChecker::cellNodeIds>;
template struct Grant<CellNodePointers, &OrvChecker::cellNodePointers>;
template struct Grant<CellNodeCounts, &OrvChecker::cellNodeCounts>;

}  // namespace

bool checkFaceConnectivity(OrvChecker& checker) {
  return (checker.*memberOf(CheckFaceConnectivity{}))();
}

bool checkCellConnectivity(OrvChecker& checker) {
  return (checker.*memberOf(CheckCellConnectivity{}))();
}

bool readFaceNodes(OrvChecker& checker) { return (checker.*memberOf(ReadFaceNodes{}))(); }

bool readCellNodes(OrvChecker& checker) { return (checker.*memberOf(ReadCellNodes{}))(); }

NodeTables faceNodeTables(OrvChecker& checker) {
  return {checker.*memberOf(FaceNodeIds{}), checker.*memberOf(FaceNodePointers{}),
          checker.*memberOf(FaceNodeCounts{})};
}

NodeTables cellNodeTables(OrvChecker& checker) {
  return {checker.*memberOf(CellNodeIds{}), checker.*memberOf(CellNodePointers{}),
          checker.*memberOf(CellNodeCounts{})};
}

// --- Cells from faces, shadow faces ---

namespace {

struct CheckCellsFromFaces {
  using Member = Step;
  friend Step memberOf(CheckCellsFromFaces);
};
struct CheckFaceCounts {
  using Member = Step;
  friend Step memberOf(CheckFaceCounts);
};
struct CheckFaceNodes {
  using Member = Step;
  friend Step memberOf(CheckFaceNodes);
};
struct CheckCellFaceOwnership {
  using Member = bool (OrvChecker::*)(int, std::uint64_t*, int, std::uint64_t*);
  friend Member memberOf(CheckCellFaceOwnership);
};
struct CheckFacesShadowZones {
  using Member = Step;
  friend Step memberOf(CheckFacesShadowZones);
};

template struct Grant<CheckCellsFromFaces, &OrvChecker::checkCellsFromFaces>;
template struct Grant<CheckFaceCounts, &OrvChecker::checkCellsFromFaces_facenode>;
template struct Grant<CheckFaceNodes, &OrvChecker::checkCellsFromFaces_cellnode>;
template struct Grant<CheckCellFaceOwnership, &OrvChecker::checkCellFaceOwnership>;
template struct Grant<CheckFacesShadowZones, &OrvChecker::checkFacesShadowZones>;

}  // namespace

bool checkCellsFromFaces(OrvChecker& checker) {
  return (checker.*memberOf(CheckCellsFromFaces{}))();
}

bool checkFaceCounts(OrvChecker& checker) { return (checker.*memberOf(CheckFaceCounts{}))(); }

bool checkFaceNodes(OrvChecker& checker) { return (checker.*memberOf(CheckFaceNodes{}))(); }

bool checkCellFaceOwnership(OrvChecker& checker, int cellNodeCount, std::uint64_t* cellNodes,
                            int faceNodeCount, std::uint64_t* faceNodes) {
  return (checker.*memberOf(CheckCellFaceOwnership{}))(cellNodeCount, cellNodes, faceNodeCount,
                                                       faceNodes);
}

bool checkFacesShadowZones(OrvChecker& checker) {
  return (checker.*memberOf(CheckFacesShadowZones{}))();
}

}  // namespace velto::testing::checker_access
