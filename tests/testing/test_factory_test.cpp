// SPDX-License-Identifier: Apache-2.0
//
// TestFactory: makers stand while their object lives.

#include <gtest/gtest.h>
#include <iostream>
#include <memory>

#include "data_access/OrvFactory.h"

#include "testing/RecordingConsumer.h"
#include "testing/ScriptedProvider.h"
#include "testing/TestFactory.h"
#include "testing/capture.h"
#include "testing/cases.h"

namespace velto::testing {
namespace {

TEST(TestFactory, GivesNullWithoutMakers) {
  EXPECT_EQ(getDataProvider("duct.orv"), nullptr);
  EXPECT_EQ(getDataConsumer(fileFormatMemory), nullptr);
  const TestFactory factory(nullptr);
  EXPECT_EQ(getDataProvider("duct.orv"), nullptr);
  EXPECT_EQ(getDataConsumer(fileFormatMemory), nullptr);
}

TEST(TestFactory, GivesWhatTheMakersMake) {
  std::string askedFor;
  int format = -1;
  const TestFactory factory(
      [&askedFor](const std::string& fileName) {
        askedFor = fileName;
        return new ScriptedProvider(cases::oneHex());
      },
      [&format](OrvFileFormatType asked) {
        format = asked;
        return new RecordingConsumer(nullptr);
      });
  const std::unique_ptr<OrvFileIO> provider(getDataProvider("duct.orv"));
  const std::unique_ptr<OrvFileIO> consumer(getDataConsumer(fileFormatOpenFoam));
  EXPECT_NE(provider, nullptr);
  EXPECT_NE(consumer, nullptr);
  EXPECT_EQ(askedFor, "duct.orv");
  EXPECT_EQ(format, 1);
}

TEST(TestFactory, GivesBackItsPlaceWhenDestroyed) {
  int outerCalls = 0;
  const TestFactory outer([&outerCalls](const std::string&) {
    ++outerCalls;
    return nullptr;
  });
  {
    const TestFactory inner(nullptr);
    getDataProvider("");
    EXPECT_EQ(outerCalls, 0);
  }
  getDataProvider("");
  EXPECT_EQ(outerCalls, 1);
}

TEST(StreamCapture, TakesBothStreamsAndGivesThemBack) {
  const StreamCapture outer;
  {
    const StreamCapture inner;
    std::cout << "to out\n";
    std::cerr << "to err\n";
    EXPECT_EQ(inner.out(), "to out\n");
    EXPECT_EQ(inner.err(), "to err\n");
  }
  std::cout << "after\n";
  EXPECT_EQ(outer.out(), "after\n");
  EXPECT_EQ(outer.err(), "");
}

}  // namespace
}  // namespace velto::testing
