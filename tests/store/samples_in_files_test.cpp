// SPDX-License-Identifier: Apache-2.0
//
// Every sample, damaged ones too, is in a file what it is without: each table, list and value reads
// the same, contiguous and packed.

#include <string>
#include <vector>

#include "samples/SampleProvider.h"
#include "samples/defects.h"
#include "samples/samples.h"
#include "samples/save_sample.h"
#include "tests/store/read_everything.h"
#include "tests/store/store_files.h"

namespace velto::testing {
namespace {

/// All that a provider has to give, results and messages included, as one text of many lines.
std::string textOf(OrvFileProvider& provider) {
  const Reading reading = readEverything(provider);
  std::string text;
  for (const auto* list : {&reading.lines, &reading.warnings, &reading.errors, &reading.tooLarge}) {
    for (const std::string& line : *list) {
      text += line + "\n";
    }
  }
  return text;
}

void expectTheSameInFiles(const samples::Sample& sample) {
  samples::SampleProvider direct(sample);
  ASSERT_TRUE(direct.startReading("", dataClassCase));
  const std::string expected = textOf(direct);
  for (const unsigned compression : {0U, 1U, 7U}) {
    SCOPED_TRACE(compression);
    const TempFolder folder;
    samples::saveSample(sample, folder.path("case.orv"), compression);
    EXPECT_EQ(textOf(*opened(folder.path())), expected);
  }
}

TEST(SamplesInFiles, ReadTheSame) {
  for (const samples::SampleInfo& info : samples::samples()) {
    for (const std::uint64_t cells : {1U, 700U}) {
      SCOPED_TRACE(std::string(info.name) + " of " + std::to_string(cells));
      expectTheSameInFiles(info.make(cells));
    }
  }
}

TEST(SamplesInFiles, ReadTheSameWithADefect) {
  for (const samples::Defect& defect : samples::defects()) {
    SCOPED_TRACE(defect.name);
    expectTheSameInFiles(samples::makeDamagedSample(defect));
  }
}

TEST(SamplesInFiles, BelongToTheirResults) {
  const TempFolder folder;
  const samples::SampleInfo& info = *samples::findSample("results");
  samples::saveSample(info.make(8), folder.path("small.orv"), 0);
  samples::saveSample(info.make(27), folder.path("large.orv"), 0);
  store::StoreProvider provider;
  ASSERT_TRUE(provider.startReading(folder.path("small.orv"), dataClassCase));
  const std::string file = folder.path("large.orvr");
  EXPECT_FALSE(provider.startReading(file, dataClassResults));
  EXPECT_EQ(provider.getErrors(true, true),
            std::vector<std::string>({"Error:\n\t" + file +
                                      ": the results belong to another case, zone 1 has 64 "
                                      "elements there and 27 here"}));
  std::uint64_t cells = 0;
  provider.getMeshSize(meshCellCount, cells);
  EXPECT_EQ(cells, 8U) << "the case is not served any more";
  EXPECT_TRUE(provider.startReading(folder.path("small.orvr"), dataClassResults));
}

}  // namespace
}  // namespace velto::testing
