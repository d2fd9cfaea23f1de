// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/camera.h"

#include <QtMath>

#include <algorithm>

namespace Workbench {
namespace {

constexpr float fieldOfView = 28.0F; // degrees from the lower to the upper border

float halfHeight()
{
    return std::tan(qDegreesToRadians(fieldOfView / 2.0F));
}

} // namespace

void Camera::frame(const Bounds &bounds)
{
    m_center = bounds.center();
    m_radius = bounds.radius() > 0.0F ? bounds.radius() : 1.0F;
    m_target = m_center;
    m_zoom = 1.0F;
}

void Camera::orbit(const QVector2D &degrees)
{
    m_yaw = std::fmod(m_yaw + degrees.x(), 360.0F);
    m_pitch = qBound(-89.0F, m_pitch + degrees.y(), 89.0F);
}

void Camera::pan(const QVector2D &shift, float aspect)
{
    const QVector3D inTheEye(-shift.x(), shift.y(), 0.0F);
    const float height = 2.0F * distance(aspect) * halfHeight();
    m_target += rotation().inverted().mapVector(inTheEye * height);
}

void Camera::zoom(float factor)
{
    m_zoom = qBound(0.02F, m_zoom * factor, 20.0F);
}

float Camera::distance(float aspect) const
{
    const float halfWidth = halfHeight() * aspect;
    // The sphere around a mesh has more room in it than the mesh fills.
    constexpr float filled = 0.86F;
    return m_zoom * filled * m_radius / std::sin(std::atan(std::min(halfHeight(), halfWidth)));
}

QMatrix4x4 Camera::rotation() const
{
    QMatrix4x4 matrix;
    matrix.rotate(m_pitch, 1.0F, 0.0F, 0.0F);
    matrix.rotate(-m_yaw, 0.0F, 1.0F, 0.0F);
    return matrix;
}

QMatrix4x4 Camera::view(float aspect) const
{
    QMatrix4x4 matrix;
    matrix.translate(0.0F, 0.0F, -distance(aspect));
    matrix *= rotation();
    matrix.translate(-m_target);
    return matrix;
}

QMatrix4x4 Camera::projection(float aspect) const
{
    // A little more than the sphere around the mesh, for what is drawn around that.
    const float radius = 1.15F * m_radius;
    const float middle = -view(aspect).map(m_center).z();
    const float furthest = std::max(middle + radius, m_radius / 100.0F);
    QMatrix4x4 matrix;
    matrix.perspective(fieldOfView, aspect, std::max(middle - radius, furthest / 500.0F), furthest);
    return matrix;
}

} // namespace Workbench
