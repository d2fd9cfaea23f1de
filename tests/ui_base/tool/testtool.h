// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/recordingobservers.h"
#include "ui_base/tool/interactivetool.h"

#include <QCursor>
#include <QMouseEvent>

#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace Lumo::Test {

/// A plain tool with a name, which opens what is protected. Its hooks, called behind the inherited
/// operation, say what it does beyond that.
class TestTool : public Vela::UiBase::InteractiveTool
{
public:
    explicit TestTool(QString name = {}, Vela::UiBase::BaseView *view = nullptr)
        : InteractiveTool(view)
        , m_name(std::move(name))
    { }
    ~TestTool() override
    {
        if (onDeath)
            onDeath();
    }

    QString name() const { return m_name; }
    static QString nameOf(InteractiveTool *tool)
    {
        auto *const named = dynamic_cast<TestTool *>(tool);
        return named ? named->name() : QStringLiteral("unknown");
    }

    /// The state in one word.
    QString state() const
    {
        if (isActive())
            return QStringLiteral("active");
        if (isSuspended())
            return QStringLiteral("suspended");
        return isOperating() ? QStringLiteral("operating") : QStringLiteral("inactive");
    }

    using InteractiveTool::endOperation;
    using InteractiveTool::loadCursorFromPath;
    using InteractiveTool::setIdleCursor;
    using InteractiveTool::setOperatingCursor;
    using InteractiveTool::startEvent;
    using InteractiveTool::startOperation;

    void activate() override
    {
        // A copy, since the tool may die of being activated.
        const std::function<void()> hook = onActivate;
        InteractiveTool::activate();
        if (hook)
            hook();
    }

    std::function<void()> onActivate;
    std::function<void()> onDeath;

private:
    QString m_name;
};

/// Records what it hears as "activated(name)" and the like; a call on another thread than the main
/// one has a star behind it. A reaction to an event is called once it is recorded, and only once.
class ToolRecorder : public Vela::UiBase::ToolStateProtocol
{
public:
    using Tool = Vela::UiBase::InteractiveTool;

    void toolActivated(Tool *tool) override { record("activated(%1)", tool); }
    void toolDeactivated(Tool *tool) override { record("deactivated(%1)", tool); }
    void toolBeganOperating(Tool *tool) override { record("began(%1)", tool); }
    void toolEndedOperating(Tool *tool) override { record("ended(%1)", tool); }
    void toolSuspended(Tool *tool) override { record("suspended(%1)", tool); }
    void toolResumed(Tool *tool) override { record("resumed(%1)", tool); }
    void toolCursorChange(Tool *tool) override { record("cursor(%1)", tool); }

    QStringList takeEvents() { return m_log.take(); }
    void react(const char *event, std::function<void()> reaction)
    {
        m_reactions[QString::fromLatin1(event)] = std::move(reaction);
    }

protected:
    void record(const char *format, Tool *tool)
    {
        const QString event = QString::fromLatin1(format).arg(TestTool::nameOf(tool));
        m_log.add(event + (isMainThread() ? QString() : QStringLiteral("*")));
        const auto found = m_reactions.find(event);
        if (found == m_reactions.end())
            return;
        const std::function<void()> reaction = std::move(found->second);
        m_reactions.erase(found);
        reaction();
    }

private:
    EventLog m_log;
    std::map<QString, std::function<void()>> m_reactions;
};

inline QMouseEvent mouseEvent(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held,
                              const QPointF &position = {3, 4})
{
    return {type, position, button, held, Qt::ShiftModifier};
}

inline bool press(Vela::UiBase::ViewResponder &to, Qt::MouseButton button,
                  const QPointF &position = {3, 4})
{
    QMouseEvent event = mouseEvent(QEvent::MouseButtonPress, button, button, position);
    return to.mousePress(&event);
}

inline bool move(Vela::UiBase::ViewResponder &to, Qt::MouseButtons held)
{
    QMouseEvent event = mouseEvent(QEvent::MouseMove, Qt::NoButton, held);
    return to.mouseMove(&event);
}

inline bool release(Vela::UiBase::ViewResponder &to, Qt::MouseButton button)
{
    QMouseEvent event = mouseEvent(QEvent::MouseButtonRelease, button, Qt::NoButton);
    return to.mouseRelease(&event);
}

} // namespace Lumo::Test
