// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/facetree.h"
#include "view/camera.h"

#include <QObject>
#include <QPointF>
#include <QSize>

namespace Workbench {

/// A camera with the picture that it makes: what views draw from and what tools move.
///
/// Several views may share one; they then have to be of the same size.
class CameraRig : public QObject
{
    Q_OBJECT

public:
    CameraRig() = default;

    const Camera &camera() const { return m_camera; }
    void setCamera(const Camera &camera);

    /// The size of the picture in logical pixels.
    QSize viewport() const { return m_viewport; }
    void setViewport(const QSize &size);
    /// Its width by its height; 1 as long as there is none.
    float aspect() const;

    /// Turns the mesh as if its surface followed the pointer, which moved by @p pixels.
    void orbit(const QPointF &pixels);
    /// Moves the mesh with the pointer, which moved by @p pixels.
    void pan(const QPointF &pixels);
    /// Moves by @p factor away from what is seen at @p position, which stays where it is.
    void zoomAt(const QPointF &position, float factor);

    /// From the mesh's coordinates to positions in the picture; z is below 1 for what is before the
    /// far end.
    QMatrix4x4 toPicture() const;
    /// What lies under @p position, from the eye on.
    Ray rayAt(const QPointF &position) const;

Q_SIGNALS:
    /// The camera is another one. A new size of the picture is not told: who set it knows.
    void changed();

private:
    Camera m_camera;
    QSize m_viewport;
};

} // namespace Workbench
