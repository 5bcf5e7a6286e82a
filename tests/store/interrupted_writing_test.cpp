// SPDX-License-Identifier: Apache-2.0
//
// Writing that ends before its end: given up, refused, in the wrong order, out of room, killed. A
// name holds a whole file or what it held before.

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "velto/OrvChecker.h"

#include "testing/Random.h"
#include "testing/TestFactory.h"
#include "testing/capture.h"
#include "tests/store/file_bytes.h"
#include "tests/store/read_everything.h"
#include "tests/store/store_files.h"

namespace velto::testing {
namespace {

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

/// oneHex() with so many nodes that the file has some megabytes.
cases::CasePtr manyNodes() {
  constexpr std::uint64_t kNodes = 100000;
  cases::CasePtr made = cases::oneHex();
  std::vector<double> coordinates(3 * kNodes);
  Random random(1);
  for (double& coordinate : coordinates) {  // nothing that could be packed well
    coordinate = static_cast<double>(random.next()) / 7;
  }
  made->mesh().sizes[meshNodeCount] = kNodes;
  made->zone(1).sizes[zoneLastId] = kNodes;
  made->zone(1).sizes[zoneElementCount] = kNodes;
  made->arrays().nodeCoordinates[1] = memory::Slice<double>(coordinates);
  return made;
}

class InterruptedWriting : public ::testing::Test {
 protected:
  std::string path(const std::string& name) const { return folder_.path(name); }
  std::string caseFile() const { return path("case.orv"); }

  /// The names of all that is in the folder.
  Texts names() const {
    Texts names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_.path())) {
      names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  /// What is pending, the folder's name left out.
  Texts errorsOf(const OrvFileConsumer& consumer) const {
    Texts errors = consumer.getErrors(true, true);
    const std::string folder = folder_.path() + "/";
    for (std::string& error : errors) {
      const std::size_t at = error.find(folder);
      if (at != std::string::npos) {
        error.erase(at, folder.size());
      }
    }
    return errors;
  }

  /// The same, of which the first ends after a beginning: the system's reason is left out.
  Texts errorsWithoutReason(const OrvFileConsumer& consumer, const std::string& begin) const {
    Texts errors = errorsOf(consumer);
    if (!errors.empty() && errors[0].compare(0, begin.size(), begin) == 0) {
      errors[0].resize(begin.size());
    }
    return errors;
  }

  static void writeNodes(OrvFileConsumer& consumer, std::size_t count = 8) {
    const std::vector<double> values(3 * count, 0.5);
    consumer.beginNodeCoordinates({1});
    consumer.writeNodeCoordinates(1, values.data(), values.size());
    consumer.endNodeCoordinates();
  }

  /// The file opens, gives all that it has, and a checker finds nothing.
  void expectSound() const {
    store::StoreProvider provider;
    EXPECT_TRUE(provider.startReading(caseFile(), dataClassCase));
    EXPECT_EQ(readEverything(provider).errors, Texts());
    const TestFactory factory([](const std::string&) { return new store::StoreProvider; });
    const StreamCapture streams;
    OrvChecker checker;
    checker.setCheckLevel(1);
    EXPECT_TRUE(checker.checkCase(caseFile()));
    EXPECT_EQ(checker.getErrors(), Texts());
  }

  /// The consumer can still be used: for a sound file of another name.
  void expectWritesAnother(OrvFileConsumer& consumer) const {
    const cases::CasePtr another = cases::oneHex();
    consumer.setFileName(path("another.orv"), dataClassCase);
    writeCase(*another, consumer);
    EXPECT_EQ(consumer.getErrors(true, true), Texts());
    store::StoreProvider provider;
    EXPECT_TRUE(provider.startReading(path("another.orv"), dataClassCase));
    EXPECT_EQ(readEverything(provider).errors, Texts());
    fs::remove(path("another.orv"));
  }

 private:
  TempFolder folder_;
};

// --- Given up -----------------------------------------------------------------------------------

TEST_F(InterruptedWriting, LeavesNothingIfItIsGivenUp) {
  for (const unsigned compression : {0U, 9U}) {
    store::StoreConsumer consumer;
    consumer.setFileName(caseFile(), dataClassCase);
    consumer.setCompression(compression);
    consumer.startWriting(dataClassCase);
    writeNodes(consumer, 1000000);
    EXPECT_EQ(names().size(), 1U);
    EXPECT_FALSE(fs::exists(caseFile()));
  }
  EXPECT_EQ(names(), Texts());
}

TEST_F(InterruptedWriting, LeavesAnOlderFileIfItIsGivenUp) {
  save(*cases::oneHex(), path(""), 0);
  const std::string before = readBytes(caseFile());
  {
    store::StoreConsumer consumer;
    consumer.setFileName(caseFile(), dataClassCase);
    consumer.startWriting(dataClassCase);
    writeNodes(consumer);
  }
  EXPECT_EQ(names(), Texts({"case.orv"}));
  EXPECT_EQ(readBytes(caseFile()), before);
}

TEST_F(InterruptedWriting, BeginsAgainWithoutAnEnd) {
  store::StoreConsumer consumer;
  consumer.setFileName(caseFile(), dataClassCase);
  consumer.startWriting(dataClassCase);
  writeNodes(consumer);
  writeCase(*cases::oneHex(), consumer);
  EXPECT_EQ(errorsOf(consumer), Texts());
  EXPECT_EQ(names(), Texts({"case.orv"}));
  expectSound();
}

// --- In the wrong order -------------------------------------------------------------------------

TEST_F(InterruptedWriting, TakesNoValuesBeforeItBegan) {
  store::StoreConsumer consumer;
  consumer.setFileName(caseFile(), dataClassCase);
  writeNodes(consumer);
  EXPECT_EQ(errorsOf(consumer),
            Texts({"Error:\n\tnode coordinates: nothing is being written, startWriting comes "
                   "first"}));
  expectWritesAnother(consumer);
  EXPECT_EQ(names(), Texts());
}

TEST_F(InterruptedWriting, DoesNotEndWhatWasNotBegun) {
  store::StoreConsumer consumer;
  consumer.setFileName(caseFile(), dataClassCase);
  consumer.endWriting(dataClassCase);
  EXPECT_EQ(errorsOf(consumer),
            Texts({"Error:\n\tend of writing: this class is not being written, startWriting comes "
                   "first",
                   "Error:\n\tend of writing: nothing was written because of the error before"}));
  expectWritesAnother(consumer);
  EXPECT_EQ(names(), Texts());
}

TEST_F(InterruptedWriting, DoesNotEndAnotherClass) {
  store::StoreConsumer consumer;
  consumer.setFileName(caseFile(), dataClassCase);
  consumer.setFileName(path("case.orvr"), dataClassResults);
  consumer.startWriting(dataClassCase);
  writeNodes(consumer);
  consumer.endWriting(dataClassResults);
  EXPECT_EQ(errorsOf(consumer),
            Texts({"Error:\n\tend of writing: this class is not being written, startWriting comes "
                   "first",
                   "Error:\n\tend of writing: nothing was written because of the error before"}));
  EXPECT_EQ(names(), Texts());
}

TEST_F(InterruptedWriting, TakesNoValuesOfAMeshAfterThoseOfTheNext) {
  store::StoreConsumer consumer;
  consumer.setFileName(caseFile(), dataClassCase);
  consumer.startWriting(dataClassCase);
  writeNodes(consumer);
  consumer.setMeshId(2);
  writeNodes(consumer);
  consumer.setMeshId(1);
  writeNodes(consumer);
  writeNodes(consumer);  // says nothing more
  EXPECT_EQ(errorsOf(consumer),
            Texts({"Error:\n\tnode coordinates: case.orv: /meshes/0/nodeCoordinates: zone 1 came "
                   "after the array was closed; the arrays of a mesh are written before those of "
                   "the next"}));
  consumer.endWriting(dataClassCase);
  EXPECT_EQ(errorsOf(consumer),
            Texts({"Error:\n\tend of writing: nothing was written because of the error before"}));
  expectWritesAnother(consumer);
  EXPECT_EQ(names(), Texts());
}

// --- Nowhere to write ---------------------------------------------------------------------------

TEST_F(InterruptedWriting, NeedsAName) {
  store::StoreConsumer consumer;
  writeCase(*cases::oneHex(), consumer);
  EXPECT_EQ(errorsOf(consumer),
            Texts({"Error:\n\tstart of writing: no file name was given for what is to be written",
                   "Error:\n\tend of writing: nothing was written because of the error before"}));
  expectWritesAnother(consumer);
}

TEST_F(InterruptedWriting, DoesNotTakeTheNameOfAFolder) {
  fs::create_directory(caseFile());
  store::StoreConsumer consumer;
  consumer.setFileName(caseFile(), dataClassCase);
  writeCase(*cases::oneHex(), consumer);
  EXPECT_EQ(errorsOf(consumer),
            Texts({"Error:\n\tstart of writing: case.orv: is a folder",
                   "Error:\n\tend of writing: nothing was written because of the error before"}));
  expectWritesAnother(consumer);
  EXPECT_EQ(names(), Texts({"case.orv"}));
}

TEST_F(InterruptedWriting, NeedsAFolder) {
  store::StoreConsumer consumer;
  consumer.setFileName(path("absent/case.orv"), dataClassCase);
  writeCase(*cases::oneHex(), consumer);
  const std::string begin = "Error:\n\tstart of writing: absent/case.orv: cannot be made: ";
  EXPECT_EQ(
      errorsWithoutReason(consumer, begin),
      Texts({begin, "Error:\n\tend of writing: nothing was written because of the error before"}));
  expectWritesAnother(consumer);
  EXPECT_EQ(names(), Texts());
}

TEST_F(InterruptedWriting, DoesNotEndIfTheNameBecameAFolder) {
  store::StoreConsumer consumer;
  consumer.setFileName(caseFile(), dataClassCase);
  consumer.startWriting(dataClassCase);
  fs::create_directory(caseFile());
  consumer.endWriting(dataClassCase);
  EXPECT_EQ(errorsOf(consumer),
            Texts({"Error:\n\tend of writing: case.orv: cannot take its name: Is a directory",
                   "Error:\n\tend of writing: nothing was written because of the error before"}));
  EXPECT_EQ(names(), Texts({"case.orv"}));
}

// --- Out of room, and killed --------------------------------------------------------------------

/// Does something in a child; true if no expectation failed in it.
bool inAChild(const std::function<void()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(::testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// No file may have more bytes.
void setMostBytes(rlim_t bytes) {
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = bytes;
  setrlimit(RLIMIT_FSIZE, &limit);
}

TEST_F(InterruptedWriting, LeavesNothingIfThereIsNoRoom) {
  const cases::CasePtr source = manyNodes();
  for (const unsigned compression : {0U, 9U}) {
    for (const rlim_t room : {0U, 100U, 2000U, 5000U, 100000U, 800000U}) {
      SCOPED_TRACE(std::to_string(compression) + " in " + std::to_string(room) + " bytes");
      EXPECT_TRUE(inAChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        store::StoreConsumer consumer;
        consumer.setFileName(caseFile(), dataClassCase);
        consumer.setCompression(compression);
        setMostBytes(room);
        writeCase(*source, consumer);
        setMostBytes(RLIM_INFINITY);
        const Texts errors = errorsOf(consumer);
        EXPECT_EQ(errors.size(), 2U);
        EXPECT_EQ(errors.back(),
                  "Error:\n\tend of writing: nothing was written because of the error before");
        EXPECT_EQ(names(), Texts());
        expectWritesAnother(consumer);
        EXPECT_EQ(names(), Texts());
      }));
    }
  }
}

/// Writes a case again and again, over what is there, until it is killed.
[[noreturn]] void writeForEver(const memory::Case& source, const std::string& folder) {
  for (unsigned round = 0;; ++round) {
    save(source, folder, round % 2 == 0 ? 0 : 4);
  }
}

TEST_F(InterruptedWriting, LeavesAWholeFileIfItIsKilled) {
  constexpr int kRounds = 200;
  const cases::CasePtr source = manyNodes();
  const auto begin = std::chrono::steady_clock::now();
  save(*source, path(""), 0);
  const auto time = std::chrono::duration_cast<std::chrono::microseconds>(
      std::chrono::steady_clock::now() - begin);
  fs::remove(caseFile());
  Random random(4);
  for (int round = 0; round < kRounds; ++round) {
    const pid_t child = fork();
    if (child == 0) {
      writeForEver(*source, path(""));
    }
    usleep(static_cast<useconds_t>(random.below(2 * static_cast<std::size_t>(time.count()))));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    for (const std::string& name : names()) {
      if (name != "case.orv") {
        const std::string part = "case.orv.part-" + std::to_string(child) + "-";
        EXPECT_EQ(name.substr(0, part.size()), part);
        fs::remove(path(name));
      }
    }
    if (fs::exists(caseFile())) {
      expectSound();
    }
  }
  EXPECT_TRUE(fs::exists(caseFile()));
}

}  // namespace
}  // namespace velto::testing
