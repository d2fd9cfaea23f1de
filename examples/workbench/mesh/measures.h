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

/// How long the sides of the faces are. The side that two faces share counts for each of them.
struct SideLengths
{
    double shortest = 0;
    double longest = 0;
    double mean = 0;
};
/// All zero for a mesh without faces.
SideLengths sideLengthsOf(const Mesh &mesh);
/// The sharpest corner of all faces in degrees, from 0 for a face that is a line to 60 when all are
/// even. 0 for a mesh without faces.
double sharpestCornerOf(const Mesh &mesh);

} // namespace Workbench
