// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "flyouts/besideflyout.h"

#include <ui_base/FloatingLayer>
#include <ui_base/FlyoutBase>

#include <QEvent>
#include <QPointer>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

/// Waits for the flyout to be open: before that it is over no view.
class Floater : public QObject
{
public:
    Floater(FlyoutBase &flyout, QWidget *companion)
        : QObject(&flyout)
        , m_flyout(flyout)
        , m_companion(companion)
    {
        flyout.installEventFilter(this);
        connect(companion, &QObject::destroyed, this, &QObject::deleteLater);
        if (flyout.isVisible())
            rise();
    }

    ~Floater() override
    {
        if (!m_companion)
            return;
        // A layer that goes leaves what floats in it to others, so the layer goes last.
        auto *const layer = qobject_cast<FloatingLayer *>(m_companion->parentWidget());
        delete m_companion;
        if (layer)
            layer->deleteLater();
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            rise();
        return QObject::eventFilter(watched, event);
    }

private:
    void rise()
    {
        QWidget *const view = FloatingLayer::getWidgetOriginalParent(m_flyout.parentWidget());
        if (!view || !m_companion || m_companion->parentWidget() != &m_flyout)
            return;
        m_companion->setParent(view);
        FloatingLayer::makeWidgetFloating(m_companion, QMargins());
    }

    FlyoutBase &m_flyout;
    const QPointer<QWidget> m_companion;
};

} // namespace

void floatBeside(FlyoutBase &flyout, QWidget *companion)
{
    new Floater(flyout, companion);
}

} // namespace Workbench
