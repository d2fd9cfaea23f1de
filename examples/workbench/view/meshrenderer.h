// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

#include <QOpenGLBuffer>
#include <QOpenGLFunctions>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>

namespace Workbench {

struct Drawing;

/// Draws the surface of one mesh with OpenGL 3.3, in each display mode. It is made, used and
/// destroyed while its context is current.
class MeshRenderer : protected QOpenGLFunctions
{
public:
    /// Compiles the shaders. When that fails errorText() says why, and nothing may be drawn.
    MeshRenderer();

    QString errorText() const { return m_errorText; }

    /// Copies @p mesh to the graphics memory, in place of the one of before.
    void upload(const Mesh &mesh);

    /// The faces that stand out from the others.
    void setSelection(const QVector<Face> &faces);

    void draw(const Drawing &drawing);

private:
    void build(QOpenGLShaderProgram &program, std::initializer_list<const char *> files);
    void begin(QOpenGLShaderProgram &program, const Drawing &drawing);
    void drawSurface(const Drawing &drawing);
    void drawEdges(const Drawing &drawing);
    void drawPoints(const Drawing &drawing);
    void drawSelection(const Drawing &drawing);
    void drawFaces(QOpenGLBuffer &indices, int count);

    QString m_errorText;
    QOpenGLShaderProgram m_surface;
    QOpenGLShaderProgram m_wired;
    QOpenGLShaderProgram m_dotted;
    QOpenGLVertexArrayObject m_arrays;
    QOpenGLBuffer m_positions {QOpenGLBuffer::VertexBuffer};
    QOpenGLBuffer m_normals {QOpenGLBuffer::VertexBuffer};
    QOpenGLBuffer m_faces {QOpenGLBuffer::IndexBuffer};
    QOpenGLBuffer m_selected {QOpenGLBuffer::IndexBuffer};
    int m_vertexCount = 0;
    int m_faceCount = 0;
    int m_selectedCount = 0;
};

} // namespace Workbench
