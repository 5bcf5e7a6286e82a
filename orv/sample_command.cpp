// SPDX-License-Identifier: Apache-2.0
//
// orv sample: writes sample cases, sound ones of any size and damaged ones.

#include <exception>
#include <filesystem>
#include <fmt/format.h>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "orv/InterruptWatch.h"
#include "orv/StoppableBar.h"
#include "orv/TextTable.h"
#include "orv/commands.h"
#include "orv/hints.h"
#include "orv/json_report.h"
#include "orv/near_name.h"
#include "orv/shown_name.h"
#include "orv/words.h"
#include "samples/defects.h"
#include "samples/samples.h"
#include "samples/save_sample.h"

namespace velto::orv {

namespace {

// --- The lists ----------------------------------------------------------------------------------

void printLists() {
  TextTable samples(
      {{"sample"}, {"cells", TextTable::Align::right}, {"what it is"}, {"what it is for"}});
  for (const samples::SampleInfo& info : samples::samples()) {
    samples.addRow({info.name, std::to_string(info.defaultCells), info.title, info.purpose});
  }
  TextTable defects({{"defect"},
                     {"of"},
                     {"what is wrong"},
                     {"check", TextTable::Align::right},
                     {"level"},
                     {"message"}});
  for (const samples::Defect& defect : samples::defects()) {
    defects.addRow({defect.name, defect.sample, defect.what, std::to_string(defect.checkLevel),
                    defect.isError ? "error" : "warning", defect.finding});
  }
  std::cout << samples.text("") << "\n" << defects.text("");
}

void printJson() {
  nlohmann::ordered_json sound = nlohmann::ordered_json::array();
  for (const samples::SampleInfo& info : samples::samples()) {
    sound.push_back({{"name", info.name},
                     {"title", info.title},
                     {"purpose", info.purpose},
                     {"cells", info.defaultCells},
                     {"results", info.hasResults}});
  }
  nlohmann::ordered_json damaged = nlohmann::ordered_json::array();
  for (const samples::Defect& defect : samples::defects()) {
    damaged.push_back({{"name", defect.name},
                       {"sample", defect.sample},
                       {"what", defect.what},
                       {"checkLevel", defect.checkLevel},
                       {"level", defect.isError ? "error" : "warning"},
                       {"message", defect.finding}});
  }
  printReport({{"samples", sound}, {"defects", damaged}});
}

// --- What is asked for --------------------------------------------------------------------------

/// Says why nothing is written.
ExitStatus refuse(const std::string& reason) {
  std::cerr << "orv: " << shownText(reason) << std::endl;
  return exitNotDone;
}

ExitStatus refuseName(const std::string& kind, const std::string& name,
                      const std::vector<std::string>& names) {
  return refuse(fmt::format("no {} is named {}; {}`orv sample --list` lists all", kind, name,
                            guessWords(name, names)));
}

/// False, and said why on standard error, if not all of it is where it should be.
bool save(const samples::Sample& sample, const std::string& file, unsigned compression) {
  std::string otherwise = "nothing was written";
  try {
    const StoppableBar bar(true);
    samples::saveSample(sample, file, compression,
                        [&otherwise] { otherwise = "the case was written, its results were not"; });
    return true;
  } catch (const Interrupted&) {
    otherwise = "interrupted; " + otherwise;
  } catch (const std::exception& error) {
    std::cerr << "orv: " << shownText(error.what()) << std::endl;
  }
  tell(file, otherwise);
  return false;
}

int write(const samples::Sample& sample, const std::string& file, const SampleOptions& options) {
  const std::vector<std::string> files = samples::filesOf(sample, file);
  for (const std::string& one : files) {
    if (!options.force && std::filesystem::exists(one)) {
      return refuse(one + ": is there already; --force overwrites it");
    }
  }
  if (!save(sample, file, options.compression)) {
    return exitNotDone;
  }
  const std::string cells = fmt::format("{} cells", samples::cellCount(sample.tables));
  for (const std::string& one : files) {
    std::cout << fmt::format("{}: {}, {}", shownText(one), one == file ? cells : "results",
                             sizeText(std::filesystem::file_size(one)))
              << std::endl;
  }
  return exitSound;
}

}  // namespace

int runSample(const SampleOptions& options) {
  if (options.list) {
    options.json ? printJson() : printLists();
    return exitSound;
  }
  const bool isDamaged = !options.defect.empty();
  if (options.words.size() != (isDamaged ? 1 : 2)) {
    return refuse(isDamaged
                      ? "a damaged sample takes one file; `orv sample --help` shows examples"
                      : "expected a sample and a file; `orv sample --list` lists the samples");
  }
  const std::string& file = options.words.back();
  const samples::SampleInfo* sample = samples::findSample(options.words.front());
  const samples::Defect* defect = samples::findDefect(options.defect);
  if (isDamaged && defect == nullptr) {
    return refuseName("defect", options.defect, namesOf(samples::defects()));
  }
  if (!isDamaged && sample == nullptr) {
    return refuseName("sample", options.words.front(), namesOf(samples::samples()));
  }
  if (!samples::isCaseFile(file)) {
    return refuse(
        fmt::format("{}: the name of a case file ends in {}", file, samples::kCaseEnding));
  }
  const InterruptWatch watch;
  const auto cells = [&options](std::uint64_t usual) {
    return options.cells == 0 ? usual : options.cells;
  };
  return isDamaged ? write(samples::makeDamagedSample(*defect, cells(samples::kDefectCells)), file,
                           options)
                   : write(sample->make(cells(sample->defaultCells)), file, options);
}

}  // namespace velto::orv
