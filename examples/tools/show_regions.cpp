// SPDX-License-Identifier: Apache-2.0
//
// PhysicsRegionResolver: prints on which sides of which face zones the boundaries of a case lie.

#include <iostream>
#include <memory>
#include <vector>

#include "velto/PhysicsRegionResolver.h"

#include "data_access/OrvFactory.h"
#include "data_access/OrvFileProvider.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: show_regions CASE\n";
    return 2;
  }
  const std::unique_ptr<velto::OrvFileProvider> provider(velto::getDataProvider(argv[1]));
  if (!provider || !provider->startReading(argv[1], velto::dataClassCase)) {
    std::cerr << argv[1] << ": cannot be read\n";
    return 2;
  }
  velto::PhysicsRegionResolver resolver(provider.get());
  if (!resolver.resolveUsing(provider.get())) {  // needs the location model of the case
    for (const std::string& error : resolver.getErrors()) {
      std::cerr << error << "\n";
    }
    return 1;
  }
  std::vector<std::string> boundaries;
  resolver.regionsOfType(boundaries, "boundary");
  for (const std::string& boundary : boundaries) {
    std::cout << boundary << ":";
    std::vector<int> sides;
    if (resolver.zoneSides(boundary, sides)) {
      for (const int side : sides) {
        std::cout << " " << (side > 0 ? "side 0 of zone " : "side 1 of zone ")
                  << (side > 0 ? side : -side);
      }
    }
    std::cout << "\n";
  }
  return 0;
}
