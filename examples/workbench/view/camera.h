// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

#include <QMatrix4x4>
#include <QVector2D>

namespace Workbench {

/// The eye that looks at a mesh: a target, a direction and a distance, in the units of the mesh.
class Camera
{
public:
    /// Looks at the middle of @p bounds, so that all of it is in sight, from the direction that it
    /// looks from already: at first from the front, a little from above and from the side. Bounds
    /// without extent are looked at as a unit sphere.
    void frame(const Bounds &bounds);

    /// Turns around the target by @p degrees: x to the right, y up. It stops above the poles.
    void orbit(const QVector2D &degrees);

    /// Moves sideways, so that what is seen at the target moves by @p shift, in heights of the
    /// picture: x to the right, y down. @p aspect as for view().
    void pan(const QVector2D &shift, float aspect);

    /// Multiplies the distance from the target by @p factor, within limits.
    void zoom(float factor);

    /// The distance as a multiple of the one that frame() chooses.
    float zoomFactor() const { return m_zoom; }

    /// From the mesh's coordinates to the eye's, which looks along its negative z axis. @p aspect
    /// is the width of the picture by its height: a narrow picture is looked at from further away.
    QMatrix4x4 view(float aspect) const;

    /// From the eye's coordinates to clip space.
    QMatrix4x4 projection(float aspect) const;

    /// How the mesh is turned before the eye, without any shift.
    QMatrix4x4 rotation() const;

private:
    float distance(float aspect) const;

    QVector3D m_center; // of what is looked at, with its radius
    float m_radius = 1.0F;
    QVector3D m_target;
    float m_zoom = 1.0F;
    float m_yaw = 18.0F;   // degrees to the right of the front
    float m_pitch = 14.0F; // degrees above the horizon
};

} // namespace Workbench
