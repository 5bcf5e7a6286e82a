// SPDX-License-Identifier: Apache-2.0
//
// OrvConsumer: the write side of a case.

#ifndef VELTO_DATA_ACCESS_ORV_CONSUMER_H
#define VELTO_DATA_ACCESS_ORV_CONSUMER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "data_access/OrvBase.h"
#include "data_access/OrvTypes.h"

namespace velto {

/// Takes a case: sizes and zone tables by the setters of OrvBase, connectivity and field data by
/// families of bulk calls. The order of one case, and of one set of results:
///
///     startWriting(dataClassCase)               startWriting(dataClassResults)
///       setMeshId, setSolverType                  setSolverType
///       setMeshSize, setMeshUnits                 setMeshSize, setZoneIds, zone setters
///       writeMeshAttributes                       addPhases
///       setZoneIds, zone setters                  setPhaseDescription, setPhaseAttribute
///       beginNodes ... endNodes                   beginPhase ... endPhase
///       beginCells ... endCells                 endWriting(dataClassResults)
///       beginFaces ... endFaces
///       setLocationModel
///       writeSettings ..., writeStandardSettings
///     endWriting(dataClassCase)
///
/// Inside beginCells stand the families cell nodes, cell types, cell partitions; inside beginFaces
/// face nodes, face cells 0, face cells 1. A family with counts comes in two passes, as on the read
/// side: for each zone that has elements one of the two count calls, then for each zone its list.
///
/// Every write brings a whole zone in one call. BUFFERS ARE THE CALLER'S and valid during the call
/// only; a pointer may be null where its length is 0. Zone ids are those of setZoneIds.
///
/// No operation reports a failure to its caller: it is kept among the pending messages.
class OrvConsumer : public virtual OrvBase {
 public:
  /// Takes over the location model. The model stays the caller's and may be destroyed right after
  /// the call. Declared const as the setters of face zones are.
  void setLocationModel(const OrvLocationModel* model) const;

  /// @name Writing brackets and settings
  /// @{

  /// Writes settings that every case has, each as key and value: "Time", "Source Format",
  /// "Destination Format".
  virtual void writeStandardSettings(std::vector<std::pair<std::string, std::string>> entries,
                                     OrvDataClass dataClass) = 0;
  /// How what will be written is written, with values of the consumer's own: 1 for text in a format
  /// that has binary files too.
  virtual void setMode(int mode) = 0;
  /// Compression of what will be written: 0 for none, 1 to 9 from fast to small.
  virtual void setCompression(unsigned int level) = 0;
  /// Opens the class for writing, under the name that OrvFileIO::setFileName gave it. The results
  /// follow their case, on the same object or on one of their own.
  virtual void startWriting(OrvDataClass dataClass) = 0;
  /// Closes the class. A file takes its final name here and not before.
  virtual void endWriting(OrvDataClass dataClass) = 0;
  /// Writes settings, each as key and value, in the store `path` (OrvBase::_defaultSettingsPath). A
  /// key that is there already gets the new value.
  virtual void writeSettings(const std::vector<std::pair<std::string, std::string>>& entries,
                             OrvDataClass dataClass, const std::string& path) = 0;
  /// Commits the sizes and units that setMeshSize and setMeshUnits stored.
  virtual void writeMeshAttributes() = 0;
  /// Takes the element ids of one zone: the ids that its elements have elsewhere, `count` of them.
  /// Comes between beginNodes and beginNodeCoordinates, or between beginVariableZones and
  /// beginVariable.
  virtual void writeElemIds(int zoneId, const std::size_t* ids, std::size_t count) = 0;

  /// @}
  /// @name Nodes
  /// @{

  /// A bracket around the nodes, or around their coordinates; `zoneIds` are the zones that will be
  /// written in it.
  virtual void beginNodes(const std::vector<int>& zoneIds) = 0;
  virtual void beginNodeCoordinates(const std::vector<int>& zoneIds) = 0;
  /// Coordinates of one zone, node after node, `n` values in all.
  virtual void writeNodeCoordinates(int zoneId, const double* values, std::size_t n) = 0;
  virtual void endNodeCoordinates() = 0;
  virtual void endNodes() = 0;

  /// @}
  /// @name Faces
  /// @{

  /// A bracket around the faces, around a family of theirs, or around its counts or ids; `zoneIds`
  /// are the zones that will be written in it.
  virtual void beginFaces(const std::vector<int>& zoneIds) = 0;
  virtual void beginFaceNodes(const std::vector<int>& zoneIds) = 0;
  virtual void beginFaceNodeCounts() = 0;
  /// All faces of the zone have `count` nodes.
  virtual void writeUniformFaceNodeCount(int zoneId, short count) = 0;
  /// One count a face.
  virtual void writeFaceNodeCounts(int zoneId, const short* counts, std::size_t n) = 0;
  virtual void endFaceNodeCounts() = 0;
  virtual void beginFaceNodeIds() = 0;
  /// The zone's connectivity list, as OrvProvider::readFaceNodeIds gives it.
  virtual void writeFaceNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) = 0;
  virtual void endFaceNodeIds() = 0;
  virtual void endFaceNodes() = 0;
  virtual void beginFaceCell0(const std::vector<int>& zoneIds) = 0;
  /// The cells on side 0: one id a face, 0 for none.
  virtual void writeFaceCell0(int zoneId, const std::uint64_t* cellIds, std::size_t n) = 0;
  virtual void endFaceCell0() = 0;
  virtual void beginFaceCell1(const std::vector<int>& zoneIds) = 0;
  /// The cells on side 1: one id a face, 0 for none.
  virtual void writeFaceCell1(int zoneId, const std::uint64_t* cellIds, std::size_t n) = 0;
  virtual void endFaceCell1() = 0;
  virtual void endFaces() = 0;

  /// @}
  /// @name Cells
  /// @{

  /// A bracket around the cells, around a family of theirs, or around its counts or ids; `zoneIds`
  /// are the zones that will be written in it.
  virtual void beginCells(const std::vector<int>& zoneIds) = 0;
  /// `uniformTypes` has an entry for each listed zone: the one type of all its cells, or 0 if
  /// writeCellTypes will follow for it.
  virtual void beginCellTypes(const std::vector<int>& zoneIds,
                              const std::vector<int>& uniformTypes) = 0;
  /// One type a cell, in the numbers of OrvProvider::readCellTypes.
  virtual void writeCellTypes(int zoneId, const int* types, std::size_t n) = 0;
  virtual void endCellTypes() = 0;
  virtual void beginCellNodes(const std::vector<int>& zoneIds) = 0;
  virtual void beginCellNodeCounts() = 0;
  /// One count a cell.
  virtual void writeCellNodeCounts(int zoneId, const short* counts, std::size_t n) = 0;
  /// All cells of the zone have `count` nodes.
  virtual void writeUniformCellNodeCount(int zoneId, short count) = 0;
  virtual void endCellNodeCounts() = 0;
  virtual void beginCellNodeIds() = 0;
  /// The zone's connectivity list, as OrvProvider::readCellNodeIds gives it.
  virtual void writeCellNodeIds(int zoneId, const std::uint64_t* ids, std::size_t n) = 0;
  virtual void endCellNodeIds() = 0;
  virtual void endCellNodes() = 0;
  /// `partitionInfo` is what OrvProvider::getCellPartitionInfo gave for the first zone.
  virtual void beginCellPartitions(const std::vector<int>& zoneIds, int partitionInfo) = 0;
  /// One integer a cell: the partition that it is meant for.
  virtual void writeCellPartitions(int zoneId, const int* partitions, std::size_t n) = 0;
  virtual void endCellPartitions() = 0;
  virtual void endCells() = 0;

  /// @}
  /// @name Field data
  ///
  ///     beginPhase(phase)                          once for each category that has variables
  ///       addVariable, setVariableAttribute        for each variable
  ///       declareVariables(category, names, ids)
  ///       beginVariableZones(category)             for each variable that has zones
  ///         writeElemIds
  ///         beginVariable, writeVariable, endVariable
  ///       endVariableZones()
  ///     endPhase()
  ///
  /// @{

  /// Registers phases and fills `phaseIds`, which comes in empty, with an id for each name, in the
  /// order of the names.
  virtual void addPhases(const std::vector<std::string>& names, std::vector<short>& phaseIds) = 0;
  /// Stores an attribute of a phase; one of that name gets the new value.
  virtual void setPhaseAttribute(short phaseId, const std::string& name,
                                 const std::string& value) = 0;
  /// Opens a phase: the variables that follow are its own.
  virtual void beginPhase(short phaseId) = 0;
  /// Registers a variable of the open phase and gives its id; a name that is known keeps its id.
  virtual void addVariable(const std::string& name, int& variableId) = 0;
  /// Names the variables of a category and gives their ids, position by position.
  virtual void declareVariables(OrvZoneCategory category, const std::vector<std::string>& names,
                                const std::vector<int>& variableIds) = 0;
  /// Opens the zones of one variable, all of one category.
  virtual void beginVariableZones(OrvZoneCategory category) = 0;
  /// Stores an attribute of a variable; one of that name gets the new value.
  virtual void setVariableAttribute(int variableId, const std::string& name,
                                    const std::string& value) = 0;
  /// Opens the values of a variable, one of those that were declared: in `zoneIds`, with
  /// `valuesPerEntity` values an element, 1 for a scalar and 3 for a vector in space.
  virtual void beginVariable(OrvZoneCategory category, const std::string& name,
                             const std::vector<int>& zoneIds, std::size_t valuesPerEntity) = 0;
  /// The values of one zone, element after element, `n` in all.
  virtual void writeVariable(int zoneId, const double* values, std::size_t n) = 0;
  /// Closes what beginVariable opened.
  virtual void endVariable() = 0;
  /// Closes what beginVariableZones opened.
  virtual void endVariableZones() = 0;
  /// Closes the phase, which may be opened again for another category.
  virtual void endPhase() = 0;

  /// @}

 protected:
  OrvConsumer() = default;
  ~OrvConsumer() = default;
};

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_ORV_CONSUMER_H
