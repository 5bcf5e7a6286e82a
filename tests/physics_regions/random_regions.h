// SPDX-License-Identifier: Apache-2.0
//
// Random physics objects, location models and meshes, and what is resolved of them in turn.

#ifndef VELTO_TESTS_PHYSICS_REGIONS_RANDOM_REGIONS_H
#define VELTO_TESTS_PHYSICS_REGIONS_RANDOM_REGIONS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "testing/Random.h"
#include "testing/ScriptedLocationModel.h"
#include "testing/cases.h"

namespace velto::testing {

/// The selection moves to another mesh at the nth time that a provider is asked for it.
struct RandomMove {
  int nth = 0;
  int mesh = 0;
};

/// One call of resolveUsing.
struct RandomResolving {
  enum class Arguments { modelAndProvider, twoProviders, oneProvider };

  Arguments arguments = Arguments::oneProvider;
  /// The cases whose model and whose zones are used, nothing for a null pointer. With one provider
  /// the second counts for both.
  std::optional<std::size_t> model;
  std::optional<std::size_t> zones;
  /// The mesh that is selected before.
  int mesh = 1;
  std::optional<RandomMove> move;
  std::vector<ModelRefusal> refusals;
};

struct RandomRegions {
  /// The first has the settings.
  std::array<cases::CasePtr, 2> cases;
  /// Whether the resolver is made of the first case, or of a null pointer.
  bool hasSettings = true;
  /// Lists that the providers of both cases answer in place of their own, by call.
  std::map<std::string, std::vector<int>> lists;
  std::vector<RandomResolving> resolvings;
};

/// Names come from small pools, so that one name often stands for several things. Most resolvings
/// go through.
RandomRegions randomRegions(Random& random);
RandomRegions randomRegions(std::uint64_t seed);

// random_regions_text.cpp

/// All of it as text, for a test that fails: settings, models, meshes and resolvings.
std::string textOf(const RandomRegions& drawn);

}  // namespace velto::testing

#endif  // VELTO_TESTS_PHYSICS_REGIONS_RANDOM_REGIONS_H
