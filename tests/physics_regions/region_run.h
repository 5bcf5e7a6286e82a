// SPDX-License-Identifier: Apache-2.0
//
// ResolverRun: a resolver of a case, what it leaves behind, and what it asks on the way.

#ifndef VELTO_TESTS_PHYSICS_REGIONS_REGION_RUN_H
#define VELTO_TESTS_PHYSICS_REGIONS_REGION_RUN_H

#include <memory>
#include <string>
#include <vector>

#include "velto/PhysicsRegionResolver.h"

#include "testing/ScriptedLocationModel.h"
#include "testing/ScriptedProvider.h"
#include "testing/capture.h"
#include "tests/physics_regions/region_texts.h"

namespace velto::testing {

using Texts = std::vector<std::string>;

/// A case that is open at mesh 1, and a resolver of it.
///
///     ResolverRun run("domains/water/location = channel", "part p\n body channel: 7");
///     EXPECT_TRUE(run.resolve());
///     EXPECT_EQ(run.table(), "0 domain water at 'channel': ...");
class ResolverRun {
 public:
  explicit ResolverRun(const std::string& settings, const std::string& model = "")
      : ResolverRun(regionCase(settings, model)) {}
  explicit ResolverRun(const cases::CasePtr& served) : provider(opened(served, calls)) {
    calls.clear();
    resolver = std::make_unique<PhysicsRegionResolver>(provider.get());
  }

  /// Resolves with the provider alone. What it writes to the streams is kept in `out` and `err`,
  /// and what it asks of provider and model in `calls`, behind the calls of the constructor.
  bool resolve() {
    LocationModelScript script(&calls);
    const StreamCapture streams;
    const bool good = resolver->resolveUsing(provider.get());
    out = streams.out();
    err = streams.err();
    return good;
  }

  std::string table() const { return tableText(tableOf(*resolver)); }
  const Texts& errors() const { return resolver->getErrors(); }

  Transcript calls;
  std::unique_ptr<ScriptedProvider> provider;
  std::unique_ptr<PhysicsRegionResolver> resolver;
  std::string out;
  std::string err;

 private:
  static std::unique_ptr<ScriptedProvider> opened(const cases::CasePtr& served, Transcript& calls) {
    auto provider = std::make_unique<ScriptedProvider>(served, &calls);
    provider->startReading("case", dataClassCase);
    provider->setMeshId(1);
    provider->setTarget(targetRestart);
    provider->setPartitionId(-1);
    return provider;
  }
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_PHYSICS_REGIONS_REGION_RUN_H
