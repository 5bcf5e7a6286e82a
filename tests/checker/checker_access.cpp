// SPDX-License-Identifier: Apache-2.0
//
// Single steps of OrvChecker. An explicit instantiation may name private members: each Grant hands
// one of them out through a function that its tag declares.

#include "tests/checker/checker_access.h"

namespace velto::testing::checker_access {

namespace {

using Step = bool (OrvChecker::*)();
using VersionStep = bool (OrvChecker::*)(OrvDataClass);
using Display = void (OrvChecker::*)(const std::string&, const std::string&);
using Log = void (OrvChecker::*)(int, const std::string&);

template <class Tag, typename Tag::Member kMember>
struct Grant {
  friend typename Tag::Member memberOf(Tag) { return kMember; }
};

struct DisplayStep {
  using Member = Display;
  friend Display memberOf(DisplayStep);
};
struct AddError {
  using Member = Log;
  friend Log memberOf(AddError);
};
struct AddWarning {
  using Member = Log;
  friend Log memberOf(AddWarning);
};
struct CheckORVErrors {
  using Member = Step;
  friend Step memberOf(CheckORVErrors);
};
struct TargetName {
  using Member = std::string (*)(int);
  friend Member memberOf(TargetName);
};
struct DescribeLocation {
  using Member = std::string (OrvChecker::*)() const;
  friend Member memberOf(DescribeLocation);
};
struct CheckVersion {
  using Member = VersionStep;
  friend VersionStep memberOf(CheckVersion);
};
struct CheckSolverType {
  using Member = Step;
  friend Step memberOf(CheckSolverType);
};
struct CheckMeshSize {
  using Member = Step;
  friend Step memberOf(CheckMeshSize);
};

template struct Grant<DisplayStep, &OrvChecker::displayStep>;
template struct Grant<AddError, &OrvChecker::addError>;
template struct Grant<AddWarning, &OrvChecker::addWarning>;
template struct Grant<CheckORVErrors, &OrvChecker::checkORVErrors>;
template struct Grant<TargetName, &OrvChecker::targetName>;
template struct Grant<DescribeLocation, &OrvChecker::describeLocation>;
template struct Grant<CheckVersion, &OrvChecker::checkVersion>;
template struct Grant<CheckSolverType, &OrvChecker::checkSolverType>;
template struct Grant<CheckMeshSize, &OrvChecker::checkMeshSize>;

}  // namespace

void displayStep(OrvChecker& checker, const std::string& step, const std::string& detail) {
  (checker.*memberOf(DisplayStep{}))(step, detail);
}

void addError(OrvChecker& checker, int level, const std::string& message) {
  (checker.*memberOf(AddError{}))(level, message);
}

void addWarning(OrvChecker& checker, int level, const std::string& message) {
  (checker.*memberOf(AddWarning{}))(level, message);
}

bool checkORVErrors(OrvChecker& checker) { return (checker.*memberOf(CheckORVErrors{}))(); }

std::string targetName(int category) { return memberOf(TargetName{})(category); }

std::string describeLocation(const OrvChecker& checker) {
  return (checker.*memberOf(DescribeLocation{}))();
}

bool checkVersion(OrvChecker& checker, OrvDataClass dataClass) {
  return (checker.*memberOf(CheckVersion{}))(dataClass);
}

bool checkSolverType(OrvChecker& checker) { return (checker.*memberOf(CheckSolverType{}))(); }

bool checkMeshSize(OrvChecker& checker) { return (checker.*memberOf(CheckMeshSize{}))(); }

}  // namespace velto::testing::checker_access
