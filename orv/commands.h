// SPDX-License-Identifier: Apache-2.0
//
// The subcommands of orv. Each is given what the command line said and returns an exit status.

#ifndef VELTO_ORV_COMMANDS_H
#define VELTO_ORV_COMMANDS_H

#include <cstdint>
#include <string>
#include <vector>

namespace velto::orv {

/// Exit statuses, the same for all subcommands.
enum ExitStatus : int {
  exitSound = 0,    ///< The case is sound, or the command was carried out.
  exitErrors = 1,   ///< The case has errors (with --strict, or warnings).
  exitNotDone = 2,  ///< The command could not be carried out.
};

/// How the report of a check is written.
enum class ReportFormat { text, json, junit, sarif };

struct CheckOptions {
  std::vector<std::string> files;
  int level = 1;
  int verbosity = 1;
  int mesh = 0;
  int partition = -1;
  std::string target;  ///< "restart", "post", "ppost", or "" for all.
  bool noLocationModel = false;
  ReportFormat format = ReportFormat::text;
  bool quiet = false;
  bool strict = false;
};

struct InfoOptions {
  std::vector<std::string> files;
  bool json = false;
};

struct ModelOptions {
  std::vector<std::string> files;
  int mesh = 0;        ///< 0 for the first restart mesh.
  bool build = false;  ///< Build a model even where the file has one.
  bool json = false;
  bool dot = false;
};

struct RegionsOptions {
  std::string file;
  std::string name;    ///< Of the region to explain; empty for a table of all.
  int mesh = 0;        ///< As for the model.
  bool build = false;  ///< As for the model.
  bool json = false;
};

struct CopyOptions {
  std::string source;
  std::string destination;
  std::string format;              ///< "" for the one that the name of the destination tells.
  std::string solverFormat;        ///< "" for that of the source.
  std::string sourceResults;       ///< The results of the source; "" for those beside it.
  std::string destinationResults;  ///< Where results go; "" for beside the destination.
  unsigned compression = 0;
  bool text = false;
  int mesh = 0;  ///< 0 for the only one.
  std::string target;
  int partition = -1;

  bool meshSize = true;
  bool units = true;
  bool zones = true;
  bool nodes = true;
  bool cells = true;
  bool cellNodes = true;
  bool cellTypes = true;
  bool cellPartitions = true;
  bool faces = true;
  bool faceNodes = true;
  bool faceCells = true;
  bool locationModel = true;
  bool settings = true;
  bool results = true;

  bool dryRun = false;
  bool verify = false;
  bool force = false;
  bool keepGoing = false;
  bool verbose = false;
  bool json = false;
};

struct ExplainOptions {
  std::vector<std::string> texts;  ///< Messages or ids, "-" for standard input.
  bool list = false;
  bool json = false;
};

struct FormatsOptions {
  bool json = false;
};

struct SampleOptions {
  std::vector<std::string> words;  ///< A sample and a file, or with a defect the file alone.
  std::string defect;
  std::uint64_t cells = 0;  ///< 0 for as many as the sample usually has.
  unsigned compression = 0;
  bool force = false;
  bool list = false;
  bool json = false;
};

struct CompletionOptions {
  std::string shell;  ///< "bash", "zsh" or "fish".
};

int runCheck(const CheckOptions& options);
int runInfo(const InfoOptions& options);
int runModel(const ModelOptions& options);
int runRegions(const RegionsOptions& options);
int runCopy(const CopyOptions& options);
int runExplain(const ExplainOptions& options);
int runFormats(const FormatsOptions& options);
int runSample(const SampleOptions& options);

}  // namespace velto::orv

#endif  // VELTO_ORV_COMMANDS_H
