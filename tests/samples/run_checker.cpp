// SPDX-License-Identifier: Apache-2.0
//
// runChecker: a factory of one case.

#include "tests/samples/run_checker.h"

#include "velto/OrvChecker.h"

#include "testing/TestFactory.h"

namespace velto::testing {

Findings runChecker(const std::function<OrvFileProvider*()>& makeProvider, int level) {
  const TestFactory factory([&makeProvider](const std::string&) { return makeProvider(); });
  OrvChecker checker;
  checker.setVerbosity(0);
  checker.setCheckLevel(level);
  Findings findings;
  findings.isSound = checker.checkCase(__FILE__);  // any file that can be opened will do
  findings.errors = checker.getErrors();
  findings.warnings = checker.getWarnings();
  return findings;
}

}  // namespace velto::testing
