// SPDX-License-Identifier: Apache-2.0
//
// LocationModelScript: writes down what is asked of location models, and has them refuse or throw.

#ifndef VELTO_TESTING_SCRIPTED_LOCATION_MODEL_H
#define VELTO_TESTING_SCRIPTED_LOCATION_MODEL_H

#include <string>
#include <vector>

#include "testing/call_text.h"

namespace velto::testing {

/// What a model does not do when it is asked, as a value: for random tests.
struct ModelRefusal {
  std::string call;
  int nth = 0;            ///< 0 for each.
  bool isDenied = false;  ///< Carried out, and answered with false all the same.
};

/// In a program that is linked with velto_scripted_location_model, the operations of every
/// OrvLocationModel pass the script that was made last and is still alive, those of models that a
/// tool makes for itself as well:
///
///     Transcript calls;
///     LocationModelScript script(&calls);
///     script.refuse("createFace(1, F3)");
///
/// A call is named by its operation ("createFace"), which stands for every call of it, or by its
/// whole text; texts have the arguments that go in, without those that come out.
class LocationModelScript {
 public:
  /// `transcript` outlives the script; null for none.
  explicit LocationModelScript(Transcript* transcript = nullptr);
  LocationModelScript(const LocationModelScript&) = delete;
  LocationModelScript& operator=(const LocationModelScript&) = delete;
  ~LocationModelScript();

  /// Such a call, or the nth (from 1) alone, does nothing and answers false.
  void refuse(const std::string& call, int nth = 0);

  /// It is carried out, and answers false all the same.
  void deny(const std::string& call, int nth = 0);

  /// Either of them.
  void add(const ModelRefusal& refusal);

  /// It does nothing and throws a std::runtime_error with the text of the call.
  void breakDown(const std::string& call, int nth = 0);

  /// What becomes of a call; for the operations themselves.
  enum class Fate { carriedOut, denied, refused, broken };
  static Fate fateOf(const std::string& call);

 private:
  struct Rule {
    std::string call;
    int nth = 0;  // 0 for each
    Fate fate = Fate::carriedOut;
    int seen = 0;
  };

  Transcript* transcript_;
  std::vector<Rule> rules_;
  LocationModelScript* outer_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTING_SCRIPTED_LOCATION_MODEL_H
