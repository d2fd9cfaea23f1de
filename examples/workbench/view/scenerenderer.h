// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/appearance.h"
#include "view/linerenderer.h"
#include "view/meshrenderer.h"

namespace Workbench {

/// Draws all that a view shows: the background, the mesh, what is drawn around it, and the rubber
/// band. It is made, used and destroyed while its context is current.
class SceneRenderer : protected QOpenGLFunctions
{
public:
    /// Compiles the shaders. When that fails errorText() says why, and nothing is ever drawn.
    SceneRenderer();

    QString errorText() const { return m_errorText; }

    /// Shows @p mesh from now on, with none of its faces selected.
    void setMesh(const Mesh &mesh);

    /// Lets the faces with these indices stand out.
    void setSelection(const QVector<int> &faces);

    /// Fills the current framebuffer.
    void draw(const Drawing &drawing);

private:
    void drawBackground(EBackground background);
    void drawAttributes(const Drawing &drawing);
    void drawAxes(const Drawing &drawing);
    void drawBand(const Drawing &drawing);

    QString m_errorText;
    MeshRenderer m_meshRenderer;
    LineRenderer m_lineRenderer;
    QOpenGLShaderProgram m_background;
    QOpenGLShaderProgram m_band;
    QOpenGLVertexArrayObject m_nothing; // a triangle over all of the picture needs no buffers
    Mesh m_mesh;
    LineSet m_normals; // made when they are wanted
};

} // namespace Workbench
