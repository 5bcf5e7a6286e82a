// SPDX-License-Identifier: Apache-2.0
//
// CaseConsumer: the write side of any case that goes into tables and arrays.

#ifndef VELTO_EMBEDDED_BASE_CASE_CONSUMER_H
#define VELTO_EMBEDDED_BASE_CASE_CONSUMER_H

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "data_access/OrvFileConsumer.h"

#include "embedded/base/CaseTables.h"
#include "embedded/base/CellFaceCollector.h"
#include "embedded/base/MeshArrays.h"
#include "embedded/base/zone_relations.h"

namespace velto::base {

/// Follows the protocol of the contract for the memory case, the store and every writable format: a
/// subclass takes the arrays and closes its files.
///
/// A copy hands over less than a case holds. What follows from the rest is derived, so that a good
/// case is good again where it was written: element counts from first and last id, and which face
/// zones bound which cell zones from the cells beside the faces (on a restart target, which alone
/// carries that relation), and the faces of polyhedra without nodes (on the other targets).
///
/// Border of the two error worlds: what a subclass or a sink throws becomes a pending error here.
/// After the first one nothing more is written until the next startWriting: endWriting abandons
/// what was begun, with an error that says so.
class CaseConsumer : public OrvFileConsumer {
 public:
  void setFileName(const std::string& path, OrvDataClass dataClass) override;
  void getFileVersion(OrvDataClass dataClass, int& major, int& minor, int& patch) override;

  void writeStandardSettings(std::vector<std::pair<std::string, std::string>> entries,
                             OrvDataClass dataClass) override;
  void setMode(int mode) override;
  void setCompression(unsigned int level) override;
  void startWriting(OrvDataClass dataClass) override;
  void endWriting(OrvDataClass dataClass) override;
  void writeSettings(const std::vector<std::pair<std::string, std::string>>& entries,
                     OrvDataClass dataClass, const std::string& path) override;
  void writeMeshAttributes() override;
  void writeElemIds(int zoneId, const std::size_t* ids, std::size_t count) override;

  void beginNodes(const std::vector<int>& zoneIds) override;
  void beginNodeCoordinates(const std::vector<int>& zoneIds) override;
  void writeNodeCoordinates(int zoneId, const double* values, std::size_t n) override;
  void endNodeCoordinates() override;
  void endNodes() override;

  void beginFaces(const std::vector<int>& zoneIds) override;
  void beginFaceNodes(const std::vector<int>& zoneIds) override;
  void beginFaceNodeCounts() override;
  void writeUniformFaceNodeCount(int zoneId, short count) override;
  void writeFaceNodeCounts(int zoneId, const short* counts, std::size_t n) override;
  void endFaceNodeCounts() override;
  void beginFaceNodeIds() override;
  void writeFaceNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) override;
  void endFaceNodeIds() override;
  void endFaceNodes() override;
  void beginFaceCell0(const std::vector<int>& zoneIds) override;
  void writeFaceCell0(int zoneId, const std::uint64_t* cellIds, std::size_t n) override;
  void endFaceCell0() override;
  void beginFaceCell1(const std::vector<int>& zoneIds) override;
  void writeFaceCell1(int zoneId, const std::uint64_t* cellIds, std::size_t n) override;
  void endFaceCell1() override;
  void endFaces() override;

  void beginCells(const std::vector<int>& zoneIds) override;
  void beginCellTypes(const std::vector<int>& zoneIds,
                      const std::vector<int>& uniformTypes) override;
  void writeCellTypes(int zoneId, const int* types, std::size_t n) override;
  void endCellTypes() override;
  void beginCellNodes(const std::vector<int>& zoneIds) override;
  void beginCellNodeCounts() override;
  void writeCellNodeCounts(int zoneId, const short* counts, std::size_t n) override;
  void writeUniformCellNodeCount(int zoneId, short count) override;
  void endCellNodeCounts() override;
  void beginCellNodeIds() override;
  void writeCellNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) override;
  void endCellNodeIds() override;
  void endCellNodes() override;
  void beginCellPartitions(const std::vector<int>& zoneIds, int partitionInfo) override;
  void writeCellPartitions(int zoneId, const int* partitions, std::size_t n) override;
  void endCellPartitions() override;
  void endCells() override;

  void addPhases(const std::vector<std::string>& names, std::vector<short>& phaseIds) override;
  void setPhaseAttribute(short phaseId, const std::string& name, const std::string& value) override;
  void beginPhase(short phaseId) override;
  void addVariable(const std::string& name, int& variableId) override;
  void declareVariables(OrvZoneCategory category, const std::vector<std::string>& names,
                        const std::vector<int>& variableIds) override;
  void beginVariableZones(OrvZoneCategory category) override;
  void setVariableAttribute(int variableId, const std::string& name,
                            const std::string& value) override;
  void beginVariable(OrvZoneCategory category, const std::string& name,
                     const std::vector<int>& zoneIds, std::size_t valuesPerEntity) override;
  void writeVariable(int zoneId, const double* values, std::size_t n) override;
  void endVariable() override;
  void endVariableZones() override;
  void endPhase() override;
  void setPhaseDescription(short phaseId, const std::string& text) override;
  void setVariableDescription(int variableId, const std::string& text) override;

 protected:
  CaseConsumer() = default;

  /// Where the arrays of a mesh go. Called for each array; throws CaseError if it cannot be had.
  virtual MeshArraySink& sink(const MeshKey& key) = 0;

  /// Writing of a class begins. Throws CaseError if it cannot.
  virtual void open(OrvDataClass dataClass) = 0;
  /// Writing of a class is complete, and the tables are final. Throws CaseError.
  virtual void finish(OrvDataClass dataClass) = 0;

  /// Whether the sink wants the faces of polyhedra, which take room until they are all found.
  virtual bool wantsCellFaces() const { return true; }

  /// Writing failed; what was begun is dropped.
  virtual void abandon() {}

  /// The file that setFileName gave for a class; empty if it gave none.
  const std::string& fileName(OrvDataClass dataClass) { return fileNames_[dataClass]; }
  /// What setMode asked for, 0 if it was not called.
  int mode() const { return mode_; }
  /// What setCompression asked for, 0 if it was not called.
  unsigned int compression() const { return compression_; }

 private:
  /// Runs an operation on the sink of the selected mesh.
  void onSink(const std::string& what, const std::function<void(MeshArraySink&)>& operation);

  void begin(Family family, const std::vector<int>& zoneIds);
  void writeIds(Family family, int zoneId, const std::uint64_t* ids, std::size_t n);
  void beginSide(Family family, const std::vector<int>& zoneIds);
  void writeSide(int side, int zoneId, const std::uint64_t* cellIds, std::size_t n);

  std::map<OrvDataClass, std::string> fileNames_;
  int mode_ = 0;
  unsigned int compression_ = 0;
  bool failed_ = false;             // something of what is being written got lost
  std::vector<int> cellNodeZones_;  // of the mesh that is being written
  CellZoneRanges cellZones_;        // of the mesh whose face cells are being written
  CellFaceCollector cellFaces_;
  VariableKey variable_;  // the phase, and the variable, that are open
};

}  // namespace velto::base

#endif  // VELTO_EMBEDDED_BASE_CASE_CONSUMER_H
