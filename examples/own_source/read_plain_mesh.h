// SPDX-License-Identifier: Apache-2.0
//
// Plain meshes: the format, and how a file of it becomes a case in memory.

#ifndef PLAIN_MESH_READ_PLAIN_MESH_H
#define PLAIN_MESH_READ_PLAIN_MESH_H

#include <memory>
#include <string>

#include "embedded/memory/Case.h"

namespace plain_mesh {

/// Whether a file is a plain mesh: its first line is "plainmesh 1". Cheap, and never throws, since
/// it is asked of every file.
bool isPlainMesh(const std::string& fileName);

/// Reads a plain mesh. Throws velto::base::CaseError with file, line and reason if it cannot.
///
/// A plain mesh is a text with one item a line. Words are separated by blanks, "#" starts a
/// comment, empty lines count for nothing.
///
///     plainmesh 1                  the first line
///     node X Y Z                   a node
///     faces NAME TYPE              a face zone begins: interior, wall, patch or symmetry
///     face CELL0 CELL1 NODE ...    a face of it, its nodes in a loop: the normal points out of
///                                  CELL0 into CELL1; 0 stands for no cell
///     cells NAME                   a cell zone begins
///     cell SHAPE                   a cell of it: tetrahedron, pyramid, wedge, hexahedron or
///                                  polyhedron
///     setting KEY VALUE            of the physics, such as: domains/water/location body
///
/// Nodes, faces and cells count up from 1, each in the order of the file. What they refer to is
/// not looked at here: to judge a case is the checker's part.
std::shared_ptr<velto::memory::Case> readPlainMesh(const std::string& fileName);

}  // namespace plain_mesh

#endif  // PLAIN_MESH_READ_PLAIN_MESH_H
