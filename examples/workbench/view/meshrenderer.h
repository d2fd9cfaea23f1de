// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

#include <QOpenGLBuffer>
#include <QOpenGLFunctions>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>
#include <QSize>

namespace Workbench {

class Camera;

/// Draws one mesh with OpenGL 3.3. It is made, used and destroyed while its context is current.
class MeshRenderer : protected QOpenGLFunctions
{
public:
    /// Compiles the shaders. When that fails errorText() says why, and nothing is ever drawn.
    MeshRenderer();

    QString errorText() const { return m_errorText; }

    /// Copies @p mesh to the graphics memory, in place of the one of before.
    void upload(const Mesh &mesh);

    /// Fills the current framebuffer, whose size is @p pixels, with the background and the mesh.
    /// With a @p lineWidth above zero, in pixels, the edges are drawn on the surface.
    void draw(const Camera &camera, const QSize &pixels, float lineWidth);

private:
    struct Shader
    {
        QOpenGLShader::ShaderType type;
        const char *file;
    };
    void build(QOpenGLShaderProgram &program, std::initializer_list<Shader> shaders);
    void drawBackground();
    void drawMesh(QOpenGLShaderProgram &program, const Camera &camera, float aspect);

    QString m_errorText;
    QOpenGLShaderProgram m_background;
    QOpenGLShaderProgram m_surface;
    QOpenGLShaderProgram m_wired;
    QOpenGLVertexArrayObject m_arrays;
    QOpenGLBuffer m_positions {QOpenGLBuffer::VertexBuffer};
    QOpenGLBuffer m_normals {QOpenGLBuffer::VertexBuffer};
    QOpenGLBuffer m_faces {QOpenGLBuffer::IndexBuffer};
    int m_indexCount = 0;
};

} // namespace Workbench
