// SPDX-License-Identifier: Apache-2.0
//
// The list of samples.

#include "samples/samples.h"

#include <algorithm>

#include "samples/sample_parts.h"

namespace velto::samples {

const std::vector<SampleInfo>& samples() {
  static const std::vector<SampleInfo> kSamples = {
      {"box", "box of hexahedra",
       "A first look: a restart mesh with an inlet, an outlet and walls.", makeBox, 8000, false},
      {"box-cells", "box of hexahedra with cell nodes",
       "A restart mesh whose cells list their nodes.", makeBoxCells, 8000, false},
      {"post", "box of hexahedra for viewers",
       "A post mesh: cells with their nodes, and the faces of the boundary.", makePost, 8000,
       false},
      {"polyhedra", "wall of bricks in running bond",
       "A post mesh of polyhedra with up to eight faces, which list their faces.", makePolyhedra,
       8000, false},
      {"plane", "square of quadrilaterals", "A two-dimensional restart mesh.", makePlane, 10000,
       false},
      {"two-bodies", "fluid beside a solid",
       "Two cell zones that share a two-sided face zone, with a screen in the fluid.",
       makeTwoBodies, 8000, false},
      {"periodic", "box with a periodic pair",
       "Two opposite face zones whose faces are each other's shadows.", makePeriodic, 8000, false},
      {"shadow", "fluid and solid behind walls of their own",
       "Two one-sided face zones, back to back, that are linked as shadows.", makeShadow, 8000,
       false},
      {"physics", "channel beside a heater, with physics",
       "A location model of its own, with domains, subdomains, boundaries and an interface in it.",
       makePhysics, 8000, false},
      {"results", "box with the flow of water and air",
       "Results of two phases on nodes, faces and cells.", makeResults, 8000, true},
      {"partitions", "box for viewers in four partitions",
       "A partitioned post mesh: four slabs, each with numbers of its own.", makePartitions, 8000,
       false},
  };
  return kSamples;
}

const SampleInfo* findSample(const std::string& name) {
  const auto found = std::find_if(samples().begin(), samples().end(),
                                  [&name](const SampleInfo& info) { return info.name == name; });
  return found == samples().end() ? nullptr : &*found;
}

}  // namespace velto::samples
