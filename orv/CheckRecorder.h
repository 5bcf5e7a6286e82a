// SPDX-License-Identifier: Apache-2.0
//
// CheckRecorder: writes what a checker does into a CheckReport.

#ifndef VELTO_ORV_CHECK_RECORDER_H
#define VELTO_ORV_CHECK_RECORDER_H

#include <string>

#include "velto/CheckListener.h"

#include "orv/CheckReport.h"

namespace velto::orv {

class CheckRecorder : public CheckListener {
 public:
  /// The report is not owned.
  explicit CheckRecorder(CheckReport& report) : report_(report) {}

  void onStep(const CheckPlace& place, const std::string& step) override;
  void onFinding(const CheckPlace& place, CheckSeverity severity, const std::string& step,
                 const std::string& message) override;
  void onLeftOut(const CheckPlace& place, const std::string& step, CheckOmission reason) override;

 private:
  CheckReport& report_;
};

}  // namespace velto::orv

#endif  // VELTO_ORV_CHECK_RECORDER_H
