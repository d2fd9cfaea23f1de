// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/meshrenderer.h"

#include "view/camera.h"

// The resources stand in a static library, from which the linker takes only what is asked for.
static void initResources()
{
    Q_INIT_RESOURCE(view);
}

namespace Workbench {
namespace {

constexpr int positionAttribute = 0;
constexpr int normalAttribute = 1;

template<typename Value>
void fill(QOpenGLBuffer &buffer, const QVector<Value> &values)
{
    buffer.bind();
    buffer.allocate(values.constData(), values.size() * int(sizeof(Value)));
}

} // namespace

MeshRenderer::MeshRenderer()
{
    initResources();
    initializeOpenGLFunctions();
    build(
        m_background,
        {{QOpenGLShader::Vertex, "background.vert"}, {QOpenGLShader::Fragment, "background.frag"}});
    build(m_surface,
          {{QOpenGLShader::Vertex, "mesh.vert"},
           {QOpenGLShader::Fragment, "mesh.frag"},
           {QOpenGLShader::Fragment, "shade.frag"}});
    build(m_wired,
          {{QOpenGLShader::Vertex, "mesh.vert"},
           {QOpenGLShader::Geometry, "wire.geom"},
           {QOpenGLShader::Fragment, "wire.frag"},
           {QOpenGLShader::Fragment, "shade.frag"}});
    m_arrays.create();
    m_positions.create();
    m_normals.create();
    m_faces.create();
}

void MeshRenderer::build(QOpenGLShaderProgram &program, std::initializer_list<Shader> shaders)
{
    for (const Shader &shader : shaders) {
        const QString file = QStringLiteral(":/workbench/shaders/") + QLatin1String(shader.file);
        if (!program.addShaderFromSourceFile(shader.type, file))
            m_errorText = program.log().simplified();
    }
    program.bindAttributeLocation("position", positionAttribute);
    program.bindAttributeLocation("normal", normalAttribute);
    if (m_errorText.isEmpty() && !program.link())
        m_errorText = program.log().simplified();
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
    m_indexCount = mesh.faces.size() * 3;
}

void MeshRenderer::draw(const Camera &camera, const QSize &pixels, float lineWidth)
{
    glViewport(0, 0, pixels.width(), pixels.height());
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (!m_errorText.isEmpty() || pixels.isEmpty())
        return;
    drawBackground();
    if (m_indexCount == 0)
        return;

    const float aspect = float(pixels.width()) / float(pixels.height());
    if (lineWidth <= 0.0F) {
        drawMesh(m_surface, camera, aspect);
        return;
    }
    m_wired.bind();
    m_wired.setUniformValue("viewport", QSizeF(pixels));
    m_wired.setUniformValue("halfWidth", lineWidth / 2.0F);
    drawMesh(m_wired, camera, aspect);
}

void MeshRenderer::drawBackground()
{
    const QOpenGLVertexArrayObject::Binder binder(&m_arrays);
    glDisable(GL_DEPTH_TEST);
    m_background.bind();
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

void MeshRenderer::drawMesh(QOpenGLShaderProgram &program, const Camera &camera, float aspect)
{
    const QOpenGLVertexArrayObject::Binder binder(&m_arrays);
    const QMatrix4x4 modelView = camera.view(aspect);
    glEnable(GL_DEPTH_TEST);
    program.bind();
    program.setUniformValue("modelView", modelView);
    program.setUniformValue("normalMatrix", modelView.normalMatrix());
    program.setUniformValue("projection", camera.projection(aspect));
    glDrawElements(GL_TRIANGLES, m_indexCount, GL_UNSIGNED_INT, nullptr);
}

} // namespace Workbench
