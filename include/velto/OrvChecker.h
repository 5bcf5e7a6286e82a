// SPDX-License-Identifier: Apache-2.0
//
// OrvChecker: tells what is wrong with a case file.

#ifndef VELTO_ORV_CHECKER_H
#define VELTO_ORV_CHECKER_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "velto/CheckListener.h"
#include "velto/export.h"

#include "data_access/OrvTypes.h"
#include "data_access/fwd.h"

namespace velto {

class FacetRules;
class IdList;
struct IdRange;

/// Validates a case file and keeps what it finds as two lists of texts.
///
///     velto::OrvChecker checker;
///     checker.setCheckLevel(2);
///     if (!checker.checkCase("duct.orv")) {
///       for (const std::string& error : checker.getErrors()) { ... }
///     }
///
/// A check that finds a defect records it and the walk over meshes, targets and partitions goes on;
/// an error inside the data-access library ends the walk. Each entry of the lists reads
/// "<step> : <message>". The lists only grow: a checker that is used for a second file keeps what
/// the first one left.
///
/// A checker owns the case that it opened until its next checkCase or its destruction, whichever
/// comes first. One thread at a time may use a checker, and all copies that share its case.
class VELTO_EXPORT OrvChecker {
 public:
  /// A checker of level 1 and verbosity 1 for all meshes, targets and partitions.
  OrvChecker();

  /// @name Copies and destruction
  /// @{

  /// Copies share the case that is open: whichever releases it first releases it for all of them.
  /// An assignment does not release the case that its target held.
  OrvChecker(const OrvChecker& other);
  OrvChecker& operator=(const OrvChecker& other);

  /// Releases the case that is open.
  virtual ~OrvChecker();

  /// @}
  /// @name What is checked and shown; kept for all files that follow
  /// @{

  /// What is shown while running. Messages are recorded whatever the value is.
  ///
  ///     0 or less  nothing
  ///     1          errors and warnings on standard error (default)
  ///     2          and details on standard output: version, sizes, zones
  ///     3          and each step on standard output, each bad id on standard error
  ///     4          and each cell with the wrong number of faces on standard output
  void setVerbosity(int value);

  /// Which checks run: below 1 those of the file as a whole, 1 those of the zone tables as well
  /// (default), 2 those of the connectivity as well.
  void setCheckLevel(int value);

  /// Checks only this mesh; 0 and less (default 0) stand for all.
  void setMeshId(int value);

  /// Checks only this partition of partitioned post targets; -1 (default) stands for all. Restart
  /// and post targets are not filtered.
  void setPartitionId(int value);

  /// Checks only the target that is named "restart", "post" or "ppost"; any other text (default)
  /// stands for all. The comparison is exact.
  void setTarget(const std::string& word);

  /// With true, leaves out the location model and the physics objects that refer to it.
  void setNoLM(bool value);

  /// @}
  /// @name Checking
  /// @{

  /// Has a listener hear what the checker does, from the next checkCase on; null (default) for
  /// none. It is not owned, copies of the checker share it, and it has to live as long as they use
  /// it. What is recorded and shown does not depend on it.
  void setListener(CheckListener* value);

  /// Checks a case file. True when the list of errors is empty, also of errors that an earlier call
  /// left; false for a file of a newer major version, which is only a warning.
  ///
  /// Throws nothing of its own; what the data-access library throws reaches the caller, and the
  /// checker stays usable.
  bool checkCase(const std::string& fileName);

  /// The errors recorded so far, oldest first. The reference stays valid as long as the checker
  /// does, and sees what is added.
  const std::vector<std::string>& getErrors() const;
  /// The warnings recorded so far, in the same way. They do not make a file unsound.
  const std::vector<std::string>& getWarnings() const;

  /// @}

 private:
  /// The open case, shared by the copies of a checker.
  struct ProviderSlot;

  // OrvChecker.cpp: the log, the walk and its steps in their order
  void addError(int level, const std::string& message);
  void addWarning(int level, const std::string& message);
  void displayStep(const std::string& step, const std::string& detail);
  void tellFinding(CheckSeverity severity, const std::string& message);
  void leaveOut(const CheckPlace& where, const std::string& step, CheckOmission reason);
  void leaveOutSteps(std::initializer_list<const char*> steps);
  bool checkORVErrors();
  static std::string targetName(int category);
  std::string describeLocation() const;
  OrvFileProvider* openProvider() const;
  void releaseProvider();
  bool openCase(const std::string& fileName);
  bool walkMesh(int mesh, std::set<int>& targetsMet);
  bool walkTarget(int mesh, int category, const std::vector<int>& partitions);
  bool checkSelected();
  using Check = bool (OrvChecker::*)();
  bool passAll(std::initializer_list<Check> checks);

  // file_checks.cpp: the file as a whole, and the sizes of a mesh
  bool checkVersion(OrvDataClass dataClass);
  bool checkSolverType();
  bool checkMeshSize();

  // zone_connectivity.cpp: which zones bound which, and how the cells of each are described
  bool checkMeshConnectivity();
  bool checkBoundingFaceZones(int zone, const IdList& faceZones, bool restart);
  bool checkSideCellZones(int zone, int side, const IdList& cellZones, bool restart);
  bool checkCellZoneConnectivityTypes();
  int addCellFaces(int zone, int kind);
  int judgeConnectivity(int zone, int kind, bool restart);
  int kindOfCellZone(std::size_t position) const;

  // zone_tables.cpp: sizes, ranges, names, types and links of zones
  struct ZoneTable;
  ZoneTable readZoneTable(OrvMeshSizeType count, OrvZoneCategory category);
  bool checkNodeZones();
  bool checkFaceZones();
  bool checkCellZones();
  bool checkZoneCommonAttributes(std::vector<int> zoneIds, std::uint64_t nmax,
                                 const std::string& kind);
  bool checkZoneRanges(std::vector<std::pair<int, int>> ranges, const std::string& kind);
  void checkFaceZone(int zone, std::uint64_t dimension, const IdList& known,
                     const IdList& treeZones);
  void checkShadowLink(int zone, int shadow, const IdList& known);
  void checkCellZone(int zone, std::uint64_t dimension, const IdList& known, int connectivity);

  // face_connectivity.cpp: the nodes of faces
  bool checkFaceConnectivity();

  // cell_connectivity.cpp: the nodes and faces that cell zones list
  struct CellPass;
  bool checkCellConnectivity();
  void checkListsOfCells(const CellPass& pass, const std::vector<int>& zones);

  // node_tables.cpp: the nodes of all faces and cells in memory
  struct NodeTables;
  bool readFaceNodes();
  bool readCellNodes();
  bool readNodes(const NodeTables& tables);
  bool indexNodes(const NodeTables& tables, std::vector<std::uint64_t>& list,
                  const std::vector<short>& counts, std::uint64_t& position);

  // cells_from_faces.cpp: cells by the faces that name them
  struct FaceSide;
  bool checkCellsFromFaces();
  // NOLINTNEXTLINE(readability-identifier-naming): its given name
  bool checkCellsFromFaces_facenode();
  // NOLINTNEXTLINE(readability-identifier-naming): its given name
  bool checkCellsFromFaces_cellnode();
  bool checkCellFaceOwnership(int cellNodeCount, std::uint64_t* cellNodes, int faceNodeCount,
                              std::uint64_t* faceNodes);
  void readTypesOfCells(const std::vector<int>& zones, std::vector<int>& typeOfCell);
  void countFacesOfCells(const FaceSide& side, const IdRange& faces,
                         std::vector<std::int16_t>& facesOfCell);
  void judgeFaceCounts(const std::vector<int>& typeOfCell,
                       const std::vector<std::int16_t>& facesOfCell, const FacetRules& rules,
                       bool subdividedFaces);
  void compareNodes(const FaceSide& side, std::vector<int>& zones);
  bool ownsFace(std::uint64_t cell, std::uint64_t face);
  void addInvalidCell(const FaceSide& side, std::uint64_t cell, std::uint64_t face);

  // shadow_faces.cpp: the partners of faces
  bool checkFacesShadowZones();

  // location_model_checks.cpp: the location model against the zones of a mesh
  bool checkTopologyModel();
  bool checkLocationModel(const OrvLocationModel* model, std::vector<std::string>& bodyNames,
                          std::vector<std::string>& faceUseNames,
                          std::vector<std::string>& bulkZoneNames,
                          std::vector<std::string>& bodyCompositeNames,
                          std::vector<std::string>& faceUseCompositeNames);
  bool checkBodies(const OrvLocationModel& model, const std::vector<int>& bodies,
                   const IdList& cellZones, const IdList& faceZones,
                   std::vector<std::string>& bodyNames, std::vector<std::string>& bulkZoneNames);
  bool checkBodyZone(const std::string& body, int zone, const IdList& cellZones,
                     const IdList& faceZones, std::vector<std::string>& bulkZoneNames);
  bool checkFaceUses(const OrvLocationModel& model, const std::vector<int>& faceUses,
                     const IdList& faceZones, std::vector<std::string>& faceUseNames);
  bool checkComposites(const OrvLocationModel& model, const std::vector<int>& composites,
                       const IdList& bodies, const IdList& faceUses,
                       std::vector<std::string>& bodyCompositeNames,
                       std::vector<std::string>& faceUseCompositeNames);

  // physics_checks.cpp: the physics objects of the settings against the names of the model
  bool checkPhysicsToMeshMapUsingTopologyModel();
  bool checkPhysicsAgainst(const OrvLocationModel& model, bool hasPhysics);
  bool hasPhysicsObjects() const;
  bool checkPhysicsModel(const std::vector<std::string>& bodyNames,
                         const std::vector<std::string>& faceUseNames,
                         const std::vector<std::string>& bulkZoneNames,
                         const std::vector<std::string>& bodyCompositeNames,
                         const std::vector<std::string>& faceUseCompositeNames);
  bool checkDomain(const std::vector<std::string>& domains,
                   const std::vector<std::string>& volumeLocations);
  bool checkSubdomain(const std::vector<std::string>& subdomains,
                      const std::vector<std::string>& domains,
                      const std::vector<std::string>& volumeLocations);
  bool checkBoundary(const std::vector<std::string>& boundaries,
                     const std::vector<std::string>& domains,
                     const std::vector<std::string>& surfaceLocations);
  bool checkInterface(const std::vector<std::string>& interfaces,
                      const std::vector<std::string>& domains,
                      const std::vector<std::string>& boundaries);
  bool checkPhysicsObject(const std::string& kind, const std::string& name,
                          const std::string& attribute, const std::vector<std::string>& validNames,
                          bool optional);

  std::shared_ptr<ProviderSlot> provider;
  int verbosity = 1;
  int checkLevel = 1;
  bool noLM = false;
  int meshId = 0;
  int partitionId = -1;
  int target = -1;
  /// Of the mesh walked last: its form, and the kind of each of its cell zones.
  int cellsFromFacesMode = 0;
  std::vector<int> cellZoneConnectivityTypes;
  /// The nodes of all faces and cells, a list a zone; by position, where those of one begin and how
  /// many they are, null and 0 where nothing is known; and those of one that its list cut short.
  /// Filled anew for each mesh that needs them.
  std::vector<std::vector<std::uint64_t>> faceNodeIds;
  std::vector<std::uint64_t*> faceNodePointers;
  std::vector<int> faceNodeCounts;
  std::vector<std::uint64_t> cutFaceNodes;
  std::vector<std::vector<std::uint64_t>> cellNodeIds;
  std::vector<std::uint64_t*> cellNodePointers;
  std::vector<int> cellNodeCounts;
  std::vector<std::uint64_t> cutCellNodes;
  CheckListener* listener = nullptr;
  CheckPlace place;
  std::string currentStep;
  std::vector<std::string> errors;
  std::vector<std::string> warnings;
};

}  // namespace velto

#endif  // VELTO_ORV_CHECKER_H
