// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "lumo_app_service/appserviceexport.h"

#include <QList>
#include <QString>

namespace Vela::UiBase {
class CmdsViewController;
class CommandBase;
} // namespace Vela::UiBase

namespace Vela::Services {

/// The host's application manager: it knows which commands belong to which view controller. A host
/// hands its own to ApplicationService::setAppManager(); without one controllers have no commands
/// but those that are added to them directly.
class LUMO_APP_SERVICE_EXPORT IAppManager
{
public:
    virtual ~IAppManager();

    /// Makes the manager ready. Nothing by default; the library does not call it, a host may.
    virtual void Initialize();
    /// The counterpart of Initialize(). Nothing by default.
    virtual void Terminate();
    /// Name of the application for its users; empty by default.
    virtual QString applicationName() const;

    /// The commands of @p controller, in the order in which they are to be added. Called once, on
    /// the main thread, when the controller's view is loaded. The controller adopts them; null
    /// entries are skipped.
    virtual QList<UiBase::CommandBase *> commands(UiBase::CmdsViewController *controller) = 0;
};

} // namespace Vela::Services
