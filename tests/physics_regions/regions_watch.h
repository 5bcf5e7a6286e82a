// SPDX-License-Identifier: Apache-2.0
//
// watched: everything that can be observed of either resolver on random physics objects.

#ifndef VELTO_TESTS_PHYSICS_REGIONS_REGIONS_WATCH_H
#define VELTO_TESTS_PHYSICS_REGIONS_REGIONS_WATCH_H

#include <array>
#include <cstddef>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "velto/PhysicsRegionResolver.h"

#include "testing/ScriptedLocationModel.h"
#include "testing/ScriptedProvider.h"
#include "testing/capture.h"
#include "tests/physics_regions/PlainResolver.h"
#include "tests/physics_regions/random_regions.h"
#include "tests/physics_regions/region_texts.h"

namespace velto::testing {

using Texts = std::vector<std::string>;

/// What one call of resolveUsing gave.
struct WatchedResolving {
  bool good = false;
  RegionTable table;
  Texts errors;
  std::string out;
  std::string err;
  /// Of provider and model, as they came.
  Transcript calls;
};

struct Watched {
  /// What the constructor asked and made.
  Transcript calls;
  RegionTable table;
  std::vector<WatchedResolving> resolvings;
  /// A line for each query by each name with its result, its output and what it added to the
  /// errors; right after construction and in the end.
  Texts answersBefore;
  Texts answersAfter;
  /// What the queries and the constructor wrote to either stream.
  std::string streams;
  /// All of them, in the end.
  Texts errors;
};

inline const RegionTable& tableOf(const PlainResolver& resolver) { return resolver.table(); }

/// What came to the errors of a resolver since there were `count`, which moves on.
template <class Resolver>
Texts newErrors(const Resolver& resolver, std::size_t& count) {
  const Texts& errors = resolver.getErrors();
  Texts added(errors.begin() + static_cast<std::ptrdiff_t>(count), errors.end());
  count = errors.size();
  return added;
}

// --- Queries ------------------------------------------------------------------------------------

/// Asks a resolver everything. Outputs hold something before, as they have to be emptied.
template <class Resolver>
class Questions {
 public:
  explicit Questions(const Resolver& resolver)
      : resolver_(resolver), errorCount_(resolver.getErrors().size()) {}

  Texts ask() {
    std::set<std::string> names = {"nobody", "", "water"};
    for (const auto& [id, name] : tableOf(resolver_).regionNames) {
      names.insert(name);
    }
    for (const std::string& name : names) {
      answers_.push_back("--- '" + name + "'");
      askIds(name);
      askTexts(name);
    }
    for (const std::string& type : types()) {
      Texts regions = {"left over"};
      const bool good = resolver_.regionsOfType(regions, type);
      note("regionsOfType " + type, good, base::argumentText(regions));
    }
    return std::move(answers_);
  }

 private:
  static const Texts& types() {
    static const Texts kTypes = {"domain", "boundary", "subdomain", "interface", "", "Domain"};
    return kTypes;
  }

  void note(const std::string& query, bool good, const std::string& output) {
    std::string line = query + (good ? ": true " : ": false ") + output;
    for (const std::string& error : newErrors(resolver_, errorCount_)) {
      line += " | " + error;
    }
    answers_.push_back(std::move(line));
  }

  template <class Query>
  void askList(const char* word, Query query, const std::string& name) {
    std::vector<int> ids = {4711};
    const bool good = (resolver_.*query)(name, ids);
    note(word, good, base::argumentText(ids));
  }

  void askIds(const std::string& name) {
    askList("bodies", &Resolver::bodies, name);
    askList("faceUses", &Resolver::faceUses, name);
    askList("bulkZones", &Resolver::bulkZones, name);
    askList("zoneSides", &Resolver::zoneSides, name);
    std::vector<int> cellNodeZones = {4711};
    std::vector<int> otherZones = {4712};
    const bool good = resolver_.cellZones(name, cellNodeZones, otherZones);
    note("cellZones", good,
         base::argumentText(cellNodeZones) + " " + base::argumentText(otherZones));
  }

  void askTexts(const std::string& name) {
    std::string text = "left over";
    bool good = resolver_.bounding(name, text);
    note("bounding", good, text);
    text = "left over";
    good = resolver_.regionLocation(name, text);
    note("regionLocation", good, text);
    Texts boundaries = {"left over"};
    good = resolver_.boundedBy(name, boundaries);
    note("boundedBy", good, base::argumentText(boundaries));
    for (const unsigned short side : std::array<unsigned short, 4>{0, 1, 2, 3}) {
      text = "left over";
      good = resolver_.sideOf(name, side, text);
      note("sideOf " + std::to_string(side), good, text);
    }
    for (const std::string& type : types()) {
      note("regionIsOfType " + type, resolver_.regionIsOfType(name, type), "");
    }
  }

  const Resolver& resolver_;
  std::size_t errorCount_;
  Texts answers_;
};

// --- A run --------------------------------------------------------------------------------------

/// The providers of both cases, which write into one transcript.
class WatchedProviders {
 public:
  WatchedProviders(const RandomRegions& drawn, Transcript& calls) {
    for (std::size_t i = 0; i < providers_.size(); ++i) {
      providers_.at(i) = std::make_unique<ScriptedProvider>(drawn.cases.at(i), &calls);
      providers_.at(i)->startReading("case", dataClassCase);
      for (const auto& [call, list] : drawn.lists) {
        providers_.at(i)->answerList(call, list);
      }
    }
  }

  /// Null for nothing.
  ScriptedProvider* at(const std::optional<std::size_t>& number) {
    return number ? providers_.at(*number).get() : nullptr;
  }

  void prepare(const RandomResolving& resolving) {
    for (const auto& provider : providers_) {
      provider->setMeshId(resolving.mesh);
      if (resolving.move) {
        const int mesh = resolving.move->mesh;
        provider->on("getMeshId", resolving.move->nth,
                     [mesh](base::CaseCore& core) { core.selection.mesh = mesh; });
      }
    }
  }

 private:
  std::array<std::unique_ptr<ScriptedProvider>, 2> providers_;
};

template <class Resolver>
bool resolve(Resolver& resolver, const RandomResolving& resolving, WatchedProviders& providers) {
  const OrvProvider* const source = providers.at(resolving.model);
  const OrvProvider* const zones = providers.at(resolving.zones);
  switch (resolving.arguments) {
    case RandomResolving::Arguments::oneProvider:
      return resolver.resolveUsing(zones);
    case RandomResolving::Arguments::twoProviders:
      return resolver.resolveUsing(source, zones);
    default:
      return resolver.resolveUsing(source == nullptr ? nullptr : source->getLocationModel(), zones);
  }
}

template <class Resolver>
WatchedResolving watchedResolving(Resolver& resolver, const RandomResolving& resolving,
                                  WatchedProviders& providers, Transcript& calls) {
  WatchedResolving watched;
  providers.prepare(resolving);
  calls.clear();
  LocationModelScript script(&calls);
  for (const ModelRefusal& refusal : resolving.refusals) {
    script.add(refusal);
  }
  std::size_t errorCount = resolver.getErrors().size();
  const StreamCapture streams;
  watched.good = resolve(resolver, resolving, providers);
  watched.out = streams.out();
  watched.err = streams.err();
  watched.calls = calls;
  watched.table = tableOf(resolver);
  watched.errors = newErrors(resolver, errorCount);
  return watched;
}

/// Makes a resolver, resolves, and asks.
template <class Resolver>
Watched watched(const RandomRegions& drawn) {
  Watched watched;
  Transcript calls;
  auto settings = std::make_unique<ScriptedProvider>(drawn.cases.front(), &calls);
  settings->startReading("case", dataClassCase);
  calls.clear();
  const StreamCapture streams;
  Resolver resolver(drawn.hasSettings ? settings.get() : nullptr);
  watched.calls = calls;
  settings.reset();
  watched.table = tableOf(resolver);
  watched.answersBefore = Questions<Resolver>(resolver).ask();
  WatchedProviders providers(drawn, calls);
  for (const RandomResolving& resolving : drawn.resolvings) {
    watched.resolvings.push_back(watchedResolving(resolver, resolving, providers, calls));
  }
  watched.answersAfter = Questions<Resolver>(resolver).ask();
  watched.streams = streams.out() + streams.err();
  watched.errors = resolver.getErrors();
  resolver.clearErrors();
  EXPECT_EQ(resolver.getErrors(), Texts());
  return watched;
}

/// All of it, for comparison.
std::string textOf(const Watched& watched);

}  // namespace velto::testing

#endif  // VELTO_TESTS_PHYSICS_REGIONS_REGIONS_WATCH_H
