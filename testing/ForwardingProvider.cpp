// SPDX-License-Identifier: Apache-2.0
//
// ForwardingProvider: all but the families of bulk calls, which stand in
// forwarding_provider_families.cpp.

#include "testing/ForwardingProvider.h"

#include <utility>

namespace velto::testing {

void ForwardingProvider::onList(const std::string&, std::vector<int>&) {}
void ForwardingProvider::onDelivered(const std::string&, std::size_t&) {}
void ForwardingProvider::onLength(const std::string&, std::size_t&) {}
void ForwardingProvider::onElement(const std::string&, std::uint64_t&) {}
void ForwardingProvider::onUniform(const std::string&, bool&, int&) {}

// --- The base, the file --------------------------------------------------------------------------

void ForwardingProvider::setBaseOption(bool option) {
  tell("setBaseOption", option);
  target()->setBaseOption(option);
}

std::uint64_t ForwardingProvider::getZoneCount(OrvZoneCategory category) {
  tell("getZoneCount", category);
  return target()->getZoneCount(category);
}

void ForwardingProvider::getZoneIds(OrvZoneCategory category, std::vector<int>& ids) {
  tellWithList(ids, "getZoneIds", category);
  target()->getZoneIds(category, ids);
  answer(ids, "getZoneIds", category);
}

void ForwardingProvider::setSolverType(std::string solverType) {
  tell("setSolverType", solverType);
  target()->setSolverType(std::move(solverType));
}

bool ForwardingProvider::startReading(const std::string& fileName, OrvDataClass dataClass) {
  tell("startReading", fileName, dataClass);
  return target()->startReading(fileName, dataClass);
}

void ForwardingProvider::setFileName(const std::string& path, OrvDataClass dataClass) {
  tell("setFileName", path, dataClass);
  target()->setFileName(path, dataClass);
}

void ForwardingProvider::getFileVersion(OrvDataClass dataClass, int& major, int& minor,
                                        int& patch) {
  tell("getFileVersion", dataClass);
  target()->getFileVersion(dataClass, major, minor, patch);
}

// --- Settings, and what the file holds -----------------------------------------------------------

void ForwardingProvider::getSettingsKeys(OrvDataClass dataClass, std::vector<std::string>& keys) {
  tell("getSettingsKeys", dataClass);
  target()->getSettingsKeys(dataClass, keys);
}

void ForwardingProvider::getSettingsValue(OrvDataClass dataClass, const std::string& key,
                                          std::string& value, const std::string& path) {
  tell("getSettingsValue", dataClass, key, path);
  target()->getSettingsValue(dataClass, key, value, path);
}

void ForwardingProvider::getMeshIds(std::vector<int>& ids, OrvDataClass dataClass) {
  tellWithList(ids, "getMeshIds", dataClass);
  target()->getMeshIds(ids, dataClass);
  answer(ids, "getMeshIds", dataClass);
}

void ForwardingProvider::getTargets(std::vector<int>& categories, int meshId,
                                    OrvDataClass dataClass) {
  tellWithList(categories, "getTargets", meshId, dataClass);
  target()->getTargets(categories, meshId, dataClass);
  answer(categories, "getTargets", meshId, dataClass);
}

void ForwardingProvider::getPartitionIds(std::vector<int>& ids, int meshId,
                                         OrvDataClass dataClass) {
  tellWithList(ids, "getPartitionIds", meshId, dataClass);
  target()->getPartitionIds(ids, meshId, dataClass);
  answer(ids, "getPartitionIds", meshId, dataClass);
}

// --- Field data ----------------------------------------------------------------------------------

void ForwardingProvider::beginPhase(short phaseId) {
  tell("beginPhase", phaseId);
  target()->beginPhase(phaseId);
}

bool ForwardingProvider::getPhaseAttributeNames(short phaseId, std::vector<std::string>& names) {
  tell("getPhaseAttributeNames", phaseId);
  return target()->getPhaseAttributeNames(phaseId, names);
}

bool ForwardingProvider::getPhaseAttribute(short phaseId, const std::string& name,
                                           std::string& value) {
  tell("getPhaseAttribute", phaseId, name);
  return target()->getPhaseAttribute(phaseId, name, value);
}

void ForwardingProvider::getVariableNames(OrvZoneCategory category,
                                          std::vector<std::string>& names) {
  tell("getVariableNames", category);
  target()->getVariableNames(category, names);
}

bool ForwardingProvider::getVariableAttributeNames(int variableId,
                                                   std::vector<std::string>& names) {
  tell("getVariableAttributeNames", variableId);
  return target()->getVariableAttributeNames(variableId, names);
}

bool ForwardingProvider::getVariableAttribute(int variableId, const std::string& name,
                                              std::string& value) {
  tell("getVariableAttribute", variableId, name);
  return target()->getVariableAttribute(variableId, name, value);
}

std::size_t ForwardingProvider::beginVariable(OrvZoneCategory category, const std::string& name,
                                              std::vector<int>& zoneIds) {
  tell("beginVariable", category, name);
  std::size_t delivered = target()->beginVariable(category, name, zoneIds);
  answer(zoneIds, "beginVariable", category, name);
  answer(delivered, "beginVariable", category, name);
  return delivered;
}

std::size_t ForwardingProvider::readVariable(int zoneId, double* values, std::size_t n) {
  tell("readVariable", zoneId, n);
  std::size_t delivered = target()->readVariable(zoneId, values, n);
  answer(delivered, "readVariable", zoneId, n);
  return delivered;
}

void ForwardingProvider::endVariable() {
  tell("endVariable");
  target()->endVariable();
}

void ForwardingProvider::endPhase() {
  tell("endPhase");
  target()->endPhase();
}

bool ForwardingProvider::getPhaseDescription(short phaseId, std::string& text) {
  tell("getPhaseDescription", phaseId);
  return target()->getPhaseDescription(phaseId, text);
}

bool ForwardingProvider::getVariableDescription(int variableId, std::string& text) {
  tell("getVariableDescription", variableId);
  return target()->getVariableDescription(variableId, text);
}

}  // namespace velto::testing
