// SPDX-License-Identifier: Apache-2.0
//
// CheckRecorder: one entry for each place, one name for the stages of a step.

#include "orv/CheckRecorder.h"

#include <algorithm>

namespace velto::orv {

void CheckRecorder::onStep(const CheckPlace& place, const std::string& step) {
  std::vector<StepsRun>& ran = report_.ran;
  if (step == "checkCase") {  // the last one, about the file as a whole like those in front
    report_.isComplete = true;
    ran.front().steps.push_back(step);
    return;
  }
  if (ran.empty() || !(ran.back().place == place)) {
    ran.push_back({place, {}});
  }
  std::vector<std::string>& steps = ran.back().steps;
  if (std::find(steps.begin(), steps.end(), step) == steps.end()) {
    steps.push_back(step);
  }
}

void CheckRecorder::onFinding(const CheckPlace& place, CheckSeverity severity,
                              const std::string& step, const std::string& message) {
  report_.findings.push_back({place, severity, step, message});
  ++(severity == CheckSeverity::error ? report_.errors : report_.warnings);
}

void CheckRecorder::onLeftOut(const CheckPlace& place, const std::string& step,
                              CheckOmission reason) {
  if (!report_.ran.empty() && report_.ran.back().place == place) {
    std::vector<std::string>& steps = report_.ran.back().steps;
    steps.erase(std::remove(steps.begin(), steps.end(), step), steps.end());
  }
  std::vector<StepsLeftOut>& leftOut = report_.leftOut;
  if (leftOut.empty() || !(leftOut.back().place == place) || leftOut.back().reason != reason) {
    leftOut.push_back({place, reason, {}});
  }
  if (!step.empty()) {
    leftOut.back().steps.push_back(step);
  }
}

}  // namespace velto::orv
