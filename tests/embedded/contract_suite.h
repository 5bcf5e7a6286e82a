// SPDX-License-Identifier: Apache-2.0
//
// The conformance suite of the contract's read side. A provider of any kind gets its tests for one
// line; its program links velto_contract_suite:
//
//     INSTANTIATE_TEST_SUITE_P(Memory, ProviderContract, ValuesIn(contractTests({"Memory", make})),
//                              contractTestName);
//
// The suite runs over all named cases. A subject is asked for a provider that serves a given case;
// what it gives back is compared with the tables and arrays of that case.

#ifndef VELTO_TESTS_EMBEDDED_CONTRACT_SUITE_H
#define VELTO_TESTS_EMBEDDED_CONTRACT_SUITE_H

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "data_access/OrvFileProvider.h"

#include "embedded/base/OrvBaseState.h"
#include "testing/cases.h"

namespace velto::testing {

/// What a kind of provider cannot hand on. All false: it hands on everything.
struct Deviations {
  bool withoutCellFaces = false;
  bool withoutShadowFaces = false;
  bool withoutFaceTree = false;
  bool withoutCellPartitions = false;
  bool withoutSettings = false;
  bool withoutLocationModel = false;
  bool withoutResults = false;
  std::set<std::string> withoutCases;  ///< Named cases that it cannot hold.
};

/// What is lost on the way through a consumer: the contract has no operations to write it.
Deviations ofACopy();

/// A kind of provider. `make` gives one that serves a case and has been started with success.
struct ContractSubject {
  std::string name;
  std::function<std::unique_ptr<OrvFileProvider>(const cases::CasePtr&)> make;
  Deviations deviations;
};

/// A subject and the case that it serves.
struct ContractParameter {
  ContractSubject subject;
  cases::NamedCase served;
};

/// One parameter for each named case that the subject can hold.
std::vector<ContractParameter> contractTests(const ContractSubject& subject);

std::string contractTestName(const ::testing::TestParamInfo<ContractParameter>& info);

class ProviderContract : public ::testing::TestWithParam<ContractParameter> {
 protected:
  using Meshes = std::function<void(const base::MeshTables&, const memory::MeshData&)>;

  ProviderContract();

  const Deviations& deviations() const { return GetParam().subject.deviations; }

  /// Opens the case, as the test changed it.
  OrvFileProvider& provider();

  /// Selects each mesh of the case in turn and gives the test what of it the provider hands on.
  void forEachMesh(const Meshes& test);

  /// Selects a mesh that no case has.
  void selectUnknownMesh();

  /// Fails the test if messages are waiting.
  void expectNoMessages();

  cases::CasePtr source;

 private:
  /// The arrays of a mesh without what the provider cannot hand on.
  memory::MeshData carried(const memory::MeshData& data) const;

  std::unique_ptr<OrvFileProvider> provider_;
};

/// A subject's name, not its bytes, is what a failure shows.
std::ostream& operator<<(std::ostream& out, const ContractParameter& parameter);

}  // namespace velto::testing

#endif  // VELTO_TESTS_EMBEDDED_CONTRACT_SUITE_H
