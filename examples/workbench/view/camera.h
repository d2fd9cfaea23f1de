// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

#include <QMatrix4x4>

namespace Workbench {

/// The eye that looks at a mesh: a target and a direction, in the units of the mesh.
class Camera
{
public:
    /// Looks at the middle of @p bounds from the front, a little from above and from the side, so
    /// that all of it is in sight. Bounds without extent are looked at as a unit sphere.
    void frame(const Bounds &bounds);

    /// From the mesh's coordinates to the eye's, which looks along its negative z axis. @p aspect
    /// is the width of the picture by its height: a narrow picture is looked at from further away.
    QMatrix4x4 view(float aspect) const;

    /// From the eye's coordinates to clip space.
    QMatrix4x4 projection(float aspect) const;

private:
    float distance(float aspect) const;

    QVector3D m_target;
    float m_radius = 1.0F;
    float m_yaw = 18.0F;   // degrees to the right of the front
    float m_pitch = 14.0F; // degrees above the horizon
};

} // namespace Workbench
