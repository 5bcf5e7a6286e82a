// SPDX-License-Identifier: Apache-2.0
//
// One reader that goes through all families mesh by mesh. Buffers are as long as the provider's own
// sizes make them.

#include "tests/store/read_everything.h"

#include <list>
#include <sstream>
#include <utility>

#include "data_access/OrvLocationModel.h"
#include "data_access/families.h"

#include "embedded/store/Checksum.h"

namespace velto::testing {

namespace {

/// No case of these tests justifies a longer buffer.
constexpr std::uint64_t kMostBytes = std::uint64_t{256} << 20U;

constexpr OrvZoneCategory kCategories[] = {zoneCategoryNode, zoneCategoryFace, zoneCategoryCell};

class EverythingReader {
 public:
  explicit EverythingReader(OrvFileProvider& provider) : provider_(provider) {}

  Reading read() {
    readHeader();
    readLocationModel();
    std::vector<int> meshes;
    provider_.getMeshIds(meshes, dataClassCase);
    for (const int mesh : meshes) {
      std::vector<int> targets;
      std::vector<int> partitions;
      provider_.getTargets(targets, mesh, dataClassCase);
      provider_.getPartitionIds(partitions, mesh, dataClassCase);
      partitions.push_back(-1);
      for (const int target : targets) {
        for (const int partition : partitions) {
          readMesh(mesh, static_cast<OrvTargetCategory>(target), partition);
        }
      }
    }
    reading_.errors = provider_.getErrors(true, true);
    reading_.warnings = provider_.getWarnings(true, true);
    return std::move(reading_);
  }

 private:
  template <class... Parts>
  void line(const Parts&... parts) {
    std::ostringstream text;
    ((text << parts << ' '), ...);
    reading_.lines.push_back(text.str());
  }

  template <class List>
  static std::string listText(const List& list) {
    std::ostringstream text;
    for (const auto& value : list) {
      text << value << ',';
    }
    return text.str();
  }

  /// A buffer of zeros, empty if it would be too long: then that is written down.
  template <class Value>
  std::vector<Value> buffer(const std::string& what, int zone, std::uint64_t elements,
                            std::uint64_t valuesPerElement) {
    const std::uint64_t most = kMostBytes / sizeof(Value);
    if (elements > 0 && valuesPerElement > most / elements) {
      reading_.tooLarge.push_back(what + " of zone " + std::to_string(zone) + ": " +
                                  std::to_string(elements) + " times " +
                                  std::to_string(valuesPerElement));
      return {};
    }
    return std::vector<Value>(static_cast<std::size_t>(elements * valuesPerElement));
  }

  template <class Value>
  void arrayLine(const std::string& what, int zone, const std::vector<Value>& values) {
    store::Checksum checksum;
    checksum.add(values.data(), values.size() * sizeof(Value));
    line(what, zone, values.size(), checksum.value());
  }

  std::uint64_t sizeOf(int zone, OrvZoneSizeType key) const {
    std::uint64_t size = 0;
    provider_.getZoneSizeInfo(zone, key, size);
    return size;
  }
  std::uint64_t elementsOf(int zone) const { return sizeOf(zone, zoneElementCount); }

  // --- The case as a whole ----------------------------------------------------------------------

  void readHeader() {
    int major = 0;
    int minor = 0;
    int patch = 0;
    provider_.getFileVersion(dataClassCase, major, minor, patch);
    line("file", provider_.getSolverType(), major, minor, patch);
    for (const OrvDataClass dataClass : {dataClassCase, dataClassResults}) {
      std::vector<std::string> keys;
      provider_.getSettingsKeys(dataClass, keys);
      for (const std::string& key : keys) {
        std::string value;
        provider_.getSettingsValue(dataClass, key, value, OrvBase::_defaultSettingsPath);
        line("setting", dataClass, key, value, provider_.getSettings(dataClass, key, 1).isValid());
      }
    }
  }

  void readLocationModel() {
    const OrvLocationModel* model = provider_.getLocationModel();
    if (model == nullptr) {
      return;
    }
    std::vector<int> parts;
    std::vector<int> ids;
    model->getParts(parts);
    for (const int part : parts) {
      line("part", part);
      if (model->getPartBodies(part, ids)) {
        readBodies(*model, ids);
      }
      if (model->getPartFaceUses(part, ids)) {
        readFaceUses(*model, ids);
      }
      if (model->getPartComposites(part, ids)) {
        readComposites(*model, ids);
      }
    }
  }

  void readBodies(const OrvLocationModel& model, const std::vector<int>& bodies) {
    for (const int body : bodies) {
      std::string name;
      std::vector<int> boundary;
      std::vector<int> zones;
      model.getBodyName(body, name);
      model.getBodyBoundary(body, boundary);
      model.getBodyZones(body, 1, zones);
      line("body", body, name, listText(boundary), listText(zones));
    }
  }

  void readFaceUses(const OrvLocationModel& model, const std::vector<int>& faceUses) {
    for (const int use : faceUses) {
      std::string name;
      std::string relativeName;
      std::vector<int> sides;
      model.getFaceUseName(use, name);
      model.getFaceUseRelativeName(use, relativeName);
      model.getFaceUseZoneSides(use, 1, sides);
      line("face use", use, name, relativeName, listText(sides));
    }
  }

  void readComposites(const OrvLocationModel& model, const std::vector<int>& composites) {
    for (const int composite : composites) {
      std::string name;
      std::vector<int> bodies;
      std::vector<int> faces;
      std::vector<int> faceUses;
      model.getCompositeName(composite, name);
      model.resolveComposite(composite, bodies, faces, faceUses);
      line("composite", composite, name, listText(bodies), listText(faces), listText(faceUses));
    }
  }

  // --- Meshes and zones -------------------------------------------------------------------------

  void readMesh(int mesh, OrvTargetCategory target, int partition) {
    provider_.setMeshId(mesh);
    provider_.setTarget(target);
    provider_.setPartitionId(partition);
    std::string units;
    provider_.getMeshUnits(units);
    line("mesh", mesh, target, partition, units);
    for (const OrvMeshSizeType key :
         {meshDimension, meshNodeCount, meshOtherCount, meshFaceCount, meshCellCount}) {
      std::uint64_t size = 0;
      provider_.getMeshSize(key, size);
      line("size", key, size);
    }
    for (const OrvZoneCategory category : kCategories) {
      std::vector<int> zones;
      provider_.getZoneIds(category, zones);
      line("zones", category, listText(zones));
      for (const int zone : zones) {
        readZone(zone);
      }
    }
    readCoordinates();
    readCounted("face nodes", kFaceNodes);
    readCounted("cell nodes", kCellNodes);
    readCounted("cell faces", kCellFaces);
    readFaceCells();
    readByElement();
    readCellTypes();
    readPartitions();
    readResults();
  }

  void readZone(int zone) {
    std::string name;
    std::string typeName;
    provider_.getZoneStringInfo(zone, zoneName, name);
    provider_.getZoneStringInfo(zone, zoneTypeName, typeName);
    line("zone", zone, name, typeName, sizeOf(zone, zoneFirstId), sizeOf(zone, zoneLastId),
         sizeOf(zone, zoneElementCount), sizeOf(zone, zoneDimension));
    for (int key = faceZoneFaceType; key <= faceZoneType; ++key) {
      int info = -99;
      provider_.getFaceZoneInfo(zone, static_cast<OrvFaceZoneInfoType>(key), info);
      line("face zone", key, info);
    }
    for (const OrvCellZoneInfoType key : {cellZoneCellType, cellZoneChild}) {
      int info = -99;
      provider_.getCellZoneInfo(zone, key, info);
      line("cell zone", key, info);
    }
    std::list<int> bounding;
    std::list<int> side0;
    std::list<int> side1;
    provider_.getCellFaceZoneIds(zone, bounding);
    provider_.getFaceCellZone0Ids(zone, side0);
    provider_.getFaceCellZone1Ids(zone, side1);
    line("relations", listText(bounding), listText(side0), listText(side1),
         provider_.getFaceZoneProp(zone, faceZonePeriodic));
  }

  // --- Families ---------------------------------------------------------------------------------

  void readCoordinates() {
    std::vector<int> zones;
    provider_.beginNodeCoordinates(zones);
    line("node coordinates", listText(zones));
    for (const int zone : zones) {
      const std::uint64_t dimension = sizeOf(zone, zoneDimension);
      auto values = buffer<double>("node coordinates", zone, elementsOf(zone),
                                   dimension == 0 ? 3 : dimension);
      provider_.readNodeCoordinates(zone, values.data(), values.size());
      arrayLine("node coordinates", zone, values);
    }
    provider_.endNodeCoordinates();
  }

  void readCounted(const std::string& name, const CountedReadFamily& family) {
    std::vector<int> zones;
    (provider_.*family.begin)(zones);
    line(name, listText(zones));
    (provider_.*family.beginCounts)();
    std::vector<std::uint64_t> lengths;
    for (const int zone : zones) {
      short uniform = 0;
      if ((provider_.*family.getUniformCount)(zone, uniform)) {
        line(name, "all", uniform);
        lengths.push_back(
            buffer<std::uint64_t>(name, zone, elementsOf(zone), static_cast<std::uint64_t>(uniform))
                .size());
        continue;
      }
      auto counts = buffer<short>(name, zone, elementsOf(zone), 1);
      (provider_.*family.readCounts)(zone, counts.data(), counts.size());
      arrayLine(name + ", counts", zone, counts);
      std::uint64_t length = 0;
      for (const short count : counts) {
        length += count < 0 ? 0 : static_cast<std::uint64_t>(count);
      }
      lengths.push_back(length);
    }
    (provider_.*family.endCounts)();
    (provider_.*family.beginIds)();
    for (std::size_t i = 0; i < zones.size(); ++i) {
      auto ids = buffer<std::uint64_t>(name, zones[i], lengths[i], 1);
      (provider_.*family.readIds)(zones[i], ids.data(), ids.size());
      arrayLine(name, zones[i], ids);
    }
    (provider_.*family.endIds)();
    (provider_.*family.end)();
  }

  /// Face cells, zone by zone and by their ids.
  void readFaceCells() {
    std::vector<int> zones;
    provider_.beginFaceCell0(zones);
    for (const int zone : zones) {
      auto cells = buffer<std::uint64_t>("face cell 0", zone, elementsOf(zone), 1);
      provider_.readFaceCell0(zone, cells.data(), cells.size());
      arrayLine("face cell 0", zone, cells);
    }
    eachElement(zones, [this](std::uint64_t id) { return provider_.getFaceCell0(id); });
    provider_.endFaceCell0();
    provider_.beginFaceCell1(zones);
    for (const int zone : zones) {
      auto cells = buffer<std::uint64_t>("face cell 1", zone, elementsOf(zone), 1);
      provider_.readFaceCell1(zone, cells.data(), cells.size());
      arrayLine("face cell 1", zone, cells);
    }
    provider_.endFaceCell1();
  }

  void readByElement() {
    std::vector<int> zones;
    provider_.beginFaceShadows(zones);
    eachElement(zones, [this](std::uint64_t id) { return provider_.getFaceShadow(id); });
    provider_.endFaceShadows();
    std::vector<int> children;
    provider_.beginFaceTree(zones, children);
    line("face tree", listText(zones), listText(children));
    provider_.endFaceTree();
  }

  /// The first ids of each zone and the one behind the last.
  template <class Get>
  void eachElement(const std::vector<int>& zones, const Get& get) {
    constexpr std::uint64_t kMostElements = 100;
    for (const int zone : zones) {
      const std::uint64_t first = sizeOf(zone, zoneFirstId);
      for (std::uint64_t i = 0; i < kMostElements && i <= elementsOf(zone); ++i) {
        line("element", zone, i, get(first + i));
      }
    }
  }

  void readCellTypes() {
    std::vector<int> zones;
    provider_.beginCellTypes(zones);
    for (const int zone : zones) {
      int uniform = 0;
      line("cell types", zone, provider_.getUniformCellType(zone, uniform), uniform);
      auto types = buffer<int>("cell types", zone, elementsOf(zone), 1);
      provider_.readCellTypes(zone, types.data(), types.size());
      arrayLine("cell types", zone, types);
    }
    eachElement(zones, [this](std::uint64_t id) { return provider_.getCellType(id); });
    provider_.endCellTypes();
  }

  void readPartitions() {
    std::vector<int> zones;
    provider_.beginCellPartitions(zones);
    for (const int zone : zones) {
      auto partitions = buffer<int>("cell partitions", zone, elementsOf(zone), 1);
      provider_.readCellPartitions(zone, partitions.data(), partitions.size());
      line("partition info", zone, provider_.getCellPartitionInfo(zone));
      arrayLine("cell partitions", zone, partitions);
    }
    provider_.endCellPartitions();
  }

  // --- Field data -------------------------------------------------------------------------------

  void readResults() {
    std::vector<short> phases;
    provider_.getPhaseIds(phases);
    for (const short phase : phases) {
      std::string name;
      std::string description;
      std::vector<std::string> attributes;
      provider_.getPhaseName(phase, name);
      provider_.getPhaseDescription(phase, description);
      provider_.getPhaseAttributeNames(phase, attributes);
      line("phase", phase, name, description);
      for (const std::string& attribute : attributes) {
        provider_.getPhaseAttribute(phase, attribute, name);
        line("attribute", attribute, name);
      }
      provider_.beginPhase(phase);
      for (const OrvZoneCategory category : kCategories) {
        std::vector<std::string> variables;
        provider_.getVariableNames(category, variables);
        for (const std::string& variable : variables) {
          readVariable(category, variable);
        }
      }
      provider_.endPhase();
    }
  }

  void readVariable(OrvZoneCategory category, const std::string& name) {
    int id = 0;
    std::string description;
    provider_.getVariableId(name, id);
    provider_.getVariableDescription(id, description);
    std::vector<std::string> attributes;
    provider_.getVariableAttributeNames(id, attributes);
    for (const std::string& attribute : attributes) {
      std::string value;
      provider_.getVariableAttribute(id, attribute, value);
      line("attribute", attribute, value);
    }
    std::vector<int> zones;
    const std::size_t valuesPerEntity = provider_.beginVariable(category, name, zones);
    line("variable", category, name, id, description, valuesPerEntity, listText(zones));
    for (const int zone : zones) {
      auto values = buffer<double>("variable " + name, zone, elementsOf(zone), valuesPerEntity);
      provider_.readVariable(zone, values.data(), values.size());
      arrayLine("variable " + name, zone, values);
    }
    provider_.endVariable();
  }

  OrvFileProvider& provider_;
  Reading reading_;
};

}  // namespace

Reading readEverything(OrvFileProvider& provider) { return EverythingReader(provider).read(); }

}  // namespace velto::testing
