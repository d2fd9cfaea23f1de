// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"
#include "view/appearance.h"

#include <QRect>
#include <QWidget>

#include <functional>
#include <memory>

class QOpenGLContext;

namespace Workbench {

class CameraRig;
class SceneRenderer;

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
    /// Draws what @p rig sees, which it tells its size.
    explicit MeshView(std::shared_ptr<CameraRig> rig, QWidget *parent = nullptr);
    ~MeshView() override;

    /// Shows @p mesh, with none of its faces selected. An empty mesh leaves the background alone.
    void setMesh(const Mesh &mesh);

    /// Lets the faces of the mesh with these indices stand out.
    void setSelection(const QVector<int> &faces);

    const Appearance &appearance() const { return m_appearance; }
    void setAppearance(const Appearance &appearance);

    /// The rubber band that is drawn over the picture, in logical pixels; an empty one is none.
    QRect band() const { return m_band; }
    void setBand(const QRect &band);

    /// Whether something changed that no frame has shown yet. Never without OpenGL.
    bool isFrameDue() const;

    /// Draws another frame soon, also when nothing has changed.
    void requestFrame();

    /// Why there is no OpenGL 3.3 for this view, for the user; empty as long as nothing says so.
    QString reason() const;

    QPaintEngine *paintEngine() const override;
    QSize sizeHint() const override;

Q_SIGNALS:
    void appearanceChanged(const Workbench::Appearance &appearance);

    /// A frame was handed to the window system, which shows the present state of the view.
    void framePresented();

    /// There is no OpenGL 3.3 for this view; see reason(). It comes once, and the view stays blank.
    void unavailable();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    enum class EGraphics {
        Untried,
        Ready,
        Unavailable
    };

    bool prepareGraphics();
    std::function<QString()> createGraphics();
    void drawFrame();

    EGraphics m_graphics = EGraphics::Untried;
    std::function<QString()> m_reason;
    std::unique_ptr<QOpenGLContext> m_context;
    std::unique_ptr<SceneRenderer> m_renderer;
    const std::shared_ptr<CameraRig> m_rig;
    Mesh m_mesh;
    QVector<int> m_selection;
    Appearance m_appearance;
    QRect m_band;
    bool m_isUploadDue = true;
    bool m_isSelectionDue = true;
    bool m_isFrameDue = true;
};

} // namespace Workbench
