// SPDX-License-Identifier: Apache-2.0
//
// LocationModelBuilder: prints the bodies of a case, by its own location model or by its zones.

#include <iostream>
#include <memory>
#include <vector>

#include "velto/LocationModelBuilder.h"

#include "data_access/OrvFactory.h"
#include "data_access/OrvFileProvider.h"
#include "data_access/OrvLocationModel.h"

namespace {

void printBodies(const velto::OrvLocationModel& model) {
  std::vector<int> parts;
  model.getParts(parts);
  for (const int part : parts) {
    std::vector<int> bodies;
    model.getPartBodies(part, bodies);
    for (const int body : bodies) {
      std::string name;
      std::vector<int> faceUses;
      model.getBodyName(body, name);
      model.getBodyBoundary(body, faceUses);
      std::cout << name << ": " << faceUses.size() << " face uses around it\n";
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: show_bodies CASE\n";
    return 2;
  }
  const std::unique_ptr<velto::OrvFileProvider> provider(velto::getDataProvider(argv[1]));
  if (!provider || !provider->startReading(argv[1], velto::dataClassCase)) {
    std::cerr << argv[1] << ": cannot be read\n";
    return 2;
  }
  if (provider->getLocationModel() != nullptr) {
    printBodies(*provider->getLocationModel());  // the provider's own, as long as it lives
    return 0;
  }
  velto::OrvLocationModel model;
  velto::LocationModelBuilder builder;
  if (!builder.build(provider.get(), &model)) {
    for (const std::string& error : builder.getErrors()) {
      std::cerr << error << "\n";
    }
    return 1;
  }
  printBodies(model);
  return 0;
}
