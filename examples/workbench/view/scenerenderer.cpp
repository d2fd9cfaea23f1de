// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/scenerenderer.h"

#include "view/drawing.h"
#include "view/shaderprogram.h"

#include <QVector3D>
#include <QVector4D>

namespace Workbench {
namespace {

struct Gradient
{
    QVector3D lower;
    QVector3D upper;
};

const Gradient &gradientOf(EBackground background)
{
    static const Gradient light {{0.753F, 0.784F, 0.820F}, {0.957F, 0.965F, 0.973F}};
    static const Gradient grey {{0.400F, 0.412F, 0.427F}, {0.627F, 0.639F, 0.651F}};
    static const Gradient dark {{0.094F, 0.106F, 0.122F}, {0.227F, 0.247F, 0.271F}};
    switch (background) {
    case EBackground::Grey:
        return grey;
    case EBackground::Dark:
        return dark;
    case EBackground::Light:
        break;
    }
    return light;
}

} // namespace

SceneRenderer::SceneRenderer()
{
    initializeOpenGLFunctions();
    m_nothing.create();
    for (const QString &problem :
         {m_meshRenderer.errorText(), m_lineRenderer.errorText(),
          buildProgram(m_background, {"background.vert", "background.frag"}),
          buildProgram(m_band, {"background.vert", "band.frag"})}) {
        if (m_errorText.isEmpty())
            m_errorText = problem;
    }
}

void SceneRenderer::setMesh(const Mesh &mesh)
{
    m_mesh = mesh;
    m_normals.clear();
    m_meshRenderer.upload(mesh);
}

void SceneRenderer::setSelection(const QVector<int> &faces)
{
    QVector<Face> corners;
    corners.reserve(faces.size());
    for (const int face : faces)
        corners.append(m_mesh.faces.at(face));
    m_meshRenderer.setSelection(corners);
}

void SceneRenderer::draw(const Drawing &drawing)
{
    glViewport(0, 0, drawing.pixels.width(), drawing.pixels.height());
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (!m_errorText.isEmpty() || drawing.pixels.isEmpty())
        return;
    drawBackground(drawing.appearance.background);
    m_meshRenderer.draw(drawing);
    drawAttributes(drawing);
    if (drawing.appearance.attributes.testFlag(EAttribute::Axes))
        drawAxes(drawing);
    if (!drawing.band.isEmpty())
        drawBand(drawing);
}

void SceneRenderer::drawBackground(EBackground background)
{
    const QOpenGLVertexArrayObject::Binder binder(&m_nothing);
    glDisable(GL_DEPTH_TEST);
    const Gradient &colors = gradientOf(background);
    m_background.bind();
    m_background.setUniformValue("lower", colors.lower);
    m_background.setUniformValue("upper", colors.upper);
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

void SceneRenderer::drawAttributes(const Drawing &drawing)
{
    if (m_mesh.isEmpty())
        return;
    const QMatrix4x4 toClip =
        drawing.camera.projection(drawing.aspect()) * drawing.camera.view(drawing.aspect());
    glEnable(GL_DEPTH_TEST);
    if (drawing.appearance.attributes.testFlag(EAttribute::Normals)) {
        if (m_normals.isEmpty())
            m_normals = normalLines(m_mesh);
        m_lineRenderer.draw(m_normals, toClip, drawing.ratio, drawing.pixels);
    }
    if (drawing.appearance.attributes.testFlag(EAttribute::Box))
        m_lineRenderer.draw(boxLines(boundsOf(m_mesh)), toClip, 1.5F * drawing.ratio,
                            drawing.pixels);
    glDisable(GL_DEPTH_TEST);
}

/// In the corner that no bar covers.
void SceneRenderer::drawAxes(const Drawing &drawing)
{
    const float room = 56.0F * drawing.ratio;
    const LineSet lines =
        axisLines(drawing.camera.rotation(), {float(drawing.pixels.width()) - room, room},
                  34.0F * drawing.ratio);
    QMatrix4x4 toClip;
    toClip.ortho(QRectF(QPointF(), drawing.pixels));
    toClip.translate(0.0F, float(drawing.pixels.height()));
    toClip.scale(1.0F, -1.0F);
    m_lineRenderer.draw(lines, toClip, 2.0F * drawing.ratio, drawing.pixels);
}

void SceneRenderer::drawBand(const Drawing &drawing)
{
    const QOpenGLVertexArrayObject::Binder binder(&m_nothing);
    const QRect band = drawing.band;
    const float bottom = float(drawing.pixels.height());
    m_band.bind();
    m_band.setUniformValue("lowest",
                           QVector2D(float(band.left()) * drawing.ratio,
                                     bottom - float(band.bottom() + 1) * drawing.ratio));
    m_band.setUniformValue("highest",
                           QVector2D(float(band.right() + 1) * drawing.ratio,
                                     bottom - float(band.top()) * drawing.ratio));
    m_band.setUniformValue("border", drawing.ratio);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDrawArrays(GL_TRIANGLES, 0, 3);
    glDisable(GL_BLEND);
}

} // namespace Workbench
