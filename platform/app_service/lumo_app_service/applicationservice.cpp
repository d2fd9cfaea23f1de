// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "lumo_app_service/applicationservice.h"

#include "lumo_app_service/applicationstateprotocol.h"
#include "lumo_app_service/delegatelist_p.h"
#include "lumo_app_service/shutdownprotocol.h"

#include <orrin_mesh_kernel/Kernel>

#include <QMoveEvent>
#include <QPointer>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QWidget>

#include <algorithm>
#include <atomic>
#include <utility>
#include <vector>

namespace Vela::Services {
namespace {

using StateDelegates = DelegateList<ApplicationStateProtocol>;
using SharedKernel = std::shared_ptr<Orrin::Core::Kernel>;

/// Tells the delegates what happens to one window. It is an object of its own because only one of
/// the window's thread can watch it, and any thread may have been the first to ask for the service.
class WindowWatcher : public QObject
{
public:
    WindowWatcher(QWidget *window, const StateDelegates &delegates)
        : m_delegates(delegates)
    {
        window->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (!isTold(event->type()))
            return false;
        // A delegate may replace the window, which ends this watcher, and may end the window, which
        // then must not be handed the event.
        const QPointer<QWidget> window(static_cast<QWidget *>(watched));
        tellDelegates(window->windowState(), event);
        return !window;
    }

private:
    static bool isTold(QEvent::Type type)
    {
        return type == QEvent::Move || type == QEvent::Resize || type == QEvent::WindowStateChange;
    }

    void tellDelegates(Qt::WindowStates state, QEvent *event) const;
    template<typename Operation>
    static void tell(const StateDelegates &delegates, const Operation &operation);

    const StateDelegates &m_delegates;
};

void WindowWatcher::tellDelegates(Qt::WindowStates state, QEvent *event) const
{
    using To = ApplicationStateProtocol *;
    if (event->type() == QEvent::Move) {
        const QPoint position = static_cast<QMoveEvent *>(event)->pos();
        tell(m_delegates, [&](To to) { to->appMoved(position); });
    } else if (event->type() == QEvent::Resize) {
        const QSize size = static_cast<QResizeEvent *>(event)->size();
        tell(m_delegates, [&](To to) { to->appResized(size); });
    } else {
        const auto oldState = static_cast<QWindowStateChangeEvent *>(event)->oldState();
        tell(m_delegates, [&](To to) { to->appWindowStateChanged(oldState, state); });
    }
}

template<typename Operation>
void WindowWatcher::tell(const StateDelegates &delegates, const Operation &operation)
{
    delegates.callWhileTrue([&operation](ApplicationStateProtocol *delegate) {
        // Qt's event loop, which calls this, can't take an exception.
        try {
            operation(delegate);
        } catch (...) {
            qWarning("ApplicationService: a state delegate threw an exception");
        }
        return true;
    });
}

} // namespace

class ApplicationServicePrivate
{
public:
    ApplicationServicePrivate() { setKernel(std::make_shared<Orrin::Core::Kernel>()); }

    void setKernel(SharedKernel newKernel)
    {
        auto *const raw = newKernel.get();
        if (std::find(kernels.begin(), kernels.end(), newKernel) == kernels.end())
            kernels.push_back(std::move(newKernel));
        kernel.store(raw, std::memory_order_release);
    }

    // All kernels of the process, the plain one first: a thread may hold a reference to any.
    std::vector<SharedKernel> kernels;
    std::atomic<Orrin::Core::Kernel *> kernel {nullptr};
    StateDelegates stateDelegates;
    DelegateList<ShutdownProtocol> shutdownDelegates;
    std::unique_ptr<WindowWatcher> windowWatcher;
    IAppManager *appManager = nullptr;
    bool workspaceSwitchingEnabled = true;
    bool isAskingForShutdown = false;
};

ApplicationService &ApplicationService::GetInstance()
{
    // Never destroyed: static objects and threads that outlive main() may still remove their
    // delegates and write waypoints.
    static ApplicationService &service = *new ApplicationService;
    return service;
}

ApplicationService::ApplicationService()
    : d(std::make_unique<ApplicationServicePrivate>())
{ }

ApplicationService::~ApplicationService() = default;

const Orrin::Core::Kernel &ApplicationService::Kernel() const
{
    return *d->kernel.load(std::memory_order_acquire);
}

Orrin::Core::Kernel &ApplicationService::kernel()
{
    return *d->kernel.load(std::memory_order_acquire);
}

void ApplicationService::setKernel(std::shared_ptr<Orrin::Core::Kernel> kernel)
{
    d->setKernel(kernel ? std::move(kernel) : d->kernels.front());
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
    if (d->isAskingForShutdown)
        return false;
    const QScopedValueRollback<bool> asking(d->isAskingForShutdown, true);
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
    d->windowWatcher.reset();
    if (window)
        d->windowWatcher = std::make_unique<WindowWatcher>(window, d->stateDelegates);
}

} // namespace Vela::Services
