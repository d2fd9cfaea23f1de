// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/camerarig.h"

namespace Workbench {

void CameraRig::setCamera(const Camera &camera)
{
    m_camera = camera;
    Q_EMIT changed();
}

void CameraRig::setViewport(const QSize &size)
{
    m_viewport = size;
}

float CameraRig::aspect() const
{
    return m_viewport.isEmpty() ? 1.0F : float(m_viewport.width()) / float(m_viewport.height());
}

void CameraRig::orbit(const QPointF &pixels)
{
    constexpr float degreesPerPixel = 0.4F;
    m_camera.orbit(QVector2D(float(-pixels.x()), float(pixels.y())) * degreesPerPixel);
    Q_EMIT changed();
}

void CameraRig::pan(const QPointF &pixels)
{
    if (m_viewport.isEmpty())
        return;
    m_camera.pan(QVector2D(pixels) / float(m_viewport.height()), aspect());
    Q_EMIT changed();
}

void CameraRig::zoomAt(const QPointF &position, float factor)
{
    if (m_viewport.isEmpty())
        return;
    const float before = m_camera.zoomFactor();
    m_camera.zoom(factor);
    const float left = 1.0F - before / m_camera.zoomFactor();
    pan((position - QRectF(QPointF(), m_viewport).center()) * double(left));
}

QMatrix4x4 CameraRig::toPicture() const
{
    QMatrix4x4 matrix;
    matrix.viewport(QRectF(QPointF(), m_viewport));
    // Pictures count rows from above.
    QMatrix4x4 turned;
    turned.translate(0.0F, float(m_viewport.height()));
    turned.scale(1.0F, -1.0F);
    return turned * matrix * m_camera.projection(aspect()) * m_camera.view(aspect());
}

Ray CameraRig::rayAt(const QPointF &position) const
{
    const QMatrix4x4 toMesh = toPicture().inverted();
    const QVector3D near = toMesh.map(QVector3D(float(position.x()), float(position.y()), 0.0F));
    const QVector3D far = toMesh.map(QVector3D(float(position.x()), float(position.y()), 1.0F));
    return {near, far - near};
}

} // namespace Workbench
