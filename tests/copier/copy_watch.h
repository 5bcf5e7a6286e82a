// SPDX-License-Identifier: Apache-2.0
//
// watchedCopies: everything that can be observed while copiers of either kind do what was drawn.

#ifndef VELTO_TESTS_COPIER_COPY_WATCH_H
#define VELTO_TESTS_COPIER_COPY_WATCH_H

#include <array>
#include <cstddef>
#include <memory>
#include <streambuf>
#include <string>
#include <vector>

#include "testing/ScriptedLocationModel.h"
#include "testing/TestFactory.h"
#include "tests/copier/HiddenDestination.h"
#include "tests/copier/HiddenSource.h"
#include "tests/copier/copy_doubles.h"
#include "tests/copier/random_copies.h"

namespace velto::testing {

/// Takes the place of the buffer of a standard stream; lines and flushes go into a transcript, so
/// that it is seen between which calls they come.
class StreamLines : private std::streambuf {
 public:
  StreamLines(std::ostream& stream, const std::string& name, Transcript& lines);
  StreamLines(const StreamLines&) = delete;
  StreamLines& operator=(const StreamLines&) = delete;
  ~StreamLines() override;

 private:
  int_type overflow(int_type character) override;
  int sync() override;

  std::ostream& stream_;
  std::streambuf* before_;
  std::string name_;
  Transcript& lines_;
  std::string begun_;
  bool isFlushed_ = true;
};

/// The ends of copies, and the factory.
class CopyEnds {
 public:
  CopyEnds(const RandomCopies& drawn, Transcript& calls);

  /// Null for -1.
  OrvProvider* source(int number);
  OrvConsumer* destination(int number);

  /// Writes down what came to stand in each destination.
  void noteResults();

 private:
  void noteResult(const std::string& name, const WatchedDestination& destination);

  const RandomCopies& drawn_;
  Transcript& calls_;
  std::array<std::unique_ptr<WatchedSource>, 2> sources_;
  std::array<std::unique_ptr<HiddenSource>, 2> hiddenSources_;
  std::array<std::unique_ptr<WatchedDestination>, 2> destinations_;
  std::array<std::unique_ptr<HiddenDestination>, 2> hiddenDestinations_;
  std::vector<std::unique_ptr<WatchedDestination>> fromFactory_;
  TestFactory factory_;
};

/// What an exception that is being handled says of itself.
std::string thrownText();

template <class Copier>
class CopyRun {
 public:
  CopyRun(const RandomCopies& drawn, Transcript& calls)
      : drawn_(drawn), calls_(calls), ends_(drawn, calls), copiers_(kCopiers) {}

  void run() {
    for (const CopyStep& step : drawn_.steps) {
      calls_.push_back("--- " + textOf(step));
      try {
        take(step);
      } catch (...) {
        calls_.push_back(thrownText());
      }
    }
    copiers_.clear();
    calls_.push_back("--- results");
  }

  void noteResults() { ends_.noteResults(); }

 private:
  static constexpr std::size_t kCopiers = 2;

  using Kind = CopyStep::Kind;

  void take(const CopyStep& step) {
    switch (step.kind) {
      case Kind::make:
        copiers_[step.copier] = step.texts.empty() ? std::make_unique<Copier>()
                                                   : std::make_unique<Copier>(step.texts.front());
        break;
      case Kind::makeLike:
        copiers_[step.copier] = std::make_unique<Copier>(other(step));
        break;
      case Kind::copy:
        noteResult(copier(step).copy());
        break;
      case Kind::copyCase:
        noteResult(copier(step).copyCase(step.numbers.front() != 0));
        break;
      case Kind::copyResults:
        noteResult(copier(step).copyResults());
        break;
      case Kind::setSwitch:
        setSwitch(copier(step), step.numbers);
        break;
      default:
        setUp(copier(step), step);
    }
  }

  void setUp(Copier& copier, const CopyStep& step) {
    const int number = step.numbers.empty() ? 0 : step.numbers.front();
    switch (step.kind) {
      case Kind::assign:
        copier = other(step);
        break;
      case Kind::setSource:
        copier.setSource(ends_.source(number));
        break;
      case Kind::setDestination:
        copier.setDestination(ends_.destination(number));
        break;
      case Kind::setFormat:
        copier.setDestination(static_cast<OrvFileFormatType>(number), step.texts.front(),
                              step.texts.back());
        break;
      case Kind::setSolverFormat:
        copier.setDestinationSolverFormat(step.texts.front());
        break;
      case Kind::setCompression:
        copier.setCompression(static_cast<unsigned int>(number));
        break;
      case Kind::setMode:
        copier.setMode(number != 0);
        break;
      default:
        changeElemIds(copier, step, number);
    }
  }

  void changeElemIds(Copier& copier, const CopyStep& step, int zone) {
    if (step.kind == Kind::addElemIds) {
      noteResult(copier.addElemIds(
          zone, std::vector<std::size_t>(step.numbers.begin() + 1, step.numbers.end())));
    } else if (step.kind == Kind::removeElemIds) {
      noteResult(copier.removeElemIds(zone));
    } else {
      std::size_t count = 4711;
      bool found = true;
      const std::size_t* const ids = copier.getElemIds(zone, count, found);
      const std::size_t length = found ? count : 0;
      calls_.push_back("= " +
                       callText(found ? "found" : "not found", count, bufferOf(ids, length)));
    }
  }

  void setSwitch(Copier& copier, const std::vector<int>& numbers) {
    using Setter = void (Copier::*)(bool);
    using GroupSetter = void (Copier::*)(bool, bool, bool);
    const std::array<Setter, 8> setters = {
        &Copier::copyMeshSizeToDestination,       &Copier::copyMeshUnitsToDestination,
        &Copier::copyZoneTopologyToDestination,   &Copier::copyNodeCoordinatesToDestination,
        &Copier::copyCellPartitionsToDestination, &Copier::copyLocationModelToDestination,
        &Copier::copySettingsToDestination,       &Copier::setVerbose};
    const std::array<GroupSetter, 2> groupSetters = {&Copier::copyCellsToDestination,
                                                     &Copier::copyFacesToDestination};
    const auto which = static_cast<std::size_t>(numbers[0]);
    if (which < setters.size()) {
      (copier.*setters.at(which))(numbers[1] != 0);
    } else {
      (copier.*groupSetters.at(which - setters.size()))(numbers[1] != 0, numbers[2] != 0,
                                                        numbers[3] != 0);
    }
  }

  Copier& copier(const CopyStep& step) { return *copiers_[step.copier]; }
  Copier& other(const CopyStep& step) {
    return *copiers_[static_cast<std::size_t>(step.numbers.front())];
  }

  void noteResult(bool good) { calls_.push_back(good ? "= true" : "= false"); }

  const RandomCopies& drawn_;
  Transcript& calls_;
  CopyEnds ends_;
  std::vector<std::unique_ptr<Copier>> copiers_;
};

/// The streams of a run, from the first step to the last.
class CopyStreams {
 public:
  explicit CopyStreams(Transcript& lines);

 private:
  StreamLines out_;
  StreamLines err_;
};

/// Steps, calls of both ends and of location models, lines of the streams, results and exceptions,
/// as they came; then what each destination holds.
template <class Copier>
Transcript watchedCopies(const RandomCopies& drawn) {
  Transcript calls;
  CopyRun<Copier> run(drawn, calls);
  {
    const CopyStreams streams(calls);
    LocationModelScript models(&calls);
    for (const ModelRefusal& refusal : drawn.refusals) {
      models.add(refusal);
    }
    run.run();
  }
  run.noteResults();
  return calls;
}

}  // namespace velto::testing

#endif  // VELTO_TESTS_COPIER_COPY_WATCH_H
