// SPDX-License-Identifier: Apache-2.0
//
// What the samples are put together from, and where each of them is made.

#ifndef VELTO_SAMPLES_SAMPLE_PARTS_H
#define VELTO_SAMPLES_SAMPLE_PARTS_H

#include <cstdint>

#include "embedded/base/CaseTables.h"
#include "samples/GridMesh.h"
#include "samples/samples.h"

namespace velto::samples {

/// A case without meshes: version, solver type, who wrote it.
Sample emptySample();

/// Adds a mesh of a grid to a sample.
void addMesh(Sample& sample, const base::MeshKey& key, const GridMesh& mesh);

/// A sample of one restart mesh, with the settings of describePhysics().
Sample restartSample(const GridMesh& mesh);

/// Gives each cell zone of a restart mesh a domain, and each face zone that lies on the boundary of
/// one cell zone a boundary of that domain. Domains and boundaries bear the names of their zones.
void describePhysics(base::CaseTables& tables, const base::MeshTables& mesh);

/// Whole boxes and squares: a mesh with the zones "interior", "inlet", "outlet", "bottom", "top",
/// and in space "front" and "back", around the cells "fluid".
GridMesh boxMesh(unsigned dimension, std::uint64_t cells);

/// A box cut across x: "fluid" with the screen "screen" in its middle, then "solid", with "inlet",
/// "fluid walls", "outlet" and "solid walls" around them. What lies between the two is for the
/// caller to add.
struct TwoBodies {
  GridMesh mesh;
  std::uint64_t cut = 0;  ///< The line of nodes between the two.

  // Ids of the face zones; 0 for a zone that a small box has no faces for.
  int fluidInterior = 0;
  int screen = 0;
  int solidInterior = 0;
  int inlet = 0;
  int fluidWalls = 0;
  int outlet = 0;
  int solidWalls = 0;
};
TwoBodies twoBodiesMesh(std::uint64_t cells);

// The samples: one_body_samples.cpp, two_body_samples.cpp, physics_sample.cpp, BrickMesh.cpp.
Sample makeBox(std::uint64_t cells);
Sample makeBoxCells(std::uint64_t cells);
Sample makePost(std::uint64_t cells);
Sample makePlane(std::uint64_t cells);
Sample makePeriodic(std::uint64_t cells);
Sample makeResults(std::uint64_t cells);
Sample makePartitions(std::uint64_t cells);
Sample makeTwoBodies(std::uint64_t cells);
Sample makeShadow(std::uint64_t cells);
Sample makePhysics(std::uint64_t cells);
Sample makePolyhedra(std::uint64_t cells);

}  // namespace velto::samples

#endif  // VELTO_SAMPLES_SAMPLE_PARTS_H
