// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/meshrenderer.h"

#include "view/drawing.h"
#include "view/shaderprogram.h"

#include <QVector4D>

namespace Workbench {
namespace {

constexpr float lineWidth = 1.0F; // logical pixels
constexpr float pointSize = 6.0F; // logical pixels

const QVector4D noTint;
const QVector4D pointTint(0.06F, 0.20F, 0.42F, 0.95F);
const QVector4D selectionTint(0.95F, 0.45F, 0.04F, 0.88F);

template<typename Value>
void fill(QOpenGLBuffer &buffer, const QVector<Value> &values)
{
    buffer.bind();
    buffer.allocate(values.constData(), values.size() * int(sizeof(Value)));
}

} // namespace

MeshRenderer::MeshRenderer()
{
    initializeOpenGLFunctions();
    build(m_surface, {"mesh.vert", "mesh.frag", "shade.frag"});
    build(m_wired, {"mesh.vert", "wire.geom", "wire.frag", "shade.frag"});
    build(m_dotted, {"point.vert", "point.frag", "shade.frag"});
    m_arrays.create();
    for (QOpenGLBuffer *buffer : {&m_positions, &m_normals, &m_faces, &m_selected})
        buffer->create();
}

void MeshRenderer::build(QOpenGLShaderProgram &program, std::initializer_list<const char *> files)
{
    if (m_errorText.isEmpty())
        m_errorText = buildProgram(program, files);
}

void MeshRenderer::upload(const Mesh &mesh)
{
    const QOpenGLVertexArrayObject::Binder binder(&m_arrays);
    fill(m_positions, mesh.positions);
    glEnableVertexAttribArray(positionAttribute);
    glVertexAttribPointer(positionAttribute, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
    fill(m_normals, mesh.normals);
    glEnableVertexAttribArray(normalAttribute);
    glVertexAttribPointer(normalAttribute, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
    fill(m_faces, mesh.faces);
    m_vertexCount = mesh.positions.size();
    m_faceCount = mesh.faces.size();
    m_selectedCount = 0;
}

void MeshRenderer::setSelection(const QVector<Face> &faces)
{
    const QOpenGLVertexArrayObject::Binder binder(&m_arrays);
    fill(m_selected, faces);
    m_selectedCount = faces.size();
}

void MeshRenderer::draw(const Drawing &drawing)
{
    if (m_faceCount == 0)
        return;
    const QOpenGLVertexArrayObject::Binder binder(&m_arrays);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    const EDisplayMode mode = drawing.appearance.mode;
    const bool isSurface = mode == EDisplayMode::Shaded || mode == EDisplayMode::Flat;
    const bool hasEdges = drawing.appearance.attributes.testFlag(EAttribute::Edges);
    if (mode == EDisplayMode::Points)
        drawPoints(drawing);
    if (isSurface && !hasEdges)
        drawSurface(drawing);
    else if (isSurface || hasEdges || mode == EDisplayMode::Wireframe)
        drawEdges(drawing);
    if (m_selectedCount > 0)
        drawSelection(drawing);
    glDisable(GL_DEPTH_TEST);
}

void MeshRenderer::begin(QOpenGLShaderProgram &program, const Drawing &drawing)
{
    const QMatrix4x4 modelView = drawing.camera.view(drawing.aspect());
    program.bind();
    program.setUniformValue("modelView", modelView);
    program.setUniformValue("normalMatrix", modelView.normalMatrix());
    program.setUniformValue("projection", drawing.camera.projection(drawing.aspect()));
    program.setUniformValue("isFlat", drawing.appearance.mode == EDisplayMode::Flat);
    program.setUniformValue("tint", noTint);
}

void MeshRenderer::drawSurface(const Drawing &drawing)
{
    begin(m_surface, drawing);
    drawFaces(m_faces, m_faceCount);
}

void MeshRenderer::drawEdges(const Drawing &drawing)
{
    const EDisplayMode mode = drawing.appearance.mode;
    const bool isOpen = mode == EDisplayMode::Wireframe || mode == EDisplayMode::Points;
    begin(m_wired, drawing);
    m_wired.setUniformValue("viewport", QSizeF(drawing.pixels));
    m_wired.setUniformValue("halfWidth", lineWidth * drawing.ratio / 2.0F);
    m_wired.setUniformValue("isOpen", isOpen);
    if (isOpen)
        glEnable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    drawFaces(m_faces, m_faceCount);
    glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
}

void MeshRenderer::drawPoints(const Drawing &drawing)
{
    begin(m_dotted, drawing);
    m_dotted.setUniformValue("size", pointSize * drawing.ratio);
    m_dotted.setUniformValue("tint", pointTint);
    constexpr GLenum programPointSize = 0x8642; // of desktop OpenGL only, so Qt has no name for it
    glEnable(programPointSize);
    glEnable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    glDrawArrays(GL_POINTS, 0, m_vertexCount);
    glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    glDisable(programPointSize);
}

void MeshRenderer::drawSelection(const Drawing &drawing)
{
    const bool hasEdges = drawing.appearance.attributes.testFlag(EAttribute::Edges);
    QOpenGLShaderProgram &program = hasEdges ? m_wired : m_surface;
    begin(program, drawing);
    program.setUniformValue("tint", selectionTint);
    if (hasEdges) {
        program.setUniformValue("viewport", QSizeF(drawing.pixels));
        program.setUniformValue("halfWidth", lineWidth * drawing.ratio / 2.0F);
        program.setUniformValue("isOpen", false);
    }
    drawFaces(m_selected, m_selectedCount);
}

void MeshRenderer::drawFaces(QOpenGLBuffer &indices, int count)
{
    indices.bind();
    glDrawElements(GL_TRIANGLES, count * 3, GL_UNSIGNED_INT, nullptr);
}

} // namespace Workbench
