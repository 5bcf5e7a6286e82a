// SPDX-License-Identifier: Apache-2.0
//
// What is observed of copiers: streams, exceptions, and what destinations hold in the end.

#include "tests/copier/copy_watch.h"

#include <iostream>
#include <set>
#include <stdexcept>

#include "embedded/base/OrvBaseState.h"
#include "testing/model_text.h"
#include "testing/write_case.h"

namespace velto::testing {

// --- Streams ------------------------------------------------------------------------------------

StreamLines::StreamLines(std::ostream& stream, const std::string& name, Transcript& lines)
    : stream_(stream), before_(stream.rdbuf(this)), name_(name), lines_(lines) {}

StreamLines::~StreamLines() {
  stream_.rdbuf(before_);
  if (!begun_.empty()) {
    lines_.push_back(name_ + " has no end of the line: " + begun_);
  }
  if (!isFlushed_) {
    lines_.push_back(name_ + " is not flushed in the end");
  }
}

StreamLines::int_type StreamLines::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof())) {
    return traits_type::not_eof(character);
  }
  isFlushed_ = false;
  if (traits_type::to_char_type(character) == '\n') {
    lines_.push_back(name_ + ": " + begun_);
    begun_.clear();
  } else {
    begun_ += traits_type::to_char_type(character);
  }
  return character;
}

/// A stream may be flushed in the middle of a line, or more than once; that says nothing.
int StreamLines::sync() {
  if (begun_.empty() && !isFlushed_) {
    lines_.push_back(name_ + " flushed");
    isFlushed_ = true;
  }
  return 0;
}

CopyStreams::CopyStreams(Transcript& lines)
    : out_(std::cout, "out", lines), err_(std::cerr, "err", lines) {}

std::string thrownText() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return "throws for lack of memory";
  } catch (const std::length_error&) {
    return "throws for lack of memory";  // what a vector says of a length that no memory has
  } catch (const std::exception& error) {
    return std::string("throws ") + typeid(error).name() + ": " + error.what();
  } catch (int number) {
    return "throws " + std::to_string(number);
  } catch (...) {
    return "throws something";
  }
}

// --- Ends ---------------------------------------------------------------------------------------

CopyEnds::CopyEnds(const RandomCopies& drawn, Transcript& calls)
    : drawn_(drawn), calls_(calls), factory_({}, [this](OrvFileFormatType format) {
        calls_.push_back(callText("getDataConsumer", format));
        if (format == static_cast<OrvFileFormatType>(kNoFormat)) {
          return static_cast<OrvFileConsumer*>(nullptr);
        }
        const std::string name = "made " + std::to_string(fromFactory_.size());
        fromFactory_.push_back(
            std::make_unique<WatchedDestination>(drawn_.destinations.back(), calls_, name));
        return static_cast<OrvFileConsumer*>(fromFactory_.back().get());
      }) {
  for (std::size_t i = 0; i < sources_.size(); ++i) {
    const std::string number = std::to_string(i);
    sources_.at(i) = std::make_unique<WatchedSource>(drawn.sources.at(i), calls, "from " + number);
    sources_.at(i)->startReading("case", dataClassCase);
    hiddenSources_.at(i) = std::make_unique<HiddenSource>(*sources_.at(i));
    destinations_.at(i) =
        std::make_unique<WatchedDestination>(drawn.destinations.at(i), calls, "to " + number);
    hiddenDestinations_.at(i) = std::make_unique<HiddenDestination>(*destinations_.at(i));
  }
}

OrvProvider* CopyEnds::source(int number) {
  if (number < 0) {
    return nullptr;
  }
  const auto index = static_cast<std::size_t>(number);
  if (drawn_.sources.at(index).isFile) {
    return sources_.at(index).get();
  }
  return hiddenSources_.at(index).get();
}

OrvConsumer* CopyEnds::destination(int number) {
  if (number < 0) {
    return nullptr;
  }
  const auto index = static_cast<std::size_t>(number);
  if (drawn_.destinations.at(index).isFile) {
    return destinations_.at(index).get();
  }
  return hiddenDestinations_.at(index).get();
}

void CopyEnds::noteResults() {
  for (std::size_t i = 0; i < destinations_.size(); ++i) {
    noteResult("to " + std::to_string(i), *destinations_.at(i));
  }
  for (std::size_t i = 0; i < fromFactory_.size(); ++i) {
    noteResult("made " + std::to_string(i), *fromFactory_[i]);
  }
}

void CopyEnds::noteResult(const std::string& name, const WatchedDestination& destination) {
  const std::shared_ptr<const memory::Case> written = destination.takeCase();
  calls_.push_back(name + " holds, written by " + written->tables.applicationName);
  RecordingConsumer reader(&calls_, name);
  writeCase(*written, reader);
  std::set<int> meshes = {1};
  for (const RandomSource& source : drawn_.sources) {
    for (const auto& mesh : source.served->tables.meshes) {
      meshes.insert(mesh.first.mesh);
    }
  }
  for (const int mesh : meshes) {
    if (written->tables.locationModel != nullptr) {
      calls_.push_back(modelText(*written->tables.locationModel, mesh));
    }
  }
}

}  // namespace velto::testing
