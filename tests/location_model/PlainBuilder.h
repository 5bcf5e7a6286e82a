// SPDX-License-Identifier: Apache-2.0
//
// PlainBuilder: how a location model is built, written down as plainly as possible, for comparison.

#ifndef VELTO_TESTS_LOCATION_MODEL_PLAIN_BUILDER_H
#define VELTO_TESTS_LOCATION_MODEL_PLAIN_BUILDER_H

#include <string>
#include <vector>

#include "data_access/fwd.h"

namespace velto::testing {

/// The rules of LocationModelBuilder a second time, one after the other and without any care for
/// speed.
///
/// The builder asks each face zone once for the cell zones beside it. This one asks again whenever
/// a rule speaks of them and searches every list from its start, and stays like that, so that
/// random cases tell when a shortcut of the builder changes a message, an object of the model, or a
/// call. It was written from the rules; to take over code of the builder would take over its
/// mistakes.
class PlainBuilder {
 public:
  // As those of LocationModelBuilder.
  bool build(OrvProvider* provider, OrvLocationModel* model);
  const std::vector<std::string>& getErrors() const { return errors_; }

 private:
  struct Run;

  /// A face zone beside the body at hand.
  struct FaceZone {
    int id = 0;
    std::string name;
    std::vector<int> side0;
    std::vector<int> side1;
    int type = -1;
    bool twoSided = false;
    std::string faceName;
    int faceId = 0;
    bool sharedWithShadow = false;
  };

  bool fail(const std::string& message);
  bool buildCellZone(Run& run, int cellZone);
  bool makeBody(Run& run, int cellZone, int& body);
  static void absorb(Run& run, int cellZone, std::vector<int>& bodyZones);
  bool takeFaceZone(Run& run, int cellZone, int body, int faceZone);
  bool isTooLarge(const FaceZone& zone);
  static void takeAsPeriodic(Run& run, FaceZone& zone);
  static bool takeAsLinked(Run& run, FaceZone& zone);
  bool defineFace(Run& run, FaceZone& zone);
  bool useSide0(Run& run, int body, const FaceZone& zone, int use0, int use1);
  bool useSide1(Run& run, int body, const FaceZone& zone, int use1);

  std::vector<std::string> errors_;
};

}  // namespace velto::testing

#endif  // VELTO_TESTS_LOCATION_MODEL_PLAIN_BUILDER_H
