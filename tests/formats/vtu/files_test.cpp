// SPDX-License-Identifier: Apache-2.0
//
// The file itself: long arrays in many blocks, progress, and writing that does not come to its end.

#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "embedded/base/Progress.h"
#include "embedded/memory/load_case.h"
#include "samples/samples.h"
#include "testing/write_case.h"
#include "tests/formats/vtu/vtu_cases.h"

namespace velto::testing {
namespace {

namespace fs = std::filesystem;

cases::CasePtr box(std::uint64_t cells) {
  const samples::Sample made = samples::findSample("box")->make(cells);
  return memory::loadCase(made.tables, made.arrays);
}

class VtuFiles : public ::testing::Test {
 protected:
  std::string path(const std::string& name = "case.vtu") const { return folder_.path(name); }

  /// What is pending after a case went to a file.
  Texts errorsOfWriting(const memory::Case& source, const std::string& file,
                        unsigned compression = 0) const {
    vtu::VtuConsumer consumer;
    consumer.setFileName(file, dataClassCase);
    consumer.setCompression(compression);
    writeCase(source, consumer);
    return without(folder_.path() + "/", consumer.getErrors(true, true));
  }

  Texts names() const {
    Texts names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_.path())) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

  static std::string bytesOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

 private:
  TempFolder folder_;
};

TEST_F(VtuFiles, HoldTheSamePlainAndPackedInManyBlocks) {
  const cases::CasePtr source = box(30000);
  const Written plain(*source);
  const Written packed(*source, 1);
  const Texts lines = plain.lines();
  EXPECT_EQ(lines, packed.lines());
  EXPECT_LT(fs::file_size(packed.path()), fs::file_size(plain.path()) / 2);
  const VtuPiece piece = plain.file().pieces.at(0);
  EXPECT_EQ(piece.cells, 29791U);
  EXPECT_EQ(piece.values("types"), std::vector<double>(29791, 12));
  double sum = 0;
  for (const double volume : volumes(piece)) {
    EXPECT_GT(volume, 0);
    sum += volume;
  }
  EXPECT_NEAR(sum, 1, 1e-9);
}

class Listener : public base::ProgressListener {
 public:
  void onProgress(const std::string& what, std::uint64_t done, std::uint64_t total) override {
    EXPECT_GT(done, last);
    EXPECT_LE(done, total);
    text = what;
    last = done;
    end = total;
  }

  std::string text;
  std::uint64_t last = 0;
  std::uint64_t end = 1;
};

TEST_F(VtuFiles, ReportTheirProgress) {
  const cases::CasePtr source = box(30000);
  Listener listener;
  EXPECT_EQ(errorsOfWriting(*source, path()), Texts());
  EXPECT_EQ(listener.text, "writing " + path());
  EXPECT_EQ(listener.last, listener.end);
}

TEST_F(VtuFiles, AreOfTheFirstMeshThatHasCells) {
  const cases::CasePtr source = cases::quad2d();
  const cases::CasePtr other = cases::twoHexes();
  source->tables.meshes[{2, targetRestart, -1}] = other->mesh();
  source->data[{2, targetRestart, -1}] = other->arrays();
  source->tables.meshes[{1, targetPost, -1}] = other->mesh();
  source->data[{1, targetPost, -1}] = other->arrays();
  EXPECT_EQ(Written(*source).lines(), Written(*cases::quad2d()).lines());
  source->mesh().zoneIds.erase(zoneCategoryCell);
  EXPECT_EQ(Written(*source).lines(), Written(*cases::twoHexes()).lines());
}

TEST_F(VtuFiles, HaveNoPieceForAPartitionWithoutCells) {
  const cases::CasePtr source = cases::withPartitions();
  base::MeshTables& empty = source->mesh({1, targetPartitionedPost, 2});
  empty.sizes[meshDimension] = 3;
  empty.addZone(zoneCategoryCell, 3, "fluid", 0);
  EXPECT_EQ(Written(*source).lines(), Written(*cases::withPartitions()).lines());
}

TEST_F(VtuFiles, ComeBeforeTheResultsAndAgainWithThem) {
  const cases::CasePtr source = cases::withResults();
  vtu::VtuConsumer consumer;
  consumer.setFileName(path(), dataClassCase);
  consumer.setFileName(path("results.vtu"), dataClassResults);
  memory::Case mesh = *source;
  mesh.tables.phases.clear();
  writeCase(mesh, consumer);
  EXPECT_EQ(describe(readVtu(path())), Written(*cases::oneHex()).lines());
  writeCase(*source, consumer);
  EXPECT_EQ(describe(readVtu(path())), Written(*source).lines());
  EXPECT_EQ(consumer.getErrors(true, true), Texts());
  EXPECT_EQ(names(), Texts({"case.vtu"}));
}

// --- Writing that is not ended, and what cannot be written ---------------------------------------

TEST_F(VtuFiles, AreNotLeftByAConsumerThatIsGivenUp) {
  {
    vtu::VtuConsumer consumer;
    consumer.setFileName(path(), dataClassCase);
    consumer.startWriting(dataClassCase);
    consumer.beginNodeCoordinates({1});
  }
  EXPECT_EQ(names(), Texts());
}

TEST_F(VtuFiles, NeedAName) {
  EXPECT_EQ(errorsOfWriting(*cases::oneHex(), ""),
            Texts({"Error:\n\tstart of writing: no file name was given for what is to be written",
                   "Error:\n\tend of writing: nothing was written because of the error before"}));
}

TEST_F(VtuFiles, DoNotTakeTheNameOfAFolder) {
  fs::create_directory(path());
  EXPECT_EQ(errorsOfWriting(*cases::oneHex(), path()),
            Texts({"Error:\n\tstart of writing: case.vtu: is a folder",
                   "Error:\n\tend of writing: nothing was written because of the error before"}));
  EXPECT_EQ(names(), Texts({"case.vtu"}));
}

TEST_F(VtuFiles, NeedAFolder) {
  EXPECT_EQ(errorsOfWriting(*cases::oneHex(), path("absent/case.vtu")),
            Texts({"Error:\n\tend of writing: absent/case.vtu: cannot be made: No such file or "
                   "directory",
                   "Error:\n\tend of writing: nothing was written because of the error before"}));
  EXPECT_EQ(names(), Texts());
}

TEST_F(VtuFiles, StayAsTheyWereIfTheNextCaseCannotBeWritten) {
  EXPECT_EQ(errorsOfWriting(*cases::oneHex(), path()), Texts());
  const std::string before = bytesOf(path());
  EXPECT_EQ(errorsOfWriting(*cases::postPolyhedron(), path()).size(), 2U);
  EXPECT_EQ(bytesOf(path()), before);
  EXPECT_EQ(names(), Texts({"case.vtu"}));
}

/// No file may have more bytes.
void setMostBytes(rlim_t bytes) {
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = bytes;
  setrlimit(RLIMIT_FSIZE, &limit);
}

TEST_F(VtuFiles, AreNotLeftIfThereIsNoRoom) {
  const cases::CasePtr source = box(8000);
  for (const unsigned compression : {0U, 9U}) {
    for (const rlim_t room : {0U, 100U, 4096U, 50000U}) {
      SCOPED_TRACE(std::to_string(compression) + " in " + std::to_string(room) + " bytes");
      const pid_t child = fork();
      if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        setMostBytes(room);
        const Texts errors = errorsOfWriting(*source, path(), compression);
        setMostBytes(RLIM_INFINITY);
        EXPECT_EQ(errors,
                  Texts({"Error:\n\tend of writing: case.vtu: cannot be written at byte " +
                             std::to_string(room) + ": File too large",
                         "Error:\n\tend of writing: nothing was written because of the error "
                         "before"}));
        EXPECT_EQ(names(), Texts());
        _exit(::testing::Test::HasFailure() ? 1 : 0);
      }
      int status = 0;
      waitpid(child, &status, 0);
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
  }
}

}  // namespace
}  // namespace velto::testing
