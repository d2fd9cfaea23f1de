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
/// kernel, the application manager, and who has a say when the application shuts down. There is one
/// per process. Main thread only, apart from Kernel() and kernel().
class LUMO_APP_SERVICE_EXPORT ApplicationService : public QObject
{
    Q_OBJECT

public:
    /// The one instance, made on first use; it needs no application object.
    static ApplicationService &GetInstance();

    /// The kernel that waypoints are written to; a plain one until the host sets its own. Any thread.
    const Orrin::Core::Kernel &Kernel() const;
    /// The same kernel, to set a waypoint sink on. Any thread.
    Orrin::Core::Kernel &kernel();
    /// Replaces the kernel; null puts a plain one back.
    void setKernel(std::shared_ptr<Orrin::Core::Kernel> kernel);

    /// Allows or forbids that the user changes the workspace. Emits workspaceSwitchingEnabledChanged()
    /// when the value changes. Not counted: the last call holds.
    void EnableWorkspaceSwitching(bool enable);
    /// True until somebody forbids it.
    bool isWorkspaceSwitchingEnabled() const;

    /// Adds a delegate, which is not owned, once more for each call; null is ignored. A delegate that
    /// is a QObject is forgotten when it dies, any other has to be removed before.
    void addAppStateDelegate(ApplicationStateProtocol *delegate);
    /// Removes all entries of @p delegate; an unknown one is ignored.
    void removeAppStateDelegate(ApplicationStateProtocol *delegate);

    /// \copydoc addAppStateDelegate
    void addShutdownDelegate(ShutdownProtocol *delegate);
    /// \copydoc removeAppStateDelegate
    void removeShutdownDelegate(ShutdownProtocol *delegate);
    /// Asks the shutdown delegates in the order of their adding and stops at the first that refuses.
    /// @return whether all agreed
    bool requestShutdown();

    /// The host's application manager; null until one is set. Not owned.
    IAppManager *GetAppManager() const;
    /// Sets the application manager; it must live until it is replaced or the last view has closed.
    void setAppManager(IAppManager *manager);

    /// Sets the window whose moves, sizes and states the delegates hear of. It is watched until it
    /// dies or another one is set; null watches none.
    void setMainWindow(QWidget *window);

Q_SIGNALS:
    /// Workspace switching was allowed or forbidden.
    void workspaceSwitchingEnabledChanged(bool enabled);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ApplicationService();
    ~ApplicationService() override;

    const std::unique_ptr<ApplicationServicePrivate> d;
    Q_DISABLE_COPY(ApplicationService)
};

} // namespace Vela::Services
