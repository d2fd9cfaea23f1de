// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

#include <QMatrix4x4>
#include <QVector2D>

namespace Workbench {

/// One end of a line; two in a row are a line.
struct LineEnd
{
    QVector3D position;
    QVector3D color;
};
using LineSet = QVector<LineEnd>;

/// A line from every vertex of @p mesh along its normal.
LineSet normalLines(const Mesh &mesh);

/// The twelve edges of @p bounds.
LineSet boxLines(const Bounds &bounds);

/// The three directions of the coordinates as they are turned by @p rotation, with their letters,
/// around @p middle. Two axes in the plane of the picture are @p length long. In pixels, y up.
LineSet axisLines(const QMatrix4x4 &rotation, const QVector2D &middle, float length);

} // namespace Workbench
