// SPDX-License-Identifier: Apache-2.0
//
// WatchedSource and WatchedDestination: the two ends of a copy, which write into one transcript.

#ifndef VELTO_TESTS_COPIER_COPY_DOUBLES_H
#define VELTO_TESTS_COPIER_COPY_DOUBLES_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "testing/RecordingConsumer.h"
#include "testing/ScriptedProvider.h"
#include "tests/copier/random_copies.h"

namespace velto::testing {

/// Writes its name in front of each call, and what stands in the buffers and texts that it is given
/// to fill.
class WatchedSource : public ScriptedProvider {
 public:
  /// `drawn` and `calls` outlive it.
  WatchedSource(const RandomSource& drawn, Transcript& calls, std::string name);

  std::size_t readNodeCoordinates(int zoneId, double* values, std::size_t n) override;
  bool getUniformFaceNodeCount(int zoneId, short& count) override;
  void readFaceNodeCounts(int zoneId, short* counts, std::size_t n) override;
  void readFaceNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) override;
  void readFaceCell0(int zoneId, std::uint64_t* cellIds, std::size_t n) override;
  void beginFaceCell1(std::vector<int>& zoneIds) override;
  void readFaceCell1(int zoneId, std::uint64_t* cellIds, std::size_t n) override;
  std::size_t readCellTypes(int zoneId, int* types, std::size_t n) override;
  bool getUniformCellNodeCount(int zoneId, short& count) override;
  void readCellNodeCounts(int zoneId, short* counts, std::size_t n) override;
  void readCellNodeIds(int zoneId, std::uint64_t* ids, std::size_t n) override;
  void readCellPartitions(int zoneId, int* partitions, std::size_t n) override;
  std::size_t readVariable(int zoneId, double* values, std::size_t n) override;
  void getSettingsValue(OrvDataClass dataClass, const std::string& key, std::string& value,
                        const std::string& path) override;
  bool getPhaseAttributeNames(short phaseId, std::vector<std::string>& names) override;
  bool getPhaseAttribute(short phaseId, const std::string& name, std::string& value) override;
  bool getVariableAttributeNames(int variableId, std::vector<std::string>& names) override;
  bool getVariableAttribute(int variableId, const std::string& name, std::string& value) override;

 protected:
  void onCall(const std::string& call) override;

 private:
  template <class Value>
  void noteGiven(const Value& given);
  template <class Value>
  void noteBuffer(const Value* values, std::size_t n);

  const RandomSource& drawn_;
  Transcript& calls_;
  std::string name_;
};

/// Writes its name in front of each call; the time of a copy is the word "now".
class WatchedDestination : public RecordingConsumer {
 public:
  /// `drawn` and `calls` outlive it.
  WatchedDestination(const RandomDestination& drawn, Transcript& calls, std::string name);

  void setSolverType(std::string solverType) override;
  void writeStandardSettings(std::vector<std::pair<std::string, std::string>> entries,
                             OrvDataClass dataClass) override;
  void addPhases(const std::vector<std::string>& names, std::vector<short>& phaseIds) override;

 protected:
  void onCall(const std::string& call) override;

 private:
  const RandomDestination& drawn_;
  Transcript& calls_;
  std::string name_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIER_COPY_DOUBLES_H
