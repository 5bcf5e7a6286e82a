// SPDX-License-Identifier: Apache-2.0
//
// orv: the command line.

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

#include "orv/CommandTable.h"
#include "orv/command_line.h"
#include "orv/commands.h"
#include "orv/completion.h"
#include "orv/manual.h"
#include "orv/shown_name.h"
#include "orv/standard_streams.h"

namespace {

using namespace velto::orv;

int run(int argc, char** argv) {
  CLI::App app("orv checks and explains case files of fluid-simulation programs.", "orv");
  CommandLine line;
  addCommands(app, line);
  try {
    parse(app, line, argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? exitSound : exitNotDone;
  }
  if (app.got_subcommand("check")) {
    return runCheck(line.check);
  }
  if (app.got_subcommand("info")) {
    return runInfo(line.info);
  }
  if (app.got_subcommand("model")) {
    return runModel(line.model);
  }
  if (app.got_subcommand("regions")) {
    return runRegions(line.regions);
  }
  if (app.got_subcommand("copy")) {
    return runCopy(line.copy);
  }
  if (app.got_subcommand("explain")) {
    return runExplain(line.explain);
  }
  if (app.got_subcommand("completion")) {
    std::cout << completionScript(line.completion.shell, readCommands(app));
    return exitSound;
  }
  if (app.got_subcommand("manual")) {
    std::cout << manualPage(readCommands(app));
    return exitSound;
  }
  if (app.got_subcommand("sample")) {
    return runSample(line.sample);
  }
  return runFormats(line.formats);
}

}  // namespace

int main(int argc, char** argv) {
  prepareStreams();
  int status = exitNotDone;
  try {
    status = run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "orv: " << shownText(error.what()) << std::endl;
  }
  return finishOutput() ? status : exitNotDone;
}
