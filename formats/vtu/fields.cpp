// SPDX-License-Identifier: Apache-2.0
//
// Fields: collected over all pieces, so that each piece of the file has the same arrays.

#include "formats/vtu/fields.h"

#include <algorithm>
#include <limits>
#include <map>
#include <utility>

namespace velto::vtu {

namespace {

using base::VariableKey;
using memory::VariableData;

const std::vector<ZoneSpan>& zonesOf(const PieceMesh& piece, OrvZoneCategory category) {
  return category == zoneCategoryNode ? piece.nodeZones() : piece.cellZones();
}

std::string phaseName(const base::CaseTables& tables, short id) {
  const base::Phase* phase = tables.findPhase(id);
  return phase != nullptr && phase->name ? *phase->name : "phase " + std::to_string(id);
}

/// Whether a variable has values on a zone of this piece. Throws if it has too few.
bool hasValues(const Field& field, const VariableData& data, const PieceMesh& piece) {
  const bool isOfNodes = field.key.category == zoneCategoryNode;
  bool found = false;
  for (const ZoneSpan& zone : zonesOf(piece, field.key.category)) {
    const auto* values = data.zones.find(zone.zone);
    if (values == nullptr) {
      continue;
    }
    found = true;
    const std::size_t there = values->size() / field.components;
    if (there < zone.count) {
      piece.fail(zone, isOfNodes ? "node" : "cell", there,
                 "has no value of the variable " + field.key.name);
    }
  }
  return found;
}

/// Collects fields piece by piece.
class FieldList {
 public:
  void add(const Field& field, const PieceMesh& piece) {
    const auto known = std::find_if(fields_.begin(), fields_.end(), [&field](const Field& other) {
      return other.key == field.key;
    });
    if (known == fields_.end()) {
      fields_.push_back(field);
    } else if (known->components != field.components) {
      piece.fail("the variable " + field.key.name + " has " + std::to_string(field.components) +
                 " values an element, elsewhere " + std::to_string(known->components));
    }
  }

  std::vector<Field> take(const base::CaseTables& tables, const std::vector<std::string>& taken) {
    std::map<std::string, std::size_t> holders;
    for (const std::string& name : taken) {
      ++holders[name];
    }
    for (const Field& field : fields_) {
      ++holders[field.key.name];
    }
    for (Field& field : fields_) {
      field.name = holders[field.key.name] == 1
                       ? field.key.name
                       : phaseName(tables, field.key.phase) + "/" + field.key.name;
    }
    return std::move(fields_);
  }

 private:
  std::vector<Field> fields_;
};

}  // namespace

std::vector<Field> fieldsOf(const base::CaseTables& tables, const Pieces& pieces,
                            OrvZoneCategory category, const std::vector<std::string>& taken) {
  FieldList list;
  for (const auto& piece : pieces) {
    for (const auto& variables : piece->data().variables) {
      if (variables.first.second != category) {
        continue;
      }
      for (const auto& variable : variables.second) {
        const Field field = {
            {variables.first.first, category, variable.first}, variable.second.valuesPerEntity, ""};
        if (field.components > 0 && hasValues(field, variable.second, *piece)) {
          list.add(field, *piece);
        }
      }
    }
  }
  return list.take(tables, taken);
}

std::vector<std::string> faceVariables(const Pieces& pieces) {
  std::vector<std::string> names;
  for (const auto& piece : pieces) {
    for (const auto& variables : piece->data().variables) {
      for (const auto& variable : variables.second) {
        const bool isOfFaces = variables.first.second == zoneCategoryFace;
        if (isOfFaces && std::find(names.begin(), names.end(), variable.first) == names.end()) {
          names.push_back(variable.first);
        }
      }
    }
  }
  return names;
}

void writeField(const Field& field, const PieceMesh& piece, ArrayEncoder& encoder) {
  const VariableData* data = piece.data().findVariable(field.key);
  for (const ZoneSpan& zone : zonesOf(piece, field.key.category)) {
    const auto* values = data == nullptr ? nullptr : data->zones.find(zone.zone);
    const std::uint64_t count = zone.count * field.components;
    if (values != nullptr) {
      encoder.put(values->data(), count * sizeof(double));
      continue;
    }
    for (std::uint64_t i = 0; i < count; ++i) {
      encoder.put(std::numeric_limits<double>::quiet_NaN());
    }
  }
}

}  // namespace velto::vtu
