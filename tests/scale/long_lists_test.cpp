// SPDX-License-Identifier: Apache-2.0
//
// Lists of more entries than 32 bits count are checked and copied to their end. Their values are
// computed when they are read, and dropped when they are written.

#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "velto/OrvChecker.h"
#include "velto/OrvCopier.h"

#include "embedded/base/CaseConsumer.h"
#include "samples/SampleProvider.h"
#include "testing/TestFactory.h"

namespace velto::testing {
namespace {

using base::Family;
using Texts = std::vector<std::string>;

constexpr std::uint64_t kFewCells = 1'000;
/// The faces inside a box of so many cells list 2,160 million nodes: more than 2^31.
constexpr std::uint64_t kManyCells = 181'000'000;
constexpr std::uint64_t kMostOf32Bits = std::uint64_t{1} << 31U;

bool largeTestsAreWanted() { return std::getenv("VELTO_LARGE_TESTS") != nullptr; }

const char* const kHowTo =
    "takes 20 GB of memory and some minutes; VELTO_LARGE_TESTS=1 in the environment runs it";

/// Passes on the arrays of a sample; the last node of the faces inside is one that is not there.
class LastNodeLost : public base::MeshArrays {
 public:
  LastNodeLost(std::shared_ptr<MeshArrays> target, int zone)
      : target_(std::move(target)), zone_(zone) {}

  std::vector<int> zones(Family family) override { return target_->zones(family); }
  std::vector<int> treeChildZones() override { return target_->treeChildZones(); }
  bool uniformCount(Family family, int zone, short& count) override {
    return target_->uniformCount(family, zone, count);
  }
  std::size_t readCounts(Family family, int zone, short* counts, std::size_t n) override {
    return target_->readCounts(family, zone, counts, n);
  }
  std::size_t readIds(Family family, int zone, std::uint64_t* ids, std::size_t n) override {
    const std::size_t size = target_->readIds(family, zone, ids, n);
    if (family == Family::faceNodes && zone == zone_ && size > 0) {
      ids[size - 1] = 0;
    }
    return size;
  }
  std::size_t valueCount(Family family, int zone) override {
    return target_->valueCount(family, zone);
  }
  std::size_t countCount(Family family, int zone) override {
    return target_->countCount(family, zone);
  }
  std::size_t readCoordinates(int zone, double* values, std::size_t n) override {
    return target_->readCoordinates(zone, values, n);
  }
  bool uniformCellType(int zone, int& type) override {
    return target_->uniformCellType(zone, type);
  }
  std::size_t readCellTypes(int zone, int* types, std::size_t n) override {
    return target_->readCellTypes(zone, types, n);
  }
  int partitionInfo(int zone) override { return target_->partitionInfo(zone); }
  std::size_t readCellPartitions(int zone, int* partitions, std::size_t n) override {
    return target_->readCellPartitions(zone, partitions, n);
  }
  std::vector<std::string> variableNames(short, OrvZoneCategory) override { return {}; }
  std::size_t variableZones(const base::VariableKey&, std::vector<int>&) override { return 0; }
  std::size_t variableValueCount(const base::VariableKey&, int) override { return 0; }
  std::size_t readVariable(const base::VariableKey&, int, double*, std::size_t) override {
    return 0;
  }

 private:
  std::shared_ptr<MeshArrays> target_;
  int zone_;
};

/// A list that came by: how long it is, and how it ends.
struct Passed {
  std::size_t size = 0;
  std::uint64_t last = 0;
};

bool operator==(const Passed& a, const Passed& b) { return a.size == b.size && a.last == b.last; }

/// Drops what is written, but for the lengths and ends of lists.
class DroppingSink : public base::MeshArraySink {
 public:
  std::map<std::pair<Family, int>, Passed> lists;
  std::map<int, std::size_t> coordinates;

  void begin(Family, const std::vector<int>&) override {}
  void writeUniformCount(Family, int, short) override {}
  void writeCounts(Family, int, const short*, std::size_t) override {}
  void writeIds(Family family, int zone, const std::uint64_t* ids, std::size_t n) override {
    lists[{family, zone}] = {n, n == 0 ? 0 : ids[n - 1]};
  }
  void writeCoordinates(int zone, const double*, std::size_t n) override { coordinates[zone] = n; }
  void writeUniformCellType(int, int) override {}
  void writeCellTypes(int, const int*, std::size_t) override {}
  void setPartitionInfo(int, int) override {}
  void writeCellPartitions(int, const int*, std::size_t) override {}
  void writeElemIds(int, const std::size_t*, std::size_t) override {}
  void setTreeChildZones(const std::vector<int>&) override {}
  void declareVariables(short, OrvZoneCategory, const Texts&) override {}
  void beginVariable(const base::VariableKey&, const std::vector<int>&, std::size_t) override {}
  void writeVariable(const base::VariableKey&, int, const double*, std::size_t) override {}
};

class DroppingConsumer : public base::CaseConsumer {
 public:
  DroppingSink dropped;

 protected:
  base::MeshArraySink& sink(const base::MeshKey&) override { return dropped; }
  void open(OrvDataClass) override {}
  void finish(OrvDataClass) override {}
};

/// A box, and its zone of the faces inside with the nodes that they list.
struct Box {
  explicit Box(std::uint64_t cells) : sample(samples::findSample("box")->make(cells)) {
    const base::MeshTables& mesh = sample.tables.meshes.at({});
    zone = mesh.idsOf(zoneCategoryFace).front();
    faces = mesh.zoneSize(zone, zoneElementCount);
    nodes = mesh.size(meshNodeCount);
    cellCount = mesh.size(meshCellCount);
  }

  samples::Sample sample;
  int zone = 0;
  std::uint64_t faces = 0;
  std::uint64_t nodes = 0;
  std::uint64_t cellCount = 0;
};

Texts findingsOf(const samples::Sample& sample) {
  const TestFactory factory(
      [&sample](const std::string&) { return new samples::SampleProvider(sample); });
  OrvChecker checker;
  checker.setVerbosity(0);
  checker.setCheckLevel(2);
  checker.checkCase("/dev/null");  // any file that can be opened
  Texts findings = checker.getErrors();
  findings.insert(findings.end(), checker.getWarnings().begin(), checker.getWarnings().end());
  return findings;
}

void expectCheckedToTheEnd(Box box) {
  EXPECT_EQ(findingsOf(box.sample), Texts());
  std::shared_ptr<base::MeshArrays>& arrays = box.sample.arrays.at({});
  arrays = std::make_shared<LastNodeLost>(arrays, box.zone);
  EXPECT_EQ(findingsOf(box.sample),
            Texts{"checkFaceConnectivity : Face node ids out of node id range"});
}

void expectCopiedToTheEnd(const Box& box) {
  samples::SampleProvider source(box.sample);
  ASSERT_TRUE(source.startReading("", dataClassCase));
  DroppingConsumer destination;
  OrvCopier copier("tests");
  copier.setSource(&source);
  copier.setDestination(&destination);
  copier.copyCase(true);
  EXPECT_EQ(source.getErrors(true, true), Texts());
  EXPECT_EQ(source.getWarnings(true, true), Texts());
  EXPECT_EQ(destination.getErrors(true, true), Texts());
  EXPECT_EQ(destination.getWarnings(true, true), Texts());
  const auto& lists = destination.dropped.lists;
  const Passed& nodesOfFaces = lists.at({Family::faceNodes, box.zone});
  EXPECT_EQ(nodesOfFaces.size, 4 * box.faces);
  EXPECT_GT(nodesOfFaces.last, box.nodes / 2);
  EXPECT_LE(nodesOfFaces.last, box.nodes);
  EXPECT_EQ(lists.at({Family::faceCell1, box.zone}), (Passed{box.faces, box.cellCount}));
  EXPECT_EQ(destination.dropped.coordinates.begin()->second, 3 * box.nodes);
}

TEST(LongLists, AreCheckedToTheirEnd) { expectCheckedToTheEnd(Box(kFewCells)); }

TEST(LongLists, AreCopiedToTheirEnd) { expectCopiedToTheEnd(Box(kFewCells)); }

TEST(LongLists, AreCheckedToTheirEndBeyond32Bits) {
  if (!largeTestsAreWanted()) {
    GTEST_SKIP() << kHowTo;
  }
  const Box box(kManyCells);
  ASSERT_GT(4 * box.faces, kMostOf32Bits);
  expectCheckedToTheEnd(box);
}

TEST(LongLists, AreCopiedToTheirEndBeyond32Bits) {
  if (!largeTestsAreWanted()) {
    GTEST_SKIP() << kHowTo;
  }
  const Box box(kManyCells);
  ASSERT_GT(4 * box.faces, kMostOf32Bits);
  expectCopiedToTheEnd(box);
}

}  // namespace
}  // namespace velto::testing
