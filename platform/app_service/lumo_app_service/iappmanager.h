// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "lumo_app_service/appserviceexport.h"

#include <QList>
#include <QString>

namespace Vela::UiBase {
class CmdsViewController;
class CommandBase;
}

namespace Vela::Services {

/// The host's application manager: it knows which commands belong to which view controller.
class LUMO_APP_SERVICE_EXPORT IAppManager
{
public:
    virtual ~IAppManager();

    /// Called by a host that starts its manager through this interface. Nothing by default.
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
