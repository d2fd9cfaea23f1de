// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

namespace Workbench {

/// @name Sets of faces
/// A set is a list of indices of faces in ascending order, as MeshDocument::selection() is. Indices
/// that the mesh does not have are left out.
/// @{

/// The faces that are not in @p faces.
QVector<int> invertedFaces(const Mesh &mesh, const QVector<int> &faces);

/// The faces that are in @p faces or share a vertex with one of them.
QVector<int> grownFaces(const Mesh &mesh, const QVector<int> &faces);

/// @}

/// The mesh without @p faces and without the vertices that only they had. The others keep their
/// order; the normals are worked out anew.
Mesh withoutFaces(const Mesh &mesh, const QVector<int> &faces);

} // namespace Workbench
