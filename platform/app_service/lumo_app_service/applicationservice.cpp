// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "lumo_app_service/applicationservice.h"

#include "lumo_app_service/applicationstateprotocol.h"
#include "lumo_app_service/shutdownprotocol.h"

#include <orrin_mesh_kernel/Kernel>

#include <QMoveEvent>
#include <QPointer>
#include <QResizeEvent>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace Vela::Services {
namespace {

/// Delegates in order of registration, safe against changes from inside a call.
template<typename Protocol>
class DelegateList
{
public:
    void add(Protocol *delegate)
    {
        if (delegate)
            m_entries.push_back({delegate, dynamic_cast<QObject *>(delegate)});
    }

    void remove(Protocol *delegate)
    {
        const auto isDelegate = [delegate](const Entry &entry) { return entry.delegate == delegate; };
        m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(), isDelegate),
                        m_entries.end());
    }

    /// Calls @p operation on each delegate until one answers false.
    template<typename Operation>
    bool callWhileTrue(const Operation &operation)
    {
        removeDead();
        const std::vector<Entry> entries = m_entries;
        for (const Entry &entry : entries) {
            if (isAlive(entry) && contains(entry.delegate) && !operation(entry.delegate))
                return false;
        }
        return true;
    }

private:
    struct Entry
    {
        Entry(Protocol *protocol, QObject *object)
            : delegate(protocol)
            , guard(object)
            , isObject(object != nullptr)
        {
        }

        Protocol *delegate;
        QPointer<QObject> guard;
        bool isObject;
    };

    static bool isAlive(const Entry &entry) { return !entry.isObject || entry.guard; }

    bool contains(Protocol *delegate) const
    {
        return std::any_of(m_entries.begin(), m_entries.end(),
                           [delegate](const Entry &entry) { return entry.delegate == delegate; });
    }

    void removeDead()
    {
        const auto isDead = [](const Entry &entry) { return !isAlive(entry); };
        m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(), isDead),
                        m_entries.end());
    }

    std::vector<Entry> m_entries;
};

} // namespace

class ApplicationServicePrivate
{
public:
    template<typename Operation>
    void tellStateDelegates(const Operation &operation)
    {
        stateDelegates.callWhileTrue([&operation](ApplicationStateProtocol *delegate) {
            operation(delegate);
            return true;
        });
    }

    std::shared_ptr<Orrin::Core::Kernel> kernel = std::make_shared<Orrin::Core::Kernel>();
    DelegateList<ApplicationStateProtocol> stateDelegates;
    DelegateList<ShutdownProtocol> shutdownDelegates;
    QPointer<QWidget> mainWindow;
    IAppManager *appManager = nullptr;
    bool workspaceSwitchingEnabled = true;
};

ApplicationService &ApplicationService::GetInstance()
{
    static ApplicationService service;
    return service;
}

ApplicationService::ApplicationService()
    : d(std::make_unique<ApplicationServicePrivate>())
{
}

ApplicationService::~ApplicationService() = default;

const Orrin::Core::Kernel &ApplicationService::Kernel() const
{
    return *d->kernel;
}

Orrin::Core::Kernel &ApplicationService::kernel()
{
    return *d->kernel;
}

void ApplicationService::setKernel(std::shared_ptr<Orrin::Core::Kernel> kernel)
{
    d->kernel = kernel ? std::move(kernel) : std::make_shared<Orrin::Core::Kernel>();
}

void ApplicationService::EnableWorkspaceSwitching(bool enable)
{
    if (d->workspaceSwitchingEnabled == enable)
        return;
    d->workspaceSwitchingEnabled = enable;
    Q_EMIT workspaceSwitchingEnabledChanged(enable);
}

bool ApplicationService::isWorkspaceSwitchingEnabled() const
{
    return d->workspaceSwitchingEnabled;
}

void ApplicationService::addAppStateDelegate(ApplicationStateProtocol *delegate)
{
    d->stateDelegates.add(delegate);
}

void ApplicationService::removeAppStateDelegate(ApplicationStateProtocol *delegate)
{
    d->stateDelegates.remove(delegate);
}

void ApplicationService::addShutdownDelegate(ShutdownProtocol *delegate)
{
    d->shutdownDelegates.add(delegate);
}

void ApplicationService::removeShutdownDelegate(ShutdownProtocol *delegate)
{
    d->shutdownDelegates.remove(delegate);
}

bool ApplicationService::requestShutdown()
{
    return d->shutdownDelegates.callWhileTrue(
        [](ShutdownProtocol *delegate) { return delegate->canShutdown(); });
}

IAppManager *ApplicationService::GetAppManager() const
{
    return d->appManager;
}

void ApplicationService::setAppManager(IAppManager *manager)
{
    d->appManager = manager;
}

void ApplicationService::setMainWindow(QWidget *window)
{
    if (d->mainWindow)
        d->mainWindow->removeEventFilter(this);
    d->mainWindow = window;
    if (window)
        window->installEventFilter(this);
}

bool ApplicationService::eventFilter(QObject *watched, QEvent *event)
{
    if (!d->mainWindow || watched != d->mainWindow)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::Move: {
        const QPoint position = static_cast<QMoveEvent *>(event)->pos();
        d->tellStateDelegates([&](ApplicationStateProtocol *to) { to->appMoved(position); });
        break;
    }
    case QEvent::Resize: {
        const QSize size = static_cast<QResizeEvent *>(event)->size();
        d->tellStateDelegates([&](ApplicationStateProtocol *to) { to->appResized(size); });
        break;
    }
    case QEvent::WindowStateChange: {
        const Qt::WindowStates oldState = static_cast<QWindowStateChangeEvent *>(event)->oldState();
        const Qt::WindowStates newState = d->mainWindow->windowState();
        d->tellStateDelegates([&](ApplicationStateProtocol *to) {
            to->appWindowStateChanged(oldState, newState);
        });
        break;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace Vela::Services
