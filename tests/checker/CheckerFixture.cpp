// SPDX-License-Identifier: Apache-2.0
//
// CheckerFixture: temporary files, providers, and one run of a checker.

#include "tests/checker/CheckerFixture.h"

#include <algorithm>
#include <cstdlib>
#include <unistd.h>

#include "testing/capture.h"

namespace velto::testing {

TemporaryFile::TemporaryFile() : path_(::testing::TempDir() + "velto_checker_XXXXXX") {
  const int descriptor = mkstemp(path_.data());
  EXPECT_NE(descriptor, -1);
  close(descriptor);
}

TemporaryFile::~TemporaryFile() { unlink(path_.c_str()); }

CheckerFixture::CheckerFixture()
    : factory_([this](const std::string&) { return makeProvider(); }) {}

OrvFileProvider* CheckerFixture::makeProvider() {
  if (refuse_) {
    return nullptr;
  }
  auto provider = std::make_unique<ScriptedProvider>(served_, &transcript,
                                                     "provider " + std::to_string(++made_));
  if (preparation_) {
    preparation_(*provider);
  }
  return provider.release();
}

CheckResult runChecker(OrvChecker& checker, const std::string& fileName) {
  const StreamCapture streams;
  CheckResult result;
  result.good = checker.checkCase(fileName);
  result.errors = checker.getErrors();
  result.warnings = checker.getWarnings();
  result.out = streams.out();
  result.err = streams.err();
  return result;
}

void CheckerFixture::open(const cases::CasePtr& opened) {
  serve(opened);
  checker.setCheckLevel(0);
  EXPECT_TRUE(check().good);
  transcript.clear();
}

void CheckerFixture::renewChecker() {
  { const OrvChecker last = checker; }  // releases the case for both
  checker = OrvChecker();
}

CheckResult CheckerFixture::runStep(Step step) {
  const StreamCapture streams;
  CheckResult result;
  result.good = step(checker);
  result.errors = checker.getErrors();
  result.warnings = checker.getWarnings();
  result.out = streams.out();
  result.err = streams.err();
  return result;
}

Transcript CheckerFixture::calls() const {
  Transcript named = transcript;
  for (std::string& line : named) {
    const std::size_t at = line.find(file.path());
    if (at != std::string::npos) {
      line.replace(at, file.path().size(), "FILE");
    }
  }
  return named;
}

Transcript CheckerFixture::callsOf(const std::vector<std::string>& operations) const {
  Transcript chosen;
  for (const std::string& line : calls()) {
    if (std::count(operations.begin(), operations.end(), operationOf(line)) > 0) {
      chosen.push_back(line);
    }
  }
  return chosen;
}

Transcript CheckerFixture::selections() const {
  return callsOf({"setMeshId", "setTarget", "setPartitionId"});
}

Transcript CheckerFixture::selected(const std::vector<std::array<int, 3>>& passes) {
  Transcript lines;
  for (const auto& pass : passes) {
    lines.push_back(callText("setMeshId", pass[0]));
    lines.push_back(callText("setTarget", pass[1]));
    lines.push_back(callText("setPartitionId", pass[2]));
  }
  return lines;
}

}  // namespace velto::testing
