// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/meshview.h"

#include "view/camerarig.h"
#include "view/drawing.h"
#include "view/scenerenderer.h"

#include <QGuiApplication>
#include <QOpenGLContext>
#include <QSurfaceFormat>
#include <QWindow>

#include <utility>

namespace Workbench {
namespace {

QSurfaceFormat surfaceFormat()
{
    QSurfaceFormat format;
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    format.setDepthBufferSize(24);
    format.setSamples(4);
    return format;
}

/// Whether the windows of this platform plugin are seen by nobody, so that OpenGL would draw for
/// nobody either. Asking such a plugin for a context makes it print a warning.
bool isWithoutScreen()
{
    const QString platform = QGuiApplication::platformName();
    return platform == QLatin1String("offscreen") || platform == QLatin1String("minimal");
}

} // namespace

MeshView::MeshView(std::shared_ptr<CameraRig> rig, QWidget *parent)
    : QWidget(parent)
    , m_rig(std::move(rig))
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_PaintOnScreen);
    setAttribute(Qt::WA_NoSystemBackground);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_NativeWindow);
    // The window object is there now and its native window is not, which is the moment to choose
    // what kind of surface that is going to be.
    windowHandle()->setSurfaceType(QSurface::OpenGLSurface);
    windowHandle()->setFormat(surfaceFormat());
    connect(m_rig.get(), &CameraRig::changed, this, &MeshView::requestFrame);
}

MeshView::~MeshView()
{
    if (m_renderer)
        m_context->makeCurrent(windowHandle());
    m_renderer.reset();
}

void MeshView::setMesh(const Mesh &mesh)
{
    m_mesh = mesh;
    m_isUploadDue = true;
    setSelection({});
}

void MeshView::setSelection(const QVector<int> &faces)
{
    m_selection = faces;
    m_isSelectionDue = true;
    requestFrame();
}

void MeshView::setAppearance(const Appearance &appearance)
{
    if (appearance == m_appearance)
        return;
    m_appearance = appearance;
    requestFrame();
    Q_EMIT appearanceChanged(appearance);
}

void MeshView::setBand(const QRect &band)
{
    if (band == m_band)
        return;
    m_band = band;
    requestFrame();
}

bool MeshView::isFrameDue() const
{
    return m_isFrameDue && m_graphics != EGraphics::Unavailable;
}

QPaintEngine *MeshView::paintEngine() const
{
    return nullptr;
}

QSize MeshView::sizeHint() const
{
    return {960, 640};
}

void MeshView::requestFrame()
{
    m_isFrameDue = true;
    update();
}

void MeshView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_rig->setViewport(size());
    requestFrame();
}

void MeshView::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    if (windowHandle()->isExposed() && prepareGraphics())
        drawFrame();
}

bool MeshView::prepareGraphics()
{
    if (m_graphics != EGraphics::Untried)
        return m_graphics == EGraphics::Ready;
    m_reason = createGraphics();
    m_graphics = m_reason ? EGraphics::Unavailable : EGraphics::Ready;
    if (!m_reason)
        return true;
    Q_EMIT unavailable();
    return false;
}

QString MeshView::reason() const
{
    return m_reason ? m_reason() : QString();
}

/// Makes the context and what is drawn with it. Returns what tells why that is not possible; nothing
/// when it is.
std::function<QString()> MeshView::createGraphics()
{
    if (isWithoutScreen())
        return [] {
            return tr("the platform \"%1\" has no screen").arg(QGuiApplication::platformName());
        };
    m_context = std::make_unique<QOpenGLContext>();
    m_context->setFormat(windowHandle()->requestedFormat());
    if (!m_context->create() || !m_context->makeCurrent(windowHandle()))
        return [] { return tr("the display offers no OpenGL"); };
    const QPair<int, int> version = m_context->format().version();
    if (version < qMakePair(3, 3)) {
        return [version] {
            return tr("the display offers version %1.%2 only")
                .arg(version.first)
                .arg(version.second);
        };
    }
    m_renderer = std::make_unique<SceneRenderer>();
    const QString problem = m_renderer->errorText();
    if (problem.isEmpty())
        return {};
    return [problem] { return tr("the display's can't be used (%1)").arg(problem); };
}

void MeshView::drawFrame()
{
    if (!m_context->makeCurrent(windowHandle()))
        return;
    if (std::exchange(m_isUploadDue, false))
        m_renderer->setMesh(m_mesh);
    if (std::exchange(m_isSelectionDue, false))
        m_renderer->setSelection(m_selection);
    const qreal ratio = devicePixelRatioF();
    m_renderer->draw(
        {m_rig->camera(), m_appearance, (QSizeF(size()) * ratio).toSize(), float(ratio), m_band});
    m_context->swapBuffers(windowHandle());
    m_isFrameDue = false;
    Q_EMIT framePresented();
}

} // namespace Workbench
