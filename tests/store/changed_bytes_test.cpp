// SPDX-License-Identifier: Apache-2.0
//
// Sealed files that were cut, at lengths a few bytes apart, and in which one bit was turned over.
// What opens and reads without an error is what was written.

#include <filesystem>
#include <map>

#include "tests/store/file_bytes.h"
#include "tests/store/hdf5_damage.h"
#include "tests/store/read_everything.h"
#include "tests/store/store_files.h"

namespace velto::testing {
namespace {

using Texts = std::vector<std::string>;

/// What became of a file.
enum class State {
  refused,    ///< startReading says why.
  reported,   ///< Errors wait after everything was read.
  same,       ///< It reads as it was written.
  different,  ///< It reads otherwise, and nobody said anything.
};

/// One case, packed as far as the parameter says; its bytes, and what a change of them does.
class ChangedBytes : public ::testing::TestWithParam<unsigned> {
 protected:
  ChangedBytes() {
    save(GetParam() == 0 ? *cases::withResults() : *cases::rowOfBodies(25), folder_.path(),
         GetParam());
    file_ = folder_.path("case.orv");
    bytes_ = readBytes(file_);
    sound_ = readEverything(*opened(folder_.path())).lines;
    std::filesystem::copy_file(file_, folder_.path("unsealed.orv"));
    stripSeal(folder_.path("unsealed.orv"));
    unsealedSize_ = std::filesystem::file_size(folder_.path("unsealed.orv"));
  }

  const std::string& bytes() const { return bytes_; }
  std::size_t unsealedSize() const { return unsealedSize_; }

  State stateWith(const std::string& bytes) const {
    writeBytes(file_, bytes);
    store::StoreProvider provider;
    if (!provider.startReading(file_, dataClassCase)) {
      EXPECT_EQ(provider.getErrors(true, true).size(), 1U);
      return State::refused;
    }
    if (std::filesystem::exists(folder_.path("case.orvr"))) {
      EXPECT_TRUE(provider.startReading(folder_.path("case.orvr"), dataClassResults));
    }
    const Reading reading = readEverything(provider);
    EXPECT_EQ(reading.tooLarge, Texts());
    if (!reading.errors.empty()) {
      return State::reported;
    }
    return reading.lines == sound_ ? State::same : State::different;
  }

 private:
  TempFolder folder_;
  std::string file_;
  std::string bytes_;
  Texts sound_;
  std::size_t unsealedSize_ = 0;
};

TEST_P(ChangedBytes, CutBeforeTheSeal) {
  ASSERT_GT(bytes().size(), unsealedSize());
  const std::size_t step = GetParam() == 0 ? 7 : 31;
  for (std::size_t size = 0; size < unsealedSize(); size += step) {
    EXPECT_EQ(stateWith(bytes().substr(0, size)), State::refused) << size << " bytes";
  }
  EXPECT_EQ(stateWith(bytes().substr(0, unsealedSize() - 1)), State::refused);
}

// Kept: a file without a seal, or with a piece of one, counts as one of another program.
TEST_P(ChangedBytes, CutWithinTheSeal) {
  for (std::size_t size = unsealedSize(); size < bytes().size(); ++size) {
    EXPECT_EQ(stateWith(bytes().substr(0, size)), State::same) << size << " bytes";
  }
}

// Of what is packed, zstd passes over a bit or two; what it gives has a checksum all the same.
TEST_P(ChangedBytes, BitsTurnedOver) {
  std::map<State, std::size_t> states;
  const std::size_t step = GetParam() == 0 ? 11 : 331;
  for (std::size_t bit = 0; bit < 8 * bytes().size(); bit += step) {
    std::string changed = bytes();
    flipBit(changed, bit / 8, static_cast<unsigned>(bit % 8));
    const State state = stateWith(changed);
    ++states[state];
    EXPECT_NE(state, State::different) << "byte " << bit / 8 << ", bit " << bit % 8;
    const bool isMagic = bit / 8 >= bytes().size() - 8;
    EXPECT_TRUE(state == State::same ? isMagic || GetParam() != 0 : !isMagic)
        << "byte " << bit / 8 << ", bit " << bit % 8;
  }
  EXPECT_GT(states[State::refused], 0U);
  EXPECT_GT(states[State::reported], 0U);
}

INSTANTIATE_TEST_SUITE_P(Compression, ChangedBytes, ::testing::Values(0U, 9U),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace velto::testing
