// SPDX-License-Identifier: Apache-2.0
//
// ForwardingProvider: passes every call to another provider; the base of decorators.

#ifndef VELTO_TESTING_FORWARDING_PROVIDER_H
#define VELTO_TESTING_FORWARDING_PROVIDER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "data_access/OrvFileProvider.h"

#include "testing/Forwarding.h"

namespace velto::testing {

/// A decorator overrides an operation, or listens: it then hears of every virtual call as a line
/// before the target gets it, a buffer as its length ("readFaceNodeIds(2, 24)"), and may change
/// what comes back.
class ForwardingProvider : public Forwarding<OrvFileProvider> {
 public:
  explicit ForwardingProvider(OrvFileProvider& target) : Forwarding(target) {}

  void setBaseOption(bool option) override;
  std::uint64_t getZoneCount(OrvZoneCategory category) override;
  void getZoneIds(OrvZoneCategory category, std::vector<int>& ids) override;
  void setSolverType(std::string solverType) override;
  bool startReading(const std::string& fileName, OrvDataClass dataClass) override;
  void setFileName(const std::string& path, OrvDataClass dataClass) override;
  void getFileVersion(OrvDataClass dataClass, int& major, int& minor, int& patch) override;
  void getSettingsKeys(OrvDataClass dataClass, std::vector<std::string>& keys) override;
  void getSettingsValue(OrvDataClass dataClass, const std::string& key, std::string& value,
                        const std::string& path) override;
  void getMeshIds(std::vector<int>& ids, OrvDataClass dataClass) override;
  void getTargets(std::vector<int>& categories, int meshId, OrvDataClass dataClass) override;
  void getPartitionIds(std::vector<int>& ids, int meshId, OrvDataClass dataClass) override;
  void beginNodeCoordinates(std::vector<int>& zoneIds) override;
  std::size_t readNodeCoordinates(int zoneId, double* values, std::size_t n) override;
  void endNodeCoordinates() override;
  void beginFaceNodes(std::vector<int>& zoneIds) override;
  void beginFaceNodeCounts() override;
  bool getUniformFaceNodeCount(int zoneId, short& count) override;
  void readFaceNodeCounts(int zoneId, short* counts, std::size_t n) override;
  void endFaceNodeCounts() override;
  void beginFaceNodeIds() override;
  void readFaceNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) override;
  void endFaceNodeIds() override;
  void endFaceNodes() override;
  void beginFaceCell0(std::vector<int>& zoneIds) override;
  std::uint64_t getFaceCell0(std::uint64_t faceId) override;
  void readFaceCell0(int zoneId, std::uint64_t* cellIds, std::size_t n) override;
  void endFaceCell0() override;
  void beginFaceCell1(std::vector<int>& zoneIds) override;
  std::uint64_t getFaceCell1(std::uint64_t faceId) override;
  void readFaceCell1(int zoneId, std::uint64_t* cellIds, std::size_t n) override;
  void endFaceCell1() override;
  void beginFaceShadows(std::vector<int>& zoneIds) override;
  std::uint64_t getFaceShadow(std::uint64_t faceId) override;
  void endFaceShadows() override;
  void beginFaceTree(std::vector<int>& parentZoneIds, std::vector<int>& childZoneIds) override;
  void endFaceTree() override;
  void beginCellTypes(std::vector<int>& zoneIds) override;
  bool getUniformCellType(int zoneId, int& type) override;
  int getCellType(std::uint64_t cellId) override;
  std::size_t readCellTypes(int zoneId, int* types, std::size_t n) override;
  void endCellTypes() override;
  void beginCellNodes(std::vector<int>& zoneIds) override;
  void beginCellNodeCounts() override;
  bool getUniformCellNodeCount(int zoneId, short& count) override;
  void readCellNodeCounts(int zoneId, short* counts, std::size_t n) override;
  void endCellNodeCounts() override;
  void beginCellNodeIds() override;
  void readCellNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) override;
  void endCellNodeIds() override;
  void endCellNodes() override;
  void beginCellFaces(std::vector<int>& zoneIds) override;
  void beginCellFaceCounts() override;
  bool getUniformCellFaceCount(int zoneId, short& count) override;
  void readCellFaceCounts(int zoneId, short* counts, std::size_t n) override;
  void endCellFaceCounts() override;
  void beginCellFaceIds() override;
  void readCellFaceIds(int zoneId, std::uint64_t* ids, std::size_t n) override;
  void endCellFaceIds() override;
  void endCellFaces() override;
  void beginCellPartitions(std::vector<int>& zoneIds) override;
  int getCellPartitionInfo(int zoneId) override;
  void readCellPartitions(int zoneId, int* partitions, std::size_t n) override;
  void endCellPartitions() override;
  void beginPhase(short phaseId) override;
  bool getPhaseAttributeNames(short phaseId, std::vector<std::string>& names) override;
  bool getPhaseAttribute(short phaseId, const std::string& name, std::string& value) override;
  void getVariableNames(OrvZoneCategory category, std::vector<std::string>& names) override;
  bool getVariableAttributeNames(int variableId, std::vector<std::string>& names) override;
  bool getVariableAttribute(int variableId, const std::string& name, std::string& value) override;
  std::size_t beginVariable(OrvZoneCategory category, const std::string& name,
                            std::vector<int>& zoneIds) override;
  std::size_t readVariable(int zoneId, double* values, std::size_t n) override;
  void endVariable() override;
  void endPhase() override;
  bool getPhaseDescription(short phaseId, std::string& text) override;
  bool getVariableDescription(int variableId, std::string& text) override;

 protected:
  // Called if it listens, as onCall() is.

  /// The list that a call gave: of meshes, targets, partitions, or of a family's zones.
  virtual void onList(const std::string& call, std::vector<int>& list);

  /// How much a read says that it delivered, or a variable's values per element.
  virtual void onDelivered(const std::string& call, std::size_t& delivered);

  /// How many values the target is asked for by a read that does not tell how many it delivered.
  virtual void onLength(const std::string& call, std::size_t& n);

  /// What a call gave for one element: the cell beside a face, its shadow, the type of a cell.
  virtual void onElement(const std::string& call, std::uint64_t& value);

  /// Whether all elements of a zone have one count or type, and which.
  virtual void onUniform(const std::string& call, bool& isUniform, int& value);

  /// What stood in the list of the last call that gave one, before the call.
  const std::vector<int>& handedIn() const { return handedIn_; }

 private:
  template <class... Arguments>
  void tellWithList(const std::vector<int>& list, const char* operation,
                    const Arguments&... arguments) {
    if (listens()) {
      handedIn_ = list;
      onCall(callText(operation, arguments...));
    }
  }

  template <class... Arguments>
  void answer(std::vector<int>& list, const char* operation, const Arguments&... arguments) {
    if (listens()) {
      onList(callText(operation, arguments...), list);
    }
  }

  template <class... Arguments>
  void answer(std::size_t& delivered, const char* operation, const Arguments&... arguments) {
    if (listens()) {
      onDelivered(callText(operation, arguments...), delivered);
    }
  }

  std::size_t asked(std::size_t n, const char* operation, int zone) {
    if (listens()) {
      onLength(callText(operation, zone, n), n);
    }
    return n;
  }

  template <class Value>
  Value answerElement(Value value, const char* operation, std::uint64_t element) {
    if (!listens()) {
      return value;
    }
    auto given = static_cast<std::uint64_t>(value);
    onElement(callText(operation, element), given);
    return static_cast<Value>(given);
  }

  template <class Value>
  bool answerUniform(bool isUniform, Value& value, const char* operation, int zone) {
    if (listens()) {
      int given = value;
      onUniform(callText(operation, zone), isUniform, given);
      value = static_cast<Value>(given);
    }
    return isUniform;
  }

  std::vector<int> handedIn_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_FORWARDING_PROVIDER_H
