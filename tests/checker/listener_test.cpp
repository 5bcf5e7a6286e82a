// SPDX-License-Identifier: Apache-2.0
//
// What a listener hears of a check: steps, findings and omissions, each with its place.

#include <algorithm>
#include <sstream>
#include <string>

#include "tests/checker/CheckerFixture.h"

namespace velto::testing {
namespace {

/// "1/0/3" for a place within a mesh, "file" for the file as a whole.
std::string placeText(const CheckPlace& place) {
  if (place == CheckPlace()) {
    return "file";
  }
  std::ostringstream text;
  text << place.mesh << "/" << place.target << "/" << place.partition;
  return text.str();
}

std::string reasonText(CheckOmission reason) {
  const char* const words[] = {"mesh",          "target", "partition", "level", "no location model",
                               "not applicable"};
  return words[static_cast<int>(reason)];
}

/// Writes down what it hears, a line each.
class Ear : public CheckListener {
 public:
  void onStep(const CheckPlace& place, const std::string& step) override {
    heard.push_back(placeText(place) + " " + step);
  }

  void onFinding(const CheckPlace& place, CheckSeverity severity, const std::string& step,
                 const std::string& message) override {
    const char* word = severity == CheckSeverity::error ? " error " : " warning ";
    heard.push_back(placeText(place) + word + step + ": " + message);
  }

  void onLeftOut(const CheckPlace& place, const std::string& step, CheckOmission reason) override {
    heard.push_back(placeText(place) + " without " + (step.empty() ? "all" : step) + ": " +
                    reasonText(reason));
  }

  Texts heard;
};

class Listening : public CheckerFixture {
 protected:
  Listening() { checker.setListener(&ear); }

  /// What was heard of places within a mesh.
  Texts heardInMeshes() const {
    Texts inMeshes;
    for (const std::string& line : ear.heard) {
      if (line.compare(0, 4, "file") != 0) {
        inMeshes.push_back(line);
      }
    }
    return inMeshes;
  }

  Ear ear;
};

TEST_F(Listening, HearsTheStepsOfAWalkAndWhatTheLevelLeavesOut) {
  checker.setCheckLevel(0);
  EXPECT_TRUE(check().good);
  EXPECT_EQ(
      ear.heard,
      Texts({"file checkVersion", "file checkSolverType", "file checkTopologyModel",
             "1/0/-1 without checkMeshSize: level", "1/0/-1 without checkMeshConnectivity: level",
             "1/0/-1 without checkPhysicsToMeshMapUsingTopologyModel: level",
             "1/0/-1 without checkCellZoneConnectivityTypes: level",
             "1/0/-1 without checkNodeZones: level", "1/0/-1 without checkFaceZones: level",
             "1/0/-1 without checkCellZones: level", "1/0/-1 without checkFaceConnectivity: level",
             "1/0/-1 without checkCellConnectivity: level",
             "1/0/-1 without checkCellsFromFaces: level",
             "1/0/-1 without checkFacesShadowZones: level", "file checkCase"}));
}

TEST_F(Listening, HearsThatOnlyDeepChecksAreLeftOutAtLevelOne) {
  EXPECT_TRUE(check().good);
  Texts without;
  for (const std::string& line : ear.heard) {
    if (line.find(" without ") != std::string::npos) {
      without.push_back(line);
    }
  }
  EXPECT_EQ(without, Texts({"1/0/-1 without checkFaceConnectivity: level",
                            "1/0/-1 without checkCellConnectivity: level",
                            "1/0/-1 without checkCellsFromFaces: level",
                            "1/0/-1 without checkFacesShadowZones: level"}));
}

TEST_F(Listening, HearsWhatFiltersPassOver) {
  prepare([](ScriptedProvider& p) {
    p.answerList("getMeshIds", {1, 2});
    p.answerList("getTargets", {0, 2});
    p.answerList("getPartitionIds", {3, 4});
  });
  checker.setMeshId(2);
  checker.setTarget("ppost");
  checker.setPartitionId(4);
  checker.setCheckLevel(0);
  check();
  const Texts heard = heardInMeshes();
  ASSERT_GT(heard.size(), 3U);
  EXPECT_EQ(Texts(heard.begin(), heard.begin() + 4),
            Texts({"1/-1/-1 without all: mesh", "2/0/-1 without all: target",
                   "2/2/3 without all: partition", "2/2/4 without checkMeshSize: level"}));
}

TEST_F(Listening, HearsWhatHasNoPlaceInAPostTarget) {
  serve(cases::postHex());
  EXPECT_TRUE(check().good);
  const Texts heard = heardInMeshes();
  const std::string step = "checkPhysicsToMeshMapUsingTopologyModel";
  const auto began = std::find(heard.begin(), heard.end(), "1/1/-1 " + step);
  ASSERT_GT(heard.end() - began, 1);
  EXPECT_EQ(*(began + 1), "1/1/-1 without " + step + ": not applicable");
}

TEST_F(Listening, HearsWhereTheLocationModelIsLeftOut) {
  serve(cases::withPhysics());
  checker.setNoLM(true);
  check();
  const auto count = [this](const std::string& line) {
    return std::count(ear.heard.begin(), ear.heard.end(), line);
  };
  EXPECT_EQ(count("file without checkTopologyModel: no location model"), 1);
  EXPECT_EQ(count("1/0/-1 without checkPhysicsToMeshMapUsingTopologyModel: no location model"), 1);
}

TEST_F(Listening, HearsFindingsWhereTheyAreMade) {
  prepare([](ScriptedProvider& p) { p.answerVersion(0, 0, 0); });
  check();
  EXPECT_EQ(ear.heard,
            Texts({"file checkVersion", "file error checkVersion: ORV version number invalid"}));
}

TEST_F(Listening, HearsErrorsOfTheLibraryAtThePlaceThatWasBeingSelected) {
  checker.setCheckLevel(0);
  prepare([](ScriptedProvider& p) { failOn(p, "setPartitionId"); });
  check();
  EXPECT_EQ(heardInMeshes(), Texts({"1/0/-1 error checkTopologyModel: ORV - disk gone"}));
}

TEST_F(Listening, HearsWarningsToo) {
  const cases::CasePtr changed = cases::oneHex();
  changed->tables.solverType = "OTHER";
  serve(changed);
  checker.setCheckLevel(0);
  check();
  EXPECT_EQ(ear.heard[2], "file warning checkSolverType: File with unknown solver type");
}

TEST_F(Listening, BeginsASecondFileAtTheFileAsAWhole) {
  prepare([](ScriptedProvider& p) { failOn(p, "setPartitionId"); });
  check();
  ear.heard.clear();
  check(checker, file.path() + ".absent");
  EXPECT_EQ(ear.heard, Texts({"file error checkTopologyModel: Error: No such file / unreadable"}));
}

TEST_F(Listening, IsLeftToCopiesAndEndsWithNull) {
  checker.setCheckLevel(0);
  OrvChecker copy = checker;
  check(copy, file.path());
  EXPECT_FALSE(ear.heard.empty());
  ear.heard.clear();
  copy.setListener(nullptr);
  check(copy, file.path());
  EXPECT_EQ(ear.heard, Texts());
}

/// Ends a check when it comes to a step.
class Stopper : public Ear {
 public:
  struct Stop {};

  void onStep(const CheckPlace& place, const std::string& step) override {
    Ear::onStep(place, step);
    if (step == "checkNodeZones") {
      throw Stop();
    }
  }
};

TEST_F(Listening, StopsACheckByThrowingAndLeavesTheCheckerUsable) {
  Stopper stopper;
  checker.setListener(&stopper);
  EXPECT_THROW(check(), Stopper::Stop);
  EXPECT_EQ(stopper.heard.back(), "1/0/-1 checkNodeZones");
  checker.setListener(nullptr);
  EXPECT_TRUE(check().good);
}

}  // namespace
}  // namespace velto::testing
