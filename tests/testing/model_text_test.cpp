// SPDX-License-Identifier: Apache-2.0
//
// modelText: every kind of object stands in it, with its names and what it has in the mesh.

#include "testing/model_text.h"

#include <gtest/gtest.h>

#include "embedded/base/OrvLocationModelState.h"

namespace velto::testing {
namespace {

TEST(ModelText, IsEmptyForAModelWithoutParts) { EXPECT_EQ(modelText(OrvLocationModel()), ""); }

TEST(ModelText, ShowsEveryKindOfObject) {
  OrvLocationModel model;
  int part = 0;
  int body = 0;
  int face = 0;
  int use = 0;
  int named = 0;
  model.createPart(3, "P", part);
  ASSERT_TRUE(model.createBody(part, "fluid", body));
  ASSERT_TRUE(model.createFace(part, "F5", face));
  ASSERT_TRUE(model.createFaceUse(body, face, 0, use));
  ASSERT_TRUE(model.createFaceUse(body, face, 1, named));
  ASSERT_TRUE(model.setBodyZones(body, 7, {4, 2}));
  ASSERT_TRUE(model.setFaceUseName(named, "inlet"));
  ASSERT_TRUE(model.setFaceUseZoneSides(named, 7, {-5}));
  OrvLocationModel::State::of(model).addComposite(part, {"all", {body}, {face}, {use, named}});
  model.createPart(3, "Q", part);

  EXPECT_EQ(modelText(model, 7), R"(part 'P' (1)
  body 2 'fluid': zones [4, 2], boundary [4, 5]
  face 3 'F5': sides 4 | 5
  use 4 '' or 'F5@fluid': no zone sides
  use 5 'inlet' or 'F5@fluid.2': zone sides [-5]
  composite 6 'all': bodies [2], faces [3], uses [4, 5]
part 'Q' (7)
)");
  EXPECT_EQ(modelText(model, 1), R"(part 'P' (1)
  body 2 'fluid': no zones, boundary [4, 5]
  face 3 'F5': sides 4 | 5
  use 4 '' or 'F5@fluid': no zone sides
  use 5 'inlet' or 'F5@fluid.2': no zone sides
  composite 6 'all': bodies [2], faces [3], uses [4, 5]
part 'Q' (7)
)");
}

}  // namespace
}  // namespace velto::testing
