// SPDX-License-Identifier: Apache-2.0
//
// ConnectivityFixture: zones of lists, and one step.

#include "tests/checker/ConnectivityFixture.h"

#include <new>
#include <stdexcept>

namespace velto::testing {

void setLists(memory::Case& changed, base::Family family, const std::vector<ZoneLists>& zones) {
  base::MeshTables& mesh = changed.mesh();
  const OrvZoneCategory category =
      family == base::Family::faceNodes ? zoneCategoryFace : zoneCategoryCell;
  mesh.zoneIds[category].clear();
  memory::ZoneList<memory::CountedData>& lists = changed.arrays().counted(family);
  lists = {};
  std::uint64_t first = 1;
  for (const ZoneLists& zone : zones) {
    mesh.zoneIds[category].push_back(zone.zone);
    mesh.zones[zone.zone].sizes = {first, first + zone.elements - 1, zone.elements, 3};
    first += zone.elements;
    memory::CountedData& data = lists[zone.zone];
    data.uniform = zone.uniform;
    data.counts = memory::Slice<short>(zone.counts);
    data.ids = memory::Slice<std::uint64_t>(zone.ids);
  }
}

cases::CasePtr withFaceNodes(const std::vector<ZoneLists>& zones) {
  cases::CasePtr made = cases::oneHex();
  setLists(*made, base::Family::faceNodes, zones);
  return made;
}

std::vector<ZoneLists> listsThatCannotBeHad(int zone) {
  return {{zone, 6, -1, {}, {}},
          {zone, 2, {}, {1, -2}, {}},
          {zone, 131076, {}, std::vector<short>(131076, 32767), {}}};
}

CheckResult ConnectivityFixture::run(const cases::CasePtr& opened, Step step, int verbosity) {
  checker.setVerbosity(1);
  open(opened);
  checker.setVerbosity(verbosity);
  return runStep(step);
}

bool ConnectivityFixture::wantsMemory(Step step) {
  try {
    step(checker);
  } catch (const std::bad_alloc&) {
    return true;
  } catch (const std::length_error&) {
    return true;
  }
  return false;
}

void ConnectivityFixture::expectToBeUsable() {
  serve(cases::oneHex());
  checker.setCheckLevel(2);
  EXPECT_TRUE(check().good);
  EXPECT_EQ(checker.getErrors(), Texts());
}

}  // namespace velto::testing
