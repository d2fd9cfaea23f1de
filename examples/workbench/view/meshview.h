// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"
#include "view/camera.h"

#include <QWidget>

#include <memory>

class QOpenGLContext;

namespace Workbench {

class MeshRenderer;

/// Shows a mesh with OpenGL in a native window of its own.
///
/// Nothing comes between the graphics card and the screen, which is why this is no QOpenGLWidget;
/// and still it is a plain widget, so that mouse, wheel and key events arrive as for any other and
/// an event filter sees them. What is to lie above the picture has to be a window too.
///
/// A frame is drawn when something changed and at no other time.
class MeshView : public QWidget
{
    Q_OBJECT

public:
    explicit MeshView(QWidget *parent = nullptr);
    ~MeshView() override;

    /// Shows @p mesh from where the camera is. An empty mesh leaves the background alone.
    void setMesh(const Mesh &mesh);

    /// Moves the camera so that the whole mesh is in sight.
    void frameMesh();

    /// Whether the edges are drawn on the surface; off by default.
    bool isWireframe() const;
    void setWireframe(bool isOn);

    /// Whether something changed that no frame has shown yet. Never without OpenGL.
    bool isFrameDue() const;

    QPaintEngine *paintEngine() const override;
    QSize sizeHint() const override;

Q_SIGNALS:
    /// A frame was handed to the window system, which shows the present state of the view.
    void framePresented();

    /// There is no OpenGL 3.3 for this view; @p reason says why, for the user. It comes once, and
    /// the view stays blank.
    void unavailable(const QString &reason);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    enum class EGraphics {
        Untried,
        Ready,
        Unavailable
    };

    void requestFrame();
    bool prepareGraphics();
    QString createGraphics();
    void drawFrame();

    EGraphics m_graphics = EGraphics::Untried;
    std::unique_ptr<QOpenGLContext> m_context;
    std::unique_ptr<MeshRenderer> m_renderer;
    Mesh m_mesh;
    Camera m_camera;
    bool m_isWireframe = false;
    bool m_isUploadDue = true;
    bool m_isFrameDue = true;
};

} // namespace Workbench
