// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/linerenderer.h"

#include "view/shaderprogram.h"

#include <QSize>

#include <cstddef>

namespace Workbench {

LineRenderer::LineRenderer()
{
    initializeOpenGLFunctions();
    m_errorText = buildProgram(m_program, {"line.vert", "line.geom", "line.frag"});
    m_arrays.create();
    m_ends.create();
}

void LineRenderer::draw(const LineSet &lines, const QMatrix4x4 &toClip, float width,
                        const QSize &pixels)
{
    const QOpenGLVertexArrayObject::Binder binder(&m_arrays);
    m_ends.bind();
    m_ends.allocate(lines.constData(), lines.size() * int(sizeof(LineEnd)));
    const auto *const positions = reinterpret_cast<const void *>(offsetof(LineEnd, position));
    const auto *const colors = reinterpret_cast<const void *>(offsetof(LineEnd, color));
    glEnableVertexAttribArray(positionAttribute);
    glVertexAttribPointer(positionAttribute, 3, GL_FLOAT, GL_FALSE, sizeof(LineEnd), positions);
    glEnableVertexAttribArray(colorAttribute);
    glVertexAttribPointer(colorAttribute, 3, GL_FLOAT, GL_FALSE, sizeof(LineEnd), colors);

    m_program.bind();
    m_program.setUniformValue("toClip", toClip);
    m_program.setUniformValue("viewport", QSizeF(pixels));
    m_program.setUniformValue("width", width);
    glDrawArrays(GL_LINES, 0, lines.size());
}

} // namespace Workbench
