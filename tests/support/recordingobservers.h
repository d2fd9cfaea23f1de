// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/cmdmgrprotocol.h"
#include "ui_base/command/commandbase.h"
#include "ui_base/command/commandstateprotocol.h"

#include <lumo_app_service/ApplicationService>
#include <orrin_mesh_kernel/Kernel>

#include <QCoreApplication>
#include <QMutex>
#include <QStringList>
#include <QThread>

#include <memory>

namespace Lumo::Test {

/// What happened, in order, from whichever thread. Copies share one list.
class EventLog
{
public:
    void add(const QString &event)
    {
        const QMutexLocker lock(&m_shared->mutex);
        m_shared->events << event;
    }

    QStringList events() const
    {
        const QMutexLocker lock(&m_shared->mutex);
        return m_shared->events;
    }

    /// The events so far, which are forgotten.
    QStringList take()
    {
        const QMutexLocker lock(&m_shared->mutex);
        QStringList taken;
        taken.swap(m_shared->events);
        return taken;
    }

private:
    struct Shared
    {
        QMutex mutex;
        QStringList events;
    };

    std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
};

inline QString textOf(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

inline bool isMainThread()
{
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

/// Records the runs and the life of commands by object name, "began(name)" and the like. A call on
/// another thread than the main one has a star behind it.
class CommandRecorder : public Vela::UiBase::CommandStateProtocol
{
public:
    explicit CommandRecorder(const EventLog &log, const QString &prefix = {})
        : m_log(log)
        , m_prefix(prefix)
    { }

    void commandBegan(Vela::UiBase::CommandBase *command) override
    {
        record(QStringLiteral("opened(%1)").arg(command->objectName()));
    }
    void commandEnded(Vela::UiBase::CommandBase *command) override
    {
        record(QStringLiteral("closed(%1)").arg(command->objectName()));
    }
    void commandBeganExecuting(Vela::UiBase::CommandBase *command, bool checked) override
    {
        record(QStringLiteral("began(%1,%2)").arg(command->objectName(), textOf(checked)));
    }
    void commandEndedExecuting(Vela::UiBase::CommandBase *command, bool checked) override
    {
        record(QStringLiteral("ended(%1,%2)").arg(command->objectName(), textOf(checked)));
    }

private:
    void record(const QString &event)
    {
        m_log.add(m_prefix + event + (isMainThread() ? QString() : QStringLiteral("*")));
    }

    EventLog m_log;
    QString m_prefix;
};

/// Records what a manager takes in and lets go: "added(id)" and "removed(id)".
class ManagerRecorder : public Vela::UiBase::CmdMgrProtocol
{
public:
    explicit ManagerRecorder(const EventLog &log)
        : m_log(log)
    { }

    void commandAdded(Vela::UiBase::CmdMgr *manager, Vela::UiBase::CommandBase *command) override
    {
        lastManager = manager;
        const QString id = command ? command->commandId() : QStringLiteral("null");
        m_log.add(QStringLiteral("added(%1)").arg(id));
    }
    void commandRemoved(Vela::UiBase::CmdMgr *manager, QString id) override
    {
        lastManager = manager;
        m_log.add(QStringLiteral("removed(%1)").arg(id));
    }

    Vela::UiBase::CmdMgr *lastManager = nullptr;

private:
    EventLog m_log;
};

/// Records the waypoints that are written to the application's kernel while it lives.
class WaypointRecorder
{
public:
    explicit WaypointRecorder(EventLog log)
    {
        kernel().setWaypointSink(
            [log](const std::wstring &text) mutable { log.add(QString::fromStdWString(text)); });
    }
    ~WaypointRecorder() { kernel().setWaypointSink({}); }

    WaypointRecorder(const WaypointRecorder &) = delete;
    WaypointRecorder &operator=(const WaypointRecorder &) = delete;

private:
    static Orrin::Core::Kernel &kernel()
    {
        return Vela::Services::ApplicationService::GetInstance().kernel();
    }
};

} // namespace Lumo::Test
