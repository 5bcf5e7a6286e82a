// SPDX-License-Identifier: Apache-2.0
//
// Random damage to a case: which kind of it, and the damage to its head.

#include <cstddef>
#include <utility>
#include <vector>

#include "testing/MeshDamage.h"
#include "testing/random_case.h"
#include "testing/random_model.h"
#include "testing/random_pick.h"

namespace velto::testing {

namespace {

std::string damageHead(base::CaseTables& tables, Random& random) {
  if (random.chance(50)) {
    tables.solverType = random.pick<std::string>(
        {"", "ORV_GENERIC", "ORV_GENERIC ", "VELTO", " VELTO_FLOW", "velto_flow", "OTHER"});
    return "solver type = \"" + tables.solverType + "\"";
  }
  if (random.chance(20)) {
    tables.version.reset();
    return "version = nothing";
  }
  tables.version = anyVersion(random);
  return "version = " + versionText(*tables.version);
}

using Kind = std::string (MeshDamage::*)();

/// Kinds of damage; what has more ways to go wrong comes more often.
const std::vector<Kind>& kinds() {
  static const std::vector<Kind> kKinds = [] {
    const std::pair<std::size_t, Kind> weighted[] = {
        {1, &MeshDamage::dimension},     {4, &MeshDamage::dimensionOfZone},
        {5, &MeshDamage::count},         {7, &MeshDamage::zoneSize},
        {9, &MeshDamage::range},         {4, &MeshDamage::growth},
        {3, &MeshDamage::twin},          {11, &MeshDamage::zoneList},
        {5, &MeshDamage::name},          {5, &MeshDamage::faceInfo},
        {12, &MeshDamage::faceLink},     {6, &MeshDamage::cellType},
        {4, &MeshDamage::cellLink},      {20, &MeshDamage::relation},
        {12, &MeshDamage::family},       {5, &MeshDamage::tree},
        {2, &MeshDamage::record},        {3, &MeshDamage::copy},
        {1, &MeshDamage::removal},       {14, &MeshDamage::elementId},
        {6, &MeshDamage::sideCells},     {5, &MeshDamage::shadowFaces},
        {10, &MeshDamage::typesOfCells}, {10, &MeshDamage::elementCount},
        {6, &MeshDamage::listLength},    {5, &MeshDamage::uniformity},
        {10, &MeshDamage::listing},      {3, &MeshDamage::listOrder},
        {4, &MeshDamage::countByOne}};
    std::vector<Kind> all;
    for (const auto& [weight, kind] : weighted) {
      all.insert(all.end(), weight, kind);
    }
    return all;
  }();
  return kKinds;
}

std::string damageOnce(memory::Case& damaged, Random& random) {
  if (damaged.tables.meshes.empty() || random.chance(3)) {
    return damageHead(damaged.tables, random);
  }
  const int choice = random.between(0, 99);
  if (choice < 14) {
    return damageModel(damaged, random);
  }
  if (choice < 32) {
    return damageSettings(damaged, random);
  }
  const base::MeshKey key = anyMesh(damaged.tables, random);
  const Kind kind = random.pick(kinds());
  MeshDamage mesh(damaged, key, random);
  return meshText(key) + ": " + (mesh.*kind)();
}

}  // namespace

std::string damage(memory::Case& damaged, Random& random, Sizes sizes) {
  while (true) {
    memory::Case tried = damaged;
    std::string text = damageOnce(tried, random);
    if (sizes == Sizes::any || isSmall(tried)) {
      damaged = std::move(tried);
      return text;
    }
  }
}

}  // namespace velto::testing
