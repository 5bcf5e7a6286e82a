// SPDX-License-Identifier: Apache-2.0
//
// The tables of a case, to a store file and from it.

#ifndef VELTO_EMBEDDED_STORE_CASE_TABLES_H
#define VELTO_EMBEDDED_STORE_CASE_TABLES_H

#include <memory>

#include "embedded/base/CaseTables.h"
#include "embedded/store/Hdf5.h"
#include "embedded/store/tables.h"

namespace velto::store {

/// Format, layout version, data class, solver type and so on: the attributes of the root.
void writeHeader(Group& root, const base::CaseTables& tables, OrvDataClass dataClass);

/// Throws if the file is none of this format, of a newer layout, or of another class. What was read
/// goes into `tables`.
void readHeader(const Group& root, OrvDataClass dataClass, base::CaseTables& tables);

/// The settings of a data class. A file without any has none.
void writeSettings(Group& root, const base::CaseTables& tables, OrvDataClass dataClass);
void readSettings(const Group& root, OrvDataClass dataClass, base::CaseTables& tables);

/// Phases and variables with their attributes.
void writeResultTables(Group& root, const base::CaseTables& tables);
void readResultTables(const Group& root, base::CaseTables& tables);

/// The sizes and zones of one mesh, and which mesh it is. The texts of a mesh are shared by all its
/// tables.
void writeMeshTables(Group& mesh, const base::MeshKey& key, const base::MeshTables& tables,
                     TextWriter& texts);
base::MeshKey readMeshKey(const Group& mesh);
base::MeshTables readMeshTables(const Group& mesh, const TextReader& texts);

/// The location model; none gives none.
void writeLocationModel(Group& root, const OrvLocationModel* model);
std::shared_ptr<const OrvLocationModel> readLocationModel(const Group& root);

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_CASE_TABLES_H
