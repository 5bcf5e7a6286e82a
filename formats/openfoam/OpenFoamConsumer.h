// SPDX-License-Identifier: Apache-2.0
//
// OpenFoamConsumer: the write side of an OpenFOAM mesh.

#ifndef VELTO_FORMATS_OPENFOAM_OPEN_FOAM_CONSUMER_H
#define VELTO_FORMATS_OPENFOAM_OPEN_FOAM_CONSUMER_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "embedded/base/CaseConsumer.h"
#include "embedded/base/MeshArrays.h"
#include "formats/openfoam/KeptArrays.h"
#include "formats/openfoam/written_zones.h"

namespace velto::openfoam {

/// Keeps of a mesh what a polyMesh is made of: coordinates, face nodes, the cells beside the faces.
class PolyMeshSink : public base::MeshArraySink {
 public:
  const KeptArrays& arrays() const { return arrays_; }

  void begin(base::Family, const std::vector<int>&) override {}
  void writeUniformCount(base::Family family, int zone, short count) override;
  void writeCounts(base::Family family, int zone, const short* counts, std::size_t n) override;
  void writeIds(base::Family family, int zone, const std::uint64_t* ids, std::size_t n) override;
  void writeCoordinates(int zone, const double* values, std::size_t n) override;
  void writeUniformCellType(int, int) override {}
  void writeCellTypes(int, const int*, std::size_t) override {}
  void setPartitionInfo(int, int) override {}
  void writeCellPartitions(int, const int*, std::size_t) override {}
  void writeElemIds(int, const std::size_t*, std::size_t) override {}
  void setTreeChildZones(const std::vector<int>&) override {}

  void declareVariables(short, OrvZoneCategory, const std::vector<std::string>&) override {}
  void beginVariable(const base::VariableKey&, const std::vector<int>&, std::size_t) override {}
  void writeVariable(const base::VariableKey&, int, const double*, std::size_t) override {}

 private:
  KeptArrays arrays_;
};

/// Writes the restart mesh of a case into a polyMesh folder; the partitions of a mesh that is cut
/// into a processorN folder each. Settings are written as far as they are entries of patches; the
/// location model, other meshes and results are not.
///
/// The file name of the case is a case folder, which gets constant/polyMesh, or a folder named
/// polyMesh or constant. A mesh that is there is replaced as a whole at the end of writing, nothing
/// else in the case folder is touched. Files are binary, in mode 1 text; with a compression level
/// they are gzipped.
///
/// What is written otherwise than it is in the case waits as pending warnings.
class OpenFoamConsumer : public base::CaseConsumer {
 protected:
  base::MeshArraySink& sink(const base::MeshKey& key) override;
  void open(OrvDataClass dataClass) override;
  void finish(OrvDataClass dataClass) override;
  void abandon() override;

 private:
  struct Part;

  void writeMeshes();
  std::vector<Part> judgedParts();
  void writeParts(const std::vector<Part>& parts);
  void finishResults();

  /// The patches of all partitions without their faces, as a partition without cells has them.
  static std::vector<WrittenPatch> patchesOfAll(const std::vector<Part>& parts);

  std::map<base::MeshKey, PolyMeshSink> sinks_;
};

}  // namespace velto::openfoam

#endif  // VELTO_FORMATS_OPENFOAM_OPEN_FOAM_CONSUMER_H
