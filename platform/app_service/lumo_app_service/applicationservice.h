// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "lumo_app_service/appserviceexport.h"

#include <QObject>

#include <memory>

class QWidget;

namespace Orrin::Core {
class Kernel;
}

namespace Vela::Services {

class ApplicationServicePrivate;
class ApplicationStateProtocol;
class IAppManager;
class ShutdownProtocol;

/// What the library knows of the application it runs in: the main window and its state, the mesh
/// kernel, the application manager, and who has a say when the application shuts down.
///
/// There is one per process. It needs no application object and is never destroyed, so it may be
/// used before main(), after the application object and from the destructors of static objects.
/// Everything is called on the main thread, apart from GetInstance(), Kernel() and kernel().
///
/// Delegates are not owned. One that is a QObject is skipped once it died; any other has to be
/// removed before it ends. A delegate may add and remove delegates, itself and others, from inside
/// its call: one that is removed is not called any more, one that is added hears of the next event.
class LUMO_APP_SERVICE_EXPORT ApplicationService : public QObject
{
    Q_OBJECT

public:
    /// The one instance, made on first use. Any thread; before there is an application object the
    /// first to ask has to be the main thread.
    static ApplicationService &GetInstance();

    /// The kernel that waypoints are written to; a plain one until the host sets its own. Any
    /// thread.
    const Orrin::Core::Kernel &Kernel() const;
    /// The same kernel, to set a waypoint sink on. Any thread.
    Orrin::Core::Kernel &kernel();
    /// Replaces the kernel; null puts the plain one back, with the sink it had. Main thread, while
    /// other threads may be using the kernel: one that was set once lives as long as the process,
    /// so that every reference to it stays valid.
    void setKernel(std::shared_ptr<Orrin::Core::Kernel> kernel);

    /// Allows or forbids that the user changes the workspace. Emits
    /// workspaceSwitchingEnabledChanged() when the value changes. Not counted: the last call holds.
    void EnableWorkspaceSwitching(bool enable);
    /// True until somebody forbids it.
    bool isWorkspaceSwitchingEnabled() const;

    /// Adds a delegate that hears of the main window; null is ignored. One that is added several
    /// times is called as often for each event.
    void addAppStateDelegate(ApplicationStateProtocol *delegate);
    /// Removes all entries of @p delegate; an unknown one is ignored.
    void removeAppStateDelegate(ApplicationStateProtocol *delegate);

    /// Adds a delegate that requestShutdown() asks; null is ignored. One that is added several
    /// times is asked as often.
    void addShutdownDelegate(ShutdownProtocol *delegate);
    /// Removes all entries of @p delegate; an unknown one is ignored.
    void removeShutdownDelegate(ShutdownProtocol *delegate);
    /// Asks the shutdown delegates in the order of their adding and stops at the first that
    /// refuses. An exception of a delegate reaches the caller.
    /// @return whether all agreed. False, without asking anybody, from inside a delegate's call: a
    ///         delegate that shows a dialog is not asked again while the dialog is open
    bool requestShutdown();

    /// The host's application manager; null until one is set. Not owned.
    IAppManager *GetAppManager() const;
    /// Sets the application manager; it must live until it is replaced. Null takes it away.
    void setAppManager(IAppManager *manager);

    /// Sets the top-level window whose moves, sizes and states the delegates hear of, in the order
    /// of their adding and before the window itself. It is watched until it dies or another one is
    /// set; null watches none. What it went through before is not told. Not owned.
    ///
    /// A delegate that throws costs the others nothing: the exception ends in a warning.
    void setMainWindow(QWidget *window);

Q_SIGNALS:
    /// Workspace switching was allowed or forbidden.
    void workspaceSwitchingEnabledChanged(bool enabled);

private:
    ApplicationService();
    ~ApplicationService() override;

    const std::unique_ptr<ApplicationServicePrivate> d;
    Q_DISABLE_COPY(ApplicationService)
};

} // namespace Vela::Services
