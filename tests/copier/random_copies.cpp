// SPDX-License-Identifier: Apache-2.0
//
// Random copies: misdeeds of both ends, and steps that ask nothing of a copier that it may refuse.

#include "tests/copier/random_copies.h"

#include <limits>

namespace velto::testing {

namespace {

using Kind = CopyStep::Kind;

// --- Misdeeds -----------------------------------------------------------------------------------

const std::vector<std::string>& callsOfSources() {
  static const std::vector<std::string> kCalls = {"getMeshSize",
                                                  "getMeshUnits",
                                                  "getZoneIds",
                                                  "getZoneSizeInfo",
                                                  "getCellZoneInfo",
                                                  "getFaceZoneInfo",
                                                  "getZoneStringInfo",
                                                  "getLocationModel",
                                                  "getMeshId",
                                                  "beginNodeCoordinates",
                                                  "readNodeCoordinates",
                                                  "endNodeCoordinates",
                                                  "beginFaceNodes",
                                                  "beginFaceNodeCounts",
                                                  "getUniformFaceNodeCount",
                                                  "readFaceNodeCounts",
                                                  "endFaceNodeCounts",
                                                  "beginFaceNodeIds",
                                                  "readFaceNodeIds",
                                                  "endFaceNodeIds",
                                                  "endFaceNodes",
                                                  "beginFaceCell0",
                                                  "readFaceCell0",
                                                  "endFaceCell0",
                                                  "beginFaceCell1",
                                                  "readFaceCell1",
                                                  "endFaceCell1",
                                                  "beginCellTypes",
                                                  "getUniformCellType",
                                                  "readCellTypes",
                                                  "endCellTypes",
                                                  "beginCellNodes",
                                                  "beginCellNodeCounts",
                                                  "getUniformCellNodeCount",
                                                  "readCellNodeCounts",
                                                  "endCellNodeCounts",
                                                  "beginCellNodeIds",
                                                  "readCellNodeIds",
                                                  "endCellNodeIds",
                                                  "endCellNodes",
                                                  "beginCellPartitions",
                                                  "getCellPartitionInfo",
                                                  "readCellPartitions",
                                                  "endCellPartitions",
                                                  "getSettingsKeys",
                                                  "getSolverType",
                                                  "getPhaseIds",
                                                  "getPhaseName",
                                                  "beginPhase",
                                                  "getPhaseAttributeNames",
                                                  "getPhaseAttribute",
                                                  "getPhaseDescription",
                                                  "getVariableNames",
                                                  "getVariableId",
                                                  "getVariableDescription",
                                                  "getVariableAttributeNames",
                                                  "getVariableAttribute",
                                                  "beginVariable",
                                                  "readVariable",
                                                  "endVariable",
                                                  "endPhase"};
  return kCalls;
}

const std::vector<std::string>& callsOfDestinations() {
  static const std::vector<std::string> kCalls = {"setApplicationName",
                                                  "setFileName",
                                                  "setMode",
                                                  "setCompression",
                                                  "startWriting",
                                                  "setMeshId",
                                                  "setSolverType",
                                                  "setMeshSize",
                                                  "setMeshUnits",
                                                  "writeMeshAttributes",
                                                  "setZoneIds",
                                                  "setZoneSizeInfo",
                                                  "setCellZoneInfo",
                                                  "setFaceZoneInfo",
                                                  "setZoneStringInfo",
                                                  "getZoneIds",
                                                  "getSolverType",
                                                  "writeElemIds",
                                                  "beginNodes",
                                                  "beginNodeCoordinates",
                                                  "writeNodeCoordinates",
                                                  "endNodeCoordinates",
                                                  "endNodes",
                                                  "beginFaces",
                                                  "beginFaceNodes",
                                                  "beginFaceNodeCounts",
                                                  "writeUniformFaceNodeCount",
                                                  "writeFaceNodeCounts",
                                                  "endFaceNodeCounts",
                                                  "beginFaceNodeIds",
                                                  "writeFaceNodeIds",
                                                  "endFaceNodeIds",
                                                  "endFaceNodes",
                                                  "beginFaceCell0",
                                                  "writeFaceCell0",
                                                  "endFaceCell0",
                                                  "beginFaceCell1",
                                                  "writeFaceCell1",
                                                  "endFaceCell1",
                                                  "endFaces",
                                                  "beginCells",
                                                  "beginCellTypes",
                                                  "writeCellTypes",
                                                  "endCellTypes",
                                                  "beginCellNodes",
                                                  "beginCellNodeCounts",
                                                  "writeCellNodeCounts",
                                                  "writeUniformCellNodeCount",
                                                  "endCellNodeCounts",
                                                  "beginCellNodeIds",
                                                  "writeCellNodeIds",
                                                  "endCellNodeIds",
                                                  "endCellNodes",
                                                  "beginCellPartitions",
                                                  "writeCellPartitions",
                                                  "endCellPartitions",
                                                  "endCells",
                                                  "setLocationModel",
                                                  "writeStandardSettings",
                                                  "endWriting",
                                                  "addPhases",
                                                  "setPhaseDescription",
                                                  "setPhaseAttribute",
                                                  "beginPhase",
                                                  "addVariable",
                                                  "setVariableDescription",
                                                  "setVariableAttribute",
                                                  "declareVariables",
                                                  "beginVariableZones",
                                                  "beginVariable",
                                                  "writeVariable",
                                                  "endVariable",
                                                  "endVariableZones",
                                                  "endPhase"};
  return kCalls;
}

Misdeed::Kind randomThrow(Random& random) {
  return random.pick<Misdeed::Kind>(
      {Misdeed::Kind::throwsError, Misdeed::Kind::throwsNumber, Misdeed::Kind::throwsNoMemory});
}

void addThrow(std::vector<Misdeed>& misdeeds, const std::string& call, Random& random) {
  Misdeed misdeed;
  misdeed.kind = randomThrow(random);
  misdeed.call = call;
  misdeed.nth = random.pick<int>({1, 1, 2, 3, 5});
  misdeeds.push_back(misdeed);
}

/// The start of a family with other zones, some of them twice or unknown.
Misdeed otherList(Random& random) {
  Misdeed misdeed;
  misdeed.kind = Misdeed::Kind::answersList;
  misdeed.call = random.pick<std::string>(
      {"getZoneIds(0)", "getZoneIds(2)", "getZoneIds(3)", "beginNodeCoordinates", "beginFaceNodes",
       "beginCellNodes", "beginFaceCell0", "beginFaceCell1", "beginCellTypes",
       "beginCellPartitions", "beginVariable", "beginCellPartitions"});
  for (std::size_t left = random.below(5); left > 0; --left) {
    misdeed.list.push_back(random.pick<int>({1, 2, 3, 4, 5, 6, 7, 8, 9, 12, -4, 77, 78}));
  }
  return misdeed;
}

Misdeed otherDelivery(Random& random) {
  Misdeed misdeed;
  misdeed.kind = Misdeed::Kind::answersDelivered;
  misdeed.call =
      random.pick<std::string>({"readNodeCoordinates", "readNodeCoordinates", "readCellTypes",
                                "readVariable", "readVariable", "beginVariable"});
  misdeed.delivered =
      random.pick<std::size_t>({0, 1, 2, 3, 4, 6, 9, 10, 100,
                                std::numeric_limits<std::size_t>::max(), std::size_t{1} << 63});
  return misdeed;
}

RandomSource randomSource(Random& random) {
  RandomSource source;
  source.served = randomCaseToCopy(random);
  source.isFile = random.chance(80);
  source.hasOddAttributes = random.chance(20);
  if (random.chance(18)) {
    addThrow(source.misdeeds, random.pick(callsOfSources()), random);
  }
  if (random.chance(15)) {
    addThrow(source.misdeeds, "getSettingsValue", random);
  }
  if (random.chance(18)) {
    source.misdeeds.push_back(otherList(random));
  }
  if (random.chance(18)) {
    source.misdeeds.push_back(otherDelivery(random));
  }
  return source;
}

RandomDestination randomDestination(Random& random) {
  RandomDestination destination;
  destination.isFile = random.chance(80);
  if (random.chance(12)) {
    destination.phaseLimit = random.below(2);
  }
  if (random.chance(15)) {
    destination.solverType = random.pick<std::string>({"", "", "VELTO_FLOW", "models"});
  }
  if (random.chance(20)) {
    addThrow(destination.misdeeds, random.pick(callsOfDestinations()), random);
  }
  if (random.chance(3)) {
    const std::string call = random.pick<std::string>({"setApplicationName", "setFileName"});
    addThrow(destination.misdeeds, call, random);
  }
  if (random.chance(20)) {
    addThrow(destination.misdeeds, "writeSettings", random);
  }
  return destination;
}

// --- Steps --------------------------------------------------------------------------------------

/// What has to be known of a copier to ask nothing of it that needs a destination.
struct CopierState {
  bool hasName = false;
  bool hasSource = false;
  bool hasDestination = false;
};

class Steps {
 public:
  explicit Steps(Random& random) : random_(random) {}

  std::vector<CopyStep> draw() {
    make(0);
    make(1);
    setEnds(0);
    for (int rounds = random_.pick<int>({1, 1, 2, 2, 3}); rounds > 0; --rounds) {
      for (std::size_t left = random_.below(9); left > 0; --left) {
        option(random_.chance(85) ? 0 : 1);
      }
      if (random_.chance(10)) {
        setEnds(random_.below(2));
      }
      const std::size_t copier = random_.chance(85) ? 0 : 1;
      copy(copier);
      if (random_.chance(40)) {
        add(Kind::getElemIds, copier, {zoneAsked()});
      }
    }
    return steps_;
  }

 private:
  CopyStep& add(Kind kind, std::size_t copier, const std::vector<int>& numbers = {}) {
    CopyStep step;
    step.kind = kind;
    step.copier = copier;
    step.numbers = numbers;
    steps_.push_back(step);
    return steps_.back();
  }

  int zone() { return random_.pick<int>({1, 2, 3, 4, 5, 6, 7, 8, 9, 12, -4, 77}); }
  /// Mostly one that has got a list at some time.
  int zoneAsked() {
    const int any = zone();
    return zonesWithLists_.empty() || random_.chance(25) ? any : random_.pick(zonesWithLists_);
  }

  int flag(int percent) { return random_.chance(percent) ? 1 : 0; }

  void make(std::size_t copier) {
    CopyStep& step = add(Kind::make, copier);
    states_.at(copier) = {true, false, false};
    if (random_.chance(50)) {
      step.texts.push_back(random_.pick<std::string>({"mesh converter", "", "Generic"}));
      states_.at(copier).hasName = !step.texts.front().empty();
    }
  }

  void setEnds(std::size_t copier) {
    if (random_.chance(96)) {
      setSource(copier);
    }
    if (random_.chance(96)) {
      setDestination(copier);
    }
  }

  void setSource(std::size_t copier) {
    const int number = random_.pick<int>({0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, -1});
    add(Kind::setSource, copier, {number});
    states_.at(copier).hasSource = number >= 0;
  }

  void setDestination(std::size_t copier) {
    CopierState& state = states_.at(copier);
    const bool mayBeNull = !state.hasName;
    if (random_.chance(25)) {
      const bool isNull = mayBeNull && random_.chance(15);
      const int format = isNull ? kNoFormat : random_.between(0, 3);
      CopyStep& step = add(Kind::setFormat, copier, {format});
      step.texts = {random_.pick<std::string>({"duct.orv", ""}), "duct.orvr"};
      state.hasDestination = !isNull;
    } else {
      const bool isNull = mayBeNull && random_.chance(25);
      add(Kind::setDestination, copier, {isNull ? -1 : random_.pick<int>({0, 0, 1})});
      state.hasDestination = !isNull;
    }
  }

  void option(std::size_t copier) {
    const std::size_t other = 1 - copier;
    switch (random_.below(14)) {
      case 0:
        add(Kind::setSolverFormat, copier)
            .texts.push_back(random_.pick<std::string>({"VELTO_FLOW", "VELTO_GENERIC", "", "x"}));
        break;
      case 1:
        forDestination(copier);
        break;
      case 2:
        addElemIds(copier);
        break;
      case 3:
        add(random_.chance(40) ? Kind::removeElemIds : Kind::getElemIds, copier, {zoneAsked()});
        break;
      case 4:
        takeOver(copier, other);
        break;
      case 5:
        setSource(copier);
        break;
      case 6:
        setDestination(copier);
        break;
      case 7:
      case 8:
        addElemIds(copier);
        break;
      default:
        setSwitch(copier);
    }
  }

  void forDestination(std::size_t copier) {
    if (!states_.at(copier).hasDestination) {
      add(Kind::setMode, copier, {0});
    } else if (random_.chance(50)) {
      add(Kind::setMode, copier, {flag(60)});
    } else {
      add(Kind::setCompression, copier, {random_.between(0, 9)});
    }
  }

  void addElemIds(std::size_t copier) {
    CopyStep& step = add(Kind::addElemIds, copier, {zone()});
    zonesWithLists_.push_back(step.numbers.front());
    for (std::size_t left = random_.below(4); left > 0; --left) {
      step.numbers.push_back(random_.between(1, 9));
    }
  }

  void takeOver(std::size_t copier, std::size_t other) {
    const std::size_t from = random_.chance(70) ? other : copier;
    if (from == other && random_.chance(50)) {
      add(Kind::makeLike, copier, {static_cast<int>(from)});
    } else {
      add(Kind::assign, copier, {static_cast<int>(from)});
    }
    states_.at(copier) = states_.at(from);
  }

  /// Settings and verbose are mostly on, the rest is mostly left on.
  void setSwitch(std::size_t copier) {
    const int which = random_.chance(45) ? random_.pick<int>({6, 7, 7, 4}) : random_.between(0, 9);
    if (which < 8) {
      add(Kind::setSwitch, copier, {which, flag(which == 6 || which == 7 || which == 4 ? 85 : 40)});
    } else {
      const int first = flag(75);
      const int second = flag(60);
      const int third = flag(60);
      add(Kind::setSwitch, copier, {which, first, second, third});
    }
  }

  void copy(std::size_t copier) {
    const CopierState& state = states_.at(copier);
    if (!(state.hasSource && state.hasDestination) && random_.chance(85)) {
      setEnds(copier);
    }
    const Kind kind = random_.pick<Kind>(
        {Kind::copy, Kind::copy, Kind::copyCase, Kind::copyCase, Kind::copyResults});
    if (kind == Kind::copyCase) {
      add(kind, copier, {flag(60)});
    } else {
      add(kind, copier);
    }
  }

  Random& random_;
  std::vector<CopyStep> steps_;
  std::vector<int> zonesWithLists_;
  std::array<CopierState, 2> states_;
};

std::vector<ModelRefusal> randomRefusals(Random& random) {
  if (!random.chance(10)) {
    return {};
  }
  ModelRefusal refusal;
  refusal.call =
      random.pick<std::string>({"createBody", "createFace", "createFaceUse", "getParts"});
  refusal.nth = static_cast<int>(random.below(3));
  refusal.isDenied = random.chance(50);
  return {refusal};
}

}  // namespace

RandomCopies randomCopies(Random& random) {
  RandomCopies drawn;
  for (RandomSource& source : drawn.sources) {
    source = randomSource(random);
  }
  for (RandomDestination& destination : drawn.destinations) {
    destination = randomDestination(random);
  }
  drawn.refusals = randomRefusals(random);
  drawn.steps = Steps(random).draw();
  return drawn;
}

RandomCopies randomCopies(std::uint64_t seed) {
  Random random(seed);
  return randomCopies(random);
}

}  // namespace velto::testing
