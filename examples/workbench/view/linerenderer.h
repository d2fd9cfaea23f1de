// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/linesets.h"

#include <QOpenGLBuffer>
#include <QOpenGLFunctions>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>

namespace Workbench {

/// Draws lines with OpenGL 3.3 that are equally wide at any distance and pixel ratio. It is made,
/// used and destroyed while its context is current.
class LineRenderer : protected QOpenGLFunctions
{
public:
    /// Compiles the shaders. When that fails errorText() says why, and nothing may be drawn.
    LineRenderer();

    QString errorText() const { return m_errorText; }

    /// Draws @p lines, which @p toClip takes to clip space, @p width pixels wide into a framebuffer
    /// of the size @p pixels.
    void draw(const LineSet &lines, const QMatrix4x4 &toClip, float width, const QSize &pixels);

private:
    QString m_errorText;
    QOpenGLShaderProgram m_program;
    QOpenGLVertexArrayObject m_arrays;
    QOpenGLBuffer m_ends {QOpenGLBuffer::VertexBuffer};
};

} // namespace Workbench
