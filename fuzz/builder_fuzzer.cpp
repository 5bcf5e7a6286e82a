// SPDX-License-Identifier: Apache-2.0
//
// Fuzzes LocationModelBuilder: any zones and any refusals, built from as the plain builder does.

#include "fuzz/fuzzing.h"
#include "testing/Random.h"
#include "tests/location_model/PlainBuilder.h"
#include "tests/location_model/builder_run.h"
#include "tests/location_model/random_zones.h"

namespace velto::testing {
namespace {

template <class Builder>
std::string builtText(const RandomBuild& drawn) {
  Builder builder;
  OrvLocationModel model;
  const Built built = runBuilder(builder, model, drawn.served, drawn.preparation());
  return lines(built.calls) + lines(built.errors) + (built.good ? "true\n" : "false\n") +
         built.model + "\n";
}

}  // namespace
}  // namespace velto::testing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velto::testing;
  Random random(data, size);
  const RandomBuild drawn = randomBuild(random);
  velto::fuzzing::requireSame(builtText<PlainBuilder>(drawn),
                              builtText<velto::LocationModelBuilder>(drawn));
  return 0;
}
