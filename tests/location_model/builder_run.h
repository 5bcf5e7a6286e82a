// SPDX-License-Identifier: Apache-2.0
//
// runBuilder: one build of a case by either builder, and everything that can be observed of it.

#ifndef VELTO_TESTS_LOCATION_MODEL_BUILDER_RUN_H
#define VELTO_TESTS_LOCATION_MODEL_BUILDER_RUN_H

#include <functional>
#include <string>
#include <vector>

#include "velto/LocationModelBuilder.h"

#include "embedded/base/shapes.h"
#include "embedded/memory/CaseBuilder.h"
#include "testing/ScriptedLocationModel.h"
#include "testing/ScriptedProvider.h"
#include "testing/cases.h"
#include "testing/model_text.h"

namespace velto::testing {

using Texts = std::vector<std::string>;
using base::cellShapeHexahedron;
using cases::CasePtr;
using memory::CaseBuilder;

/// A type of boundary zones that is not told apart.
inline constexpr int kPlainType = base::boundaryPatch;

/// A face in a mesh that is nothing but zones: it has no nodes.
inline memory::FaceLine beside(std::uint64_t cell0, std::uint64_t cell1 = 0) {
  return {{}, cell0, cell1};
}

/// What one build gave.
struct Built {
  bool good = false;
  /// All errors of the builder, those of earlier builds as well.
  Texts errors;
  /// The model in the mesh that was selected.
  std::string model;
  /// The virtual operations of the provider and all operations of the model, as they came.
  Transcript calls;

  friend bool operator==(const Built& a, const Built& b) {
    return a.good == b.good && a.errors == b.errors && a.model == b.model && a.calls == b.calls;
  }
};

/// Sets up what serves a build: the provider has been opened, and calls are written down later.
using Preparation = std::function<void(ScriptedProvider& provider, LocationModelScript& script)>;

/// Leaves out the queries of a provider that are not virtual: how often one asks is nobody's
/// affair.
Transcript withoutQueries(const Transcript& calls);

/// Of the calls those of some operations.
Transcript callsOf(const std::vector<std::string>& operations, const Transcript& calls);

/// Calls as one text, a line each.
std::string lines(const Transcript& calls);

/// Builds the location model of `served` into `model`.
template <class Builder>
Built runBuilder(Builder& builder, OrvLocationModel& model, const CasePtr& served,
                 const Preparation& prepare = {}) {
  Built built;
  Transcript calls;
  ScriptedProvider provider(served, &calls);
  provider.startReading("case", dataClassCase);
  {
    LocationModelScript script(&calls);
    if (prepare) {
      prepare(provider, script);
    }
    calls.clear();
    built.good = builder.build(&provider, &model);
    built.calls = withoutQueries(calls);
  }
  built.errors = builder.getErrors();
  built.model = modelText(model, provider.getMeshId());
  return built;
}

/// With a new builder and a new model.
Built build(const CasePtr& served, const Preparation& prepare = {});

}  // namespace velto::testing

#endif  // VELTO_TESTS_LOCATION_MODEL_BUILDER_RUN_H
