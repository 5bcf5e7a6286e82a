// SPDX-License-Identifier: Apache-2.0
//
// CheckListener: hears what an OrvChecker does, for programs that make a report of it.

#ifndef VELTO_CHECK_LISTENER_H
#define VELTO_CHECK_LISTENER_H

#include <string>

namespace velto {

/// Where in a case a checker is.
struct CheckPlace {
  int mesh = 0;        ///< Id of the mesh; 0 for the file as a whole.
  int target = -1;     ///< An OrvTargetCategory; -1 for all of the mesh.
  int partition = -1;  ///< Id of the partition; -1 where there is none, or for all of the target.
};

/// Whether two places are the same.
inline bool operator==(const CheckPlace& left, const CheckPlace& right) {
  return left.mesh == right.mesh && left.target == right.target &&
         left.partition == right.partition;
}

/// Into which list of OrvChecker a message goes: a case with errors is not sound.
enum class CheckSeverity {
  error,   ///< OrvChecker::getErrors
  warning  ///< OrvChecker::getWarnings
};

/// Why something of a case was not checked.
enum class CheckOmission {
  meshFilter,       ///< OrvChecker::setMeshId asked for another mesh.
  targetFilter,     ///< OrvChecker::setTarget asked for another target.
  partitionFilter,  ///< OrvChecker::setPartitionId asked for another partition.
  level,            ///< OrvChecker::setCheckLevel asked for less.
  noLocationModel,  ///< OrvChecker::setNoLM asked to leave it out.
  notApplicable     ///< There is nothing of the kind in targets like this one.
};

/// Hears of each step, each finding and each omission when it happens, whatever the verbosity of
/// the checker is.
///
/// It is called on the thread of OrvChecker::checkCase and must not use that checker. What it
/// throws ends the check and reaches the caller of checkCase: that is how a program stops one.
class CheckListener {
 public:
  CheckListener() = default;
  CheckListener(const CheckListener&) = delete;
  CheckListener& operator=(const CheckListener&) = delete;
  virtual ~CheckListener() = default;

  /// A check begins, or goes on to its next stage under the same name. "checkCase" for the file as
  /// a whole is the last step of a walk that came to its end.
  virtual void onStep(const CheckPlace& place, const std::string& step) = 0;

  /// A message was recorded. `step` is the one under way, empty before the first; `message` is
  /// without it.
  virtual void onFinding(const CheckPlace& place, CheckSeverity severity, const std::string& step,
                         const std::string& message) = 0;

  /// A step is left out at a place, perhaps after it began; an empty `step` stands for all of them.
  virtual void onLeftOut(const CheckPlace& place, const std::string& step,
                         CheckOmission reason) = 0;
};

}  // namespace velto

#endif  // VELTO_CHECK_LISTENER_H
