// SPDX-License-Identifier: Apache-2.0
//
// What random copies bring about: lines of transcripts, misdeeds that were met, kinds of steps.

#include "tests/copier/copies_reached.h"

#include <algorithm>
#include <set>

namespace velto::testing {

namespace {

/// Whether a text is as a pattern says, in which "*" stands for anything.
bool matches(const std::string& pattern, const std::string& text) {
  std::size_t at = 0;
  std::size_t place = 0;
  while (place <= pattern.size()) {
    const std::size_t star = std::min(pattern.find('*', place), pattern.size());
    const std::string piece = pattern.substr(place, star - place);
    const bool isFirst = place == 0;
    const bool isLast = star == pattern.size();
    const std::size_t rest = text.size() - at;
    std::size_t found =
        isLast && piece.size() <= rest ? text.size() - piece.size() : text.find(piece, at);
    if (isFirst) {
      found = 0;
    }
    if (found == std::string::npos || text.compare(found, piece.size(), piece) != 0 ||
        (isFirst && isLast && text.size() != piece.size())) {
      return false;
    }
    at = found + piece.size();
    place = star + 1;
  }
  return true;
}

bool hasLine(const Transcript& calls, const std::string& pattern) {
  return std::any_of(calls.begin(), calls.end(),
                     [&](const std::string& line) { return matches(pattern, line); });
}

/// Whether a line is followed by one that is as a pattern says.
bool hasPair(const Transcript& calls, const std::string& first, const std::string& second) {
  for (std::size_t i = 1; i < calls.size(); ++i) {
    if (calls[i - 1] == first && matches(second, calls[i])) {
      return true;
    }
  }
  return false;
}

/// Lines that have to turn up, by pattern.
const std::vector<std::string>& patterns() {
  static const std::vector<std::string> kPatterns = {
      // progress
      "out: Writing mesh",
      "out:   Copying problem size",
      "out:   Copying mesh units",
      "out:   Writing mesh attibutes",
      "out:   Copying zone toplogy",
      "out:   Writing node mesh",
      "out:   Writing cell mesh",
      "out:     Writing cell nodes",
      "out:     Writing cell types",
      "out:     Writing cell partitions",
      "out:   Writing face mesh",
      "out:     Writing face nodes",
      "out:     Writing face parents",
      "out:   Writing location model",
      "out:   Mesh written",
      "out: Writing settings",
      "out:   Settings written",
      "out:   Standard Settings written",
      "out: Copying problem size",
      "out: Copying zone topology",
      "out: Skipping results as no mesh written",
      "out: Writing results",
      "out:   Writing phase variables",
      "out:   Results written",
      "out: Copy complete",
      "out flushed",
      // warnings
      "out: Warning: Unable to write settings for '*",
      "err: Warning: Unable to read coordinates for node zone '*'",
      "err: Warning: Assuming zone '*' has dimension 2",
      "err: Warning: Assuming zone '*' has dimension 3",
      "err: Warning: Inconsistent size for node zone '*'",
      "err: Warning: Inconsistent cell type size for zone '*'",
      // results and exceptions
      "= true",
      "= false",
      "= found(0, null of 0)",
      "= found(*, [*])",
      "= not found(4711, null of 0)",
      "throws 42",
      "throws *runtime_error: no *",
      "throws for lack of memory",
      // the case
      "getDataConsumer(7)",
      "made 0 setApplicationName(*",
      "to * writeElemIds(*, null of 0)",
      "to * writeElemIds(*, [*",
      "to * beginNodes([])",
      "to * writeNodeCoordinates(*, null of 0)",
      "to * beginCells([])",
      "to * beginFaces([])",
      "to * beginCellNodes([])",
      "to * beginFaceNodes([])",
      "to * writeUniformCellNodeCount(*",
      "to * writeUniformFaceNodeCount(*",
      "to * writeCellNodeCounts(*",
      "to * writeFaceNodeCounts(*",
      "to * writeCellNodeIds(*, null of 0)",
      "to * beginCellTypes([], [*])",
      "to * beginCellTypes([*], [0, *])",
      "to * writeCellTypes(*",
      "to * beginCellPartitions([], 0)",
      "to * writeCellPartitions(*, null of 0)",
      "to * writeFaceCell1(*",
      "createPart(3, *",
      "to * setLocationModel(model)",
      "to * writeSettings([VELTO_GENERICS = *",
      "to * writeSettings([VELTO_GENERIC/models/VELTO_GENERIC/flow = *",
      "to * writeSettings([VELTO_GENERIC/VELTO_FLOW/models/flow = *",
      "to * writeSettings([VELTO_FLOW/models/flow = *",
      "to * writeSettings([title = *",
      "to * writeStandardSettings([Time = now, Source Format = *, Destination Format = *], 0)",
      // the results
      "to * addPhases([])",
      "to * addPhases([*, *])",
      "to * setPhaseDescription(*",
      "to * setPhaseAttribute(*, mute, )",
      "to * setVariableDescription(*",
      "to * setVariableAttribute(*, mute, )",
      "from * getVariableAttributeNames(0)",
      "to * beginVariable(*, [], *)",
      "to * writeVariable(*, null of 0)",
      "to * writeVariable(*, [*])",
  };
  return kPatterns;
}

const std::vector<std::vector<OrvZoneCategory>>& pairsOfCategories() {
  static const std::vector<std::vector<OrvZoneCategory>> kPairs = {
      {zoneCategoryNode, zoneCategoryFace},
      {zoneCategoryNode, zoneCategoryCell},
      {zoneCategoryFace, zoneCategoryCell}};
  return kPairs;
}

const base::MeshTables& tablesOf(const RandomCopies& drawn) {
  return drawn.sources.front().served->tables.meshes.begin()->second;
}

bool haveOneIdInCommon(const RandomCopies& drawn, OrvZoneCategory one, OrvZoneCategory other) {
  const std::vector<int>& ids = tablesOf(drawn).idsOf(one);
  const std::vector<int>& others = tablesOf(drawn).idsOf(other);
  return std::find_first_of(ids.begin(), ids.end(), others.begin(), others.end()) != ids.end();
}

bool hasOneIdTwice(const RandomCopies& drawn, OrvZoneCategory category) {
  const std::vector<int>& ids = tablesOf(drawn).idsOf(category);
  return std::set<int>(ids.begin(), ids.end()).size() < ids.size();
}

/// Whether a call came for which something is drawn.
bool isMet(const std::vector<Misdeed>& misdeeds, Misdeed::Kind kind, const std::string& name,
           const Transcript& calls) {
  return std::any_of(misdeeds.begin(), misdeeds.end(), [&](const Misdeed& misdeed) {
    return misdeed.kind == kind && hasLine(calls, name + " " + misdeed.call + "*");
  });
}

void addMisdeeds(Things& things) {
  using Kind = Misdeed::Kind;
  for (const Kind kind : {Kind::throwsError, Kind::throwsNumber, Kind::throwsNoMemory,
                          Kind::answersList, Kind::answersDelivered}) {
    things.push_back({"misdeed of a source, kind " + base::argumentText(kind),
                      [kind](const RandomCopies& drawn, const Transcript& calls) {
                        return isMet(drawn.sources.front().misdeeds, kind, "from 0", calls);
                      }});
  }
  for (const Kind kind : {Kind::throwsError, Kind::throwsNumber, Kind::throwsNoMemory}) {
    things.push_back({"misdeed of a destination, kind " + base::argumentText(kind),
                      [kind](const RandomCopies& drawn, const Transcript& calls) {
                        return isMet(drawn.destinations.front().misdeeds, kind, "to 0", calls);
                      }});
  }
  things.push_back(
      {"fewer phases than names", [](const RandomCopies& drawn, const Transcript& calls) {
         return drawn.destinations.front().phaseLimit == std::size_t{1} &&
                hasLine(calls, "to 0 addPhases([*, *])");
       }});
}

void addSteps(Things& things) {
  for (int kind = 0; kind <= static_cast<int>(CopyStep::Kind::copyResults); ++kind) {
    things.push_back({"step of kind " + std::to_string(kind),
                      [kind](const RandomCopies& drawn, const Transcript&) {
                        return std::any_of(drawn.steps.begin(), drawn.steps.end(),
                                           [kind](const CopyStep& step) {
                                             return static_cast<int>(step.kind) == kind;
                                           });
                      }});
  }
  things.push_back({"assignment to itself", [](const RandomCopies& drawn, const Transcript&) {
                      return std::any_of(
                          drawn.steps.begin(), drawn.steps.end(), [](const CopyStep& step) {
                            return step.kind == CopyStep::Kind::assign &&
                                   step.numbers.front() == static_cast<int>(step.copier);
                          });
                    }});
}

void addModels(Things& things) {
  things.push_back(
      {"a model of the source", [](const RandomCopies& drawn, const Transcript& calls) {
         return drawn.sources.front().served->tables.locationModel != nullptr &&
                !hasLine(calls, "createPart(*") &&
                hasPair(calls, "getParts()", "to * setLocationModel(model)");
       }});
  things.push_back({"a model without parts", [](const RandomCopies&, const Transcript& calls) {
                      return hasPair(calls, "getParts()", "from * getZoneIds(*)");
                    }});
  things.push_back({"a model that is built", [](const RandomCopies&, const Transcript& calls) {
                      return hasLine(calls, "createBody(*") &&
                             hasPair(calls, "getParts()", "to * setLocationModel(model)");
                    }});
  things.push_back(
      {"nothing to build a model of", [](const RandomCopies&, const Transcript& calls) {
         return hasLine(calls, "from * getLocationModel()") &&
                hasPair(calls, "getParts()", "to * endWriting(0)");
       }});
}

/// No zone has room for a hundred values.
bool isMoreClaimedThanRoom(const RandomCopies& drawn, const Transcript& calls,
                           const std::string& read) {
  for (const Misdeed& misdeed : drawn.sources.front().misdeeds) {
    if (misdeed.kind == Misdeed::Kind::answersDelivered && misdeed.call == read &&
        misdeed.delivered >= 100 && hasLine(calls, "from 0 " + read + "(*")) {
      return true;
    }
  }
  return false;
}

void addClaims(Things& things) {
  for (const char* const read : {"readNodeCoordinates", "readCellTypes", "readVariable"}) {
    things.push_back({std::string(read) + " claims more than there is room for",
                      [read](const RandomCopies& drawn, const Transcript& calls) {
                        return isMoreClaimedThanRoom(drawn, calls, read);
                      }});
  }
}

void addFileKinds(Things& things) {
  for (const bool isSourceFile : {false, true}) {
    for (const bool isDestinationFile : {false, true}) {
      things.push_back({std::string("phases of ") + (isSourceFile ? "a file" : "no file") +
                            " into " + (isDestinationFile ? "a file" : "no file"),
                        [=](const RandomCopies& drawn, const Transcript& calls) {
                          return drawn.sources.front().isFile == isSourceFile &&
                                 drawn.destinations.front().isFile == isDestinationFile &&
                                 hasLine(calls, "to 0 addPhases([*])") &&
                                 hasLine(calls, "from 0 getVariableAttributeNames(*)");
                        }});
    }
  }
}

}  // namespace

Things thingsToReach() {
  Things things;
  for (const std::string& pattern : patterns()) {
    things.push_back({pattern, [pattern](const RandomCopies&, const Transcript& calls) {
                        return hasLine(calls, pattern);
                      }});
  }
  for (const auto& pair : pairsOfCategories()) {
    things.push_back({base::argumentText(pair) + " have an id in common",
                      [pair](const RandomCopies& drawn, const Transcript&) {
                        return haveOneIdInCommon(drawn, pair.front(), pair.back());
                      }});
  }
  for (const OrvZoneCategory category : {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell}) {
    things.push_back({base::argumentText(category) + " has an id twice",
                      [category](const RandomCopies& drawn, const Transcript&) {
                        return hasOneIdTwice(drawn, category);
                      }});
  }
  addMisdeeds(things);
  addSteps(things);
  addModels(things);
  addClaims(things);
  addFileKinds(things);
  return things;
}

void dropReached(const RandomCopies& drawn, const Transcript& calls, Things& missing) {
  missing.erase(std::remove_if(missing.begin(), missing.end(),
                               [&](const Thing& thing) { return thing.isReached(drawn, calls); }),
                missing.end());
}

std::vector<std::string> namesOf(const Things& things) {
  std::vector<std::string> names;
  for (const Thing& thing : things) {
    names.push_back(thing.name);
  }
  return names;
}

}  // namespace velto::testing
