// SPDX-License-Identifier: Apache-2.0
//
// Tools do not know of each other: two of each at work at once, each on a thread and a case of its
// own, come to what each comes to alone. The thread sanitizer sees that they share nothing.

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "velto/LocationModelBuilder.h"
#include "velto/PhysicsRegionResolver.h"

#include "data_access/OrvFactory.h"
#include "data_access/OrvLocationModel.h"

#include "embedded/memory/MemoryConsumer.h"
#include "embedded/memory/MemoryProvider.h"
#include "factory/model_text.h"
#include "samples/defects.h"
#include "samples/samples.h"
#include "samples/save_sample.h"
#include "testing/PolyMeshWriter.h"
#include "testing/TempFolder.h"
#include "testing/cases.h"
#include "tests/copies/case_files.h"

namespace velto::testing {
namespace {

constexpr int kRounds = 20;
constexpr std::uint64_t kCells = 200;

void add(Texts& texts, const Texts& more) { texts.insert(texts.end(), more.begin(), more.end()); }

/// Reads a file, writes a copy in a format and compares both.
Texts copyOf(const std::string& file, OrvFileFormatType format, const std::string& copy,
             unsigned compression) {
  const ProviderOwner source = opened(file);
  const ConsumerOwner destination(getDataConsumer(format));
  destination->setFileName(copy, dataClassCase);
  destination->setCompression(compression);
  copyWhole(*source, *destination);
  Texts result = destination->getErrors(true, true);
  add(result, destination->getWarnings(true, true));
  add(result, findingsOf(copy));
  if (format == fileFormatStore) {
    add(result, differences(*source, *opened(copy)));
  }
  return result;
}

Texts modelOf(OrvFileProvider& source) {
  OrvLocationModel model;
  const LocationModelBuilder builder;
  builder.build(&source, &model);
  Texts result = builder.getErrors();
  result.push_back(factory::modelText(model, 1));
  return result;
}

Texts regionsOf(OrvFileProvider& source) {
  PhysicsRegionResolver resolver(&source);
  Texts result = {resolver.resolveUsing(&source) ? "resolved" : "not resolved"};
  for (const char* const region : {"inflow", "friction", "screen", "steel side"}) {
    std::vector<int> sides;
    std::string line = region;
    resolver.zoneSides(region, sides);
    for (const int side : sides) {
      line += " " + std::to_string(side);
    }
    result.push_back(line);
  }
  add(result, resolver.getErrors());
  return result;
}

Texts inMemory(const cases::CasePtr& served) {
  memory::MemoryProvider source(served);
  source.startReading("", dataClassCase);
  memory::MemoryConsumer destination;
  copyWhole(source, destination);
  memory::MemoryProvider copy(destination.takeCase());
  copy.startReading("", dataClassCase);
  Texts result = differences(source, copy);
  add(result, modelOf(copy));
  return result;
}

/// Something that a thread does over and over, with the number of the round.
using Job = std::function<Texts(const std::string& round)>;

/// Runs jobs one after the other and then all at once, many times.
void expectSameAtOnce(const std::vector<Job>& jobs) {
  std::vector<Texts> alone;
  alone.reserve(jobs.size());
  for (const Job& job : jobs) {
    alone.push_back(job("alone"));
  }
  std::vector<std::vector<Texts>> together(jobs.size());
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < jobs.size(); ++i) {
    threads.emplace_back([&job = jobs[i], &results = together[i]] {
      for (int round = 0; round < kRounds; ++round) {
        results.push_back(job(std::to_string(round)));
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  for (std::size_t i = 0; i < jobs.size(); ++i) {
    EXPECT_EQ(together[i], std::vector<Texts>(kRounds, alone[i])) << "job " << i;
  }
}

/// Store files, plain and packed, and OpenFOAM folders.
class Independence : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* const name : {"two-bodies", "physics", "box-cells", "periodic"}) {
      samples::saveSample(samples::findSample(name)->make(kCells), file(name), 0);
    }
    samples::saveSample(samples::findSample("physics")->make(kCells), file("packed"), 3);
    samples::saveSample(samples::makeDamagedSample(*samples::findDefect("face-node-range"), kCells),
                        file("ids"), 0);
    samples::saveSample(samples::makeDamagedSample(*samples::findDefect("wrong-location"), kCells),
                        file("place"), 3);
    BoxMesh cyclic = makeBox(4, 3, 2);
    writePolyMesh(folder.path("foam/constant/polyMesh"), cyclic);
    cyclic.patches[0].type = cyclic.patches[1].type = "cyclic";
    cyclic.patches[0].extra = {{"neighbourPatch", cyclic.patches[1].name}};
    cyclic.patches[1].extra = {{"neighbourPatch", cyclic.patches[0].name}};
    writePolyMesh(folder.path("cyclic/constant/polyMesh"), cyclic);
  }

  std::string file(const std::string& name) const { return folder.path(name + ".orv"); }

  Job check(const std::string& path) const {
    return [path](const std::string&) { return findingsOf(path); };
  }
  Job copy(const std::string& path, OrvFileFormatType format, unsigned compression) const {
    return [=](const std::string& round) {
      return copyOf(path, format,
                    path + "-" + std::to_string(format) + "-" + round +
                        (format == fileFormatStore ? ".orv" : ""),
                    compression);
    };
  }

  const TempFolder folder;
};

TEST_F(Independence, OfCheckers) {
  expectSameAtOnce({check(file("box-cells")), check(file("ids")), check(file("packed")),
                    check(file("place")), check(folder.path("foam")),
                    check(folder.path("cyclic"))});
}

TEST_F(Independence, OfCopiers) {
  expectSameAtOnce(
      {copy(file("two-bodies"), fileFormatStore, 0), copy(file("packed"), fileFormatStore, 5),
       copy(file("periodic"), fileFormatOpenFoam, 0), copy(folder.path("foam"), fileFormatStore, 1),
       copy(folder.path("cyclic"), fileFormatOpenFoam, 1)});
}

TEST_F(Independence, OfBuildersAndResolvers) {
  const auto on = [](const std::string& path, Texts (*ask)(OrvFileProvider&)) {
    return [=](const std::string&) { return ask(*opened(path)); };
  };
  expectSameAtOnce({on(file("two-bodies"), modelOf), on(folder.path("foam"), modelOf),
                    on(file("physics"), regionsOf), on(file("place"), regionsOf)});
}

TEST_F(Independence, OfAllToolsOnFilesAndInMemory) {
  const auto memoryJob = [](const cases::CasePtr& served) {
    return [served](const std::string&) { return inMemory(served); };
  };
  expectSameAtOnce({check(file("packed")), copy(file("packed"), fileFormatStore, 0),
                    memoryJob(cases::rowOfBodies(40)), memoryJob(cases::withPhysics()),
                    [this](const std::string&) { return regionsOf(*opened(file("physics"))); }});
}

// One case in memory is never changed by those who read it.
TEST_F(Independence, OfReadersOfOneCase) {
  const cases::CasePtr shared = cases::rowOfBodies(40);
  const Job job = [shared](const std::string&) { return inMemory(shared); };
  expectSameAtOnce({job, job, job});
}

}  // namespace
}  // namespace velto::testing
