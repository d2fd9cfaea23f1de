// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

namespace Workbench {

/// The area of the surface, in square units of the file.
double areaOf(const Mesh &mesh);
/// The area of some faces. @param faces indices of the mesh
double areaOf(const Mesh &mesh, const QVector<int> &faces);
/// What the surface encloses, in cubic units of the file; it means something for a closed mesh only.
/// Negative when the mesh is inside out.
double volumeOf(const Mesh &mesh);

} // namespace Workbench
