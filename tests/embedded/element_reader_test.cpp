// SPDX-License-Identifier: Apache-2.0
//
// ElementReader: values by element id, from zones of every form.

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <map>
#include <utility>
#include <vector>

#include "embedded/base/ElementReader.h"

namespace velto::testing {
namespace {

using base::ElementReader;
using base::ZoneValues;
using Ids = std::vector<std::uint64_t>;

class ElementReaderTest : public ::testing::Test {
 protected:
  void open(std::vector<base::ZoneRange> ranges) {
    reader_.open(std::move(ranges), [this](int zone, ZoneValues<std::uint64_t>& values) {
      loaded_.push_back(zone);
      load(zone, values);
      return zone != gone_;
    });
  }

  Ids valuesOf(const Ids& elements) {
    Ids values;
    for (const std::uint64_t element : elements) {
      values.push_back(reader_.get(element));
    }
    return values;
  }

  std::map<int, Ids> wide_;
  std::map<int, std::vector<std::uint32_t>> narrow_;
  std::map<int, Ids> read_;  // into room of the reader
  std::map<int, std::uint64_t> uniform_;
  std::vector<int> loaded_;
  int gone_ = 0;

 private:
  void load(int zone, ZoneValues<std::uint64_t>& values) {
    if (uniform_.count(zone) != 0) {
      values.uniform = uniform_.at(zone);
    } else if (narrow_.count(zone) != 0) {
      values.narrow = narrow_.at(zone).data();
      values.size = narrow_.at(zone).size();
    } else if (wide_.count(zone) != 0) {
      values.data = wide_.at(zone).data();
      values.size = wide_.at(zone).size();
    } else if (read_.count(zone) != 0) {
      const Ids& read = read_.at(zone);
      std::uint64_t* room = values.room.take(read.size());
      std::copy(read.begin(), read.end(), room);
      values.data = room;
      values.size = read.size();
    }
  }

  ElementReader<std::uint64_t> reader_;
};

TEST_F(ElementReaderTest, GetsFromZonesOfEveryForm) {
  wide_[1] = {11, std::uint64_t{1} << 40U};
  narrow_[2] = {21, 0xFFFFFFFFU};
  uniform_[3] = 31;
  read_[4] = {41, 42, 43};
  open({{1, 1, 2}, {2, 3, 4}, {3, 5, 6}, {4, 7, 9}});
  EXPECT_EQ(valuesOf({1, 2, 3, 4, 5, 6, 7, 8, 9}),
            Ids({11, std::uint64_t{1} << 40U, 21, 0xFFFFFFFFU, 31, 31, 41, 42, 43}));
  EXPECT_EQ(valuesOf({4, 9, 2, 3}), Ids({0xFFFFFFFFU, 43, std::uint64_t{1} << 40U, 21}));
}

TEST_F(ElementReaderTest, LoadsAZoneOnceForAllThatIsAskedInARow) {
  wide_[1] = {11, 12};
  narrow_[2] = {21, 22};
  open({{1, 1, 2}, {2, 3, 4}});
  valuesOf({1, 2, 1, 3, 4, 3});
  EXPECT_EQ(loaded_, std::vector<int>({1, 2}));
}

TEST_F(ElementReaderTest, GetsZeroBehindTheRangeAndBehindTheValues) {
  wide_[1] = {11, 12, 13};
  narrow_[2] = {21, 22, 23};
  open({{1, 1, 2}, {2, 11, 12}, {3, 21, 22}});
  EXPECT_EQ(valuesOf({2, 3, 10, 12, 13, 0}), Ids({12, 0, 0, 22, 0, 0}));
  EXPECT_EQ(valuesOf({21, 22}), Ids({0, 0}));
  narrow_[2] = {21};
  EXPECT_EQ(valuesOf({1, 12, 11}), Ids({11, 0, 21}));
}

TEST_F(ElementReaderTest, LoadsAZoneOnceThatCannotBeRead) {
  open({{1, 1, 4}});
  EXPECT_EQ(valuesOf({1, 2, 3, 4}), Ids({0, 0, 0, 0}));
  EXPECT_EQ(loaded_, std::vector<int>({1}));
}

TEST_F(ElementReaderTest, LoadsAZoneAgainThatWasNotThere) {
  gone_ = 1;
  open({{1, 1, 2}});
  valuesOf({1, 2});
  EXPECT_EQ(loaded_, std::vector<int>({1, 1}));
  gone_ = 0;
  wide_[1] = {11, 12};
  EXPECT_EQ(valuesOf({1, 2}), Ids({11, 12}));
}

TEST_F(ElementReaderTest, ForgetsAllWhenItIsOpenedAgain) {
  narrow_[1] = {11};
  open({{1, 1, 1}});
  valuesOf({1});
  narrow_[1] = {12};
  open({{1, 1, 1}});
  EXPECT_EQ(valuesOf({1}), Ids({12}));
}

}  // namespace
}  // namespace velto::testing
