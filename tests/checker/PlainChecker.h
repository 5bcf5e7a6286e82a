// SPDX-License-Identifier: Apache-2.0
//
// PlainChecker: what a checker has to do, written down as plainly as possible, for comparison.

#ifndef VELTO_TESTS_CHECKER_PLAIN_CHECKER_H
#define VELTO_TESTS_CHECKER_PLAIN_CHECKER_H

#include <cstdint>
#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "data_access/OrvFileProvider.h"

namespace velto::testing {

/// The rules of OrvChecker a second time, one after the other and without any care for speed.
///
/// The checker looks links up in sorted lists, and will do more of that kind to be fast on large
/// cases. This one searches every list from its start, and stays like that, so that random cases
/// tell when a shortcut of the checker changes a message, its place, or a call on the provider. It
/// was written from the rules; to take over code of the checker would take over its mistakes.
///
/// It covers all check levels. What a case makes the checker read or write outside of a table is
/// harmless here as there: such a write is dropped, and nothing is known of what is not there.
class PlainChecker {
 public:
  /// The caller owns what a maker gives; null for a file of no known format.
  using ProviderMaker = std::function<OrvFileProvider*(const std::string& fileName)>;

  explicit PlainChecker(ProviderMaker makeProvider);
  PlainChecker(const PlainChecker&) = delete;
  PlainChecker& operator=(const PlainChecker&) = delete;
  ~PlainChecker();

  // As those of OrvChecker.
  void setVerbosity(int value) { verbosity_ = value; }
  void setCheckLevel(int value) { checkLevel_ = value; }
  void setMeshId(int value) { meshId_ = value; }
  void setPartitionId(int value) { partitionId_ = value; }
  void setTarget(const std::string& word);
  void setNoLM(bool value) { noLM_ = value; }
  bool checkCase(const std::string& fileName);
  const std::vector<std::string>& getErrors() const { return errors_; }
  const std::vector<std::string>& getWarnings() const { return warnings_; }

  /// What the checker would have written since the last call of takeOut() or takeErr().
  std::string takeOut();
  std::string takeErr();

  /// What one walk leaves for the next.
  const std::vector<int>& cellZoneConnectivityTypes() const { return kinds_; }
  int cellsFromFacesMode() const { return mode_; }
  const std::vector<std::vector<std::uint64_t>>& faceNodeIds() const { return faces_.lists; }
  const std::vector<std::vector<std::uint64_t>>& cellNodeIds() const { return cells_.lists; }
  const std::vector<int>& faceNodeCounts() const { return faces_.counts; }
  const std::vector<int>& cellNodeCounts() const { return cells_.counts; }

 private:
  // PlainChecker.cpp: the log, the walk, the file as a whole
  void release();
  void addError(const std::string& message);
  void addWarning(const std::string& message);
  void displayStep(const std::string& step, const std::string& detail);
  bool checkORVErrors();
  std::string location();
  bool openCase(const std::string& fileName);
  bool walkMesh(int mesh, std::set<int>& met);
  bool walkTarget(int mesh, int target, const std::vector<int>& partitions);
  bool checkSelected();
  bool checkConnectivity();
  bool checkVersion();
  void compareVersions(int minor, int patch);
  void checkSolverType();
  bool checkMeshSize();

  // plain_zone_connectivity.cpp: which zones bound which, how the cells of each are described
  bool checkMeshConnectivity();
  bool checkCellZoneBounds(int zone, const std::vector<int>& faceZones, bool restart);
  bool checkFaceZoneSide(int zone, int side, const std::vector<int>& cellZones, bool restart);
  void checkCellZoneConnectivityTypes();
  int judge(int zone, int kind, bool hasNodes, bool hasFaces, bool restart);

  // plain_zone_tables.cpp: sizes, ranges, names, types and links of zones
  void checkNodeZones();
  void checkFaceZones();
  void checkCellZones();
  bool beginZoneTable(const std::string& kind, std::uint64_t count, const std::vector<int>& zones);
  void checkCommonAttributes(const std::vector<int>& zones, std::uint64_t count,
                             const std::string& kind);
  bool checkRanges(const std::set<std::pair<int, int>>& ranges, const std::string& kind);
  void checkFaceZone(int zone, std::uint64_t dimension, const std::vector<int>& zones,
                     const std::vector<int>& treeZones);
  void checkShadow(int zone, int shadow, const std::vector<int>& zones);
  void checkCellZone(int zone, std::uint64_t dimension, const std::vector<int>& zones, int kind);

  // plain_location_model.cpp: the location model against the zones of a mesh
  struct Names;
  void checkTopologyModel();
  bool checkLocationModel(const OrvLocationModel& model, Names& names);
  bool checkBodies(const OrvLocationModel& model, const std::vector<int>& bodies, Names& names);
  bool checkBodyZone(int zone, const std::string& body, Names& names);
  bool checkFaceUses(const OrvLocationModel& model, const std::vector<int>& faceUses, Names& names);
  bool failForMember(const std::string& composite, const std::string& kind, int id);
  bool checkComposites(const OrvLocationModel& model, int part, const std::vector<int>& bodies,
                       const std::vector<int>& faceUses, Names& names);

  // plain_physics.cpp: the physics objects against the names of the model
  void checkPhysicsToMeshMap();
  void checkPhysicsAgainst(const OrvLocationModel& model, bool hasPhysics);
  bool isSet(const std::string& path) const;
  std::vector<std::string> namesAt(const std::string& path) const;
  bool checkPhysicsModel(const Names& names);
  bool checkAttribute(const std::string& kind, const std::string& name,
                      const std::string& attribute, std::vector<std::string> valid, bool optional);
  bool failForUnknown(const std::string& attribute, const std::string& name);

  // plain_connectivity.cpp: the nodes of faces, the nodes and faces of cells
  struct Family;
  /// The nodes of all faces or cells: that at position p has counts[p] of them, from place
  /// cursors[p] of the list zones[p] on.
  struct NodeTable {
    std::vector<std::vector<std::uint64_t>> lists;
    std::vector<int> counts;
    std::vector<std::size_t> zones;
    std::vector<std::uint64_t> cursors;
  };
  void checkFaceConnectivity();
  void checkCellConnectivity();
  void checkListsOfKind(int kind, const std::vector<int>& cellZones, std::uint64_t highest);
  std::uint64_t badIds(const std::string& word, const Family& family, int zone,
                       std::uint64_t length, std::uint64_t highest);
  bool readFaceNodes();
  bool readCellNodes();
  bool readNodes(const std::string& word, const Family& family, std::uint64_t total,
                 std::vector<int> zones, NodeTable& table);
  bool indexZone(const std::string& word, std::size_t zone, const std::vector<short>& counts,
                 std::uint64_t& position, NodeTable& table);
  std::vector<std::uint64_t> nodesAt(const NodeTable& table, std::uint64_t position) const;

  // plain_cells_from_faces.cpp: what the faces tell of the cells beside them, and shadow faces
  struct CellTally;
  void checkCellsFromFaces();
  void checkCellsFromFacesFacenode();
  void takeCellTypes(const std::vector<int>& zones, CellTally& tally);
  void tallySide(int side, const std::vector<int>& zones, const std::vector<int>& treeZones,
                 CellTally& tally);
  void checkFaceCounts(std::uint64_t dimension, const CellTally& tally);
  void checkCellsFromFacesCellnode();
  void checkSide(int side, const std::vector<int>& zones);
  bool hasNodesOfFace(std::uint64_t cell, std::uint64_t face);
  std::uint64_t cellBeside(int side, std::uint64_t face);
  void failForCell(int side, std::uint64_t cell, std::uint64_t face);
  void checkFacesShadowZones();

  std::uint64_t meshSize(OrvMeshSizeType key) const;
  std::uint64_t zoneSize(int zone, OrvZoneSizeType key) const;
  std::string zoneText(int zone, OrvZoneStringInfoType key) const;
  std::vector<int> zonesOf(OrvZoneCategory category) const;

  ProviderMaker makeProvider_;
  OrvFileProvider* provider_ = nullptr;
  int verbosity_ = 1;
  int checkLevel_ = 1;
  int meshId_ = 0;
  int partitionId_ = -1;
  int target_ = -1;
  bool noLM_ = false;
  int mode_ = 0;
  std::vector<int> kinds_;
  NodeTable faces_;
  NodeTable cells_;
  std::string currentStep_;
  std::vector<std::string> errors_;
  std::vector<std::string> warnings_;
  std::ostringstream out_;
  std::ostringstream err_;
};

/// What a location model has names for; a physics object may lie there.
struct PlainChecker::Names {
  std::vector<int> faceZones;  // of the mesh
  std::vector<int> cellZones;
  std::vector<std::string> bodies;
  std::vector<std::string> faceUses;
  std::vector<std::string> bulkZones;
  std::vector<std::string> bodyComposites;
  std::vector<std::string> faceUseComposites;
};

/// True if `value` stands in a list.
bool standsIn(const std::vector<int>& list, int value);

}  // namespace velto::testing

#endif  // VELTO_TESTS_CHECKER_PLAIN_CHECKER_H
