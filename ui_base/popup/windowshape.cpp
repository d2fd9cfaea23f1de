// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/windowshape_p.h"

#include "ui_base/popup/floatinglayer.h"

#ifdef LUMO_HAS_X11EXTRAS
#include <QX11Info>
#endif

namespace Vela::UiBase::Internal {
namespace {

QWidget *windowAround(QWidget &shown)
{
    if (auto *const layer = qobject_cast<FloatingLayer *>(shown.parentWidget()))
        return layer;
    return shown.isWindow() && shown.testAttribute(Qt::WA_TranslucentBackground) ? &shown : nullptr;
}

} // namespace

bool areWindowsBlended()
{
#ifdef LUMO_HAS_X11EXTRAS
    // Qt is told when a compositor comes or goes, so this costs no request.
    return !QX11Info::isPlatformX11() || QX11Info::isCompositingManagerRunning();
#else
    return true;
#endif
}

void WindowShape::follow(QWidget &shown, const std::function<QRegion()> &seen)
{
    QWidget *const window = windowAround(shown);
    if (!window || window->mask() != m_mask)
        return;
    m_mask =
        areWindowsBlended() ? QRegion() : seen().translated(FloatingLayer::getWidgetOffset(&shown));
    if (m_mask.isEmpty())
        window->clearMask();
    else
        window->setMask(m_mask);
}

} // namespace Vela::UiBase::Internal
