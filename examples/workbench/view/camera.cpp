// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/camera.h"

#include <QtMath>

#include <algorithm>

namespace Workbench {
namespace {

constexpr float fieldOfView = 28.0F; // degrees from the lower to the upper border

} // namespace

void Camera::frame(const Bounds &bounds)
{
    m_target = bounds.center();
    m_radius = bounds.radius() > 0.0F ? bounds.radius() : 1.0F;
}

float Camera::distance(float aspect) const
{
    const float halfHeight = std::tan(qDegreesToRadians(fieldOfView / 2.0F));
    const float halfWidth = halfHeight * aspect;
    // The sphere around a mesh has more room in it than the mesh fills.
    constexpr float filled = 0.78F;
    return filled * m_radius / std::sin(std::atan(std::min(halfHeight, halfWidth)));
}

QMatrix4x4 Camera::view(float aspect) const
{
    QMatrix4x4 matrix;
    matrix.translate(0.0F, 0.0F, -distance(aspect));
    matrix.rotate(m_pitch, 1.0F, 0.0F, 0.0F);
    matrix.rotate(-m_yaw, 0.0F, 1.0F, 0.0F);
    matrix.translate(-m_target);
    return matrix;
}

QMatrix4x4 Camera::projection(float aspect) const
{
    const float middle = distance(aspect);
    QMatrix4x4 matrix;
    matrix.perspective(fieldOfView, aspect, std::max(middle - m_radius, middle / 100.0F),
                       middle + m_radius);
    return matrix;
}

} // namespace Workbench
