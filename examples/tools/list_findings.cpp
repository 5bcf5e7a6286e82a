// SPDX-License-Identifier: Apache-2.0
//
// CheckListener: where each message of a check was found, and where the check came to.

#include <iostream>
#include <string>

#include "velto/CheckListener.h"
#include "velto/OrvChecker.h"

namespace {

class Report : public velto::CheckListener {
 public:
  void onStep(const velto::CheckPlace&, const std::string& step) override { lastStep_ = step; }

  void onFinding(const velto::CheckPlace& place, velto::CheckSeverity severity,
                 const std::string& step, const std::string& message) override {
    const bool isError = severity == velto::CheckSeverity::error;
    std::cout << (isError ? "error" : "warning") << ", mesh " << place.mesh << ", target "
              << place.target << ", partition " << place.partition << ", " << step << ": "
              << message << "\n";
  }

  void onLeftOut(const velto::CheckPlace&, const std::string&, velto::CheckOmission) override {}

  const std::string& lastStep() const { return lastStep_; }

 private:
  std::string lastStep_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: list_findings CASE\n";
    return 2;
  }
  Report report;
  velto::OrvChecker checker;
  checker.setVerbosity(0);
  checker.setListener(&report);
  const bool isSound = checker.checkCase(argv[1]);
  if (report.lastStep() != "checkCase") {
    std::cout << "the check ended in " << report.lastStep() << "\n";
  }
  return isSound ? 0 : 1;
}
