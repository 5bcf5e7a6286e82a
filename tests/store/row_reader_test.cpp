// SPDX-License-Identifier: Apache-2.0
//
// RowReader: ids read in 32 bits each, from rows of every storage; and single ids of a file whose
// zones fit in them or do not.

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <numeric>
#include <vector>

#include "embedded/base/CaseError.h"
#include "embedded/store/RowReader.h"
#include "embedded/store/RowWriter.h"
#include "tests/store/store_files.h"

namespace velto::testing {
namespace {

using store::NumberType;
using store::RowRun;

constexpr std::uint64_t kLargestNarrow = 0xFFFFFFFFU;

class NarrowRows : public ::testing::TestWithParam<bool> {
 protected:
  /// Writes two runs: `before` that is not looked at, then the ids.
  void write(std::uint64_t before, const std::vector<std::uint64_t>& ids) {
    store::Hdf5File file = store::Hdf5File::create(file_, file_);
    {
      store::Group root = file.root();
      store::Packer packer;
      const auto writer = GetParam()
                              ? store::makePackedWriter(root, "ids", NumberType::uint64, packer, 1)
                              : store::makeContiguousWriter(root, "ids", NumberType::uint64, 1000);
      const std::vector<std::uint64_t> first(before, kLargestNarrow + 1);
      writer->append(first.data(), first.size());
      run_ = writer->append(ids.data(), ids.size());
      writer->finish();
    }
    file.close();
  }

  bool readNarrow(std::vector<std::uint32_t>& ids) {
    const base::RawFile raw(file_, base::RawFile::Mode::read, file_);
    const store::Hdf5File file = store::Hdf5File::open(file_, raw.size());
    store::ReadBuffers buffers;
    store::RowReader reader(file.root().openDataset("ids", NumberType::uint64), NumberType::uint64,
                            raw, buffers);
    ids.resize(run_.rows);
    return reader.readNarrow(run_, ids.data());
  }

  RowRun run_;

 private:
  TempFolder folder_;
  std::string file_ = folder_.path("rows.h5");
};

std::vector<std::uint64_t> manyIds() {
  std::vector<std::uint64_t> ids(300000);
  std::iota(ids.begin(), ids.end(), kLargestNarrow - ids.size() + 1);
  return ids;
}

TEST_P(NarrowRows, AreTheIdsThatWereWritten) {
  const std::vector<std::uint64_t> ids = manyIds();
  write(1000, ids);
  std::vector<std::uint32_t> narrow;
  EXPECT_TRUE(readNarrow(narrow));
  EXPECT_TRUE(std::equal(ids.begin(), ids.end(), narrow.begin(), narrow.end()));
}

TEST_P(NarrowRows, AreRefusedWhereOneIdDoesNotFit) {
  for (const std::size_t place : {0U, 150000U, 299999U}) {
    SCOPED_TRACE(place);
    std::vector<std::uint64_t> ids = manyIds();
    ids[place] = kLargestNarrow + 1;
    write(7, ids);
    std::vector<std::uint32_t> narrow;
    EXPECT_FALSE(readNarrow(narrow));
  }
}

TEST_P(NarrowRows, AreComparedWithTheirChecksum) {
  write(0, manyIds());
  ++run_.checksum;
  std::vector<std::uint32_t> narrow;
  EXPECT_THROW(readNarrow(narrow), base::CaseError);
}

INSTANTIATE_TEST_SUITE_P(Storages, NarrowRows, ::testing::Bool(),
                         [](const auto& packed) { return packed.param ? "Packed" : "Contiguous"; });

TEST(StoreProvider, GetsSingleIdsOfAnySize) {
  const cases::CasePtr source = cases::twoHexes();  // face zone 2 is face 1
  source->arrays().faceCell0[2] =
      memory::Slice<std::uint64_t>(std::vector<std::uint64_t>{kLargestNarrow + 1});
  for (const unsigned compression : {0U, 1U}) {
    const TempFolder folder;
    save(*source, folder.path(), compression);
    const std::unique_ptr<OrvFileProvider> provider = opened(folder.path());
    std::vector<int> zones;
    provider->beginFaceCell0(zones);
    EXPECT_EQ(provider->getFaceCell0(11), 2U);
    EXPECT_EQ(provider->getFaceCell0(1), kLargestNarrow + 1);
    EXPECT_EQ(provider->getFaceCell0(2), 1U);
    provider->endFaceCell0();
  }
}

}  // namespace
}  // namespace velto::testing
