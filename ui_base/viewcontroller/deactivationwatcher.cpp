// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/deactivationwatcher_p.h"

#include "ui_base/viewcontroller/baseview.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <algorithm>

namespace Vela::UiBase {

DeactivationWatcher::DeactivationWatcher()
{
    QCoreApplication::instance()->installEventFilter(this);
}

std::shared_ptr<DeactivationWatcher> DeactivationWatcher::shared()
{
    static std::weak_ptr<DeactivationWatcher> current;
    std::shared_ptr<DeactivationWatcher> watcher = current.lock();
    if (!watcher)
        current = watcher = std::make_shared<DeactivationWatcher>();
    return watcher;
}

void DeactivationWatcher::add(BaseView *view)
{
    m_views.push_back(view);
}

void DeactivationWatcher::remove(BaseView *view)
{
    m_views.erase(std::remove(m_views.begin(), m_views.end(), view), m_views.end());
}

bool DeactivationWatcher::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ApplicationDeactivate || watched != QCoreApplication::instance())
        return false;
    const std::vector<QPointer<BaseView>> views(m_views.begin(), m_views.end());
    for (const QPointer<BaseView> &view : views) {
        if (view)
            view->eventFilter(watched, event);
    }
    return false;
}

} // namespace Vela::UiBase
