// SPDX-License-Identifier: Apache-2.0
//
// The subcommands of orv. Each is given what the command line said and returns an exit status.

#ifndef VELTO_ORV_COMMANDS_H
#define VELTO_ORV_COMMANDS_H

#include <string>
#include <vector>

namespace velto::orv {

/// Exit statuses, the same for all subcommands.
enum ExitStatus : int {
  exitSound = 0,    ///< The case is sound, or the command was carried out.
  exitErrors = 1,   ///< The case has errors (with --strict, or warnings).
  exitNotDone = 2,  ///< The command could not be carried out.
};

struct CheckOptions {
  std::vector<std::string> files;
  int level = 1;
  int verbosity = 1;
  int mesh = 0;
  int partition = -1;
  std::string target;  ///< "restart", "post", "ppost", or "" for all.
  bool noLocationModel = false;
  bool json = false;
  bool quiet = false;
  bool strict = false;
};

struct InfoOptions {
  std::vector<std::string> files;
  bool json = false;
};

struct FormatsOptions {
  bool json = false;
};

int runCheck(const CheckOptions& options);
int runInfo(const InfoOptions& options);
int runFormats(const FormatsOptions& options);

}  // namespace velto::orv

#endif  // VELTO_ORV_COMMANDS_H
