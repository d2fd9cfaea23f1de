// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/tool/interactivetool.h"

#include "ui_base/tool/toollinks_p.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPixmap>
#include <QPointer>
#include <QString>

namespace Vela::UiBase {
namespace {

// The screen position is given, since Qt would ask the window system for the pointer otherwise.
QMouseEvent emptyEvent()
{
    const QPointF nowhere {QPoint()};
    return {QEvent::None, nowhere, nowhere, nowhere, Qt::NoButton, Qt::NoButton, Qt::NoModifier};
}

} // namespace

class InteractiveToolPrivate
{
public:
    explicit InteractiveToolPrivate(BaseView *view)
        : m_view(view)
        , viewObject(Internal::objectOf(view))
    { }

    std::unique_ptr<QCursor> m_idleCursor;
    QCursor m_operatingCursor {Qt::ArrowCursor};
    QMouseEvent m_startEvent = emptyEvent();
    BaseView *const m_view;
    const QPointer<QObject> viewObject;
    EToolState m_state = eToolInactive;
};

InteractiveTool::InteractiveTool(BaseView *view)
    : d(std::make_shared<InteractiveToolPrivate>(view))
{ }

InteractiveTool::~InteractiveTool() = default;

BaseView *InteractiveTool::getView() const
{
    return d->viewObject ? d->m_view : nullptr;
}

bool InteractiveTool::isActive() const
{
    return d->m_state == eToolActive;
}

bool InteractiveTool::isSuspended() const
{
    return d->m_state == eToolSuspended;
}

bool InteractiveTool::isOperating() const
{
    return d->m_state == eToolOperating;
}

const QCursor &InteractiveTool::getIdleCursor() const
{
    return d->m_idleCursor ? *d->m_idleCursor : d->m_operatingCursor;
}

const QCursor &InteractiveTool::getOperatingCursor() const
{
    return d->m_operatingCursor;
}

void InteractiveTool::setIdleCursor(const QCursor &cursor)
{
    d->m_idleCursor = std::make_unique<QCursor>(cursor);
}

void InteractiveTool::setOperatingCursor(const QCursor &cursor)
{
    d->m_operatingCursor = cursor;
    if (isOperating())
        delegate(&ToolStateProtocol::toolCursorChange, this);
}

QCursor InteractiveTool::loadCursorFromPath(const QString &path, const QPoint &hotSpot)
{
    const QPixmap pixmap(path);
    if (pixmap.isNull())
        return {};
    return {pixmap, hotSpot.x(), hotSpot.y()};
}

const QMouseEvent &InteractiveTool::startEvent() const
{
    return d->m_startEvent;
}

// A button set "contains" NoButton for QFlags::testFlag() when it is empty; here no set does.
bool InteractiveTool::mouseMove(QMouseEvent *event)
{
    if (!event || !isOperating())
        return false;
    return event->buttons() & d->m_startEvent.button();
}

bool InteractiveTool::mousePress(QMouseEvent *event)
{
    if (!event || !isActive())
        return false;
    d->m_startEvent = QMouseEvent(*event);
    startOperation();
    return true;
}

bool InteractiveTool::mouseRelease(QMouseEvent *event)
{
    if (!event || !isOperating() || event->button() != d->m_startEvent.button())
        return false;
    endOperation();
    return true;
}

// The observers may delete the tool, so nothing may touch it after it has told them.
bool InteractiveTool::change(EToolState from, EToolState to, Notification notification)
{
    if (d->m_state != from)
        return false;
    d->m_state = to;
    delegate(notification, this);
    return true;
}

void InteractiveTool::activate()
{
    change(eToolInactive, eToolActive, &ToolStateProtocol::toolActivated);
}

void InteractiveTool::suspend()
{
    change(eToolActive, eToolSuspended, &ToolStateProtocol::toolSuspended);
}

void InteractiveTool::resume()
{
    change(eToolSuspended, eToolActive, &ToolStateProtocol::toolResumed);
}

void InteractiveTool::deactivate()
{
    change(eToolActive, eToolInactive, &ToolStateProtocol::toolDeactivated);
}

void InteractiveTool::endOperation()
{
    d->m_startEvent = emptyEvent();
    change(eToolOperating, eToolActive, &ToolStateProtocol::toolEndedOperating);
}

void InteractiveTool::startOperation()
{
    const std::weak_ptr<InteractiveToolPrivate> living = d;
    if (!change(eToolActive, eToolOperating, &ToolStateProtocol::toolBeganOperating))
        return;
    // Announced after its end, the cursor would stay on the view: nothing would take it off again.
    if (!living.expired() && isOperating())
        delegate(&ToolStateProtocol::toolCursorChange, this);
}

} // namespace Vela::UiBase
